#include "cli/json_text.h"

#include <gtest/gtest.h>

namespace vandpublic {
namespace {

std::string Problem(std::string_view text) {
  try {
    ParseJson(text);
    return "";
  } catch (const ProtocolError& error) {
    return error.what();
  }
}

std::string Nested(std::size_t levels) {
  return std::string(levels, '[') + std::string(levels, ']');
}

std::string Values(std::size_t count) {
  std::string text = "[0";
  for (std::size_t i = 1; i < count; ++i)
    text += ",0";
  return text + "]";
}

TEST(JsonText, keeps_the_order_of_keys) {
  EXPECT_EQ(ParseJson(R"({"b":1,"a":[true,null,"x"],"c":{"d":-1.5}})").dump(),
            R"({"b":1,"a":[true,null,"x"],"c":{"d":-1.5}})");
}

TEST(JsonText, names_the_byte_where_it_stops) {
  EXPECT_EQ(Problem("{\"a\":}"), "bad JSON at byte 6");
  EXPECT_EQ(Problem(""), "bad JSON at byte 1");
  EXPECT_EQ(Problem("[1] 2"), "bad JSON at byte 5");
  EXPECT_EQ(Problem("{\"a\":1}{}"), "bad JSON at byte 8");
}

TEST(JsonText, refuses_what_is_not_utf8) {
  EXPECT_EQ(Problem("\"\xFF\""), "bad JSON at byte 2");
  EXPECT_EQ(Problem("\"\xC3\""), "bad JSON at byte 3");
  EXPECT_EQ(Problem("\"\xED\xA0\x80\""), "bad JSON at byte 3");
  EXPECT_NE(Problem(R"("\ud800")"), "");
}

TEST(JsonText, a_zero_byte_is_not_the_end) {
  EXPECT_EQ(Problem(std::string_view("{}\0garbage", 10)), "bad JSON at byte 3");
}

TEST(JsonText, refuses_a_key_given_twice) {
  EXPECT_EQ(Problem(R"({"a":1,"b":2,"a":3})"), "key 'a' is given twice");
  EXPECT_EQ(Problem(R"({"a":1,"b":{"a":3}})"), "");
}

TEST(JsonText, refuses_numbers_that_no_double_holds) {
  EXPECT_EQ(Problem("[1e400]"), "bad JSON: a number is out of range");
}

TEST(JsonText, takes_64_levels_and_no_more) {
  EXPECT_EQ(Problem(Nested(64)), "");
  EXPECT_EQ(Problem(Nested(65)), "nested deeper than 64 levels");
  EXPECT_EQ(Problem(std::string(5000000, '[')), "nested deeper than 64 levels");
  EXPECT_EQ(Problem(std::string(65, ' ') + R"({"a":)"), "bad JSON at byte 71");
}

TEST(JsonText, takes_10000_values_and_no_more) {
  EXPECT_EQ(Problem(Values(9999)), "");  // and the array itself
  EXPECT_EQ(Problem(Values(10000)), "more than 10000 values in one text");
}

TEST(JsonText, raw_member_is_the_text_as_it_stands) {
  EXPECT_EQ(RawMember(R"({"id":1.50,"show":"a"})", "id"), "1.50");
  EXPECT_EQ(RawMember(R"( { "show" : "a" , "id" : [ 1, {"x": "}\"]"} ] } )", "id"),
            R"([ 1, {"x": "}\"]"} ])");
  EXPECT_EQ(RawMember(R"({"a":{"id":1},"b":["id",2],"id":"x\\"})", "id"), R"("x\\")");
  EXPECT_EQ(RawMember(R"({"id":123456789012345678901234567890})", "id"),
            "123456789012345678901234567890");
  EXPECT_EQ(RawMember("{\"id\":null\t}", "id"), "null");
  EXPECT_EQ(RawMember("\xEF\xBB\xBF{\r\n\"id\"\t:\r\n7\r}", "id"), "7");
}

TEST(JsonText, raw_member_is_empty_when_there_is_none) {
  EXPECT_EQ(RawMember("{}", "id"), "");
  EXPECT_EQ(RawMember(R"({"a":"id"})", "id"), "");
}

TEST(WrittenMembers, stand_as_they_are_written) {
  const auto members = WrittenMembers(R"({ "\u0061" :1.50 , "b":[ 1, 2 ],"":"}"})");
  ASSERT_EQ(members.size(), 3U);
  EXPECT_EQ(members[0].key, R"("\u0061")");
  EXPECT_EQ(members[0].value, "1.50");
  EXPECT_EQ(members[1].value, "[ 1, 2 ]");
  EXPECT_EQ(members[2].key, R"("")");
  EXPECT_EQ(members[2].value, R"("}")");
  EXPECT_TRUE(WrittenMembers("{ }").empty());
}

TEST(JsonText, quotes_are_shortened_between_characters) {
  EXPECT_EQ(Quoted("short"), "short");
  EXPECT_EQ(Quoted(std::string(81, 'a')), std::string(80, 'a') + "...");
  EXPECT_EQ(Quoted(std::string(79, 'a') + "\xC3\xA9z"), std::string(79, 'a') + "...");
  EXPECT_EQ(Quoted(std::string(100, '\x80')), "...") << "a word of the command line may be any";
}

}  // namespace
}  // namespace vandpublic
