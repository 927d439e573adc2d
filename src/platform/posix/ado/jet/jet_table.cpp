// Scanning a table's pages.
#include "platform/posix/ado/jet/jet_table.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/posix/ado/jet/jet_errors.h"
#include "platform/posix/ado/jet/jet_row.h"
#include "platform/posix/ado/sql/byte_order.h"

namespace vandpublic::ado {
namespace {

constexpr std::int64_t kRowsPerPage = 65536;

class JetScan final : public RowScan {
 public:
  JetScan(const JetFile& file, const JetDefinition& definition)
      : file_(file), definition_(definition) {}

  bool Next() override {
    while (true) {
      if (page_ == nullptr || ++row_number_ >= row_count_) {
        if (page_index_ >= definition_.data_pages.size()) return false;
        LoadPage(definition_.data_pages[page_index_++]);
        row_number_ = 0;
      }
      if (row_number_ < row_count_ && LoadRow()) return true;
    }
  }

  bool Seek(std::int64_t locator) override {
    const std::int64_t number = locator / kRowsPerPage;
    const auto& pages = definition_.data_pages;
    if (!std::binary_search(pages.begin(), pages.end(), number)) return false;
    LoadPage(static_cast<std::uint32_t>(number));
    row_number_ = static_cast<std::uint32_t>(locator % kRowsPerPage);
    return row_number_ < row_count_ && LoadRow();
  }

  std::int64_t Locator() const override { return page_number_ * kRowsPerPage + row_number_; }

  Variant Value(std::size_t column) override {
    return JetValue(file_, *row_, definition_.columns[column]);
  }

 private:
  void LoadPage(std::uint32_t number) {
    page_ = file_.Page(number);
    page_number_ = number;
    row_count_ = file_.RowCount(*page_);
    // A page that was set aside for the table and not used yet is of no kind at all.
    if (row_count_ == 0) return;
    if (LittleEndian<std::uint32_t>(*page_, 4) != definition_.page) {
      RaiseDamaged("the owner of a page");
    }
  }

  // False for a row that is not to be seen.
  bool LoadRow() {
    const auto stored = file_.Row(*page_, row_number_);
    if (!stored || stored->hidden || stored->bytes.empty()) return false;
    row_.emplace(stored->bytes, definition_, file_.header().is_jet4);
    return true;
  }

  const JetFile& file_;
  const JetDefinition& definition_;
  std::size_t page_index_ = 0;  // of the next page to load
  JetPage page_;
  std::uint32_t page_number_ = 0;
  std::uint32_t row_count_ = 0;
  std::uint32_t row_number_ = 0;
  std::optional<JetRow> row_;
};

TableColumn ColumnOf(const JetColumn& column, bool is_jet4) {
  const auto size = static_cast<Long>(column.size);
  const auto make = [&](DataType type, Long defined_size, bool is_long = false) {
    return TableColumn{column.name, type, defined_size, is_long, true};
  };
  switch (column.type) {
    case JetType::Boolean: {
      TableColumn boolean = make(DataType::Boolean, 2);
      boolean.nullable = false;
      return boolean;
    }
    case JetType::Byte:
      return make(DataType::UnsignedTinyInt, 1);
    case JetType::Integer:
      return make(DataType::SmallInt, 2);
    case JetType::Long:
      return make(DataType::Integer, 4);
    case JetType::Currency:
      return make(DataType::Currency, 8);
    case JetType::Single:
      return make(DataType::Single, 4);
    case JetType::Double:
      return make(DataType::Double, 8);
    case JetType::Date:
      return make(DataType::Date, 8);
    case JetType::Binary:
      return make(DataType::VarBinary, size);
    case JetType::Text:
      return make(DataType::VarWChar, is_jet4 ? size / 2 : size);
    case JetType::Ole:
      return make(DataType::LongVarBinary, INT32_MAX, true);
    case JetType::Memo:
      return make(DataType::LongVarWChar, INT32_MAX / 2, true);
    case JetType::Guid:
      return make(DataType::Guid, 16);
    case JetType::Numeric:
      return make(DataType::Numeric, 19);
  }
  return make(DataType::VarWChar, size);
}

[[noreturn]] void RaiseReadOnly() {
  RaiseJet(SourceError::Failed, "Operation must use an updateable query.");
}

}  // namespace

JetTable::JetTable(std::shared_ptr<const JetFile> file, std::uint32_t page)
    : file_(std::move(file)), definition_(ReadJetDefinition(*file_, page)) {
  for (const JetColumn& column : definition_.columns) {
    columns_.push_back(ColumnOf(column, file_->header().is_jet4));
  }
}

std::unique_ptr<RowScan> JetTable::Scan() { return std::make_unique<JetScan>(*file_, definition_); }

void JetTable::Update(std::int64_t, const GivenValues&, const GivenValues&) { RaiseReadOnly(); }
void JetTable::Delete(std::int64_t, const GivenValues&) { RaiseReadOnly(); }
std::int64_t JetTable::Insert(const GivenValues&) { RaiseReadOnly(); }

}  // namespace vandpublic::ado
