// The profile and registry functions and the three names, through the component's ports.
#include "platform/windows/settings_stores.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "platform/windows/ansi_code_page.h"
#include "platform/windows/wide_text.h"
#include "support/temp_folder.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using std::string_literals::operator""s;

class ProfileFilesTest : public testing::Test {
 protected:
  std::string File(std::string_view name) const {
    return SystemCodePage()->Encode(folder_.Inside(name));
  }
  // What a file with this text says, after the read's trimming is left to others.
  std::string Read(std::string_view text, std::string_view key, std::string_view otherwise = "") {
    folder_.Write("a.ini", text);
    return ini_.Read(File("a.ini"), "S", key, otherwise);
  }

  TempFolder folder_;
  ProfileFiles ini_;
};

TEST_F(ProfileFilesTest, A_value_is_found_without_regard_to_case) {
  EXPECT_EQ(Read("[s]\r\nK = v ; x\r\n", "k"), "v ; x");
  EXPECT_EQ(Read("[S]\nK=\n", "K", "default"), "");
  EXPECT_EQ(Read("[S]\nK=\" v \"\n", "K"), " v ");
  EXPECT_EQ(Read("[T]\nK=v\n", "K", "default"), "default");
}

TEST_F(ProfileFilesTest, What_is_missing_gives_the_default) {
  EXPECT_EQ(ini_.Read(File("missing.ini"), "S", "K", "default"), "default");
  EXPECT_EQ(ini_.Read(File("no\\folder.ini"), "S", "K", ""), "");
}

TEST_F(ProfileFilesTest, A_value_is_cut_to_255_bytes) {
  EXPECT_EQ(Read("[S]\nK=" + std::string(300, 'x') + "\n", "K"), std::string(255, 'x'));
  EXPECT_EQ(ini_.Read(File("missing.ini"), "S", "K", std::string(300, 'd')), std::string(255, 'd'));
}

TEST_F(ProfileFilesTest, Writing_makes_the_file_but_not_its_folder) {
  EXPECT_TRUE(ini_.Write(File("new.ini"), "S", "K", "v"));
  EXPECT_EQ(ini_.Read(File("new.ini"), "S", "K", ""), "v");
  EXPECT_TRUE(ini_.Write(File("new.ini"), "S", "K", "w"));
  EXPECT_TRUE(ini_.Write(File("new.ini"), "S", "L", ""));
  EXPECT_EQ(ini_.Read(File("new.ini"), "S", "K", ""), "w");
  EXPECT_EQ(ini_.Read(File("new.ini"), "S", "L", "default"), "");
  EXPECT_FALSE(ini_.Write(File("no\\new.ini"), "S", "K", "v"));
}

TEST_F(ProfileFilesTest, Texts_end_at_their_first_zero) {
  EXPECT_TRUE(ini_.Write(File("z.ini"), "S", "K\0L"s, "v\0w"s));
  EXPECT_EQ(ini_.Read(File("z.ini"), "S", "K", ""), "v");
}

TEST_F(ProfileFilesTest, The_settings_members_use_it) {
  clsPublic object;
  object.DebugMode(DEBUG_MODE_OFF);
  const String file = folder_.Inside("m.ini");
  object.SaveSettingToIni(file, "S", "K", "  caf\xC3\xA9  ");
  EXPECT_EQ(object.GetSettingFromIni(file, "S", "K").ToUtf8(), "caf\xC3\xA9");
  EXPECT_EQ(object.GetSettingFromIni(file, "S", "X", "  d ").ToUtf8(), "d");
  const String missing = folder_.Inside("no\\m.ini");
  EXPECT_EQ(RaisedBy([&] { object.SaveSettingToIni(missing, "S", "K", "v"); }).number,
            static_cast<Long>(0x80040015));
}

// A key of its own below HKEY_LOCAL_MACHINE\Software, gone at the end.
class MachineRegistryTest : public testing::Test {
 protected:
  MachineRegistryTest() {
    const LSTATUS made = RegCreateKeyExA(HKEY_LOCAL_MACHINE, kPath, 0, nullptr, 0, KEY_ALL_ACCESS,
                                         nullptr, &key_, nullptr);
    if (made != ERROR_SUCCESS) throw std::runtime_error("no right to write the registry");
  }
  ~MachineRegistryTest() override {
    RegCloseKey(key_);
    RegDeleteKeyA(HKEY_LOCAL_MACHINE, kPath);
  }

  void Set(const char* name, DWORD type, std::string_view bytes) {
    ASSERT_EQ(RegSetValueExA(key_, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                             static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
  }

  static constexpr char kPath[] = "Software\\VandPublicUnitTest";
  HKEY key_ = nullptr;
  MachineRegistry registry_;
};

TEST_F(MachineRegistryTest, A_text_comes_with_its_zero) {
  Set("T", REG_SZ, "abc\0"s);
  Set("Empty", REG_SZ, "\0"s);
  Set("", REG_SZ, "default\0"s);
  EXPECT_EQ(registry_.Read(kPath, "T"), "abc\0"s);
  EXPECT_EQ(registry_.Read("software\\vandpublicUNITTEST", "t"), "abc\0"s);
  EXPECT_EQ(registry_.Read(kPath, "Empty"), "\0"s);
  EXPECT_EQ(registry_.Read(kPath, ""), "default\0"s);
}

TEST_F(MachineRegistryTest, Other_types_come_as_their_bytes) {
  Set("D", REG_DWORD, "\x41\x42\x43\x44");
  Set("B", REG_BINARY, "\0\xFF"s);
  EXPECT_EQ(registry_.Read(kPath, "D"), "ABCD");
  EXPECT_EQ(registry_.Read(kPath, "B"), "\0\xFF"s);
}

TEST_F(MachineRegistryTest, What_is_missing_or_longer_than_256_bytes_is_nothing) {
  Set("Longest", REG_SZ, std::string(255, 'x') + '\0');
  Set("Long", REG_SZ, std::string(256, 'x') + '\0');
  EXPECT_EQ(registry_.Read(kPath, "Longest")->size(), 256U);
  EXPECT_EQ(registry_.Read(kPath, "Long"), std::nullopt);
  EXPECT_EQ(registry_.Read(kPath, "Missing"), std::nullopt);
  EXPECT_EQ(registry_.Read("Software\\VandPublicNoSuchKey", "T"), std::nullopt);
}

TEST_F(MachineRegistryTest, The_member_keeps_the_zero_and_ignores_the_default) {
  Set("T", REG_SZ, "abc\0"s);
  Set("Blank", REG_SZ, "abc \0"s);
  Set("Long", REG_SZ, std::string(256, 'x') + '\0');
  clsPublic object;
  object.DebugMode(DEBUG_MODE_OFF);
  EXPECT_EQ(object.GetSettingFromReg(kPath, "T"), String(u"abc\0"s));
  EXPECT_EQ(object.GetSettingFromReg(kPath, "Blank"), String(u"abc \0"s));
  EXPECT_EQ(object.GetSettingFromReg(kPath, "Long", "d"), String());
  EXPECT_EQ(object.GetSettingFromReg(kPath, "Missing", "d"), String());
}

TEST(WindowsSystemNames, They_are_what_the_system_says) {
  wchar_t buffer[MAX_PATH] = {};
  DWORD size = MAX_PATH;
  const auto page = SystemCodePage();
  WindowsSystemNames names;
  GetSystemDirectoryW(buffer, MAX_PATH);
  EXPECT_EQ(names.SystemDirectory(), page->Encode(FromWide(buffer)));
  GetWindowsDirectoryW(buffer, MAX_PATH);
  EXPECT_EQ(names.WindowsDirectory(), page->Encode(FromWide(buffer)));
  ASSERT_NE(GetComputerNameW(buffer, &size), 0);
  EXPECT_EQ(names.ComputerName(), page->Encode(FromWide(buffer)));
  EXPECT_FALSE(names.ComputerName().empty());
  EXPECT_FALSE(names.SystemDirectory().ends_with('\\'));
}

TEST(WindowsSystemNames, The_members_hand_them_out) {
  clsPublic object;
  EXPECT_EQ(object.SystemDirectory().ToUtf8(), WindowsSystemNames().SystemDirectory());
  EXPECT_EQ(object.WindowsDirectory().ToUtf8(), WindowsSystemNames().WindowsDirectory());
  EXPECT_EQ(object.ComputerName().ToUtf8(), WindowsSystemNames().ComputerName());
}

}  // namespace
}  // namespace vandpublic
