#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kHeading = "2024-03-05 14:07:09 App.Mod.Fn";
const std::string kIndent(20, ' ');

ObjectRef Error(Long number, std::u16string source, std::u16string description) {
  return std::make_shared<ErrObject>(number, std::move(source), std::move(description));
}

class LogErrorTest : public testing::Test {
 protected:
  // Logs with the names App, Mod and Fn; what the description is afterwards.
  std::string Log(const ObjectRef& error, const char* description = "") {
    String variable = description;
    component_.object.LogError("App", "Mod", "Fn", error, variable);
    return variable.ToUtf8();
  }
  void SetMode(Long mode) { component_.object.DebugMode(static_cast<enumDebugMode>(mode)); }
  FakeFiles& files() { return *component_.services.files; }
  FakeMessageBoxes& boxes() { return *component_.services.message_boxes; }

  TestComponent component_;
};

TEST_F(LogErrorTest, A_blank_description_is_composed_from_the_error_and_handed_back) {
  EXPECT_EQ(Log(Error(5, u" src ", u" d ")), "src (5) - d");
  EXPECT_EQ(component_.Log(), std::string(kHeading) + "\r\n" + kIndent + "src (5) - d\r\n");
}

TEST_F(LogErrorTest, A_description_and_an_error_make_three_lines) {
  EXPECT_EQ(Log(Error(-2147221480, u"S", u"D"), "boom"), "boom");
  EXPECT_THAT(component_.LogLines(),
              ElementsAre(kHeading, kIndent + "boom", kIndent + "S (-2147221480) - D"));
}

TEST_F(LogErrorTest, A_description_without_an_error_makes_two_lines_and_stays_untrimmed) {
  EXPECT_EQ(Log(Error(0, u"S", u"D"), "  boom "), "  boom ");
  EXPECT_THAT(component_.LogLines(), ElementsAre(kHeading, kIndent + "boom"));
}

TEST_F(LogErrorTest, Neither_a_description_nor_an_error_is_an_unknown_error) {
  EXPECT_EQ(Log(Error(0, u"", u""), "   "), "Unknown error!");
  EXPECT_THAT(component_.LogLines(), ElementsAre(kHeading, kIndent + "Unknown error!"));
}

TEST_F(LogErrorTest, An_error_without_texts_keeps_its_blanks) {
  EXPECT_EQ(Log(Error(5, u"", u"")), " (5) - ");
  EXPECT_THAT(component_.LogLines(), ElementsAre(kHeading, kIndent + " (5) - "));
}

TEST_F(LogErrorTest, Blank_means_blanks_only) {
  EXPECT_EQ(Log(Error(0, u"", u""), "\t"), "\t");
  EXPECT_THAT(component_.LogLines(), ElementsAre(kHeading, kIndent + "\t"));
}

TEST_F(LogErrorTest, A_message_with_line_breaks_is_written_as_it_stands) {
  Log(Error(0, u"", u""), "Failed!\rKey: k");
  EXPECT_THAT(component_.LogLines(), ElementsAre(kHeading, kIndent + "Failed!\rKey: k"));
}

TEST_F(LogErrorTest, Names_are_trimmed) {
  component_.object.LogError(" App ", "Mod ", " Fn", Error(5, u"", u""));
  EXPECT_EQ(component_.LogLines()[0], kHeading);
}

TEST_F(LogErrorTest, The_date_has_minutes_behind_the_hours_and_months_behind_the_year) {
  component_.services.clock->now = {
      .year = 1999, .month = 12, .day = 1, .hour = 0, .minute = 58, .second = 3};
  Log(Error(5, u"", u""));
  EXPECT_EQ(component_.LogLines()[0], "1999-12-01 00:58:03 App.Mod.Fn");
}

TEST_F(LogErrorTest, Entries_are_appended) {
  Log(Error(1, u"a", u"b"));
  Log(Error(2, u"c", u"d"));
  EXPECT_THAT(component_.LogLines(),
              ElementsAre(kHeading, kIndent + "a (1) - b", kHeading, kIndent + "c (2) - d"));
}

TEST_F(LogErrorTest, The_file_is_in_the_ANSI_code_page) {
  component_.object.LogError("\u00e9", "M", "F", Error(5, u"\u20ac", u"\u4e2d"));
  EXPECT_EQ(component_.Log(), "2024-03-05 14:07:09 \xE9.M.F\r\n" + kIndent + "\x80 (5) - ?\r\n");
}

TEST_F(LogErrorTest, It_writes_to_LogFileFullName) {
  component_.object.LogFilePath("D:/Logs");
  component_.object.LogFileName("my.log");
  Log(Error(5, u"", u""));
  EXPECT_THAT(files().opened, ElementsAre(u"D:/Logs\\my.log"));
  EXPECT_THAT(files().closed, ElementsAre(u"D:/Logs\\my.log"));
  EXPECT_THAT(files().given_up, IsEmpty());
}

TEST_F(LogErrorTest, The_bits_of_DebugMode_choose_file_and_box) {
  struct Case {
    Long mode;
    bool file;
    bool box;
  };
  constexpr Case kCases[] = {
      {0, false, false},  {1, true, false},
      {2, false, true},   {3, true, true},
      {4, false, false},  {7, true, true},
      {-1, true, true},   {-2, false, true},
      {-4, false, false}, {-2147483647, true, false},
  };
  for (const Case& one : kCases) {
    files().contents.clear();
    boxes().shown.clear();
    SetMode(one.mode);
    EXPECT_EQ(Log(Error(5, u"S", u"D")), "S (5) - D") << "written back in every mode";
    EXPECT_EQ(component_.LogLines().size(), one.file ? 2u : 0u) << one.mode;
    EXPECT_EQ(boxes().shown.size(), one.box ? 1u : 0u) << one.mode;
  }
}

TEST_F(LogErrorTest, The_box_shows_the_message_under_the_names) {
  SetMode(2);
  component_.object.LogError(" App ", "Mod ", " Fn", Error(5, u" S ", u"\u4e2d "));
  ASSERT_EQ(boxes().shown.size(), 1u);
  EXPECT_EQ(boxes().shown[0].text, u"S (5) - \u4e2d");
  EXPECT_EQ(boxes().shown[0].title, u"App.Mod.Fn");
  EXPECT_EQ(boxes().shown[0].style, 48);
}

TEST_F(LogErrorTest, DebugMode_is_read_again_before_the_box) {
  SetMode(1);
  files().on_open = [&] { SetMode(3); };
  Log(Error(5, u"S", u"D"));
  EXPECT_EQ(boxes().shown.size(), 1u);

  SetMode(3);
  files().on_open = [&] { SetMode(1); };
  Log(Error(5, u"S", u"D"));
  EXPECT_EQ(boxes().shown.size(), 1u);
}

TEST_F(LogErrorTest, A_file_that_cannot_be_opened_costs_the_entry_and_nothing_else) {
  SetMode(3);
  files().FailOpen(1, FaultNumber::PathNotFound);
  EXPECT_EQ(Log(Error(5, u"S", u"D")), "S (5) - D");
  EXPECT_EQ(component_.Log(), "");
  EXPECT_EQ(boxes().shown.size(), 1u);
  EXPECT_THAT(files().given_up, IsEmpty());
}

TEST_F(LogErrorTest, A_file_whose_write_fails_is_given_up_open) {
  SetMode(3);
  files().FailWrite(1, FaultNumber::DiskFull);
  EXPECT_EQ(Log(Error(5, u"S", u"D")), "S (5) - D");
  EXPECT_THAT(files().closed, IsEmpty());
  EXPECT_EQ(files().given_up.size(), 1u);
  EXPECT_EQ(boxes().shown.size(), 1u);
}

TEST_F(LogErrorTest, A_file_whose_close_fails_is_given_up_open) {
  SetMode(3);
  files().FailClose(1, FaultNumber::DiskFull);
  EXPECT_EQ(Log(Error(5, u"S", u"D")), "S (5) - D");
  EXPECT_EQ(files().given_up.size(), 1u);
  EXPECT_EQ(boxes().shown.size(), 1u);
}

TEST_F(LogErrorTest, After_a_failed_entry_the_next_one_is_written) {
  files().FailWrite(1, FaultNumber::DiskFull);
  Log(Error(5, u"S", u"D"));
  Log(Error(6, u"S", u"D"));
  EXPECT_THAT(component_.LogLines(), ElementsAre(kHeading, kIndent + "S (6) - D"));
}

TEST_F(LogErrorTest, A_box_that_fails_costs_nothing_else) {
  SetMode(3);
  boxes().fails = true;
  EXPECT_EQ(Log(Error(5, u"S", u"D")), "S (5) - D");
  EXPECT_EQ(component_.LogLines().size(), 2u);
}

TEST_F(LogErrorTest, No_error_object_is_fault_91_before_anything_happens) {
  SetMode(3);
  String description = "";
  EXPECT_EQ(RaisedBy([&] { component_.object.LogError("A", "M", "F", nullptr, description); }),
            PlainFault(FaultNumber::ObjectVariableNotSet));
  EXPECT_EQ(RaisedBy([&] { component_.object.LogError("A", "M", "F"); }),
            PlainFault(FaultNumber::ObjectVariableNotSet));
  EXPECT_EQ(description.ToUtf8(), "");
  EXPECT_THAT(files().opened, IsEmpty());
  EXPECT_THAT(boxes().shown, IsEmpty());
}

// Has the properties in `known`, in upper case, and notes what it is asked for.
class PartialError final : public Object {
 public:
  explicit PartialError(std::map<std::string, Variant> known) : known_(std::move(known)) {}
  std::string_view ClassName() const noexcept override { return "Partial"; }
  Variant Get(std::string_view name, std::span<const Variant> arguments) override {
    asked.emplace_back(name);
    const auto found = known_.find(std::string(name));
    return found == known_.end() ? Object::Get(name, arguments) : found->second;
  }

  std::vector<std::string> asked;

 private:
  std::map<std::string, Variant> known_;
};

TEST_F(LogErrorTest, An_object_that_lacks_a_property_is_fault_438) {
  const std::map<std::string, Variant> all = {
      {"Source", "S"}, {"Number", Long{5}}, {"Description", "D"}};
  for (const char* missing : {"Source", "Number", "Description"}) {
    std::map<std::string, Variant> some = all;
    some.erase(missing);
    EXPECT_EQ(RaisedBy([&] { Log(std::make_shared<PartialError>(some)); }),
              PlainFault(FaultNumber::NoSuchPropertyOrMethod))
        << missing;
  }
  EXPECT_THAT(files().opened, IsEmpty());
}

TEST_F(LogErrorTest, Any_object_with_the_three_properties_is_read_in_their_order) {
  const auto error = std::make_shared<PartialError>(
      std::map<std::string, Variant>{{"Source", 1.5}, {"Number", "9"}, {"Description", true}});
  EXPECT_EQ(Log(error), "1.5 (9) - True");
  EXPECT_THAT(error->asked, ElementsAre("Source", "Number", "Description"));
}

TEST_F(LogErrorTest, Properties_that_cannot_be_converted_are_faults_of_the_caller) {
  const auto raised = [&](std::map<std::string, Variant> properties) {
    return RaisedBy([&] { Log(std::make_shared<PartialError>(properties)); });
  };
  EXPECT_EQ(raised({{"Source", "S"}, {"Number", "x"}, {"Description", "D"}}),
            PlainFault(FaultNumber::TypeMismatch));
  EXPECT_EQ(raised({{"Source", NullValue()}, {"Number", Long{1}}, {"Description", "D"}}),
            PlainFault(FaultNumber::InvalidUseOfNull));
  EXPECT_EQ(raised({{"Source", "S"}, {"Number", 1e10}, {"Description", "D"}}),
            PlainFault(FaultNumber::Overflow));
}

TEST_F(LogErrorTest, An_absent_description_is_a_blank_one) {
  String description = String::Absent();
  component_.object.LogError("App", "Mod", "Fn", Error(5, u"S", u"D"), description);
  EXPECT_EQ(description.ToUtf8(), "S (5) - D");
}

}  // namespace
}  // namespace vandpublic
