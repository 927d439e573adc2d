// Reading definitions. All of their bytes are collected first: a definition may go on from page to
// page, and pages that point at each other must not keep us for ever.
#include "platform/posix/ado/jet/jet_definition.h"

#include <algorithm>

#include "platform/posix/ado/jet/jet_errors.h"
#include "platform/posix/ado/sql/byte_order.h"
#include "runtime/utf8.h"

namespace vandpublic::ado {
namespace {

constexpr char kDefinitionPage = 2;
constexpr std::size_t kPageHeader = 8;

// A definition has at most 255 columns and 32 indexes; this is far more than they need.
constexpr std::size_t kMaxDefinitionPages = 64;
constexpr std::uint32_t kMaxColumns = 255;
constexpr std::uint32_t kMaxIndexes = 1000;

// Where the parts of a definition stand.
struct Layout {
  std::size_t variable_columns;
  std::size_t columns;
  std::size_t indexes;
  std::size_t usage_map;
  std::size_t first_index;
  std::size_t index_size;
  std::size_t column_size;
  std::size_t number;  // from here on in a column
  std::size_t variable_index;
  std::size_t precision;
  std::size_t scale;
  std::size_t flags;
  std::size_t fixed_offset;
  std::size_t size;
  std::size_t name_length_size;
};

constexpr Layout kJet3 = {23, 25, 31, 35, 43, 8, 18, 1, 3, 9, 10, 13, 14, 16, 1};
constexpr Layout kJet4 = {43, 45, 51, 55, 63, 12, 25, 5, 7, 11, 12, 15, 21, 23, 2};

constexpr std::uint8_t kFixedFlag = 0x01;

// The bytes of the definition, the headers of all but the first page left out.
std::string CollectBytes(const JetFile& file, std::uint32_t number) {
  std::string bytes;
  for (std::size_t count = 0; number != 0; ++count) {
    if (count == kMaxDefinitionPages) RaiseDamaged("the length of a table definition");
    const JetPage page = file.Page(number);
    if ((*page)[0] != kDefinitionPage) RaiseDamaged("a page of a table definition");
    bytes.append(*page, count == 0 ? 0 : kPageHeader, std::string::npos);
    number = LittleEndian<std::uint32_t>(*page, 4);
  }
  return bytes;
}

bool IsKnownType(std::uint8_t type) {
  return (type >= 1 && type <= 12) || type == 15 || type == 16;
}

std::u16string DecodeName(const JetFile& file, std::string_view bytes) {
  if (!file.header().is_jet4) return file.code_page().Decode(bytes);
  std::u16string name;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    name += static_cast<char16_t>(LittleEndian<std::uint16_t>(bytes, i));
  }
  return name;
}

class DefinitionReader {
 public:
  DefinitionReader(const JetFile& file, std::uint32_t page)
      : file_(file),
        layout_(file.header().is_jet4 ? kJet4 : kJet3),
        bytes_(CollectBytes(file, page)) {
    definition_.page = page;
  }

  JetDefinition Read() {
    // The page that was read is far longer than the fixed part.
    definition_.has_variable_columns =
        LittleEndian<std::uint16_t>(bytes_, layout_.variable_columns) != 0;
    const std::uint32_t columns = LittleEndian<std::uint16_t>(bytes_, layout_.columns);
    const auto indexes = LittleEndian<std::uint32_t>(bytes_, layout_.indexes);
    if (columns > kMaxColumns || indexes > kMaxIndexes) RaiseDamaged("a table definition");
    position_ = layout_.first_index + indexes * layout_.index_size;
    for (std::uint32_t i = 0; i < columns; ++i)
      ReadColumn(Take(layout_.column_size));
    for (JetColumn& column : definition_.columns)
      ReadName(column);
    std::stable_sort(definition_.columns.begin(), definition_.columns.end(),
                     [](const JetColumn& a, const JetColumn& b) { return a.number < b.number; });
    ReadUsageMap(RowPointer::From(LittleEndian<std::uint32_t>(bytes_, layout_.usage_map)));
    return std::move(definition_);
  }

 private:
  std::string_view Take(std::size_t size) {
    if (position_ > bytes_.size() || size > bytes_.size() - position_) {
      RaiseDamaged("a table definition");
    }
    position_ += size;
    return std::string_view(bytes_).substr(position_ - size, size);
  }

  void ReadColumn(std::string_view bytes) {
    JetColumn column;
    const auto type = static_cast<std::uint8_t>(bytes[0]);
    if (!IsKnownType(type)) RaiseDamaged("the type of a column");
    column.type = static_cast<JetType>(type);
    column.number = LittleEndian<std::uint16_t>(bytes, layout_.number);
    if (column.number > kMaxColumns * 4) RaiseDamaged("the number of a column");
    column.variable_index = LittleEndian<std::uint16_t>(bytes, layout_.variable_index);
    column.fixed_offset = LittleEndian<std::uint16_t>(bytes, layout_.fixed_offset);
    column.size = LittleEndian<std::uint16_t>(bytes, layout_.size);
    column.precision = static_cast<std::uint8_t>(bytes[layout_.precision]);
    column.scale = static_cast<std::uint8_t>(bytes[layout_.scale]);
    column.is_fixed = (static_cast<std::uint8_t>(bytes[layout_.flags]) & kFixedFlag) != 0;
    definition_.columns.push_back(std::move(column));
  }

  void ReadName(JetColumn& column) {
    const std::string_view length = Take(layout_.name_length_size);
    const std::size_t size = length.size() == 1 ? static_cast<std::uint8_t>(length[0])
                                                : LittleEndian<std::uint16_t>(length);
    column.name = ToUtf8(DecodeName(file_, Take(size)));
    if (column.name.empty()) RaiseDamaged("the name of a column");
  }

  // A list of bits, one a page: in the map itself from a first page on, or in pages of bits that
  // the map points to.
  void ReadUsageMap(RowPointer pointer) {
    const JetPage page = file_.Page(pointer.page);
    const auto row = file_.Row(*page, pointer.row);
    if (!row || row->bytes.empty()) RaiseDamaged("the map of a table's pages");
    const std::string_view map = row->bytes;
    if (map[0] == 0) {
      if (map.size() < 5) RaiseDamaged("the map of a table's pages");
      AddPages(LittleEndian<std::uint32_t>(map, 1), map.substr(5));
      return;
    }
    if (map[0] != 1) RaiseDamaged("the map of a table's pages");
    const std::size_t bits = (file_.header().page_size - 4) * 8;
    for (std::size_t i = 0; 1 + (i + 1) * 4 <= map.size(); ++i) {
      const auto number = LittleEndian<std::uint32_t>(map, 1 + i * 4);
      if (number == 0 || i * bits >= file_.PageCount()) continue;
      const JetPage bit_page = file_.Page(number);
      AddPages(static_cast<std::uint32_t>(i * bits), std::string_view(*bit_page).substr(4));
    }
  }

  // Bits of pages behind the end of the file are left over from larger days.
  void AddPages(std::uint32_t first, std::string_view bits) {
    for (std::size_t i = 0; i < bits.size() * 8; ++i) {
      const std::uint64_t number = first + i;
      if (number >= file_.PageCount()) return;
      if ((static_cast<std::uint8_t>(bits[i / 8]) >> (i % 8) & 1) == 0) continue;
      definition_.data_pages.push_back(static_cast<std::uint32_t>(number));
    }
  }

  const JetFile& file_;
  const Layout& layout_;
  std::string bytes_;
  std::size_t position_ = 0;
  JetDefinition definition_;
};

}  // namespace

JetDefinition ReadJetDefinition(const JetFile& file, std::uint32_t page) {
  return DefinitionReader(file, page).Read();
}

// A zero byte where a character begins changes between the two forms.
std::u16string DecodeJet4Text(std::string_view bytes) {
  std::u16string text;
  const bool marked = bytes.starts_with("\xFF\xFE");
  bool compressed = marked;
  for (std::size_t i = marked ? 2 : 0; i < bytes.size();) {
    if (marked && bytes[i] == '\0') {
      compressed = !compressed;
      ++i;
    } else if (compressed) {
      text += static_cast<char16_t>(static_cast<std::uint8_t>(bytes[i++]));
    } else if (i + 1 < bytes.size()) {
      text += static_cast<char16_t>(LittleEndian<std::uint16_t>(bytes, i));
      i += 2;
    } else {
      break;
    }
  }
  return text;
}

}  // namespace vandpublic::ado
