// Requests on objects, and components that fail in ways of their own.
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>

#include "platform/database.h"
#include "runtime/errors.h"
#include "support/conversation.h"

namespace vandpublic {
namespace {

// An object of the host's, as a database layer would bring it.
class Counter final : public Object {
 public:
  std::string_view ClassName() const noexcept override { return "Test.Counter"; }

  Variant Get(std::string_view name, std::span<const Variant> arguments) override {
    if (SameName(name, "Count")) return count_;
    if (SameName(name, "Item") && !arguments.empty()) return arguments[0];
    if (SameName(name, "Self")) return ObjectRef(std::make_shared<Counter>());
    if (SameName(name, "Huge")) throw std::bad_alloc();
    return Object::Get(name, arguments);
  }
  void Set(std::string_view name, const Variant& value) override {
    if (!SameName(name, "Count")) return Object::Set(name, value);
    count_ = *value.Get<Long>();
  }
  // Adds one to every argument, then fails when it is called "Fail".
  Variant Call(std::string_view name, std::span<Variant> arguments) override {
    for (Variant& argument : arguments)
      argument = *argument.Get<Long>() + 1;
    if (SameName(name, "Fail")) throw AutomationError(-2147217900, u"Provider", u"no table");
    return static_cast<Long>(arguments.size());
  }

 private:
  Long count_ = 3;
};

TEST(PipeObjects, every_component_has_its_own_state) {
  Converse(
      {{R"({"new":"public_module.CLSPUBLIC","as":"o"})",
        R"({"result":{"object":"Public_Module.clsPublic"}})"},
       {R"({"set":"DebugMode","value":0})", R"({"result":null})"},
       {R"({"on":"o","get":"DebugMode"})", R"({"result":1})"},
       {R"({"on":"o","set":"AppPath","value":"x"})", R"({"result":null})"},
       {R"({"get":"AppPath"})", R"({"result":""})"},
       {R"({"on":"o","member":"IsHex","args":[""]})", R"({"result":true,"refs":{}})"},
       {R"({"show":"o"})", R"({"result":{"object":"Public_Module.clsPublic"}})"},
       {R"({"member":"ArraySize","args":[{"var":"o"}]})",
        R"({"protocol_error":"argument 'iavar_Array': 'o' is an object that no member takes"})"},
       {R"({"drop":"o"})", R"({"result":null})"},
       {R"({"on":"o","get":"DebugMode"})", R"({"protocol_error":"unknown name 'o'"})"}});
}

TEST(PipeObjects, unknown_classes_are_refused) {
  Converse(
      {{R"({"new":"ADODB.Conection","as":"c"})",
        R"({"protocol_error":"unknown class 'ADODB.Conection'; )"
        R"(did you mean 'ADODB.Connection'?"})"},
       {R"({"new":"Public_Module.clsPublic"})", R"({"protocol_error":"'as' must be a text"})"}});
}

TEST(PipeObjects, database_objects_are_created_and_passed) {
  try {
    MakeConnection()->Get("State", {});
  } catch (const AutomationError& error) {
    GTEST_SKIP() << "the connections of this system do not answer: " << error.what();
  }
  Converse(
      {{R"({"new":"adodb.connection","as":"c"})", R"({"result":{"object":"ADODB.Connection"}})"},
       {R"({"new":"ADODB.Recordset","as":"r"})", R"({"result":{"object":"ADODB.Recordset"}})"},
       {R"({"on":"c","get":"State"})", R"({"result":{"vt":3,"value":0}})"},
       {R"({"on":"c","set":"ConnectionString","value":"DSN=x"})", R"({"result":null})"},
       {R"({"on":"c","get":"ConnectionString"})", R"({"result":{"vt":8,"value":"DSN=x"}})"},
       {R"({"on":"r","set":"ActiveConnection","value":{"var":"c"}})", R"({"result":null})"},
       {R"({"on":"r","get":"ActiveConnection","as":"again"})",
        R"({"result":{"object":"ADODB.Connection"}})"},
       {R"({"on":"again","get":"ConnectionString"})", R"({"result":{"vt":8,"value":"DSN=x"}})"},
       {R"({"member":"OpenConnAsMDB","args":[null,"x.mdb"]})",
        R"({"error":{"number":-2147221466,"hex":"0x80040026","source":"clsCommon.OpenConnAsMDB",)"
        R"("description":"Connection object not set yet."},)"
        R"("refs":{"DB_Conn":null,"rstr_ErrDesc":"Connection object not set yet."}})"},
       {R"({"member":"OpenConnAsMDB","args":[{"var":"c"}," "]})",
        R"({"error":{"number":-2147221466,"hex":"0x80040026","source":"clsCommon.OpenConnAsMDB",)"
        R"("description":"MDB file path not provided."},"refs":{"DB_Conn":)"
        R"({"object":"ADODB.Connection"},"rstr_ErrDesc":"MDB file path not provided."}})"},
       {R"({"member":"OpenConnAsMDB","args":[{"var":"r"},"x.mdb"]})",
        R"({"protocol_error":"argument 'DB_Conn' has a value of the wrong type"})"}});
}

TEST(PipeObjects, an_unset_connection_variable_stays_unset) {
  Converse(
      {{R"({"member":"OpenConnAsMDB","args":[{"var":"n"},"x.mdb"]})",
        R"({"error":{"number":-2147221466,"hex":"0x80040026",)"
        R"("source":"clsCommon.OpenConnAsMDB","description":"Connection object not set yet."},)"
        R"("refs":{"DB_Conn":null,"rstr_ErrDesc":"Connection object not set yet."}})"},
       {R"({"show":"n"})", R"({"result":null})"},
       {R"({"on":"n","get":"State"})", R"({"protocol_error":"'n' is no object"})"}});
}

TEST(PipeObjects, objects_are_driven_by_name) {
  PipeSession session(TestPlatform());
  session.Keep("c", std::make_shared<Counter>());
  Converse(
      session,
      {
          {R"({"on":"c","get":"count"})", R"({"result":{"vt":3,"value":3}})"},
          {R"({"on":"c","set":"Count","value":5})", R"({"result":null})"},
          {R"({"on":"c","get":"Count"})", R"({"result":{"vt":3,"value":5}})"},
          {R"({"on":"c","get":"Item","args":["Name"]})", R"({"result":{"vt":8,"value":"Name"}})"},
          {R"({"on":"c","get":"Self","as":"f"})", R"({"result":{"object":"Test.Counter"}})"},
          {R"({"on":"f","get":"Count"})", R"({"result":{"vt":3,"value":3}})"},
          {R"({"let":"n","type":"Long","value":1})", R"({"result":null})"},
          {R"({"on":"c","member":"Add","args":[{"var":"n"},7,{"missing":true}]})",
           R"({"result":{"vt":3,"value":2},"refs":{}})"},
          {R"({"show":"n"})", R"({"result":2})"},
          {R"({"on":"c","member":"Fail","args":[{"var":"n"}]})",
           R"({"error":{"number":-2147217900,"hex":"0x80040E14","source":"Provider",)"
           R"("description":"no table"},"refs":{}})"},
          {R"({"show":"n"})", R"({"result":3})"},
          {R"({"on":"c","get":"Foo"})", kFault438 + std::string("}")},
          {R"({"on":"c","set":"Foo","value":1})", kFault438 + std::string("}")},
          {R"({"on":"c","get":"Item","args":{"x":1}})",
           R"({"protocol_error":"'args' of an object must be an array"})"},
          {R"({"on":"c","get":"Item","args":[{"var":"zz"}]})",
           R"({"protocol_error":"argument 1: unknown name 'zz'"})"},
          {R"({"on":"n","get":"Item"})", R"({"protocol_error":"'n' is no object"})"},
          {R"({"show":"c"})", R"({"result":{"object":"Test.Counter"}})"},
      });
}

TEST(PipeObjects, want_of_memory_inside_a_call_is_fault_7) {
  PipeSession session(TestPlatform());
  session.Keep("c", std::make_shared<Counter>());
  EXPECT_EQ(session.HandleLine(R"({"on":"c","get":"Huge"})"),
            R"({"error":{"number":7,"hex":"0x00000007","source":"Public_Module",)"
            R"("description":"Out of memory"}})");
}

// An object that writes texts to what it is given.
class Scribbler final : public Object {
 public:
  std::string_view ClassName() const noexcept override { return "Test.Scribbler"; }
  Variant Call(std::string_view name, std::span<Variant> arguments) override {
    for (Variant& argument : arguments)
      argument = Variant("8 or 9");
    if (SameName(name, "Fail")) throw AutomationError(-2147217900, u"Provider", u"no table");
    return {};
  }
};

constexpr const char* kFault13 =
    R"({"error":{"number":13,"hex":"0x0000000D","source":"Public_Module",)"
    R"("description":"Type mismatch"},"refs":{}})";

TEST(PipeObjects, what_an_object_wrote_is_converted_to_the_types_of_the_variables) {
  PipeSession session(TestPlatform());
  session.Keep("o", std::make_shared<Scribbler>());
  Converse(session,
           {
               {R"({"let":"n","type":"Long","value":1})", R"({"result":null})"},
               {R"({"let":"b","type":"ByteArray"})", R"({"result":null})"},
               {R"({"let":"t","type":"String"})", R"({"result":null})"},
               {R"({"let":"v","type":"Variant"})", R"({"result":null})"},
               {R"({"on":"o","member":"Write","args":[{"var":"n"},1,{"var":"b"},{"var":"t"},)"
                R"({"var":"v"}]})",
                kFault13},
               {R"({"show":"n"})", R"({"result":1})"},
               {R"({"show":"b"})", R"({"result":null})"},
               {R"({"show":"t"})", R"({"result":"8 or 9"})"},
               {R"({"show":"v"})", R"({"result":{"vt":8,"value":"8 or 9"}})"},
               // The object's own error is the one to report.
               {R"({"on":"o","member":"Fail","args":[{"var":"n"}]})",
                R"({"error":{"number":-2147217900,"hex":"0x80040E14","source":"Provider",)"
                R"("description":"no table"},"refs":{}})"},
               {R"({"show":"n"})", R"({"result":1})"},
               {R"({"on":"o","member":"Write","args":[{"missing":true},{"missing":true}]})",
                R"({"result":{"vt":0,"value":null},"refs":{}})"},
           });
}

TEST(PipeObjects, a_component_is_no_argument_for_an_object) {
  PipeSession session(TestPlatform());
  session.Keep("o", std::make_shared<Counter>());
  Converse(session,
           {{R"({"new":"Public_Module.clsPublic","as":"c"})",
             R"({"result":{"object":"Public_Module.clsPublic"}})"},
            {R"({"on":"o","set":"Count","value":{"var":"c"}})",
             R"({"protocol_error":"'c' is an object that no member takes"})"},
            {R"({"on":"o","member":"Add","args":[{"var":"c"}]})",
             R"({"protocol_error":"argument 1: 'c' is an object that no member takes"})"}});
}

// ---- components that fail in ways of their own

// Does what the test says with the arguments of a call.
class ScriptedComponent final : public Component {
 public:
  using Script = std::function<Variant(std::span<Variant* const>)>;
  explicit ScriptedComponent(Script script) : script_(std::move(script)) {}
  Variant Invoke(std::size_t, std::span<Variant* const> arguments) override {
    return script_(arguments);
  }

 private:
  Script script_;
};

PipeSession Scripted(ScriptedComponent::Script script) {
  return PipeSession(TestPlatform(), [script = std::move(script)] {
    return std::make_unique<ScriptedComponent>(script);
  });
}

std::string NumberOf(const std::string& reply) {
  return ParseJson(reply)["error"]["number"].dump();
}

TEST(PipeObjects, whatever_a_component_throws_is_a_runtime_error) {
  constexpr std::string_view kRequests[] = {R"({"member":"IsHex","args":["1"]})",
                                            R"({"get":"AppPath"})",
                                            R"({"set":"AppPath","value":"x"})"};
  for (const std::string_view request : kRequests) {
    auto full = Scripted([](auto) -> Variant { throw std::bad_alloc(); });
    EXPECT_EQ(NumberOf(full.HandleLine(request)), "7");
    auto endless = Scripted([](auto) -> Variant { throw std::length_error("too long"); });
    EXPECT_EQ(NumberOf(endless.HandleLine(request)), "7");
    auto broken = Scripted([](auto) -> Variant { throw std::runtime_error("broken"); });
    EXPECT_EQ(NumberOf(broken.HandleLine(request)), "51");
  }
}

TEST(PipeObjects, variables_that_cannot_take_what_was_written_keep_their_values) {
  const auto scribble = [](std::span<Variant* const> arguments) {
    for (Variant* const argument : arguments)
      *argument = Variant("8 or 9");
    return Variant();
  };
  const std::initializer_list<Exchange> variables = {
      {R"({"let":"a","type":"Long","value":1})", R"({"result":null})"},
      {R"({"let":"b","type":"Integer","value":2})", R"({"result":null})"},
      {R"({"let":"t","type":"String"})", R"({"result":null})"}};
  const std::initializer_list<Exchange> kept = {{R"({"show":"a"})", R"({"result":1})"},
                                                {R"({"show":"b"})", R"({"result":2})"},
                                                {R"({"show":"t"})", R"({"result":"8 or 9"})"}};
  constexpr std::string_view kCall =
      R"({"member":"HexToBit","args":["F",{"var":"a"},{"var":"b"},{"var":"t"}]})";

  auto session = Scripted(scribble);
  Converse(session, variables);
  EXPECT_EQ(NumberOf(session.HandleLine(kCall)), "13");
  Converse(session, kept);

  auto failing = Scripted([scribble](std::span<Variant* const> arguments) -> Variant {
    scribble(arguments);
    RaiseFault(FaultNumber::InvalidProcedureCall);
  });
  Converse(failing, variables);
  EXPECT_EQ(NumberOf(failing.HandleLine(kCall)), "5") << "the member's own error goes first";
  Converse(failing, kept);
}

TEST(PipeObjects, a_system_without_databases_creates_no_objects_of_theirs) {
  auto platform = std::make_shared<Platform>(*TestPlatform());
  platform->database = nullptr;
  PipeSession session(platform);
  Converse(session, {{R"({"new":"ADODB.Connection","as":"c"})",
                      R"({"error":{"number":429,"hex":"0x000001AD","source":"Public_Module",)"
                      R"("description":"ActiveX component can't create object"}})"},
                     {R"({"show":"c"})", R"({"protocol_error":"unknown name 'c'"})"}});
}

}  // namespace
}  // namespace vandpublic
