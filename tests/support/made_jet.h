// Jet databases that a test makes, of either format: a catalog, tables with any columns and rows,
// pages of long values. The bytes are put together as the format's description has them.
//
//   MadeJet made(true);
//   made.AddTable({"Made", {{"Id", 4, 4}}, {{LittleEndianBytes(7, 4)}}});
//   folder.Write("made.mdb", made.Content());
#ifndef VANDPUBLIC_TESTS_SUPPORT_MADE_JET_H
#define VANDPUBLIC_TESTS_SUPPORT_MADE_JET_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vandpublic::ado {

struct MadeJetColumn {
  std::string name;  // ASCII
  int type = 0;      // as the format numbers it
  int size = 0;      // bytes
  bool is_fixed = true;
  int scale = 0;
};

// The bytes of a value; nothing for null. Of a Boolean any bytes are True.
using MadeJetCell = std::optional<std::string>;

struct MadeJetTable {
  std::string name;
  std::vector<MadeJetColumn> columns;
  std::vector<std::vector<MadeJetCell>> rows;
  int kind = 1;             // in the catalog: 1 a table, 5 a query, 4 and 6 linked tables
  std::uint32_t flags = 0;  // in the catalog
};

std::string LittleEndianBytes(std::uint64_t value, std::size_t size);
std::string DoubleBytes(double value);
std::string SingleBytes(float value);
// UTF-16 without its compression.
std::string Utf16Bytes(const std::u16string& text);

class MadeJet {
 public:
  explicit MadeJet(bool is_jet4);

  bool is_jet4() const noexcept { return is_jet4_; }
  std::size_t page_size() const noexcept { return is_jet4_ ? 4096 : 2048; }

  // Text in ASCII as the format stores it.
  std::string Text(const std::string& ascii) const;

  // The page of the table's definition; its rows are on the page behind, the map of that page on
  // the next one. What a long definition has no room for is on a fourth page.
  std::uint32_t AddTable(const MadeJetTable& table);
  // A page of the rows, as long values are stored; its number.
  std::uint32_t AddRowPage(const std::vector<std::string>& rows, std::uint32_t owner = 0);
  // A page as it is, filled up with zero bytes; its number.
  std::uint32_t AddPage(std::string bytes);
  // Where a long value begins that is stored elsewhere: the cell of its column.
  static std::string MemoCell(std::size_t length, std::uint32_t flags, std::uint32_t page,
                              std::uint32_t row);

  // The columns that the catalog has; without one of them it is damaged.
  void SetCatalogColumns(std::vector<MadeJetColumn> columns) { catalog_ = std::move(columns); }
  void SetCodePage(int code_page) { code_page_ = code_page; }

  // The whole file.
  std::string Content() const;

  // A page's place in the file.
  std::size_t PageStart(std::uint32_t page) const { return page * page_size(); }

 private:
  std::string Definition(const MadeJetTable& table, std::uint32_t map_page) const;
  std::string ColumnBytes(const MadeJetColumn& column, std::size_t number, std::size_t variable,
                          std::size_t offset) const;
  std::string RowBytes(const MadeJetTable& table, const std::vector<MadeJetCell>& row) const;
  std::string MapRow(std::uint32_t page) const;
  std::string RowPage(const std::vector<std::string>& rows, std::uint32_t owner) const;

  bool is_jet4_;
  int code_page_ = 1252;
  std::vector<MadeJetColumn> catalog_;
  std::vector<MadeJetTable> tables_;
  std::vector<std::uint32_t> definition_pages_;
  std::vector<std::string> pages_;  // from page 5 on
};

}  // namespace vandpublic::ado

#endif
