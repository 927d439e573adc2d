// EncodeStrSQL and DecodeStrSQL: single quotes in SQL texts.
#include <algorithm>
#include <string>

#include "frame/clsPublic.h"

namespace vandpublic {

String clsPublic::EncodeStrSQL(const String& istr_Source) {
  const std::u16string_view source = istr_Source.view();
  const auto quotes = static_cast<std::size_t>(std::count(source.begin(), source.end(), u'\''));
  std::u16string text(source.size() + quotes, u'\'');
  char16_t* out = text.data();
  for (const char16_t c : source) {
    *out = c;
    out += c == u'\'' ? 2 : 1;  // the second quote is there
  }
  return text;
}

String clsPublic::DecodeStrSQL(const String& istr_Source) {
  const std::u16string_view source = istr_Source.view();
  std::u16string text;
  text.reserve(source.size());
  // Pairs are taken from the left: of three quotes two stay.
  for (std::size_t i = 0; i < source.size(); ++i) {
    text += source[i];
    if (source[i] == u'\'' && i + 1 < source.size() && source[i + 1] == u'\'') ++i;
  }
  return text;
}

}  // namespace vandpublic
