// Connection strings as members build them, as clients write them, and as nobody should.
#include "platform/posix/ado/connection_string.h"

#include <gtest/gtest.h>

namespace vandpublic::ado {
namespace {

struct ValueCase {
  const char* name;
  const char* text;
  const char* key;
  const char* value;  // null: not given
};

class ConnectionStringValue : public testing::TestWithParam<ValueCase> {};

TEST_P(ConnectionStringValue, Is_read) {
  const ConnectionString parsed(GetParam().text);
  const std::string* const value = parsed.Find(GetParam().key);
  if (GetParam().value == nullptr) {
    EXPECT_EQ(value, nullptr);
  } else {
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(*value, GetParam().value);
  }
}

constexpr const char* kOdbc =
    "Provider=MSDASQL.1;User ID=u;Password=p; Data Source=S1;Initial Catalog=db";

constexpr ValueCase kValueCases[] = {
    {"Plain_key", kOdbc, "Provider", "MSDASQL.1"},
    {"Key_after_a_blank", kOdbc, "Data Source", "S1"},
    {"Last_value_without_semicolon", kOdbc, "Initial Catalog", "db"},
    {"Key_in_another_case", kOdbc, "USER id", "u"},
    {"Unknown_key", kOdbc, "Extended Properties", nullptr},
    {"Key_with_inner_blanks", "Jet OLEDB:Database password= pw ;", "jet oledb:database password",
     "pw"},
    {"Inner_blanks_of_a_key_count", "Data  Source=x", "Data Source", nullptr},
    {"Braces", "Driver={Microsoft Visual FoxPro Driver};SourceType=DBF;", "Driver",
     "Microsoft Visual FoxPro Driver"},
    {"Brace_inside_braces", "PWD={p;w}}=x};UID=u", "PWD", "p;w}=x"},
    {"Key_behind_braces", "PWD={p;w}}=x};UID=u", "UID", "u"},
    {"Double_quotes_keep_blanks", "Password=\" a;b \" ;X=1", "Password", " a;b "},
    {"Doubled_quote", "Password='it''s'", "Password", "it's"},
    {"Empty_quotes", "Password=\"\";X=1", "Password", ""},
    {"Unclosed_quote_is_plain", "Password=\"ab;X=1", "Password", "\"ab"},
    {"Unclosed_brace_is_plain", "Password={ab;X=1", "X", "1"},
    {"Text_behind_the_quotes_makes_it_plain", "Password='a'b;X=1", "Password", "'a'b"},
    {"Quote_inside_a_value_is_plain", "Password=a\"b;X=1", "Password", "a\"b"},
    {"Equals_sign_in_a_value", "Password=a=b=;X=1", "Password", "a=b="},
    {"Last_of_two_wins", "X=1;x=2", "X", "2"},
    {"Empty_value", "X=;Y=1", "X", ""},
    {"Piece_without_a_value", "nonsense;X=1", "X", "1"},
    {"Piece_without_a_value_is_no_key", "nonsense;X=1", "nonsense", nullptr},
    {"Value_without_a_key", "=1;X=2", "", nullptr},
    {"Nothing", "", "X", nullptr},
    {"Only_separators", ";;;=;", "", nullptr},
};

INSTANTIATE_TEST_SUITE_P(Cases, ConnectionStringValue, testing::ValuesIn(kValueCases),
                         [](const auto& test) { return test.param.name; });

TEST(ConnectionString, Keeps_the_text_as_it_was_given) {
  EXPECT_EQ(ConnectionString("a = 1;;b").text(), "a = 1;;b");
}

TEST(ConnectionString, Set_replaces_a_value_and_leaves_the_text) {
  ConnectionString parsed("User ID=u;X=1");
  parsed.Set("user id", "other");
  EXPECT_EQ(parsed.Value("User ID"), "other");
  EXPECT_EQ(parsed.Value("X"), "1");
  EXPECT_EQ(parsed.text(), "User ID=u;X=1");
}

TEST(ConnectionString, Reads_very_long_strings) {
  const std::string value(32000, 'v');
  EXPECT_EQ(ConnectionString("Password=" + value + ";X=1").Value("Password"), value);
  std::string open_braces;
  for (int i = 0; i < 8000; ++i)
    open_braces += "a={;";
  EXPECT_EQ(ConnectionString(open_braces + "X=1").Value("X"), "1");
}

}  // namespace
}  // namespace vandpublic::ado
