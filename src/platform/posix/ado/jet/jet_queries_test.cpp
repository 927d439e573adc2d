// Statements over Jet databases: what they select, how they fail, and that nothing is written.
#include <gtest/gtest.h>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/jet/jet_database.h"
#include "platform/posix/ado/jet/jet_header.h"
#include "platform/posix/ado/sql/sql_engine.h"
#include "platform/posix/code_pages.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"
#include "support/expected_rows.h"
#include "support/temp_folder.h"
#include "support/test_data.h"

namespace vandpublic::ado {
namespace {

SqlEngine EngineFor(const std::string& path, std::u16string_view password = {}) {
  return {std::make_unique<JetDatabase>(path, password, FindCodePage(1252)), Dialect::Jet};
}

struct Query {
  const char* name;
  const char* statement;
  const char* rows;
};

// Over testV1997.mdb.
class JetQuery : public testing::TestWithParam<Query> {};

TEST_P(JetQuery, Gives_these_rows) {
  SqlEngine engine = EngineFor(SamplePath("jet/testV1997.mdb"));
  EXPECT_EQ(ShownResult(engine.Execute(GetParam().statement, false)), GetParam().rows);
}

constexpr Query kQueries[] = {
    {"Alias", "Select A As RetField From Table1 Where C=2", "abcdefg"},
    {"Names_in_other_case", "SELECT a AS r FROM TABLE1 WHERE c=2", "abcdefg"},
    {"Text_is_compared_without_case", "Select C From Table1 Where A='ABCDEFG'", "2"},
    {"Text_is_not_a_part", "Select C From Table1 Where A='abc'", ""},
    {"Expression_is_compared_without_case", "Select C From Table1 Where Left(A,3)='ABC'", "2"},
    {"Brackets", "Select [A] From [Table1] Where [C]=2", "abcdefg"},
    {"Name_with_its_table", "Select Table1.A From Table1 Where Table1.[C]=2", "abcdefg"},
    {"Yes", "Select A From Table1 Where I=True", "abcdefg"},
    {"No", "Select A From Table1 Where I=False", "a"},
    {"Yes_is_minus_one", "Select A From Table1 Where I=-1", "abcdefg"},
    {"Not", "Select A From Table1 Where Not I", "a"},
    {"Date", "Select A From Table1 Where G=#9/21/1974#", "abcdefg"},
    {"Date_in_order_of_size", "Select A From Table1 Where G=#1974-09-21#", "abcdefg"},
    {"Later_date", "Select A From Table1 Where G>#1/1/1980#", "a"},
    {"Currency", "Select H From Table1 Where H=3.5", "3.5"},
    {"Double", "Select F From Table1 Where E=333333333", "444.555"},
    {"Texts_joined", "Select A & '-' & B From Table1 Where C=2", "abcdefg-hijklmnop"},
    {"Number_joined", "Select A & C From Table1 Where C=2", "abcdefg2"},
    {"Sum_joined", "Select A & C+1 & '!' From Table1 Where C=2", "abcdefg3!"},
    {"Null_joined", "Select A & Null & B From Table1 Where C=0", "ab"},
    {"Texts_added", "Select A+B From Table1 Where C=0", "ab"},
    {"Joined_in_condition", "Select C From Table1 Where A & B = 'AB'", "0"},
    {"Quotient", "Select C/4 From Table1 Where C=2", "0.5"},
    {"Modulus", "Select D Mod 100 From Table1 Where C=2", "22"},
    {"Double_quotes", "Select C From Table1 Where A=\"abcdefg\"", "2"},
    {"Quote_in_text", "Select 'O''Brien' From Table1 Where C=2", "O'Brien"},
    {"Top", "Select Top 1 A From Table1 Order By C Desc", "abcdefg"},
    {"Distinctrow", "Select DistinctRow A From Table1 Where C=2", "abcdefg"},
    {"Iif", "Select IIf(I, 'yes', 'no') From Table1 Where C=2", "yes"},
    {"Nz", "Select Nz(Null, 'none') From Table1 Where C=2", "none"},
    {"Is_null", "Select IsNull(A) From Table1 Where C=2", "0"},
    {"Functions", "Select UCase(Mid(A,2,3)) & Len(B) From Table1 Where C=2", "BCD9"},
    {"In_str", "Select InStr(A,'CD') From Table1 Where C=2", "3"},
    {"Year_of_a_date", "Select Year(G) From Table1 Where C=2", "1974"},
    {"Like", "Select A From Table1 Where A Like 'ABC%'", "abcdefg"},
    {"Like_a_set", "Select A From Table1 Where A Like '[x-z,a]'", "a"},
    {"Aggregate", "Select Sum(C), Max(D) From Table1", "2|222"},
    {"Group", "Select I, Count(*) From Table1 Group By I Order By 1", "True|1/False|1"},
    {"Join", "Select x.A From Table1 x Inner Join Table1 y On x.C=y.C Where y.D=222", "abcdefg"},
    {"Subquery", "Select A From Table1 Where C=(Select Max(C) From Table1)", "abcdefg"},
    {"Table_alone", "Table1",
     "a|b|0|0|0|0|1981-12-12 00:00:00|0|False/"
     "abcdefg|hijklmnop|2|222|333333333|444.555|1974-09-21 00:00:00|3.5|True"},
    {"Comment_marks_are_none", "Select 5--2 From Table1 Where C=2", "7"},
};

INSTANTIATE_TEST_SUITE_P(All, JetQuery, testing::ValuesIn(kQueries),
                         [](const auto& query) { return query.param.name; });

struct Failure {
  const char* name;
  const char* statement;
  SourceError number;
  const char* description;  // a part of it
};

class JetFailure : public testing::TestWithParam<Failure> {};

TEST_P(JetFailure, Is_told_and_leaves_the_file_as_it_is) {
  const TempFolder folder({"jet/testV1997.mdb"});
  SqlEngine engine = EngineFor(folder.File("testV1997.mdb"));
  try {
    engine.Execute(GetParam().statement, true);
    ADD_FAILURE() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), static_cast<Long>(GetParam().number)) << error.what();
    EXPECT_EQ(ToUtf8(error.source()), kJetSource);
    EXPECT_NE(ToUtf8(error.description()).find(GetParam().description), std::string::npos)
        << error.what();
  }
  EXPECT_EQ(folder.Read("testV1997.mdb"), ReadSample("jet/testV1997.mdb"));
}

constexpr Failure kFailures[] = {
    {"No_such_table", "Select A From Nothing", SourceError::NoSuchTable,
     "cannot find the input table or query 'Nothing'.  Make sure"},
    {"System_table", "Select Name From MSysObjects", SourceError::NoSuchTable, "MSysObjects"},
    {"No_such_column", "Select Nope From Table1", SourceError::ParameterMissing,
     "No value given for one or more required parameters."},
    {"Value_left_out", "Select A From Table1 Where C=", SourceError::BadStatement,
     "Syntax error in query."},
    {"Condition_without_where", "Select A From Table1 And C='1'", SourceError::BadStatement,
     "Syntax error in query."},
    {"Open_quote", "Select A From Table1 Where A='O'Brien'", SourceError::BadStatement,
     "Syntax error in query."},
    {"Bad_date", "Select A From Table1 Where G=#13/13/1974#", SourceError::BadStatement, "date"},
    {"Unknown_function", "Select Nope(A) From Table1", SourceError::BadStatement,
     "Undefined function 'Nope'"},
    {"Unknown_verb", "Vacuum Table1", SourceError::BadStatement, "Invalid SQL statement"},
    {"Update", "Update Table1 Set A='x'", SourceError::Failed,
     "Operation must use an updateable query."},
    {"Delete", "Delete From Table1", SourceError::Failed,
     "Operation must use an updateable query."},
    {"Insert", "Insert Into Table1 (A) Values ('x')", SourceError::Failed,
     "Operation must use an updateable query."},
};

INSTANTIATE_TEST_SUITE_P(All, JetFailure, testing::ValuesIn(kFailures),
                         [](const auto& failure) { return failure.param.name; });

TEST(JetResult, Has_the_types_of_its_columns_and_no_writer) {
  SqlEngine engine = EngineFor(SamplePath("jet/testV1997.mdb"));
  const Result result = engine.Execute("Select * From Table1 Where C=2", true);
  const DataType types[] = {DataType::VarWChar, DataType::VarWChar, DataType::UnsignedTinyInt,
                            DataType::SmallInt, DataType::Integer,  DataType::Double,
                            DataType::Date,     DataType::Currency, DataType::Boolean};
  ASSERT_EQ(result.columns.size(), std::size(types));
  for (std::size_t i = 0; i < std::size(types); ++i) {
    EXPECT_EQ(result.columns[i].type, types[i]) << result.columns[i].name;
    EXPECT_FALSE(result.columns[i].updatable);
  }
  EXPECT_EQ(result.writer, nullptr);
  EXPECT_EQ(result.rows.at(0).values[8], Variant(true));
}

// What opening with the password comes to: 0, or the error's number.
Long Opened(const std::string& path, std::u16string_view password) {
  try {
    EngineFor(path, password);
    return 0;
  } catch (const AutomationError& error) {
    return error.number();
  }
}

TEST(JetPassword, Must_be_right_to_the_letter) {
  const std::string path = SamplePath("jet/V2003_with-password.mdb");
  constexpr auto kRefused = static_cast<Long>(SourceError::LogInFailed);
  EXPECT_EQ(Opened(path, u"password"), 0);
  EXPECT_EQ(Opened(path, u"Password"), kRefused);
  EXPECT_EQ(Opened(path, u"passwor"), kRefused);
  EXPECT_EQ(Opened(path, u"password1"), kRefused);
  EXPECT_EQ(Opened(path, u""), kRefused);
  EXPECT_EQ(Opened(path, std::u16string(50, u'p')), kRefused);
}

TEST(JetPassword, Is_not_asked_of_a_database_without_one) {
  EXPECT_EQ(Opened(SamplePath("jet/testV1997.mdb"), u"anything"), 0);
}

// No sample of Jet 3 has a password: this one is made of a sample without, as the format tells.
TEST(JetPassword, Of_jet_3_is_text_of_the_code_page) {
  const TempFolder folder;
  std::string file = ReadSample("jet/testV1997.mdb");
  const std::string key("\xC7\xDA\x39\x6B", 4);
  ApplyRc4(key, file.data() + 0x18, 126);
  file.replace(0x42, 6, "s\xE9same");
  ApplyRc4(key, file.data() + 0x18, 126);
  folder.Write("made.mdb", file);
  EXPECT_EQ(Opened(folder.File("made.mdb"), u"s\u00e9same"), 0);
  EXPECT_NE(Opened(folder.File("made.mdb"), u"S\u00e9same"), 0);
  EXPECT_NE(Opened(folder.File("made.mdb"), u""), 0);
}

TEST(JetFormat, Of_other_files_is_not_recognized) {
  const TempFolder folder;
  std::string accdb = ReadSample("jet/fixedTextTestV2000.mdb");
  accdb[0x14] = 2;
  folder.Write("new.mdb", accdb);
  folder.Write("empty.mdb", "");
  folder.Write("text.mdb", std::string(5000, 'x'));
  for (const char* const name : {"new.mdb", "empty.mdb", "text.mdb"}) {
    try {
      EngineFor(folder.File(name));
      ADD_FAILURE() << name;
    } catch (const AutomationError& error) {
      EXPECT_NE(ToUtf8(error.description()).find("Unrecognized database format"), std::string::npos)
          << error.what();
    }
  }
}

}  // namespace
}  // namespace vandpublic::ado
