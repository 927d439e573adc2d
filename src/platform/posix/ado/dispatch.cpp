// Arguments of operations that are called by name.
#include "platform/posix/ado/dispatch.h"

#include "runtime/coerce.h"

namespace vandpublic::ado {

Long LongValue(const Variant& value, std::string_view source) {
  try {
    return ToLong(value);
  } catch (const RuntimeFault&) {
    Raise(ObjectError::InvalidArgument, source);
  }
}

std::u16string TextValue(const Variant& value, std::string_view source) {
  try {
    return std::u16string(ToText(value).view());
  } catch (const RuntimeFault&) {
    Raise(ObjectError::InvalidArgument, source);
  }
}

Long LongArgument(std::span<const Variant> arguments, std::size_t index, Long otherwise,
                  std::string_view source) {
  if (index >= arguments.size() || arguments[index].IsEmpty()) return otherwise;
  return LongValue(arguments[index], source);
}

std::u16string TextArgument(std::span<const Variant> arguments, std::size_t index,
                            std::string_view source) {
  if (index >= arguments.size() || arguments[index].IsEmpty()) return {};
  return TextValue(arguments[index], source);
}

}  // namespace vandpublic::ado
