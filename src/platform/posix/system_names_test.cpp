#include "platform/posix/system_names.h"

#include <gtest/gtest.h>
#include <sys/utsname.h>

namespace vandpublic {
namespace {

TEST(SystemNames, folders_have_no_final_separator) {
  PosixSystemNames names;
  EXPECT_EQ(names.SystemDirectory(), "/usr/lib");
  EXPECT_EQ(names.WindowsDirectory(), "/usr");
}

TEST(SystemNames, ComputerName_is_the_kernels_name_up_to_a_dot) {
  struct utsname system {};
  ASSERT_EQ(uname(&system), 0);
  const std::string node = system.nodename;
  EXPECT_EQ(PosixSystemNames().ComputerName(), node.substr(0, node.find('.')));
}

TEST(SystemNames, FirstLabel_ends_at_the_first_dot_and_keeps_case) {
  EXPECT_EQ(FirstLabel("Host-1.Example.Org"), "Host-1");
  EXPECT_EQ(FirstLabel("host"), "host");
  EXPECT_EQ(FirstLabel(""), "");
  EXPECT_EQ(FirstLabel(".local"), "");
}

}  // namespace
}  // namespace vandpublic
