// The pages 0 to 4 are the header, one of no use, the catalog's definition, its rows, and the map
// that says where these are.
#include "support/made_jet.h"

#include <algorithm>
#include <bit>
#include <stdexcept>

#include "platform/posix/ado/jet/jet_header.h"

namespace vandpublic::ado {
namespace {

constexpr std::uint32_t kCatalogPage = 2;
constexpr std::uint32_t kFirstPage = 5;

constexpr int kBooleanType = 1;
constexpr int kIntegerType = 3;
constexpr int kLongType = 4;
constexpr int kTextType = 10;

void Put(std::string& bytes, std::size_t position, std::uint64_t value, std::size_t size) {
  bytes.replace(position, size, LittleEndianBytes(value, size));
}

}  // namespace

std::string LittleEndianBytes(std::uint64_t value, std::size_t size) {
  std::string bytes;
  for (; size > 0; --size, value >>= 8)
    bytes += static_cast<char>(value & 0xFF);
  return bytes;
}

std::string DoubleBytes(double value) {
  return LittleEndianBytes(std::bit_cast<std::uint64_t>(value), 8);
}

std::string SingleBytes(float value) {
  return LittleEndianBytes(std::bit_cast<std::uint32_t>(value), 4);
}

std::string Utf16Bytes(const std::u16string& text) {
  std::string bytes;
  for (const char16_t unit : text)
    bytes += LittleEndianBytes(unit, 2);
  return bytes;
}

MadeJet::MadeJet(bool is_jet4)
    : is_jet4_(is_jet4),
      catalog_{{"Id", kLongType, 4},
               {"Name", kTextType, 128, false},
               {"Type", kIntegerType, 2},
               {"Flags", kLongType, 4}} {}

std::string MadeJet::Text(const std::string& ascii) const {
  return is_jet4_ ? Utf16Bytes(std::u16string(ascii.begin(), ascii.end())) : ascii;
}

std::string MadeJet::MemoCell(std::size_t length, std::uint32_t flags, std::uint32_t page,
                              std::uint32_t row) {
  return LittleEndianBytes(length | flags, 4) + LittleEndianBytes(page << 8 | row, 4) +
         LittleEndianBytes(0, 4);
}

std::uint32_t MadeJet::AddPage(std::string bytes) {
  if (bytes.size() > page_size()) throw std::length_error("too much for a page");
  bytes.resize(page_size(), '\0');
  pages_.push_back(std::move(bytes));
  return kFirstPage + static_cast<std::uint32_t>(pages_.size()) - 1;
}

std::uint32_t MadeJet::AddRowPage(const std::vector<std::string>& rows, std::uint32_t owner) {
  return AddPage(RowPage(rows, owner));
}

std::uint32_t MadeJet::AddTable(const MadeJetTable& table) {
  const std::uint32_t page = kFirstPage + static_cast<std::uint32_t>(pages_.size());
  std::vector<std::string> rows;
  for (const auto& row : table.rows)
    rows.push_back(RowBytes(table, row));
  std::string definition = Definition(table, page + 2);
  const std::string rest = definition.substr(std::min(definition.size(), page_size()));
  if (!rest.empty()) Put(definition, 4, page + 3, 4);
  AddPage(definition.substr(0, page_size()));
  AddRowPage(rows, page);
  AddRowPage({MapRow(page + 1)});
  if (!rest.empty()) AddPage(std::string("\2\0\0\0\0\0\0\0", 8) + rest);
  tables_.push_back(table);
  definition_pages_.push_back(page);
  return page;
}

// Rows from the end of the page towards its beginning, their places behind the page's header.
std::string MadeJet::RowPage(const std::vector<std::string>& rows, std::uint32_t owner) const {
  std::string page(page_size(), '\0');
  page[0] = 1;
  Put(page, 4, owner, 4);
  const std::size_t count_position = is_jet4_ ? 12 : 8;
  Put(page, count_position, rows.size(), 2);
  std::size_t start = page.size();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    start -= rows[i].size();
    if (start < count_position + 2 + rows.size() * 2) throw std::length_error("too many rows");
    page.replace(start, rows[i].size(), rows[i]);
    Put(page, count_position + 2 + i * 2, start, 2);
  }
  return page;
}

// The map with one bit, for pages from this one on.
std::string MadeJet::MapRow(std::uint32_t page) const {
  return std::string(1, '\0') + LittleEndianBytes(page, 4) + '\1' + std::string(63, '\0');
}

std::string MadeJet::ColumnBytes(const MadeJetColumn& column, std::size_t number,
                                 std::size_t variable, std::size_t offset) const {
  std::string bytes(is_jet4_ ? 25 : 18, '\0');
  bytes[0] = static_cast<char>(column.type);
  Put(bytes, is_jet4_ ? 5 : 1, number, 2);
  Put(bytes, is_jet4_ ? 7 : 3, variable, 2);
  bytes[is_jet4_ ? 12 : 10] = static_cast<char>(column.scale);
  bytes[is_jet4_ ? 15 : 13] = column.is_fixed ? 1 : 0;
  Put(bytes, is_jet4_ ? 21 : 14, offset, 2);
  Put(bytes, is_jet4_ ? 23 : 16, static_cast<std::uint64_t>(column.size), 2);
  return bytes;
}

std::string MadeJet::Definition(const MadeJetTable& table, std::uint32_t map_page) const {
  std::string bytes(is_jet4_ ? 63 : 43, '\0');
  bytes[0] = 2;
  std::size_t variable = 0;
  std::size_t offset = 0;
  std::string columns;
  std::string names;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const MadeJetColumn& column = table.columns[i];
    columns += ColumnBytes(column, i, variable, offset);
    const std::string name = Text(column.name);
    names += LittleEndianBytes(name.size(), is_jet4_ ? 2 : 1) + name;
    if (!column.is_fixed) ++variable;
    if (column.is_fixed && column.type != kBooleanType) {
      offset += static_cast<std::size_t>(column.size);
    }
  }
  Put(bytes, is_jet4_ ? 43 : 23, variable, 2);
  Put(bytes, is_jet4_ ? 45 : 25, table.columns.size(), 2);
  Put(bytes, is_jet4_ ? 55 : 35, map_page << 8, 4);
  return bytes + columns + names;
}

std::string MadeJet::RowBytes(const MadeJetTable& table,
                              const std::vector<MadeJetCell>& row) const {
  const std::size_t count_size = is_jet4_ ? 2 : 1;
  std::string bytes = LittleEndianBytes(row.size(), count_size);
  std::string mask((row.size() + 7) / 8, '\0');
  std::vector<std::string> variable;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const MadeJetColumn& column = table.columns[i];
    if (row[i]) mask[i / 8] = static_cast<char>(mask[i / 8] | 1 << (i % 8));
    if (!column.is_fixed) {
      variable.push_back(row[i].value_or(""));
    } else if (column.type != kBooleanType) {
      std::string cell = row[i].value_or("");
      cell.resize(static_cast<std::size_t>(column.size), '\0');
      bytes += cell;
    }
  }
  const bool any_variable = std::any_of(table.columns.begin(), table.columns.end(),
                                        [](const MadeJetColumn& c) { return !c.is_fixed; });
  if (!any_variable) return bytes + mask;
  // Places from the last to the first; Jet 3 has a byte for each, and a table that says from which
  // value on they lie 256 bytes further on.
  std::vector<std::size_t> offsets = {bytes.size()};
  for (const std::string& cell : variable) {
    bytes += cell;
    offsets.push_back(bytes.size());
  }
  std::string jumps;
  for (std::size_t i = 0; i < offsets.size(); ++i) {
    if (!is_jet4_ && offsets[i] / 256 > jumps.size()) jumps.insert(0, 1, static_cast<char>(i));
  }
  for (std::size_t i = offsets.size(); i-- > 0;)
    bytes += LittleEndianBytes(offsets[i] & (is_jet4_ ? 0xFFFF : 0xFF), count_size);
  return bytes + jumps + LittleEndianBytes(variable.size(), count_size) + mask;
}

std::string MadeJet::Content() const {
  std::string header(page_size(), '\0');
  header.replace(0, 4, std::string("\0\1\0\0", 4));
  header.replace(4, 15, "Standard Jet DB");
  header[0x14] = is_jet4_ ? 1 : 0;
  Put(header, 0x3C, static_cast<std::uint64_t>(code_page_), 2);
  ApplyRc4({"\xC7\xDA\x39\x6B", 4}, header.data() + 0x18, is_jet4_ ? 128 : 126);

  MadeJetTable catalog{"MSysObjects", catalog_, {}};
  for (std::size_t i = 0; i < tables_.size(); ++i) {
    std::vector<MadeJetCell> row = {
        LittleEndianBytes(definition_pages_[i], 4), Text(tables_[i].name),
        LittleEndianBytes(static_cast<std::uint64_t>(tables_[i].kind), 2),
        LittleEndianBytes(tables_[i].flags, 4)};
    row.resize(catalog_.size());
    if (tables_[i].name.empty()) row[1].reset();
    catalog.rows.push_back(std::move(row));
  }
  std::vector<std::string> rows;
  for (const auto& row : catalog.rows)
    rows.push_back(RowBytes(catalog, row));
  std::string definition = Definition(catalog, kCatalogPage + 2);
  definition.resize(page_size(), '\0');
  std::string content = header + std::string(page_size(), '\0') + definition +
                        RowPage(rows, kCatalogPage) + RowPage({MapRow(kCatalogPage + 1)}, 0);
  for (const std::string& page : pages_)
    content += page;
  return content;
}

}  // namespace vandpublic::ado
