// Objects driven by name, and the error object among them.
#include "runtime/object.h"

#include <algorithm>

#include "runtime/coerce.h"
#include "runtime/errors.h"
#include "runtime/variant.h"

namespace vandpublic {

Variant Object::Get(std::string_view, std::span<const Variant>) {
  RaiseFault(FaultNumber::NoSuchPropertyOrMethod);
}

void Object::Set(std::string_view, const Variant&) {
  RaiseFault(FaultNumber::NoSuchPropertyOrMethod);
}

Variant Object::Call(std::string_view, std::span<Variant>) {
  RaiseFault(FaultNumber::NoSuchPropertyOrMethod);
}

ErrObject::ErrObject(Long number, std::u16string source, std::u16string description)
    : number_(number), source_(std::move(source)), description_(std::move(description)) {}

Variant ErrObject::Get(std::string_view name, std::span<const Variant> arguments) {
  if (SameName(name, "Number")) return number_;
  if (SameName(name, "Source")) return String(source_);
  if (SameName(name, "Description")) return String(description_);
  return Object::Get(name, arguments);
}

void ErrObject::Set(std::string_view name, const Variant&) {
  Get(name, {});  // what the object does not have is another fault
  RaiseFault(FaultNumber::PropertyNotWritable);
}

Variant ErrObject::Call(std::string_view name, std::span<Variant> arguments) {
  if (!SameName(name, "Raise")) return Object::Call(name, arguments);
  const auto text = [&](std::size_t i, const std::u16string& otherwise) {
    return i < arguments.size() ? std::u16string(ToText(arguments[i]).view()) : otherwise;
  };
  const Long number = arguments.empty() ? number_ : ToLong(arguments[0]);
  throw AutomationError(number, text(1, source_), text(2, description_));
}

bool SameName(std::string_view a, std::string_view b) noexcept {
  constexpr auto kLower = [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](char x, char y) { return kLower(x) == kLower(y); });
}

}  // namespace vandpublic
