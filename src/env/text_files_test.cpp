// TextRWWrite, AppendText and TextRWRead, on files in memory.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kNoPath = "File path not provided.";

class TextFilesTest : public testing::Test {
 protected:
  Raised Write(const char* path, const String& text, bool prompt = false) {
    String path_text = path;
    String content = text;
    description_ = "old";
    const Raised raised =
        RaisedBy([&] { component_.object.TextRWWrite(path_text, content, prompt, description_); });
    EXPECT_EQ(path_text.ToUtf8(), path);
    EXPECT_EQ(content, text);
    return raised;
  }
  Raised Append(const char* path, const String& text) {
    description_ = "old";
    bool result = true;
    const Raised raised =
        RaisedBy([&] { result = component_.object.AppendText(path, text, description_); });
    EXPECT_TRUE(result);
    return raised;
  }
  Raised Read(const char* path) {
    description_ = "old";
    text_ = "nothing read";
    return RaisedBy([&] { text_ = component_.object.TextRWRead(path, description_); });
  }
  std::vector<std::u16string> OpenedButTheLog() const {
    std::vector<std::u16string> paths = files_.opened;
    std::erase(paths, std::u16string(component_.object.LogFileFullName().view()));
    return paths;
  }

  TestComponent component_;
  FakeFiles& files_ = *component_.services.files;
  FakeMessageBoxes& boxes_ = *component_.services.message_boxes;
  String description_;
  String text_;
};

TEST_F(TextFilesTest, Writing_replaces_the_content_and_adds_a_line_end) {
  files_.contents[u"f"] = "old content";
  EXPECT_EQ(Write("f", "a"), kNothingRaised);
  EXPECT_EQ(files_.contents[u"f"], "a\r\n");
  EXPECT_EQ(Write("f", ""), kNothingRaised);
  EXPECT_EQ(files_.contents[u"f"], "\r\n");
  EXPECT_EQ(Write("f", "a\r\n"), kNothingRaised);
  EXPECT_EQ(files_.contents[u"f"], "a\r\n\r\n");
  EXPECT_EQ(Write("f", u"\u20ac\u4e2d"), kNothingRaised);
  EXPECT_EQ(files_.contents[u"f"], "\x80?\r\n");
  EXPECT_EQ(description_.ToUtf8(), "old");
  EXPECT_THAT(boxes_.shown, IsEmpty());
}

TEST_F(TextFilesTest, The_path_is_opened_as_it_was_given) {
  EXPECT_EQ(Write(" f ", "a"), kNothingRaised);
  EXPECT_EQ(files_.contents[u" f "], "a\r\n");
}

TEST_F(TextFilesTest, The_question_is_asked_whether_or_not_the_file_exists) {
  boxes_.answers = {7, 6};
  EXPECT_EQ(Write("f", "a", true), kNothingRaised);
  EXPECT_FALSE(files_.contents.contains(u"f")) << "No";
  EXPECT_EQ(Write("f", "a", true), kNothingRaised);
  EXPECT_EQ(files_.contents[u"f"], "a\r\n") << "Yes";
  ASSERT_EQ(boxes_.shown.size(), 2u);
  EXPECT_EQ(boxes_.shown[0].text, u"File f exists, Override ?");
  EXPECT_EQ(boxes_.shown[0].title, u"Override ?");
  EXPECT_EQ(boxes_.shown[0].style, 324);
  EXPECT_EQ(component_.Log(), "");
}

TEST_F(TextFilesTest, A_blank_path_is_refused_by_each_member) {
  for (const char* path : {"", "   "}) {
    component_.services.files->contents.clear();
    EXPECT_EQ(Write(path, "a", true), MemberError(0x06, "TextRWWrite", kNoPath));
    EXPECT_EQ(description_.ToUtf8(), kNoPath);
    EXPECT_EQ(Append(path, "a"), MemberError(0x07, "AppendText", kNoPath));
    EXPECT_EQ(description_.ToUtf8(), kNoPath);
    EXPECT_EQ(Read(path), MemberError(0x05, "TextRWRead", kNoPath));
    EXPECT_EQ(description_.ToUtf8(), kNoPath);
    EXPECT_THAT(component_.LoggedNames(), ElementsAre("TextRWWrite", "AppendText", "TextRWRead"));
  }
  EXPECT_THAT(boxes_.shown, IsEmpty());
}

TEST_F(TextFilesTest, An_entry_of_a_blank_path_has_98_bytes) {
  EXPECT_EQ(Append("  ", "x"), MemberError(0x07, "AppendText", kNoPath));
  EXPECT_EQ(component_.Log(),
            "2024-03-05 14:07:09 VandPublic.clsCommon.AppendText\r\n"
            "                    File path not provided.\r\n");
  EXPECT_EQ(component_.Log().size(), 98u);
}

TEST_F(TextFilesTest, Appending_to_a_missing_file_starts_it_with_an_empty_line) {
  EXPECT_EQ(Append("f", "abc"), kNothingRaised);
  EXPECT_EQ(files_.contents[u"f"], "\r\nabc\r\n");
  EXPECT_EQ(Append("f", u"\u00e9"), kNothingRaised);
  EXPECT_EQ(files_.contents[u"f"], "\r\nabc\r\n\xE9\r\n");
  EXPECT_EQ(description_.ToUtf8(), "old");
}

TEST_F(TextFilesTest, Appending_looks_up_the_trimmed_path_and_opens_the_other) {
  EXPECT_EQ(Append(" f", "abc"), kNothingRaised);
  EXPECT_EQ(files_.contents[u"f"], "\r\n");
  EXPECT_EQ(files_.contents[u" f"], "abc\r\n");
}

TEST_F(TextFilesTest, A_file_that_cannot_be_created_is_logged_twice) {
  files_.FailOpen(1, FaultNumber::PathNotFound);
  const std::string inner =
      "clsCommon.TextRWWrite (-2147221498) - Public_Module (76) - Path not found";
  EXPECT_EQ(Append("f", "abc"), MemberError(0x07, "AppendText", inner));
  EXPECT_EQ(description_.ToUtf8(), inner);
  EXPECT_THAT(component_.LoggedNames(), ElementsAre("TextRWWrite", "AppendText"));
}

TEST_F(TextFilesTest, A_file_whose_write_fails_is_given_up_open) {
  files_.FailWrite(1, FaultNumber::DiskFull);
  EXPECT_EQ(Write("f", "a"), MemberError(0x06, "TextRWWrite", Composed(FaultNumber::DiskFull)));
  EXPECT_THAT(files_.given_up, ElementsAre(u"f"));
  files_.contents[u"g"] = "";
  files_.FailClose(1, FaultNumber::DiskFull);
  EXPECT_EQ(Append("g", "a"), MemberError(0x07, "AppendText", Composed(FaultNumber::DiskFull)));
  EXPECT_THAT(files_.given_up, ElementsAre(u"f", u"g"));
}

TEST_F(TextFilesTest, Reading_adds_and_removes_nothing) {
  files_.contents[u"f"] = std::string("a\0\xE9\r\n\x80", 6);
  EXPECT_EQ(Read("f"), kNothingRaised);
  EXPECT_EQ(text_, String(std::u16string(u"a\0\u00e9\r\n\u20ac", 6)));
  files_.contents[u"empty"] = "";
  EXPECT_EQ(Read("empty"), kNothingRaised);
  EXPECT_EQ(text_.ToUtf8(), "");
  EXPECT_EQ(description_.ToUtf8(), "old");
}

TEST_F(TextFilesTest, A_missing_file_reads_as_a_missing_path) {
  EXPECT_EQ(Read("f"), MemberError(0x05, "TextRWRead", kNoPath));
  EXPECT_EQ(description_.ToUtf8(), kNoPath);
  EXPECT_THAT(OpenedButTheLog(), IsEmpty());
}

TEST_F(TextFilesTest, Reading_looks_up_the_trimmed_path_and_opens_the_other) {
  files_.contents[u"f"] = "a";
  EXPECT_EQ(Read(" f"), MemberError(0x05, "TextRWRead", Composed(FaultNumber::FileNotFound)));
  EXPECT_EQ(description_.ToUtf8(), Composed(FaultNumber::FileNotFound));
}

TEST_F(TextFilesTest, Optional_arguments_may_be_left_out) {
  String path = "f";
  String text = "a";
  component_.object.TextRWWrite(path, text);
  EXPECT_TRUE(component_.object.AppendText("f", "b"));
  EXPECT_EQ(component_.object.TextRWRead("f").ToUtf8(), "a\r\nb\r\n");
}

}  // namespace
}  // namespace vandpublic
