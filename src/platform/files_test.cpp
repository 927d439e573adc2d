#include "platform/files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WriteFileTest : public testing::Test {
 protected:
  Raised Write(OpenMode mode, std::string_view bytes) {
    return RaisedBy([&] { WriteFile(files_, u"f", mode, bytes); });
  }

  FakeFiles files_;
};

TEST_F(WriteFileTest, Output_replaces_and_append_adds) {
  EXPECT_EQ(Write(OpenMode::Append, "a"), kNothingRaised);
  EXPECT_EQ(Write(OpenMode::Append, "b"), kNothingRaised);
  EXPECT_EQ(files_.contents[u"f"], "ab");
  EXPECT_EQ(Write(OpenMode::Output, "c"), kNothingRaised);
  EXPECT_EQ(files_.contents[u"f"], "c");
  EXPECT_THAT(files_.closed, ElementsAre(u"f", u"f", u"f"));
  EXPECT_THAT(files_.given_up, IsEmpty());
}

TEST_F(WriteFileTest, A_file_that_does_not_open_has_no_handle_to_give_up) {
  files_.FailOpen(1, FaultNumber::PathNotFound);
  EXPECT_EQ(Write(OpenMode::Output, "a"), PlainFault(FaultNumber::PathNotFound));
  EXPECT_THAT(files_.given_up, IsEmpty());
}

TEST_F(WriteFileTest, A_failing_write_or_close_gives_the_handle_up) {
  files_.FailWrite(1, FaultNumber::DiskFull);
  EXPECT_EQ(Write(OpenMode::Output, "a"), PlainFault(FaultNumber::DiskFull));
  EXPECT_THAT(files_.given_up, ElementsAre(u"f"));
  files_.FailClose(1, FaultNumber::DeviceIoError);
  EXPECT_EQ(Write(OpenMode::Output, "a"), PlainFault(FaultNumber::DeviceIoError));
  EXPECT_THAT(files_.given_up, ElementsAre(u"f", u"f"));
  EXPECT_THAT(files_.closed, IsEmpty());
}

}  // namespace
}  // namespace vandpublic
