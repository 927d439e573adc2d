// Comparing outcomes before the contest.
#include "contest.h"

#include <cstdio>
#include <cstdlib>

namespace bench {

std::string Canonical(std::string_view text) { return std::string(text); }

std::string Canonical(std::u16string_view text) {
  std::string bytes;
  for (const char16_t unit : text) {
    if (unit > 0xFF) bytes += static_cast<char>(unit >> 8);
    bytes += static_cast<char>(unit);
  }
  return bytes;
}

std::string Canonical(std::span<const std::uint8_t> bytes) { return {bytes.begin(), bytes.end()}; }

std::string Canonical(bool truth) { return truth ? "True" : "False"; }

void Contest::Expect(const std::string& who, const std::string& outcome) {
  if (!has_expected_) {
    expected_ = outcome;
    has_expected_ = true;
  }
  if (outcome == expected_) return;
  std::fprintf(stderr, "%s of %zu: %s has another outcome\n", workload_.c_str(), size_,
               who.c_str());
  std::exit(1);
}

}  // namespace bench
