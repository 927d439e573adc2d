// Following references, and writing through them.
#include "com/argument_place.h"

#include <cstddef>
#include <cstring>

namespace vandpublic {
namespace {

// A variant may refer to a variant; more levels than this are a circle.
constexpr int kMostLevels = 8;

// In bytes; 0 for unknown types, and for a decimal number, which fills a variant wholly.
std::size_t SizeOf(VARTYPE type) noexcept {
  if ((type & VT_ARRAY) != 0) return sizeof(SAFEARRAY*);
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      return 8;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return sizeof(void*);
    default:
      return 0;
  }
}

bool OwnsMemory(VARTYPE type) noexcept {
  return (type & VT_ARRAY) != 0 || type == VT_BSTR || type == VT_DISPATCH || type == VT_UNKNOWN;
}

// The value at an address, its ownership staying there.
VARIANT Shallow(VARTYPE type, const void* data) noexcept {
  VARIANT value;
  VariantInit(&value);
  if (type == VT_DECIMAL) {
    std::memcpy(&value.decVal, data, sizeof(DECIMAL));
  } else {
    std::memcpy(&value.byref, data, SizeOf(type));
  }
  value.vt = type;
  return value;
}

}  // namespace

void Require(HRESULT result) {
  if (FAILED(result)) throw Refused{result};
}

OwnedVariant ChangedType(const VARIANT& value, VARTYPE type, LCID locale) {
  OwnedVariant changed;
  VARIANT source = value;  // the function wants it writable, and leaves it as it is
  Require(VariantChangeTypeEx(changed.Receive(), &source, locale, 0, type));
  return changed;
}

ArgumentPlace::ArgumentPlace(VARIANTARG& given) : variant_(&given) {
  for (int level = 0; variant_->vt == (VT_BYREF | VT_VARIANT); ++level) {
    variant_ = variant_->pvarVal;
    writable_ = true;
    if (variant_ == nullptr) throw Refused{E_POINTER};
    if (level == kMostLevels) throw Refused{DISP_E_TYPEMISMATCH};
  }
  if ((variant_->vt & VT_BYREF) == 0) return;
  type_ = static_cast<VARTYPE>(variant_->vt & ~VT_BYREF);
  data_ = variant_->byref;
  variant_ = nullptr;
  writable_ = true;
  if (data_ == nullptr) throw Refused{E_POINTER};
  if (type_ != VT_DECIMAL && SizeOf(type_) == 0) throw Refused{DISP_E_TYPEMISMATCH};
}

bool ArgumentPlace::IsMissing() const noexcept {
  const VARIANT value = Value();
  return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
}

VARIANT ArgumentPlace::Value() const noexcept {
  return variant_ != nullptr ? *variant_ : Shallow(type_, data_);
}

const void* ArgumentPlace::Address() const noexcept {
  return variant_ != nullptr ? static_cast<const void*>(variant_) : data_;
}

SAFEARRAY* ArgumentPlace::Array() const noexcept { return IsArray() ? Value().parray : nullptr; }

void ArgumentPlace::ReplaceArray(SAFEARRAY* array, VARTYPE element_type) {
  SAFEARRAY* const old = Array();
  constexpr USHORT kFixed = FADF_AUTO | FADF_STATIC | FADF_EMBEDDED | FADF_FIXEDSIZE;
  HRESULT result = S_OK;
  if (old != nullptr && ((old->fFeatures & kFixed) != 0 || old->cLocks > 0)) {
    result = DISP_E_ARRAYISLOCKED;
  } else if (old != nullptr) {
    result = SafeArrayDestroy(old);
  }
  if (FAILED(result)) {
    if (array != nullptr) SafeArrayDestroy(array);
    throw Refused{result};
  }
  if (variant_ == nullptr) {
    std::memcpy(data_, static_cast<void*>(&array), sizeof array);
    return;
  }
  variant_->vt = static_cast<VARTYPE>(VT_ARRAY | element_type);
  variant_->parray = array;
}

void ArgumentPlace::Store(OwnedVariant value, LCID locale) {
  if (variant_ != nullptr) {
    Require(VariantClear(variant_));
    *variant_ = value.Release();
  } else if (value.get().vt == type_) {
    StoreTyped(std::move(value));
  } else {
    StoreTyped(ChangedType(value.get(), type_, locale));
  }
}

void ArgumentPlace::StoreTyped(OwnedVariant value) {
  if (OwnsMemory(type_)) {
    VARIANT old = Shallow(type_, data_);
    Require(VariantClear(&old));
  }
  VARIANT given = value.Release();
  if (type_ == VT_DECIMAL) {
    given.decVal.wReserved = 0;
    std::memcpy(data_, &given.decVal, sizeof(DECIMAL));
  } else {
    std::memcpy(data_, &given.byref, SizeOf(type_));
  }
}

}  // namespace vandpublic
