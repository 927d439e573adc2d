// The members described in words, from the table: for the class declaration, the tool's listing
// and the reference pages alike.
#ifndef VANDPUBLIC_MEMBERS_MEMBER_TEXT_H
#define VANDPUBLIC_MEMBERS_MEMBER_TEXT_H

#include <string>
#include <vector>

#include "members/member_table.h"

namespace vandpublic {

// The signature in the notation of the classic languages:
// "FstrDES3(istr_Key As String ByRef, [iDataLen As Integer ByRef = 0]) As String".
std::string MemberSignature(const MemberInfo& member);

// One paragraph each, where there is something to say: what the member does, what it raises with
// its number and its own messages, what it leaves behind after a failure.
std::vector<std::string> DescribeMember(const MemberInfo& member);

// The examples as a shell session, a line each: "$ vandpublic call IsHex 1F", "True".
std::vector<std::string> ExampleLines(const MemberInfo& member);

// The default as the classic languages write it: "True", "8", """ """.
std::string DefaultText(const Parameter& parameter);

// "0x80040013"
std::string HexNumber(std::int32_t number);

// The text in lines of at most that many columns, broken at blanks.
std::vector<std::string> Wrap(const std::string& text, std::size_t columns);

}  // namespace vandpublic

#endif
