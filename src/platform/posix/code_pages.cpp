// Finds a code page by number and by the user's locale.
#include "platform/posix/code_pages.h"

#include <langinfo.h>
#include <locale.h>  // NOLINT(modernize-deprecated-headers): newlocale is POSIX

#include <algorithm>
#include <charconv>
#include <map>
#include <mutex>
#include <system_error>

#include "platform/posix/code_page_facts.h"
#include "platform/posix/code_page_tables.h"
#include "platform/posix/table_code_page.h"

namespace vandpublic {
namespace {

constexpr int kDefaultPage = 1252;

struct CharsetPage {
  std::string_view charset;
  int page;
};

// EUC-KR and GB2312 are the older, smaller charsets; the Windows page contains each of them whole.
constexpr CharsetPage kCharsets[] = {
    {"TIS-620", 874}, {"SHIFT_JIS", 932}, {"SJIS", 932}, {"WINDOWS-31J", 932}, {"GBK", 936},
    {"GB2312", 936},  {"EUC-KR", 949},    {"UHC", 949},  {"BIG5", 950},
};

// What stands before the number in the other names.
constexpr std::string_view kPrefixes[] = {"CP", "WINDOWS-"};

char Upper(char c) noexcept { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool SameName(std::string_view a, std::string_view b) noexcept {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Upper(x) == Upper(y); });
}

const CodePageFacts* FactsOf(int number) noexcept {
  for (const CodePageFacts& facts : AllCodePageFacts()) {
    if (facts.number == number) return &facts;
  }
  return nullptr;
}

class PageCache {
 public:
  std::shared_ptr<const CodePage> Get(const CodePageFacts& facts) {
    const std::scoped_lock lock(mutex_);
    std::shared_ptr<const CodePage>& page = pages_[facts.number];
    if (!page) page = MakeTableCodePage(facts.number, BuildCodePageTables(facts));
    return page;
  }

 private:
  std::mutex mutex_;
  std::map<int, std::shared_ptr<const CodePage>> pages_;
};

}  // namespace

std::shared_ptr<const CodePage> FindCodePage(int number) {
  static PageCache cache;
  const CodePageFacts* const facts = FactsOf(number);
  return facts == nullptr ? nullptr : cache.Get(*facts);
}

int CodePageOfCharset(std::string_view charset) noexcept {
  for (const CharsetPage& entry : kCharsets) {
    if (SameName(charset, entry.charset)) return entry.page;
  }
  for (const std::string_view prefix : kPrefixes) {
    if (!SameName(charset.substr(0, prefix.size()), prefix)) continue;
    const std::string_view digits = charset.substr(prefix.size());
    int page = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), page);
    const bool whole = error == std::errc() && end == digits.data() + digits.size();
    if (whole && FactsOf(page) != nullptr) return page;
  }
  return kDefaultPage;
}

int LocaleCodePage() {
  const locale_t locale = newlocale(LC_CTYPE_MASK, "", nullptr);
  if (locale == nullptr) return kDefaultPage;
  const int page = CodePageOfCharset(nl_langinfo_l(CODESET, locale));
  freelocale(locale);
  return page;
}

}  // namespace vandpublic
