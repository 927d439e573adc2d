// Which statements read rows of one table.
#include "platform/posix/ado/odbc/simple_select.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vandpublic::ado {
namespace {

struct StatementCase {
  const char* statement;
  const char* table;    // null: not simple
  const char* aliases;  // joined with blanks
};

TEST(SimpleSelect, Is_told_from_other_statements) {
  constexpr StatementCase kCases[] = {
      {"SELECT * FROM t", "t", ""},
      {"select a, t.b from T where c = 'x' order by a limit 3", "T", ""},
      {"Select Name As RetField From Staff Where Code=7 And Dept='A'", "Staff", "RetField"},
      {"SELECT a b, c AS \"d e\", [f] [g], 'x' y FROM t;", "t", "b d e g y"},
      {"SELECT count(*) n, max(a, b) FROM t", "t", "n"},
      {"SELECT (SELECT a FROM b) c FROM t", "t", "c"},
      {"SELECT 'from', \"from\" FROM \"my \"\"table\"\"\"", "my \"table\"", ""},
      {"SELECT a -- , b FROM x\n FROM /* FROM y */ t", "t", ""},
      {"SELECT a FROM main.t x WHERE EXISTS (SELECT 1 FROM a, b GROUP BY c)", "t", ""},
      {"SELECT a FROM t WHERE b IN (1, 2)", "t", ""},
      {"SELECT a FROM t, u", nullptr, ""},
      {"SELECT a FROM t x, u", nullptr, ""},
      {"SELECT a FROM t JOIN u USING (a)", nullptr, ""},
      {"SELECT a FROM (SELECT a FROM t)", nullptr, ""},
      {"SELECT a FROM f(1)", nullptr, ""},
      {"SELECT DISTINCT a FROM t", nullptr, ""},
      {"SELECT a FROM t GROUP BY a", nullptr, ""},
      {"SELECT a FROM t WHERE b UNION SELECT a FROM u", nullptr, ""},
      {"SELECT a FROM t; DELETE FROM t", nullptr, ""},
      {"WITH t AS (SELECT 1) SELECT * FROM t", nullptr, ""},
      {"SELECT 1", nullptr, ""},
      {"SELECT", nullptr, ""},
      {"SELECT a FROM", nullptr, ""},
      {"SELECT a FROM 'unclosed", nullptr, ""},
      {"SELECT a FROM t.", nullptr, ""},
      {"DELETE FROM t", nullptr, ""},
      {"", nullptr, ""},
      {"/* never closed", nullptr, ""},
  };
  for (const StatementCase& test : kCases) {
    SCOPED_TRACE(test.statement);
    const auto parsed = ParseSimpleSelect(test.statement);
    ASSERT_EQ(parsed.has_value(), test.table != nullptr);
    if (!parsed) continue;
    EXPECT_EQ(parsed->table, test.table);
    std::string aliases;
    for (const std::string& alias : parsed->aliases)
      aliases += (aliases.empty() ? "" : " ") + alias;
    EXPECT_EQ(aliases, test.aliases);
  }
}

TEST(SimpleSelect, Survives_any_text) {
  const std::string_view signs = "select from,()'\"`[];-/*.a1 \n\x80";
  unsigned state = 1;
  for (int round = 0; round < 20000; ++round) {
    std::string text = "select ";
    for (int i = 0; i < 30; ++i) {
      state = state * 1664525u + 1013904223u;
      text += signs[(state >> 16) % signs.size()];
    }
    ParseSimpleSelect(text);
  }
}

}  // namespace
}  // namespace vandpublic::ado
