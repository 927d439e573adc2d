// Recordsets and fields over a data source in memory.
#include "platform/posix/ado/ado_recordset.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/memory_recordset.h"

namespace vandpublic::ado {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(AdoRecordsetTest, Opens_with_the_properties_that_were_set) {
  const auto without = std::make_shared<AdoRecordset>();
  EXPECT_EQ(RaisedBy([&] { without->Open(u"rows", nullptr, -1, -1, -1); }).number, kBadConnection);
  const auto kept = std::make_shared<AdoRecordset>();
  kept->SetActiveConnection(connection_);
  kept->SetCursorLocation(3);
  kept->SetLockType(3);
  kept->Set("Source", "rows");
  Call(*kept, "Open");
  EXPECT_EQ(Get(*kept, "State"), Variant(kStateOpen));
  EXPECT_EQ(Get(*kept, "CursorType"), Variant(Long{3}));
  EXPECT_EQ(Get(*kept, "LockType"), Variant(Long{3}));
  EXPECT_EQ(Get(*kept, "RecordCount"), Variant(Long{3}));
  EXPECT_EQ(*Get(*kept, "ActiveConnection").Get<ObjectRef>(), connection_);
}

TEST_F(AdoRecordsetTest, Properties_take_what_exists_and_nothing_while_open) {
  const auto rows = std::make_shared<AdoRecordset>();
  for (const Long location : {0, 1, 4, -1})
    EXPECT_EQ(RaisedBy([&] { rows->SetCursorLocation(location); }).number, kInvalid);
  for (const Long lock_type : {0, 5, -1})
    EXPECT_EQ(RaisedBy([&] { rows->SetLockType(lock_type); }).number, kInvalid);
  EXPECT_EQ(RaisedBy([&] { rows->Set("LockType", "many"); }).number, kInvalid);
  EXPECT_EQ(RaisedBy([&] { rows->Set("ActiveConnection", Long{5}); }).number, kInvalid);
  rows->Open(u"rows", connection_, -1, -1, -1);
  EXPECT_EQ(RaisedBy([&] { rows->SetCursorLocation(3); }).number, kOpen);
  EXPECT_EQ(RaisedBy([&] { rows->SetLockType(3); }).number, kOpen);
  EXPECT_EQ(RaisedBy([&] { rows->Set("CursorType", Long{0}); }).number, kOpen);
  EXPECT_EQ(RaisedBy([&] { rows->Set("Source", "x"); }).number, kOpen);
  EXPECT_EQ(RaisedBy([&] { rows->Open(u"rows", nullptr, -1, -1, -1); }).number, kOpen);
}

TEST_F(AdoRecordsetTest, Closed_one_refuses_everything_but_opening) {
  const auto rows = std::make_shared<AdoRecordset>();
  for (const char* property : {"EOF", "BOF", "RecordCount", "AbsolutePosition", "Fields"})
    EXPECT_EQ(RaisedBy([&] { Get(*rows, property); }).number, kClosed) << property;
  for (const char* operation : {"Close", "MoveFirst", "MoveLast", "MoveNext", "MovePrevious",
                                "AddNew", "Update", "CancelUpdate", "Delete", "Requery"}) {
    EXPECT_EQ(RaisedBy([&] { Call(*rows, operation); }).number, kClosed) << operation;
  }
}

TEST_F(AdoRecordsetTest, Moves_between_both_ends) {
  const auto rows = Open();
  const auto position = [&] { return *Get(*rows, "AbsolutePosition").Get<Long>(); };
  EXPECT_EQ(position(), 1);
  Call(*rows, "MovePrevious");
  EXPECT_EQ(position(), -2);
  EXPECT_EQ(Get(*rows, "BOF"), Variant(true));
  EXPECT_EQ(RaisedBy([&] { Call(*rows, "MovePrevious"); }).number, kNoRecord);
  EXPECT_EQ(RaisedBy([&] { Value(*rows, u"Id"); }).number, kNoRecord);
  Call(*rows, "Move", {Variant(Long{3})});
  EXPECT_EQ(position(), 3);
  Call(*rows, "MoveNext");
  EXPECT_EQ(position(), -3);
  EXPECT_TRUE(rows->IsAtEnd());
  EXPECT_EQ(RaisedBy([&] { Call(*rows, "MoveNext"); }).number, kNoRecord);
  Call(*rows, "MoveLast");
  EXPECT_EQ(position(), 3);
  Call(*rows, "Move", {Variant(Long{1}), Variant(Long{1})});
  EXPECT_EQ(position(), 2);
  Call(*rows, "Move", {Variant(Long{-2000000000})});
  EXPECT_EQ(position(), -2);
  rows->Set("AbsolutePosition", Long{3});
  EXPECT_EQ(Value(*rows, u"Id"), Variant(Long{3}));
  EXPECT_EQ(RaisedBy([&] { rows->Set("AbsolutePosition", Long{4}); }).number, kInvalid);
}

TEST_F(AdoRecordsetTest, Without_rows_it_is_at_both_ends_at_once) {
  table_.rows.clear();
  const auto rows = Open();
  EXPECT_EQ(Get(*rows, "BOF"), Variant(true));
  EXPECT_EQ(Get(*rows, "EOF"), Variant(true));
  for (const char* operation : {"MoveFirst", "MoveLast", "MoveNext", "MovePrevious", "Delete"})
    EXPECT_EQ(RaisedBy([&] { Call(*rows, operation); }).number, kNoRecord) << operation;
}

TEST_F(AdoRecordsetTest, Fields_are_found_by_name_and_number) {
  const auto rows = Open();
  const FieldsRef kept = rows->GetFields();
  Object& fields = *kept;
  EXPECT_EQ(Get(fields, "Count"), Variant(Long{4}));
  const auto value = [&](Object& owner, const char* name, Variant which) {
    return Get(**Get(owner, name, {std::move(which)}).Get<ObjectRef>(), "Value");
  };
  EXPECT_EQ(value(fields, "Item", "NAME"), Variant(u"one"));
  EXPECT_EQ(value(fields, "Item", Long{0}), Variant(Long{1}));
  EXPECT_EQ(value(*rows, "Fields", "id"), Variant(Long{1}));
  for (const Variant& which : {Variant("Nobody"), Variant(""), Variant(Long{4}), Variant(Long{-1})})
    EXPECT_EQ(RaisedBy([&] { Get(fields, "Item", {which}); }).number, kNotFound);
}

TEST_F(AdoRecordsetTest, Field_describes_its_column) {
  const auto rows = Open();
  const FieldRef photo = FieldOf(*rows, u"photo");
  EXPECT_EQ(Get(*photo, "Name"), Variant(u"Photo"));
  EXPECT_EQ(Get(*photo, "Type"), Variant(Long{205}));
  EXPECT_EQ(Get(*photo, "DefinedSize"), Variant(Long{0x7FFFFFFF}));
  EXPECT_EQ(Get(*photo, "Attributes"), Variant(Long{0x80 | 0x40 | 0x20 | 0x4}));
  EXPECT_EQ(Get(*photo, "ActualSize"), Variant(Long{0}));
  EXPECT_EQ(Get(*FieldOf(*rows, u"Name"), "ActualSize"), Variant(Long{6}));
  EXPECT_EQ(Get(*FieldOf(*rows, u"Id"), "ActualSize"), Variant(Long{4}));
  EXPECT_EQ(Get(*FieldOf(*rows, u"Id"), "Attributes"), Variant(Long{0x8000 | 0x10 | 0x4}));
}

TEST_F(AdoRecordsetTest, Field_of_rows_that_were_closed_is_dead) {
  const auto rows = Open();
  const FieldRef field = FieldOf(*rows, u"Id");
  rows->Close();
  EXPECT_EQ(RaisedBy([&] { field->GetValue(); }).number, kClosed);
  rows->Open(u"rows", nullptr, -1, -1, -1);
  EXPECT_EQ(RaisedBy([&] { field->GetValue(); }).number, kClosed);
}

TEST_F(AdoRecordsetTest, Edit_is_kept_apart_until_it_is_stored) {
  const auto rows = Open();
  SetValue(*rows, u"Name", u"ONE");
  EXPECT_EQ(Get(*rows, "EditMode"), Variant(Long{1}));
  EXPECT_EQ(Value(*rows, u"Name"), Variant(u"ONE"));
  EXPECT_EQ(Get(*FieldOf(*rows, u"Name"), "OriginalValue"), Variant(u"one"));
  EXPECT_THAT(table_.calls, IsEmpty());
  Call(*rows, "Update");
  EXPECT_THAT(table_.calls, ElementsAre("update 1 0100"));
  EXPECT_EQ(Get(*rows, "EditMode"), Variant(Long{0}));
  EXPECT_EQ(Get(*FieldOf(*rows, u"Name"), "OriginalValue"), Variant(u"ONE"));
  Call(*rows, "Update");
  EXPECT_EQ(table_.calls.size(), 1u) << "nothing is left to store";
}

TEST_F(AdoRecordsetTest, Edit_that_fails_goes_on_until_it_is_cancelled) {
  const auto rows = Open();
  table_.fails = true;
  SetValue(*rows, u"Name", u"ONE");
  EXPECT_NE(RaisedBy([&] { Call(*rows, "Update"); }), kNothingRaised);
  EXPECT_NE(RaisedBy([&] { Call(*rows, "MoveNext"); }), kNothingRaised);
  EXPECT_EQ(Value(*rows, u"Name"), Variant(u"ONE"));
  EXPECT_EQ(RaisedBy([&] { Call(*rows, "Close"); }).number, kIllegal);
  EXPECT_EQ(RaisedBy([&] { Call(*rows, "Requery"); }).number, kIllegal);
  Call(*rows, "CancelUpdate");
  EXPECT_EQ(Value(*rows, u"Name"), Variant(u"one"));
  Call(*rows, "Close");
}

TEST_F(AdoRecordsetTest, Value_must_fit_its_column) {
  const auto rows = Open();
  EXPECT_EQ(RaisedBy([&] { SetValue(*rows, u"Id", "abc"); }).number, kWrongType);
  EXPECT_EQ(RaisedBy([&] { SetValue(*rows, u"Photo", u"abc"); }).number, kWrongType);
  EXPECT_EQ(RaisedBy([&] { SetValue(*rows, u"Sum", 1.0); }).number, kNotUpdatable);
  SetValue(*rows, u"Id", "7");
  EXPECT_EQ(Value(*rows, u"Id"), Variant(Long{7}));
}

TEST_F(AdoRecordsetTest, New_row_is_the_current_one_and_comes_last) {
  const auto rows = Open();
  Call(*rows, "AddNew");
  EXPECT_EQ(Get(*rows, "EditMode"), Variant(Long{2}));
  EXPECT_TRUE(Value(*rows, u"Name").IsNull());
  EXPECT_EQ(Get(*rows, "EOF"), Variant(false));
  SetValue(*rows, u"Id", Long{9});
  Call(*rows, "Update");
  EXPECT_EQ(Get(*rows, "AbsolutePosition"), Variant(Long{4}));
  Call(*rows, "AddNew", {Variant("Id"), Variant(Long{10})});
  EXPECT_EQ(Get(*rows, "RecordCount"), Variant(Long{5}));
  Call(*rows, "AddNew");
  Call(*rows, "CancelUpdate");
  EXPECT_EQ(Get(*rows, "AbsolutePosition"), Variant(Long{5}));
  EXPECT_THAT(table_.calls, ElementsAre("insert", "insert"));
}

TEST_F(AdoRecordsetTest, Deleted_row_stays_current_until_the_next_move) {
  const auto rows = Open();
  Call(*rows, "MoveNext");
  Call(*rows, "Delete");
  EXPECT_EQ(RaisedBy([&] { Value(*rows, u"Id"); }).number, kNoRecord);
  EXPECT_EQ(RaisedBy([&] { Call(*rows, "Delete"); }).number, kNoRecord);
  EXPECT_EQ(Get(*rows, "AbsolutePosition"), Variant(Long{-1}));
  Call(*rows, "MoveNext");
  EXPECT_EQ(Value(*rows, u"Id"), Variant(Long{3}));
  Call(*rows, "Delete");
  Call(*rows, "MovePrevious");
  EXPECT_EQ(Value(*rows, u"Id"), Variant(Long{1}));
  Call(*rows, "Delete");
  EXPECT_EQ(Get(*rows, "EOF"), Variant(false));
  Call(*rows, "MoveNext");
  EXPECT_EQ(Get(*rows, "EOF"), Variant(true));
  EXPECT_THAT(table_.calls, ElementsAre("delete 2", "delete 3", "delete 1"));
}

TEST_F(AdoRecordsetTest, Read_only_rows_refuse_every_edit) {
  table_.writable = false;
  for (const Long lock_type : {1, 3}) {
    const auto rows = Open(lock_type);
    EXPECT_EQ(RaisedBy([&] { SetValue(*rows, u"Name", u"x"); }).number, kNotUpdatable);
    EXPECT_EQ(RaisedBy([&] { FieldOf(*rows, u"Photo")->AppendChunk(NullValue{}); }).number,
              kNotUpdatable);
    for (const char* operation : {"AddNew", "Delete", "Update", "UpdateBatch"})
      EXPECT_EQ(RaisedBy([&] { Call(*rows, operation); }).number, kNotUpdatable) << operation;
    EXPECT_EQ(Call(*rows, "Supports", {Variant(Long{0x1008000})}), Variant(false));
    EXPECT_EQ(Call(*rows, "Supports", {Variant(Long{0x200})}), Variant(true));
  }
}

TEST_F(AdoRecordsetTest, Chunks_start_the_content_afresh_and_then_add_to_it) {
  const auto rows = Open();
  Call(*rows, "MoveLast");
  const FieldRef photo = FieldOf(*rows, u"Photo");
  photo->AppendChunk(ByteArray({9, 8}, 1));
  photo->AppendChunk(ByteArray({7}, -4));
  EXPECT_EQ(photo->GetValue(), Variant(ByteArray({9, 8, 7})));
  EXPECT_EQ(photo->GetActualSize(), 3);
  photo->AppendChunk(NullValue{});
  EXPECT_TRUE(photo->GetValue().IsNull());
  photo->AppendChunk(ByteArray({6}));
  EXPECT_EQ(photo->GetValue(), Variant(ByteArray({6})));
  // The use of another column ends it.
  Value(*rows, u"Id");
  photo->AppendChunk(ByteArray({5}));
  EXPECT_EQ(photo->GetValue(), Variant(ByteArray({5})));
  EXPECT_EQ(Get(*photo, "OriginalValue"), Variant(ByteArray({1, 2, 3, 4, 5})));
  Call(*rows, "Update");
  photo->AppendChunk(ByteArray({4}));
  EXPECT_EQ(photo->GetValue(), Variant(ByteArray({4}))) << "Update ends it too";
}

TEST_F(AdoRecordsetTest, Chunk_must_suit_the_column) {
  const auto rows = Open();
  EXPECT_EQ(RaisedBy([&] { FieldOf(*rows, u"Name")->AppendChunk(u"x"); }).number, kIllegal);
  EXPECT_EQ(RaisedBy([&] { FieldOf(*rows, u"Name")->GetChunk(1); }).number, kIllegal);
  const FieldRef photo = FieldOf(*rows, u"Photo");
  for (const Variant& data : {Variant(u"x"), Variant(Long{1}), Variant()})
    EXPECT_EQ(RaisedBy([&] { photo->AppendChunk(data); }).number, kInvalid);
  EXPECT_EQ(RaisedBy([&] { photo->GetChunk(-1); }).number, kInvalid);
  EXPECT_EQ(Get(*rows, "EditMode"), Variant(Long{0}));
}

TEST_F(AdoRecordsetTest, Chunks_are_read_on_from_where_the_last_one_ended) {
  const auto rows = Open();
  Call(*rows, "MoveLast");
  const FieldRef photo = FieldOf(*rows, u"Photo");
  EXPECT_EQ(photo->GetChunk(2), Variant(ByteArray({1, 2})));
  EXPECT_EQ(photo->GetChunk(0), Variant(NullValue{}));
  EXPECT_EQ(photo->GetChunk(2), Variant(ByteArray({3, 4})));
  EXPECT_EQ(photo->GetChunk(2), Variant(ByteArray({5})));
  EXPECT_EQ(photo->GetChunk(2), Variant(NullValue{}));
  Value(*rows, u"Id");
  EXPECT_EQ(photo->GetChunk(1), Variant(ByteArray({1}))) << "another column was used";
  Call(*rows, "MovePrevious");
  EXPECT_EQ(photo->GetChunk(1), Variant(NullValue{}));
  Call(*rows, "MoveNext");
  EXPECT_EQ(photo->GetChunk(1), Variant(ByteArray({1}))) << "the row was left";
  photo->AppendChunk(ByteArray({7, 8}));
  EXPECT_EQ(photo->GetChunk(5), Variant(ByteArray({7, 8})));
}

TEST_F(AdoRecordsetTest, Batch_waits_and_can_be_taken_back) {
  auto rows = Open(4);
  const auto change_everything = [&] {
    Call(*rows, "MoveFirst");
    SetValue(*rows, u"Name", u"x");
    Call(*rows, "MoveNext");
    Call(*rows, "Delete");
    Call(*rows, "AddNew", {Variant("Id"), Variant(Long{9})});
  };
  change_everything();
  EXPECT_THAT(table_.calls, IsEmpty());
  Call(*rows, "CancelBatch");
  EXPECT_EQ(Get(*rows, "RecordCount"), Variant(Long{3}));
  Call(*rows, "UpdateBatch");
  EXPECT_THAT(table_.calls, IsEmpty());
  rows = Open(4);
  change_everything();
  Call(*rows, "UpdateBatch");
  EXPECT_THAT(table_.calls, ElementsAre("delete 2", "update 1 0100", "insert"));
  Call(*rows, "UpdateBatch");
  EXPECT_EQ(table_.calls.size(), 3u);
}

TEST_F(AdoRecordsetTest, Batch_that_fails_can_be_sent_again) {
  const auto rows = Open(4);
  SetValue(*rows, u"Name", u"x");
  table_.fails = true;
  EXPECT_NE(RaisedBy([&] { Call(*rows, "UpdateBatch"); }), kNothingRaised);
  table_.fails = false;
  Call(*rows, "UpdateBatch");
  EXPECT_THAT(table_.calls, ElementsAre("update 1 0100", "update 1 0100"));
}

TEST_F(AdoRecordsetTest, Connection_that_closes_takes_its_recordsets_along) {
  const auto rows = Open();
  SetValue(*rows, u"Name", u"x");
  connection_->Close();
  EXPECT_EQ(rows->GetState(), kStateClosed);
  EXPECT_THAT(table_.calls, ElementsAre("close")) << "the edit is not stored";
  EXPECT_EQ(RaisedBy([&] { rows->Open(u"rows", nullptr, -1, -1, -1); }).number, kBadConnection);
}

TEST_F(AdoRecordsetTest, Rows_keep_their_connection_alive) {
  const auto rows = Open();
  connection_ = nullptr;
  SetValue(*rows, u"Name", u"x");
  Call(*rows, "Update");
  EXPECT_THAT(table_.calls, ElementsAre("update 1 0100"));
}

TEST_F(AdoRecordsetTest, Rows_that_are_cut_off_stay_readable) {
  const auto rows = Open();
  rows->Set("ActiveConnection", NullValue{});
  connection_->Close();
  EXPECT_EQ(Value(*rows, u"Name"), Variant(u"one"));
  EXPECT_EQ(RaisedBy([&] { SetValue(*rows, u"Name", u"x"); }).number, kNotUpdatable);
  EXPECT_EQ(RaisedBy([&] { Call(*rows, "Requery"); }).number, kBadConnection);
}

TEST_F(AdoRecordsetTest, Requery_keeps_fields_and_another_opening_does_not) {
  const auto rows = Open();
  const FieldRef name = FieldOf(*rows, u"name");
  Call(*rows, "Requery");
  EXPECT_EQ(name->GetValue(), Variant(u"one"));
  rows->Close();
  EXPECT_EQ(RaisedBy([&] { name->GetValue(); }).number, kClosed);
  rows->Open(u"rows", connection_, -1, -1, -1);
  EXPECT_EQ(RaisedBy([&] { name->GetValue(); }).number, kClosed);
}

TEST_F(AdoRecordsetTest, Requery_sees_what_is_there_now) {
  const auto rows = Open();
  table_.rows.erase(table_.rows.begin());
  Call(*rows, "Requery");
  EXPECT_EQ(Get(*rows, "RecordCount"), Variant(Long{2}));
  EXPECT_EQ(Value(*rows, u"Id"), Variant(Long{2}));
}

}  // namespace
}  // namespace vandpublic::ado
