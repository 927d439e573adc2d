// Statements of the dialects, taken apart and put together again for SQLite.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_SQL_STATEMENT_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_SQL_STATEMENT_H

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/posix/ado/sql/sql_tokens.h"

namespace vandpublic::ado {

enum class Verb { Select, Insert, Update, Delete };

// A statement, read but not yet translated.
struct SqlStatement {
  Verb verb = Verb::Select;
  std::vector<Token> tokens;  // without a semicolon at the end
  // The tables that it names, each once, without ".dbf".
  std::vector<std::string> tables;
  // Each row stands for one row of the only table: there is no join, group, union, subquery,
  // aggregate or DISTINCT.
  bool rows_are_table_rows = false;
};

// Reads a statement. A name alone is the table of that name: "Staff" is "Select * From Staff".
// What begins with no known verb, and text behind a semicolon, is a bad statement.
SqlStatement ReadStatement(std::string_view text, Dialect dialect);

// What the translation must know of the tables.
struct Translation {
  // Whether one of them has a column of that name, of any type or of text.
  std::function<bool(const std::string&)> is_column;
  std::function<bool(const std::string&)> is_text_column;
  // Added to the columns of the rows, where it is not empty.
  std::string extra_column;
};

// The statement in SQLite's words. Constants, dates, operators, functions and TOP are put in other
// words; what SQLite has as the dialects do is left as it is.
std::string TranslateStatement(const SqlStatement& statement, Dialect dialect,
                               const Translation& translation);

}  // namespace vandpublic::ado

#endif
