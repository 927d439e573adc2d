// The classes that a client can create by name.
#ifndef VANDPUBLIC_CLI_CLASSES_H
#define VANDPUBLIC_CLI_CLASSES_H

#include <memory>
#include <string_view>

#include "cli/named_values.h"
#include "platform/platform.h"

namespace vandpublic {

inline constexpr std::string_view kComponentClass = "Public_Module.clsPublic";

// A new object of the class, its name compared without regard to case. Raises ProtocolError for an
// unknown class, AutomationError when making the object fails.
NamedValue CreateObject(std::string_view class_name,
                        const std::shared_ptr<const Platform>& platform,
                        const ComponentMaker& make_component);

}  // namespace vandpublic

#endif
