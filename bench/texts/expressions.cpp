// Regular expressions, in two ways: patterns that are new in every call, and one pattern over and
// over. PCRE2 is used plainly: the pattern as it is, no limits, one match (or substitution).
//
// PCRE2's machine code counts where patterns are known. In a call that compiles its pattern it has
// to be made first, and is a contestant of its own ("PCRE2 JIT").
#define PCRE2_CODE_UNIT_WIDTH 16
#include <pcre2.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <regex>
#include <vector>

#include "contest.h"
#include "frame/clsPublic.h"
#include "platform/posix/regexp_pcre2.h"

namespace bench {
namespace {

using vandpublic::String;

struct Expression {
  const char* name;
  const char16_t* pattern;
  const char16_t* text;  // repeated up to the size
  std::size_t size;
  const char16_t* replacement;  // null: a test
};

// Patterns that mean the same to all contestants. The same cases run with the pattern known and
// with it new in the call.
constexpr Expression kExpressions[] = {
    {"short field", u"^[0-9A-F]{8}$", u"0123ABCD", 8, nullptr},
    {"date", u"(\\d{4})-(\\d{2})-(\\d{2})", u"2024-03-05", 10, u"$3.$2.$1"},
    {"all digits", u"^[0-9A-F]+$", u"0123456789ABCDEF", 1024, nullptr},
    {"word", u"\\bneedle\\b", u"hay in a stack, needles, too; ", 1024, nullptr},
    {"letters and digits", u"[A-Z]+[0-9]+x", u"hay in A STACK 17, Needle 4711; ", 1024, nullptr},
    {"alternatives", u"(cat|dog|bird)s", u"a cat, a dog and a bird; ", 1024, nullptr},
    {"words replaced", u"[a-z]+", u"hay in a stack, needles, too; ", 1024, u"<$&>"},
    {"all digits", u"^[0-9A-F]+$", u"0123456789ABCDEF", 30000, nullptr},
    {"letters and digits", u"[A-Z]+[0-9]+x", u"hay in A STACK 17, Needle 4711; ", 30000, nullptr},
    {"words replaced", u"[a-z]+", u"hay in a stack, needles, too; ", 30000, u"<$&>"},
};

std::u16string Subject(const Expression& expression) {
  std::u16string text;
  while (text.size() < expression.size)
    text += expression.text;
  text.resize(expression.size);
  return text;
}

// As many patterns with the same matches as the cache of compiled patterns cannot hold.
std::vector<std::u16string> Variations(const std::u16string& pattern) {
  std::vector<std::u16string> all;
  for (char16_t c = 0; c < 64; ++c)
    all.push_back(pattern + u"|@" + static_cast<char16_t>(u'A' + c % 26) +
                  static_cast<char16_t>(u'a' + c / 26) + u"@");
  return all;
}

// The patterns in turn.
class Rotation {
 public:
  explicit Rotation(std::vector<std::u16string> patterns) : patterns_(std::move(patterns)) {}
  const std::u16string& Next() { return patterns_[next_++ % patterns_.size()]; }

 private:
  std::vector<std::u16string> patterns_;
  std::size_t next_ = 0;
};

PCRE2_SPTR Units(const std::u16string& text) { return reinterpret_cast<PCRE2_SPTR>(text.data()); }

// A pattern compiled plainly, with its match data.
class Plain {
 public:
  Plain(const std::u16string& pattern, bool machine_code) {
    int error = 0;
    std::size_t error_at = 0;
    code_.reset(pcre2_compile(Units(pattern), pattern.size(), 0, &error, &error_at, nullptr));
    if (code_ == nullptr) std::abort();
    if (machine_code) pcre2_jit_compile(code_.get(), PCRE2_JIT_COMPLETE);
    data_.reset(pcre2_match_data_create_from_pattern(code_.get(), nullptr));
  }

  bool Test(const std::u16string& text) const {
    return pcre2_match(code_.get(), Units(text), text.size(), 0, 0, data_.get(), nullptr) >= 0;
  }
  std::u16string Replace(const std::u16string& text, const std::u16string& replacement) const {
    std::u16string result(4 * text.size() + 64, u'\0');
    std::size_t size = result.size();
    pcre2_substitute(code_.get(), Units(text), text.size(), 0, PCRE2_SUBSTITUTE_GLOBAL, data_.get(),
                     nullptr, Units(replacement), replacement.size(),
                     reinterpret_cast<PCRE2_UCHAR*>(result.data()), &size);
    result.resize(size);
    return result;
  }

 private:
  struct Free {
    void operator()(pcre2_code* code) const { pcre2_code_free(code); }
    void operator()(pcre2_match_data* data) const { pcre2_match_data_free(data); }
  };
  std::unique_ptr<pcre2_code, Free> code_;
  std::unique_ptr<pcre2_match_data, Free> data_;
};

// The standard library's.
class Standard {
 public:
  explicit Standard(const std::u16string& pattern) : regex_(Wide(pattern)) {}

  static std::wstring Wide(const std::u16string& text) { return {text.begin(), text.end()}; }

  bool Test(const std::wstring& text) const { return std::regex_search(text, regex_); }
  std::u16string Replace(const std::wstring& text, const std::wstring& replacement) const {
    const std::wstring result = std::regex_replace(text, regex_, replacement);
    return {result.begin(), result.end()};
  }

 private:
  std::wregex regex_;
};

// PCRE2 writes "$0" for what we, and the standard library, write "$&".
std::u16string PlainReplacement(std::u16string replacement) {
  const std::size_t whole = replacement.find(u"$&");
  if (whole != std::u16string::npos) replacement.replace(whole, 2, u"$0");
  return replacement;
}

struct Job {
  std::u16string text;
  std::u16string replacement;
  std::wstring wide_text;
  std::wstring wide_replacement;
  bool tests = true;

  explicit Job(const Expression& expression) : text(Subject(expression)) {
    wide_text = Standard::Wide(text);
    tests = expression.replacement == nullptr;
    if (tests) return;
    replacement = expression.replacement;
    wide_replacement = Standard::Wide(replacement);
    plain_replacement = PlainReplacement(replacement);
  }
  std::u16string plain_replacement;

  std::u16string By(vandpublic::RegExpEngine& engine, const std::u16string& pattern) const {
    constexpr vandpublic::RegExpOptions kOptions{true, false, false};
    if (tests) return Truth(engine.Test(pattern, kOptions, text));
    return engine.Replace(pattern, kOptions, text, replacement);
  }
  std::u16string By(const Plain& plain) const {
    return tests ? Truth(plain.Test(text)) : plain.Replace(text, plain_replacement);
  }
  std::u16string By(const Standard& standard) const {
    return tests ? Truth(standard.Test(wide_text)) : standard.Replace(wide_text, wide_replacement);
  }
  static std::u16string Truth(bool truth) { return truth ? u"1" : u"0"; }
};

void AddNew(const Expression& expression) {
  Contest contest(std::string("new pattern, ") + expression.name, expression.size);
  const Job job(expression);
  Rotation rotation(Variations(expression.pattern));
  const std::shared_ptr<vandpublic::RegExpEngine> engine = vandpublic::MakeRegExpEngine();
  contest.Add("engine", [=]() mutable { return job.By(*engine, rotation.Next()); });
  for (const bool machine_code : {false, true}) {
    contest.Add(machine_code ? "PCRE2 JIT" : "PCRE2",
                [=]() mutable { return job.By(Plain(rotation.Next(), machine_code)); });
  }
  contest.Add("std::wregex", [=]() mutable { return job.By(Standard(rotation.Next())); });
}

void AddKnown(const Expression& expression) {
  Contest contest(std::string("known pattern, ") + expression.name, expression.size);
  const Job job(expression);
  const std::u16string pattern = expression.pattern;
  const std::shared_ptr<vandpublic::RegExpEngine> engine = vandpublic::MakeRegExpEngine();
  contest.Add("engine", [=] { return job.By(*engine, pattern); });
  const auto object = std::make_shared<vandpublic::clsPublic>();
  contest.Add("member",
              [=, source = String(job.text), known = String(pattern),
               replacement = String(job.replacement)]() -> std::u16string {
                if (job.tests)
                  return Job::Truth(object->RegExpTest(source, known, true, false, false));
                const String result =
                    object->RegExpReplace(source, known, replacement, true, false, false);
                return std::u16string(result.view());
              });
  for (const bool machine_code : {false, true}) {
    contest.Add(
        machine_code ? "PCRE2 JIT" : "PCRE2",
        [job, plain = std::make_shared<Plain>(pattern, machine_code)] { return job.By(*plain); });
  }
  contest.Add("std::wregex", [job, standard = Standard(pattern)] { return job.By(standard); });
}

}  // namespace

void AddExpressions() {
  for (const Expression& expression : kExpressions) {
    AddNew(expression);
    AddKnown(expression);
  }
}

}  // namespace bench
