// The port behind RegExpTest and RegExpReplace: a scripting regular-expression engine.
#ifndef VANDPUBLIC_PLATFORM_REGEXP_H
#define VANDPUBLIC_PLATFORM_REGEXP_H

#include <string>
#include <string_view>

namespace vandpublic {

struct RegExpOptions {
  bool global = true;       // replace every match, not the first only; no effect on Test
  bool ignore_case = true;  // simple case folding of 16-bit units; \d \w \s \b stay ASCII
  bool multiline = false;   // ^ and $ also stand at line breaks (CR or LF)
};

// Raises the engine's own faults 5017 to 5021 for a bad pattern, and another error when a match
// takes too many steps. Texts are 16-bit units; unpaired surrogates are ordinary units.
class RegExpEngine {
 public:
  virtual ~RegExpEngine() = default;

  // Whether the pattern matches anywhere in the source.
  virtual bool Test(std::u16string_view pattern, RegExpOptions options,
                    std::u16string_view source) = 0;

  // The source with the first match (every match with options.global) replaced; the replacement
  // has $1 to $99, $&, $`, $' and $$.
  virtual std::u16string Replace(std::u16string_view pattern, RegExpOptions options,
                                 std::u16string_view source, std::u16string_view replacement) = 0;
};

}  // namespace vandpublic

#endif
