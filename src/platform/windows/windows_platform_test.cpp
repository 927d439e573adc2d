// The services on Windows, the system's code page, the clock and the boxes of a process without a
// desktop.
#include <gtest/gtest.h>
#include <windows.h>

#include <ctime>
#include <string>

#include "platform/platform.h"
#include "platform/windows/ansi_code_page.h"
#include "platform/windows/desktop_message_boxes.h"
#include "platform/windows/wide_text.h"
#include "platform/windows/windows_clock.h"

namespace vandpublic {
namespace {

TEST(WindowsPlatform, Every_service_is_there_and_the_table_is_made_once) {
  const auto platform = SystemPlatform();
  EXPECT_NE(platform->clock, nullptr);
  EXPECT_NE(platform->files, nullptr);
  EXPECT_NE(platform->database, nullptr);
  EXPECT_NE(platform->message_boxes, nullptr);
  EXPECT_NE(platform->random, nullptr);
  EXPECT_NE(platform->regexp, nullptr);
  EXPECT_NE(platform->ini_files, nullptr);
  EXPECT_NE(platform->registry, nullptr);
  EXPECT_NE(platform->system_names, nullptr);
  EXPECT_EQ(platform->code_page->number(), static_cast<int>(GetACP()));
  EXPECT_EQ(SystemPlatform(), platform);
}

TEST(WindowsPlatform, The_component_lies_beside_its_program) {
  wchar_t file[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, file, MAX_PATH);
  const std::u16string program = FromWide(file);
  EXPECT_EQ(SystemPlatform()->component_folder, program.substr(0, program.find_last_of(u'\\')));
}

TEST(WindowsClock, It_tells_the_local_time) {
  const std::time_t before = std::time(nullptr);
  const LocalTime now = WindowsClock().Now();
  const std::time_t after = std::time(nullptr);
  std::tm fields{};
  fields.tm_year = now.year - 1900;
  fields.tm_mon = now.month - 1;
  fields.tm_mday = now.day;
  fields.tm_hour = now.hour;
  fields.tm_min = now.minute;
  fields.tm_sec = now.second;
  fields.tm_isdst = -1;
  EXPECT_GE(std::mktime(&fields), before);
  EXPECT_LE(std::mktime(&fields), after);
}

// A service's windows stand on a station that nobody sees. A box there would wait for ever, so
// this test hangs where the station is not looked at.
TEST(DesktopMessageBoxes, An_invisible_window_station_answers_with_the_default_button) {
  const HWINSTA before = GetProcessWindowStation();
  const HWINSTA hidden = CreateWindowStationW(nullptr, 0, WINSTA_ALL_ACCESS, nullptr);
  ASSERT_NE(hidden, nullptr);
  // Told explicitly: Wine makes every station visible at first.
  USEROBJECTFLAGS flags{FALSE, FALSE, 0};
  SetUserObjectInformationW(hidden, UOI_FLAGS, &flags, sizeof(flags));
  ASSERT_NE(SetProcessWindowStation(hidden), 0);
  DesktopMessageBoxes boxes;
  EXPECT_EQ(boxes.Show(u"text", u"title", kBoxOkExclamation), kBoxAnswerOk);
  EXPECT_EQ(boxes.Show(u"text", u"title", kBoxYesNoQuestionDefaultNo), kBoxAnswerNo);
  SetProcessWindowStation(before);
  CloseWindowStation(hidden);
}

TEST(Utf8CodePage, Where_it_is_the_systems_page_texts_convert_literally) {
  if (GetACP() != CP_UTF8) GTEST_SKIP() << "the system's page is " << GetACP();
  const auto page = SystemCodePage();
  EXPECT_EQ(page->Encode(u"a\u4e2d\U0001F600"), "a\xE4\xB8\xAD\xF0\x9F\x98\x80");
  EXPECT_EQ(page->Encode(std::u16string{u'a', 0xD800, u'b'}), "a?b");
  EXPECT_EQ(page->Decode("\xE4\xB8\xAD"), u"\u4e2d");
}

}  // namespace
}  // namespace vandpublic
