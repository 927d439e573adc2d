// Reading: types, null values, texts, chunks, and what the look-up member makes of them.
#include "db/db_test.h"
#include "runtime/coerce.h"

namespace vandpublic::db_tests {
namespace {

class ValuesTest : public DbTest {
 protected:
  // The value of an expression as a column of that type.
  std::string Stored(const std::string& type, const std::string& literal) {
    MakeTable("v", "x " + type);
    Execute("INSERT INTO v VALUES (" + literal + ")");
    return Shown(Value(*Open("SELECT x FROM v"), "x"));
  }
};

TEST_F(ValuesTest, Have_the_type_of_their_column) {
  const TypeNames& types = Source().types;
  EXPECT_EQ(Stored("SMALLINT", "-32768"), "Integer -32768");
  EXPECT_EQ(Stored("INTEGER", "2147483647"), "Long 2147483647");
  EXPECT_EQ(Stored("BIGINT", "-9223372036854775808"), "Decimal -9223372036854775808");
  EXPECT_EQ(Stored(types.real, "0.5"), "Double 0.5");
  EXPECT_EQ(Stored("DATE", "'2024-02-29'"), "Date 2024-02-29 00:00:00");
  EXPECT_EQ(Stored(types.timestamp, "'1899-12-29 06:00:00'"), "Date 1899-12-29 06:00:00");
  EXPECT_EQ(Stored(types.timestamp, "'2024-03-05 14:07:09'"), "Date 2024-03-05 14:07:09");
  EXPECT_EQ(Stored("VARCHAR(20)", "'abc'"), "String abc");
  EXPECT_EQ(Stored(types.text, "''"), "String ");
  EXPECT_EQ(Stored(types.binary, Source().Binary("00FF10")), "bytes 00FF10");
  EXPECT_EQ(Stored(types.binary, Source().Binary("")), "bytes ");
}

TEST_F(ValuesTest, Booleans_and_decimals_are_as_their_source_has_them) {
  const std::string boolean = Stored(Source().types.boolean, "TRUE");
  const std::string decimal = Stored("DECIMAL(12,4)", "-1234.5");
  if (Source().name == "mariadb") {
    EXPECT_EQ(boolean, "Integer 1");  // its BOOLEAN is a small integer
  } else {
    EXPECT_EQ(boolean, "Boolean True");
  }
  if (Source().name == "sqlite") {
    EXPECT_EQ(decimal, "String -1234.5");  // it has no decimals, and its driver says text
  } else {
    EXPECT_EQ(decimal, "Decimal -1234.5000");
  }
}

TEST_F(ValuesTest, Are_null_in_every_type) {
  const TypeNames& types = Source().types;
  for (const std::string& type :
       {std::string("INTEGER"), std::string("BIGINT"), types.real, std::string("DATE"),
        types.timestamp, types.boolean, std::string("VARCHAR(20)"), types.text, types.binary}) {
    EXPECT_EQ(Stored(type, "NULL"), "Null") << type;
  }
}

TEST_F(ValuesTest, Reals_keep_their_digits) {
  MakeTable("v", "x " + Source().types.real);
  const double third = 1.0 / 3;
  Execute("INSERT INTO v VALUES (0.33333333333333331)");
  const Variant value = Value(*Open("SELECT x FROM v"), "x");
  ASSERT_NE(value.Get<double>(), nullptr);
  // SQLite's driver hands numbers out with 15 digits.
  EXPECT_NEAR(*value.Get<double>(), third, Source().name == "sqlite" ? 1e-15 : 0.0);
}

TEST_F(ValuesTest, Numbers_do_not_depend_on_the_locale) {
  EXPECT_EQ(Stored(Source().types.real, "1234.5"), "Double 1234.5");
  EXPECT_EQ(Stored("NUMERIC(6,2)", "0.25").substr(0, 9),
            Source().name == "sqlite" ? "Double 0." : "Decimal 0");
}

TEST_F(ValuesTest, Texts_keep_every_character) {
  const std::string odd = "a\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x98\x80z";  // one outside the 16-bit range
  std::string text;
  for (int i = 0; i < 30000; ++i)
    text += odd;
  MakeTable("v", "x " + Source().types.text);
  Execute("INSERT INTO v VALUES ('" + text + "')");
  const Variant value = Value(*Open("SELECT x FROM v"), "x");
  ASSERT_NE(value.Get<String>(), nullptr);
  EXPECT_EQ(value.Get<String>()->Length(), 30000u * 6);
  EXPECT_EQ(value.Get<String>()->ToUtf8(), text);
  EXPECT_EQ(Client("SELECT count(*) FROM v WHERE x LIKE '%" + odd + "'"), "1");
}

TEST_F(ValuesTest, Column_names_are_found_without_regard_to_case) {
  MakeTable("v", "Mixed INTEGER");
  Execute("INSERT INTO v VALUES (7)");
  const RecordsetRef rows = Open("SELECT Mixed AS RetField FROM v");
  EXPECT_EQ(Shown(Value(*rows, "retFIELD")), "Long 7");
  EXPECT_EQ(RaisedBy([&] { Value(*rows, "other"); }).number, static_cast<Long>(0x800A0CC1));
}

TEST_F(ValuesTest, Look_up_reads_one_field) {
  MakeTable("staff",
            "name VARCHAR(40), code INTEGER, dept VARCHAR(4), photo " + Source().types.binary);
  Execute("INSERT INTO staff VALUES ('O''Brien', 7, 'A', " + Source().Binary("0102") +
          "), ('Li', 8, 'A', NULL), (NULL, 9, 'B', NULL)");
  Variant value;
  const auto select = [&](const char* field, const char* name1, const char* value1, bool text1,
                          const char* name2 = "", const char* value2 = "") {
    String errors;
    EXPECT_TRUE(component_.SelectField(connection_, field, value, u"staff", String(name1),
                                       String(value1), bool{text1}, String(name2), String(value2),
                                       true, u"", u"", true, errors));
    return Shown(value);
  };
  EXPECT_EQ(select("name", "code", "8", false), "String Li");
  EXPECT_EQ(select("code", "name", "O''Brien", true, "dept", "A"), "Long 7");
  EXPECT_EQ(select("photo", "code", "7", false), "bytes 0102");
  EXPECT_EQ(select("name", "code", "9", false), "Null");
  EXPECT_EQ(select("name", "code", "10", false), "String ");
  EXPECT_EQ(ToLong(*([&] {
              select("count(*)", "", "", true);
              return &value;
            })()),
            3);
}

TEST_F(ValuesTest, Long_values_come_in_chunks) {
  const std::vector<Byte> bytes = Pattern(12000);
  MakeTable("v", "x " + Source().types.binary);
  Execute("INSERT INTO v VALUES (" + Source().Binary(HexDigits(bytes)) + ")");
  const RecordsetRef rows = Open("SELECT x FROM v");
  const FieldRef field = FieldOf(*rows, "x");
  EXPECT_EQ(field->GetActualSize(), 12000);
  EXPECT_EQ(Shown(field->GetChunk(3)), "bytes " + HexDigits({bytes.begin(), bytes.begin() + 3}));
  EXPECT_EQ(Shown(field->GetChunk(2)),
            "bytes " + HexDigits({bytes.begin() + 3, bytes.begin() + 5}));
  EXPECT_EQ(Shown(field->GetChunk(100000)), "bytes " + HexDigits({bytes.begin() + 5, bytes.end()}));
  EXPECT_EQ(Shown(field->GetChunk(1)), "Null");
  EXPECT_EQ(Shown(Get(*field, "Attributes")), "Long " + std::to_string(0x80 | 0x20 | 0x40));
}

TEST_F(ValuesTest, Rows_are_a_snapshot_that_can_be_walked) {
  MakeTable("v", "x INTEGER");
  Execute("INSERT INTO v VALUES (1), (2), (3)");
  const RecordsetRef rows = Open("SELECT x FROM v ORDER BY x");
  Execute("DELETE FROM v");
  EXPECT_EQ(Shown(Get(*rows, "RecordCount")), "Long 3");
  std::string seen;
  for (; !rows->IsAtEnd(); Call(*rows, "MoveNext"))
    seen += Shown(Value(*rows, "x")) + " ";
  EXPECT_EQ(seen, "Long 1 Long 2 Long 3 ");
  Call(*rows, "Requery");
  EXPECT_TRUE(rows->IsAtEnd());
}

TEST_F(ValuesTest, Catalog_is_honoured) {
  if (!Source().is_server) {
    EXPECT_FALSE(std::filesystem::exists(Source().catalog)) << "a file named after the catalog";
    return;
  }
  const char* const name = Source().name == "mariadb" ? "database()" : "current_database()";
  EXPECT_EQ(Shown(Value(*Open(std::string("SELECT ") + name + " AS c"), "c")), "String second");
}

TEST_F(ValuesTest, Statement_without_rows_tells_how_many_it_changed) {
  MakeTable("v", "x INTEGER");
  std::vector<Variant> arguments{Variant("INSERT INTO v VALUES (1), (2), (3)"), Variant()};
  const Variant result = connection_->Call("Execute", arguments);
  EXPECT_EQ(Shown(arguments[1]), "Long 3");
  const auto rows = std::dynamic_pointer_cast<Recordset>(*result.Get<ObjectRef>());
  EXPECT_EQ(rows->GetState(), kStateClosed);
  arguments = {Variant("UPDATE v SET x = 9 WHERE x = 7"), Variant()};
  connection_->Call("Execute", arguments);
  EXPECT_EQ(Shown(arguments[1]), "Long 0");
}

}  // namespace
}  // namespace vandpublic::db_tests
