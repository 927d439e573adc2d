#include "cli/json_values.h"

#include <gtest/gtest.h>

#include <limits>

namespace vandpublic {
namespace {

using Type = InterfaceType;

std::string Misfit(const char* json, InterfaceType type) {
  try {
    DecodeValue(ParseJson(json), type);
    return "";
  } catch (const ProtocolError& error) {
    return error.what();
  }
}

struct RoundTrip {
  InterfaceType type;
  const char* json;
};

class EveryForm : public testing::TestWithParam<RoundTrip> {};

TEST_P(EveryForm, comes_back_as_it_went_in) {
  const auto& [type, json] = GetParam();
  EXPECT_EQ(EncodeValue(DecodeValue(ParseJson(json), type), type).dump(), json);
}

constexpr RoundTrip kRoundTrips[] = {
    {Type::Boolean, "true"},
    {Type::Boolean, "false"},
    {Type::Byte, "0"},
    {Type::Byte, "255"},
    {Type::Integer, "-32768"},
    {Type::Integer, "32767"},
    {Type::Long, "-2147483648"},
    {Type::Long, "2147483647"},
    {Type::PadMethod, "2"},
    {Type::LockType, "-1"},
    {Type::String, "\"\""},
    {Type::String, "null"},
    {Type::String, "\"a\\u0000\\n\\\"\\\\\xC3\xA9\xF0\x9F\x98\x80\""},
    {Type::String, R"({"utf16le":"00D8"})"},
    {Type::String, R"({"utf16le":"410042"})"},
    {Type::ByteArray, "null"},
    {Type::ByteArray, R"({"bytes":""})"},
    {Type::ByteArray, R"({"bytes":"00FF7F"})"},
    {Type::ByteArray, R"({"bytes":"0A","lower":-2147483648})"},
    {Type::ByteArray, R"({"bytes":"0A","lower":2147483647})"},
    {Type::ByteTable, "null"},
    {Type::ByteTable, R"({"bytes":"000102030405","bounds":[[0,1],[0,2]]})"},
    {Type::ByteTable, R"({"bytes":"00","bounds":[[-5,-5],[7,7]]})"},
    {Type::ErrObject, "null"},
    {Type::Connection, "null"},
    {Type::Variant, R"({"vt":0,"value":null})"},
    {Type::Variant, R"({"vt":1,"value":null})"},
    {Type::Variant, R"({"vt":2,"value":-5})"},
    {Type::Variant, R"({"vt":3,"value":2147483647})"},
    {Type::Variant, R"({"vt":4,"value":0.5})"},
    {Type::Variant, R"({"vt":4,"value":-3.4028234663852886e+38})"},
    {Type::Variant, R"({"vt":5,"value":1e+300})"},
    {Type::Variant, R"({"vt":6,"value":"12.5000"})"},
    {Type::Variant, R"({"vt":6,"value":"-0.0001"})"},
    {Type::Variant, R"({"vt":6,"value":"-922337203685477.5808"})"},
    {Type::Variant, R"({"vt":7,"value":45356.5})"},
    {Type::Variant, R"({"vt":8,"value":"x"})"},
    {Type::Variant, R"({"vt":8,"value":{"utf16le":"41"}})"},
    {Type::Variant, R"({"vt":9,"value":null})"},
    {Type::Variant, R"({"vt":11,"value":true})"},
    {Type::Variant, R"({"vt":14,"value":"1234.50"})"},
    {Type::Variant, R"({"vt":17,"value":255})"},
    {Type::Variant, R"({"vt":8209,"value":{"bytes":"0A0B","lower":1}})"},
    {Type::Variant, R"({"vt":8209,"value":null})"},
    {Type::Variant, R"({"vt":8209,"value":{"bytes":"0A0B","bounds":[[0,1],[0,0]]}})"},
    {Type::Variant, R"({"vt":8204,"value":{"bounds":[[1,3],[0,-1]]}})"},
    {Type::Variant, R"({"vt":8200,"value":null})"},
};
INSTANTIATE_TEST_SUITE_P(JsonValues, EveryForm, testing::ValuesIn(kRoundTrips));

struct PlainForm {
  const char* json;
  const char* variant;
};

class PlainVariant : public testing::TestWithParam<PlainForm> {};

TEST_P(PlainVariant, takes_the_type_of_the_json_value) {
  const auto& [json, variant] = GetParam();
  EXPECT_EQ(EncodeVariant(DecodeVariant(ParseJson(json))).dump(), variant);
}

constexpr PlainForm kPlainForms[] = {
    {"\"5\"", R"({"vt":8,"value":"5"})"},
    {"true", R"({"vt":11,"value":true})"},
    {"5", R"({"vt":3,"value":5})"},
    {"-2147483648", R"({"vt":3,"value":-2147483648})"},
    {"2147483648", R"({"vt":5,"value":2147483648.0})"},
    {"5.0", R"({"vt":5,"value":5.0})"},
    {"null", R"({"vt":1,"value":null})"},
    {R"({"utf16le":"4100"})", R"({"vt":8,"value":"A"})"},
    {R"({"bytes":"0a"})", R"({"vt":8209,"value":{"bytes":"0A"}})"},
    {R"({"vt":0})", R"({"vt":0,"value":null})"},
};
INSTANTIATE_TEST_SUITE_P(JsonValues, PlainVariant, testing::ValuesIn(kPlainForms));

struct Refusal {
  InterfaceType type;
  const char* json;
};

class Refused : public testing::TestWithParam<Refusal> {};

TEST_P(Refused, tells_what_is_needed) {
  const auto& [type, json] = GetParam();
  EXPECT_NE(Misfit(json, type), "");
}

constexpr Refusal kRefusals[] = {
    {Type::Boolean, "1"},
    {Type::Boolean, "\"True\""},
    {Type::Boolean, "null"},
    {Type::Byte, "-1"},
    {Type::Byte, "256"},
    {Type::Integer, "32768"},
    {Type::Integer, "-32769"},
    {Type::Integer, "1.5"},
    {Type::Integer, "\"1\""},
    {Type::Integer, "true"},
    {Type::Integer, "1e300"},
    {Type::Long, "2147483648"},
    {Type::Long, "18446744073709551615"},
    {Type::Long, "-1e300"},
    {Type::Variant, R"({"vt":4,"value":3.5e38})"},
    {Type::Variant, R"({"vt":4,"value":-3.5e38})"},
    {Type::PadMethod, "\"NOPAD\""},
    {Type::PadMethod, "2147483648"},
    {Type::String, "5"},
    {Type::String, "[]"},
    {Type::String, "{}"},
    {Type::String, R"({"utf16le":"4"})"},
    {Type::String, R"({"utf16le":"4G"})"},
    {Type::String, R"({"utf16le":5})"},
    {Type::String, R"({"utf16le":"41","x":1})"},
    {Type::ByteArray, "\"0A\""},
    {Type::ByteArray, R"({"bytes":"0"})"},
    {Type::ByteArray, R"({"bytes":"0 A "})"},
    {Type::ByteArray, R"({"bytes":null})"},
    {Type::ByteArray, R"({"bytes":"0A","lower":1.5})"},
    {Type::ByteArray, R"({"bytes":"0A0B","lower":2147483647})"},
    {Type::ByteArray, R"({"bytes":"0A","bounds":[[0,0],[0,0]]})"},
    {Type::ByteArray, "[10]"},
    {Type::ByteTable, R"({"bytes":"0A0B","bounds":[[0,0],[0,0]]})"},
    {Type::ByteTable, R"({"bytes":"","bounds":[[0,-1],[0,0]]})"},
    {Type::ByteTable, R"({"bytes":"0A","bounds":[[0,0]]})"},
    {Type::ByteTable, R"({"bytes":"0A","bounds":[[1,-1],[0,0]]})"},
    {Type::ByteTable, R"({"bytes":"0A","bounds":[[-2147483648,2147483647],[0,0]]})"},
    {Type::ByteTable, R"({"bytes":"0A","bounds":[[0,2147483646],[0,2147483646]]})"},
    {Type::ErrObject, "5"},
    {Type::ErrObject, R"({"Number":"5"})"},
    {Type::ErrObject, R"({"Number":5,"HelpFile":""})"},
    {Type::Connection, "{}"},
    {Type::Connection, "\"conn\""},
    {Type::Variant, "[]"},
    {Type::Variant, "{}"},
    {Type::Variant, R"({"vt":2,"value":40000})"},
    {Type::Variant, R"({"vt":2})"},
    {Type::Variant, R"({"vt":1,"value":0})"},
    {Type::Variant, R"({"vt":6,"value":12.5})"},
    {Type::Variant, R"({"vt":6,"value":"1.23456"})"},
    {Type::Variant, R"({"vt":6,"value":"922337203685477.5808"})"},
    {Type::Variant, R"({"vt":6,"value":"."})"},
    {Type::Variant, R"({"vt":6,"value":"1.-5"})"},
    {Type::Variant, R"({"vt":10,"value":0})"},
    {Type::Variant, R"({"vt":14,"value":"1e5"})"},
    {Type::Variant, R"({"vt":12,"value":0})"},
    {Type::Variant, R"({"vt":8202,"value":null})"},
    {Type::Variant, R"({"vt":-1,"value":0})"},
    {Type::Variant, R"({"vt":"2","value":0})"},
    {Type::Variant, R"({"vt":2,"value":0,"x":0})"},
};
INSTANTIATE_TEST_SUITE_P(JsonValues, Refused, testing::ValuesIn(kRefusals));

TEST(JsonValues, a_whole_number_may_be_written_with_a_point) {
  EXPECT_EQ(DecodeValue(ParseJson("2.0"), Type::Integer), Variant(Integer{2}));
}

TEST(JsonValues, an_enumeration_takes_its_names_in_any_case) {
  EXPECT_EQ(DecodeValue(ParseJson("\"LeftPad\""), Type::PadMethod), Variant(Long{1}));
}

TEST(JsonValues, a_one_dimensional_array_given_for_a_table_is_passed_as_such) {
  const Variant value = DecodeValue(ParseJson(R"({"bytes":"0A"})"), Type::ByteTable);
  EXPECT_NE(value.AsByteArray(), nullptr);
}

TEST(JsonValues, an_error_object_has_just_the_properties_given) {
  const Variant value = DecodeValue(ParseJson(R"({"number":5,"SOURCE":"s"})"), Type::ErrObject);
  const ObjectRef& error = *value.Get<ObjectRef>();
  EXPECT_EQ(error->Get("Number", {}), Variant(Long{5}));
  EXPECT_EQ(error->Get("Source", {}), Variant("s"));
  EXPECT_THROW(error->Get("Description", {}), RuntimeFault);
}

TEST(JsonValues, a_value_of_another_type_is_shown_as_the_type_has_it) {
  EXPECT_EQ(EncodeValue(Variant("8"), Type::Integer).dump(), "8");
  EXPECT_EQ(EncodeValue(Variant(Integer{0}), Type::Boolean).dump(), "false");
  EXPECT_EQ(EncodeValue(Variant("x"), Type::Integer).dump(), R"({"vt":8,"value":"x"})");
}

TEST(JsonValues, a_reference_to_an_array_shows_as_the_array) {
  ByteArray array = {1, 2};
  EXPECT_EQ(EncodeVariant(Variant::Referring(array)).dump(),
            R"({"vt":8209,"value":{"bytes":"0102"}})");
  ByteTable table({0, 1}, {5, 2});
  EXPECT_EQ(EncodeVariant(Variant::Referring(table)).dump(),
            R"({"vt":8209,"value":{"bytes":"0000","bounds":[[0,0],[5,6]]}})");
}

TEST(JsonValues, an_error_object_is_shown_by_its_class) {
  const Variant value = DecodeValue(ParseJson(R"({"Number":5})"), Type::ErrObject);
  EXPECT_EQ(EncodeValue(value, Type::ErrObject).dump(), R"({"object":"ErrObject"})");
}

struct Conversion {
  Variant value;
  InterfaceType type;
  Variant converted;
};

TEST(JsonValues, a_value_is_converted_to_the_type_of_a_variable) {
  const Conversion conversions[] = {
      {Variant("-1"), Type::Boolean, true},
      {Variant(255.0), Type::Byte, Byte{255}},
      {Variant("-32768"), Type::Integer, Integer{-32768}},
      {Variant("2147483647"), Type::Long, Long{2147483647}},
      {Variant(Byte{3}), Type::PadMethod, Long{3}},
      {Variant(Long{5}), Type::String, "5"},
      {Variant(), Type::ByteArray, ByteArray()},
      {Variant(), Type::ByteTable, ByteTable()},
      {Variant(), Type::ErrObject, ObjectRef()},
      {Variant(), Type::Connection, ObjectRef()},
      {Variant(), Type::Recordset, ObjectRef()},
      {Variant(), Type::Field, ObjectRef()},
      {Variant(NullValue{}), Type::Variant, NullValue{}},
  };
  for (const auto& [value, type, converted] : conversions)
    EXPECT_EQ(Converted(value, type), converted) << static_cast<int>(type);
}

TEST(JsonValues, what_cannot_be_converted_is_fault_6_or_13) {
  const auto fault = [](const Variant& value, InterfaceType type) {
    try {
      Converted(value, type);
      return 0;
    } catch (const RuntimeFault& raised) {
      return static_cast<int>(raised.number());
    }
  };
  EXPECT_EQ(fault(Variant(Long{256}), Type::Byte), 6);
  EXPECT_EQ(fault(Variant("2147483648"), Type::DebugMode), 6);
  for (const Type type : {Type::Boolean, Type::Integer, Type::Long, Type::ByteArray,
                          Type::ByteTable, Type::ErrObject, Type::Connection}) {
    EXPECT_EQ(fault(Variant("x"), type), 13) << static_cast<int>(type);
  }
}

TEST(JsonValues, an_error_has_its_number_in_both_forms) {
  const AutomationError own(-2147221485, u"clsCommon.HexToDec", u"d\u00e9");
  EXPECT_EQ(EncodeError(own).dump(),
            R"({"number":-2147221485,"hex":"0x80040013","source":"clsCommon.HexToDec",)"
            "\"description\":\"d\xC3\xA9\"}");
  EXPECT_EQ(EncodeError(RuntimeFault(FaultNumber::SubscriptOutOfRange))["hex"], "0x00000009");
}

}  // namespace
}  // namespace vandpublic
