// The wrappers: each operation of a port is one call by name.
#include "platform/windows/automation/dispatch_objects.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/windows/automation/apartment.h"
#include "platform/windows/automation/automation_values.h"
#include "platform/windows/automation/com_pointer.h"
#include "platform/windows/automation/late_bound.h"
#include "platform/windows/wide_text.h"
#include "runtime/coerce.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

using ApartmentRef = std::shared_ptr<Apartment>;

// What every wrapper has, and how one is told from other objects.
class Wrapper {
 public:
  Wrapper(IDispatch* object, ApartmentRef apartment)
      : apartment_(std::move(apartment)), object_(object) {}
  virtual ~Wrapper() = default;
  Wrapper(const Wrapper&) = delete;
  Wrapper& operator=(const Wrapper&) = delete;

  const LateBound& object() const noexcept { return object_; }

 private:
  ApartmentRef apartment_;  // left after the object is released
  LateBound object_;
};

std::wstring WideName(std::string_view name) { return Wide(FromUtf8(name)); }

template <class Base>
class Wrapped : public Base, public Wrapper {
 public:
  explicit Wrapped(IDispatch* object, ApartmentRef apartment = nullptr)
      : Wrapper(object, std::move(apartment)) {}

  Variant Get(std::string_view name, std::span<const Variant> arguments) override {
    return object().Get(WideName(name).c_str(), arguments);
  }
  void Set(std::string_view name, const Variant& value) override {
    const auto* const reference = value.Get<ObjectRef>();
    if (reference == nullptr) return object().Put(WideName(name).c_str(), value);
    const OwnedVariant converted = ToAutomation(value);
    object().PutReference(WideName(name).c_str(), converted.get().pdispVal);
  }
  Variant Call(std::string_view name, std::span<Variant> arguments) override {
    return object().CallWithReferences(WideName(name).c_str(), arguments);
  }
};

class PlainObject final : public Wrapped<Object> {
 public:
  using Wrapped::Wrapped;
  std::string_view ClassName() const noexcept override { return "Object"; }
};

Variant Text(std::u16string_view text) { return String(text); }

// The object in a property's value, which may be unset.
IDispatch* DispatchIn(const Variant& value) {
  const auto* const object = value.Get<ObjectRef>();
  if (object == nullptr) RaiseFault(FaultNumber::TypeMismatch);
  return *object == nullptr ? nullptr : WrappedDispatch(**object);
}

// The connection's own object; a connection of another make cannot be handed over.
IDispatch* DispatchOf(const ConnectionRef& connection) {
  if (connection == nullptr) return nullptr;
  IDispatch* const dispatch = WrappedDispatch(*connection);
  if (dispatch == nullptr) RaiseFault(FaultNumber::TypeMismatch);
  return dispatch;
}

class WrappedConnection final : public Wrapped<Connection> {
 public:
  using Wrapped::Wrapped;

  void SetConnectionString(std::u16string_view text) override {
    object().Put(L"ConnectionString", Text(text));
  }
  void Open(std::u16string_view connection_string, std::u16string_view user_id,
            std::u16string_view password, Long options) override {
    object().Call(L"Open", {Text(connection_string), Text(user_id), Text(password), options});
  }
};

class WrappedField final : public Wrapped<Field> {
 public:
  using Wrapped::Wrapped;

  Variant GetValue() override { return object().Get(L"Value"); }
  Long GetActualSize() override { return ToLong(object().Get(L"ActualSize")); }
  void AppendChunk(const Variant& data) override { object().Call(L"AppendChunk", {data}); }
  Variant GetChunk(Long size) override { return object().Call(L"GetChunk", {size}); }
};

class WrappedFields final : public Wrapped<Fields> {
 public:
  using Wrapped::Wrapped;

  FieldRef GetItem(std::u16string_view name) override {
    const Variant arguments[] = {Text(name)};
    return WrapField(DispatchIn(object().GetElseDefault(L"Item", arguments)));
  }
};

class WrappedRecordset final : public Wrapped<Recordset> {
 public:
  using Wrapped::Wrapped;

  void SetActiveConnection(const ConnectionRef& connection) override {
    object().PutReference(L"ActiveConnection", DispatchOf(connection));
  }
  void SetCursorLocation(Long location) override { object().Put(L"CursorLocation", location); }
  void SetLockType(Long lock_type) override { object().Put(L"LockType", lock_type); }
  void Open(std::u16string_view source, const ConnectionRef& active_connection, Long cursor_type,
            Long lock_type, Long options) override {
    OwnedVariant arguments[] = {
        ToAutomation(Text(source)),
        active_connection == nullptr ? MissingArgument()
                                     : ToAutomation(ObjectRef(active_connection)),
        ToAutomation(cursor_type), ToAutomation(lock_type), ToAutomation(options)};
    object().Call(L"Open", arguments);
  }
  void Close() override { object().Call(L"Close", {}); }
  Long GetState() override { return ToLong(object().Get(L"State")); }
  bool IsAtEnd() override { return ToBoolean(object().Get(L"EOF")); }
  FieldsRef GetFields() override { return WrapFields(DispatchIn(object().Get(L"Fields"))); }
};

template <class Wrapping>
std::shared_ptr<Wrapping> Wrap(IDispatch* object) {
  return object == nullptr ? nullptr : std::make_shared<Wrapping>(object);
}

// The interfaces of ADO's classes: the first digits tell interface and version, the rest is common.
constexpr GUID AdoInterface(unsigned long number) noexcept {
  return {number, 0, 0x10, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}};
}

template <class Wrapping>
ObjectRef WrapAs(IDispatch* object) {
  return Wrap<Wrapping>(object);
}

struct KnownClass {
  GUID interfaces[3];  // of ADO 2.8, 2.1 and 2.0
  ObjectRef (*wrap)(IDispatch* object);
};

constexpr KnownClass kKnownClasses[] = {
    {{AdoInterface(0x1550), AdoInterface(0x550), AdoInterface(0x515)}, &WrapAs<WrappedConnection>},
    {{AdoInterface(0x1556), AdoInterface(0x556), AdoInterface(0x555)}, &WrapAs<WrappedRecordset>},
    {{AdoInterface(0x1564), AdoInterface(0x564), AdoInterface(0x54D)}, &WrapAs<WrappedFields>},
    {{AdoInterface(0x1569), AdoInterface(0x569), AdoInterface(0x54C)}, &WrapAs<WrappedField>},
};

bool Has(IDispatch* object, const GUID& interface_id) {
  ComPointer<IUnknown> found;
  return SUCCEEDED(object->QueryInterface(interface_id, reinterpret_cast<void**>(found.Receive())));
}

// COM's identity: asking for IUnknown gives the same pointer whenever it is the same object.
ComPointer<IUnknown> Identity(const Object& object) noexcept {
  ComPointer<IUnknown> identity;
  IDispatch* const dispatch = WrappedDispatch(object);
  if (dispatch != nullptr) {
    dispatch->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(identity.Receive()));
  }
  return identity;
}

class AdoObjects final : public DatabaseObjects {
 public:
  ConnectionRef MakeConnection() override { return Make<WrappedConnection>(L"ADODB.Connection"); }
  RecordsetRef MakeRecordset() override { return Make<WrappedRecordset>(L"ADODB.Recordset"); }

 private:
  template <class Wrapping>
  static std::shared_ptr<Wrapping> Make(const wchar_t* class_name) {
    auto apartment = std::make_shared<Apartment>();
    const LateBound made = CreateObject(class_name);
    return std::make_shared<Wrapping>(made.dispatch(), std::move(apartment));
  }
};

}  // namespace

ConnectionRef WrapConnection(IDispatch* object) { return Wrap<WrappedConnection>(object); }
RecordsetRef WrapRecordset(IDispatch* object) { return Wrap<WrappedRecordset>(object); }
FieldsRef WrapFields(IDispatch* object) { return Wrap<WrappedFields>(object); }
FieldRef WrapField(IDispatch* object) { return Wrap<WrappedField>(object); }

ObjectRef WrapObject(IDispatch* object) {
  if (object == nullptr) return nullptr;
  for (const KnownClass& known : kKnownClasses) {
    const bool is_one = std::any_of(std::begin(known.interfaces), std::end(known.interfaces),
                                    [&](const GUID& id) { return Has(object, id); });
    if (is_one) return known.wrap(object);
  }
  return Wrap<PlainObject>(object);
}

IDispatch* WrappedDispatch(const Object& object) noexcept {
  const auto* const wrapper = dynamic_cast<const Wrapper*>(&object);
  return wrapper == nullptr ? nullptr : wrapper->object().dispatch();
}

bool IsSameObject(const Object& a, const Object& b) noexcept {
  const ComPointer<IUnknown> identity = Identity(a);
  return identity && identity.get() == Identity(b).get();
}

std::shared_ptr<DatabaseObjects> MakeAdoObjects() { return std::make_shared<AdoObjects>(); }

}  // namespace vandpublic
