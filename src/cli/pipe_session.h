// One client's conversation with the component: a request in, a reply out. No input or output of
// its own, so the pipe, the call command and the tests all use it.
//
//   PipeSession session(SystemPlatform());
//   session.HandleLine(R"({"id":1,"member":"IsHex","args":["1F"]})");
//       // {"id":1,"result":true,"refs":{}}
#ifndef VANDPUBLIC_CLI_PIPE_SESSION_H
#define VANDPUBLIC_CLI_PIPE_SESSION_H

#include <memory>
#include <string>
#include <string_view>

#include "cli/component.h"
#include "cli/json_text.h"
#include "cli/named_values.h"
#include "platform/platform.h"

namespace vandpublic {

class PipeSession {
 public:
  // The component is created with these services and lives as long as the session.
  explicit PipeSession(std::shared_ptr<const Platform> platform);
  // The same with components that somebody else makes.
  PipeSession(std::shared_ptr<const Platform> platform, ComponentMaker make_component);

  // The reply to one line, in compact JSON without a line end. Raises nothing: what is no request
  // gets a reply with "protocol_error".
  std::string HandleLine(std::string_view line);

  // The same for a request that is parsed already. "id" is checked by nobody and not echoed.
  Json Handle(const Json& request);

  // Keeps an object of the host's under a name, as {"new":...,"as":name} does.
  void Keep(std::string name, ObjectRef object);

 private:
  // What a request is about: the component, one created by the client, or an object.
  struct Target {
    Component* component = nullptr;
    ObjectRef object = nullptr;
  };

  std::string Reply(std::string_view line);
  Json Dispatch(const Json& request);
  Json Member(const Json& request);
  Json ComponentMember(Component& component, const Json& request);
  Json ObjectMember(const ObjectRef& object, const Json& request);
  Json Get(const Json& request);
  Json Set(const Json& request);
  Json New(const Json& request);
  Json Let(const Json& request);
  Json Show(const Json& request);
  Json Drop(const Json& request);

  Target FindTarget(const Json& request);
  NamedValue& FindName(const std::string& name);
  void KeepResult(const Json& request, const Variant& result);

  std::shared_ptr<const Platform> platform_;
  ComponentMaker make_component_;
  std::unique_ptr<Component> component_;
  NamedValues names_;
};

}  // namespace vandpublic

#endif
