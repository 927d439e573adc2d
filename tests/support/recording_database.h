// Database objects that open nothing: they write down each property that is set and each operation
// that is called, in order, and answer as the test says.
//
//   auto database = std::make_shared<RecordingDatabase>();
//   component.OpenConnAsSQLDNS(connection, ...);
//   EXPECT_THAT(database->calls, ElementsAre("Connection.ConnectionString = ...", ...));
#ifndef VANDPUBLIC_TESTS_SUPPORT_RECORDING_DATABASE_H
#define VANDPUBLIC_TESTS_SUPPORT_RECORDING_DATABASE_H

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"
#include "support/test_component.h"

namespace vandpublic {

class RecordingDatabase final : public DatabaseObjects,
                                public std::enable_shared_from_this<RecordingDatabase> {
 public:
  ConnectionRef MakeConnection() override;
  RecordsetRef MakeRecordset() override;
  FieldRef MakeField();

  // The next call whose text starts like this raises the error, after it was written down.
  void FailOn(std::string_view start, Raised error) { failures_[std::string(start)] = error; }
  // Writes a call down; for the objects.
  void Note(std::string call);

  std::vector<std::string> calls;

  // What recordsets answer: State once they are open, EOF, and the value of every field.
  bool at_end = false;
  Variant value;
  // The content of the fields. Chunks are appended to it, and taken from its start.
  std::vector<Byte> content;
  // What ActualSize says where it is not the size of the content.
  std::optional<Long> actual_size;
  bool gives_text = false;  // as chunks of the content

 private:
  std::map<std::string, Raised, std::less<>> failures_;
};

}  // namespace vandpublic

#endif
