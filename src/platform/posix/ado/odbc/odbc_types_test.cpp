// Types and values of ODBC columns, parameters and errors, with a driver manager that says what the
// tests tell it to.
#include "platform/posix/ado/odbc/odbc_types.h"

#include <gtest/gtest.h>

#include <cstring>
#include <deque>

#include "platform/posix/ado/ado_errors.h"
#include "support/test_component.h"

namespace vandpublic::ado {
namespace {

// One answer of SQLGetData: the bytes that it puts into the buffer, and the length it tells.
struct Piece {
  SQLRETURN result = SQL_SUCCESS;
  std::string bytes;
  SQLLEN length = 0;
};

struct Bound {
  SQLSMALLINT c_type = 0;
  SQLSMALLINT sql_type = 0;
  SQLULEN size = 0;
  std::string value;  // of a number its text, of a null value "null"
};

// What the functions below answer, and what they were called with. One test at a time.
struct FakeDriver {
  std::deque<Piece> pieces;
  SQLSMALLINT wanted_c_type = 0;
  Bound bound;
  SQLRETURN allocation = SQL_SUCCESS;
  SQLRETURN diagnostic = SQL_SUCCESS;
  std::string state = "HY000";
  SQLINTEGER code = 0;
  std::string text = "Driver's words.\r\n";
};
FakeDriver* driver = nullptr;

SQLRETURN AllocHandle(SQLSMALLINT, SQLHANDLE, SQLHANDLE* handle) {
  *handle = driver;
  return driver->allocation;
}
SQLRETURN FreeHandle(SQLSMALLINT, SQLHANDLE) { return SQL_SUCCESS; }
SQLRETURN SetEnvAttr(SQLHENV, SQLINTEGER, SQLPOINTER, SQLINTEGER) { return SQL_SUCCESS; }

SQLRETURN GetData(SQLHSTMT, SQLUSMALLINT, SQLSMALLINT c_type, SQLPOINTER buffer, SQLLEN,
                  SQLLEN* length) {
  driver->wanted_c_type = c_type;
  const Piece piece = driver->pieces.front();
  driver->pieces.pop_front();
  std::memcpy(buffer, piece.bytes.data(), piece.bytes.size());
  *length = piece.length;
  return piece.result;
}

SQLRETURN BindParameter(SQLHSTMT, SQLUSMALLINT, SQLSMALLINT, SQLSMALLINT c_type,
                        SQLSMALLINT sql_type, SQLULEN size, SQLSMALLINT, SQLPOINTER data, SQLLEN,
                        SQLLEN* length) {
  driver->bound = {c_type, sql_type, size, {}};
  if (*length == SQL_NULL_DATA) {
    driver->bound.value = "null";
  } else if (c_type == SQL_C_SBIGINT) {
    driver->bound.value = std::to_string(*static_cast<SQLBIGINT*>(data));
  } else if (c_type == SQL_C_DOUBLE) {
    driver->bound.value = std::to_string(*static_cast<double*>(data));
  } else {
    driver->bound.value.assign(static_cast<const char*>(data), static_cast<std::size_t>(*length));
  }
  return SQL_SUCCESS;
}

SQLRETURN GetDiagRec(SQLSMALLINT, SQLHANDLE, SQLSMALLINT, SQLCHAR* state, SQLINTEGER* code,
                     SQLCHAR* text, SQLSMALLINT, SQLSMALLINT* length) {
  std::memcpy(state, driver->state.c_str(), driver->state.size() + 1);
  std::memcpy(text, driver->text.c_str(), driver->text.size() + 1);
  *code = driver->code;
  *length = static_cast<SQLSMALLINT>(driver->text.size());
  return driver->diagnostic;
}

class OdbcFake : public testing::Test {
 protected:
  OdbcFake() {
    driver = &fake_;
    library_->AllocHandle = &AllocHandle;
    library_->FreeHandle = &FreeHandle;
    library_->SetEnvAttr = &SetEnvAttr;
    library_->GetData = &GetData;
    library_->BindParameter = &BindParameter;
    library_->GetDiagRec = &GetDiagRec;
  }

  Variant ValueOf(DataType type, std::deque<Piece> pieces) {
    fake_.pieces = std::move(pieces);
    const OdbcHandle statement(library_);
    const Column column{"x", type};
    Variant value = ReadValue(statement, 1, column);
    EXPECT_TRUE(fake_.pieces.empty());
    return value;
  }
  Variant TextAs(DataType type, const std::string& text) {
    return ValueOf(type, {{SQL_SUCCESS, text, static_cast<SQLLEN>(text.size())}});
  }

  FakeDriver fake_;
  std::shared_ptr<OdbcLibrary> library_ = std::make_shared<OdbcLibrary>();
};

struct TypeCase {
  SQLSMALLINT sql_type;
  SQLULEN size;
  bool is_unsigned;
  OdbcKind kind;
  DataType type;
  Long defined_size;
  bool is_long;
};

TEST(OdbcColumnType, Follows_from_what_the_driver_says) {
  constexpr OdbcKind kOther = OdbcKind::Other;
  constexpr Long kMost = 0x7FFFFFFF;
  constexpr TypeCase kCases[] = {
      {SQL_BIT, 1, false, kOther, DataType::Boolean, 2, false},
      {SQL_TINYINT, 3, false, kOther, DataType::SmallInt, 2, false},
      {SQL_TINYINT, 3, true, kOther, DataType::Integer, 4, false},
      {SQL_SMALLINT, 5, true, kOther, DataType::Integer, 4, false},
      {SQL_INTEGER, 10, false, kOther, DataType::Integer, 4, false},
      {SQL_INTEGER, 10, true, kOther, DataType::BigInt, 8, false},
      {SQL_BIGINT, 19, true, kOther, DataType::BigInt, 8, false},
      {SQL_REAL, 7, false, kOther, DataType::Single, 4, false},
      {SQL_FLOAT, 15, false, kOther, DataType::Double, 8, false},
      {SQL_DECIMAL, 12, false, kOther, DataType::Numeric, 19, false},
      {SQL_DATE, 10, false, kOther, DataType::DBDate, 6, false},
      {SQL_TYPE_TIME, 8, false, kOther, DataType::DBTime, 6, false},
      {SQL_TYPE_TIMESTAMP, 19, false, kOther, DataType::DBTimeStamp, 16, false},
      {SQL_GUID, 36, false, kOther, DataType::Guid, 16, false},
      {SQL_CHAR, 5, false, kOther, DataType::Char, 5, false},
      {SQL_VARCHAR, 20, false, kOther, DataType::VarChar, 20, false},
      {SQL_VARCHAR, 0, false, kOther, DataType::VarChar, kMost, false},
      {SQL_WVARCHAR, 0xFFFFFFFF, false, kOther, DataType::VarWChar, kMost, false},
      {SQL_LONGVARCHAR, 100, false, kOther, DataType::LongVarChar, kMost, true},
      {SQL_WLONGVARCHAR, 100, false, kOther, DataType::LongVarWChar, kMost, true},
      {SQL_BINARY, 8, false, kOther, DataType::Binary, 8, false},
      {SQL_VARBINARY, 8, false, kOther, DataType::VarBinary, 8, false},
      {SQL_VARBINARY, 0, false, kOther, DataType::LongVarBinary, kMost, true},
      {SQL_BINARY, 255, false, OdbcKind::SQLite, DataType::LongVarBinary, kMost, true},
      {SQL_LONGVARBINARY, 0, false, kOther, DataType::LongVarBinary, kMost, true},
      {-9999, 30, false, kOther, DataType::VarWChar, 30, false},
  };
  for (const TypeCase& test : kCases) {
    OdbcColumn source;
    source.sql_type = test.sql_type;
    source.size = test.size;
    source.is_unsigned = test.is_unsigned;
    Column column;
    DescribeType(source, test.kind, column);
    const auto shown = [](DataType type, Long size, bool is_long) {
      return std::vector<Long>{static_cast<Long>(type), size, is_long ? 1 : 0};
    };
    EXPECT_EQ(shown(column.type, column.defined_size, column.is_long),
              shown(test.type, test.defined_size, test.is_long))
        << test.sql_type << " of " << test.size;
  }
}

struct TextCase {
  DataType type;
  const char* text;
  Variant value;
};

TEST_F(OdbcFake, Gives_values_of_the_column_or_of_the_closest_type) {
  const auto decimal = [](const char* text) { return Variant(*Decimal::Parse(text)); };
  const TextCase cases[] = {
      {DataType::Boolean, "1", true},
      {DataType::Boolean, "t", true},
      {DataType::Boolean, "0", false},
      {DataType::Boolean, "f", false},
      {DataType::Boolean, "F", false},
      {DataType::Boolean, "", false},
      {DataType::SmallInt, "-5", Integer{-5}},
      {DataType::SmallInt, "40000", Long{40000}},
      {DataType::SmallInt, "3000000000", decimal("3000000000")},
      {DataType::Integer, "7", Long{7}},
      {DataType::Integer, "1.5", decimal("1.5")},
      {DataType::Integer, "1e40", 1e40},
      {DataType::Integer, "many", u"many"},
      {DataType::Integer, "12x", u"12x"},
      {DataType::BigInt, "9007199254740993", decimal("9007199254740993")},
      {DataType::Numeric, "-1234.50", decimal("-1234.50")},
      {DataType::Numeric, "", u""},
      {DataType::Single, "1.5", 1.5f},
      {DataType::Single, "x", u"x"},
      {DataType::Double, "0.1", 0.1},
      {DataType::Double, "0.1.2", u"0.1.2"},
      {DataType::DBDate, "2024-02-29", Date{45351}},
      {DataType::DBTime, "12:00:00", Date{0.5}},
      {DataType::DBTimeStamp, "2024-02-29 06:00:00", Date{45351.25}},
      {DataType::DBTimeStamp, "infinity", u"infinity"},
      {DataType::DBDate, "0000-00-00", u"0000-00-00"},
      {DataType::Guid, "0a1b2c3d-0000-1111-2222-abcdefABCDEF",
       u"{0A1B2C3D-0000-1111-2222-ABCDEFABCDEF}"},
      {DataType::Guid, "{0A1B}", u"{0A1B}"},
      {DataType::VarChar, "caf\xC3\xA9", u"caf\u00e9"},
      {DataType::LongVarWChar, "", u""},
  };
  for (const TextCase& test : cases) {
    EXPECT_EQ(TextAs(test.type, test.text), test.value)
        << static_cast<Long>(test.type) << " " << test.text;
    EXPECT_EQ(fake_.wanted_c_type, SQL_C_CHAR);
  }
}

TEST_F(OdbcFake, Reads_bytes_of_binary_columns) {
  for (const DataType type : {DataType::Binary, DataType::VarBinary, DataType::LongVarBinary}) {
    EXPECT_EQ(ValueOf(type, {{SQL_SUCCESS, std::string("\0\xFF", 2), 2}}),
              Variant(ByteArray({0, 255})));
    EXPECT_EQ(fake_.wanted_c_type, SQL_C_BINARY);
  }
}

TEST_F(OdbcFake, Reads_null_values) {
  EXPECT_TRUE(ValueOf(DataType::VarChar, {{SQL_SUCCESS, "", SQL_NULL_DATA}}).IsNull());
  EXPECT_TRUE(ValueOf(DataType::LongVarBinary, {{SQL_SUCCESS, "", SQL_NULL_DATA}}).IsNull());
}

TEST_F(OdbcFake, Puts_the_pieces_of_a_long_value_together) {
  const std::string first(5119, 'a');
  const std::string terminated = first + '\0';
  // The whole length is told, or that it is not known; the rest comes with its own length.
  EXPECT_EQ(ValueOf(DataType::VarChar,
                    {{SQL_SUCCESS_WITH_INFO, terminated, 5122}, {SQL_SUCCESS, "bcd", 3}}),
            Variant(String(first + "bcd")));
  EXPECT_EQ(ValueOf(DataType::VarChar,
                    {{SQL_SUCCESS_WITH_INFO, terminated, SQL_NO_TOTAL}, {SQL_SUCCESS, "b", 1}}),
            Variant(String(first + "b")));
  // The last piece was a full one, and the driver says so only now.
  EXPECT_EQ(ValueOf(DataType::VarChar,
                    {{SQL_SUCCESS_WITH_INFO, terminated, SQL_NO_TOTAL}, {SQL_NO_DATA, "", 0}}),
            Variant(String(first)));
  // A driver that cuts without a word.
  EXPECT_EQ(ValueOf(DataType::VarChar, {{SQL_SUCCESS, terminated, 6000}}), Variant(String(first)));
  const std::string large(std::size_t{1} << 18, 'x');
  const std::string bytes(5120, 'y');
  const Variant value =
      ValueOf(DataType::LongVarBinary,
              {{SQL_SUCCESS_WITH_INFO, bytes, static_cast<SQLLEN>(5120 + large.size() + 1)},
               {SQL_SUCCESS_WITH_INFO, large, static_cast<SQLLEN>(large.size() + 1)},
               {SQL_SUCCESS, "z", 1}});
  ASSERT_NE(value.AsByteArray(), nullptr);
  EXPECT_EQ(value.AsByteArray()->Count(), static_cast<Long>(5120 + large.size() + 1));
  EXPECT_EQ(value.AsByteArray()->Elements().back(), 'z');
}

struct ParameterCase {
  const char* name;
  Variant value;
  SQLSMALLINT sql_type;
  Bound bound;
};

TEST_F(OdbcFake, Binds_values_as_the_column_takes_them) {
  const ParameterCase cases[] = {
      {"null", NullValue{}, SQL_INTEGER, {SQL_C_CHAR, SQL_INTEGER, 1, "null"}},
      {"empty", Variant(), SQL_VARCHAR, {SQL_C_CHAR, SQL_VARCHAR, 1, "null"}},
      {"boolean", true, SQL_BIT, {SQL_C_CHAR, SQL_BIT, 1, "1"}},
      {"false", false, SQL_BIT, {SQL_C_CHAR, SQL_BIT, 1, "0"}},
      {"integer", Integer{-5}, SQL_SMALLINT, {SQL_C_SBIGINT, SQL_SMALLINT, 20, "-5"}},
      {"long", Long{70000}, SQL_INTEGER, {SQL_C_SBIGINT, SQL_INTEGER, 20, "70000"}},
      {"byte", Byte{200}, SQL_TINYINT, {SQL_C_SBIGINT, SQL_TINYINT, 20, "200"}},
      {"single", 1.5f, SQL_REAL, {SQL_C_DOUBLE, SQL_REAL, 17, "1.500000"}},
      {"double", -0.25, SQL_DOUBLE, {SQL_C_DOUBLE, SQL_DOUBLE, 17, "-0.250000"}},
      {"amount", Currency{12345}, SQL_NUMERIC, {SQL_C_CHAR, SQL_NUMERIC, 6, "1.2345"}},
      {"negative amount", Currency{-5}, SQL_NUMERIC, {SQL_C_CHAR, SQL_NUMERIC, 7, "-0.0005"}},
      {"least amount",
       Currency{INT64_MIN},
       SQL_NUMERIC,
       {SQL_C_CHAR, SQL_NUMERIC, 21, "-922337203685477.5808"}},
      {"decimal", *Decimal::Parse("1234.50"), SQL_DECIMAL, {SQL_C_CHAR, SQL_DECIMAL, 7, "1234.50"}},
      {"day", Date{45356.25}, SQL_TYPE_DATE, {SQL_C_CHAR, SQL_TYPE_DATE, 10, "2024-03-05"}},
      {"old day", Date{45356.25}, SQL_DATE, {SQL_C_CHAR, SQL_DATE, 10, "2024-03-05"}},
      {"time", Date{45356.25}, SQL_TYPE_TIME, {SQL_C_CHAR, SQL_TYPE_TIME, 8, "06:00:00"}},
      {"old time", Date{45356.25}, SQL_TIME, {SQL_C_CHAR, SQL_TIME, 8, "06:00:00"}},
      {"moment",
       Date{45356.25},
       SQL_TYPE_TIMESTAMP,
       {SQL_C_CHAR, SQL_TYPE_TIMESTAMP, 19, "2024-03-05 06:00:00"}},
      {"text", u"caf\u00e9", SQL_VARCHAR, {SQL_C_CHAR, SQL_VARCHAR, 5, "caf\xC3\xA9"}},
      {"empty text", u"", SQL_VARCHAR, {SQL_C_CHAR, SQL_VARCHAR, 1, ""}},
      {"bytes",
       ByteArray({1, 0}),
       SQL_BINARY,
       {SQL_C_BINARY, SQL_LONGVARBINARY, 2, std::string("\1\0", 2)}},
      {"no bytes",
       ByteArray(std::vector<Byte>{}),
       SQL_BINARY,
       {SQL_C_BINARY, SQL_LONGVARBINARY, 1, ""}},
  };
  const OdbcHandle statement(library_);
  for (const ParameterCase& test : cases) {
    OdbcParameter parameter(test.value, test.sql_type);
    parameter.Bind(statement, 1);
    EXPECT_EQ(fake_.bound.c_type, test.bound.c_type) << test.name;
    EXPECT_EQ(fake_.bound.sql_type, test.bound.sql_type) << test.name;
    EXPECT_EQ(fake_.bound.size, test.bound.size) << test.name;
    EXPECT_EQ(fake_.bound.value, test.bound.value) << test.name;
  }
}

TEST_F(OdbcFake, Refuses_values_that_no_column_takes) {
  constexpr Long kWrongType = static_cast<Long>(0x800A0D5D);
  for (const Variant& value : {Variant(Date{1e10}), Variant(ObjectRef())}) {
    EXPECT_EQ(RaisedBy([&] { OdbcParameter(value, SQL_VARCHAR); }).number, kWrongType);
  }
}

struct ErrorCase {
  OdbcKind kind;
  const char* state;
  SQLINTEGER code;
  const char* text;
  SourceError number;
};

TEST_F(OdbcFake, Tells_errors_by_their_state_or_by_the_code_of_sqlite) {
  constexpr ErrorCase kCases[] = {
      {OdbcKind::Other, "42S02", 1, "x", SourceError::NoSuchTable},
      {OdbcKind::Other, "42P01", 1, "x", SourceError::NoSuchTable},
      {OdbcKind::Other, "S0002", 1, "x", SourceError::NoSuchTable},
      {OdbcKind::Other, "42501", 1, "x", SourceError::PermissionDenied},
      {OdbcKind::Other, "42000", 1, "x", SourceError::BadStatement},
      {OdbcKind::Other, "37000", 1, "x", SourceError::BadStatement},
      {OdbcKind::Other, "07002", 1, "x", SourceError::ParameterMissing},
      {OdbcKind::Other, "22018", 1, "x", SourceError::CannotConvert},
      {OdbcKind::Other, "22003", 1, "x", SourceError::ValueTooLarge},
      {OdbcKind::Other, "23000", 1, "x", SourceError::IntegrityViolation},
      {OdbcKind::Other, "28000", 1, "x", SourceError::LogInFailed},
      {OdbcKind::Other, "HYT00", 1, "x", SourceError::TimedOut},
      {OdbcKind::Other, "08001", 19, "x", SourceError::Failed},
      {OdbcKind::SQLite, "HY000", 1, "no such table: t", SourceError::NoSuchTable},
      {OdbcKind::SQLite, "HY000", 1, "near x", SourceError::BadStatement},
      {OdbcKind::SQLite, "HY000", 8, "x", SourceError::PermissionDenied},
      {OdbcKind::SQLite, "HY000", 23, "x", SourceError::PermissionDenied},
      {OdbcKind::SQLite, "HY000", 18, "x", SourceError::ValueTooLarge},
      {OdbcKind::SQLite, "HY000", 19, "x", SourceError::IntegrityViolation},
      {OdbcKind::SQLite, "HY000", 20, "x", SourceError::CannotConvert},
      {OdbcKind::SQLite, "HY000", 5, "x", SourceError::Failed},
      {OdbcKind::SQLite, "22003", 0, "x", SourceError::ValueTooLarge},
  };
  for (const ErrorCase& test : kCases) {
    OdbcHandle handle(library_);
    handle.set_kind(test.kind);
    fake_.state = test.state;
    fake_.code = test.code;
    fake_.text = test.text;
    EXPECT_EQ(RaisedBy([&] { handle.Check(SQL_ERROR); }),
              (Raised{static_cast<Long>(test.number), std::string(kOdbcSource), test.text}))
        << test.state << " " << test.code;
  }
}

TEST_F(OdbcFake, Shows_the_drivers_words_without_the_password) {
  OdbcHandle handle(library_);
  const auto words = [&](const char* secret, const char* text) {
    handle.set_secret(secret);
    fake_.text = text;
    return RaisedBy([&] { handle.Check(SQL_ERROR); }).description;
  };
  EXPECT_EQ(words("", "Words. \r\n"), "Words.");
  EXPECT_EQ(words("secret", "secret and secret"), "*** and ***");
  EXPECT_EQ(words("****", "********"), "******");
  EXPECT_EQ(words("a", "a cat"), "a cat");
  fake_.diagnostic = SQL_NO_DATA;
  EXPECT_EQ(words("", "x"), "Unspecified error");
}

TEST_F(OdbcFake, Tells_where_no_handle_is_to_be_had) {
  fake_.text = "No more.";
  const OdbcHandle environment(library_);
  fake_.allocation = SQL_ERROR;
  EXPECT_EQ(RaisedBy([&] { OdbcHandle(SQL_HANDLE_DBC, environment); }).description, "No more.");
  EXPECT_EQ(RaisedBy([&] { const OdbcHandle other(library_); }).description,
            "The ODBC driver manager cannot be used.");
}

}  // namespace
}  // namespace vandpublic::ado
