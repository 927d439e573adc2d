// Damage by a generator with a fixed seed.
#include "support/damage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>

#include "runtime/errors.h"
#include "support/slow_build.h"

namespace vandpublic::ado {
namespace {

std::size_t Below(std::size_t bound, std::mt19937& random) {
  return bound == 0 ? 0 : random() % bound;
}

// Most of what is interesting stands at the beginning of a file, or of one of its pages.
std::size_t Position(const std::string& content, std::mt19937& random) {
  switch (Below(3, random)) {
    case 0:
      return Below(std::min<std::size_t>(content.size(), 1024), random);
    case 1: {
      const std::size_t page = Below(content.size() / 2048 + 1, random) * 2048;
      return std::min(page + Below(64, random), content.size() - 1);
    }
    default:
      return Below(content.size(), random);
  }
}

void DamageOnce(std::string& content, std::mt19937& random) {
  const std::size_t at = Position(content, random);
  const std::size_t room = content.size() - at;
  switch (Below(6, random)) {
    case 0:
      content[at] = static_cast<char>(content[at] ^ (1 << Below(8, random)));
      break;
    case 1:
      content[at] = static_cast<char>(random());
      break;
    case 2:
      std::fill_n(content.begin() + static_cast<std::ptrdiff_t>(at), std::min<std::size_t>(room, 4),
                  '\xFF');
      break;
    case 3:
      std::fill_n(content.begin() + static_cast<std::ptrdiff_t>(at),
                  std::min<std::size_t>(room, 1 + Below(64, random)), '\0');
      break;
    case 4: {
      const std::string piece =
          content.substr(Below(content.size(), random), 1 + Below(64, random));
      content.replace(at, std::min(room, piece.size()), piece.substr(0, room));
      break;
    }
    default:
      if (Below(4, random) == 0 && at > 0) content.resize(at);
      break;
  }
}

}  // namespace

std::string Damaged(const std::string& content, std::mt19937& random) {
  std::string damaged = content;
  for (std::size_t count = 1 + Below(8, random); count > 0; --count)
    DamageOnce(damaged, random);
  return damaged;
}

void ExpectOrderlyEnd(const std::string& what, const std::function<void()>& action) {
  const std::clock_t start = std::clock();
  try {
    action();
  } catch (const AutomationError& error) {
    EXPECT_FALSE(error.description().empty()) << what;
  } catch (const std::exception& error) {
    ADD_FAILURE() << what << ": " << error.what();
  }
  constexpr std::clock_t kMostSeconds = kSlowBuild ? 5 : 1;
  EXPECT_LT(std::clock() - start, kMostSeconds * CLOCKS_PER_SEC) << what;
}

}  // namespace vandpublic::ado
