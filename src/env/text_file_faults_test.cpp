// Every call that the text file members make of the file port fails in turn: the member reports it
// as its convention says, and what was in the file before stays unless the member empties it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;

constexpr const char16_t* kFile = u"f";
constexpr const char16_t* kOther = u"g";

void CallWrite(clsPublic& object, const String& path, String& description) {
  String name = path;
  String text = "new";
  object.TextRWWrite(name, text, false, description);
}
void CallAppend(clsPublic& object, const String& path, String& description) {
  object.AppendText(path, "new", description);
}
void CallRead(clsPublic& object, const String& path, String& description) {
  object.TextRWRead(path, description);
}

struct FaultCase {
  const char* name;
  void (*call)(clsPublic& object, const String& path, String& description);
  void (FakeFiles::*fail)(int call, FaultNumber fault);
  FaultNumber fault;
  bool exists;  // the file, with "old" in it
  int code;     // of the member's error
  std::vector<std::string> logged;
  const char* left;  // what the file holds afterwards, null for no file
};

void PrintTo(const FaultCase& c, std::ostream* out) { *out << c.name; }

std::string NameOf(const testing::TestParamInfo<FaultCase>& info) { return info.param.name; }

class TextFileFaults : public testing::TestWithParam<FaultCase> {};

TEST_P(TextFileFaults, is_reported_once_by_each_member_and_loses_nothing) {
  const FaultCase& c = GetParam();
  TestComponent component;
  FakeFiles& files = *component.services.files;
  if (c.exists) files.contents[kFile] = "old";
  (files.*c.fail)(1, c.fault);
  String description = "untouched";
  const Raised raised = RaisedBy([&] { c.call(component.object, kFile, description); });
  EXPECT_EQ(raised.number, MemberError(c.code, "", "").number);
  EXPECT_EQ(description.ToUtf8(), raised.description);
  EXPECT_NE(raised.description.find(Composed(c.fault)), std::string::npos) << raised.description;
  EXPECT_EQ(component.LoggedNames(), c.logged);
  ASSERT_EQ(files.contents.contains(kFile), c.left != nullptr);
  if (c.left != nullptr) {
    EXPECT_EQ(files.contents[kFile], c.left);
  }

  // The object goes on: the same call on another file.
  files.contents[kOther] = "old";
  EXPECT_EQ(RaisedBy([&] { c.call(component.object, kOther, description); }), kNothingRaised);
}

using F = FaultNumber;
constexpr auto kOpen = &FakeFiles::FailOpen;
constexpr auto kWrite = &FakeFiles::FailWrite;
constexpr auto kClose = &FakeFiles::FailClose;

INSTANTIATE_TEST_SUITE_P(
    Faults, TextFileFaults,
    testing::Values(
        FaultCase{
            "Write_open", &CallWrite, kOpen, F::PermissionDenied, true, 6, {"TextRWWrite"}, "old"},
        FaultCase{"Write_open_new",
                  &CallWrite,
                  kOpen,
                  F::PathNotFound,
                  false,
                  6,
                  {"TextRWWrite"},
                  nullptr},
        // The file is emptied when it is opened.
        FaultCase{"Write_write", &CallWrite, kWrite, F::DiskFull, true, 6, {"TextRWWrite"}, ""},
        FaultCase{
            "Write_close", &CallWrite, kClose, F::DiskFull, true, 6, {"TextRWWrite"}, "new\r\n"},
        FaultCase{
            "Append_open", &CallAppend, kOpen, F::PermissionDenied, true, 7, {"AppendText"}, "old"},
        FaultCase{"Append_write", &CallAppend, kWrite, F::DiskFull, true, 7, {"AppendText"}, "old"},
        FaultCase{"Append_close",
                  &CallAppend,
                  kClose,
                  F::DiskFull,
                  true,
                  7,
                  {"AppendText"},
                  "oldnew\r\n"},
        FaultCase{"Append_creating_open",
                  &CallAppend,
                  kOpen,
                  F::TooManyFiles,
                  false,
                  7,
                  {"TextRWWrite", "AppendText"},
                  nullptr},
        FaultCase{"Append_creating_write",
                  &CallAppend,
                  kWrite,
                  F::DiskFull,
                  false,
                  7,
                  {"TextRWWrite", "AppendText"},
                  ""},
        FaultCase{"Append_creating_close",
                  &CallAppend,
                  kClose,
                  F::DiskFull,
                  false,
                  7,
                  {"TextRWWrite", "AppendText"},
                  "\r\n"},
        FaultCase{
            "Read_open", &CallRead, kOpen, F::PermissionDenied, true, 5, {"TextRWRead"}, "old"}),
    &NameOf);

}  // namespace
}  // namespace vandpublic
