// Compiles a translated pattern with PCRE2 and searches with it, under limits.
//
// A pattern can make a backtracking matcher try combinations for years. Three limits stop it: the
// number of backtracking steps from one start, the memory for them (on the heap, so that the
// thread's stack stays as it is), and processor time. The library knows nothing of time; it
// calls us back at the callouts that the translator has put where it matters.
#include "platform/posix/regexp_compiled.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "platform/posix/regexp_dialect.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

// Some 0.1 to 0.3 s of backtracking.
constexpr std::uint32_t kStepLimit = 10'000'000;

// Each step copies what the groups hold; this many groups double its cost.
constexpr std::uint32_t kGroupsPerStep = 16;

// Enough to go through a million units of text by alternatives such as (a|b)*. The library starts
// with 20 KiB and doubles, so the last doubling ends exactly here.
constexpr std::uint32_t kHeapLimitKibibytes = 20 << 14;

// The library keeps the memory of a search for the next one; more than this is given back.
constexpr std::size_t kMemoryWorthKeeping = 0x40000;

// Machine code takes 3 us and some 0.2 us for each unit of the pattern to make, and saves 1 to 10
// ns for each unit searched. It is made when the pattern has been searched with for about that long
// without it.
constexpr std::size_t kUnitsWorthMachineCode = 1024;
constexpr std::size_t kUnitsWorthEachPatternUnit = 64;
constexpr std::size_t kUnitsPerCall = 32;  // what a call costs apart from its subject

PCRE2_SPTR AsUnits(std::u16string_view text) noexcept {
  // An empty view may have no address, which not every version of the library takes.
  return reinterpret_cast<PCRE2_SPTR>(text.empty() ? u"" : text.data());
}

template <typename T>
T* NotNull(T* made) {
  if (made == nullptr) RaiseFault(FaultNumber::OutOfMemory);
  return made;
}

void* AllocateNoting(std::size_t size, void* largest) noexcept {
  std::size_t& noted = *static_cast<std::size_t*>(largest);
  noted = std::max(noted, size);
  return std::malloc(size);
}

void Release(void* block, void*) noexcept { std::free(block); }

int StopWhenOver(pcre2_callout_block*, void* watch) noexcept {
  return static_cast<RegExpWatch*>(watch)->IsOver() ? PCRE2_ERROR_MATCHLIMIT : 0;
}

std::uint32_t CompileOptions(RegExpFolding folding) noexcept {
  constexpr std::uint32_t kAlways = PCRE2_MATCH_UNSET_BACKREF;
  switch (folding) {
    case RegExpFolding::None:
      return kAlways;
    case RegExpFolding::Ascii:
      return kAlways | PCRE2_CASELESS;
    default:
      return kAlways | PCRE2_CASELESS | PCRE2_UCP;
  }
}

}  // namespace

std::unique_ptr<pcre2_compile_context, CompiledRegExp::Free> CompiledRegExp::MakeRules() {
  std::unique_ptr<pcre2_compile_context, Free> rules(
      NotNull(pcre2_compile_context_create(nullptr)));
  pcre2_set_newline(rules.get(), PCRE2_NEWLINE_LF);
  return rules;
}

CompiledRegExp::CompiledRegExp(const RegExpKey& key)
    : pattern_(key.pattern), ignore_case_(key.ignore_case), multiline_(key.multiline) {
  const TranslatedRegExp translated = TranslateRegExp(pattern_, ignore_case_, multiline_);
  // One for all patterns and threads: compiling only reads it.
  static const std::unique_ptr<pcre2_compile_context, Free> rules = MakeRules();
  int error = 0;
  std::size_t error_at = 0;
  code_.reset(pcre2_compile(AsUnits(translated.text), translated.text.size(),
                            CompileOptions(translated.folding), &error, &error_at, rules.get()));
  // The translator writes nothing that is wrong, but it may write more than the library can hold.
  if (code_ == nullptr) RaiseFault(FaultNumber::RegExpSyntaxError);
  memory_.reset(NotNull(pcre2_general_context_create(AllocateNoting, Release, &largest_block_)));
  MakeMatchData();
  context_.reset(NotNull(pcre2_match_context_create(nullptr)));
  pcre2_set_heap_limit(context_.get(), kHeapLimitKibibytes);
  pcre2_set_match_limit(context_.get(),
                        kStepLimit / (1 + pcre2_get_ovector_count(data_.get()) / kGroupsPerStep));
}

bool CompiledRegExp::IsFor(const RegExpKey& key) const noexcept {
  if (ignore_case_ != key.ignore_case || multiline_ != key.multiline) return false;
  if (pattern_.size() != key.pattern.size()) return false;
  // The library compares 16-bit units one by one, memory many at a time.
  return key.pattern.empty() ||
         std::memcmp(pattern_.data(), key.pattern.data(), 2 * pattern_.size()) == 0;
}

void CompiledRegExp::MakeMatchData() {
  data_.reset(NotNull(pcre2_match_data_create_from_pattern(code_.get(), memory_.get())));
}

// A failure only means that the interpreter goes on: the pattern is too large, or the system
// forbids memory that is written and then executed.
void CompiledRegExp::CompileToMachineCodeIfWorthwhile(std::size_t units) noexcept {
  if (machine_code_tried_) return;
  interpreted_units_ += units + kUnitsPerCall;
  const std::size_t cost = kUnitsWorthMachineCode + kUnitsWorthEachPatternUnit * pattern_.size();
  if (interpreted_units_ < cost) return;
  machine_code_tried_ = true;
  pcre2_jit_compile(code_.get(), PCRE2_JIT_COMPLETE);
}

RegExpSearch::RegExpSearch(CompiledRegExp& compiled, std::u16string_view subject)
    : compiled_(compiled), subject_(subject), watch_(subject.size()) {
  if (compiled_.data_ == nullptr) compiled_.MakeMatchData();
  compiled_.CompileToMachineCodeIfWorthwhile(subject.size());
  pcre2_set_callout(compiled_.context_.get(), StopWhenOver, &watch_);
}

RegExpSearch::~RegExpSearch() {
  if (compiled_.largest_block_ <= kMemoryWorthKeeping) return;
  compiled_.data_.reset();
  compiled_.largest_block_ = 0;
}

int RegExpSearch::Match(std::size_t start) noexcept {
  return pcre2_match(compiled_.code_.get(), AsUnits(subject_), subject_.size(), start,
                     compiled_.match_options_, compiled_.data_.get(), compiled_.context_.get());
}

bool RegExpSearch::Find(std::size_t start) {
  int result = Match(start);
  if (result == PCRE2_ERROR_JIT_STACKLIMIT) {
    // Machine code has 32 KiB of the thread's stack for backtracking and no more. The interpreter
    // has the heap; a pattern that once needed it will need it again.
    compiled_.match_options_ |= PCRE2_NO_JIT;
    result = Match(start);
  }
  if (result == PCRE2_ERROR_NOMATCH) return false;
  if (result == PCRE2_ERROR_NOMEMORY) RaiseFault(FaultNumber::OutOfMemory);
  if (result < 0) RaiseFault(FaultNumber::OutOfStackSpace);
  return true;
}

RegExpMatch RegExpSearch::match() const noexcept {
  pcre2_match_data* const data = compiled_.data_.get();
  const std::size_t groups = pcre2_get_ovector_count(data);
  return {subject_, {pcre2_get_ovector_pointer(data), groups * 2}};
}

}  // namespace vandpublic
