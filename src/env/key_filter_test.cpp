// FilterInput.
#include <gtest/gtest.h>

#include <string>

#include "support/test_component.h"

namespace vandpublic {
namespace {

Integer Filter(clsPublic& object, int code, int mode) {
  auto key = static_cast<Integer>(code);
  object.FilterInput(key, static_cast<enumInputMode>(mode));
  return key;
}

// What stays of a code in modes 0 to 2: the character that the mode turns it into, else nothing.
Integer Expected(int code, int mode) {
  if (code == 8) return 8;
  const std::string kept = mode == 0 ? "01" : mode == 1 ? "0123456789" : "0123456789ABCDEFabcdef";
  if (code == 0 || kept.find(static_cast<char>(code)) == std::string::npos) return 0;
  return static_cast<Integer>(code >= 'a' ? code - 32 : code);
}

TEST(FilterInput, Every_code_in_every_mode_stays_or_becomes_0) {
  TestComponent component;
  for (int code = 0; code <= 255; ++code) {
    for (int mode = 0; mode <= 2; ++mode)
      EXPECT_EQ(Filter(component.object, code, mode), Expected(code, mode)) << code << " " << mode;
    for (const int mode : {3, 4, 5, -1, 9, 2147483647})
      EXPECT_EQ(Filter(component.object, code, mode), code) << mode;
  }
}

TEST(FilterInput, Decimal_is_the_default) {
  TestComponent component;
  Integer key = 65;
  component.object.FilterInput(key);
  EXPECT_EQ(key, 0);
  key = 57;
  component.object.FilterInput(key);
  EXPECT_EQ(key, 57);
}

TEST(FilterInput, What_is_no_character_is_a_plain_fault_in_every_mode) {
  TestComponent component;
  for (const int mode : {0, 1, 2, 3, 4, 9}) {
    for (const int code : {-1, 256, 300, 32767, -32768}) {
      auto key = static_cast<Integer>(code);
      EXPECT_EQ(
          RaisedBy([&] { component.object.FilterInput(key, static_cast<enumInputMode>(mode)); }),
          PlainFault(FaultNumber::InvalidProcedureCall));
      EXPECT_EQ(key, code);
    }
  }
  EXPECT_EQ(component.Log(), "");
}

}  // namespace
}  // namespace vandpublic
