// Objects that are driven by name, as automation drives them through IDispatch.
#ifndef VANDPUBLIC_RUNTIME_OBJECT_H
#define VANDPUBLIC_RUNTIME_OBJECT_H

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "basic_types.h"

namespace vandpublic {

class Variant;

// Names are matched without regard to case. What an object does not have is fault 438, a read-only
// property that is written fault 451.
class VANDPUBLIC_API Object {
 public:
  virtual ~Object() = default;

  // The class name clients know it by: "ADODB.Recordset".
  virtual std::string_view ClassName() const noexcept = 0;

  virtual Variant Get(std::string_view name, std::span<const Variant> arguments);
  virtual void Set(std::string_view name, const Variant& value);
  virtual Variant Call(std::string_view name, std::span<Variant> arguments);
};

// An object reference; null is the unset reference.
using ObjectRef = std::shared_ptr<Object>;

// The runtime error object: number, source and description of the last error.
class VANDPUBLIC_API ErrObject final : public Object {
 public:
  ErrObject(Long number, std::u16string source, std::u16string description);

  std::string_view ClassName() const noexcept override { return "ErrObject"; }
  // The properties Number, Source and Description, which can only be read.
  Variant Get(std::string_view name, std::span<const Variant> arguments) override;
  void Set(std::string_view name, const Variant& value) override;
  // The operation Raise (number, source, description; what is left out comes from the object).
  Variant Call(std::string_view name, std::span<Variant> arguments) override;

 private:
  Long number_;
  std::u16string source_;
  std::u16string description_;
};

// Compares the way automation compares member and parameter names.
VANDPUBLIC_API bool SameName(std::string_view a, std::string_view b) noexcept;

}  // namespace vandpublic

#endif
