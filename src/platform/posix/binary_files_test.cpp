// Binary files on Linux: reading in pieces, writing over, deleting, and the look-up that includes
// folders.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/posix/posix_files.h"
#include "support/temp_folder.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

namespace fs = std::filesystem;

class BinaryFilesTest : public testing::Test {
 protected:
  Raised OpenToRead(std::string_view name) {
    return RaisedBy([&] { files_.OpenToRead(folder_.Inside(name)); });
  }
  Raised Delete(std::string_view name) {
    return RaisedBy([&] { files_.DeleteIfThere(folder_.Inside(name)); });
  }
  bool Finds(std::string_view name) { return files_.FindsFileOrFolder(folder_.Inside(name)); }

  PosixFiles files_;
  TempFolder folder_;
};

TEST_F(BinaryFilesTest, File_is_read_in_pieces_up_to_its_end) {
  folder_.Write("f", std::string("ab\0cde", 6));
  const auto file = files_.OpenToRead(folder_.Inside("f"));
  EXPECT_EQ(file->Size(), 6);
  Byte piece[4] = {};
  EXPECT_EQ(file->Read(piece), 4u);
  EXPECT_EQ(piece[0], 'a');
  EXPECT_EQ(piece[2], 0);
  EXPECT_EQ(file->Read(piece), 2u);
  EXPECT_EQ(piece[1], 'e');
  EXPECT_EQ(file->Read(piece), 0u);
}

TEST_F(BinaryFilesTest, Size_follows_the_file) {
  folder_.Write("f", "");
  const auto file = files_.OpenToRead(folder_.Inside("f"));
  EXPECT_EQ(file->Size(), 0);
  folder_.Write("f", "abc");
  EXPECT_EQ(file->Size(), 3);
}

TEST_F(BinaryFilesTest, What_cannot_be_read_is_refused) {
  fs::create_directory(folder_.path() / "folder");
  ASSERT_EQ(mkfifo((folder_.path() / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(OpenToRead("missing"), PlainFault(FaultNumber::FileNotFound));
  EXPECT_EQ(OpenToRead("missing/f"), PlainFault(FaultNumber::PathNotFound));
  EXPECT_EQ(OpenToRead("folder"), PlainFault(FaultNumber::PathFileAccessError));
  EXPECT_EQ(OpenToRead("pipe"), PlainFault(FaultNumber::PathFileAccessError));
  EXPECT_EQ(OpenToRead("f*"), PlainFault(FaultNumber::BadFileName));
}

TEST_F(BinaryFilesTest, Binary_mode_creates_and_writes_over_from_the_start) {
  for (const char* bytes : {"abcdef", "XY"})
    WriteFile(files_, folder_.Inside("f"), OpenMode::Binary, bytes);
  EXPECT_EQ(folder_.Read("f"), "XYcdef");
}

TEST_F(BinaryFilesTest, Delete_removes_ordinary_files_only) {
  folder_.Write("f", "x");
  folder_.Write(".hidden", "x");
  fs::create_directory(folder_.path() / "folder");
  for (const char* name : {"f", ".hidden", "folder", "missing", "missing/f"})
    EXPECT_EQ(Delete(name), kNothingRaised) << name;
  EXPECT_EQ(folder_.Read("f"), "<none>");
  EXPECT_EQ(folder_.Read(".hidden"), "<none>");
  EXPECT_TRUE(fs::exists(folder_.path() / "folder"));
}

TEST_F(BinaryFilesTest, Delete_takes_no_pattern) {
  folder_.Write("f", "x");
  folder_.Write("*", "x");
  EXPECT_EQ(Delete("*"), PlainFault(FaultNumber::BadFileName));
  EXPECT_EQ(folder_.Read("f"), "x");
  EXPECT_EQ(folder_.Read("*"), "x");
}

TEST_F(BinaryFilesTest, Delete_keeps_read_only_files) {
  folder_.Write("f", "x");
  fs::permissions(folder_.path() / "f", fs::perms::owner_read);
  EXPECT_EQ(Delete("f"), PlainFault(FaultNumber::PermissionDenied));
  EXPECT_EQ(folder_.Read("f"), "x");
}

TEST_F(BinaryFilesTest, Look_up_finds_files_and_folders_hidden_or_not) {
  folder_.Write("data.dbf", "x");
  folder_.Write(".hidden", "x");
  fs::create_directories(folder_.path() / "folder" / ".inner");
  ASSERT_EQ(mkfifo((folder_.path() / "pipe").c_str(), 0600), 0);
  for (const char* name : {"data.dbf", ".hidden", "folder", "folder/", "folder\\.inner", "", "*",
                           "fold?r", "*.dbf", "folder/*"}) {
    EXPECT_TRUE(Finds(name)) << name;
  }
  for (const char* name : {"missing", "data.dbf/", "missing/*", "*.mdb", "pipe", "FOLDER"})
    EXPECT_FALSE(Finds(name)) << name;
  EXPECT_FALSE(files_.FindsFileOrFolder(u""));
  EXPECT_TRUE(files_.FindsFileOrFolder(u"/"));
}

}  // namespace
}  // namespace vandpublic
