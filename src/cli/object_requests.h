// Requests on objects that are driven by name: their arguments have positions only, and plain
// values.
#ifndef VANDPUBLIC_CLI_OBJECT_REQUESTS_H
#define VANDPUBLIC_CLI_OBJECT_REQUESTS_H

#include <string_view>

#include "cli/json_text.h"
#include "cli/named_values.h"
#include "runtime/object.h"
#include "runtime/variant.h"

namespace vandpublic {

// `args` is null or an array of values as DecodeVariant takes them, {"var":NAME} of a variable
// that is defined, or at the end {"missing":true}. Raises ProtocolError for other arguments and
// what the object raises.
Variant GetFromObject(Object& object, std::string_view name, const Json& args,
                      const NamedValues& names);

// The same for an operation; variables receive what the object wrote, also when it failed.
Variant CallObject(Object& object, std::string_view name, const Json& args, NamedValues& names);

// Writes a property; the value as above.
void SetOnObject(Object& object, std::string_view name, const Json& value,
                 const NamedValues& names);

}  // namespace vandpublic

#endif
