// The wrappers on a stand-in: which calls reach it, and how its failures come back.
#include "platform/windows/automation/dispatch_objects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

#include "platform/windows/automation/late_bound.h"
#include "support/recording_dispatch.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

HRESULT STDMETHODCALLTYPE FillLate(EXCEPINFO* record) {
  record->bstrDescription = SysAllocString(L"late");
  return S_OK;
}

class DispatchObjectsTest : public testing::Test {
 protected:
  ComPointer<IDispatch> Make(std::string label, DispatchMembers members) {
    return MakeRecordingObject(log_, std::move(label), std::move(members));
  }

  DispatchLog log_;
};

TEST_F(DispatchObjectsTest, Null_is_the_unset_reference) {
  EXPECT_EQ(WrapConnection(nullptr), nullptr);
  EXPECT_EQ(WrapRecordset(nullptr), nullptr);
  EXPECT_EQ(WrapFields(nullptr), nullptr);
  EXPECT_EQ(WrapField(nullptr), nullptr);
  EXPECT_EQ(WrapObject(nullptr), nullptr);
}

TEST_F(DispatchObjectsTest, The_wrapped_object_can_be_had_back) {
  const auto object = Make("C", {});
  const ConnectionRef connection = WrapConnection(object.get());
  EXPECT_EQ(WrappedDispatch(*connection), object.get());
  EXPECT_EQ(WrappedDispatch(ErrObject(1, u"", u"")), nullptr);
  EXPECT_TRUE(IsSameObject(*connection, *WrapObject(object.get())));
  EXPECT_FALSE(IsSameObject(*connection, *WrapConnection(Make("D", {}).get())));
  EXPECT_FALSE(IsSameObject(*connection, ErrObject(1, u"", u"")));
}

TEST_F(DispatchObjectsTest, Connection_calls_go_by_name_with_exact_types) {
  const auto object = Make("C", {{"ConnectionString", {}}, {"Open", {}}});
  const ConnectionRef connection = WrapConnection(object.get());
  connection->SetConnectionString(u"DSN=\u4e2d");
  connection->Open(u"a", u"", u"p", kUnspecified);
  EXPECT_THAT(log_, ElementsAre("put C.ConnectionString = BSTR \"DSN=\xE4\xB8\xAD\"",
                                R"(call C.Open(BSTR "a", BSTR "", BSTR "p", I4 -1))"));
}

TEST_F(DispatchObjectsTest, Recordset_calls_go_by_name_with_exact_types) {
  const auto connection = Make("C", {});
  const auto fields = Make("F", {});
  const auto object = Make("R", {{"ActiveConnection", {}},
                                 {"CursorLocation", {}},
                                 {"LockType", {}},
                                 {"Open", {}},
                                 {"Close", {}},
                                 {"State", Giving(Long{1})},
                                 {"EOF", Giving(true)},
                                 {"Fields", Giving(fields)}});
  const RecordsetRef rows = WrapRecordset(object.get());
  const ConnectionRef wrapped = WrapConnection(connection.get());
  rows->SetActiveConnection(wrapped);
  rows->SetActiveConnection(nullptr);
  rows->SetCursorLocation(3);
  rows->SetLockType(1);
  rows->Open(u"Select 1", nullptr, -1, -1, -1);
  rows->Open(u"Select 2", wrapped, 0, 3, 1);
  EXPECT_EQ(rows->GetState(), kStateOpen);
  EXPECT_TRUE(rows->IsAtEnd());
  EXPECT_EQ(WrappedDispatch(*rows->GetFields()), fields.get());
  rows->Close();
  EXPECT_THAT(log_, ElementsAre("putref R.ActiveConnection = object C",
                                "putref R.ActiveConnection = no object",
                                "put R.CursorLocation = I4 3", "put R.LockType = I4 1",
                                R"(call R.Open(BSTR "Select 1", missing, I4 -1, I4 -1, I4 -1))",
                                R"(call R.Open(BSTR "Select 2", object C, I4 0, I4 3, I4 1))",
                                "get R.State", "get R.EOF", "get R.Fields", "call R.Close"));
}

TEST_F(DispatchObjectsTest, A_connection_of_another_make_is_refused) {
  class OtherConnection final : public Connection {
    void SetConnectionString(std::u16string_view) override {}
    void Open(std::u16string_view, std::u16string_view, std::u16string_view, Long) override {}
  };
  const auto object = Make("R", {{"ActiveConnection", {}}});
  const RecordsetRef rows = WrapRecordset(object.get());
  EXPECT_EQ(RaisedBy([&] { rows->SetActiveConnection(std::make_shared<OtherConnection>()); }),
            PlainFault(FaultNumber::TypeMismatch));
  EXPECT_THAT(log_, IsEmpty());
}

TEST_F(DispatchObjectsTest, A_field_is_found_by_Item_else_by_the_default_member) {
  const auto field = Make("Field", {});
  const auto with_item = Make("F", {{"Item", Giving(field)}, {"", Giving(field)}});
  const auto without = Make("G", {{"", Giving(field)}});
  EXPECT_EQ(WrappedDispatch(*WrapFields(with_item.get())->GetItem(u"A")), field.get());
  EXPECT_EQ(WrappedDispatch(*WrapFields(without.get())->GetItem(u"B")), field.get());
  EXPECT_THAT(log_, ElementsAre(R"(get call F.Item(BSTR "A"))", R"(get call G.(BSTR "B"))"));
}

TEST_F(DispatchObjectsTest, Field_calls_go_by_name_with_exact_types) {
  const auto object = Make("F", {{"Value", Giving(Variant(u"v"))},
                                 {"ActualSize", Giving(Long{5})},
                                 {"AppendChunk", {}},
                                 {"GetChunk", Giving(Variant(ByteArray({1, 2})))}});
  const FieldRef field = WrapField(object.get());
  EXPECT_EQ(field->GetValue(), Variant(u"v"));
  EXPECT_EQ(field->GetActualSize(), 5);
  field->AppendChunk(NullValue{});
  field->AppendChunk(ByteArray::WithBounds(1, 5120));
  EXPECT_EQ(field->GetChunk(5120), Variant(ByteArray({1, 2})));
  EXPECT_THAT(log_, ElementsAre("get F.Value", "get F.ActualSize", "call F.AppendChunk(Null)",
                                "call F.AppendChunk(array of type 17, 1 to 5120)",
                                "call F.GetChunk(I4 5120)"));
}

TEST_F(DispatchObjectsTest, By_name_everything_is_reached_and_references_come_back) {
  const auto twice = [](std::vector<VARIANT*>& arguments, VARIANT* result, EXCEPINFO*) {
    VARIANT* const number = arguments.at(0)->pvarVal;
    number->lVal *= 2;
    result->vt = VT_BOOL;
    result->boolVal = VARIANT_TRUE;
    return S_OK;
  };
  const auto value = Make("V", {});
  const auto object = Make("O", {{"Twice", twice}, {"P", Giving(Long{3})}});
  const ObjectRef wrapped = WrapObject(object.get());
  std::vector<Variant> arguments = {Long{21}};
  EXPECT_EQ(wrapped->Call("twice", arguments), Variant(true));
  EXPECT_EQ(arguments[0], Variant(Long{42}));
  EXPECT_EQ(wrapped->Get("P", {}), Variant(Long{3}));
  wrapped->Set("p", Long{4});
  wrapped->Set("P", WrapObject(value.get()));
  EXPECT_THAT(log_, ElementsAre("get call O.Twice(reference to I4 21)", "get O.P", "put O.P = I4 4",
                                "putref O.P = object V"));
}

TEST_F(DispatchObjectsTest, Failures_come_back_as_the_errors_they_are) {
  struct Case {
    DispatchAnswer answer;
    Raised raised;
  };
  const Case cases[] = {
      {Raising(static_cast<SCODE>(0x80004005), L"The provider", L"No such server."),
       {static_cast<Long>(0x80004005), "The provider", "No such server."}},
      // ADO's own numbers stay as they are.
      {Raising(static_cast<SCODE>(0x800A0E7D), L"ADODB.Connection", L"Closed."),
       {static_cast<Long>(0x800A0E7D), "ADODB.Connection", "Closed."}},
      // The runtime's own become the small ones.
      {Raising(static_cast<SCODE>(0x800A0005), L"S", L"D"), {5, "S", "D"}},
      {Raising(static_cast<SCODE>(0x800A0009), L"S", nullptr), {9, "S", "Subscript out of range"}},
      {Raising(static_cast<SCODE>(0x80004005), nullptr, nullptr),
       {static_cast<Long>(0x80004005), "Public_Module", "Automation error"}},
      {Raising(E_OUTOFMEMORY, nullptr, nullptr), PlainFault(FaultNumber::OutOfMemory)},
      {Raising(static_cast<SCODE>(0x80004005), L"", L""), {static_cast<Long>(0x80004005), "", ""}},
      {Failing(DISP_E_TYPEMISMATCH), PlainFault(FaultNumber::TypeMismatch)},
      {Failing(DISP_E_BADPARAMCOUNT), PlainFault(FaultNumber::WrongNumberOfArguments)},
      {Failing(E_OUTOFMEMORY), PlainFault(FaultNumber::OutOfMemory)},
      {Failing(static_cast<HRESULT>(0x800A0009)), PlainFault(FaultNumber::SubscriptOutOfRange)},
      {Failing(E_FAIL), {static_cast<Long>(0x80004005), "Public_Module", "Automation error"}},
  };
  for (const Case& one : cases) {
    const auto object = Make("C", {{"Open", one.answer}});
    const ConnectionRef connection = WrapConnection(object.get());
    EXPECT_EQ(RaisedBy([&] { connection->Open(u"", u"", u"", -1); }), one.raised);
  }
}

TEST_F(DispatchObjectsTest, A_number_may_stand_in_the_short_field_or_come_late) {
  const auto answer = [](std::vector<VARIANT*>&, VARIANT*, EXCEPINFO* exception) {
    exception->wCode = 1001;
    exception->pfnDeferredFillIn = &FillLate;
    return DISP_E_EXCEPTION;
  };
  const auto object = Make("C", {{"Open", answer}});
  EXPECT_EQ(RaisedBy([&] { WrapConnection(object.get())->Open(u"", u"", u"", -1); }),
            (Raised{1001, "", "late"}));
}

TEST_F(DispatchObjectsTest, What_the_object_lacks_is_fault_438) {
  const auto object = Make("C", {});
  EXPECT_EQ(RaisedBy([&] { WrapConnection(object.get())->Open(u"", u"", u"", -1); }),
            PlainFault(FaultNumber::NoSuchPropertyOrMethod));
  EXPECT_EQ(RaisedBy([&] { WrapFields(object.get())->GetItem(u"A"); }),
            PlainFault(FaultNumber::NoSuchPropertyOrMethod));
  EXPECT_EQ(RaisedBy([&] { WrapObject(object.get())->Get("X", {}); }),
            PlainFault(FaultNumber::NoSuchPropertyOrMethod));
}

TEST_F(DispatchObjectsTest, Nothing_holds_an_object_after_its_wrapper) {
  const auto object = Make("C", {{"Open", Failing(E_FAIL)}, {"Self", {}}});
  {
    const ConnectionRef connection = WrapConnection(object.get());
    EXPECT_EQ(CountReferences(object.get()), 2U);
    EXPECT_NE(RaisedBy([&] { connection->Open(u"", u"", u"", -1); }), kNothingRaised);
    const ObjectRef again = WrapObject(object.get());
    connection->Set("Self", again);
    EXPECT_EQ(CountReferences(object.get()), 3U);
  }
  EXPECT_EQ(CountReferences(object.get()), 1U);
}

TEST(AdoObjects, A_class_that_is_not_registered_is_fault_429) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  EXPECT_EQ(RaisedBy([] { CreateObject(L"VandPublic.NoSuchClass"); }),
            PlainFault(FaultNumber::CannotCreateObject));
  CoUninitialize();
}

TEST(AdoObjects, They_are_made_on_a_thread_that_has_no_COM_yet) {
  Raised raised;
  bool distinct = false;
  std::thread([&] {
    raised = RaisedBy([&] {
      const auto objects = MakeAdoObjects();
      const ConnectionRef connection = objects->MakeConnection();
      const RecordsetRef rows = objects->MakeRecordset();
      distinct = connection != nullptr && rows != nullptr && !IsSameObject(*connection, *rows);
      // Told by their interfaces, they are what they are when they come back as plain objects.
      EXPECT_NE(std::dynamic_pointer_cast<Connection>(WrapObject(WrappedDispatch(*connection))),
                nullptr);
      EXPECT_NE(std::dynamic_pointer_cast<Recordset>(WrapObject(WrappedDispatch(*rows))), nullptr);
    });
  }).join();
  EXPECT_EQ(raised, kNothingRaised);
  EXPECT_TRUE(distinct);
}

}  // namespace
}  // namespace vandpublic
