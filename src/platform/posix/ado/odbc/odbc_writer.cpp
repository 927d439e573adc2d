// Finds the table and the keys of a statement's rows, and changes one row at a time.
#include "platform/posix/ado/odbc/odbc_writer.h"

#include <algorithm>
#include <utility>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/odbc/odbc_catalog.h"
#include "platform/posix/ado/odbc/simple_select.h"
#include "runtime/object.h"

namespace vandpublic::ado {
namespace {

// Undoes what was done in it unless Commit is reached. Inside a transaction of the client's it is
// a savepoint, which leaves the rest of that transaction alone.
class WriteScope {
 public:
  explicit WriteScope(const OdbcSession& session) : session_(session) {
    if (session_.in_transaction()) {
      session_.Run("SAVEPOINT vandpublic_write");
    } else {
      session_.StartTransaction();
    }
  }
  WriteScope(const WriteScope&) = delete;
  WriteScope& operator=(const WriteScope&) = delete;
  ~WriteScope() {
    if (done_) return;
    try {
      End(false);
    } catch (...) {
      // The error that brought us here matters, not what a broken connection adds.
    }
  }

  void Commit() {
    End(true);
    done_ = true;
  }

 private:
  void End(bool commit) {
    if (!session_.in_transaction()) {
      session_.EndTransaction(commit);
    } else {
      if (!commit) session_.Run("ROLLBACK TO SAVEPOINT vandpublic_write");
      session_.Run("RELEASE SAVEPOINT vandpublic_write");
    }
  }

  const OdbcSession& session_;
  bool done_ = false;
};

bool SameTable(const OdbcColumn& a, const OdbcColumn& b) {
  return a.catalog == b.catalog && a.schema == b.schema && a.table == b.table;
}

// Values of these cannot be compared reliably: long ones, and those that lose digits on the way.
bool IsComparable(const Column& column, OdbcKind kind) {
  if (column.is_long || !column.updatable) return false;
  switch (column.type) {
    case DataType::Single:
    case DataType::Double:
      return false;
    case DataType::DBDate:
    case DataType::DBTime:
    case DataType::DBTimeStamp:
      return kind != OdbcKind::SQLite;  // it compares texts, of which a date has several
    default:
      return true;
  }
}

void Append(std::string& list, std::string_view separator, std::string_view item) {
  if (!list.empty()) list += separator;
  list += item;
}

}  // namespace

OdbcWriter::OdbcWriter(const OdbcSession& session, std::vector<OdbcColumn> sources)
    : session_(session), sources_(std::move(sources)), writable_(sources_.size(), false) {}

std::unique_ptr<OdbcWriter> OdbcWriter::Make(const OdbcSession& session,
                                             const std::string& statement,
                                             std::vector<OdbcColumn> sources,
                                             std::vector<Column>& columns) {
  std::unique_ptr<OdbcWriter> writer(new OdbcWriter(session, std::move(sources)));
  writer->FindTable(statement);
  writer->MarkColumns(columns);
  return writer;
}

void OdbcWriter::FindTable(const std::string& statement) {
  const bool is_sqlite = session_.connection().kind() == OdbcKind::SQLite;
  const auto simple = is_sqlite ? ParseSimpleSelect(statement) : std::nullopt;
  for (OdbcColumn& source : sources_) {
    if (source.table.empty()) continue;
    if (table_ && !SameTable(*table_, source)) {
      table_.reset();
      return;
    }
    table_ = source;
  }
  if (!table_ || !is_sqlite) return;
  // Its driver names the table behind a view, and a column by its alias: what the statement itself
  // says must agree.
  if (!simple || !SameName(simple->table, table_->table)) {
    table_.reset();
    return;
  }
  for (OdbcColumn& source : sources_) {
    const auto& aliases = simple->aliases;
    const bool is_alias = std::any_of(aliases.begin(), aliases.end(), [&](const auto& alias) {
      return SameName(alias, source.name);
    });
    if (is_alias) source.name.clear();
  }
}

void OdbcWriter::MarkColumns(std::vector<Column>& columns) {
  if (!table_) {
    // Edits begin as on any other rows; storing them says what is wrong.
    for (Column& column : columns)
      column.updatable = true;
    return;
  }
  const Names names = ColumnNames(session_, *table_);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const bool known = !sources_[i].table.empty() &&
                       std::find(names.begin(), names.end(), sources_[i].name) != names.end();
    writable_[i] = columns[i].updatable = known;
    if (IsComparable(columns[i], session_.connection().kind())) comparable_.push_back(i);
  }
  quote_ = IdentifierQuote(session_);
  FindKeys();
  if (keys_.empty()) return;
  for (const std::size_t i : keys_.front())
    columns[i].is_key = true;
}

void OdbcWriter::FindKeys() {
  for (const Names& names : UniqueKeys(session_, *table_))
    AddKey(names);
}

void OdbcWriter::AddKey(const Names& names) {
  Key key;
  for (const std::string& name : names) {
    for (std::size_t i = 0; i < sources_.size(); ++i) {
      if (!writable_[i] || sources_[i].name != name) continue;
      key.push_back(i);
      break;
    }
  }
  if (!names.empty() && key.size() == names.size()) keys_.push_back(std::move(key));
}

void OdbcWriter::RequireTable() const {
  if (!table_) RaiseNoBaseTable();
}

std::string OdbcWriter::Quoted(const std::string& name) const {
  if (quote_.empty()) return name;
  std::string text = quote_;
  for (const char c : name)
    text.append(c == quote_.front() ? 2 : 1, c);
  return text + quote_;
}

std::string OdbcWriter::TableText() const {
  const std::string& owner = !table_->schema.empty() ? table_->schema : table_->catalog;
  const bool has_owner = !owner.empty() && session_.connection().kind() != OdbcKind::SQLite;
  return (has_owner ? Quoted(owner) + "." : "") + Quoted(table_->table);
}

const OdbcWriter::Key& OdbcWriter::KeyFor(const Row& row) const {
  for (const Key& key : keys_) {
    const bool whole =
        std::none_of(key.begin(), key.end(), [&](auto i) { return row.values[i].IsNull(); });
    if (whole) return key;
  }
  if (comparable_.empty()) RaiseNoKeyColumns();
  return comparable_;
}

std::string OdbcWriter::Condition(const Row& row, std::vector<std::size_t>& columns,
                                  std::vector<const Variant*>& values) const {
  std::string text;
  for (const std::size_t i : KeyFor(row)) {
    if (row.values[i].IsNull()) {
      Append(text, " AND ", Quoted(sources_[i].name) + " IS NULL");
      continue;
    }
    Append(text, " AND ", Quoted(sources_[i].name) + " = ?");
    columns.push_back(i);
    values.push_back(&row.values[i]);
  }
  return text;
}

void OdbcWriter::Execute(const std::string& text, const std::vector<std::size_t>& columns,
                         const std::vector<const Variant*>& values) {
  WriteScope scope(session_);
  const OdbcHandle statement = session_.NewStatement();
  session_.LimitTime(statement);
  const OdbcLibrary& library = statement.library();
  statement.Check(library.Prepare(statement.get(), OdbcText(text), SQL_NTS));
  std::vector<std::unique_ptr<OdbcParameter>> parameters;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    parameters.push_back(
        std::make_unique<OdbcParameter>(*values[i], sources_[columns[i]].sql_type));
    parameters.back()->Bind(statement, static_cast<SQLUSMALLINT>(i + 1));
  }
  SQLLEN count = 0;
  if (statement.Check(library.Execute(statement.get()))) {
    statement.Check(library.RowCount(statement.get(), &count));
  }
  if (count != 1) RaiseRowNotLocated();
  scope.Commit();
}

void OdbcWriter::Update(const Row& before, Row& after, const ColumnFlags& changed) {
  RequireTable();
  std::string assignments;
  std::vector<std::size_t> columns;
  std::vector<const Variant*> values;
  for (std::size_t i = 0; i < changed.size(); ++i) {
    if (!changed[i]) continue;
    Append(assignments, ", ", Quoted(sources_[i].name) + " = ?");
    columns.push_back(i);
    values.push_back(&after.values[i]);
  }
  if (columns.empty()) return;
  const std::string condition = Condition(before, columns, values);
  Execute("UPDATE " + TableText() + " SET " + assignments + " WHERE " + condition, columns, values);
}

void OdbcWriter::Insert(Row& added, const ColumnFlags& given) {
  RequireTable();
  std::string names;
  std::string marks;
  std::vector<std::size_t> columns;
  std::vector<const Variant*> values;
  for (std::size_t i = 0; i < given.size(); ++i) {
    if (!given[i]) continue;
    Append(names, ", ", Quoted(sources_[i].name));
    Append(marks, ", ", "?");
    columns.push_back(i);
    values.push_back(&added.values[i]);
  }
  const bool no_defaults_clause = session_.connection().kind() == OdbcKind::MariaDb;
  const std::string row = columns.empty() && !no_defaults_clause
                              ? " DEFAULT VALUES"
                              : " (" + names + ") VALUES (" + marks + ")";
  Execute("INSERT INTO " + TableText() + row, columns, values);
}

void OdbcWriter::Delete(const Row& row) {
  RequireTable();
  std::vector<std::size_t> columns;
  std::vector<const Variant*> values;
  const std::string condition = Condition(row, columns, values);
  Execute("DELETE FROM " + TableText() + " WHERE " + condition, columns, values);
}

}  // namespace vandpublic::ado
