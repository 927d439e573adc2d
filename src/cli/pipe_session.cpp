// The forms of a request, one function each.
#include "cli/pipe_session.h"

#include <algorithm>
#include <array>
#include <new>
#include <optional>
#include <stdexcept>
#include <vector>

#include "cli/call_arguments.h"
#include "cli/classes.h"
#include "cli/json_values.h"
#include "cli/object_requests.h"
#include "cli/suggestion.h"
#include "invoke/late_call.h"

namespace vandpublic {
namespace {

const Json& Part(const Json& request, const char* key) {
  static const Json kNothing;
  const auto found = request.find(key);
  return found == request.end() ? kNothing : *found;
}

const std::string& TextPart(const Json& request, const char* key) {
  const Json& part = Part(request, key);
  if (!part.is_string()) throw ProtocolError("'" + std::string(key) + "' must be a text");
  return part.get_ref<const std::string&>();
}

// What a name stands for: most are one slot, a property that can be written has two.
struct Slots {
  std::optional<std::size_t> method;
  std::optional<std::size_t> get;
  std::optional<std::size_t> put;
};

[[noreturn]] void RaiseUnknownMember(const std::string& name) {
  std::vector<std::string_view> names;
  for (const MemberInfo& member : MemberTable())
    names.push_back(member.name);
  throw ProtocolError("unknown member '" + Quoted(name) + "'" + DidYouMean(name, names));
}

// The slot for that use of the name, or the reason why there is none.
std::size_t NeedSlot(const std::string& name, SlotKind kind) {
  if (const auto slot = FindSlot(name, kind)) return *slot;
  const auto method = FindSlot(name, SlotKind::Method);
  const auto property = FindSlot(name, SlotKind::PropertyGet);
  if (!method && !property) RaiseUnknownMember(name);
  const std::string known(MemberTable()[method ? *method : *property].name);
  if (method) throw ProtocolError("'" + known + "' is no property; use \"member\"");
  if (kind == SlotKind::Method) {
    throw ProtocolError("'" + known + "' is a property; use \"get\" or \"set\"");
  }
  throw ProtocolError("property '" + known + "' cannot be written");
}

// Runs a call. Whatever goes wrong inside it is an automation error, want of memory included.
template <class Work>
auto Guarded(Work work) -> decltype(work()) {
  try {
    return work();
  } catch (const AutomationError&) {
    throw;
  } catch (const ProtocolError&) {
    throw;
  } catch (const ArgumentError& misfit) {
    throw ProtocolError(misfit.what());
  } catch (const std::bad_alloc&) {
    RaiseFault(FaultNumber::OutOfMemory);
  } catch (const std::length_error&) {
    RaiseFault(FaultNumber::OutOfMemory);
  } catch (const std::exception&) {
    RaiseFault(FaultNumber::InternalError);
  }
}

// Objects stand for themselves; everything else an object hands out has its type with it.
Json EncodeFromObject(const Variant& value) {
  if (value.Get<ObjectRef>() != nullptr) return EncodeValue(value, InterfaceType::Connection);
  return EncodeVariant(value);
}

Json Succeeded(Json result) { return JsonObject("result", std::move(result)); }
Json Failed(const AutomationError& error) { return JsonObject("error", EncodeError(error)); }
Json Refused(const char* reason) { return JsonObject("protocol_error", reason); }

InterfaceType VariableType(const std::string& name) {
  constexpr InterfaceType kTypes[] = {InterfaceType::String, InterfaceType::Integer,
                                      InterfaceType::Long,   InterfaceType::Boolean,
                                      InterfaceType::Byte,   InterfaceType::ByteArray,
                                      InterfaceType::Variant};
  std::vector<std::string_view> names;
  for (const InterfaceType type : kTypes) {
    names.push_back(TypeName(type));
    if (SameName(names.back(), name)) return type;
  }
  throw ProtocolError("unknown type '" + Quoted(name) + "'" + DidYouMean(name, names));
}

// A form of a request: the key that names it, and the others that may stand beside it.
struct Form {
  const char* verb;
  std::array<std::string_view, 3> others;
};

void CheckKeys(const Json& request, const Form& form) {
  for (const auto& [key, value] : request.items()) {
    const auto& others = form.others;
    const bool known = key == "id" || key == form.verb ||
                       std::find(others.begin(), others.end(), key) != others.end();
    if (!known) {
      throw ProtocolError("key '" + Quoted(key) + "' does not go with '" + form.verb + "'");
    }
    if (key == "on" || key == "as") TextPart(request, key.c_str());
  }
}

std::string Compact(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

// The id from the text itself: a number keeps the digits that a double would lose. Line breaks
// between its parts do not belong in a reply of one line.
std::string EchoedId(std::string_view line, const Json& id) {
  const std::string_view raw = RawMember(line, "id");
  const bool one_line = !raw.empty() && raw.find_first_of("\r\n") == raw.npos;
  return one_line ? std::string(raw) : Compact(id);
}

}  // namespace

PipeSession::PipeSession(std::shared_ptr<const Platform> platform)
    : PipeSession(platform, [platform] { return std::make_unique<LocalComponent>(platform); }) {}

PipeSession::PipeSession(std::shared_ptr<const Platform> platform, ComponentMaker make_component)
    : platform_(std::move(platform)),
      make_component_(std::move(make_component)),
      component_(make_component_()) {}

std::string PipeSession::HandleLine(std::string_view line) {
  try {
    return Reply(line);
  } catch (const std::bad_alloc&) {
    return R"({"protocol_error":"out of memory"})";
  }
}

std::string PipeSession::Reply(std::string_view line) {
  std::string reply = "{";
  Json body;
  try {
    const Json request = ParseJson(line);
    if (request.is_object() && request.contains("id")) {
      reply += "\"id\":" + EchoedId(line, request["id"]) + ",";
    }
    body = Handle(request);
  } catch (const ProtocolError& error) {
    body = Refused(error.what());
  }
  reply += std::string_view(Compact(body)).substr(1);
  return reply;
}

Json PipeSession::Handle(const Json& request) {
  try {
    return Dispatch(request);
  } catch (const ProtocolError& error) {
    return Refused(error.what());
  } catch (const std::bad_alloc&) {
    return Refused("out of memory");
  }
}

Json PipeSession::Dispatch(const Json& request) {
  struct Entry {
    Form form;
    Json (PipeSession::*handle)(const Json&);
  };
  static constexpr Entry kEntries[] = {
      {{"member", {"on", "args", "as"}}, &PipeSession::Member},
      {{"get", {"on", "args", "as"}}, &PipeSession::Get},
      {{"set", {"on", "value"}}, &PipeSession::Set},
      {{"new", {"as"}}, &PipeSession::New},
      {{"let", {"type", "value"}}, &PipeSession::Let},
      {{"show", {}}, &PipeSession::Show},
      {{"drop", {}}, &PipeSession::Drop},
  };
  if (!request.is_object()) throw ProtocolError("a request must be a JSON object");
  for (const Entry& entry : kEntries) {
    if (!request.contains(entry.form.verb)) continue;
    CheckKeys(request, entry.form);
    return (this->*entry.handle)(request);
  }
  throw ProtocolError("a request needs one of member, get, set, new, let, show or drop");
}

void PipeSession::Keep(std::string name, ObjectRef object) {
  names_[std::move(name)] = {InterfaceType::Connection, Variant(std::move(object))};
}

// ---- members and properties

Json PipeSession::Member(const Json& request) {
  const Target target = FindTarget(request);
  if (target.component != nullptr) return ComponentMember(*target.component, request);
  return ObjectMember(target.object, request);
}

Json PipeSession::ComponentMember(Component& component, const Json& request) {
  const std::size_t slot = NeedSlot(TextPart(request, "member"), SlotKind::Method);
  const MemberInfo& member = MemberTable()[slot];
  CallArguments arguments(member, Part(request, "args"), names_);
  Variant result;
  Json reply;
  try {
    result = Guarded([&] { return component.Invoke(slot, arguments.Pointers()); });
    arguments.Settle();
    reply = Succeeded(EncodeValue(result, member.result));
  } catch (const AutomationError& error) {
    reply = Failed(error);
    try {
      arguments.Settle();
    } catch (const RuntimeFault&) {
      // The first error is the one to report; the variable keeps its value.
    }
  }
  reply["refs"] = arguments.References();
  // Last: the name may be one of a variable that was passed, or of the object itself.
  if (reply.contains("result")) KeepResult(request, result);
  return reply;
}

Json PipeSession::ObjectMember(const ObjectRef& object, const Json& request) {
  const std::string& name = TextPart(request, "member");
  Json reply;
  try {
    const Variant result =
        Guarded([&] { return CallObject(*object, name, Part(request, "args"), names_); });
    reply = Succeeded(EncodeFromObject(result));
    KeepResult(request, result);
  } catch (const AutomationError& error) {
    reply = Failed(error);
  }
  reply["refs"] = Json::object();
  return reply;
}

Json PipeSession::Get(const Json& request) {
  const std::string& name = TextPart(request, "get");
  const Target target = FindTarget(request);
  const Json& args = Part(request, "args");
  try {
    if (target.component == nullptr) {
      const Variant value =
          Guarded([&] { return GetFromObject(*target.object, name, args, names_); });
      KeepResult(request, value);
      return Succeeded(EncodeFromObject(value));
    }
    const std::size_t slot = NeedSlot(name, SlotKind::PropertyGet);
    const MemberInfo& member = MemberTable()[slot];
    CallArguments arguments(member, args, names_);
    const Variant value =
        Guarded([&] { return target.component->Invoke(slot, arguments.Pointers()); });
    KeepResult(request, value);
    return Succeeded(EncodeValue(value, member.result));
  } catch (const AutomationError& error) {
    return Failed(error);
  }
}

Json PipeSession::Set(const Json& request) {
  const std::string& name = TextPart(request, "set");
  if (!request.contains("value")) throw ProtocolError("'value' is missing");
  const Json& value = Part(request, "value");
  const Target target = FindTarget(request);
  try {
    if (target.component == nullptr) {
      Guarded([&] { SetOnObject(*target.object, name, value, names_); });
      return Succeeded(nullptr);
    }
    const std::size_t slot = NeedSlot(name, SlotKind::PropertyPut);
    CallArguments arguments(MemberTable()[slot], Json::array({value}), names_);
    Guarded([&] { return target.component->Invoke(slot, arguments.Pointers()); });
    arguments.Settle();
    return Succeeded(nullptr);
  } catch (const AutomationError& error) {
    return Failed(error);
  }
}

// ---- variables and objects

Json PipeSession::New(const Json& request) {
  const std::string& class_name = TextPart(request, "new");
  const std::string& name = TextPart(request, "as");
  try {
    NamedValue made = Guarded([&] { return CreateObject(class_name, platform_, make_component_); });
    names_[name] = std::move(made);
  } catch (const AutomationError& error) {
    return Failed(error);
  }
  return Show(JsonObject("show", name));
}

Json PipeSession::Let(const Json& request) {
  const std::string& name = TextPart(request, "let");
  InterfaceType type = VariableType(TextPart(request, "type"));
  NamedValue variable{type, InitialValue({.type = type})};
  if (request.contains("value")) {
    const Json& value = Part(request, "value");
    // One notation serves arrays of both kinds; the variable is of the kind it is defined with.
    if (type == InterfaceType::ByteArray && value.is_object() && value.contains("bounds")) {
      type = InterfaceType::ByteTable;
    }
    try {
      variable = {type, DecodeValue(value, type)};
    } catch (const ProtocolError& misfit) {
      throw ProtocolError("'value': " + std::string(misfit.what()));
    }
  }
  names_[name] = std::move(variable);
  return Succeeded(nullptr);
}

Json PipeSession::Show(const Json& request) {
  const NamedValue& named = FindName(TextPart(request, "show"));
  if (named.component) return Succeeded(JsonObject("object", std::string(kComponentClass)));
  return Succeeded(EncodeValue(named.value, named.type));
}

Json PipeSession::Drop(const Json& request) {
  const std::string& name = TextPart(request, "drop");
  FindName(name);
  names_.erase(name);
  return Succeeded(nullptr);
}

PipeSession::Target PipeSession::FindTarget(const Json& request) {
  if (!request.contains("on")) return {component_.get()};
  const std::string& name = TextPart(request, "on");
  const NamedValue& named = FindName(name);
  if (named.component) return {named.component.get()};
  const auto* object = named.value.Get<ObjectRef>();
  if (object == nullptr || *object == nullptr) {
    throw ProtocolError("'" + Quoted(name) + "' is no object");
  }
  return {nullptr, *object};
}

NamedValue& PipeSession::FindName(const std::string& name) {
  const auto found = names_.find(name);
  if (found != names_.end()) return found->second;
  std::vector<std::string_view> names;
  for (const auto& [known, value] : names_)
    names.push_back(known);
  throw ProtocolError("unknown name '" + Quoted(name) + "'" + DidYouMean(name, names));
}

void PipeSession::KeepResult(const Json& request, const Variant& result) {
  if (!request.contains("as")) return;
  const bool is_object = result.Get<ObjectRef>() != nullptr;
  const InterfaceType type = is_object ? InterfaceType::Connection : InterfaceType::Variant;
  names_[TextPart(request, "as")] = {type, result};
}

}  // namespace vandpublic
