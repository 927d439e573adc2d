#include "frame/clsPublic.h"

#include <gtest/gtest.h>

#include "platform/platform.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

std::string Full(const clsPublic& object) { return object.LogFileFullName().ToUtf8(); }

TEST(ClsPublic, A_new_object_logs_to_a_file_below_the_folder_of_the_component) {
  TestComponent component;
  const clsPublic& object = component.object;
  EXPECT_EQ(object.AppPath().ToUtf8(), "");
  EXPECT_EQ(object.DebugMode(), DEBUG_MODE_LOGFILE);
  EXPECT_EQ(object.LogFilePath().ToUtf8(), "C:\\Component\\LOG");
  EXPECT_EQ(object.LogFileName().ToUtf8(), "ERROR.log");
  EXPECT_EQ(Full(object), "C:\\Component\\LOG\\ERROR.log");
  EXPECT_TRUE(component.services.files->opened.empty());
}

TEST(ClsPublic, The_folder_of_the_component_is_joined_as_it_stands) {
  struct Case {
    const char16_t* folder;
    const char* log_path;
  };
  constexpr Case kCases[] = {
      {u"C:\\", "C:\\\\LOG"},
      {u" C:\\a ", " C:\\a \\LOG"},  // not through the property, so not trimmed
      {u"/usr/lib", "/usr/lib\\LOG"},
      {u"", "\\LOG"},
  };
  for (const Case& one : kCases) {
    FakePlatform services;
    services.component_folder = one.folder;
    EXPECT_EQ(clsPublic(services.Make()).LogFilePath().ToUtf8(), one.log_path);
  }
}

TEST(ClsPublic, An_object_of_the_system_logs_below_the_folder_of_its_program) {
  const clsPublic object;
  EXPECT_EQ(object.LogFilePath(), SystemPlatform()->component_folder + u"\\LOG");
  EXPECT_EQ(&object.platform(), SystemPlatform().get());
}

TEST(ClsPublic, AppPath_is_stored_as_given_and_changes_nothing_else) {
  TestComponent component;
  component.object.AppPath(" X ");
  EXPECT_EQ(component.object.AppPath().ToUtf8(), " X ");
  EXPECT_EQ(component.object.LogFilePath().ToUtf8(), "C:\\Component\\LOG");
}

TEST(ClsPublic, A_property_never_reads_back_as_absent) {
  TestComponent component;
  clsPublic& object = component.object;
  object.AppPath(String::Absent());
  object.LogFilePath(String::Absent());
  object.LogFileName(String::Absent());
  EXPECT_FALSE(object.AppPath().IsAbsent());
  EXPECT_FALSE(object.LogFilePath().IsAbsent());
  EXPECT_FALSE(object.LogFileName().IsAbsent());
  EXPECT_FALSE(object.LogFileFullName().IsAbsent());
}

TEST(ClsPublic, DebugMode_takes_any_number) {
  TestComponent component;
  for (const Long mode : {0, 1, 2, 3, 7, -1, 2147483647, -2147483647 - 1}) {
    component.object.DebugMode(static_cast<enumDebugMode>(mode));
    EXPECT_EQ(component.object.DebugMode(), mode);
  }
}

TEST(ClsPublic, The_log_properties_lose_blanks_at_their_ends_and_nothing_else) {
  TestComponent component;
  clsPublic& object = component.object;
  object.LogFilePath("  D:\\My Logs  ");
  object.LogFileName(" my log.txt ");
  EXPECT_EQ(object.LogFilePath().ToUtf8(), "D:\\My Logs");
  EXPECT_EQ(object.LogFileName().ToUtf8(), "my log.txt");
  object.LogFileName("\t x.log \t");
  EXPECT_EQ(object.LogFileName().ToUtf8(), "\t x.log \t");
}

TEST(ClsPublic, LogFileFullName_puts_one_backslash_between_folder_and_name) {
  struct Case {
    const char* path;
    const char* name;
    const char* full;
  };
  constexpr Case kCases[] = {
      {"D:\\Logs\\", " my.log ", "D:\\Logs\\my.log"},
      {"D:\\Logs", "my.log", "D:\\Logs\\my.log"},
      {"D:/Logs/", "a.log", "D:/Logs/\\a.log"},
      {"", "ERROR.log", "\\ERROR.log"},
      {"\\", "", "\\"},
      {"", "", "\\"},
      {"D:\\Logs\\\\", "a.log", "D:\\Logs\\\\a.log"},
  };
  TestComponent component;
  for (const Case& one : kCases) {
    component.object.LogFilePath(one.path);
    component.object.LogFileName(one.name);
    EXPECT_EQ(Full(component.object), one.full);
  }
}

TEST(ClsPublic, Init_derives_the_log_folder_from_the_folder_of_the_application) {
  struct Case {
    const char* app_path;
    const char* log_path;
  };
  constexpr Case kCases[] = {
      {"C:\\App", "C:\\App\\LOG"},
      {"C:\\App\\", "C:\\App\\\\LOG"},  // doubled on purpose
      {" C:\\App ", "C:\\App \\LOG"},   // only the ends of the joined text are trimmed
      {"", "\\LOG"},
      {"   ", "\\LOG"},
  };
  for (const Case& one : kCases) {
    TestComponent component;
    component.object.Init(one.app_path);
    EXPECT_EQ(component.object.AppPath().ToUtf8(), one.app_path);
    EXPECT_EQ(component.object.LogFilePath().ToUtf8(), one.log_path);
  }
}

TEST(ClsPublic, Init_with_a_doubled_backslash_logs_there) {
  TestComponent component;
  component.object.Init("C:\\App\\");
  EXPECT_EQ(Full(component.object), "C:\\App\\\\LOG\\ERROR.log");
}

TEST(ClsPublic, Init_sets_the_mode_to_1_unless_it_is_told_another) {
  TestComponent component;
  component.object.DebugMode(DEBUG_MODE_OFF);
  component.object.Init("C:\\A");
  EXPECT_EQ(component.object.DebugMode(), DEBUG_MODE_LOGFILE);
  component.object.Init("C:\\A", DEBUG_MODE_MSGBOX);
  EXPECT_EQ(component.object.DebugMode(), DEBUG_MODE_MSGBOX);
}

TEST(ClsPublic, Init_leaves_the_name_of_the_log_file) {
  TestComponent component;
  component.object.LogFileName("my.log");
  component.object.Init("C:\\A");
  EXPECT_EQ(component.object.LogFileName().ToUtf8(), "my.log");
  EXPECT_TRUE(component.services.files->opened.empty());
}

TEST(ClsPublic, Init_of_an_absent_folder_is_Init_of_the_empty_one) {
  TestComponent component;
  component.object.Init(String::Absent());
  EXPECT_FALSE(component.object.AppPath().IsAbsent());
  EXPECT_EQ(component.object.LogFilePath().ToUtf8(), "\\LOG");
}

TEST(ClsPublic, Objects_have_their_own_settings) {
  TestComponent first;
  TestComponent second;
  first.object.Init("C:\\First", DEBUG_MODE_OFF);
  EXPECT_EQ(second.object.AppPath().ToUtf8(), "");
  EXPECT_EQ(second.object.DebugMode(), DEBUG_MODE_LOGFILE);
}

TEST(ClsPublic, A_moved_object_takes_its_settings_along) {
  TestComponent component;
  component.object.Init("C:\\App");
  clsPublic moved(std::move(component.object));
  EXPECT_EQ(moved.AppPath().ToUtf8(), "C:\\App");
  clsPublic other(component.services.Make());
  other = std::move(moved);
  EXPECT_EQ(other.AppPath().ToUtf8(), "C:\\App");
}

}  // namespace
}  // namespace vandpublic
