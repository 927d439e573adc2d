// The object: identity, counting, and the two ways to call it.
#include "com/public_object.h"

#include <ocidl.h>

#include <array>
#include <cstring>
#include <span>
#include <type_traits>

#include "com/dispatch_call.h"
#include "com/guids.h"
#include "com/member_call.h"
#include "com/module.h"
#include "com/public_module.h"
#include "members/member_table.h"

namespace vandpublic {
namespace {

// Arguments of the vtable as those of Invoke. Truth values look like 16-bit integers in C++; the
// member table tells them apart.
template <class T>
constexpr VARTYPE kTypeOf = std::is_enum_v<T> ? VT_I4 : VT_EMPTY;
template <>
constexpr VARTYPE kTypeOf<unsigned char> = VT_UI1;
template <>
constexpr VARTYPE kTypeOf<short> = VT_I2;
template <>
constexpr VARTYPE kTypeOf<LONG> = VT_I4;
template <>
constexpr VARTYPE kTypeOf<BSTR> = VT_BSTR;
template <>
constexpr VARTYPE kTypeOf<IDispatch*> = VT_DISPATCH;
template <>
constexpr VARTYPE kTypeOf<VARIANT> = VT_VARIANT;
template <>
constexpr VARTYPE kTypeOf<SAFEARRAY*> = VT_ARRAY | VT_UI1;

template <class T>
VARIANTARG Packed(T value) noexcept {
  VARIANTARG argument;
  VariantInit(&argument);
  if constexpr (kTypeOf<T> != VT_EMPTY) {
    argument.vt = kTypeOf<T>;
    static_assert(sizeof(T) <= sizeof argument.byref || sizeof(T) <= sizeof argument.llVal);
    std::memcpy(&argument.llVal, &value, sizeof(T));
  } else {
    argument.vt = kTypeOf<std::remove_pointer_t<T>> | VT_BYREF;
    argument.byref = value;
  }
  return argument;
}

std::size_t SizeOfResult(InterfaceType type) noexcept {
  switch (type) {
    case InterfaceType::None:
      return 0;
    case InterfaceType::Boolean:
    case InterfaceType::Integer:
      return sizeof(short);
    case InterfaceType::Variant:
      return sizeof(VARIANT);
    case InterfaceType::String:
    case InterfaceType::ByteArray:
      return sizeof(void*);
    default:
      return sizeof(LONG);
  }
}

class PublicObject final : public _clsPublic, public ISupportErrorInfo, public IProvideClassInfo {
 public:
  PublicObject() = default;
  PublicObject(const PublicObject&) = delete;
  PublicObject& operator=(const PublicObject&) = delete;
  virtual ~PublicObject() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
    if (object == nullptr) return E_POINTER;
    *object = Find(id);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }

  ULONG STDMETHODCALLTYPE AddRef() noexcept override {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
  }

  ULONG STDMETHODCALLTYPE Release() noexcept override {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept override {
    if (index != 0 && info != nullptr) *info = nullptr;
    return index == 0 ? ProvideTypeInfo(kInterfaceGuid, info) : DISP_E_BADINDEX;
  }

  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) noexcept override {
    return reserved == IID_NULL ? FindIds(names, count, ids) : DISP_E_UNKNOWNINTERFACE;
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                   UINT* bad_argument) noexcept override {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    const auto alive = KeptAlive();
    return InvokeMember(component_, member, locale, flags, parameters, result, exception,
                        bad_argument);
  }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) noexcept override {
    return id == kInterfaceGuid || id == IID_IDispatch ? S_OK : S_FALSE;
  }

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) noexcept override {
    return ProvideTypeInfo(kClassGuid, info);
  }

#include "com/vtable_members.inc"

 private:
  void* Find(REFIID id) noexcept {
    if (id == IID_IUnknown || id == IID_IDispatch || id == kInterfaceGuid) {
      return static_cast<_clsPublic*>(this);
    }
    if (id == IID_ISupportErrorInfo) return static_cast<ISupportErrorInfo*>(this);
    if (id == IID_IProvideClassInfo) return static_cast<IProvideClassInfo*>(this);
    return nullptr;
  }

  // A message box lets other calls of the client in, its last Release too.
  ComPointer<_clsPublic> KeptAlive() noexcept { return ComPointer<_clsPublic>::Sharing(this); }

  static HRESULT ProvideTypeInfo(const GUID& id, ITypeInfo** info) noexcept {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    try {
      ComPointer<ITypeInfo> loaded = LoadTypeInfo(id);
      *info = loaded.get();
      (*info)->AddRef();
      return S_OK;
    } catch (...) {
      return CurrentFailure().result;
    }
  }

  template <class... Given>
  HRESULT CallTyped(std::size_t slot, void* returned, Given... given) noexcept {
    std::array<VARIANTARG, sizeof...(Given)> arguments = {Packed(given)...};
    return CallSlot(slot, returned, arguments);
  }

  HRESULT CallSlot(std::size_t slot, void* returned, std::span<VARIANTARG> given) noexcept {
    const MemberInfo& member = MemberTable()[slot];
    const std::size_t size = SizeOfResult(member.result);
    if (size > 0 && returned == nullptr) return E_POINTER;
    if (returned != nullptr) std::memset(returned, 0, size);
    std::array<VARIANTARG*, kMostParameters> arguments{};
    for (std::size_t i = 0; i < given.size(); ++i) {
      if (!Prepare(given[i], member.parameters[i], arguments[i])) return E_POINTER;
    }
    const auto alive = KeptAlive();
    OwnedVariant result;
    const auto failure =
        CallMember(component_, slot, {arguments.data(), given.size()}, LOCALE_USER_DEFAULT, result);
    if (failure) return ReportToVtable(*failure);
    VARIANT value = result.Release();
    if (returned != nullptr) {
      std::memcpy(returned, size == sizeof(VARIANT) ? static_cast<void*>(&value) : &value.byref,
                  size);
    }
    return S_OK;
  }

  // False for a null reference where one is required.
  static bool Prepare(VARIANTARG& given, const Parameter& parameter, VARIANTARG*& argument) {
    if (parameter.type == InterfaceType::Boolean) {
      given.vt = static_cast<VARTYPE>(VT_BOOL | (given.vt & VT_BYREF));
    }
    if ((given.vt & VT_BYREF) != 0 && given.byref == nullptr) return parameter.IsOptional();
    argument = &given;
    return true;
  }

  ModuleUse use_;
  clsPublic component_;
  LONG references_ = 1;
};

}  // namespace

HRESULT MakePublicObject(const IID& interface_id, void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  try {
    ComPointer<_clsPublic> made;
    *made.Receive() = new PublicObject;
    return made->QueryInterface(interface_id, object);
  } catch (...) {
    return CurrentFailure().result;
  }
}

}  // namespace vandpublic
