// Changes of a table.
#include "platform/posix/ado/dbf/dbf_writer.h"

#include <algorithm>
#include <array>

#include "platform/posix/ado/dbf/dbf_cells.h"
#include "platform/posix/ado/dbf/dbf_errors.h"
#include "platform/posix/ado/sql/byte_order.h"

namespace vandpublic::ado {
namespace {

constexpr char kDeletedMark = '*';
constexpr char kEndOfFile = '\x1A';
constexpr std::size_t kDatePosition = 1;
constexpr std::size_t kCountPosition = 4;

// What an added record holds where nothing is given: blanks in the types that are kept as text,
// zero bytes in the others.
std::string BlankRecord(const DbfLayout& layout) {
  std::string record(layout.record_length, ' ');
  for (const DbfField& field : layout.fields) {
    const bool is_text = std::string_view("CNFDL").find(field.type) != std::string_view::npos ||
                         (IsMemo(field) && field.size == 10);
    if (!is_text) record.replace(field.offset, field.size, field.size, '\0');
  }
  if (layout.null_flags_size != 0) {
    record.replace(layout.null_flags_offset, layout.null_flags_size, layout.null_flags_size, '\0');
  }
  for (const DbfField& field : layout.fields) {
    // Nothing given: null where the column allows it, and no text of variable length.
    if (field.null_bit) SetNullFlag(layout, record, *field.null_bit, true);
    if (field.length_bit) SetNullFlag(layout, record, *field.length_bit, true);
  }
  return record;
}

}  // namespace

DbfWriter::DbfWriter(DbfTable& table)
    : table_(table), file_(table.files_.table, FileAccess::ReadAndWrite) {
  file_.Lock(0, table_.layout_.header_length);
  // Read anew under the lock: another program may have added records, or another table may stand
  // there by now.
  const std::string header = file_.Read(0, kMaxDbfHeader);
  DbfLayout now = ReadDbfLayout(file_.Name(), header, file_.Size(), *table_.code_page_);
  if (now.header_length != table_.layout_.header_length ||
      now.record_length != table_.layout_.record_length ||
      now.fields.size() != table_.layout_.fields.size()) {
    RaiseRowNotLocated();
  }
  table_.layout_.record_count = now.record_count;
}

std::uint64_t DbfWriter::PositionOf(std::uint64_t index) const {
  return table_.layout_.header_length + index * table_.layout_.record_length;
}

void DbfWriter::CheckIndex(const GivenValues& values) const {
  if (!table_.layout_.has_index) return;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!values[i] || IsMemo(table_.layout_.fields[i])) continue;
    RaiseDbf(SourceError::Failed, "Table " + std::string(file_.Name()) +
                                      " has an index file; only memo and general columns can be "
                                      "changed.");
  }
}

std::string DbfWriter::LockedRecord(std::int64_t locator, const GivenValues& before) {
  const DbfLayout& layout = table_.layout_;
  if (locator < 1 || locator > layout.record_count) RaiseRowNotLocated();
  const std::uint64_t position = PositionOf(static_cast<std::uint64_t>(locator) - 1);
  file_.Lock(position, layout.record_length);
  std::string record = file_.Read(position, layout.record_length);
  if (record.size() < layout.record_length || record[0] == kDeletedMark) RaiseRowNotLocated();
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (before[i] && table_.Value(record, i) != *before[i]) RaiseRowNotLocated();
  }
  return record;
}

void DbfWriter::PutMemo(const DbfField& field, const Variant& value, std::string& record) {
  if (field.null_bit) SetNullFlag(table_.layout_, record, *field.null_bit, value.IsNull());
  if (value.IsNull()) {
    // A column without null values has none to tell from the empty memo.
    PutMemoBlock(field, 0, record);
    return;
  }
  const std::string content = EncodeMemo(field, value, *table_.code_page_);
  if (content.empty()) {
    PutMemoBlock(field, 0, record);
    return;
  }
  if (table_.layout_.memo != MemoKind::FoxPro) {
    RaiseDbf(SourceError::Failed, "Memos of dBASE tables can be read only.");
  }
  const MemoFile memo(table_.MemoPath(), table_.layout_.memo, FileAccess::ReadAndWrite);
  const bool text = field.type == 'M' && !field.binary;
  PutMemoBlock(field,
               memo.Append(content, text ? MemoFile::Content::Text : MemoFile::Content::Bytes),
               record);
}

// Values that need no memo blocks come first: they find most of what can be wrong with a row before
// anything is written.
void DbfWriter::PutValues(const GivenValues& values, std::string& record) {
  const DbfLayout& layout = table_.layout_;
  for (const bool memos : {false, true}) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      const DbfField& field = layout.fields[i];
      if (!values[i] || IsMemo(field) != memos) continue;
      if (field.autoincrement) {
        RaiseDbf(SourceError::IntegrityViolation,
                 "Field " + field.name + " is numbered automatically and cannot be written.");
      }
      if (memos) {
        PutMemo(field, *values[i], record);
      } else {
        EncodeCell(layout, field, *values[i], *table_.code_page_, record);
      }
    }
  }
}

void DbfWriter::WriteRecord(std::uint64_t index, const std::string& record) {
  file_.Write(PositionOf(index), record);
}

// The year: within its century in Visual FoxPro's tables, from 1900 on in the others.
void DbfWriter::WriteDate() {
  const LocalTime now = table_.settings_.clock->Now();
  const int year = table_.layout_.visual_foxpro ? now.year % 100 : now.year - 1900;
  const std::array date = {static_cast<char>(year), static_cast<char>(now.month),
                           static_cast<char>(now.day)};
  file_.Write(kDatePosition, {date.data(), date.size()});
}

void DbfWriter::Update(std::int64_t locator, const GivenValues& before, const GivenValues& values) {
  CheckIndex(values);
  std::string record = LockedRecord(locator, before);
  PutValues(values, record);
  WriteRecord(static_cast<std::uint64_t>(locator) - 1, record);
  WriteDate();
}

void DbfWriter::Delete(std::int64_t locator, const GivenValues& before) {
  const GivenValues every_column(table_.layout_.fields.size(), Variant());
  CheckIndex(every_column);
  std::string record = LockedRecord(locator, before);
  record[0] = kDeletedMark;
  WriteRecord(static_cast<std::uint64_t>(locator) - 1, record);
  WriteDate();
}

std::int64_t DbfWriter::Insert(const GivenValues& values) {
  DbfLayout& layout = table_.layout_;
  const GivenValues every_column(layout.fields.size(), Variant());
  CheckIndex(every_column);
  for (const DbfField& field : layout.fields) {
    if (!field.autoincrement) continue;
    RaiseDbf(SourceError::Failed, "Rows cannot be added to " + std::string(file_.Name()) +
                                      ": field " + field.name + " is numbered automatically.");
  }
  if (layout.record_count >= INT32_MAX) RaiseDbf(SourceError::Failed, "The table is full.");
  std::string record = BlankRecord(layout);
  PutValues(values, record);

  // Behind the records that are counted; whatever stood there, an end mark at most, is no record.
  record.push_back(kEndOfFile);
  const std::uint64_t position = PositionOf(layout.record_count);
  const std::uint64_t old_size = file_.Size();
  try {
    WriteRecord(layout.record_count, record);
  } catch (...) {
    file_.Truncate(std::max(position, old_size));
    throw;
  }
  std::array<char, 4> count{};
  PutLittleEndian(layout.record_count + 1, count.data());
  file_.Write(kCountPosition, {count.data(), count.size()});
  ++layout.record_count;
  WriteDate();
  return layout.record_count;
}

void DbfTable::Update(std::int64_t locator, const GivenValues& before, const GivenValues& values) {
  DbfWriter(*this).Update(locator, before, values);
}

void DbfTable::Delete(std::int64_t locator, const GivenValues& before) {
  DbfWriter(*this).Delete(locator, before);
}

std::int64_t DbfTable::Insert(const GivenValues& values) { return DbfWriter(*this).Insert(values); }

}  // namespace vandpublic::ado
