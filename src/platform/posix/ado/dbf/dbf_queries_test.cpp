// Statements over FoxPro and dBASE tables: what they select, and how they fail.
#include <gtest/gtest.h>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/dbf/dbf_folder.h"
#include "platform/posix/ado/sql/sql_engine.h"
#include "platform/posix/code_pages.h"
#include "platform/posix/posix_clock.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"
#include "support/expected_rows.h"
#include "support/test_data.h"

namespace vandpublic::ado {
namespace {

SqlEngine Samples() {
  const DbfSettings settings{FindCodePage(1252), std::make_shared<PosixClock>()};
  return {std::make_unique<DbfFolder>(SamplePath("dbf"), settings), Dialect::FoxPro};
}

struct Query {
  const char* name;
  const char* statement;
  const char* rows;
};

class FoxProQuery : public testing::TestWithParam<Query> {};

TEST_P(FoxProQuery, Gives_these_rows) {
  SqlEngine engine = Samples();
  EXPECT_EQ(ShownResult(engine.Execute(GetParam().statement, false)), GetParam().rows);
}

constexpr Query kQueries[] = {
    {"Alias", "Select value As RetField From setup Where key_name='CALLS'", "21"},
    {"Name_in_other_case", "select VALUE as retfield from SETUP where KEY_NAME='CALLS'", "21"},
    {"File_name", "Select value From setup.dbf Where key_name='CALLS'", "21"},
    {"Text_is_case_sensitive", "Select value From setup Where key_name='calls'", ""},
    {"Two_conditions", "Select value From setup Where key_name='CALLS' And value=21", "21"},
    {"Three_conditions",
     "Select name From memotest Where name='Alice' And birthdate={^1987-03-01} And name<>'x'",
     "Alice"},
    {"Odbc_date", "Select name From memotest Where birthdate={d '1987-03-01'}", "Alice"},
    {"Deleted_row_is_hidden", "Select Count(*) From memotest", "2"},
    {"Memo", "Select memo From memotest Where name='Bob'", "Bob memo"},
    {"Double_quotes_are_text", "Select name From memotest Where name=\"Bob\"", "Bob"},
    {"Double_equals", "Select name From memotest Where name=='Bob'", "Bob"},
    {"Number_sign_is_not_equal", "Select name From memotest Where name#'Bob'", "Alice"},
    {"Logical_constant", "Select Count(*) From dbase_31 Where discontinu=.T.", "8"},
    {"Logical_operators", "Select Count(*) From dbase_31 Where .NOT. discontinu .AND. productid<=3",
     "3"},
    {"Currency", "Select unitprice From dbase_31 Where productid=1", "18"},
    {"Currency_compared", "Select Count(*) From dbase_31 Where unitprice=18", "4"},
    {"Quotient_has_a_fraction", "Select productid/2 From dbase_31 Where productid=1", "0.5"},
    {"Texts_joined_by_plus", "Select AllTrim(name)+'!' From memotest Where name='Bob'", "Bob!"},
    {"Functions", "Select Upper(Left(name,2)) From memotest Where Len(AllTrim(name))=3", "BO"},
    {"Nested_functions", "Select SubStr(DToS(birthdate),1,4) From memotest Where name='Bob'",
     "1980"},
    {"Order_and_top", "Select Top 1 productnam From dbase_31 Order By productid Desc",
     "Original Frankfurter gr\u00fcne So\u00e1e"},
    {"Order_by_position", "Select name, birthdate From memotest Order By 2",
     "Bob|1980-11-12/Alice|1987-03-01"},
    {"Columns_called_like_keywords",
     "Select order, id From dbase_83 Where order=87 Order By order Desc, desc", "87|87"},
    {"Aggregate", "Select Sum(value) From setup", "31"},
    {"Group", "Select categoryid, Count(*) From dbase_31 Where categoryid<3 Group By categoryid",
     "1|12/2|12"},
    {"Join", "Select a.value From setup a, types b Where a.value=b.contact_ty*8", "8"},
    {"Inner_join",
     "Select types.contact_t2 From types Inner Join setup On setup.value=types.contact_ty+20",
     "Buyer"},
    {"Subquery", "Select name From memotest Where birthdate=(Select Max(birthdate) From memotest)",
     "Alice"},
    {"In_list", "Select Count(*) From dbase_31 Where productid In (1,2,3)", "3"},
    {"Between", "Select Count(*) From dbase_31 Where productid Between 2 And 4", "3"},
    {"Like", "Select name From memotest Where name Like 'A%'", "Alice"},
    {"Iif_and_null", "Select IIf(IsNull(name),'none',AllTrim(name)) From memotest Where name='Bob'",
     "Bob"},
    {"Constant_date", "Select Year({^2024-03-05 14:07}) From types Where contact_ty=1", "2024"},
    {"Semicolon_at_the_end", "Select value From setup Where key_name='CALLS';", "21"},
    {"No_row", "Select value From setup Where key_name='NONE'", ""},
};

INSTANTIATE_TEST_SUITE_P(All, FoxProQuery, testing::ValuesIn(kQueries),
                         [](const auto& query) { return query.param.name; });

struct Failure {
  const char* name;
  const char* statement;
  SourceError number;
  const char* description;  // a part of it
};

class FoxProFailure : public testing::TestWithParam<Failure> {};

TEST_P(FoxProFailure, Is_told_with_its_number) {
  SqlEngine engine = Samples();
  try {
    engine.Execute(GetParam().statement, false);
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), static_cast<Long>(GetParam().number));
    EXPECT_EQ(ToUtf8(error.source()), kOdbcSource);
    EXPECT_NE(ToUtf8(error.description()).find(GetParam().description), std::string::npos)
        << ToUtf8(error.description());
  }
}

constexpr Failure kFailures[] = {
    {"No_such_table", "Select a From missing", SourceError::NoSuchTable,
     "File 'missing.dbf' does not exist."},
    {"No_such_column", "Select nope From setup", SourceError::BadStatement,
     "Column 'nope' is not found."},
    {"No_such_column_in_brackets", "Select [nope] From setup", SourceError::BadStatement,
     "Column 'nope' is not found."},
    {"Value_left_out", "Select value From setup Where value=", SourceError::BadStatement,
     "Syntax error."},
    {"Condition_without_where", "Select value From setup And value='1'", SourceError::BadStatement,
     "Syntax error."},
    {"Unknown_verb", "Attach 'x' As y", SourceError::BadStatement, "Unrecognized command verb."},
    {"Pragma", "Pragma table_list", SourceError::BadStatement, "Unrecognized command verb."},
    {"Create", "Create Table x (a int)", SourceError::BadStatement, "Unrecognized command verb."},
    {"Second_statement", "Select value From setup; Delete From setup", SourceError::BadStatement,
     "end of SQL statement"},
    {"Unknown_function", "Select load_extension('x') From setup", SourceError::BadStatement,
     "Undefined function 'load_extension'"},
    {"Function_of_the_engine", "Select randomblob(9) From setup", SourceError::BadStatement,
     "Undefined function 'randomblob'"},
    {"Catalog_of_the_engine", "Select name From sqlite_master", SourceError::NoSuchTable,
     "sqlite_master.dbf"},
    {"Open_quote", "Select value From setup Where key_name='O'Brien'", SourceError::BadStatement,
     "Syntax error."},
    {"Open_parenthesis", "Select (value From setup", SourceError::BadStatement, "Syntax error."},
    {"Close_parenthesis", "Select value) From setup", SourceError::BadStatement, "Syntax error."},
    {"Parameter", "Select value From setup Where value=?", SourceError::BadStatement,
     "Syntax error."},
    {"Bad_date", "Select name From memotest Where birthdate={^1987-13-01}",
     SourceError::BadStatement, "in date"},
    {"Negative_length", "Select Left(name,-1) From memotest", SourceError::CannotConvert,
     "Invalid procedure call"},
};

INSTANTIATE_TEST_SUITE_P(All, FoxProFailure, testing::ValuesIn(kFailures),
                         [](const auto& failure) { return failure.param.name; });

TEST(FoxProResult, Has_the_types_of_its_columns_under_their_labels) {
  SqlEngine engine = Samples();
  const Result result = engine.Execute(
      "Select productid As a, productnam As b, unitprice As c, discontinu As d, 1+1 As e, "
      "'x' As f From dbase_31 Where productid=1",
      false);
  ASSERT_EQ(result.columns.size(), 6u);
  const DataType types[] = {DataType::Integer, DataType::Char,    DataType::Currency,
                            DataType::Boolean, DataType::Integer, DataType::VarChar};
  for (std::size_t i = 0; i < result.columns.size(); ++i) {
    EXPECT_EQ(result.columns[i].name, std::string(1, static_cast<char>('a' + i)));
    EXPECT_EQ(result.columns[i].type, types[i]) << i;
  }
  EXPECT_EQ(result.columns[1].defined_size, 40);
  EXPECT_EQ(result.rows.at(0).values[3], Variant(false));
}

TEST(FoxProResult, Pads_text_to_the_width_of_its_column) {
  SqlEngine engine = Samples();
  const Result result = engine.Execute("Select name From memotest Where name='Bob'", false);
  const auto* const text = result.rows.at(0).values[0].Get<String>();
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->Length(), static_cast<std::size_t>(result.columns[0].defined_size));
}

}  // namespace
}  // namespace vandpublic::ado
