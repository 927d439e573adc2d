// Recordsets and fields by name, and the corners of their states.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/memory_recordset.h"
#include "support/recording_database.h"
#include "support/test_data.h"

namespace vandpublic::ado {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(AdoRecordsetTest, Opens_with_a_connection_string_of_its_own) {
  const auto rows = std::make_shared<AdoRecordset>();
  const std::string source =
      "Driver={Microsoft Visual FoxPro Driver};SourceType=DBF;SourceDB=" + SamplePath("dbf") +
      ";Exclusive=No";
  Call(*rows, "Open",
       {Variant("Select value From setup Where key_name='CALLS'"), Variant(source.c_str()),
        Variant(), Variant(Long{1}), Variant(Long{1})});
  EXPECT_EQ(Value(*rows, u"value"), Variant(Long{21}));
  const auto unknown = std::make_shared<AdoRecordset>();
  EXPECT_EQ(RaisedBy([&] { unknown->Set("ActiveConnection", "Provider=Unknown"); }).number,
            kObjectBase + 3706);
}

TEST_F(AdoRecordsetTest, Takes_no_other_object_for_a_connection) {
  const auto rows = std::make_shared<AdoRecordset>();
  const auto foreign = std::make_shared<RecordingDatabase>();
  for (const ObjectRef& object : {ObjectRef(rows), ObjectRef(foreign->MakeConnection()),
                                  ObjectRef(foreign->MakeRecordset())}) {
    EXPECT_EQ(RaisedBy([&] { rows->Set("ActiveConnection", object); }).number, kInvalid);
  }
  rows->Set("ActiveConnection", ObjectRef(connection_));
  rows->Set("ActiveConnection", ObjectRef());
  EXPECT_EQ(*Get(*rows, "ActiveConnection").Get<ObjectRef>(), nullptr);
}

TEST_F(AdoRecordsetTest, Properties_are_as_they_were_set_until_it_opens) {
  const auto rows = std::make_shared<AdoRecordset>();
  rows->Set("CursorLocation", Long{3});
  rows->Set("CursorType", Long{1});
  rows->Set("Source", "rows");
  EXPECT_EQ(Get(*rows, "CursorLocation"), Variant(Long{3}));
  EXPECT_EQ(Get(*rows, "CursorType"), Variant(Long{1}));
  EXPECT_EQ(Get(*rows, "Source"), Variant(u"rows"));
  for (const Long cursor_type : {-1, 4})
    EXPECT_EQ(RaisedBy([&] { rows->Set("CursorType", cursor_type); }).number, kInvalid);
  EXPECT_EQ(RaisedBy([&] { rows->Set("Source", ByteArray({1})); }).number, kInvalid);
  rows->Open(u"", connection_, 2, 3, 1);
  EXPECT_EQ(Get(*rows, "CursorType"), Variant(Long{3})) << "every cursor is a static one";
}

TEST_F(AdoRecordsetTest, Opens_a_table_by_its_name) {
  table_.calls.clear();
  const auto rows = std::make_shared<AdoRecordset>();
  Call(*rows, "Open",
       {Variant("rows"), Variant(ObjectRef(connection_)), Variant(), Variant(), Variant(Long{2})});
  EXPECT_THAT(table_.calls, ElementsAre("select * from rows"));
}

TEST_F(AdoRecordsetTest, Arguments_must_be_there_and_make_sense) {
  const auto rows = Open();
  const auto missing = PlainFault(FaultNumber::ArgumentNotOptional);
  EXPECT_EQ(RaisedBy([&] { Call(*rows, "Move"); }), missing);
  EXPECT_EQ(RaisedBy([&] { Call(*rows, "Supports"); }), missing);
  EXPECT_EQ(RaisedBy([&] { Call(*FieldOf(*rows, u"Photo"), "AppendChunk"); }), missing);
  EXPECT_EQ(RaisedBy([&] { Call(*FieldOf(*rows, u"Photo"), "GetChunk"); }), missing);
  const auto move = [&](Variant count, Variant start) {
    Call(*rows, "Move", {std::move(count), std::move(start)});
    return Get(*rows, "AbsolutePosition");
  };
  EXPECT_EQ(move(Long{-1}, Long{2}), Variant(Long{2})) << "from the last";
  EXPECT_EQ(move(Long{1}, Variant()), Variant(Long{3}));
  EXPECT_EQ(move(Long{0}, Long{1}), Variant(Long{1})) << "from the first";
  EXPECT_EQ(RaisedBy([&] { move(Long{0}, Long{3}); }).number, kInvalid);
  EXPECT_EQ(RaisedBy([&] { move("x", Long{0}); }).number, kInvalid);
  EXPECT_EQ(RaisedBy([&] { Call(*rows, "Delete", {Variant(Long{2})}); }),
            (Raised{kNotUpdatable, "ADODB.Recordset",
                    "Object or provider is not capable of performing requested operation."}));
  EXPECT_EQ(RaisedBy([&] { rows->Set("AbsolutePosition", Long{0}); }).number, kInvalid);
  const auto wrong_count = RaisedBy([&] { Get(*rows, "Fields", {Long{0}, Long{1}}); });
  EXPECT_NE(wrong_count, kNothingRaised);
  EXPECT_NE(RaisedBy([&] { Get(*rows->GetFields(), "Item"); }), kNothingRaised);
  EXPECT_NE(RaisedBy([&] { Get(*rows->GetFields(), "Nothing"); }), kNothingRaised);
  EXPECT_NE(RaisedBy([&] { Get(*rows->GetFields(), "Count", {Long{1}}); }), kNothingRaised);
}

TEST_F(AdoRecordsetTest, Chunks_are_given_and_taken_by_name) {
  const auto rows = Open();
  const FieldRef photo = FieldOf(*rows, u"Photo");
  Call(*photo, "AppendChunk", {ByteArray({1, 2, 3})});
  EXPECT_EQ(Call(*photo, "GetChunk", {Variant(Long{2})}), Variant(ByteArray({1, 2})));
  EXPECT_EQ(RaisedBy([&] { Call(*photo, "GetChunk", {Variant("x")}); }).number, kInvalid);
  EXPECT_NE(RaisedBy([&] { Call(*photo, "Nothing"); }), kNothingRaised);
}

TEST_F(AdoRecordsetTest, Field_and_value_may_come_with_the_update) {
  const auto rows = Open();
  Call(*rows, "Update", {Variant("Name"), Variant(u"ONE")});
  EXPECT_THAT(table_.calls, ElementsAre("update 1 0100"));
  EXPECT_EQ(Value(*rows, u"Name"), Variant(u"ONE"));
}

TEST_F(AdoRecordsetTest, Read_only_fields_say_so) {
  const auto rows = Open(1);
  EXPECT_EQ(Get(*FieldOf(*rows, u"Id"), "Attributes"), Variant(Long{0x8000 | 0x10}));
  EXPECT_EQ(Get(*FieldOf(*rows, u"Sum"), "Attributes"), Variant(Long{0x10 | 0x20 | 0x40}));
  EXPECT_EQ(Call(*Open(4), "Supports", {Variant(Long{0x10000})}), Variant(true));
  EXPECT_EQ(Call(*Open(3), "Supports", {Variant(Long{0x10000})}), Variant(false));
  for (const char* operation : {"UpdateBatch", "CancelBatch"})
    EXPECT_EQ(RaisedBy([&] { Call(*Open(3), operation); }).number, kNotUpdatable) << operation;
}

TEST_F(AdoRecordsetTest, New_row_is_at_neither_end_and_has_no_stored_values) {
  table_.rows.clear();
  const auto rows = Open();
  Call(*rows, "AddNew");
  EXPECT_EQ(Get(*rows, "BOF"), Variant(false));
  EXPECT_EQ(Get(*rows, "EOF"), Variant(false));
  EXPECT_EQ(Get(*rows, "AbsolutePosition"), Variant(Long{1}));
  EXPECT_TRUE(Get(*FieldOf(*rows, u"Name"), "OriginalValue").IsNull());
  EXPECT_EQ(RaisedBy([&] { Call(*rows, "Delete"); }).number, kIllegal);
  Call(*rows, "CancelUpdate");
  EXPECT_EQ(Get(*rows, "EOF"), Variant(true));
}

TEST_F(AdoRecordsetTest, Deleted_row_is_at_neither_end_and_can_be_moved_off_both_ways) {
  const auto rows = Open();
  Call(*rows, "MoveNext");
  Call(*rows, "Delete");
  EXPECT_EQ(Get(*rows, "BOF"), Variant(false));
  EXPECT_EQ(Get(*rows, "EOF"), Variant(false));
  Call(*rows, "Move", {Variant(Long{0})});
  EXPECT_EQ(Get(*rows, "AbsolutePosition"), Variant(Long{-1})) << "a move of none stays";
  Call(*rows, "MoveFirst");
  EXPECT_EQ(Value(*rows, u"Id"), Variant(Long{1}));
}

TEST_F(AdoRecordsetTest, Batch_keeps_what_was_first_read_and_sends_every_change_once) {
  const auto rows = Open(4);
  SetValue(*rows, u"Name", u"x");
  Call(*rows, "Update");
  SetValue(*rows, u"Id", Long{7});
  Call(*rows, "Update");
  EXPECT_EQ(Get(*FieldOf(*rows, u"Name"), "OriginalValue"), Variant(u"one"));
  Call(*rows, "Update");
  Call(*rows, "MoveNext");
  SetValue(*rows, u"Name", u"y");
  Call(*rows, "Update");
  Call(*rows, "Delete");
  Call(*rows, "AddNew", {Variant("Id"), Variant(Long{9})});
  Call(*rows, "Delete");
  EXPECT_THAT(table_.calls, IsEmpty());
  Call(*rows, "UpdateBatch");
  EXPECT_THAT(table_.calls, ElementsAre("delete 2", "update 1 1100"));
}

TEST_F(AdoRecordsetTest, Requery_of_other_columns_ends_the_fields) {
  const auto rows = Open();
  const FieldRef name = FieldOf(*rows, u"Name");
  rows->Close();
  rows->Open(u"nothing", connection_, -1, -1, -1);
  EXPECT_EQ(rows->GetState(), kStateClosed) << "a statement without rows";
  EXPECT_EQ(RaisedBy([&] { name->GetValue(); }).number, kClosed);
}

}  // namespace
}  // namespace vandpublic::ado
