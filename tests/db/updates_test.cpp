// Writing: rows found by keys, edits and chunks stored, and what must not be written.
#include "db/db_test.h"

namespace vandpublic::db_tests {
namespace {

constexpr Long kOptimistic = 3;
constexpr Long kBatch = 4;
const Raised kRowNotLocated{static_cast<Long>(0x80040E38), "Microsoft Cursor Engine",
                            "Row cannot be located for updating. Some values may have been changed "
                            "since it was last read."};
const Raised kNoBaseTable{static_cast<Long>(0x80004005), "Microsoft Cursor Engine",
                          "Insufficient base table information for updating or refreshing."};
const Raised kNoKeyColumns{static_cast<Long>(0x80004005), "Microsoft Cursor Engine",
                           "Insufficient key column information for updating or refreshing."};
constexpr Long kNotUpdatable = static_cast<Long>(0x800A0CB3);

class UpdatesTest : public DbTest {
 protected:
  // Sets one field of the current row and stores the row.
  void Change(Recordset& rows, std::string_view field, Variant value) {
    Set(*FieldOf(rows, field), "Value", value);
    Call(rows, "Update");
  }
  // The table's rows as the source's own client shows them.
  std::string Rows(const std::string& table, const std::string& columns = "*",
                   const std::string& order = "1") {
    return Client("SELECT " + columns + " FROM " + table + " ORDER BY " + order);
  }
};

struct KeyCase {
  const char* name;
  const char* columns;
  const char* select;
};

TEST_F(UpdatesTest, Row_is_found_by_whatever_identifies_it) {
  constexpr KeyCase kCases[] = {
      {"primary key", "id INTEGER NOT NULL PRIMARY KEY, grp INTEGER, name VARCHAR(20)",
       "SELECT * FROM u ORDER BY id"},
      {"compound key",
       "id INTEGER NOT NULL, grp INTEGER NOT NULL, name VARCHAR(20), "
       "PRIMARY KEY (id, grp)",
       "SELECT * FROM u ORDER BY id"},
      {"unique constraint", "id INTEGER NOT NULL UNIQUE, grp INTEGER, name VARCHAR(20)",
       "SELECT * FROM u ORDER BY id"},
      {"no key at all", "id INTEGER, grp INTEGER, name VARCHAR(20)", "SELECT * FROM u ORDER BY id"},
      {"part of the columns", "id INTEGER NOT NULL PRIMARY KEY, grp INTEGER, name VARCHAR(20)",
       "SELECT name, id FROM u ORDER BY id"},
  };
  for (const KeyCase& test : kCases) {
    SCOPED_TRACE(test.name);
    MakeTable("u", test.columns);
    Execute("INSERT INTO u VALUES (1, 10, 'one'), (2, 10, 'two'), (3, 30, 'three')");
    const RecordsetRef rows = Open(test.select, kOptimistic);
    Call(*rows, "MoveNext");
    Change(*rows, "name", "TWO");
    EXPECT_EQ(Rows("u"), "1|10|one\n2|10|TWO\n3|30|three");
    EXPECT_EQ(Shown(Value(*rows, "name")), "String TWO");
    // The same row again, and to the value that it has.
    Change(*rows, "name", "zwei");
    Change(*rows, "name", "zwei");
    EXPECT_EQ(Rows("u"), "1|10|one\n2|10|zwei\n3|30|three");
  }
}

TEST_F(UpdatesTest, Row_with_null_values_is_found_without_a_key) {
  MakeTable("u", "a INTEGER, b VARCHAR(20)");
  Execute("INSERT INTO u VALUES (NULL, 'x'), (1, NULL), (NULL, NULL)");
  const RecordsetRef rows = Open("SELECT a, b FROM u", kOptimistic);
  while (Get(*rows, "EOF") == Variant(false)) {
    if (Value(*rows, "a").IsNull() && Value(*rows, "b").IsNull()) Change(*rows, "b", "found");
    Call(*rows, "MoveNext");
  }
  EXPECT_EQ(Client("SELECT count(*) FROM u WHERE a IS NULL AND b = 'found'"), "1");
  EXPECT_EQ(Client("SELECT count(*) FROM u WHERE a IS NULL AND b = 'x'"), "1");
}

TEST_F(UpdatesTest, Equal_rows_without_a_key_stay_as_they_are) {
  MakeTable("u", "a INTEGER, b VARCHAR(20)");
  Execute("INSERT INTO u VALUES (1, 'x'), (1, 'x')");
  const RecordsetRef rows = Open("SELECT a, b FROM u", kOptimistic);
  EXPECT_EQ(RaisedBy([&] { Change(*rows, "b", "y"); }), kRowNotLocated);
  EXPECT_EQ(Rows("u"), "1|x\n1|x");
  EXPECT_EQ(RaisedBy([&] { Call(*rows, "Delete"); }).number, 3219 + static_cast<Long>(0x800A0000));
  Call(*rows, "CancelUpdate");
  EXPECT_EQ(Shown(Value(*rows, "b")), "String x");
  EXPECT_EQ(RaisedBy([&] { Call(*rows, "Delete"); }), kRowNotLocated);
  EXPECT_EQ(Rows("u"), "1|x\n1|x");
}

TEST_F(UpdatesTest, Row_that_was_deleted_or_changed_behind_our_back_is_not_located) {
  MakeTable("k", "id INTEGER NOT NULL PRIMARY KEY, b VARCHAR(20)");
  MakeTable("u", "a INTEGER, b VARCHAR(20)");
  for (const char* table : {"k", "u"}) {
    SCOPED_TRACE(table);
    const std::string name = table;
    Execute("INSERT INTO " + name + " VALUES (1, 'x')");
    const RecordsetRef rows = Open("SELECT * FROM " + name, kOptimistic);
    Client("DELETE FROM " + name);
    EXPECT_EQ(RaisedBy([&] { Change(*rows, "b", "y"); }), kRowNotLocated);
    EXPECT_EQ(Rows(name), "");
  }
  Execute("INSERT INTO u VALUES (1, 'x')");
  const RecordsetRef rows = Open("SELECT * FROM u", kOptimistic);
  Client("UPDATE u SET b = 'other'");
  EXPECT_EQ(RaisedBy([&] { Change(*rows, "b", "y"); }), kRowNotLocated);
  EXPECT_EQ(Rows("u"), "1|other");
}

TEST_F(UpdatesTest, Values_of_every_type_are_stored) {
  const TypeNames& types = Source().types;
  MakeTable("u",
            "id INTEGER NOT NULL PRIMARY KEY, small SMALLINT, big BIGINT, num DECIMAL(12,4), "
            "real_col " +
                types.real + ", yes " + types.boolean +
                ", day_col DATE, "
                "moment " +
                types.timestamp + ", short VARCHAR(20), txt " + types.text + ", bin " +
                types.binary);
  Execute("INSERT INTO u (id) VALUES (1)");
  RecordsetRef rows = Open("SELECT * FROM u", kOptimistic);
  const std::vector<std::pair<const char*, Variant>> values = {
      {"small", Integer{-7}},
      {"big", *Decimal::Parse("9223372036854775807")},
      {"num", Currency{-12345000}},
      {"real_col", 1.0 / 3},
      {"yes", true},
      {"day_col", Date{45351}},
      {"moment", Date{45351.25}},
      {"short", u"O'Brien \u00e9\U0001F600"},
      {"txt", u""},
      {"bin", ByteArray({0, 255, 39, 92}, 1)},
  };
  for (const auto& [name, value] : values)
    Set(*FieldOf(*rows, name), "Value", value);
  Call(*rows, "Update");
  rows = Open("SELECT * FROM u");
  EXPECT_EQ(Shown(Value(*rows, "small")), "Integer -7");
  EXPECT_EQ(Shown(Value(*rows, "big")), "Decimal 9223372036854775807");
  EXPECT_THAT(Shown(Value(*rows, "num")), testing::HasSubstr(" -1234.5"));
  EXPECT_EQ(Shown(Value(*rows, "real_col")), "Double 0.333333333333333");
  EXPECT_THAT(Shown(Value(*rows, "yes")), testing::AnyOf("Boolean True", "Integer -1"));
  EXPECT_EQ(Shown(Value(*rows, "day_col")), "Date 2024-02-29 00:00:00");
  EXPECT_EQ(Shown(Value(*rows, "moment")), "Date 2024-02-29 06:00:00");
  EXPECT_EQ(Shown(Value(*rows, "short")), "String O'Brien \xC3\xA9\xF0\x9F\x98\x80");
  EXPECT_EQ(Shown(Value(*rows, "txt")), "String ");
  EXPECT_EQ(Shown(Value(*rows, "bin")), "bytes 00FF275C");
  rows = Open("SELECT * FROM u", kOptimistic);
  for (const auto& [name, value] : values)
    Set(*FieldOf(*rows, name), "Value", NullValue{});
  Call(*rows, "Update");
  rows = Open("SELECT * FROM u");
  for (const auto& [name, value] : values)
    EXPECT_EQ(Shown(Value(*rows, name)), "Null") << name;
}

TEST_F(UpdatesTest, Values_that_do_not_fit_are_refused_before_they_are_sent) {
  MakeTable("u", "id INTEGER NOT NULL PRIMARY KEY, n SMALLINT, d DATE");
  Execute("INSERT INTO u VALUES (1, 2, NULL)");
  const RecordsetRef rows = Open("SELECT * FROM u", kOptimistic);
  const auto wrong = static_cast<Long>(0x800A0D5D);
  EXPECT_EQ(RaisedBy([&] { Set(*FieldOf(*rows, "n"), "Value", "abc"); }).number, wrong);
  EXPECT_EQ(RaisedBy([&] { Set(*FieldOf(*rows, "n"), "Value", Long{40000}); }).number, wrong);
  EXPECT_EQ(RaisedBy([&] { Set(*FieldOf(*rows, "d"), "Value", "soon"); }).number, wrong);
  EXPECT_EQ(Get(*rows, "EditMode"), Variant(Long{0}));
}

// Binary columns through the members: every size that matters, back bit for bit.
class BinaryTest : public UpdatesTest, public testing::WithParamInterface<std::size_t> {};

TEST_P(BinaryTest, Content_travels_whole) {
  const std::vector<Byte> bytes = Pattern(GetParam());
  const bool whole_chunks = bytes.size() % 5120 == 0;
  MakeTable("p", "id INTEGER NOT NULL PRIMARY KEY, photo " + Source().types.binary);
  Execute("INSERT INTO p VALUES (1, " + Source().Binary("0102") + "), (2, NULL), (3, NULL)");
  RecordsetRef rows = Open("SELECT * FROM p ORDER BY id", kOptimistic);

  FieldRef field = FieldOf(*rows, "photo");
  Variant array = ByteArray(bytes, -5);
  EXPECT_EQ(component_.ArrayToColumn(field, array), !whole_chunks);
  Call(*rows, "Update");

  Call(*rows, "MoveNext");
  const std::filesystem::path file = Folder() / "in";
  WriteFile(file, bytes);
  String file_name(file.string());
  EXPECT_EQ(component_.FileToColumn(field, file_name), !whole_chunks);
  if (!bytes.empty()) Call(*rows, "Update");

  const std::string stored = bytes.empty() ? "NULL" : HexDigits(bytes);
  const std::string hex =
      "CASE WHEN photo IS NULL THEN 'NULL' ELSE " + Source().HexOf("photo") + " END";
  // A null chunk alone leaves the null value, as it does in ADO.
  EXPECT_EQ(Client("SELECT " + hex + " FROM p WHERE id < 3 ORDER BY id"), stored + "\n" + stored);

  rows = Open("SELECT photo FROM p ORDER BY id");
  field = FieldOf(*rows, "photo");
  const Variant read = component_.ColumnToArray(field);
  EXPECT_EQ(read, bytes.empty() ? Variant(ByteArray({0})) : Variant(ByteArray(bytes, 1)));
  Call(*rows, "MoveNext");
  String out_name((Folder() / "out").string());
  EXPECT_EQ(component_.ColumnToFile(field, out_name), !whole_chunks);
  EXPECT_EQ(FileContent(Folder() / "out"), std::string(bytes.begin(), bytes.end()));
}

INSTANTIATE_TEST_SUITE_P(Sizes, BinaryTest,
                         testing::Values(0, 1, 5119, 5120, 5121, 10240, 12000, 1'000'000));

TEST_F(UpdatesTest, Empty_binary_value_is_not_null) {
  MakeTable("p", "id INTEGER NOT NULL PRIMARY KEY, photo " + Source().types.binary);
  Execute("INSERT INTO p VALUES (1, NULL)");
  RecordsetRef rows = Open("SELECT * FROM p", kOptimistic);
  Change(*rows, "photo", ByteArray(std::vector<Byte>()));
  EXPECT_EQ(Client("SELECT count(*) FROM p WHERE photo IS NULL"), "0");
  EXPECT_EQ(Shown(Value(*Open("SELECT * FROM p"), "photo")), "bytes ");
}

TEST_F(UpdatesTest, Rows_are_added_and_deleted) {
  MakeTable("u", "id INTEGER NOT NULL PRIMARY KEY, name VARCHAR(20) DEFAULT 'none'");
  const RecordsetRef rows = Open("SELECT * FROM u", kOptimistic);
  for (Long id = 1; id <= 3; ++id) {
    Call(*rows, "AddNew");
    Set(*FieldOf(*rows, "id"), "Value", id);
    if (id != 2) Set(*FieldOf(*rows, "name"), "Value", "n");
    Call(*rows, "Update");
  }
  EXPECT_EQ(Rows("u"), "1|n\n2|none\n3|n");
  Call(*rows, "MoveFirst");
  Call(*rows, "Delete");
  Call(*rows, "MoveNext");
  EXPECT_EQ(Shown(Value(*rows, "id")), "Long 2");
  EXPECT_EQ(Rows("u"), "2|none\n3|n");
}

TEST_F(UpdatesTest, Row_of_defaults_only_is_added) {
  MakeTable("u", "a INTEGER DEFAULT 5, b VARCHAR(20) DEFAULT 'd'");
  const RecordsetRef rows = Open("SELECT * FROM u", kOptimistic);
  Call(*rows, "AddNew");
  Call(*rows, "Update");
  EXPECT_EQ(Rows("u"), "5|d");
}

TEST_F(UpdatesTest, Moving_stores_what_was_edited) {
  MakeTable("u", "id INTEGER NOT NULL PRIMARY KEY, name VARCHAR(20)");
  Execute("INSERT INTO u VALUES (1, 'a'), (2, 'b')");
  const RecordsetRef rows = Open("SELECT * FROM u ORDER BY id", kOptimistic);
  Set(*FieldOf(*rows, "name"), "Value", "A");
  Call(*rows, "MoveNext");
  EXPECT_EQ(Rows("u"), "1|A\n2|b");
}

TEST_F(UpdatesTest, Batch_is_stored_at_once) {
  MakeTable("u", "id INTEGER NOT NULL PRIMARY KEY, name VARCHAR(20)");
  Execute("INSERT INTO u VALUES (1, 'a'), (2, 'b'), (3, 'c')");
  const RecordsetRef rows = Open("SELECT * FROM u ORDER BY id", kBatch);
  Change(*rows, "name", "A");
  Call(*rows, "MoveNext");
  Call(*rows, "Delete");
  Call(*rows, "AddNew");
  Set(*FieldOf(*rows, "id"), "Value", Long{4});
  Call(*rows, "Update");
  EXPECT_EQ(Rows("u", "id, name"), "1|a\n2|b\n3|c");
  Call(*rows, "UpdateBatch");
  EXPECT_EQ(Rows("u", "id, coalesce(name, '-')"), "1|A\n3|c\n4|-");
}

TEST_F(UpdatesTest, What_cannot_be_updated_is_refused) {
  MakeTable("u", "id INTEGER NOT NULL PRIMARY KEY, name VARCHAR(20)");
  MakeTable("w", "id INTEGER NOT NULL PRIMARY KEY, other VARCHAR(20)");
  Execute("INSERT INTO u VALUES (1, 'a')");
  Execute("INSERT INTO w VALUES (1, 'x')");
  RecordsetRef rows = Open("SELECT * FROM u", 1);
  EXPECT_EQ(RaisedBy([&] { Change(*rows, "name", "b"); }).number, kNotUpdatable);
  rows = Open("SELECT u.id, name, other FROM u, w WHERE u.id = w.id", kOptimistic);
  EXPECT_EQ(RaisedBy([&] { Change(*rows, "name", "b"); }), kNoBaseTable);
  rows = Open("SELECT id, upper(name) AS name FROM u", kOptimistic);
  EXPECT_EQ(RaisedBy([&] { Change(*rows, "name", "b"); }).number, kNotUpdatable);
  rows = Open("SELECT 1 AS one", kOptimistic);
  EXPECT_EQ(RaisedBy([&] { Change(*rows, "one", Long{2}); }), kNoBaseTable);
  EXPECT_EQ(Rows("u"), "1|a");
  EXPECT_EQ(Rows("w"), "1|x");
}

TEST_F(UpdatesTest, Column_under_the_name_of_another_is_not_mixed_up_with_it) {
  MakeTable("u", "id INTEGER NOT NULL PRIMARY KEY, a VARCHAR(20), b VARCHAR(20)");
  Execute("DROP VIEW IF EXISTS uv");
  Execute("CREATE VIEW uv AS SELECT id, a AS b FROM u");
  Execute("INSERT INTO u VALUES (1, 'a', 'b')");
  for (const char* statement :
       {"SELECT id, a AS b FROM u", "SELECT id, a b FROM u",
        "SELECT id, b FROM (SELECT id, a AS b FROM u) s", "SELECT id, b FROM uv"}) {
    SCOPED_TRACE(statement);
    const RecordsetRef rows = Open(statement, kOptimistic);
    const Raised raised = RaisedBy([&] { Change(*rows, "b", "new"); });
    EXPECT_EQ(Client("SELECT b FROM u"), "b");
    if (raised == kNothingRaised) {
      EXPECT_EQ(Client("SELECT a FROM u"), "new");
      Client("UPDATE u SET a = 'a'");
    } else {
      EXPECT_EQ(Client("SELECT a FROM u"), "a");
    }
  }
  Execute("DROP VIEW uv");
}

TEST_F(UpdatesTest, Long_column_alone_cannot_be_stored) {
  MakeTable("p", "id INTEGER NOT NULL PRIMARY KEY, photo " + Source().types.binary);
  Execute("INSERT INTO p VALUES (1, NULL)");
  const RecordsetRef rows = Open("SELECT photo FROM p", kOptimistic);
  EXPECT_EQ(RaisedBy([&] { Change(*rows, "photo", ByteArray({1})); }), kNoKeyColumns);
}

TEST_F(UpdatesTest, Odd_names_are_quoted) {
  const std::string q = Source().name == "mariadb" ? "`" : "\"";
  const std::string table = q + "odd _%table" + q;
  MakeTable(table, q + "the key" + q + " INTEGER NOT NULL PRIMARY KEY, " + q + "select" + q +
                       " VARCHAR(20)");
  MakeTable(q + "odd xxtable" + q, "other INTEGER");
  Execute("INSERT INTO " + table + " VALUES (1, 'a'), (2, 'b')");
  const RecordsetRef rows = Open("SELECT * FROM " + table, kOptimistic);
  Change(*rows, "select", "it's");
  EXPECT_EQ(Rows(table), "1|it's\n2|b");
}

TEST_F(UpdatesTest, Constraint_that_is_hurt_is_an_integrity_error_and_leaves_the_row) {
  MakeTable("u", "id INTEGER NOT NULL PRIMARY KEY, name VARCHAR(20) NOT NULL");
  Execute("INSERT INTO u VALUES (1, 'a'), (2, 'b')");
  const RecordsetRef rows = Open("SELECT * FROM u ORDER BY id", kOptimistic);
  const Raised raised = RaisedBy([&] { Change(*rows, "id", Long{2}); });
  EXPECT_EQ(raised.number, static_cast<Long>(0x80040E2F)) << raised;
  EXPECT_EQ(raised.source, "Microsoft OLE DB Provider for ODBC Drivers");
  Call(*rows, "CancelUpdate");
  Change(*rows, "name", "still works");
  EXPECT_EQ(Rows("u"), "1|still works\n2|b");
}

TEST_F(UpdatesTest, Transaction_keeps_or_undoes_everything) {
  MakeTable("u", "id INTEGER NOT NULL PRIMARY KEY, name VARCHAR(20) NOT NULL");
  Execute("INSERT INTO u VALUES (1, 'a'), (2, 'b')");
  RecordsetRef rows = Open("SELECT * FROM u ORDER BY id", kOptimistic);
  EXPECT_EQ(Shown(Call(*connection_, "BeginTrans")), "Long 1");
  Change(*rows, "name", "A");
  // An error inside leaves the rest of the transaction alone.
  EXPECT_NE(RaisedBy([&] { Change(*rows, "id", Long{2}); }), kNothingRaised);
  Call(*rows, "CancelUpdate");
  Call(*connection_, "CommitTrans");
  EXPECT_EQ(Rows("u"), "1|A\n2|b");
  Call(*connection_, "BeginTrans");
  Change(*rows, "name", "gone");
  Execute("DELETE FROM u WHERE id = 2");
  Call(*connection_, "RollbackTrans");
  EXPECT_EQ(Rows("u"), "1|A\n2|b");
  EXPECT_NE(RaisedBy([&] { Call(*connection_, "CommitTrans"); }), kNothingRaised);
}

TEST_F(UpdatesTest, Transaction_that_is_open_when_the_connection_closes_is_undone) {
  MakeTable("u", "id INTEGER NOT NULL PRIMARY KEY");
  Call(*connection_, "BeginTrans");
  Execute("INSERT INTO u VALUES (1)");
  Call(*connection_, "Close");
  EXPECT_EQ(Rows("u"), "");
}

}  // namespace
}  // namespace vandpublic::db_tests
