// Statements of both dialects over one table: that each means what it means to its own engine.
#include <gtest/gtest.h>

#include "runtime/errors.h"
#include "runtime/utf8.h"
#include "support/expected_rows.h"
#include "support/made_file_table.h"

namespace vandpublic::ado {
namespace {

MadeTable Words() {
  MadeTable table;
  table.columns = {{"A", DataType::VarWChar},     {"B", DataType::VarWChar},
                   {"C", DataType::Integer},      {"order", DataType::Integer},
                   {"asc", DataType::Integer},    {"top", DataType::Integer},
                   {"x]y", DataType::VarWChar},   {"a \"b\"", DataType::VarWChar},
                   {"$cost$", DataType::Integer}, {"between", DataType::Integer}};
  table.rows = {
      {"ab", "cd", Long{2}, Long{7}, Long{1}, Long{5}, "br", "qu", Long{9}, Long{3}},
      {"AB", NullValue{}, Long{-4}, Long{8}, Long{2}, Long{6}, "BR", "QU", Long{0}, Long{4}}};
  return table;
}

std::string Shown(const std::string& statement, Dialect dialect) {
  MadeTable table = Words();
  SqlEngine engine = EngineOver(table, dialect);
  try {
    return ShownResult(engine.Execute(statement, false));
  } catch (const AutomationError& error) {
    return ToUtf8(error.description());
  }
}

struct Statement {
  const char* text;
  const char* shown;  // the rows, or how the error begins
};

void ExpectAll(Dialect dialect, std::span<const Statement> statements) {
  for (const Statement& statement : statements) {
    const std::string shown = Shown(statement.text, dialect);
    const std::string_view expected = statement.shown;
    if (expected.find("yntax error") == std::string_view::npos) {
      EXPECT_EQ(shown, expected) << statement.text;
    } else {
      EXPECT_EQ(shown.substr(0, expected.size()), expected) << statement.text;
    }
  }
}

constexpr const char* kSyntaxError = "Syntax error in query. (";

constexpr Statement kJet[] = {
    {"Select A & '-' & B From t Where C=2", "ab-cd"},
    {"Select t.A & t!B From t Where C=2", "abcd"},
    {"Select 'x' & t.A & [t].[B] From t Where C=2", "xabcd"},
    {"Select (A) & (B) From t Where C=2", "abcd"},
    {"Select UCase(A) & LCase(B) & 1 From t Where C=2", "ABcd1"},
    {"Select 1+2 & 'x' From t Where C=2", "3x"},
    {"Select 5 Mod 3 & 6/4 & 2*3-1 From t Where C=2", "21.55"},
    {"Select -1 & +2 & - -3 From t Where C=2", "-123"},
    {"Select C*-1 & 'x' From t Where C=2", "-2x"},
    {"Select A & (C + 1) From t Where C=2", "ab3"},
    {"Select A & (Select Max(C) From t) From t Where C=2", "ab2"},
    {"Select A From t Where (A & B) = 'ABCD'", "ab"},
    {"Select A From t Where A & B In ('abcd')", "ab"},
    {"Select A & From t", kSyntaxError},
    {"Select & A From t", kSyntaxError},
    {"Select A &", "Syntax error in query. (missing operator)"},
    {"Select A & (1", "Syntax error in query. (missing ))"},
    {"Select (1", "Syntax error in query. (missing ))"},
    {"Select 1)", "Syntax error in query. (extra ))"},
    {"Select A + B From t Where C=2", "abcd"},
    {"Select A + t.B From t Where C=2", "abcd"},
    {"Select C + C From t Where C=2", "4"},
    {"Select 'x' + 'y' From t Where C=2", "xy"},
    {"Select Len(A) + C From t Where C=2", "4"},
    {"Select order From t Where C=2", "7"},
    {"Select C From t Where 7=order", "2"},
    {"Select order From t Order By order Desc", "8/7"},
    {"Select asc From t Where asc=1", "1"},
    {"Select C, asc From t Order By asc Desc", "-4|2/2|1"},
    {"Select C From t Order By C Asc", "-4/2"},
    {"Select C From t Where C Is Null Order By Null Asc", ""},
    {"Select top From t Order By C", "6/5"},
    {"Select Top 1 C From t Order By C", "-4"},
    {"Select Distinct Top 1 C From t Order By C Desc", "2"},
    {"Select All Top 1 C From t Order By C", "-4"},
    {"Select DistinctRow Top 1 C From t Order By C", "-4"},
    {"Select C From t Where C = (Select Top 1 C From t Order By C)", "-4"},
    {"Select Top 50 Percent C From t", "Syntax error in query. (TOP n PERCENT is not supported)"},
    {"Select Top From t", "5/6"},
    {"Select Left(A, 1) & Right(A, 1) & Left('xy', 1) From t Where C=2", "abx"},
    {"Select C From t Where True And Not False And C=2", "2"},
    {"Select `x]y` From t Where C=2", "br"},
    {"Select [x]y] From t", kSyntaxError},
    {"Select [a \"b\"] From t Where [a \"b\"]='QU' And C=2", "qu"},
    {"Select 'n' As [New Name], C As 'x' From t Where C=2", "n|2"},
    {"Select C From t Where A Like 'A_' And C=2", "2"},
    {"Select C From t Where A Like Null", ""},
    {"Select C From t Where Null Like 'a'", ""},
    {"Select Count(*) From t Where A Like '[!x-z]%'", "2"},
    {"Select Count(*) From t Where A Like '[^ab]%'", "0"},
    {"Select Count(*) From t Where A Like '[a-'", "0"},
    {"Select Count(*) From t Where '-' Like '[a-]'", "2"},
    {"Select Count(*) From t Where 'a-' Like 'a[-]'", "2"},
    {"Select Count(*) From t Where 'a%' Like 'a!%' Escape '!'", "2"},
    {"Select Count(*) From t Where 'ab' Like 'a!%' Escape '!'", "0"},
    {"Select Count(*) From t Where 'a!' Like '%!' Escape '!'", "2"},
    {"Select Count(*) From t Where 'ab' Like 'a%' Escape 'xy'", "2"},
    {"Select Count(*) From t Where 'a' Like ''", "0"},
    {"Select Count(*) From t Where '' Like '%%'", "2"},
    {"Select Count(*) From t Where 'abcbd' Like '%b_'", "2"},
    {"Select C From t Where A Between 'AA' And ('AC') And C=2", "2"},
    {"Select C As `c\"d` From [t] Where [C]=2;", "2"},
    {"Select 1.5e+2 + .5 - 1. + 2E1 - 1e-1", "169.4"},
    {"Select 1e From t", kSyntaxError},
    {"Select 2x From t", kSyntaxError},
    {"Select C @ 2 From t", kSyntaxError},
    {"Select C From t Where D = 2", "No value given for one or more required parameters."},
    {"Select `A From t", "Syntax error in query. (missing `)"},
    {"Select #1/1/2000 From t", "Syntax error in query. (missing #)"},
    {"Select 'it''s' & \"a\"\"b\" From t Where C=2", "it'sa\"b"},
    {"t", "ab|cd|2|7|1|5|br|qu|9|3/AB|\\N|-4|8|2|6|BR|QU|0|4"},
    {"[t]", "ab|cd|2|7|1|5|br|qu|9|3/AB|\\N|-4|8|2|6|BR|QU|0|4"},
};

TEST(JetStatement, Means_what_it_means_to_jet) { ExpectAll(Dialect::Jet, kJet); }

constexpr Statement kFoxPro[] = {
    {"Select A From t Where A='ab'", "ab"},
    {"Select A From t Where A=='ab'", "ab"},
    {"Select A From t Where A='ab   '", "ab"},
    {"Select A From t Where !(C=2)", "AB"},
    {"Select A From t Where !C=2", "AB"},
    {"Select A From t Where .Y. And .Not. .N. And C#-4", "ab"},
    {"Select A From t Where .T. .And. .Not. .F. .And. C=2 .Or. .Null.", "ab"},
    {"Select A From t Where C=.x.", "Syntax error. ("},
    {"Select A From t Where C=2.", "ab"},
    {"Select A+B From t Where C=2", "abcd"},
    {"Select C%3 From t Where C=2", "2"},
    {"Select $cost$ From t", "Syntax error. ("},
    {"Select [$cost$] From t Where C=2", "9"},
    {"Select C From t Where C Between (1) And (3)", "2"},
    {"Select C From t Where Between(C, 1, 3)", "2"},
    {"Select C From t Where C Not Between (1) And (3)", "-4"},
    {"Select C From t Where Not Between(C, 1, 3)", "-4"},
    {"Select [between] From t Where C=2", "3"},
    {"Select C From t Where Between(C, 1, 3) And 'x' & 'y' = 'xy'", "2"},
    {"Select t.C From t.dbf Where t.C=2", "2"},
    {"Select C From [t.dbf] Where C=2", "2"},
    {"Select C From `t.DBF` Where C=2", "2"},
    {"t.dbf", "ab|cd|2|7|1|5|br|qu|9|3/AB|\\N|-4|8|2|6|BR|QU|0|4"},
    {"Select C From t Where A Like '[a]%'", ""},
    {"Select C From t Where A Like 'a%'", "2"},
    {"Select C From t Where A Is Null", ""},
    {"Select nope From t", "SQL: Column 'nope' is not found."},
    {"Select A From u", "File 'u.dbf' does not exist."},
    {"Select 1 From t Group By", "Syntax error. ("},
    {"", "Unrecognized command verb."},
    {";", "Unrecognized command verb."},
    {"t u", "Unrecognized command verb."},
    {"1", "Unrecognized command verb."},
};

TEST(FoxProStatement, Means_what_it_means_to_foxpro) { ExpectAll(Dialect::FoxPro, kFoxPro); }

}  // namespace
}  // namespace vandpublic::ado
