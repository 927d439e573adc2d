// SaveSettingToIni, GetSettingFromIni and GetSettingFromReg, on stores that record what reaches
// them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/platform.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Keeps the arguments of each call as one text and answers what it was told to.
class RecordingIniFiles final : public IniFiles {
 public:
  std::string Read(std::string_view file, std::string_view section, std::string_view key,
                   std::string_view default_value) override {
    Record({file, section, key, default_value});
    return answer;
  }
  bool Write(std::string_view file, std::string_view section, std::string_view key,
             std::string_view value) override {
    Record({file, section, key, value});
    return succeeds;
  }

  std::vector<std::string> calls;
  std::string answer;
  bool succeeds = true;

 private:
  void Record(std::initializer_list<std::string_view> texts) {
    std::string call;
    for (const std::string_view text : texts)
      call += (call.empty() ? "" : "|") + std::string(text);
    calls.push_back(call);
  }
};

class RecordingRegistry final : public Registry {
 public:
  std::optional<std::string> Read(std::string_view key_path, std::string_view value_name) override {
    calls.push_back(std::string(key_path) + "|" + std::string(value_name));
    return answer;
  }

  std::vector<std::string> calls;
  std::optional<std::string> answer;
};

class SettingsTest : public testing::Test {
 protected:
  SettingsTest() {
    auto platform = std::make_shared<Platform>(*services_.Make());
    platform->ini_files = ini_;
    platform->registry = registry_;
    object_ = std::make_unique<clsPublic>(platform);
  }

  std::string LogText() const { return services_.files->contents[kLogFile]; }

  static constexpr const char16_t* kLogFile = u"C:\\Component\\LOG\\ERROR.log";
  FakePlatform services_;
  std::shared_ptr<RecordingIniFiles> ini_ = std::make_shared<RecordingIniFiles>();
  std::shared_ptr<RecordingRegistry> registry_ = std::make_shared<RecordingRegistry>();
  std::unique_ptr<clsPublic> object_;
};

TEST_F(SettingsTest, Names_and_values_reach_the_file_as_they_were_given) {
  object_->SaveSettingToIni(" f.ini ", " Main", "Key ", "  value ");
  EXPECT_THAT(ini_->calls, ElementsAre(" f.ini | Main|Key |  value "));
  ini_->answer = "x";
  object_->GetSettingFromIni(" f.ini ", " Main", "Key ", " d ");
  EXPECT_THAT(ini_->calls, ElementsAre(testing::_, " f.ini | Main|Key | d "));
}

TEST_F(SettingsTest, Texts_cross_in_the_code_page_and_end_at_a_zero) {
  object_->SaveSettingToIni(u"\u20ac.ini", u"\u4e2d", u"K", std::u16string(u"a\0b", 3));
  EXPECT_THAT(ini_->calls, ElementsAre("\x80.ini|?|K|a"));
  ini_->answer = "  \xE4 b  ";
  EXPECT_EQ(object_->GetSettingFromIni("f", "s", "k"), String(u"\u00e4 b"));
}

TEST_F(SettingsTest, A_failed_save_names_everything_trimmed_between_carriage_returns) {
  ini_->succeeds = false;
  const std::string message =
      "Failed to save setting into .ini file!\rFilename: f.ini\rSection: Main\rKey: Key\r"
      "Value: v w";
  EXPECT_EQ(RaisedBy([&] { object_->SaveSettingToIni(" f.ini ", "Main", " Key", " v w "); }),
            MemberError(0x15, "SaveSettingToIni", message));
}

TEST_F(SettingsTest, The_first_missing_name_is_reported_and_nothing_is_called) {
  const auto save = [&](const char* file, const char* section, const char* key) {
    return RaisedBy([&] { object_->SaveSettingToIni(file, section, key, "v"); }).description;
  };
  const auto get = [&](const char* file, const char* section, const char* key) {
    return RaisedBy([&] { object_->GetSettingFromIni(file, section, key); }).description;
  };
  EXPECT_EQ(save("", "", ""), "File name not provided.");
  EXPECT_EQ(get("  ", "s", "k"), "File name not provided.");
  EXPECT_EQ(save("f", " ", ""), "Section name not provided.");
  EXPECT_EQ(get("f", "", "k"), "Section name not provided.");
  EXPECT_EQ(save("f", "s", " "), "Key name not provided.");
  EXPECT_EQ(get("f", "s", ""), "Key name not provided.");
  EXPECT_EQ(RaisedBy([&] { object_->GetSettingFromReg("", ""); }),
            MemberError(0x16, "GetSettingFromReg", "Section name not provided."));
  EXPECT_EQ(RaisedBy([&] { object_->GetSettingFromReg("s", " "); }),
            MemberError(0x16, "GetSettingFromReg", "Key name not provided."));
  EXPECT_THAT(ini_->calls, IsEmpty());
  EXPECT_THAT(registry_->calls, IsEmpty());
}

TEST_F(SettingsTest, An_empty_value_is_written) {
  object_->SaveSettingToIni("f", "s", "k", "");
  EXPECT_THAT(ini_->calls, ElementsAre("f|s|k|"));
}

TEST_F(SettingsTest, A_registry_value_fills_256_blanks_and_is_trimmed) {
  registry_->answer = std::string("text\0", 5);
  EXPECT_EQ(object_->GetSettingFromReg("s", "k"), String(std::u16string(u"text\0", 5)));
  EXPECT_THAT(registry_->calls, ElementsAre("s|k"));
  registry_->answer = "  blanks  ";
  EXPECT_EQ(object_->GetSettingFromReg("s", "k").ToUtf8(), "blanks");
  registry_->answer = std::string(256, 'x');
  EXPECT_EQ(object_->GetSettingFromReg("s", "k").Length(), 256U);
  registry_->answer = std::string(257, 'x');
  EXPECT_EQ(object_->GetSettingFromReg("s", "k").Length(), 0U) << "it does not fit";
}

TEST_F(SettingsTest, A_missing_registry_value_is_empty_whatever_the_default) {
  EXPECT_EQ(object_->GetSettingFromReg("s", "k", "default").ToUtf8(), "");
  EXPECT_FALSE(object_->GetSettingFromReg("s", "k", "default").IsAbsent());
}

}  // namespace
}  // namespace vandpublic
