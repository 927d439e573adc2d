// All texts over a small alphabet, for tests that leave none out.
#ifndef VANDPUBLIC_TESTS_SUPPORT_SMALL_TEXTS_H
#define VANDPUBLIC_TESTS_SUPPORT_SMALL_TEXTS_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vandpublic {

// Every text of up to `longest` characters, the shorter ones first: 1555 for 6 letters and 4.
inline std::vector<std::u16string> SmallTexts(std::u16string_view alphabet, std::size_t longest) {
  std::vector<std::u16string> texts = {u""};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (texts[i].size() == longest) break;
    for (const char16_t letter : alphabet)
      texts.push_back(texts[i] + letter);
  }
  return texts;
}

}  // namespace vandpublic

#endif
