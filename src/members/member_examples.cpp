// The table of examples, in the order of the slots.
#include "members/member_examples.h"

#include <algorithm>

namespace vandpublic {
namespace {

constexpr MemberExample kExamples[] = {
    {"FstrIsNullExt", "'   '", "True\n"},
    {"FstrIsNullExt", "'   ' ibln_SpaceIsNull=False", "False\n"},
    {"RegExpTest", R"('Order 4711' '\d{4}')", "True\n"},
    {"RegExpTest", "ABC b ibln_IgnorseCase=False", "False\n"},
    {"RegExpReplace", R"(2024-03-05 '(\d+)-(\d+)-(\d+)' '$3.$2.$1')", "05.03.2024\n"},
    {"RegExpReplace", "'a  b   c' ' +' ' '", "a b c\n"},
    {"RegExpReplace", "aaa a b ibln_Globle=False", "baa\n"},
    {"RegExpReplace", "abc '(' x",
     "0x80040002 clsCommon.RegExpReplace Public_Module (5020) - Expected ')' in regular "
     "expression\n"},
    {"ArraySize", R"(json:'{"bytes":"00FF10"}')", "3\n"},
    {"MsgFmtTextToHex", "A1", "4131\n"},
    {"MsgFmtTextToDec", "AB", "16706\n"},
    {"BitToHex", "ibyt_Bit3=1 ibyt_Bit0=1", "9\n"},
    {"HexToBit", "A --refs",
     "rbyt_Bit0 = 0\n"
     "rbyt_Bit1 = 1\n"
     "rbyt_Bit2 = 0\n"
     "rbyt_Bit3 = 1\n"},
    {"HexToDec", "7FFFFFFF", "2147483647\n"},
    {"HexToDec", "80000000", "0x80040013 clsCommon.HexToDec\n"},
    {"BitToMsgFmtText", "1 0 0 0 0 0 1", "A\n"},
    {"DecToMsgFmtText", "16706", "AB\n"},
    {"IsHex", "1F", "True\n"},
    {"HexToMsgFmtText", "414243", "ABC\n"},
    {"GetSettingFromIni", "none.ini Main Host localhost", "localhost\n"},
    {"EncodeStrSQL", R"("O'Brien")", "O''Brien\n"},
    {"DecodeStrSQL", R"("O''Brien")", "O'Brien\n"},
    {"DispBytes", "0123456789ABCDEF", "01 23 45 67 89 AB CD EF\n"},
    {"FstrVbStrToHexStr", "'A1 \u20ac' --codepage 1252", "41312080\n"},
    {"FstrDES3", "0123456789ABCDEFFEDCBA9876543210 0123456789ABCDE7", "7F 1D 0A 77 82 6B 8A FF\n"},
    {"FstrUDES3", "0123456789ABCDEFFEDCBA9876543210 7F1D0A77826B8AFF", "01 23 45 67 89 AB CD E7\n"},
    {"FstrDiversifyKey", "0123456789ABCDEFFEDCBA9876543210 0000000000000001",
     "63 FA F3 6D 19 57 1F CE 77 08 74 48 62 9E BC 92\n"},
    {"FstrTMAC",
     "0123456789ABCDEFFEDCBA9876543210 4E6F77206973207468652074696D6520666F7220616C6C20 "
     "0000000000000000",
     "E9 08 62 30\n"},
    {"FstrPadToSpecLen", "42 6 0 LEFTPAD", "000042\n"},
    {"FstrPadLeft", "42 6 0", "000042\n"},
    {"FstrPadRight", "42 6 0", "420000\n"},
    {"FstrActualLen", "\u4e2dA --codepage 936", "3\n"},
    {"FstrHexStrToByte", "1F2 4", "01F20000\n"},
    {"FillByteArrWithHexStr", "'' '1 23 45' --refs",
     "True\n"
     "ArrToBeFill = 012345\n"
     "istr_HexStr = 012345\n"
     "rvar_Pos = 3\n"
     "rstr_ErrDesc =\n"},
    {"FstrLeftByByteLen",
     "\u4e2d\u6587"
     "A 3 --codepage 936",
     "\u4e2d\n"},
    {"DES", "133457799BBCDFF1 0123456789ABCDEF 8 :8 --refs",
     "True\n"
     "abyt_Key = 133457799BBCDFF1\n"
     "abyt_Source = 0123456789ABCDEF\n"
     "iint_SrcLen = 8\n"
     "abyt_Result = 85E813540F0AB405\n"
     "rstr_ErrDesc =\n"},
    {"TMAC",
     "0123456789ABCDEFFEDCBA9876543210 4E6F77206973207468652074696D6520666F7220616C6C20 24 :8 :4 "
     "--refs",
     "True\n"
     "rabyt_Key = 0123456789ABCDEFFEDCBA9876543210\n"
     "rabyt_Src = 4E6F77206973207468652074696D6520666F7220616C6C20\n"
     "iint_SrcLen = 24\n"
     "rabyt_Init = 0000000000000000\n"
     "rabyt_MAC = E9086230\n"
     "rstr_ErrDesc =\n"},
    {"HexXor", "FF00 0F0F", "F0 0F\n"},
};

}  // namespace

std::span<const MemberExample> AllExamples() noexcept { return kExamples; }

std::span<const MemberExample> ExamplesOf(const MemberInfo& member) noexcept {
  if (member.kind != SlotKind::Method) return {};
  const auto is_its_own = [&](const MemberExample& e) { return e.member == member.name; };
  const auto* const first = std::find_if(std::begin(kExamples), std::end(kExamples), is_its_own);
  const auto* const last = std::find_if_not(first, std::end(kExamples), is_its_own);
  return {first, last};
}

}  // namespace vandpublic
