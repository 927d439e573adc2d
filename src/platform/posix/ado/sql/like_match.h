// The LIKE operator.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_LIKE_MATCH_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_LIKE_MATCH_H

#include <string_view>

namespace vandpublic::ado {

struct LikeOptions {
  bool ignore_case = false;
  bool sets = false;    // "[a-f]" and "[^a-f]" stand for one unit of a set
  char16_t escape = 0;  // before a special unit, makes it an ordinary one; 0: there is none
};

// Whether the whole text fits the pattern: "%" stands for any run of units, "_" for any one. The
// time is bounded by the product of the lengths.
bool LikeMatches(std::u16string_view pattern, std::u16string_view text, LikeOptions options);

}  // namespace vandpublic::ado

#endif
