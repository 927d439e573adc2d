// What the engine makes of any table: the types of a result's values, rows that are written, and
// how failures of a table and of a statement reach the caller.
#include "platform/posix/ado/sql/sql_engine.h"

#include <gtest/gtest.h>

#include "runtime/errors.h"
#include "runtime/utf8.h"
#include "support/expected_rows.h"
#include "support/made_file_table.h"

namespace vandpublic::ado {
namespace {

MadeTable OneColumn(DataType type, Variant value, std::string name = "x") {
  return {{{std::move(name), type, 0}}, {{std::move(value)}}};
}

// The error of the statement over the table, "rows: ..." where there is none.
std::string Outcome(MadeTable& table, const std::string& statement,
                    Dialect dialect = Dialect::Jet) {
  SqlEngine engine = EngineOver(table, dialect);
  try {
    return "rows: " + ShownResult(engine.Execute(statement, false));
  } catch (const AutomationError& error) {
    EXPECT_EQ(ToUtf8(error.source()), SourceOf(dialect)) << error.what();
    return ToUtf8(error.description());
  }
}

struct TypedValue {
  DataType type;
  Variant value;
};

std::vector<TypedValue> ValuesOfAllTypes() {
  return {{DataType::SmallInt, Integer{-5}},
          {DataType::Integer, Long{70000}},
          {DataType::Single, 1.5f},
          {DataType::Double, 0.1},
          {DataType::Currency, Currency{12345}},
          {DataType::Date, Date{45356.25}},
          {DataType::Boolean, true},
          {DataType::Boolean, false},
          {DataType::UnsignedTinyInt, Byte{200}},
          {DataType::BigInt, *Decimal::Parse("9007199254740990")},
          {DataType::Guid, "{00000000-0000-0000-0000-000000000001}"},
          {DataType::Binary, ByteArray({1, 0, 2})},
          {DataType::Char, "a"},
          {DataType::WChar, "b"},
          {DataType::Numeric, *Decimal::Parse("-12.25")},
          {DataType::DBDate, Date{45356}},
          {DataType::DBTime, Date{0.25}},
          {DataType::DBTimeStamp, Date{45356.5}},
          {DataType::VarChar, "c"},
          {DataType::LongVarChar, ""},
          {DataType::VarWChar, "\xC3\xA9"},
          {DataType::LongVarWChar, "d"},
          {DataType::VarBinary, ByteArray(std::vector<Byte>{})},
          {DataType::LongVarBinary, ByteArray({255})}};
}

// Alone a row is known by its number, so that exact values come from the table itself; of distinct
// rows the values come through the engine.
TEST(ValuesOfColumns, Keep_their_types) {
  for (const char* const statement : {"Select x From t", "Select Distinct x From t"}) {
    for (const TypedValue& typed : ValuesOfAllTypes()) {
      MadeTable table = OneColumn(typed.type, typed.value);
      const Result result = EngineOver(table, Dialect::Jet).Execute(statement, false);
      SCOPED_TRACE(statement + std::to_string(static_cast<Long>(typed.type)));
      EXPECT_EQ(result.columns.at(0).type, typed.type);
      ASSERT_EQ(result.rows.size(), 1u);
      EXPECT_EQ(result.rows[0].values.at(0), typed.value);
    }
  }
}

TEST(ValuesOfColumns, May_be_null_in_every_type) {
  for (const char* const statement : {"Select x From t", "Select Distinct x From t"}) {
    for (const TypedValue& typed : ValuesOfAllTypes()) {
      MadeTable table = OneColumn(typed.type, NullValue{});
      const Result result = EngineOver(table, Dialect::FoxPro).Execute(statement, false);
      EXPECT_TRUE(result.rows.at(0).values.at(0).IsNull()) << static_cast<Long>(typed.type);
    }
  }
}

// A double has not the digits for these.
TEST(ValuesOfColumns, Are_exact_in_rows_of_one_table) {
  for (const TypedValue& typed :
       {TypedValue{DataType::Currency, Currency{9007199254740993}},
        TypedValue{DataType::BigInt, *Decimal::Parse("9007199254740993")},
        TypedValue{DataType::Numeric, *Decimal::Parse("0.1234567890123456789")}}) {
    MadeTable table = OneColumn(typed.type, typed.value);
    table.rows.insert(table.rows.begin(), {typed.value});
    const Result result = EngineOver(table, Dialect::Jet).Execute("Select x From t", false);
    EXPECT_EQ(result.rows.at(1).values.at(0), typed.value) << static_cast<Long>(typed.type);
  }
}

struct Misfit {
  DataType type;
  const char* other;
  const char* error;
};

// The first part of a union decides on the type.
TEST(ValuesOfColumns, Of_a_union_that_do_not_fit_the_first_are_told) {
  constexpr Misfit kMisfits[] = {
      {DataType::SmallInt, "40000", "Overflow"},       {DataType::Integer, "'x'", "Type mismatch"},
      {DataType::UnsignedTinyInt, "256", "Overflow"},  {DataType::Single, "1e300", "Overflow"},
      {DataType::Double, "'x'", "Type mismatch"},      {DataType::Currency, "1e15", "Overflow"},
      {DataType::Currency, "'x'", "Type mismatch"},    {DataType::Boolean, "'x'", "Type mismatch"},
      {DataType::BigInt, "1e200", "Overflow"},         {DataType::Numeric, "1e200", "Overflow"},
      {DataType::Date, "'x'", "Type mismatch"},        {DataType::Binary, "'x'", "Type mismatch"},
      {DataType::LongVarBinary, "1", "Type mismatch"},
  };
  for (const Misfit& misfit : kMisfits) {
    MadeTable table = OneColumn(misfit.type, NullValue{});
    EXPECT_EQ(Outcome(table, "Select x From t Union All Select " + std::string(misfit.other)),
              misfit.error)
        << static_cast<Long>(misfit.type) << " and " << misfit.other;
  }
}

TEST(ValuesOfExpressions, Have_the_type_that_all_have_in_common) {
  MadeTable table{
      {{"n", DataType::Integer, 4}, {"s", DataType::VarWChar}, {"p", DataType::Binary}},
      {{Long{1}, "a", ByteArray({1})}, {Long{2147483647}, "b", ByteArray(std::vector<Byte>{})}}};
  struct Expression {
    const char* text;
    DataType type;
    const char* shown;
  };
  constexpr Expression kExpressions[] = {
      {"n+0", DataType::Integer, "1/2147483647"},
      {"n+1", DataType::Double, "2/2147483648"},
      {"n/2", DataType::Double, "0.5/1073741823.5"},
      {"IIf(n=1, 'a', n)", DataType::VarWChar, "a/2147483647"},
      {"IIf(n=1, Null, n)", DataType::Double, "\\N/2147483647"},
      {"Null", DataType::VarWChar, "\\N/\\N"},
  };
  for (const Expression& expression : kExpressions) {
    const Result result = EngineOver(table, Dialect::Jet)
                              .Execute("Select " + std::string(expression.text) + " From t", false);
    EXPECT_EQ(result.columns.at(0).type, expression.type) << expression.text;
    EXPECT_EQ(ShownResult(result), expression.shown) << expression.text;
  }
  const Result bytes =
      EngineOver(table, Dialect::Jet).Execute("Select IIf(n=1, p, Nz(p)) From t", false);
  EXPECT_EQ(bytes.columns.at(0).type, DataType::LongVarBinary);
  EXPECT_TRUE(bytes.columns.at(0).is_long);
  EXPECT_EQ(bytes.rows.at(0).values.at(0), Variant(ByteArray({1})));
  EXPECT_EQ(bytes.rows.at(1).values.at(0), Variant(ByteArray(std::vector<Byte>{})));
  EXPECT_EQ(Outcome(table, "Select IIf(n=1, p, s) From t"), "Type mismatch");
  EXPECT_EQ(Outcome(table, "Select Count(*) From t Where Empty(p)", Dialect::FoxPro), "rows: 0");
}

TEST(NamesOfColumns, May_be_any) {
  MadeTable table{{{"a\"b", DataType::Integer, 4},
                   {std::string("c\0d", 3), DataType::Integer, 4},
                   {"_rowid_", DataType::Integer, 4},
                   {"RowId", DataType::Integer, 4}},
                  {{Long{1}, Long{2}, Long{3}, Long{4}}}};
  EXPECT_EQ(Outcome(table, "Select * From t"), "rows: 1|2|3|4");
  EXPECT_EQ(Outcome(table, "Select [a\"b], cd, _rowid_, rowid From t"), "rows: 1|2|3|4");
  table.columns[0].name = "oid";
  EXPECT_EQ(Outcome(table, "Select oid, _rowid_ From t"), "rows: 1|3");
}

// Such a table has no name left for the number of a row.
TEST(NamesOfColumns, That_hide_the_rows_make_them_read_only) {
  MadeTable table{{{"oid", DataType::Currency, 8},
                   {"_rowid_", DataType::Integer, 4},
                   {"RowId", DataType::Integer, 4}},
                  {{Currency{12345}, Long{2}, Long{3}}}};
  table.writable = true;
  const Result result = EngineOver(table, Dialect::FoxPro).Execute("Select * From t", true);
  EXPECT_EQ(ShownResult(result), "1.2345|2|3");
  EXPECT_EQ(result.writer, nullptr);
}

TEST(Tables, That_the_engine_cannot_take_are_told) {
  MadeTable twice{{{"x", DataType::Integer, 4}, {"X", DataType::Integer, 4}}, {}};
  EXPECT_NE(Outcome(twice, "Select * From t").find("duplicate column name"), std::string::npos);
  MadeTable wide;
  wide.columns.resize(2040);
  for (std::size_t i = 0; i < wide.columns.size(); ++i)
    wide.columns[i].name = "c" + std::to_string(i);
  EXPECT_NE(Outcome(wide, "Select * From t", Dialect::FoxPro).find("too many columns"),
            std::string::npos);
  MadeTable reserved = OneColumn(DataType::Integer, Long{1});
  SqlEngine engine(
      std::make_unique<MadeTables>(std::map<std::string, MadeTable*>{{"sqlite_x", &reserved}}),
      Dialect::FoxPro);
  EXPECT_THROW(engine.Execute("Select * From sqlite_x", false), AutomationError);
}

TEST(Tables, That_break_are_told_with_their_own_error) {
  for (const Broken place : {Broken::Scan, Broken::Next, Broken::Value, Broken::Seek}) {
    MadeTable table = OneColumn(DataType::Currency, Currency{5});
    table.broken = place;
    EXPECT_EQ(Outcome(table, "Select x From t Where x > 0"), "broken") << static_cast<int>(place);
  }
}

TEST(Statements, That_fail_while_they_run_are_told) {
  MadeTable table = OneColumn(DataType::Integer, Long{1});
  EXPECT_EQ(Outcome(table,
                    "Select Sum(n) From (Select 9223372036854775807 As n Union All Select "
                    "9223372036854775807)"),
            "integer overflow");
  SqlEngine engine = EngineOver(table, Dialect::Jet);
  engine.SetCommandTimeout(1);
  table.rows.resize(2000, {Long{1}});
  try {
    engine.Execute("Select Count(*) From t a, t b, t c Where a.x + b.x + c.x = 4", false);
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), static_cast<Long>(SourceError::TimedOut));
    EXPECT_EQ(ToUtf8(error.description()), "Timeout expired");
  }
}

// None of these is a table that the finder of tables sees.
TEST(Statements, Reach_no_table_of_the_engine_itself) {
  MadeTable table = OneColumn(DataType::VarWChar, "table");
  for (const char* const statement :
       {"Select x From t Where x In sqlite_master",
        "Select x From t Where (x, x, x, x, x) In sqlite_master",
        "Select x From t Where x In pragma_compile_options",
        "Select * From (With Recursive t(n) As (Select 1 Union All Select n+1 From t) Select n "
        "From t)"}) {
    const std::string outcome = Outcome(table, statement);
    EXPECT_FALSE(outcome.starts_with("rows")) << statement << ": " << outcome;
  }
}

// Through statements and through the writer of a result.
class Writing : public testing::Test {
 protected:
  Writing() {
    table_.columns = {{"n", DataType::Integer, 4}, {"s", DataType::VarChar, 20}};
    table_.rows = {{Long{1}, "one"}, {Long{2}, NullValue{}}};
    table_.writable = true;
  }

  Result Execute(const char* statement, bool updatable) {
    return EngineOver(table_, Dialect::FoxPro).Execute(statement, updatable);
  }
  std::string Rows() { return ShownResult(Execute("Select * From t", false)); }

  MadeTable table_;
};

TEST_F(Writing, By_statements_counts_the_rows) {
  EXPECT_EQ(Execute("Update t Set s='x' Where n>0", false).rows_affected, 2);
  EXPECT_EQ(Rows(), "1|x/2|x");
  EXPECT_EQ(Execute("Insert Into t (n) Values (3)", false).rows_affected, 1);
  EXPECT_EQ(Rows(), "1|x/2|x/3|\\N");
  EXPECT_EQ(Execute("Delete From t Where n=2", false).rows_affected, 1);
  EXPECT_EQ(Rows(), "1|x/3|\\N");
  EXPECT_EQ(Execute("Update t Set n=n+1, s=Null Where n=9", false).rows_affected, 0);
}

TEST_F(Writing, Of_a_row_reads_back_what_was_stored) {
  Result result = Execute("Select n, s, n+1 As m From t", true);
  ASSERT_NE(result.writer, nullptr);
  Row after = result.rows[0];
  after.values[1] = "changed";
  result.writer->Update(result.rows[0], after, {false, true, false});
  EXPECT_EQ(Rows(), "1|changed/2|\\N");
  Row added{{Long{3}, NullValue{}, NullValue{}}, 0};
  result.writer->Insert(added, {true, false, false});
  EXPECT_EQ(added.locator, 3);
  result.writer->Delete(result.rows[0]);
  EXPECT_EQ(Rows(), "2|\\N/3|\\N");
}

TEST_F(Writing, Of_an_expression_has_no_table) {
  Result result = Execute("Select n, n+1 As m From t", true);
  ASSERT_NE(result.writer, nullptr);
  Row after = result.rows[0];
  EXPECT_THROW(result.writer->Update(result.rows[0], after, {false, true}), AutomationError);
  EXPECT_EQ(Rows(), "1|one/2|\\N");
}

// The row is stored; what is wrong with it is told to who reads it next.
TEST_F(Writing, Of_a_row_that_cannot_be_read_back_is_done) {
  Result result = Execute("Select * From t", true);
  Row after = result.rows[0];
  after.values[1] = "changed";
  table_.broken = Broken::WrittenValue;
  result.writer->Update(result.rows[0], after, {false, true});
  EXPECT_EQ(table_.rows[0][1], Variant("changed"));
  EXPECT_THROW(Rows(), AutomationError);
}

TEST_F(Writing, Is_refused_of_a_table_that_cannot_be_written) {
  table_.writable = false;
  EXPECT_EQ(Outcome(table_, "Update t Set s='x'"), "Operation must use an updateable query.");
  EXPECT_EQ(Execute("Select * From t", true).writer, nullptr);
}

}  // namespace
}  // namespace vandpublic::ado
