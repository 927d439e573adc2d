// Properties and operations found by their names in a table of the class.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_DISPATCH_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_DISPATCH_H

#include <algorithm>
#include <span>
#include <string>
#include <string_view>

#include "platform/posix/ado/ado_errors.h"
#include "runtime/errors.h"
#include "runtime/object.h"
#include "runtime/variant.h"

namespace vandpublic::ado {

template <class T>
struct NamedProperty {
  std::string_view name;
  Variant (*get)(T& object);
  void (*set)(T& object, const Variant& value) = nullptr;  // null: read-only
};

template <class T>
struct NamedOperation {
  std::string_view name;
  std::size_t most_arguments;
  Variant (*call)(T& object, std::span<Variant> arguments);
};

// The entry with the name; fault 438 where there is none.
template <class Entry, std::size_t kCount>
const Entry& FindEntry(const Entry (&table)[kCount], std::string_view name) {
  const auto* const found = std::find_if(std::begin(table), std::end(table),
                                         [&](const Entry& e) { return SameName(e.name, name); });
  if (found == std::end(table)) RaiseFault(FaultNumber::NoSuchPropertyOrMethod);
  return *found;
}

template <class T, std::size_t kCount>
Variant GetProperty(T& object, const NamedProperty<T> (&table)[kCount], std::string_view name,
                    std::span<const Variant> arguments) {
  const NamedProperty<T>& property = FindEntry(table, name);
  if (!arguments.empty()) RaiseFault(FaultNumber::WrongNumberOfArguments);
  return property.get(object);
}

template <class T, std::size_t kCount>
void SetProperty(T& object, const NamedProperty<T> (&table)[kCount], std::string_view name,
                 const Variant& value) {
  const NamedProperty<T>& property = FindEntry(table, name);
  if (property.set == nullptr) RaiseFault(FaultNumber::PropertyNotWritable);
  property.set(object, value);
}

template <class T, std::size_t kCount>
Variant CallOperation(T& object, const NamedOperation<T> (&table)[kCount], std::string_view name,
                      std::span<Variant> arguments) {
  const NamedOperation<T>& operation = FindEntry(table, name);
  if (arguments.size() > operation.most_arguments) {
    RaiseFault(FaultNumber::WrongNumberOfArguments);
  }
  return operation.call(object, arguments);
}

// An argument that may be left out: missing or empty gives the value for that. One that does not
// convert is error 3001 from the source.
Long LongArgument(std::span<const Variant> arguments, std::size_t index, Long otherwise,
                  std::string_view source);
std::u16string TextArgument(std::span<const Variant> arguments, std::size_t index,
                            std::string_view source);
// A value that must be there.
Long LongValue(const Variant& value, std::string_view source);
std::u16string TextValue(const Variant& value, std::string_view source);

}  // namespace vandpublic::ado

#endif
