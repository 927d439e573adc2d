#include "platform/posix/posix_paths.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "runtime/utf8.h"
#include "support/temp_folder.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

TEST(PosixPaths, NativePath_is_UTF8_with_slashes) {
  EXPECT_EQ(NativePath(u""), "");
  EXPECT_EQ(NativePath(u"C:\\App\\LOG\\\\ERROR.log"), "C:/App/LOG//ERROR.log");
  EXPECT_EQ(NativePath(u" a b/c "), " a b/c ");
  EXPECT_EQ(NativePath(u"\u00e9"), "\xC3\xA9");
}

TEST(PosixPaths, NativePath_refuses_a_name_that_would_be_cut_short) {
  EXPECT_EQ(RaisedBy([] { NativePath(std::u16string_view(u"a\0b", 3)); }),
            PlainFault(FaultNumber::BadFileName));
}

TEST(PosixPaths, Each_system_error_has_its_fault) {
  struct Case {
    int error;
    FaultNumber fault;
  };
  constexpr Case kCases[] = {
      {ENOTDIR, FaultNumber::PathNotFound},
      {EACCES, FaultNumber::PathFileAccessError},
      {EPERM, FaultNumber::PathFileAccessError},
      {EROFS, FaultNumber::PathFileAccessError},
      {EISDIR, FaultNumber::PathFileAccessError},
      {ENOSPC, FaultNumber::DiskFull},
      {EDQUOT, FaultNumber::DiskFull},
      {EFBIG, FaultNumber::DiskFull},
      {EMFILE, FaultNumber::TooManyFiles},
      {ENFILE, FaultNumber::TooManyFiles},
      {EBUSY, FaultNumber::PermissionDenied},
      {ETXTBSY, FaultNumber::PermissionDenied},
      {EAGAIN, FaultNumber::PermissionDenied},
      {ENAMETOOLONG, FaultNumber::BadFileName},
      {EINVAL, FaultNumber::BadFileName},
      {ENOMEM, FaultNumber::OutOfMemory},
      {EIO, FaultNumber::DeviceIoError},
      {ELOOP, FaultNumber::DeviceIoError},
  };
  for (const Case& one : kCases)
    EXPECT_EQ(FaultFromErrno(one.error, "/x"), one.fault) << one.error;
}

TEST(PosixPaths, A_missing_name_is_53_in_a_folder_that_is_there_and_76_elsewhere) {
  const TempFolder folder;
  folder.Write("file", "");
  const std::string path = folder.path();
  EXPECT_EQ(FaultFromErrno(ENOENT, path + "/missing"), FaultNumber::FileNotFound);
  EXPECT_EQ(FaultFromErrno(ENOENT, path + "/missing/f"), FaultNumber::PathNotFound);
  EXPECT_EQ(FaultFromErrno(ENOENT, path + "/file/f"), FaultNumber::PathNotFound);
  EXPECT_EQ(FaultFromErrno(ENOENT, "missing"), FaultNumber::FileNotFound) << "the current folder";
  EXPECT_EQ(FaultFromErrno(ENOENT, "/missing"), FaultNumber::FileNotFound) << "the root";
}

TEST(PosixPaths, A_name_is_hidden_when_its_last_part_starts_with_a_dot) {
  for (const char* hidden : {".a", "/x/.a", ".a.b", "..a", "x/..."})
    EXPECT_TRUE(IsHiddenName(hidden)) << hidden;
  for (const char* shown : {"", "a", ".", "..", "/x/.", "x/..", ".x/a", "a.", "/"})
    EXPECT_FALSE(IsHiddenName(shown)) << shown;
}

TEST(PosixPaths, The_folder_of_the_component_is_that_of_the_program_it_is_linked_into) {
  const std::filesystem::path program = std::filesystem::canonical("/proc/self/exe");
  EXPECT_EQ(ToUtf8(ComponentFolder()), program.parent_path().string());
}

}  // namespace
}  // namespace vandpublic
