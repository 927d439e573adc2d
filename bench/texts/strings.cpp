// Quotes, padding and blanks beside ICU's strings, which like ours are of 16-bit units.
#include <unicode/unistr.h>

#include <memory>

#include "contest.h"
#include "frame/clsPublic.h"

namespace bench {
namespace {

using vandpublic::clsPublic;
using vandpublic::Integer;
using vandpublic::String;

constexpr std::size_t kSizes[] = {16, 256, 1024, 16384};

std::u16string Repeated(std::u16string_view text, std::size_t units) {
  std::u16string repeated;
  while (repeated.size() < units)
    repeated += text;
  repeated.resize(units);
  return repeated;
}

icu::UnicodeString Icu(const std::u16string& text) {
  return {text.data(), static_cast<int>(text.size())};
}

std::u16string Plain(const icu::UnicodeString& text) {
  return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

void AddQuotes(std::size_t size, const std::shared_ptr<clsPublic>& object) {
  Contest contest("EncodeStrSQL", size);
  const std::u16string text = Repeated(u"it's a text with some quotes ", size);
  contest.Add("member", [=, source = String(text)] {
    return std::u16string(object->EncodeStrSQL(source).view());
  });
  contest.Add("ICU", [source = Icu(text)] {
    icu::UnicodeString copy = source;
    return Plain(copy.findAndReplace(u"'", u"''"));
  });
}

void AddPadding(std::size_t size, const std::shared_ptr<clsPublic>& object) {
  Contest contest("FstrPadLeft", size);
  const std::u16string text = Repeated(u"0123456789", size / 2);
  contest.Add("member", [=, source = String(text)] {
    const auto length = static_cast<Integer>(size);
    return std::u16string(object->FstrPadLeft(source, length, u"*").view());
  });
  contest.Add("ICU", [=, source = Icu(text)] {
    icu::UnicodeString copy = source;
    copy.padLeading(static_cast<int>(size), u'*');
    return Plain(copy);
  });
}

void AddBlanks(std::size_t size, const std::shared_ptr<clsPublic>& object) {
  Contest contest("FstrRidOfEmpty", size);
  const std::u16string text = Repeated(u"0A 1B 2C 3D 4E 5F\r\n", size);
  contest.Add("member", [=, source = String(text)]() mutable {
    return std::u16string(object->FstrRidOfEmpty(source).view());
  });
  contest.Add("ICU", [source = Icu(text)] {
    icu::UnicodeString copy = source;
    copy.findAndReplace(u"\u3000", u"").findAndReplace(u" ", u"").findAndReplace(u"\r\n", u"");
    return Plain(copy);
  });
}

}  // namespace

void AddStrings() {
  const auto object = std::make_shared<clsPublic>();
  for (const std::size_t size : kSizes) {
    AddQuotes(size, object);
    AddPadding(size, object);
    AddBlanks(size, object);
  }
}

}  // namespace bench
