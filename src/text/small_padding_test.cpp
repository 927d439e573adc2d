// The padding members on every text of up to four characters over six letters, against the plain
// description of what they do, character by character.
#include <gtest/gtest.h>

#include "support/small_texts.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

// A blank, an astral character's halves and a zero among them.
constexpr std::u16string_view kLetters{u"a \u4e2d\xD83D\xDE00\0", 6};
constexpr std::u16string_view kPads[] = {u" ", u"0", u"\u4e2dx"};
constexpr Integer kLongest = 6;

// Position `at` of the padded text, counted from the side that is cut or filled.
char16_t Expected(const std::u16string& text, std::size_t length, std::u16string_view pad,
                  bool left, std::size_t at) {
  if (!left) return at < text.size() ? text[at] : pad.front();
  const std::size_t from_end = length - at;
  return from_end <= text.size() ? text[text.size() - from_end] : pad.front();
}

void ExpectPadded(const String& padded, const std::u16string& text, Integer length,
                  std::u16string_view pad, bool left) {
  const auto size = static_cast<std::size_t>(length);
  ASSERT_EQ(padded.Length(), size);
  for (std::size_t i = 0; i < size; ++i)
    ASSERT_EQ(padded.view()[i], Expected(text, size, pad, left, i)) << i;
}

TEST(SmallPadding, Every_text_at_every_length) {
  TestComponent component;
  clsPublic& object = component.object;
  const auto texts = SmallTexts(kLetters, 4);
  ASSERT_EQ(texts.size(), 1555U);
  for (const std::u16string& text : texts) {
    for (Integer length = 0; length <= kLongest; ++length) {
      for (const std::u16string_view pad : kPads) {
        SCOPED_TRACE(Codes(text) + " to " + std::to_string(length));
        ExpectPadded(object.FstrPadLeft(text, length, pad), text, length, pad, true);
        ExpectPadded(object.FstrPadRight(text, length, pad), text, length, pad, false);
        ExpectPadded(object.FstrPadToSpecLen(text, length, pad, LEFTPAD), text, length, pad, true);
        ExpectPadded(object.FstrPadToSpecLen(text, length, pad, RIGHTPAD), text, length, pad,
                     false);
        if (HasFatalFailure()) return;
      }
    }
  }
  EXPECT_EQ(component.Log(), "");
}

TEST(SmallPadding, Formatting_never_cuts) {
  TestComponent component;
  for (const std::u16string& text : SmallTexts(kLetters, 4)) {
    for (Integer length = 0; length <= kLongest; ++length) {
      const std::u16string blanks(static_cast<std::size_t>(length), u' ');
      const std::u16string expected =
          text.size() >= blanks.size() ? text : text + blanks.substr(text.size());
      ASSERT_EQ(component.object.FstrFmtToSpecLen(text, length), String(expected)) << Codes(text);
    }
  }
}

}  // namespace
}  // namespace vandpublic
