#include "platform/posix/registry_values.h"

#include <gtest/gtest.h>

#include "runtime/utf8.h"

namespace vandpublic {
namespace {

TEST(RegistryValues, names_are_found_without_case) {
  RegistryValues values;
  values.Set(u"Software\\M\u00e4ker", u"V\u00e4lue", "1");
  EXPECT_EQ(values.Find(u"SOFTWARE\\m\u00c4KER", u"v\u00c4LUE"), "1");
  values.Set(u"software\\m\u00e4ker\\", u"V\u00c4LUE", "2");
  EXPECT_EQ(values.Find(u"Software\\M\u00e4ker\\", u"V\u00e4lue"), "2") << "the later one";
}

TEST(RegistryValues, what_is_not_there_is_not_found) {
  RegistryValues values;
  values.Set(u"A\\B", u"V", "1");
  EXPECT_EQ(values.Find(u"A\\B", u"W"), std::nullopt);
  EXPECT_EQ(values.Find(u"A", u"V"), std::nullopt);
  EXPECT_EQ(values.Find(u"A\\B\\C", u"V"), std::nullopt);
  EXPECT_EQ(values.Find(u"\\A\\B", u"V"), std::nullopt);
  EXPECT_EQ(values.Find(u"A\\\\B", u"V"), std::nullopt);
  EXPECT_EQ(values.Find(u"A\\B\\\\", u"V"), std::nullopt) << "one separator at the end, not two";
  EXPECT_EQ(values.Find(u"", u"V"), std::nullopt);
}

TEST(RegistryValues, the_root_and_default_values_have_empty_names) {
  RegistryValues values;
  values.Set(u"", u"", "root");
  values.Set(u"A", u"", "a");
  EXPECT_EQ(values.Find(u"", u""), "root");
  EXPECT_EQ(values.Find(u"\\", u""), "root");
  EXPECT_EQ(values.Find(u"a", u""), "a");
}

TEST(RegistryValues, RemoveValue_removes_one_value) {
  RegistryValues values;
  values.Set(u"A", u"V", "1");
  values.Set(u"A", u"W", "2");
  values.RemoveValue(u"a", u"v");
  values.RemoveValue(u"a", u"x");
  values.RemoveValue(u"b", u"W");
  EXPECT_EQ(values.Find(u"A", u"V"), std::nullopt);
  EXPECT_EQ(values.Find(u"A", u"W"), "2");
}

TEST(RegistryValues, RemoveKey_removes_the_keys_below_and_no_neighbours) {
  RegistryValues values;
  const std::u16string gone[] = {u"A\\B", u"A\\B\\C", u"A\\B\\C\\D", u"A\\B\\\uffff"};
  const std::u16string kept[] = {u"A", u"A\\B2", u"A\\B ", u"A\\B[x", u"A\\B]x", u"A\\C", u"A\\Bc"};
  for (const auto& path : gone)
    values.Set(path, u"V", "1");
  for (const auto& path : kept)
    values.Set(path, u"V", "1");
  values.RemoveKey(u"a\\b\\");
  for (const auto& path : gone)
    EXPECT_FALSE(values.Find(path, u"V")) << ToUtf8(path);
  for (const auto& path : kept)
    EXPECT_TRUE(values.Find(path, u"V")) << ToUtf8(path);
  values.RemoveKey(u"");
  for (const auto& path : kept)
    EXPECT_FALSE(values.Find(path, u"V")) << ToUtf8(path);
}

}  // namespace
}  // namespace vandpublic
