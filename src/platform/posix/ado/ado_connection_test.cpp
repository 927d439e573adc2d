// Connections over a data source in memory.
#include "platform/posix/ado/ado_connection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/memory_session.h"
#include "support/test_component.h"

namespace vandpublic::ado {
namespace {

using testing::ElementsAre;

constexpr Long kObjectBase = static_cast<Long>(0x800A0000);
constexpr Long kClosed = kObjectBase + 3704;
constexpr Long kOpen = kObjectBase + 3705;

class AdoConnectionTest : public testing::Test {
 protected:
  void SetUp() override {
    memory_table = &table_;
    memory_string = &text_;
  }
  void TearDown() override {
    connection_ = nullptr;
    memory_string = nullptr;
  }

  Variant Get(std::string_view name) { return connection_->Get(name, {}); }
  Variant Call(std::string_view name, std::vector<Variant> arguments = {}) {
    return connection_->Call(name, arguments);
  }

  MemoryTable table_;
  ConnectionString text_{""};
  std::shared_ptr<AdoConnection> connection_ = std::make_shared<AdoConnection>(&OpenMemory);
};

TEST_F(AdoConnectionTest, Is_closed_at_first_and_has_the_usual_settings) {
  EXPECT_EQ(Get("State"), Variant(Long{0}));
  EXPECT_EQ(Get("ConnectionString"), Variant(u""));
  EXPECT_EQ(Get("Provider"), Variant(u"MSDASQL"));
  EXPECT_EQ(Get("CursorLocation"), Variant(Long{2}));
  EXPECT_EQ(Get("ConnectionTimeout"), Variant(Long{15}));
  EXPECT_EQ(Get("CommandTimeout"), Variant(Long{30}));
  EXPECT_EQ(connection_->ClassName(), "ADODB.Connection");
}

TEST_F(AdoConnectionTest, Opens_the_string_that_was_set_or_the_one_given) {
  connection_->Set("ConnectionString", "Data Source=a");
  Call("Open");
  EXPECT_EQ(text_.Value("Data Source"), "a");
  EXPECT_EQ(Get("state"), Variant(Long{1}));
  Call("Close");
  Call("Open", {Variant("Data Source=b")});
  EXPECT_EQ(text_.Value("Data Source"), "b");
  EXPECT_EQ(Get("ConnectionString"), Variant(u"Data Source=b"));
}

TEST_F(AdoConnectionTest, User_password_provider_and_time_out_join_the_string) {
  connection_->Set("Provider", "Given");
  connection_->Set("ConnectionTimeout", Long{3});
  Call("Open", {Variant("User ID=old;Password=kept"), Variant("new"), Variant(u"")});
  EXPECT_EQ(text_.Value("User ID"), "new");
  EXPECT_EQ(text_.Value("Password"), "kept");
  EXPECT_EQ(text_.Value("Provider"), "Given");
  EXPECT_EQ(text_.Value("Connect Timeout"), "3");
}

TEST_F(AdoConnectionTest, Provider_in_the_string_goes_first) {
  connection_->Set("Provider", "Given");
  connection_->Set("ConnectionString", "Provider=Named");
  EXPECT_EQ(Get("Provider"), Variant(u"Named"));
  Call("Open");
  EXPECT_EQ(text_.Value("Provider"), "Named");
}

TEST_F(AdoConnectionTest, Failed_open_leaves_it_closed_with_the_string_readable) {
  EXPECT_EQ(RaisedBy([&] { Call("Open", {Variant("Data Source=broken")}); }).description,
            "Broken.");
  EXPECT_EQ(Get("State"), Variant(Long{0}));
  EXPECT_EQ(Get("ConnectionString"), Variant(u"Data Source=broken"));
}

TEST_F(AdoConnectionTest, Keeps_to_its_states) {
  for (const char* operation : {"Close", "Execute", "BeginTrans", "CommitTrans", "RollbackTrans"}) {
    EXPECT_EQ(RaisedBy([&] { Call(operation); }).number, kClosed) << operation;
  }
  Call("Open");
  EXPECT_EQ(RaisedBy([&] { Call("Open"); }).number, kOpen);
  EXPECT_EQ(RaisedBy([&] { connection_->Set("ConnectionString", "x"); }).number, kOpen);
  EXPECT_EQ(RaisedBy([&] { connection_->Set("Provider", "x"); }).number, kOpen);
}

TEST_F(AdoConnectionTest, Transactions_begin_once_and_end_once) {
  Call("Open");
  table_.calls.clear();
  EXPECT_EQ(Call("BeginTrans"), Variant(Long{1}));
  EXPECT_EQ(RaisedBy([&] { Call("BeginTrans"); }).number, static_cast<Long>(0x8004D013));
  Call("CommitTrans");
  EXPECT_EQ(RaisedBy([&] { Call("CommitTrans"); }).number, static_cast<Long>(0x8004D00E));
  EXPECT_EQ(RaisedBy([&] { Call("RollbackTrans"); }).number, static_cast<Long>(0x8004D00E));
  Call("BeginTrans");
  Call("RollbackTrans");
  EXPECT_THAT(table_.calls, ElementsAre("begin", "commit", "begin", "rollback"));
}

TEST_F(AdoConnectionTest, Time_out_of_statements_follows_the_property) {
  Call("Open");
  connection_->Set("CommandTimeout", Long{5});
  EXPECT_THAT(table_.calls, ElementsAre("timeout 30", "timeout 5"));
  EXPECT_EQ(RaisedBy([&] { connection_->Set("CommandTimeout", Long{-1}); }).number,
            kObjectBase + 3001);
}

TEST_F(AdoConnectionTest, Execute_gives_rows_or_tells_how_many_changed) {
  Call("Open");
  std::vector<Variant> arguments{Variant("rows"), Variant()};
  auto rows = std::dynamic_pointer_cast<Recordset>(
      *connection_->Call("Execute", arguments).Get<ObjectRef>());
  EXPECT_EQ(rows->GetState(), kStateOpen);
  EXPECT_TRUE(rows->IsAtEnd());
  EXPECT_EQ(arguments[1], Variant(Long{-1}));
  arguments = {Variant("change"), Variant()};
  rows = std::dynamic_pointer_cast<Recordset>(
      *connection_->Call("Execute", arguments).Get<ObjectRef>());
  EXPECT_EQ(rows->GetState(), kStateClosed);
  EXPECT_EQ(arguments[1], Variant(Long{2}));
}

TEST_F(AdoConnectionTest, Has_properties_that_do_no_more_than_stay) {
  EXPECT_EQ(Get("Version"), Variant(u"2.8"));
  connection_->Set("CursorLocation", Long{3});
  EXPECT_EQ(Get("CursorLocation"), Variant(Long{3}));
  EXPECT_EQ(RaisedBy([&] { connection_->Set("CursorLocation", "x"); }).number, kObjectBase + 3001);
  EXPECT_EQ(RaisedBy([&] { connection_->Set("ConnectionString", ByteArray({1})); }).number,
            kObjectBase + 3001);
  connection_->Set("Provider", "Other");
  EXPECT_EQ(Get("Provider"), Variant(u"Other"));
}

TEST_F(AdoConnectionTest, Settings_made_before_opening_are_used) {
  connection_->Set("CommandTimeout", Long{7});
  EXPECT_TRUE(table_.calls.empty());
  connection_->Set("ConnectionTimeout", Long{9});
  Call("Open", {Variant("Data Source=a;Connect Timeout=4")});
  EXPECT_EQ(text_.Value("Connect Timeout"), "4");
  EXPECT_THAT(table_.calls, ElementsAre("timeout 7"));
}

// A source that can do nothing that it need not.
class PlainSession final : public Session {
 public:
  Result Execute(const std::string&, bool) override { return {}; }
};

TEST(PlainSource, Has_no_transactions) {
  const auto connection =
      std::make_shared<AdoConnection>([](const ConnectionString&) -> std::unique_ptr<Session> {
        return std::make_unique<PlainSession>();
      });
  std::vector<Variant> none;
  connection->Call("Open", none);
  connection->Set("CommandTimeout", Long{5});
  EXPECT_EQ(RaisedBy([&] { connection->Call("BeginTrans", none); }),
            (Raised{kObjectBase + 3251, "ADODB.Connection",
                    "Object or provider is not capable of performing requested operation."}));
  PlainSession session;
  EXPECT_EQ(RaisedBy([&] { session.Commit(); }).number, kObjectBase + 3251);
  EXPECT_EQ(RaisedBy([&] { session.Rollback(); }).number, kObjectBase + 3251);
}

TEST_F(AdoConnectionTest, Names_it_does_not_have_are_faults) {
  const auto fault = [](FaultNumber number) { return PlainFault(number); };
  EXPECT_EQ(RaisedBy([&] { Get("Nothing"); }), fault(FaultNumber::NoSuchPropertyOrMethod));
  EXPECT_EQ(RaisedBy([&] { Call("Nothing"); }), fault(FaultNumber::NoSuchPropertyOrMethod));
  EXPECT_EQ(RaisedBy([&] { connection_->Set("State", Long{1}); }),
            fault(FaultNumber::PropertyNotWritable));
  EXPECT_EQ(RaisedBy([&] { Call("Close", {Variant(1)}); }),
            fault(FaultNumber::WrongNumberOfArguments));
}

TEST(Providers, Unknown_ones_are_not_found) {
  const auto raised = [](std::string_view text) {
    return RaisedBy([&] { FindProvider(ConnectionString(text)); }).number;
  };
  EXPECT_EQ(raised("Provider=Microsoft.ACE.OLEDB.12.0"), kObjectBase + 3706);
  EXPECT_EQ(raised("Provider="), kObjectBase + 3706);
  EXPECT_EQ(raised("Provider=msdasql.1"), 0);
  EXPECT_EQ(raised("DSN=x"), 0);
}

}  // namespace
}  // namespace vandpublic::ado
