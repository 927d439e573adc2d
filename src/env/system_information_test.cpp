// SystemDirectory, WindowsDirectory and ComputerName, on a machine that tells what it is told to.
#include <gtest/gtest.h>

#include "platform/platform.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

class ToldNames final : public SystemNames {
 public:
  std::string SystemDirectory() override { return told; }
  std::string WindowsDirectory() override { return told; }
  std::string ComputerName() override { return told; }

  std::string told;
};

class SystemInformationTest : public testing::Test {
 protected:
  SystemInformationTest() {
    auto platform = std::make_shared<Platform>(*services_.Make());
    platform->system_names = names_;
    object_ = std::make_unique<clsPublic>(platform);
  }

  FakePlatform services_;
  std::shared_ptr<ToldNames> names_ = std::make_shared<ToldNames>();
  std::unique_ptr<clsPublic> object_;
};

TEST_F(SystemInformationTest, What_the_system_tells_comes_back_whole) {
  names_->told = "C:\\My \xE4 Windows ";
  const String expected(u"C:\\My \u00e4 Windows ");
  EXPECT_EQ(object_->SystemDirectory(), expected);
  EXPECT_EQ(object_->WindowsDirectory(), expected);
  EXPECT_EQ(object_->ComputerName(), expected);
}

TEST_F(SystemInformationTest, Nothing_told_is_reported_by_each_member) {
  EXPECT_EQ(
      RaisedBy([&] { object_->SystemDirectory(); }),
      MemberError(0x21, "SystemDirectory", "Call API not get correct System Dir information !"));
  EXPECT_EQ(
      RaisedBy([&] { object_->WindowsDirectory(); }),
      MemberError(0x22, "WindowsDirectory", "Call API not get correct Windows Dir information !"));
  EXPECT_EQ(
      RaisedBy([&] { object_->ComputerName(); }),
      MemberError(0x23, "ComputerName", "Call API not get correct Computer Name information !"));
}

}  // namespace
}  // namespace vandpublic
