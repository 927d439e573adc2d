// The quantifiers of the scripting dialect: *, +, ?, and counts in braces.
#include "platform/posix/regexp_repeat.h"

#include <algorithm>

#include "runtime/errors.h"

namespace vandpublic {
namespace {

constexpr std::u16string_view kFirstUnits = u"*+?{";

// Reads a number, false when no digit stands next. Numbers above the limit become limit + 1, so
// that no length of digits overflows.
bool ReadNumber(RegExpReader& reader, unsigned& value) noexcept {
  bool found = false;
  for (value = 0; !reader.AtEnd(); reader.Skip(1), found = true) {
    const char16_t unit = reader.Rest()[0];
    if (unit < u'0' || unit > u'9') break;
    value = std::min(value * 10 + static_cast<unsigned>(unit - u'0'), kRegExpRepeatLimit + 1);
  }
  return found;
}

// {n}, {n,} or {n,m}. The reader moves only when it is one of them.
bool ReadCounts(RegExpReader& reader, RegExpRepeat& repeat) {
  RegExpReader ahead = reader;
  if (!ahead.TakeIf(u'{') || !ReadNumber(ahead, repeat.min)) return false;
  repeat.max = repeat.min;
  if (ahead.TakeIf(u',') && !ReadNumber(ahead, repeat.max)) repeat.max = kRegExpRepeatWithoutEnd;
  if (!ahead.TakeIf(u'}')) return false;
  reader = ahead;
  const bool max_too_large =
      repeat.max > kRegExpRepeatLimit && repeat.max != kRegExpRepeatWithoutEnd;
  if (repeat.min > kRegExpRepeatLimit || max_too_large || repeat.max < repeat.min) {
    RaiseFault(FaultNumber::RegExpSyntaxError);
  }
  return true;
}

bool ReadSign(RegExpReader& reader, RegExpRepeat& repeat) noexcept {
  if (reader.TakeIf(u'*')) {
    repeat = {.min = 0, .max = kRegExpRepeatWithoutEnd};
  } else if (reader.TakeIf(u'+')) {
    repeat = {.min = 1, .max = kRegExpRepeatWithoutEnd};
  } else if (reader.TakeIf(u'?')) {
    repeat = {.min = 0, .max = 1};
  } else {
    return false;
  }
  return true;
}

void AppendNumber(std::u16string& text, unsigned value) {
  const std::string digits = std::to_string(value);
  text.append(digits.begin(), digits.end());
}

}  // namespace

bool ReadRegExpRepeat(RegExpReader& reader, RegExpRepeat& repeat) {
  // Mostly there is none.
  if (reader.AtEnd() || kFirstUnits.find(reader.Rest().front()) == std::u16string_view::npos) {
    return false;
  }
  if (!ReadSign(reader, repeat) && !ReadCounts(reader, repeat)) return false;
  repeat.lazy = reader.TakeIf(u'?');
  return true;
}

// The short forms are only an eye's comfort: {0,} and * are the same to the matcher.
void AppendRegExpRepeat(std::u16string& text, const RegExpRepeat& repeat) {
  const bool has_end = repeat.max != kRegExpRepeatWithoutEnd;
  if (!has_end && repeat.min < 2) {
    text.push_back(repeat.min == 0 ? u'*' : u'+');
  } else if (repeat.min == 0 && repeat.max == 1) {
    text.push_back(u'?');
  } else {
    text.push_back(u'{');
    AppendNumber(text, repeat.min);
    if (repeat.max != repeat.min) text.push_back(u',');
    if (has_end && repeat.max != repeat.min) AppendNumber(text, repeat.max);
    text.push_back(u'}');
  }
  if (repeat.lazy) text.push_back(u'?');
}

}  // namespace vandpublic
