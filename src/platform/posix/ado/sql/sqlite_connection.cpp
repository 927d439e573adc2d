// Setting a connection up: the tables while everything is allowed, then the guard at the door.
#include "platform/posix/ado/sql/sqlite_connection.h"

#include <algorithm>
#include <array>
#include <new>
#include <string_view>
#include <vector>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/sql/case_folding.h"
#include "platform/posix/ado/sql/like_match.h"
#include "platform/posix/ado/sql/sql_functions.h"
#include "platform/posix/ado/sql/sqlite_values.h"
#include "runtime/errors.h"
#include "runtime/object.h"
#include "runtime/utf8.h"

namespace vandpublic::ado {
namespace {

// SQLite's own functions that a statement may call.
constexpr std::array<std::string_view, 9> kOwnFunctions = {
    "count", "sum", "avg", "min", "max", "total", "like", "coalesce", "nullif"};

// Of SQLite's machine, between looks at the clock.
constexpr int kStepsBetweenLooks = 1000;

struct BoundFunction {
  const SqlFunction* function;
  EngineState* state;
};

std::u16string_view Utf16(const void* text, int size, std::u16string& buffer) {
  buffer = FromUtf8({static_cast<const char*>(text), static_cast<std::size_t>(size)});
  return buffer;
}

int CompareTexts(void*, int a_size, const void* a, int b_size, const void* b) {
  std::u16string a_text;
  std::u16string b_text;
  return CompareFolded(Utf16(a, a_size, a_text), Utf16(b, b_size, b_text));
}

// Runs a function's body; its failure ends the statement.
template <class Body>
void RunFunction(sqlite3_context* context, EngineState& state, Body body) noexcept {
  try {
    body();
  } catch (...) {
    if (!state.failure) state.failure = std::current_exception();
    Sqlite().result_error(context, "function failed", -1);
  }
}

void CallFunction(sqlite3_context* context, int count, sqlite3_value** arguments) {
  const auto& bound = *static_cast<const BoundFunction*>(Sqlite().user_data(context));
  RunFunction(context, *bound.state, [&] {
    std::vector<Variant> values;
    values.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
      values.push_back(ArgumentValue(arguments[i]));
    const bool null_in = std::any_of(values.begin(), values.end(),
                                     [](const Variant& value) { return value.IsNull(); });
    if (null_in && !bound.function->takes_nulls) return SetResult(context, NullValue{});
    SetResult(context, bound.function->call(values, bound.state->dialect));
  });
}

void DeleteBound(void* bound) { delete static_cast<BoundFunction*>(bound); }

// "value LIKE pattern" comes as like(pattern, value) or like(pattern, value, escape).
void CallLike(sqlite3_context* context, int count, sqlite3_value** arguments) {
  auto& state = *static_cast<EngineState*>(Sqlite().user_data(context));
  RunFunction(context, state, [&] {
    std::vector<std::u16string> texts;
    for (int i = 0; i < count; ++i) {
      if (Sqlite().value_type(arguments[i]) == SQLITE_NULL) {
        return SetResult(context, NullValue{});
      }
      const unsigned char* const text = Sqlite().value_text(arguments[i]);
      const auto size = static_cast<std::size_t>(Sqlite().value_bytes(arguments[i]));
      texts.push_back(FromUtf8({reinterpret_cast<const char*>(text), size}));
    }
    LikeOptions options;
    options.ignore_case = state.dialect == Dialect::Jet;
    options.sets = state.dialect == Dialect::Jet;
    if (count > 2 && texts[2].size() == 1) options.escape = texts[2][0];
    SetResult(context, static_cast<Long>(LikeMatches(texts[0], texts[1], options)));
  });
}

bool MayCall(EngineState& state, std::string_view name) {
  const bool known = name.starts_with("vp_") ||
                     std::any_of(kOwnFunctions.begin(), kOwnFunctions.end(),
                                 [&](std::string_view own) { return SameName(own, name); });
  if (!known) state.unknown_function = name;
  return known;
}

// Allows what a statement is for, nothing else.
int Authorize(void* data, int action, const char* first, const char*, const char*, const char*) {
  auto& state = *static_cast<EngineState*>(data);
  const std::string_view table = first == nullptr ? "" : first;
  switch (action) {
    case SQLITE_SELECT:
      return SQLITE_OK;
    case SQLITE_READ:
      return table.starts_with("sqlite_") ? SQLITE_DENY : SQLITE_OK;
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_DELETE:
      return state.may_write && !table.starts_with("sqlite_") ? SQLITE_OK : SQLITE_DENY;
    default:
      return SQLITE_DENY;
  }
}

int AuthorizeCall(void* data, int action, const char* first, const char* second, const char* third,
                  const char* fourth) {
  if (action != SQLITE_FUNCTION) return Authorize(data, action, first, second, third, fourth);
  try {
    return MayCall(*static_cast<EngineState*>(data), second) ? SQLITE_OK : SQLITE_DENY;
  } catch (const std::bad_alloc&) {
    return SQLITE_DENY;
  }
}

void Check(int code) {
  if (code != SQLITE_OK) throw std::bad_alloc();
}

void RegisterFunctions(sqlite3* database, EngineState& state) {
  constexpr int kFlags = SQLITE_UTF8;
  const SqliteLibrary& sqlite = Sqlite();
  for (const SqlFunction& function : AllSqlFunctions()) {
    const std::string name = SqliteFunctionName(function.name);
    for (int count = function.least; count <= std::min(function.most, 3); ++count) {
      auto bound = std::make_unique<BoundFunction>(BoundFunction{&function, &state});
      const int arity = function.most > 3 ? -1 : count;
      Check(sqlite.create_function_v2(database, name.c_str(), arity, kFlags, bound.release(),
                                      CallFunction, nullptr, nullptr, DeleteBound));
      if (arity < 0) break;
    }
  }
  for (const int count : {2, 3}) {
    Check(sqlite.create_function_v2(database, "like", count, kFlags, &state, CallLike, nullptr,
                                    nullptr, nullptr));
  }
  Check(
      sqlite.create_collation_v2(database, "vp_text", SQLITE_UTF8, nullptr, CompareTexts, nullptr));
}

// Anything but 0 ends the statement.
int IsOverdue(void* data) {
  const auto& state = *static_cast<const EngineState*>(data);
  return std::chrono::steady_clock::now() > *state.deadline ? 1 : 0;
}

std::string Quoted(const std::string& name) {
  std::string quoted = "\"";
  for (const char c : name) {
    quoted += c;
    if (c == '"') quoted += c;
  }
  return quoted + '"';
}

}  // namespace

SqliteConnection::Handle SqliteConnection::OpenMemory() {
  sqlite3* database = nullptr;
  const int code =
      Sqlite().open_v2(":memory:", &database,
                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
  Handle handle(database);
  Check(code);
  return handle;
}

SqliteConnection::SqliteConnection(EngineState& state, const std::vector<std::string>& names)
    : state_(state), database_(OpenMemory()) {
  RegisterFunctions(database_.get(), state_);
  RegisterVirtualTables(database_.get(), state_);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const SqliteStatement create = Prepare("CREATE VIRTUAL TABLE " + Quoted(names[i]) +
                                           " USING file_table(" + std::to_string(i) + ")");
    const bool made = create != nullptr && Sqlite().step(create.get()) == SQLITE_DONE;
    if (state_.failure) std::rethrow_exception(state_.failure);
    // A name or a column list that SQLite does not take: "sqlite_x", more columns than it knows.
    if (!made) Raise(SourceError::Failed, SourceOf(state_.dialect), Message());
  }
  if (state_.deadline) {
    Sqlite().progress_handler(database_.get(), kStepsBetweenLooks, IsOverdue, &state_);
  }
  Check(Sqlite().set_authorizer(database_.get(), AuthorizeCall, &state_));
}

SqliteStatement SqliteConnection::Prepare(const std::string& statement) {
  sqlite3_stmt* prepared = nullptr;
  Sqlite().prepare_v3(database_.get(), statement.c_str(), -1, 0, &prepared, nullptr);
  return SqliteStatement(prepared);
}

std::string SqliteConnection::Message() const { return Sqlite().errmsg(database_.get()); }

int SqliteConnection::Changes() const { return Sqlite().changes(database_.get()); }

}  // namespace vandpublic::ado
