// Calls of the tool with what they print, for the tool's pages and the reference. They are run as
// tests.
#ifndef VANDPUBLIC_MEMBERS_MEMBER_EXAMPLES_H
#define VANDPUBLIC_MEMBERS_MEMBER_EXAMPLES_H

#include <span>
#include <string_view>

#include "members/member_table.h"

namespace vandpublic {

struct MemberExample {
  std::string_view member;
  std::string_view command;  // for a POSIX shell, behind "vandpublic call MEMBER "
  std::string_view output;   // with a line end behind each line, without blanks in front of it
};

std::span<const MemberExample> AllExamples() noexcept;
// The examples of a member, which may be none.
std::span<const MemberExample> ExamplesOf(const MemberInfo& member) noexcept;

}  // namespace vandpublic

#endif
