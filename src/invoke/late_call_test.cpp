#include "invoke/late_call.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

#include "runtime/coerce.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Long kLeastLong = std::numeric_limits<Long>::min();
constexpr Long kMostLong = std::numeric_limits<Long>::max();

// Why an argument did not fit.
struct Unfit {
  int reason = 0;  // 0: all fitted
  std::size_t index = 0;
  std::string what;

  bool operator==(const Unfit&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Unfit& unfit) {
  return out << unfit.reason << " at " << unfit.index << ": " << unfit.what;
}

class LateCallTest : public testing::Test {
 protected:
  // Calls with the caller's variables; a null pointer leaves one out.
  Variant Call(std::string_view name, std::vector<Variant*> arguments,
               SlotKind kind = SlotKind::Method) {
    return InvokeSlot(component_.object, FindSlot(name, kind).value(), arguments);
  }
  // Calls with values.
  Variant CallWith(std::string_view name, std::vector<Variant> values,
                   SlotKind kind = SlotKind::Method) {
    std::vector<Variant*> arguments;
    for (Variant& value : values)
      arguments.push_back(&value);
    return Call(name, arguments, kind);
  }
  Unfit UnfitOf(std::string_view name, std::vector<Variant> values,
                SlotKind kind = SlotKind::Method) {
    try {
      CallWith(name, std::move(values), kind);
    } catch (const ArgumentError& error) {
      return {static_cast<int>(error.reason()), error.index(), error.what()};
    }
    return {};
  }

  TestComponent component_;
};

TEST_F(LateCallTest, Results_are_variants_of_the_type_of_the_result) {
  EXPECT_EQ(CallWith("IsHex", {"1F"}), Variant(true));
  EXPECT_EQ(CallWith("HexToDec", {"1F"}), Variant(Long{31}));
  EXPECT_EQ(CallWith("FstrActualLen", {"abc"}), Variant(Integer{3}));
  EXPECT_EQ(CallWith("BitToHex", {}), Variant("0"));
  EXPECT_EQ(CallWith("FstrHexStrToByte", {"0A0B"}), Variant(ByteArray{10, 11}));
  EXPECT_EQ(CallWith("NotNull", {1.5}), Variant(1.5));
  EXPECT_EQ(CallWith("Init", {"C:\\App"}), Variant()) << "no result";
  EXPECT_EQ(CallWith("DebugMode", {}, SlotKind::PropertyGet), Variant(Long{1})) << "enumeration";
}

TEST_F(LateCallTest, Values_are_converted_to_the_type_of_the_parameter) {
  EXPECT_EQ(CallWith("HexToDec", {Long{10}}), Variant(Long{16}));
  EXPECT_EQ(CallWith("HexToDec", {Variant()}), Variant(Long{0}));
  EXPECT_EQ(CallWith("BitToHex", {"1", 1.4, 0.5, Long{1}}), Variant("B"));
  EXPECT_EQ(CallWith("FstrFmtToSpecLen", {true, "6"}), Variant("True  "));
  EXPECT_EQ(CallWith("FstrFmtToSpecLen", {"a", 2.5}), Variant("a ")) << "halves to even";
  EXPECT_EQ(CallWith("FstrFmtToSpecLen", {"a", 3.5}), Variant("a   "));
  EXPECT_EQ(CallWith("FstrIsNullExt", {" ", "true", "0"}), Variant(false));
  EXPECT_EQ(CallWith("DecToMsgFmtText", {"65"}), Variant("A"));
  EXPECT_EQ(CallWith("FstrPadToSpecLen", {"ab", 3, "*", "1"}), Variant("*ab")) << "enumeration";
}

TEST_F(LateCallTest, Properties_are_read_and_written) {
  CallWith("AppPath", {" X "}, SlotKind::PropertyPut);
  EXPECT_EQ(CallWith("AppPath", {}, SlotKind::PropertyGet), Variant(" X "));
  CallWith("LogFilePath", {" C:\\L "}, SlotKind::PropertyPut);
  EXPECT_EQ(CallWith("LogFilePath", {}, SlotKind::PropertyGet), Variant("C:\\L"));
  CallWith("LogFileName", {"n"}, SlotKind::PropertyPut);
  EXPECT_EQ(CallWith("LogFileName", {}, SlotKind::PropertyGet), Variant("n"));
  EXPECT_EQ(CallWith("LogFileFullName", {}, SlotKind::PropertyGet), Variant("C:\\L\\n"));
  CallWith("DebugMode", {"7"}, SlotKind::PropertyPut);
  EXPECT_EQ(CallWith("DebugMode", {}, SlotKind::PropertyGet), Variant(Long{7}));
}

TEST_F(LateCallTest, Left_out_optional_arguments_have_their_defaults) {
  Variant text = "1";
  Variant length = Integer{4};
  EXPECT_EQ(Call("HexToMsgFmtText", {&text}), Variant(u"\u0001"));
  EXPECT_EQ(Call("HexToMsgFmtText", {&text, &length}).Get<String>()->Length(), 2u);
  Variant right = false;
  EXPECT_EQ(Call("HexToMsgFmtText", {&text, nullptr, &right}), Variant(u"\u0010"));
  EXPECT_EQ(Call("BitToHex", {nullptr, nullptr, nullptr, nullptr}), Variant("0"));
}

TEST_F(LateCallTest, An_argument_that_does_not_fit_is_found_before_the_member_runs) {
  EXPECT_EQ(UnfitOf("HexToDec", {}), (Unfit{449, 0, "argument 'istr_HexNumber' is missing"}));
  EXPECT_EQ(UnfitOf("FstrFmtToSpecLen", {"a"}), (Unfit{449, 1, "argument 'iint_Len' is missing"}));
  EXPECT_EQ(UnfitOf("HexToDec", {"1", "2"}), (Unfit{450, 1, "too many arguments"}));
  EXPECT_EQ(UnfitOf("AppPath", {"1"}, SlotKind::PropertyGet),
            (Unfit{450, 0, "too many arguments"}));
  EXPECT_EQ(UnfitOf("AppPath", {}, SlotKind::PropertyPut),
            (Unfit{449, 0, "argument 'value' is missing"}));
  EXPECT_EQ(UnfitOf("FstrFmtToSpecLen", {"a", Long{32768}}),
            (Unfit{6, 1, "argument 'iint_Len' is out of range"}));
  EXPECT_EQ(UnfitOf("BitToHex", {Integer{0}, Integer{256}}),
            (Unfit{6, 1, "argument 'ibyt_Bit1' is out of range"}));
  EXPECT_EQ(UnfitOf("HexToDec", {NullValue()}),
            (Unfit{94, 0, "argument 'istr_HexNumber' must not be null"}));
  EXPECT_EQ(UnfitOf("FstrFmtToSpecLen", {"a", "b"}),
            (Unfit{13, 1, "argument 'iint_Len' has a value of the wrong type"}));
  EXPECT_EQ(UnfitOf("HexToDec", {ByteArray{1}}).reason, 13);
  EXPECT_EQ(UnfitOf("DispBytes", {"text"}).reason, 13);
  EXPECT_EQ(UnfitOf("DispBytes", {ArrayShape{8, {{0, 1}}}}).reason, 13);
  EXPECT_EQ(UnfitOf("FstrIsNullExt", {"", "maybe"}).reason, 13);
  EXPECT_EQ(component_.Log(), "") << "nothing ran";
}

TEST_F(LateCallTest, A_null_pointer_for_a_required_argument_is_a_missing_one) {
  Variant length = Integer{1};
  try {
    Call("FstrFmtToSpecLen", {nullptr, &length});
    FAIL();
  } catch (const ArgumentError& error) {
    EXPECT_EQ(error.reason(), FaultNumber::ArgumentNotOptional);
    EXPECT_EQ(error.index(), 0u);
  }
}

TEST_F(LateCallTest, Arguments_are_checked_from_the_first_to_the_last) {
  EXPECT_EQ(UnfitOf("FstrFmtToSpecLen", {NullValue(), "b"}).index, 0u);
  Variant changed = Variant();
  Variant bad = "x";
  EXPECT_THROW(Call("FstrHexStrToByte", {&changed, &bad}), ArgumentError);
}

TEST_F(LateCallTest, Errors_of_the_member_pass_unchanged) {
  EXPECT_EQ(RaisedBy([&] { CallWith("HexToDec", {"G"}); }),
            MemberError(0x13, "HexToDec", "Input value is not in hex format."));
  EXPECT_EQ(RaisedBy([&] {
              CallWith("FstrFmtToSpecLen", {"a", Integer{-1}});
            }),
            PlainFault(FaultNumber::InvalidProcedureCall));
}

TEST_F(LateCallTest, By_reference_arguments_of_their_type_are_worked_on_in_place) {
  Variant key = "0123456789ABCDEF FEDCBA9876543210";
  Variant data = "123";
  Variant length = Integer{0};
  Call("FstrDES3", {&key, &data, &length});
  EXPECT_EQ(key, Variant("0123456789ABCDEFFEDCBA9876543210"));
  EXPECT_EQ(data, Variant("0123"));
  EXPECT_EQ(length, Variant(Integer{8}));
}

TEST_F(LateCallTest, Other_by_reference_arguments_are_replaced_when_the_member_changed_them) {
  Variant key = "00";
  Variant data = Long{123};
  Variant length = 0.0;
  Call("FstrDES3", {&key, &data, &length});
  EXPECT_EQ(data, Variant("0123"));
  EXPECT_EQ(length, Variant(Integer{8}));

  Variant even = Long{12};
  Variant eight = 8.0;
  Call("FstrDES3", {&key, &even, &eight});
  EXPECT_EQ(even, Variant(Long{12})) << "not changed, so not replaced";
  EXPECT_EQ(eight, Variant(8.0));
}

TEST_F(LateCallTest, By_reference_results_stay_when_the_member_fails) {
  Variant array;
  Variant text = Long{12};
  Variant position = Integer{0};
  Variant description = Long{5};
  EXPECT_EQ(RaisedBy([&] {
              Call("FillByteArrWithHexStr", {&array, &text, &position, &description});
            }),
            kNothingRaised);
  text = " 1 2a";
  position = Variant();
  EXPECT_EQ(RaisedBy([&] {
              Call("FillByteArrWithHexStr", {&array, &text, &position, &description});
            }),
            MemberError(0x31, "FillByteArrWithHexStr", ""));
  EXPECT_EQ(text, Variant("012a"));
  EXPECT_EQ(position, Variant(Integer{1}));
  EXPECT_EQ(description, Variant("")) << "converted and written";
  EXPECT_EQ(array, Variant(ByteArray{1}));
}

TEST_F(LateCallTest, Outputs_are_written_to_variables_of_any_type) {
  Variant text = "A";
  Variant bit0;
  Variant bit1 = Long{9};
  Variant bit2 = "3";
  Variant bit3 = Byte{9};
  Call("HexToBit", {&text, &bit0, &bit1, &bit2, &bit3});
  EXPECT_EQ(bit0, Variant()) << "0 before and after";
  EXPECT_EQ(bit1, Variant(Byte{1}));
  EXPECT_EQ(bit2, Variant(Byte{0}));
  EXPECT_EQ(bit3, Variant(Byte{1}));
}

TEST_F(LateCallTest, One_array_given_twice_is_one_array) {
  Variant array = ByteArray{1, 2, 3, 4, 5};
  Variant length = Integer{4};
  Variant start = Integer{1};
  Variant source_start = Integer{0};
  Call("CpyByteArray", {&array, &array, &length, &start, &source_start});
  EXPECT_EQ(array, Variant(ByteArray{1, 1, 1, 1, 1}));
}

TEST_F(LateCallTest, References_to_one_array_are_that_array) {
  ByteArray array = {1, 2, 3, 4, 5};
  Variant first = Variant::Referring(array);
  Variant second = Variant::Referring(array);
  Variant length = Integer{4};
  Variant start = Integer{1};
  Call("CpyByteArray", {&first, &second, &length, &start});
  EXPECT_EQ(Hex(array), "01 01 01 01 01");
}

TEST_F(LateCallTest, A_cipher_may_write_into_its_source) {
  Variant key = FromHex("133457799BBCDFF1");
  Variant block = FromHex("0123456789ABCDEF");
  Variant length = Integer{8};
  EXPECT_EQ(Call("DES", {&key, &block, &length, &block}), Variant(true));
  EXPECT_EQ(Hex(*block.AsByteArray()), "85 E8 13 54 0F 0A B4 05");
}

TEST_F(LateCallTest, An_empty_variable_serves_as_an_array_without_storage) {
  Variant array;
  Variant text = "0A0B";
  Call("FillByteArrWithHexStr", {&array, &text});
  EXPECT_EQ(array, Variant(ByteArray{10, 11}));
  Variant untouched;
  EXPECT_EQ(Call("DispBytes", {&untouched}), Variant(""));
  EXPECT_EQ(untouched, Variant(ByteArray()));
}

TEST_F(LateCallTest, Lower_bounds_at_the_ends_of_the_32_bit_range_work) {
  for (const Long lower : {kLeastLong, Long{-1}, Long{1}, kMostLong - 7}) {
    Variant array = ByteArray(std::vector<Byte>(8, 7), lower);
    EXPECT_EQ(Call("ArraySize", {&array}), Variant(Long{8})) << lower;
    Variant text = "0A0B";
    Variant position = lower;
    EXPECT_EQ(Call("FillByteArrWithHexStr", {&array, &text, &position}), Variant(true));
    EXPECT_EQ(Hex(*array.AsByteArray()).substr(0, 8), "0A 0B 07") << lower;
    EXPECT_EQ(array.AsByteArray()->LowerBound(), lower);
  }
  Variant array = ByteArray(std::vector<Byte>(1), kMostLong);
  Variant text = "0A";
  Variant position = kMostLong;
  EXPECT_EQ(Call("FillByteArrWithHexStr", {&array, &text, &position}), Variant(true));
  EXPECT_EQ(position, Variant(2147483648.0)) << "the position past the last subscript";
}

TEST_F(LateCallTest, Two_dimensional_arrays_are_worked_on_in_place) {
  Variant seed = Counting(16);
  Variant count = Integer{1};
  Variant keys = ByteTable({0, 1}, {0, 16});
  EXPECT_EQ(Call("GenOrigalityKey", {&seed, &count, &keys}), Variant(true));
  EXPECT_NE(keys, Variant(ByteTable({0, 1}, {0, 16})));

  ByteTable table({0, 1}, {0, 16});
  Variant reference = Variant::Referring(table);
  Call("GenOrigalityKey", {&seed, &count, &reference});
  EXPECT_EQ(table, *keys.AsByteTable());
}

TEST_F(LateCallTest, An_array_of_another_shape_is_the_business_of_the_member) {
  Variant seed = Counting(16);
  Variant count = Integer{1};
  for (Variant keys : {Variant(), Variant(ByteArray(std::vector<Byte>(16)))}) {
    EXPECT_EQ(RaisedBy([&] {
                Call("GenOrigalityKey", {&seed, &count, &keys});
              }),
              MemberError(0x2F, "GenOrigalityKey", ""));
  }
  EXPECT_EQ(UnfitOf("GenOrigalityKey", {seed, count, "text"}).reason, 13);
  EXPECT_EQ(UnfitOf("DES", {ByteTable({0, 1}, {0, 8})}).reason, 449) << "counted first";
}

TEST_F(LateCallTest, An_error_object_may_be_left_out_empty_or_unset_but_is_then_missed) {
  const Raised not_set = PlainFault(FaultNumber::ObjectVariableNotSet);
  EXPECT_EQ(RaisedBy([&] { CallWith("LogError", {"A", "M", "F"}); }), not_set);
  EXPECT_EQ(RaisedBy([&] { CallWith("LogError", {"A", "M", "F", Variant()}); }), not_set);
  EXPECT_EQ(RaisedBy([&] { CallWith("LogError", {"A", "M", "F", ObjectRef()}); }), not_set);
  EXPECT_EQ(UnfitOf("LogError", {"A", "M", "F", Long{5}}),
            (Unfit{13, 3, "argument 'iobj_Err' has a value of the wrong type"}));
  EXPECT_EQ(UnfitOf("LogError", {"A", "M", "F", NullValue()}).reason, 13);
}

TEST_F(LateCallTest, An_error_object_is_read) {
  Variant app = "A";
  Variant error = ObjectRef(std::make_shared<ErrObject>(5, u"S", u"D"));
  Variant description;
  Call("LogError", {&app, &app, &app, &error, &description});
  EXPECT_EQ(description, Variant("S (5) - D"));
  EXPECT_EQ(component_.LogLines()[0], "2024-03-05 14:07:09 A.A.A");
}

TEST_F(LateCallTest, A_variant_parameter_takes_the_variable_itself) {
  Variant value = NullValue();
  Variant type = "5";
  EXPECT_EQ(Call("NotNull", {&value, &type}), Variant(Integer{0}));
  EXPECT_EQ(type, Variant("5"));
  Variant shape = ArrayShape{8, {{1, 3}, {0, 4}}};
  Variant dimension = 2.0;
  EXPECT_EQ(Call("ArraySize", {&shape, &dimension}), Variant(Long{4}));
}

TEST_F(LateCallTest, An_absent_text_reaches_the_member_as_absent) {
  EXPECT_EQ(CallWith("FstrIsNullExt", {String::Absent()}), Variant(true));
  EXPECT_EQ(CallWith("MsgFmtTextToHex", {String::FromBytes("ABC"), true}), Variant("414243"));
}

TEST_F(LateCallTest, Every_member_can_be_called) {
  const std::vector<Variant> too_many(kMostParameters + 1, Variant("x"));
  for (std::size_t i = 0; i < kSlotCount; ++i) {
    const MemberInfo& member = MemberTable()[i];
    EXPECT_EQ(UnfitOf(member.name, too_many, member.kind).reason, 450) << member.name;
  }
}

TEST(InitialValue, It_is_the_default_or_the_zero_of_the_type) {
  using Kind = DefaultValue::Kind;
  struct Case {
    InterfaceType type;
    DefaultValue value;
    Variant initial;
  };
  const DefaultValue required;
  const DefaultValue unstated{.kind = Kind::Unstated};
  const Case cases[] = {
      {InterfaceType::Boolean, required, false},
      {InterfaceType::Boolean, {.kind = Kind::Truth, .number = 1}, true},
      {InterfaceType::Byte, unstated, Byte{0}},
      {InterfaceType::Integer, {.kind = Kind::Number, .number = 40}, Integer{40}},
      {InterfaceType::Long, {.kind = Kind::Number, .number = 8}, Long{8}},
      {InterfaceType::DebugMode, {.kind = Kind::Number, .number = 1}, Long{1}},
      {InterfaceType::String, unstated, ""},
      {InterfaceType::String, {.kind = Kind::Text, .text = u" "}, " "},
      {InterfaceType::Variant, required, Variant()},
      {InterfaceType::Variant, {.kind = Kind::Number, .number = 0}, Integer{0}},
      {InterfaceType::ByteArray, required, ByteArray()},
      {InterfaceType::ByteTable, required, ByteTable()},
      {InterfaceType::ErrObject, unstated, ObjectRef()},
      {InterfaceType::Connection, required, ObjectRef()},
      {InterfaceType::Recordset, required, ObjectRef()},
      {InterfaceType::Field, required, ObjectRef()},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(InitialValue({.name = "p", .type = one.type, .default_value = one.value}),
              one.initial);
  }
}

TEST(FindParameter, Names_are_found_in_any_case) {
  const MemberInfo& member = MemberTable()[FindSlot("CpyByteArray", SlotKind::Method).value()];
  EXPECT_EQ(FindParameter(member, "abyt_Dest"), 0u);
  EXPECT_EQ(FindParameter(member, "IINT_SRCSUB"), 4u);
  EXPECT_EQ(FindParameter(member, "abyt"), std::nullopt);
  EXPECT_EQ(FindParameter(member, ""), std::nullopt);
}

}  // namespace
}  // namespace vandpublic
