// Reading tables.
#include "platform/posix/ado/dbf/dbf_table.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/posix/ado/dbf/dbf_cells.h"
#include "platform/posix/ado/dbf/dbf_code_page.h"
#include "platform/posix/ado/dbf/dbf_errors.h"

namespace vandpublic::ado {
namespace {

constexpr char kDeletedMark = '*';

// How much of the file a scan reads at once; at least one record.
constexpr std::size_t kReadAtOnce = 65536;

}  // namespace

class DbfScan final : public RowScan {
 public:
  explicit DbfScan(DbfTable& table) : table_(table) {}

  bool Next() override {
    while (number_ < table_.layout_.record_count) {
      ++number_;
      if (Load()) return true;
    }
    record_ = {};
    return false;
  }

  bool Seek(std::int64_t locator) override {
    if (locator < 1 || locator > table_.layout_.record_count) return false;
    number_ = static_cast<std::uint32_t>(locator);
    return Load();
  }

  std::int64_t Locator() const override { return number_; }
  Variant Value(std::size_t column) override { return table_.Value(record_, column); }

 private:
  // Makes the record of the present number the current one; false for a deleted one.
  bool Load() {
    const DbfLayout& layout = table_.layout_;
    const std::uint32_t index = number_ - 1;
    const std::size_t records = window_.size() / layout.record_length;
    if (index < window_first_ || index - window_first_ >= records) FillWindow(index);
    record_ = std::string_view(window_).substr((index - window_first_) * layout.record_length,
                                               layout.record_length);
    return record_[0] != kDeletedMark;
  }

  void FillWindow(std::uint32_t index) {
    const DbfLayout& layout = table_.layout_;
    const std::size_t records = std::min<std::size_t>(
        std::max<std::size_t>(kReadAtOnce / layout.record_length, 1), layout.record_count - index);
    window_ = table_.file_.Read(layout.header_length + std::uint64_t{index} * layout.record_length,
                                records * layout.record_length);
    window_first_ = index;
    // The header was checked against the size; another program has cut the file since.
    if (window_.size() < layout.record_length) {
      RaiseNotATable(table_.file_.Name(), "the file is cut short");
    }
  }

  DbfTable& table_;
  std::uint32_t number_ = 0;  // of the current record, from 1
  std::string_view record_;
  std::string window_;  // whole records, and perhaps the beginning of one more
  std::uint32_t window_first_ = 0;
};

DbfTable::DbfTable(DbfFiles files, DbfSettings settings)
    : files_(std::move(files)),
      settings_(std::move(settings)),
      file_(files_.table, FileAccess::Read) {
  const std::string header = file_.Read(0, kMaxDbfHeader);
  code_page_ = CodePageOfMark(CodePageMark(header), settings_.code_page);
  layout_ = ReadDbfLayout(file_.Name(), header, file_.Size(), *code_page_);
  layout_.has_index = layout_.has_index || files_.has_index;
  for (const DbfField& field : layout_.fields)
    columns_.push_back(ColumnOf(field));
}

std::unique_ptr<RowScan> DbfTable::Scan() { return std::make_unique<DbfScan>(*this); }

Variant DbfTable::Value(std::string_view record, std::size_t column) {
  const DbfField& field = layout_.fields[column];
  if (!IsMemo(field)) return DecodeCell(layout_, field, record, *code_page_);
  if (field.null_bit && NullFlag(layout_, record, *field.null_bit)) return NullValue{};
  const std::uint32_t block = MemoBlock(field, record);
  return DecodeMemo(field, block == 0 ? std::string() : Memo().Read(block), *code_page_);
}

// Opened when the first memo is asked for: a table can be read without its memo file as long as
// nothing is looked for in there.
const MemoFile& DbfTable::Memo() {
  if (memo_ == nullptr) {
    memo_ = std::make_unique<MemoFile>(MemoPath(), layout_.memo, FileAccess::Read);
  }
  return *memo_;
}

const std::string& DbfTable::MemoPath() const {
  const std::string& path = layout_.memo == MemoKind::FoxPro ? files_.fpt : files_.dbt;
  if (path.empty() || layout_.memo == MemoKind::None) {
    RaiseDbf(SourceError::Failed,
             "Memo file for " + std::string(file_.Name()) + " is missing or is invalid.");
  }
  return path;
}

}  // namespace vandpublic::ado
