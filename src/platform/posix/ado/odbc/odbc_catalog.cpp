// The catalog functions.
#include "platform/posix/ado/odbc/odbc_catalog.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <utility>

namespace vandpublic::ado {
namespace {

// An argument of a catalog function: null stands for "any".
SQLCHAR* NameArgument(const std::string& name) { return name.empty() ? nullptr : OdbcText(name); }

// Texts of the statement's current row, by column numbers in rising order; "" for null values.
template <std::size_t kCount>
std::array<std::string, kCount> ReadTexts(const OdbcHandle& statement,
                                          const SQLUSMALLINT (&numbers)[kCount]) {
  std::array<std::string, kCount> texts;
  for (std::size_t i = 0; i < kCount; ++i)
    texts[i] = ReadText(statement, numbers[i]).value_or(std::string());
  return texts;
}

Names PrimaryKey(const OdbcSession& session, const OdbcColumn& table) {
  const OdbcHandle statement = session.NewStatement();
  const OdbcLibrary& library = statement.library();
  statement.Check(library.PrimaryKeys(statement.get(), NameArgument(table.catalog), SQL_NTS,
                                      NameArgument(table.schema), SQL_NTS, OdbcText(table.table),
                                      SQL_NTS));
  constexpr SQLUSMALLINT kColumnName[] = {4};
  Names names;
  while (statement.Check(library.Fetch(statement.get())))
    names.push_back(ReadTexts(statement, kColumnName)[0]);
  return names;
}

std::vector<Names> UniqueIndexes(const OdbcSession& session, const OdbcColumn& table) {
  const OdbcHandle statement = session.NewStatement();
  const OdbcLibrary& library = statement.library();
  statement.Check(library.Statistics(statement.get(), NameArgument(table.catalog), SQL_NTS,
                                     NameArgument(table.schema), SQL_NTS, OdbcText(table.table),
                                     SQL_NTS, SQL_INDEX_UNIQUE, SQL_QUICK));
  constexpr SQLUSMALLINT kNonUniqueIndexAndColumn[] = {4, 6, 9};
  std::map<std::string, Names> indexes;
  while (statement.Check(library.Fetch(statement.get()))) {
    auto [non_unique, index, column] = ReadTexts(statement, kNonUniqueIndexAndColumn);
    if (index.empty() || column.empty() || non_unique != "0") continue;
    indexes[index].push_back(std::move(column));
  }
  std::vector<Names> keys;
  keys.reserve(indexes.size());
  for (auto& [index, columns] : indexes)
    keys.push_back(std::move(columns));
  return keys;
}

}  // namespace

Names ColumnNames(const OdbcSession& session, const OdbcColumn& table) {
  const OdbcHandle statement = session.NewStatement();
  const OdbcLibrary& library = statement.library();
  statement.Check(library.Columns(statement.get(), NameArgument(table.catalog), SQL_NTS,
                                  NameArgument(table.schema), SQL_NTS, OdbcText(table.table),
                                  SQL_NTS, nullptr, 0));
  constexpr SQLUSMALLINT kTableAndColumn[] = {3, 4};
  Names names;
  while (statement.Check(library.Fetch(statement.get()))) {
    // "_" and "%" in the table's name are wildcards here.
    auto [found_table, column] = ReadTexts(statement, kTableAndColumn);
    if (found_table == table.table) names.push_back(std::move(column));
  }
  return names;
}

std::vector<Names> UniqueKeys(const OdbcSession& session, const OdbcColumn& table) {
  std::vector<Names> keys = UniqueIndexes(session, table);
  Names primary = PrimaryKey(session, table);
  if (!primary.empty()) keys.insert(keys.begin(), std::move(primary));
  return keys;
}

std::string IdentifierQuote(const OdbcSession& session) {
  std::array<char, 8> buffer{};
  SQLSMALLINT length = 0;
  const OdbcHandle& connection = session.connection();
  connection.Check(connection.library().GetInfo(connection.get(), SQL_IDENTIFIER_QUOTE_CHAR,
                                                buffer.data(),
                                                static_cast<SQLSMALLINT>(buffer.size()), &length));
  const std::string quote = buffer.data();
  return quote == " " ? std::string() : quote;
}

}  // namespace vandpublic::ado
