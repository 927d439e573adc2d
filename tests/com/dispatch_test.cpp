// Late-bound calls: how arguments may be given, and what automation refuses.
#include <cmath>

#include "com/guids.h"
#include "com/server_fixture.h"

namespace vandpublic {
namespace {

using Dispatch = ComTest;

TEST_F(Dispatch, names_are_matched_without_regard_to_case) {
  EXPECT_EQ(IdOf(object(), L"hextodec"), IdOf(object(), L"HexToDec"));
  EXPECT_EQ(IdOf(object(), L"LogFileFullName"), 21);
  EXPECT_EQ(IdOf(object(), L"NoSuchMember"), DISPID_UNKNOWN);
  EXPECT_EQ(IdOf(object(),
                 L"HexT\x00F6"
                 L"Dec"),
            DISPID_UNKNOWN);
}

TEST_F(Dispatch, parameter_names_are_known_too) {
  wchar_t member[] = L"FstrPadLeft";
  wchar_t known[] = L"ISTR_PADWITH";
  wchar_t unknown[] = L"nothing";
  LPOLESTR names[] = {member, known, unknown};
  DISPID ids[3] = {};
  EXPECT_EQ(object().GetIDsOfNames(IID_NULL, names, 3, 0, ids), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[1], 2);
  EXPECT_EQ(ids[2], DISPID_UNKNOWN);
}

TEST_F(Dispatch, values_are_converted_as_automation_does_it) {
  Text number(L"12");
  EXPECT_EQ(Call(object(), L"FstrFmtToSpecLen", {Number(5), Borrowed(number)}).text().size(), 12u);
  // Halves to even.
  EXPECT_EQ(Call(object(), L"FstrFmtToSpecLen", {Number(5), Real(2.5)}).text(), L"5 ");
  EXPECT_EQ(Call(object(), L"FstrFmtToSpecLen", {Number(5), Real(3.5)}).text(), L"5   ");
  VARIANT empty{};
  EXPECT_EQ(Call(object(), L"FstrFmtToSpecLen", {empty, Number(2)}).text(), L"  ");
}

TEST_F(Dispatch, conversions_that_fail_name_the_argument) {
  Text word(L"word");
  auto outcome = Call(object(), L"FstrFmtToSpecLen", {Borrowed(word), Borrowed(word)});
  EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(outcome.bad_argument, 0u);  // the last argument stands first
  VARIANT null{};
  null.vt = VT_NULL;
  outcome = Call(object(), L"FstrFmtToSpecLen", {null, Number(5)});
  EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(outcome.bad_argument, 1u);
  outcome = Call(object(), L"FstrFmtToSpecLen", {Borrowed(word), Number32(70000)});
  EXPECT_EQ(outcome.result, DISP_E_OVERFLOW);
  EXPECT_EQ(outcome.bad_argument, 0u);
  outcome = Call(object(), L"BitToHex", {Number(300)});
  EXPECT_EQ(outcome.result, DISP_E_OVERFLOW);
}

TEST_F(Dispatch, arguments_that_are_too_many_or_missing_are_refused) {
  Text hex(L"1F");
  EXPECT_EQ(Call(object(), L"IsHex", {Borrowed(hex), Number(1)}).result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Call(object(), L"IsHex", {}).result, DISP_E_PARAMNOTOPTIONAL);
  const auto outcome = Call(object(), L"IsHex", {Missing()});
  EXPECT_EQ(outcome.result, DISP_E_PARAMNOTOPTIONAL);
  EXPECT_EQ(outcome.bad_argument, 0u);
  EXPECT_EQ(Call(object(), L"SystemDirectory", {Number(1)}).result, DISP_E_BADPARAMCOUNT);
}

TEST_F(Dispatch, optional_arguments_have_their_defaults) {
  Text text(L"ab");
  EXPECT_EQ(Call(object(), L"FstrPadLeft", {Borrowed(text), Number(4)}).text(), L"  ab");
  EXPECT_EQ(Call(object(), L"FstrPadLeft", {Borrowed(text), Number(4), Missing()}).text(), L"  ab");
  VARIANT missing = Missing();
  EXPECT_EQ(Call(object(), L"FstrPadLeft", {Borrowed(text), Number(4), Reference(missing)}).text(),
            L"  ab");
  EXPECT_EQ(missing.vt, VT_ERROR);
}

TEST_F(Dispatch, arguments_may_be_named) {
  Text text(L"ab");
  Text star(L"*");
  EXPECT_EQ(CallNamed(object(), L"FstrPadLeft", {Borrowed(text)},
                      {{L"istr_PadWith", Borrowed(star)}, {L"iint_PadToLen", Number(4)}})
                .text(),
            L"**ab");
  EXPECT_EQ(CallNamed(object(), L"FstrPadLeft", {Borrowed(text)}, {{L"wrong", Number(4)}}).result,
            DISP_E_UNKNOWNNAME);
  // Given twice: by position and by name.
  const auto outcome =
      CallNamed(object(), L"FstrPadLeft", {Borrowed(text)}, {{L"istr_Source", Borrowed(star)}});
  EXPECT_EQ(outcome.result, DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(outcome.bad_argument, 0u);
}

TEST_F(Dispatch, results_are_written_through_every_kind_of_reference) {
  Text hex(L"A");
  BYTE byte = 9;
  short number = 9;
  VARIANT variable{};
  const auto outcome = Call(object(), L"HexToBit",
                            {Borrowed(hex), Reference(VT_UI1, &byte), Reference(VT_I2, &number),
                             Number(9), Reference(variable)});
  EXPECT_EQ(outcome.result, S_OK);
  EXPECT_EQ(byte, 0);
  EXPECT_EQ(number, 1);
  EXPECT_EQ(variable.vt, VT_UI1);
  EXPECT_EQ(variable.bVal, 1);
}

TEST_F(Dispatch, a_reference_inside_a_variant_is_followed) {
  Text hex(L"F");
  BYTE byte = 0;
  VARIANT inner = Reference(VT_UI1, &byte);
  EXPECT_EQ(Call(object(), L"HexToBit", {Borrowed(hex), Reference(inner)}).result, S_OK);
  EXPECT_EQ(byte, 1);
  EXPECT_EQ(inner.vt, VT_BYREF | VT_UI1);
}

TEST_F(Dispatch, texts_are_written_back_also_when_the_member_fails) {
  Text digits(L"XY");
  Text description(L"old");
  VARIANT array{};
  VARIANT position = Number(0);
  const auto outcome = Call(
      object(), L"FillByteArrWithHexStr",
      {Reference(array), Borrowed(digits), Reference(position), Reference(VT_BSTR, &description)});
  EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
  EXPECT_EQ(static_cast<unsigned long>(outcome.code), 0x80040031ul);
  EXPECT_EQ(description.str(), L"Resouce string not Hex string.");
}

TEST_F(Dispatch, properties_are_read_and_written_by_their_own_flags) {
  Text name(L" my.log ");
  EXPECT_EQ(Call(object(), L"LogFileName", {Borrowed(name)}, DISPATCH_PROPERTYPUT).result, S_OK);
  EXPECT_EQ(Call(object(), L"LogFileName", {}, DISPATCH_PROPERTYGET).text(), L"my.log");
  EXPECT_EQ(Call(object(), L"LogFileName", {}, DISPATCH_PROPERTYGET | DISPATCH_METHOD).text(),
            L"my.log");
  EXPECT_EQ(Call(object(), L"LogFileName", {}, DISPATCH_METHOD).result, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(Call(object(), L"LogFileFullName", {Borrowed(name)}, DISPATCH_PROPERTYPUT).result,
            DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(Call(object(), L"AppPath", {Borrowed(name)}, DISPATCH_PROPERTYPUTREF).result,
            DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(Call(object(), L"IsHex", {Borrowed(name)}, DISPATCH_PROPERTYGET).result,
            DISP_E_MEMBERNOTFOUND);
}

TEST_F(Dispatch, a_text_of_an_odd_number_of_bytes_keeps_its_last_one) {
  BSTR odd = SysAllocStringByteLen("abc", 3);
  EXPECT_EQ(Call(object(), L"MsgFmtTextToHex", {Borrowed(odd), Truth(true)}).text(), L"616263");
  SysFreeString(odd);
  Text hex(L"616263");
  const auto outcome =
      CallNamed(object(), L"HexToMsgFmtText", {Borrowed(hex)}, {{L"ibln_InByteText", Truth(true)}});
  ASSERT_EQ(outcome.value.get().vt, VT_BSTR);
  EXPECT_EQ(SysStringByteLen(outcome.value.get().bstrVal), 3u);
}

TEST_F(Dispatch, a_value_that_is_returned_unchanged_is_the_callers_own) {
  VARIANT array{};
  SAFEARRAYBOUND bound{2, 1};
  array.vt = VT_ARRAY | VT_BSTR;
  array.parray = SafeArrayCreate(VT_BSTR, 1, &bound);
  LONG place = 2;
  Text text(L"second");
  SafeArrayPutElement(array.parray, &place, static_cast<BSTR>(text));
  const auto outcome = Call(object(), L"NotNull", {Reference(array)});
  ASSERT_EQ(outcome.value.get().vt, VT_ARRAY | VT_BSTR);
  Text copy(nullptr);
  SafeArrayGetElement(outcome.value.get().parray, &place, &copy);
  EXPECT_EQ(copy.str(), L"second");
  VariantClear(&array);
}

TEST_F(Dispatch, objects_may_be_unset_or_of_any_make) {
  Text text(L"x");
  VARIANT nothing{};
  nothing.vt = VT_DISPATCH;
  auto outcome =
      Call(object(), L"LogError", {Borrowed(text), Borrowed(text), Borrowed(text), nothing});
  EXPECT_EQ(static_cast<unsigned long>(outcome.code), 0x800A005Bul);
  // This object itself has none of the three properties.
  VARIANT stranger{};
  stranger.vt = VT_DISPATCH;
  stranger.pdispVal = &object();
  outcome = Call(object(), L"LogError", {Borrowed(text), Borrowed(text), Borrowed(text), stranger});
  EXPECT_EQ(static_cast<unsigned long>(outcome.code), 0x800A01B6ul);
  outcome =
      Call(object(), L"LogError", {Borrowed(text), Borrowed(text), Borrowed(text), Number(5)});
  EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(outcome.bad_argument, 0u);
}

TEST_F(Dispatch, garbage_is_refused) {
  VARIANT argument = Number(1);
  DISPPARAMS parameters{&argument, nullptr, 1, 0};
  const DISPID id = IdOf(object(), L"IsHex");
  const auto invoke = [&](DISPID member, REFIID reserved, DISPPARAMS* given) {
    return object().Invoke(member, reserved, 0, DISPATCH_METHOD, given, nullptr, nullptr, nullptr);
  };
  EXPECT_EQ(invoke(id, IID_IUnknown, &parameters), DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(invoke(0, IID_NULL, &parameters), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(invoke(75, IID_NULL, &parameters), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(invoke(-5, IID_NULL, &parameters), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(invoke(id, IID_NULL, nullptr), E_INVALIDARG);
  DISPPARAMS broken{nullptr, nullptr, 1, 0};
  EXPECT_EQ(invoke(id, IID_NULL, &broken), E_INVALIDARG);
  broken = {&argument, nullptr, 1, 2};
  EXPECT_EQ(invoke(id, IID_NULL, &broken), E_INVALIDARG);
  DISPID far_away = 30000;
  broken = {&argument, &far_away, 1, 1};
  EXPECT_EQ(invoke(id, IID_NULL, &broken), DISP_E_PARAMNOTFOUND);
}

TEST_F(Dispatch, broken_references_are_refused) {
  Text hex(L"F");
  EXPECT_EQ(Call(object(), L"HexToBit", {Borrowed(hex), Reference(VT_UI1, nullptr)}).result,
            E_POINTER);
  EXPECT_EQ(Call(object(), L"HexToBit", {Borrowed(hex), Reference(VT_VARIANT, nullptr)}).result,
            E_POINTER);
  VARIANT circle{};
  circle = Reference(circle);
  EXPECT_EQ(Call(object(), L"HexToBit", {Borrowed(hex), Reference(circle)}).result,
            DISP_E_TYPEMISMATCH);
  VARIANT unknown{};
  unknown.vt = 999;
  EXPECT_TRUE(FAILED(Call(object(), L"IsHex", {unknown}).result));
  unknown.vt = VT_BYREF | 999;
  unknown.byref = &circle;
  EXPECT_TRUE(FAILED(Call(object(), L"IsHex", {unknown}).result));
}

}  // namespace
}  // namespace vandpublic
