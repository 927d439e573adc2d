// One compiled regular expression and the search with it, on PCRE2's 16-bit library.
#ifndef VANDPUBLIC_PLATFORM_POSIX_REGEXP_COMPILED_H
#define VANDPUBLIC_PLATFORM_POSIX_REGEXP_COMPILED_H

#ifndef PCRE2_CODE_UNIT_WIDTH
#define PCRE2_CODE_UNIT_WIDTH 16  // the library's header asks for it
#endif
#include <pcre2.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/posix/regexp_replacement.h"
#include "platform/posix/regexp_watch.h"

namespace vandpublic {

// What a compiled pattern depends on.
struct RegExpKey {
  std::u16string_view pattern;
  bool ignore_case = false;
  bool multiline = false;
};

// Holds the working memory of a search as well, so one thread at a time may use it. It stays where
// it is, since the library knows its address.
class CompiledRegExp {
 public:
  // Raises 5017 to 5021 for a pattern outside the dialect, 5017 also for one that is too large.
  explicit CompiledRegExp(const RegExpKey& key);
  CompiledRegExp(const CompiledRegExp&) = delete;
  CompiledRegExp& operator=(const CompiledRegExp&) = delete;

  bool IsFor(const RegExpKey& key) const noexcept;

 private:
  friend class RegExpSearch;

  struct Free {
    void operator()(pcre2_code* code) const noexcept { pcre2_code_free(code); }
    void operator()(pcre2_match_data* data) const noexcept { pcre2_match_data_free(data); }
    void operator()(pcre2_general_context* context) const noexcept {
      pcre2_general_context_free(context);
    }
    void operator()(pcre2_match_context* context) const noexcept {
      pcre2_match_context_free(context);
    }
    void operator()(pcre2_compile_context* context) const noexcept {
      pcre2_compile_context_free(context);
    }
  };

  static std::unique_ptr<pcre2_compile_context, Free> MakeRules();
  void CompileToMachineCodeIfWorthwhile(std::size_t units) noexcept;
  void MakeMatchData();

  std::u16string pattern_;
  bool ignore_case_;
  bool multiline_;
  std::unique_ptr<pcre2_code, Free> code_;
  std::unique_ptr<pcre2_match_context, Free> context_;
  std::size_t largest_block_ = 0;  // the largest the working memory has asked for, in bytes
  std::unique_ptr<pcre2_general_context, Free> memory_;  // of the working memory
  std::unique_ptr<pcre2_match_data, Free> data_;         // empty after a search that took much
  std::uint32_t match_options_ = 0;
  std::size_t interpreted_units_ = 0;  // how much has been searched without machine code
  bool machine_code_tried_ = false;
};

// A search through one subject, from its first match to its last. Both must outlive it.
class RegExpSearch {
 public:
  RegExpSearch(CompiledRegExp& compiled, std::u16string_view subject);
  ~RegExpSearch();
  RegExpSearch(const RegExpSearch&) = delete;
  RegExpSearch& operator=(const RegExpSearch&) = delete;

  // Finds the first match at or after `start` (0 to the subject's size), false if there is none.
  // Raises 28 when that takes too many steps, too much memory or too long.
  bool Find(std::size_t start);

  // What Find has found, valid until the next Find.
  RegExpMatch match() const noexcept;

 private:
  int Match(std::size_t start) noexcept;

  CompiledRegExp& compiled_;
  std::u16string_view subject_;
  RegExpWatch watch_;
};

}  // namespace vandpublic

#endif
