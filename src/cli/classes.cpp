// The table of classes.
#include "cli/classes.h"

#include "cli/json_text.h"
#include "cli/suggestion.h"
#include "platform/database.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

using PlatformRef = std::shared_ptr<const Platform>;

template <auto kMake>
NamedValue MakeDatabaseObject(const PlatformRef& platform) {
  if (platform->database == nullptr) RaiseFault(FaultNumber::CannotCreateObject);
  return {InterfaceType::Connection, Variant(ObjectRef(((*platform->database).*kMake)()))};
}

struct CreatableClass {
  std::string_view name;
  NamedValue (*make)(const PlatformRef& platform);
};

constexpr CreatableClass kClasses[] = {
    {"ADODB.Connection", &MakeDatabaseObject<&DatabaseObjects::MakeConnection>},
    {"ADODB.Recordset", &MakeDatabaseObject<&DatabaseObjects::MakeRecordset>},
};

}  // namespace

NamedValue CreateObject(std::string_view class_name, const PlatformRef& platform,
                        const ComponentMaker& make_component) {
  if (SameName(kComponentClass, class_name)) {
    NamedValue made;
    made.component = make_component();
    return made;
  }
  std::vector<std::string_view> names = {kComponentClass};
  for (const CreatableClass& known : kClasses) {
    names.push_back(known.name);
    if (SameName(known.name, class_name)) return known.make(platform);
  }
  throw ProtocolError("unknown class '" + Quoted(class_name) + "'" + DidYouMean(class_name, names));
}

}  // namespace vandpublic
