// An object made from a client's names and values: the error object of a request.
#ifndef VANDPUBLIC_CLI_PROPERTY_OBJECT_H
#define VANDPUBLIC_CLI_PROPERTY_OBJECT_H

#include <map>
#include <string>

#include "runtime/variant.h"

namespace vandpublic {

// Has exactly the properties that were set: a client may leave one out, as a script's own object
// might, and reading it is then fault 438.
class PropertyObject final : public Object {
 public:
  void Add(std::string name, Variant value) { values_[std::move(name)] = std::move(value); }

  std::string_view ClassName() const noexcept override { return "ErrObject"; }
  Variant Get(std::string_view name, std::span<const Variant> arguments) override {
    for (const auto& [own_name, value] : values_) {
      if (SameName(own_name, name)) return value;
    }
    return Object::Get(name, arguments);
  }

 private:
  std::map<std::string, Variant> values_;
};

}  // namespace vandpublic

#endif
