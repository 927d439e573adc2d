// FstrRidOfEmpty and EncodeStrSQL on every text of up to six characters over five letters, against
// the plain description of what they do.
#include <gtest/gtest.h>

#include "support/small_texts.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

// One pass from the left; what it brings together stays.
std::u16string Without(const std::u16string& text, std::u16string_view unwanted) {
  std::u16string kept;
  for (std::size_t i = 0; i < text.size();) {
    if (text.compare(i, unwanted.size(), unwanted) == 0) {
      i += unwanted.size();
    } else {
      kept += text[i++];
    }
  }
  return kept;
}

TEST(SmallBlanks, Three_passes_in_their_order) {
  TestComponent component;
  for (const std::u16string& text : SmallTexts(u"a \u3000\r\n", 6)) {
    String source = text;
    const std::u16string expected = Without(Without(Without(text, u"\u3000"), u" "), u"\r\n");
    ASSERT_EQ(component.object.FstrRidOfEmpty(source), String(expected)) << Codes(source);
  }
}

TEST(SmallBlanks, Each_quote_becomes_two) {
  TestComponent component;
  for (const std::u16string& text : SmallTexts(u"a'\"\u2019\uff07", 6)) {
    std::u16string expected;
    for (const char16_t unit : text)
      expected += unit == u'\'' ? std::u16string(u"''") : std::u16string(1, unit);
    ASSERT_EQ(component.object.EncodeStrSQL(text), String(expected)) << Codes(text);
    ASSERT_EQ(component.object.DecodeStrSQL(expected), String(text)) << Codes(text);
  }
}

}  // namespace
}  // namespace vandpublic
