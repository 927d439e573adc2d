// The database members on FoxPro and dBASE folders: on copies of the samples, and on a table that
// is made here. What they store is read back by dbfread, which shares no code with us. Cases that
// other kinds of sources have too bear the same names.
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>

#include "db/file_test.h"
#include "db/made_table.h"
#include "db/process.h"
#include "support/test_data.h"

namespace vandpublic::db_tests {
namespace {

constexpr const char* kOdbcSource = "Microsoft OLE DB Provider for ODBC Drivers";
constexpr Long kOptimistic = 3;
const Raised kRowNotLocated{static_cast<Long>(0x80040E38), "Microsoft Cursor Engine",
                            "Row cannot be located for updating. Some values may have been changed "
                            "since it was last read."};

class DbfTest : public FileDbTest {
 protected:
  DbfTest()
      : FileDbTest({"dbf/memotest.dbf", "dbf/memotest.FPT", "dbf/calls.dbf", "dbf/calls.FPT",
                    "dbf/calls.CDX", "dbf/dbase_31.dbf", "dbf/dbase_83.dbf", "dbf/dbase_83.dbt",
                    "dbf/cp1251.dbf", "dbf/setup.dbf", "dbf/setup.CDX"}) {}
  void SetUp() override {
    FileDbTest::SetUp();
    MakeFoxProTable(folder_, "made", 3);
    component_.OpenConnAsFoxpro(connection_, String(folder_.path().string()));
  }

  Raised Running(const char* statement) {
    return RaisedBy([&] { Execute(statement); });
  }
  void Change(Recordset& rows, std::string_view field, Variant value) {
    Set(*FieldOf(rows, field), "Value", value);
    Call(rows, "Update");
  }
  // The rows of a table as the independent reader has them, one a line: an expression of Python
  // over the row "r".
  std::string Independent(const std::string& table, const std::string& expression) {
    if (FindFile({"/usr/lib/python3/dist-packages/dbfread"}).empty()) {
      throw std::runtime_error("python3-dbfread is not installed");
    }
    GiveToOrdinaryUser(folder_.path());
    return RunProgram({"python3", "-c",
                       "import sys, dbfread\n"
                       "for r in dbfread.DBF(sys.argv[1]): print(" +
                           expression + ")",
                       folder_.File(table + ".dbf")});
  }
};

class ValuesTest : public DbfTest {};

TEST_F(ValuesTest, Have_the_type_of_their_column) {
  RecordsetRef rows = Open("Select * From dbase_31 Where productid=1");
  EXPECT_EQ(Shown(Value(*rows, "productid")), "Long 1");
  EXPECT_EQ(Shown(Value(*rows, "unitprice")), "Currency 18");
  EXPECT_EQ(Shown(Value(*rows, "discontinu")), "Boolean False");
  EXPECT_THAT(Shown(Value(*rows, "productnam")), testing::StartsWith("String Chai  "));
  rows = Open("Select * From calls Where call_id=1");
  EXPECT_EQ(Shown(Value(*rows, "call_date")), "Date 1994-11-21 13:35:39");
  EXPECT_THAT(Shown(Value(*rows, "notes")), testing::StartsWith("String Nancy told me"));
  rows = Open("Select * From memotest Where name='Bob'");
  EXPECT_EQ(Shown(Value(*rows, "birthdate")), "Date 1980-11-12 00:00:00");
}

TEST_F(ValuesTest, Are_null_in_every_type) {
  RecordsetRef rows = Open("Select * From made Where id=2", kOptimistic);
  for (const char* const name : {"name", "photo"})
    Set(*FieldOf(*rows, name), "Value", NullValue{});
  Call(*rows, "Update");
  EXPECT_EQ(LookUp("name", "made", "id", "2", false), "Null");
  // A column that is not made for null values has none to tell from an empty one.
  EXPECT_EQ(LookUp("photo", "made", "id", "2", false), "bytes ");
  EXPECT_EQ(LookUp("id", "made", "name", "three"), "Long 3");
  rows = Open("Select * From made Where id=2", kOptimistic);
  Change(*rows, "name", "back");
  EXPECT_EQ(Independent("made", "r['NAME']"), "one\nback\nthree");
}

TEST_F(ValuesTest, Texts_keep_every_character) {
  EXPECT_THAT(Column("Select * From cp1251", "name"),
              testing::HasSubstr("\xD0\xB0\xD0\xBC\xD0\xB1\xD1\x83\xD0\xBB\xD0\xB0\xD1\x82"));
  const std::string text = "caf\xC3\xA9 \xE2\x82\xAC";
  const RecordsetRef rows = Open("Select * From memotest Where name='Bob'", kOptimistic);
  Change(*rows, "memo", text.c_str());
  EXPECT_EQ(LookUp("memo", "memotest", "name", "Bob"), "String " + text);
  // No code page of these tables has it; nothing is stored in its place.
  const RecordsetRef again = Open("Select * From memotest Where name='Bob'", kOptimistic);
  EXPECT_NE(RaisedBy([&] { Change(*again, "memo", u"\U0001F600"); }), kNothingRaised);
  EXPECT_EQ(LookUp("memo", "memotest", "name", "Bob"), "String " + text);
}

TEST_F(ValuesTest, Column_names_are_found_without_regard_to_case) {
  const RecordsetRef rows = Open("SELECT VALUE AS RetField FROM SETUP WHERE key_name='CALLS'");
  EXPECT_EQ(Shown(Value(*rows, "retFIELD")), "Long 21");
  EXPECT_EQ(RaisedBy([&] { Value(*rows, "other"); }).number, static_cast<Long>(0x800A0CC1));
}

TEST_F(ValuesTest, Look_up_reads_one_field) {
  EXPECT_EQ(LookUp("value", "setup", "key_name", "CALLS"), "Long 21");
  EXPECT_EQ(LookUp("value", "setup.dbf", "key_name", "CALLS"), "Long 21");
  EXPECT_EQ(LookUp("memo", "memotest", "name", "Bob"), "String Bob memo");
  EXPECT_EQ(LookUp("value", "setup", "key_name", "none"), "String ");
  EXPECT_EQ(LookUp("id", "made", "name", "two"), "Long 2");
}

TEST_F(ValuesTest, Long_values_come_in_chunks) {
  const RecordsetRef rows = Open("Select notes From calls Where call_id=1");
  const FieldRef field = FieldOf(*rows, "notes");
  EXPECT_EQ(Shown(field->GetChunk(5)), "String Nancy");
  EXPECT_EQ(Shown(field->GetChunk(5)), "String  told");
}

TEST_F(ValuesTest, Rows_are_a_snapshot_that_can_be_walked) {
  const RecordsetRef rows = Open("Select id From made Order By id");
  Execute("Delete From made");
  std::string seen;
  for (; !rows->IsAtEnd(); Call(*rows, "MoveNext"))
    seen += Shown(Value(*rows, "id")) + " ";
  EXPECT_EQ(seen, "Long 1 Long 2 Long 3 ");
  Call(*rows, "Requery");
  EXPECT_TRUE(rows->IsAtEnd());
}

TEST_F(ValuesTest, Statement_without_rows_tells_how_many_it_changed) {
  std::vector<Variant> arguments{Variant("Update made Set name='x' Where id>1"), Variant()};
  connection_->Call("Execute", arguments);
  EXPECT_EQ(Shown(arguments[1]), "Long 2");
}

class UpdatesTest : public DbfTest {};

TEST_F(UpdatesTest, Row_is_found_by_whatever_identifies_it) {
  const RecordsetRef rows = Open("Select name From made Order By id", kOptimistic);
  Call(*rows, "MoveNext");
  Change(*rows, "name", "TWO");
  Change(*rows, "name", "zwei");
  EXPECT_EQ(Independent("made", "r['ID'], r['NAME']"), "1 one\n2 zwei\n3 three");
}

TEST_F(UpdatesTest, Row_that_was_deleted_or_changed_behind_our_back_is_not_located) {
  RecordsetRef rows = Open("Select * From made Where id=2", kOptimistic);
  Execute("Update made Set name='other' Where id=2");
  EXPECT_EQ(RaisedBy([&] { Change(*rows, "name", "mine"); }), kRowNotLocated);
  rows = Open("Select * From made Where id=2", kOptimistic);
  Execute("Delete From made Where id=2");
  EXPECT_EQ(RaisedBy([&] { Change(*rows, "name", "mine"); }), kRowNotLocated);
  EXPECT_EQ(Independent("made", "r['ID'], r['NAME']"), "1 one\n3 three");
}

// Binary columns through the members: every size that matters, back bit for bit.
class BinaryTest : public UpdatesTest, public testing::WithParamInterface<std::size_t> {};

TEST_P(BinaryTest, Content_travels_whole) {
  const std::vector<Byte> bytes = Pattern(GetParam());
  const bool whole_chunks = bytes.size() % 5120 == 0;
  RecordsetRef rows = Open("Select * From made Order By id", kOptimistic);
  FieldRef field = FieldOf(*rows, "photo");
  if (!bytes.empty()) {
    Variant array = ByteArray(bytes, -5);
    EXPECT_EQ(component_.ArrayToColumn(field, array), !whole_chunks);
    Call(*rows, "Update");
    Call(*rows, "MoveNext");
    WriteFile(folder_.File("in"), bytes);
    String file_name(folder_.File("in"));
    EXPECT_EQ(component_.FileToColumn(field, file_name), !whole_chunks);
    Call(*rows, "Update");
  }
  const std::string digits = HexDigits(bytes);
  const std::string line = bytes.empty() ? "None" : digits;
  const std::string untouched = "None";
  EXPECT_EQ(Independent("made", "r['PHOTO'].hex().upper() if r['PHOTO'] else None"),
            line + "\n" + line + "\n" + untouched);

  rows = Open("Select photo From made Order By id");
  field = FieldOf(*rows, "photo");
  const Variant read = component_.ColumnToArray(field);
  EXPECT_EQ(read, bytes.empty() ? Variant(ByteArray({0})) : Variant(ByteArray(bytes, 1)));
  Call(*rows, "MoveNext");
  String out_name(folder_.File("out"));
  EXPECT_EQ(component_.ColumnToFile(field, out_name), !whole_chunks);
  EXPECT_EQ(folder_.Read("out"), std::string(bytes.begin(), bytes.end()));
}

INSTANTIATE_TEST_SUITE_P(Sizes, BinaryTest,
                         testing::Values(0, 1, 5119, 5120, 5121, 10240, 12000, 1'000'000));

TEST_F(UpdatesTest, Rows_are_added_and_deleted) {
  RecordsetRef rows = Open("Select * From made", kOptimistic);
  Call(*rows, "AddNew");
  Set(*FieldOf(*rows, "id"), "Value", Long{7});
  Set(*FieldOf(*rows, "name"), "Value", "seven");
  Set(*FieldOf(*rows, "photo"), "Value", ByteArray({1, 2, 3}));
  Call(*rows, "Update");
  Call(*rows, "MoveFirst");
  Call(*rows, "Delete");
  EXPECT_EQ(Independent("made", "r['ID'], r['NAME'], (r['PHOTO'] or b'').hex()"),
            "2 two \n3 three \n7 seven 010203");
}

TEST_F(UpdatesTest, What_cannot_be_updated_is_refused) {
  RecordsetRef rows = Open("Select * From made", 1);
  const auto refused = static_cast<Long>(0x800A0CB3);
  EXPECT_EQ(RaisedBy([&] { Change(*rows, "name", "x"); }).number, refused);
  // An index names the subject, or may: it is not kept up to date here.
  rows = Open("Select * From calls Where call_id=1", kOptimistic);
  const Raised indexed = RaisedBy([&] { Change(*rows, "subject", "x"); });
  EXPECT_EQ(indexed.number, static_cast<Long>(0x80004005));
  EXPECT_THAT(indexed.description, testing::HasSubstr("index"));
  Call(*rows, "CancelUpdate");
  Change(*rows, "notes", "a memo has no place in an index");
  EXPECT_THAT(Independent("calls", "r['NOTES']"), testing::StartsWith("a memo has no place"));
  EXPECT_EQ(folder_.Read("calls.CDX"), ReadSample("dbf/calls.CDX"));
}

TEST_F(UpdatesTest, Values_that_do_not_fit_are_refused_before_they_are_sent) {
  const RecordsetRef rows = Open("Select * From made Order By id", kOptimistic);
  EXPECT_EQ(RaisedBy([&] { Set(*FieldOf(*rows, "id"), "Value", "abc"); }).number,
            static_cast<Long>(0x800A0D5D));
  Set(*FieldOf(*rows, "name"), "Value", "a text of more than twenty characters");
  EXPECT_EQ(RaisedBy([&] { Call(*rows, "Update"); }).number, static_cast<Long>(0x80040E57));
  EXPECT_EQ(Independent("made", "r['NAME']"), "one\ntwo\nthree");
}

class ErrorsTest : public DbfTest {};

TEST_F(ErrorsTest, Broken_statements) {
  const Raised table = Running("Select * From no_such_table");
  EXPECT_EQ(table.number, static_cast<Long>(0x80040E37)) << table;
  EXPECT_EQ(table.source, kOdbcSource);
  EXPECT_THAT(table.description, testing::HasSubstr("no_such_table.dbf"));
  EXPECT_EQ(Running("Select no_such_column From made").number, static_cast<Long>(0x80040E14));
  EXPECT_EQ(Running("Selec 1").number, static_cast<Long>(0x80040E14));
  EXPECT_EQ(Running("Select id From made Where id=").number, static_cast<Long>(0x80040E14));
  EXPECT_NE(Running(""), kNothingRaised);
  EXPECT_EQ(LookUp("id", "made", "name", "two"), "Long 2");
}

TEST_F(ErrorsTest, Broken_look_up_is_logged_by_both_members) {
  component_.LogFileName("lookup.log");
  Variant value = "before";
  const Raised raised =
      RaisedBy([&] { component_.SelectField(connection_, "id", value, u"no_such_table"); });
  EXPECT_EQ(raised.number, static_cast<Long>(0x80040016));
  EXPECT_THAT(raised.description,
              testing::StartsWith(std::string(kOdbcSource) + " (-2147217865) - "));
  EXPECT_THAT(Log("lookup.log"), testing::HasSubstr("VandPublic.clsCommon.SelectField\r\n"));
  EXPECT_EQ(Shown(value), "String before");
}

TEST_F(ErrorsTest, States_are_kept_to) {
  EXPECT_EQ(RaisedBy([&] { Call(*connection_, "Open"); }).number, static_cast<Long>(0x800A0E79));
  const RecordsetRef rows = Open("Select id From made");
  Call(*connection_, "Close");
  EXPECT_EQ(rows->GetState(), kStateClosed);
  EXPECT_EQ(RaisedBy([&] { rows->IsAtEnd(); }).number, static_cast<Long>(0x800A0E78));
  EXPECT_NE(RaisedBy([&] { Open("Select id From made"); }), kNothingRaised);
}

TEST_F(ErrorsTest, Very_long_connection_strings_do_no_harm) {
  const auto open = [&](const std::string& text) {
    ConnectionRef connection = MakeConnection();
    return RaisedBy([&] {
      Call(*connection, "Open", {Variant(text.c_str())});
      Variant value;
      component_.SelectField(connection, "id", value, u"made");
    });
  };
  const std::string start = "Driver={Microsoft Visual FoxPro Driver};SourceType=DBF;SourceDB=";
  EXPECT_NE(open(start + std::string(32000, 'd')), kNothingRaised);
  EXPECT_EQ(open(start + folder_.path().string() + ";Unknown key=" + std::string(32000, 'x')),
            kNothingRaised);
}

class FaultsTest : public DbfTest {};

TEST_F(FaultsTest, Statement_that_takes_too_long_is_stopped) {
  // Three rows to the power of twenty.
  std::string statement = "Select Count(*) From made";
  for (int i = 1; i < 20; ++i)
    statement += ", made t" + std::to_string(i);
  Set(*connection_, "CommandTimeout", Long{1});
  const auto start = std::chrono::steady_clock::now();
  const Raised raised = Running(statement.c_str());
  EXPECT_EQ(raised, (Raised{static_cast<Long>(0x80040E31), kOdbcSource, "Timeout expired"}));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  EXPECT_EQ(LookUp("id", "made", "name", "two"), "Long 2");
}

TEST_F(FaultsTest, Many_look_ups_leave_nothing_behind) {
  const auto look_up = [&](int times) {
    for (int i = 0; i < times; ++i)
      ASSERT_EQ(LookUp("value", "setup", "key_name", "CALLS"), "Long 21");
  };
  look_up(1000);
  const int descriptors = OpenDescriptors();
  const long memory = MemoryInUse();
  look_up(10000);
  EXPECT_EQ(OpenDescriptors(), descriptors);
  EXPECT_LT(MemoryInUse() - memory, 2048) << "KiB";
}

TEST_F(FaultsTest, Row_that_another_connection_locks_is_an_error_after_the_time_out) {
  const RecordsetRef rows = Open("Select * From made Order By id", kOptimistic);
  const int other = open(folder_.File("made.dbf").c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_GE(other, 0);
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  ASSERT_EQ(fcntl(other, F_OFD_SETLK, &lock), 0);
  EXPECT_NE(RaisedBy([&] { Change(*rows, "name", "x"); }), kNothingRaised);
  close(other);
  EXPECT_EQ(Independent("made", "r['NAME']"), "one\ntwo\nthree");
  Call(*rows, "Update");
  EXPECT_EQ(Independent("made", "r['NAME']"), "x\ntwo\nthree");
}

TEST_F(FaultsTest, Full_disk_is_an_error_and_loses_no_row) {
  const RecordsetRef rows = Open("Select * From made Order By id", kOptimistic);
  Change(*rows, "photo", ByteArray({1, 2}));
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{
      static_cast<rlim_t>(std::filesystem::file_size(folder_.File("made.fpt"))) + 4096,
      before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  Set(*FieldOf(*rows, "photo"), "Value", ByteArray(Pattern(1'000'000)));
  EXPECT_NE(RaisedBy([&] { Call(*rows, "Update"); }), kNothingRaised);
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(Independent("made", "(r['PHOTO'] or b'').hex()"), "0102\n\n");
  Call(*rows, "Update");
  EXPECT_EQ(Independent("made", "len(r['PHOTO'] or b'')"), "1000000\n0\n0");
}

}  // namespace
}  // namespace vandpublic::db_tests
