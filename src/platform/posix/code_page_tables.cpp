// Asks the C library's converter once for every byte and byte pair; the way back is the inversion
// of the answers. That alone keeps out the library's own ideas for the way back (transliteration,
// composed Vietnamese and Hebrew letters, the yen sign as a backslash): a unit is in the page
// exactly when some code stands for it.
#include "platform/posix/code_page_tables.h"

#include <iconv.h>

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string>

#include "runtime/errors.h"

namespace vandpublic {
namespace {

constexpr char16_t kUndefined = u'?';
constexpr unsigned kAllBytes = 256;

class Converter {
 public:
  explicit Converter(const char* charset) : handle_(iconv_open("WCHAR_T", charset)) {
    if (handle_ != Invalid()) return;
    std::u16string text = u"The C library has no converter for ";
    for (const char* c = charset; *c != '\0'; ++c)
      text.push_back(static_cast<char16_t>(*c));
    throw AutomationError(static_cast<Long>(FaultNumber::CannotCreateObject), u"Public_Module",
                          std::move(text));
  }
  ~Converter() { iconv_close(handle_); }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  // The one unit for the bytes (one or two), if they are exactly one character.
  std::optional<char16_t> Unit(std::initializer_list<unsigned> bytes) const {
    char input[2] = {};
    std::transform(bytes.begin(), bytes.end(), input,
                   [](unsigned b) { return static_cast<char>(static_cast<unsigned char>(b)); });
    wchar_t output[4] = {};
    char* in = input;
    char* out = reinterpret_cast<char*>(output);
    std::size_t in_left = bytes.size();
    std::size_t out_left = sizeof output;
    const bool converted = iconv(handle_, &in, &in_left, &out, &out_left) == 0;
    // 1255 and 1258 hold a letter back in case a mark follows; this hands it out, and leaves any
    // converter fresh for the next call.
    iconv(handle_, nullptr, nullptr, &out, &out_left);
    if (!converted || out_left != sizeof output - sizeof output[0]) return std::nullopt;
    return static_cast<char16_t>(output[0]);  // no page has a character past U+FFFF
  }

 private:
  static iconv_t Invalid() noexcept {
    return reinterpret_cast<iconv_t>(-1);  // NOLINT(performance-no-int-to-ptr): POSIX says so
  }

  iconv_t handle_;
};

template <typename Action>
void ForEach(ByteRange range, const Action& action) {
  for (unsigned byte = range.first; byte <= range.last; ++byte)
    action(byte);
}

void AskConverter(const CodePageFacts& facts, CodePageTables& tables) {
  const Converter converter(facts.charset);
  for (unsigned byte = 0; byte < kAllBytes; ++byte) {
    tables.singles[byte] = converter.Unit({byte}).value_or(kUndefined);
  }
  for (const ByteRange leads : facts.leads) {
    ForEach(leads, [&](unsigned lead) {
      for (unsigned trail = 0; trail < kAllBytes; ++trail) {
        tables.pairs[lead * kAllBytes + trail] = converter.Unit({lead, trail}).value_or(kUndefined);
      }
    });
  }
}

void CorrectSingles(const CodePageFacts& facts, CodePageTables& tables) {
  for (const SingleRun& run : facts.singles) {
    ForEach({run.first, run.last}, [&](unsigned byte) {
      tables.singles[byte] = static_cast<char16_t>(run.unit + (byte - run.first));
    });
  }
  for (char16_t control = 0x80; control <= 0x9F; ++control) {
    if (tables.singles[control] == kUndefined) tables.singles[control] = control;
  }
  for (const ByteRange leads : facts.leads) {
    ForEach(leads, [&](unsigned lead) { tables.singles[lead] = CodePageTables::kLeadMark; });
  }
}

void CorrectPairs(const CodePageFacts& facts, CodePageTables& tables) {
  for (const PairBlock& block : facts.pairs) {
    char16_t unit = block.unit;
    ForEach(block.leads, [&](unsigned lead) {
      const auto put = [&](unsigned trail) { tables.pairs[lead * kAllBytes + trail] = unit++; };
      ForEach(block.low, put);
      ForEach(block.high, put);
    });
  }
}

bool IsDuplicate(const CodePageFacts& facts, std::size_t code) {
  return std::any_of(facts.duplicates.begin(), facts.duplicates.end(),
                     [&](CodeRange range) { return code >= range.first && code <= range.last; });
}

// Codes come in ascending order and the first one for a unit stays, so the duplicates come last.
void Invert(const CodePageFacts& facts, CodePageTables& tables) {
  tables.codes.assign(kAllUnits, kReplacement);
  const auto put = [&](char16_t unit, std::size_t code) {
    if (unit == kUndefined || tables.codes[unit] != kReplacement) return;
    tables.codes[unit] = static_cast<std::uint16_t>(code);
  };
  for (std::size_t byte = 0; byte < kAllBytes; ++byte) {
    if (tables.singles[byte] != CodePageTables::kLeadMark) put(tables.singles[byte], byte);
  }
  for (const bool duplicates : {false, true}) {
    for (std::size_t code = 0; code < tables.pairs.size(); ++code) {
      if (IsDuplicate(facts, code) == duplicates) put(tables.pairs[code], code);
    }
  }
}

}  // namespace

CodePageTables BuildCodePageTables(const CodePageFacts& facts) {
  CodePageTables tables;
  if (!facts.leads.empty()) tables.pairs.assign(kAllUnits, kUndefined);
  if (facts.charset != nullptr) {
    AskConverter(facts, tables);
  } else {
    for (unsigned byte = 0; byte < kAllBytes; ++byte) {
      tables.singles[byte] = static_cast<char16_t>(byte);
    }
  }
  CorrectSingles(facts, tables);
  CorrectPairs(facts, tables);
  Invert(facts, tables);
  return tables;
}

}  // namespace vandpublic
