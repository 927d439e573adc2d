// Writing rows of a table, one at a time.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_DBF_WRITER_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_DBF_WRITER_H

#include <cstdint>
#include <string>

#include "platform/posix/ado/dbf/dbf_table.h"

namespace vandpublic::ado {

// One change of a table. It opens the files for writing, and keeps the table's header and the
// record locked until it is destroyed; a program that locks more, or waits longer than two seconds
// before us, makes it fail.
//
// What is written comes in an order that keeps the table whole if the program dies in between:
// memo blocks, the record that points to them, the header that counts the record.
class DbfWriter {
 public:
  // Permission denied for a file that may not be written.
  explicit DbfWriter(DbfTable& table);

  void Update(std::int64_t locator, const GivenValues& before, const GivenValues& values);
  void Delete(std::int64_t locator, const GivenValues& before);
  std::int64_t Insert(const GivenValues& values);

 private:
  // Refuses a change that the table's index files would have to follow.
  void CheckIndex(const GivenValues& values) const;
  // The record, locked and as it is now; RaiseRowNotLocated() where it is not as `before` has it.
  std::string LockedRecord(std::int64_t locator, const GivenValues& before);
  void PutValues(const GivenValues& values, std::string& record);
  void PutMemo(const DbfField& field, const Variant& value, std::string& record);
  void WriteRecord(std::uint64_t index, const std::string& record);
  void WriteDate();

  std::uint64_t PositionOf(std::uint64_t index) const;

  DbfTable& table_;
  RegularFile file_;
};

}  // namespace vandpublic::ado

#endif
