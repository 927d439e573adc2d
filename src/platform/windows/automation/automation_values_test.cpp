#include "platform/windows/automation/automation_values.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "platform/windows/automation/dispatch_objects.h"
#include "support/recording_dispatch.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

VARIANT Plain(VARTYPE type) {
  VARIANT value;
  VariantInit(&value);
  value.vt = type;
  return value;
}

TEST(AutomationValues, Every_value_comes_back_as_it_went) {
  const Variant values[] = {
      Variant(),
      NullValue{},
      Integer{-32768},
      Long{2147483647},
      1.5F,
      -2.25,
      Currency{-12345},
      Date{45356.5},
      u"text \u4e2d \xD800",
      String(),
      String::FromBytes("abc"),
      ObjectRef(),
      true,
      false,
      Byte{255},
      *Decimal::Parse("-1234.50"),
      *Decimal::Parse("0.000"),
      *Decimal::Parse("9999999999999999999999999999"),
      ByteArray(),
      ByteArray({1, 2, 3}),
      ByteArray({9}, -5),
      ByteArray(std::vector<Byte>(5120, 7), 1),
      ByteArray(std::vector<Byte>()),
  };
  for (const Variant& value : values) {
    const OwnedVariant converted = ToAutomation(value);
    EXPECT_EQ(FromAutomation(converted.get()), value) << "type " << converted.get().vt;
    EXPECT_EQ(converted.get().vt, static_cast<VARTYPE>(value.Type()));
  }
}

TEST(AutomationValues, Absent_and_empty_texts_stay_two_things) {
  const OwnedVariant absent = ToAutomation(String::Absent());
  EXPECT_EQ(absent.get().bstrVal, nullptr);
  EXPECT_TRUE(FromAutomation(absent.get()).Get<String>()->IsAbsent());
  const OwnedVariant empty = ToAutomation(String());
  ASSERT_NE(empty.get().bstrVal, nullptr);
  EXPECT_FALSE(FromAutomation(empty.get()).Get<String>()->IsAbsent());
}

TEST(AutomationValues, Truth_is_minus_one) {
  EXPECT_EQ(ToAutomation(true).get().boolVal, -1);
  VARIANT one = Plain(VT_BOOL);
  one.boolVal = 1;
  EXPECT_EQ(FromAutomation(one), Variant(true));
}

TEST(AutomationValues, A_text_keeps_its_bytes) {
  const OwnedVariant odd = ToAutomation(String::FromBytes("abc"));
  EXPECT_EQ(SysStringByteLen(odd.get().bstrVal), 3U);
  EXPECT_EQ(std::memcmp(odd.get().bstrVal, "abc", 3), 0);
  const OwnedVariant zero = ToAutomation(String(std::u16string_view(u"a\0b", 3)));
  EXPECT_EQ(SysStringLen(zero.get().bstrVal), 3U);
}

TEST(AutomationValues, Whole_numbers_of_other_sizes_keep_their_value) {
  VARIANT value = Plain(VT_I1);
  value.cVal = -128;
  EXPECT_EQ(FromAutomation(value), Variant(Integer{-128}));
  value = Plain(VT_UI2);
  value.uiVal = 65535;
  EXPECT_EQ(FromAutomation(value), Variant(Long{65535}));
  value = Plain(VT_UI4);
  value.ulVal = 4294967295;
  EXPECT_EQ(FromAutomation(value), Variant(*Decimal::Parse("4294967295")));
  value = Plain(VT_INT);
  value.intVal = -7;
  EXPECT_EQ(FromAutomation(value), Variant(Long{-7}));
  value = Plain(VT_I8);
  value.llVal = std::numeric_limits<long long>::min();
  EXPECT_EQ(FromAutomation(value), Variant(*Decimal::Parse("-9223372036854775808")));
  value = Plain(VT_UI8);
  value.ullVal = std::numeric_limits<unsigned long long>::max();
  EXPECT_EQ(FromAutomation(value), Variant(*Decimal::Parse("18446744073709551615")));
}

TEST(AutomationValues, A_decimal_is_the_systems_own) {
  const OwnedVariant converted = ToAutomation(*Decimal::Parse("-1234.50"));
  double number = 0;
  DECIMAL decimal = converted.get().decVal;
  decimal.wReserved = 0;
  ASSERT_EQ(VarR8FromDec(&decimal, &number), S_OK);
  EXPECT_EQ(number, -1234.5);

  VARIANT largest = Plain(VT_DECIMAL);
  largest.decVal.Hi32 = 0xFFFFFFFF;
  largest.decVal.Lo64 = 0xFFFFFFFFFFFFFFFF;
  largest.vt = VT_DECIMAL;
  EXPECT_EQ(RaisedBy([&] { FromAutomation(largest); }), PlainFault(FaultNumber::Overflow));
}

TEST(AutomationValues, References_are_followed) {
  LONG number = 5;
  VARIANT value = Plain(VT_BYREF | VT_I4);
  value.plVal = &number;
  EXPECT_EQ(FromAutomation(value), Variant(Long{5}));
  VARIANT outer = Plain(VT_BYREF | VT_VARIANT);
  VARIANT inner = Plain(VT_I2);
  inner.iVal = 3;
  outer.pvarVal = &inner;
  EXPECT_EQ(FromAutomation(outer), Variant(Integer{3}));
}

TEST(AutomationValues, A_table_of_bytes_keeps_its_places) {
  ByteTable table({1, 2}, {0, 3});
  for (Long row = 1; row <= 2; ++row) {
    for (Long column = 0; column < 3; ++column)
      table.At(row, column) = static_cast<Byte>(10 * row + column);
  }
  const OwnedVariant converted = ToAutomation(table);
  LONG place[] = {2, 1};
  Byte element = 0;
  ASSERT_EQ(SafeArrayGetElement(converted.get().parray, place, &element), S_OK);
  EXPECT_EQ(element, 21);
  EXPECT_EQ(FromAutomation(converted.get()), Variant(table));
}

TEST(AutomationValues, Arrays_of_other_elements_give_their_shape) {
  SAFEARRAYBOUND bounds[] = {{3, 1}, {2, 0}};
  VARIANT value = Plain(VT_ARRAY | VT_I4);
  value.parray = SafeArrayCreate(VT_I4, 2, bounds);
  const OwnedVariant owned(value);
  const Variant shape = FromAutomation(owned.get());
  ASSERT_NE(shape.Get<ArrayShape>(), nullptr);
  EXPECT_EQ(shape.Get<ArrayShape>()->element_type, VT_I4);
  EXPECT_EQ(shape.Bound(1), (ArrayBound{1, 3}));
  EXPECT_EQ(shape.Bound(2), (ArrayBound{0, 2}));
  EXPECT_EQ(RaisedBy([&] { ToAutomation(shape); }), PlainFault(FaultNumber::TypeMismatch));
}

TEST(AutomationValues, What_is_no_value_is_a_type_mismatch) {
  VARIANT missing = Plain(VT_ERROR);
  missing.scode = DISP_E_PARAMNOTFOUND;
  EXPECT_TRUE(FromAutomation(missing).IsEmpty());
  VARIANT error = Plain(VT_ERROR);
  error.scode = E_FAIL;
  for (const VARIANT& value : {error, Plain(VT_RECORD), Plain(VT_VARIANT), Plain(0x7F)}) {
    EXPECT_EQ(RaisedBy([&] { FromAutomation(value); }), PlainFault(FaultNumber::TypeMismatch))
        << value.vt;
  }
  const ObjectRef ours = std::make_shared<ErrObject>(5, u"S", u"D");
  EXPECT_EQ(RaisedBy([&] { ToAutomation(ours); }), PlainFault(FaultNumber::TypeMismatch));
}

TEST(AutomationValues, Objects_are_shared_and_let_go) {
  DispatchLog log;
  const ComPointer<IDispatch> object = MakeRecordingObject(log, "Thing", {});
  {
    const ObjectRef wrapped = WrapObject(object.get());
    EXPECT_EQ(CountReferences(object.get()), 2U);
    const OwnedVariant converted = ToAutomation(wrapped);
    EXPECT_EQ(converted.get().pdispVal, object.get());
    EXPECT_EQ(CountReferences(object.get()), 3U);
    const Variant back = FromAutomation(converted.get());
    EXPECT_EQ(CountReferences(object.get()), 4U);
    EXPECT_TRUE(IsSameObject(**back.Get<ObjectRef>(), *wrapped));
  }
  EXPECT_EQ(CountReferences(object.get()), 1U);
}

}  // namespace
}  // namespace vandpublic
