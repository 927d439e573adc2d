// What the tests of the regular-expression engine share.
#ifndef VANDPUBLIC_PLATFORM_POSIX_REGEXP_TEST_SUPPORT_H
#define VANDPUBLIC_PLATFORM_POSIX_REGEXP_TEST_SUPPORT_H

#include <string>
#include <string_view>

#include "platform/regexp.h"
#include "runtime/errors.h"

namespace vandpublic {

// Options from letters: g, i and m.
inline RegExpOptions OptionsFrom(std::string_view letters) {
  const auto has = [letters](char letter) { return letters.find(letter) != letters.npos; };
  return {.global = has('g'), .ignore_case = has('i'), .multiline = has('m')};
}

// The number of the fault that an action raises, 0 if it raises none.
template <typename Action>
int FaultNumberOf(Action action) {
  try {
    action();
  } catch (const RuntimeFault& fault) {
    return static_cast<int>(fault.number());
  }
  return 0;
}

inline std::u16string Repeated(std::u16string_view piece, std::size_t times) {
  std::u16string text;
  for (std::size_t i = 0; i < times; ++i)
    text += piece;
  return text;
}

}  // namespace vandpublic

#endif
