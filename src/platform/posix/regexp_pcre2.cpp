// The engine: a small cache of compiled patterns, Test and Replace.
#include "platform/posix/regexp_pcre2.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <vector>

#include "platform/posix/regexp_compiled.h"

namespace vandpublic {
namespace {

constexpr std::size_t kCacheSize = 16;

// How many units longer than its source a result may become. A few units of replacement can ask
// for any amount of memory: $` at every unit of a long source.
constexpr std::size_t kGrowthLimit = std::size_t{1} << 27;

// One pattern, handed over without a lock: whoever finds another thread at the slot leaves it.
class RegExpSlot {
 public:
  // Exchanges what the slot holds for a pattern or nothing; does nothing when another thread is at
  // it.
  void Exchange(std::unique_ptr<CompiledRegExp>& pattern) noexcept {
    if (busy_.test_and_set(std::memory_order_acquire)) return;
    held_.swap(pattern);
    busy_.clear(std::memory_order_release);
  }

 private:
  std::atomic_flag busy_;
  std::unique_ptr<CompiledRegExp> held_;
};

// A pattern in use is out of the cache, so that no two threads share its working memory. A thread
// that asks for it meanwhile gets one of its own. The last one given back waits in the slot, since
// most callers use one pattern again and again: two locks would be a third of a short test.
class RegExpCache {
 public:
  RegExpCache() { patterns_.reserve(kCacheSize + 1); }

  std::unique_ptr<CompiledRegExp> Take(const RegExpKey& key) {
    std::unique_ptr<CompiledRegExp> last;
    last_.Exchange(last);
    if (last != nullptr && last->IsFor(key)) return last;
    std::unique_ptr<CompiledRegExp> taken = TakeOlder(key, std::move(last));
    if (taken == nullptr) taken = std::make_unique<CompiledRegExp>(key);
    return taken;
  }

  void GiveBack(std::unique_ptr<CompiledRegExp> pattern) noexcept {
    last_.Exchange(pattern);
    if (pattern == nullptr) return;
    const std::lock_guard lock(mutex_);
    Keep(std::move(pattern));
  }

 private:
  // The pattern for this key if it is among the older ones, and another one to keep there.
  std::unique_ptr<CompiledRegExp> TakeOlder(const RegExpKey& key,
                                            std::unique_ptr<CompiledRegExp> other) {
    const std::lock_guard lock(mutex_);
    std::unique_ptr<CompiledRegExp> taken;
    const auto found = std::find_if(patterns_.rbegin(), patterns_.rend(),
                                    [&key](const auto& known) { return known->IsFor(key); });
    if (found != patterns_.rend()) {
      taken = std::move(*found);
      patterns_.erase(std::next(found).base());
    }
    if (other != nullptr) Keep(std::move(other));
    return taken;
  }

  // The most recent stands last.
  void Keep(std::unique_ptr<CompiledRegExp> pattern) noexcept {
    patterns_.push_back(std::move(pattern));
    if (patterns_.size() > kCacheSize) patterns_.erase(patterns_.begin());
  }

  RegExpSlot last_;
  std::mutex mutex_;
  std::vector<std::unique_ptr<CompiledRegExp>> patterns_;
};

// A pattern out of the cache for as long as this lives.
class BorrowedRegExp {
 public:
  BorrowedRegExp(RegExpCache& cache, const RegExpKey& key)
      : cache_(cache), pattern_(cache.Take(key)) {}
  ~BorrowedRegExp() { cache_.GiveBack(std::move(pattern_)); }
  BorrowedRegExp(const BorrowedRegExp&) = delete;
  BorrowedRegExp& operator=(const BorrowedRegExp&) = delete;

  CompiledRegExp& operator*() const noexcept { return *pattern_; }

 private:
  RegExpCache& cache_;
  std::unique_ptr<CompiledRegExp> pattern_;
};

class Pcre2RegExpEngine final : public RegExpEngine {
 public:
  bool Test(std::u16string_view pattern, RegExpOptions options,
            std::u16string_view source) override {
    const BorrowedRegExp compiled(cache_, {pattern, options.ignore_case, options.multiline});
    return RegExpSearch(*compiled, source).Find(0);
  }

  std::u16string Replace(std::u16string_view pattern, RegExpOptions options,
                         std::u16string_view source, std::u16string_view replacement) override {
    const BorrowedRegExp compiled(cache_, {pattern, options.ignore_case, options.multiline});
    RegExpSearch search(*compiled, source);
    const std::size_t limit = source.size() + kGrowthLimit;
    std::u16string result;
    result.reserve(source.size());
    std::size_t copied = 0;  // how much of the source the result stands for
    std::size_t start = 0;
    while (start <= source.size() && search.Find(start)) {
      const RegExpMatch match = search.match();
      const std::size_t from = match.bounds[0];
      const std::size_t to = match.bounds[1];
      AppendWithin(result, source.substr(copied, from - copied), limit);
      AppendReplacement(result, replacement, match, limit);
      copied = to;
      // After an empty match the next one is looked for one unit on. After any other it may follow
      // directly and be empty: a* in "baaac" gives an empty match before "c".
      start = from == to ? to + 1 : to;
      if (!options.global) break;
    }
    AppendWithin(result, source.substr(copied), limit);
    return result;
  }

 private:
  RegExpCache cache_;
};

}  // namespace

std::unique_ptr<RegExpEngine> MakeRegExpEngine() { return std::make_unique<Pcre2RegExpEngine>(); }

}  // namespace vandpublic
