// The table of classes.
#include "cli/classes.h"

#include "cli/json_text.h"
#include "cli/suggestion.h"

namespace vandpublic {
namespace {

using PlatformRef = std::shared_ptr<const Platform>;

NamedValue MakeComponent(const PlatformRef& platform) {
  NamedValue made;
  made.component = std::make_unique<clsPublic>(platform);
  return made;
}

NamedValue Holding(ObjectRef object) {
  NamedValue made;
  made.value = std::move(object);
  return made;
}

NamedValue MakeAdoConnection(const PlatformRef& platform) {
  return Holding(platform->database->MakeConnection());
}

NamedValue MakeAdoRecordset(const PlatformRef& platform) {
  return Holding(platform->database->MakeRecordset());
}

struct CreatableClass {
  std::string_view name;
  NamedValue (*make)(const PlatformRef& platform);
};

constexpr CreatableClass kClasses[] = {
    {kComponentClass, &MakeComponent},
    {"ADODB.Connection", &MakeAdoConnection},
    {"ADODB.Recordset", &MakeAdoRecordset},
};

}  // namespace

NamedValue CreateObject(std::string_view class_name, const PlatformRef& platform) {
  std::vector<std::string_view> names;
  for (const CreatableClass& known : kClasses) {
    names.push_back(known.name);
    if (SameName(known.name, class_name)) return known.make(platform);
  }
  throw ProtocolError("unknown class '" + Quoted(class_name) + "'" + DidYouMean(class_name, names));
}

}  // namespace vandpublic
