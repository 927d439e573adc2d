// The pages docs/reference/*.md.
#include "reference_pages.h"

#include <algorithm>
#include <sstream>

#include "members/member_table.h"
#include "members/member_text.h"

namespace vandpublic::generate {
namespace {

constexpr std::string_view kNotice =
    "<!-- Generated from src/members/member_table.cpp by scripts/generate.sh. -->\n\n";

void WriteMember(std::ostream& out, const MemberInfo& member, std::size_t slot) {
  out << "## " << member.name;
  if (member.kind == SlotKind::PropertyPut) out << " (write)";
  if (member.kind == SlotKind::PropertyGet) out << " (read)";
  out << "\n\nSlot " << slot << ", dispatch id " << DispatchId(slot - 1) << ".";
  out << "\n\n    " << MemberSignature(member) << "\n";
  for (const std::string& paragraph : DescribeMember(member))
    out << "\n" << paragraph << "\n";
  const auto examples = ExampleLines(member);
  if (!examples.empty()) out << "\n";
  for (const std::string& line : examples)
    out << "    " << line << "\n";
  out << "\n";
}

Page MembersPage() {
  std::ostringstream out;
  out << kNotice
      << "# The members of clsPublic\n\n"
         "In the order of the interface's slots. `ByRef` marks what the caller's variable "
         "receives; brackets mark what can be left out. Blanks at the ends of lines are not shown "
         "in the examples.\n\n";
  std::size_t slot = 0;
  for (const MemberInfo& member : MemberTable())
    WriteMember(out, member, ++slot);
  return {"members.md", out.str()};
}

Page ErrorsPage() {
  std::vector<const MemberInfo*> raising;
  for (const MemberInfo& member : MemberTable()) {
    if (member.code != 0) raising.push_back(&member);
  }
  std::stable_sort(raising.begin(), raising.end(),
                   [](const auto* a, const auto* b) { return a->code < b->code; });
  std::ostringstream out;
  out << kNotice
      << "# Error numbers\n\n"
         "What a failing member raises. Three numbers are shared by two members each; the source "
         "tells them apart.\n\n"
         "| Number | Decimal | Member | Source |\n|---|---|---|---|\n";
  for (const MemberInfo* member : raising) {
    const std::int32_t number = ErrorNumber(member->code);
    out << "| " << HexNumber(number) << " | " << number << " | " << member->name << " | clsCommon."
        << member->LogName() << " |\n";
  }
  return {"errors.md", out.str()};
}

}  // namespace

std::vector<Page> ReferencePages() { return {MembersPage(), ErrorsPage()}; }

}  // namespace vandpublic::generate
