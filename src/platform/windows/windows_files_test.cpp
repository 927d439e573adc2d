// Files on Windows: what opens, what a failure is called, what a look-up finds.
#include "platform/windows/windows_files.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <string>

#include "platform/windows/system_handle.h"
#include "platform/windows/wide_text.h"
#include "support/temp_folder.h"
#include "support/test_component.h"
#include "support/wine_version.h"

namespace vandpublic {
namespace {

class WindowsFilesTest : public testing::Test {
 protected:
  Raised OpenRaises(std::u16string_view path, OpenMode mode) {
    return RaisedBy([&] { files_.Open(path, mode); });
  }
  Raised WriteRaises(std::u16string_view path, OpenMode mode, std::string_view bytes) {
    return RaisedBy([&] { vandpublic::WriteFile(files_, path, mode, bytes); });
  }
  void SetAttributes(std::u16string_view path, DWORD attributes) {
    ASSERT_NE(SetFileAttributesW(Wide(path).c_str(), attributes), 0);
  }
  std::u16string At(std::string_view name) const { return folder_.Inside(name); }

  TempFolder folder_;
  WindowsFiles files_;
};

TEST_F(WindowsFilesTest, Output_replaces_append_adds_and_binary_writes_over) {
  const std::u16string path = At("a.txt");
  EXPECT_EQ(WriteRaises(path, OpenMode::Output, "first"), kNothingRaised);
  EXPECT_EQ(WriteRaises(path, OpenMode::Append, "+more"), kNothingRaised);
  EXPECT_EQ(folder_.Read("a.txt"), "first+more");
  EXPECT_EQ(WriteRaises(path, OpenMode::Binary, "FIR"), kNothingRaised);
  EXPECT_EQ(folder_.Read("a.txt"), "FIRst+more");
  EXPECT_EQ(WriteRaises(path, OpenMode::Output, "x"), kNothingRaised);
  EXPECT_EQ(files_.ReadAll(path), "x");
  for (const OpenMode mode : {OpenMode::Output, OpenMode::Append, OpenMode::Binary}) {
    EXPECT_EQ(WriteRaises(At("new"), mode, "n"), kNothingRaised);
    EXPECT_EQ(folder_.Read("new"), "n");
    files_.DeleteIfThere(At("new"));
  }
}

TEST_F(WindowsFilesTest, Bytes_are_written_as_they_are) {
  std::string bytes = "a\r\nb\n\x1A";
  bytes += '\0';
  bytes += std::string(3000000, 'x');
  EXPECT_EQ(WriteRaises(At("b"), OpenMode::Output, bytes), kNothingRaised);
  EXPECT_EQ(files_.ReadAll(At("b")), bytes);
  EXPECT_EQ(WriteRaises(At("empty"), OpenMode::Output, ""), kNothingRaised);
  EXPECT_EQ(files_.ReadAll(At("empty")), "");
}

TEST_F(WindowsFilesTest, Both_separators_and_names_of_all_letters_work) {
  std::u16string path = At("caf\xC3\xA9 \xE4\xB8\xAD.txt");
  EXPECT_EQ(WriteRaises(path, OpenMode::Output, "x"), kNothingRaised);
  for (char16_t& unit : path)
    unit = unit == u'\\' ? u'/' : unit;
  EXPECT_EQ(files_.ReadAll(path), "x");
  EXPECT_TRUE(files_.FindsNormalFile(path));
}

TEST_F(WindowsFilesTest, Two_that_append_share_the_file) {
  const auto first = files_.Open(At("log"), OpenMode::Append);
  const auto second = files_.Open(At("log"), OpenMode::Append);
  first->Write("1");
  second->Write("2");
  first->Write("3");
  EXPECT_EQ(files_.ReadAll(At("log")), "123");
}

struct NameCase {
  const char16_t* path;
  FaultNumber fault;
};

TEST_F(WindowsFilesTest, Names_that_cannot_be_opened_have_their_faults) {
  const NameCase cases[] = {
      {u"", FaultNumber::PathFileAccessError}, {u"a*b", FaultNumber::BadFileName},
      {u"a?b", FaultNumber::BadFileName},      {u"no-such-folder\\a", FaultNumber::PathNotFound},
      {u"Q:\\a", FaultNumber::PathNotFound},
  };
  for (const NameCase& one : cases) {
    SCOPED_TRACE(ToUtf8(one.path));
    for (const OpenMode mode : {OpenMode::Output, OpenMode::Append, OpenMode::Binary})
      EXPECT_EQ(OpenRaises(one.path, mode), PlainFault(one.fault));
    EXPECT_EQ(RaisedBy([&] { files_.ReadAll(one.path); }), PlainFault(one.fault));
    EXPECT_EQ(RaisedBy([&] { files_.OpenToRead(one.path); }), PlainFault(one.fault));
  }
  const std::u16string_view with_zero(u"a\0b", 3);
  EXPECT_EQ(OpenRaises(with_zero, OpenMode::Output), PlainFault(FaultNumber::BadFileName));
  EXPECT_EQ(OpenRaises(At(std::string(300, 'x')), OpenMode::Output),
            PlainFault(FaultNumber::BadFileName));
  EXPECT_EQ(RaisedBy([&] { files_.ReadAll(At("missing")); }),
            PlainFault(FaultNumber::FileNotFound));
}

TEST_F(WindowsFilesTest, A_folder_is_no_file) {
  std::filesystem::create_directory(folder_.path() / "sub");
  for (const char* const name : {"sub", "sub\\", "sub/"}) {
    SCOPED_TRACE(name);
    const std::u16string path = folder_.Inside("") + FromUtf8(name);
    for (const OpenMode mode : {OpenMode::Output, OpenMode::Append})
      EXPECT_EQ(OpenRaises(path, mode), PlainFault(FaultNumber::PathFileAccessError));
    EXPECT_EQ(RaisedBy([&] { files_.ReadAll(path); }),
              PlainFault(FaultNumber::PathFileAccessError));
    files_.DeleteIfThere(path);
  }
  EXPECT_TRUE(std::filesystem::exists(folder_.path() / "sub"));
}

TEST_F(WindowsFilesTest, A_read_only_file_can_be_read_only) {
  folder_.Write("a", "x");
  SetAttributes(At("a"), FILE_ATTRIBUTE_READONLY);
  for (const OpenMode mode : {OpenMode::Output, OpenMode::Append, OpenMode::Binary})
    EXPECT_EQ(OpenRaises(At("a"), mode), PlainFault(FaultNumber::PathFileAccessError));
  EXPECT_EQ(files_.ReadAll(At("a")), "x");
  EXPECT_EQ(RaisedBy([&] { files_.DeleteIfThere(At("a")); }),
            PlainFault(FaultNumber::PermissionDenied));
  EXPECT_TRUE(files_.FindsNormalFile(At("a")));
  SetAttributes(At("a"), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WindowsFilesTest, A_hidden_file_is_not_emptied_but_grows) {
  folder_.Write("a", "x");
  SetAttributes(At("a"), FILE_ATTRIBUTE_HIDDEN);
  const DWORD attributes = GetFileAttributesW(Wide(At("a")).c_str());
  if ((attributes & FILE_ATTRIBUTE_HIDDEN) == 0) GTEST_SKIP() << "the system keeps no attributes";
  EXPECT_EQ(OpenRaises(At("a"), OpenMode::Output), PlainFault(FaultNumber::PathFileAccessError));
  EXPECT_EQ(folder_.Read("a"), "x");
  EXPECT_EQ(WriteRaises(At("a"), OpenMode::Append, "y"), kNothingRaised);
  EXPECT_EQ(folder_.Read("a"), "xy");
  EXPECT_FALSE(files_.FindsNormalFile(At("a")));
  EXPECT_TRUE(files_.FindsFileOrFolder(At("a")));
  files_.DeleteIfThere(At("a"));
  EXPECT_EQ(folder_.Read("a"), "<none>");
}

TEST_F(WindowsFilesTest, A_file_that_somebody_has_for_himself_is_fault_70) {
  folder_.Write("a", "x");
  const SystemHandle alone(
      CreateFileW(Wide(At("a")).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(alone.IsOpen());
  for (const OpenMode mode : {OpenMode::Output, OpenMode::Append})
    EXPECT_EQ(OpenRaises(At("a"), mode), PlainFault(FaultNumber::PermissionDenied));
  EXPECT_EQ(RaisedBy([&] { files_.ReadAll(At("a")); }), PlainFault(FaultNumber::PermissionDenied));
  EXPECT_EQ(RaisedBy([&] { files_.DeleteIfThere(At("a")); }),
            PlainFault(FaultNumber::PermissionDenied));
}

TEST_F(WindowsFilesTest, A_locked_part_cannot_be_written) {
  if (IsWine()) GTEST_SKIP() << "Wine keeps locks from each other, not from what is written";
  folder_.Write("a", "x");
  const SystemHandle other(CreateFileW(Wide(At("a")).c_str(), GENERIC_READ | GENERIC_WRITE,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                       0, nullptr));
  ASSERT_NE(LockFile(other.get(), 0, 0, 100, 0), 0);
  EXPECT_EQ(WriteRaises(At("a"), OpenMode::Binary, "y"), PlainFault(FaultNumber::PermissionDenied));
}

TEST_F(WindowsFilesTest, A_device_takes_what_is_written) {
  EXPECT_EQ(WriteRaises(u"NUL", OpenMode::Output, "x"), kNothingRaised);
  EXPECT_EQ(WriteRaises(u"NUL", OpenMode::Append, "x"), kNothingRaised);
}

TEST_F(WindowsFilesTest, Reading_goes_on_where_it_stopped) {
  folder_.Write("a", "abcdef");
  const auto file = files_.OpenToRead(At("a"));
  EXPECT_EQ(file->Size(), 6);
  std::array<Byte, 4> bytes{};
  EXPECT_EQ(file->Read(bytes), 4U);
  EXPECT_EQ(bytes[3], 'd');
  EXPECT_EQ(file->Read(bytes), 2U);
  EXPECT_EQ(bytes[0], 'e');
  EXPECT_EQ(file->Read(bytes), 0U);
}

TEST_F(WindowsFilesTest, Look_ups_take_names_patterns_and_folders) {
  folder_.Write("a.txt", "");
  std::filesystem::create_directory(folder_.path() / "sub");
  struct Case {
    const char* name;
    bool normal;
    bool any;
  };
  constexpr Case kCases[] = {
      {"a.txt", true, true},      {"A.TXT", true, true},     {"b.txt", false, false},
      {"*.txt", true, true},      {"?.txt", true, true},     {"*.doc", false, false},
      {"sub", false, true},       {"s*", false, true},       {"sub\\", false, true},
      {"sub\\*", false, true},    {"", true, true},          {"no\\a.txt", false, false},
      {"*\\a.txt", false, false}, {"a<", false, false},      {"a.txt\\", false, false},
      {"a|b", false, false},      {"a.txt\"", false, false},
  };
  for (const Case& one : kCases) {
    const std::u16string path = folder_.Inside("") + FromUtf8(one.name);
    EXPECT_EQ(files_.FindsNormalFile(path), one.normal) << one.name;
    EXPECT_EQ(files_.FindsFileOrFolder(path), one.any) << one.name;
  }
}

TEST_F(WindowsFilesTest, What_is_given_up_stays_open) {
  auto file = files_.Open(At("a"), OpenMode::Output);
  file->Write("x");
  file->GiveUp();
  file.reset();
  EXPECT_EQ(WriteRaises(At("a"), OpenMode::Append, "y"), kNothingRaised);
  EXPECT_EQ(folder_.Read("a"), "xy");
}

}  // namespace
}  // namespace vandpublic
