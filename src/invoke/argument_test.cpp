// Objects of one class as arguments of late-bound calls.
#include "invoke/argument.h"

#include <gtest/gtest.h>

#include "invoke/late_call.h"
#include "members/member_ids.h"
#include "support/recording_database.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

class ObjectArgumentTest : public testing::Test {
 protected:
  // OpenADORecordSet(connection, recordset, "Select 1"), called by its slot.
  Raised Open(Variant connection, Variant recordset) {
    Variant statement = "Select 1";
    Variant* arguments[] = {&connection, &recordset, &statement};
    return RaisedBy([&] {
      InvokeSlot(component_.object, static_cast<std::size_t>(Member::OpenADORecordSet), arguments);
    });
  }

  std::shared_ptr<RecordingDatabase> database_ = std::make_shared<RecordingDatabase>();
  TestComponent component_{.services = {.database = database_}};
  Variant connection_ = ObjectRef(database_->MakeConnection());
  Variant recordset_ = ObjectRef(database_->MakeRecordset());
};

TEST_F(ObjectArgumentTest, Objects_of_the_right_class_are_bound) {
  EXPECT_EQ(Open(connection_, recordset_), kNothingRaised);
  EXPECT_EQ(database_->calls.size(), 4u);
}

TEST_F(ObjectArgumentTest, Unset_references_are_the_members_business) {
  const Raised no_connection =
      MemberError(0x24, "OpenADORecordSet", "Connection object not set yet.");
  EXPECT_EQ(Open(ObjectRef(), recordset_), no_connection);
  EXPECT_EQ(Open(Variant(), recordset_), no_connection);
  EXPECT_EQ(Open(NullValue{}, recordset_), no_connection);
}

TEST_F(ObjectArgumentTest, Other_classes_and_plain_values_do_not_fit) {
  const Variant misfits[] = {recordset_, Variant(u"conn"), Variant(Long{0}),
                             Variant(ObjectRef(std::make_shared<ErrObject>(0, u"", u"")))};
  for (const Variant& misfit : misfits) {
    try {
      Open(misfit, recordset_);
      ADD_FAILURE() << "accepted";
    } catch (const ArgumentError& error) {
      EXPECT_EQ(error.reason(), FaultNumber::TypeMismatch);
      EXPECT_EQ(error.index(), 0u);
    }
  }
  EXPECT_TRUE(database_->calls.empty());
}

}  // namespace
}  // namespace vandpublic
