// The elements where they stand, in the order automation keeps them: the left subscript runs
// fastest there, the right one in our tables.
#include "com/byte_elements.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/windows/automation/automation_values.h"

namespace vandpublic {
namespace {

// Access to an array's elements, which stay where they are meanwhile.
class Elements {
 public:
  explicit Elements(SAFEARRAY* array) : array_(array) {
    Require(SafeArrayAccessData(array, &data_));
  }
  ~Elements() { SafeArrayUnaccessData(array_); }
  Elements(const Elements&) = delete;
  Elements& operator=(const Elements&) = delete;

  template <class T>
  T* As() const noexcept {
    return static_cast<T*>(data_);
  }

 private:
  SAFEARRAY* array_;
  void* data_ = nullptr;
};

ArrayBound BoundOf(SAFEARRAY* array, UINT dimension) {
  LONG lower = 0;
  LONG upper = 0;
  Require(SafeArrayGetLBound(array, dimension, &lower));
  Require(SafeArrayGetUBound(array, dimension, &upper));
  const std::int64_t count = std::int64_t{upper} - lower + 1;
  if (count > INT32_MAX || count < 0) throw Refused{DISP_E_OVERFLOW};
  return {lower, static_cast<Long>(count)};
}

VARTYPE ElementType(const ArgumentPlace& place) noexcept {
  return static_cast<VARTYPE>(place.Value().vt & ~VT_ARRAY);
}

Byte NumberIn(const VARIANT& element, LCID locale) {
  if (element.vt == VT_UI1) return element.bVal;
  return ChangedType(element, VT_UI1, locale).get().bVal;
}

// How many elements, and how the place of one of ours is found among theirs.
struct Layout {
  std::vector<ArrayBound> bounds;

  std::size_t Count() const noexcept {
    std::size_t count = 1;
    for (const ArrayBound& bound : bounds)
      count *= static_cast<std::size_t>(bound.count);
    return count;
  }
  std::size_t Theirs(std::size_t ours) const noexcept {
    if (bounds.size() == 1) return ours;
    const auto rows = static_cast<std::size_t>(bounds[0].count);
    const auto columns = static_cast<std::size_t>(bounds[1].count);
    return ours % columns * rows + ours / columns;
  }
};

Layout LayoutOf(SAFEARRAY* array) {
  Layout layout;
  const UINT dimensions = SafeArrayGetDim(array);
  if (dimensions != 1 && dimensions != 2) throw Refused{DISP_E_TYPEMISMATCH};
  for (UINT i = 1; i <= dimensions; ++i)
    layout.bounds.push_back(BoundOf(array, i));
  return layout;
}

// An array that was declared or erased, but never given storage, may have a descriptor all the
// same.
bool HasStorage(SAFEARRAY* array) {
  if (array == nullptr || SafeArrayGetDim(array) == 0) return false;
  return array->pvData != nullptr || LayoutOf(array).Count() == 0;
}

Layout LayoutOf(const Variant& bytes) {
  Layout layout;
  if (const ByteArray* array = bytes.AsByteArray()) layout.bounds = {array->Bound()};
  if (const ByteTable* table = bytes.AsByteTable())
    layout.bounds = {table->Rows(), table->Columns()};
  return layout;
}

bool HasStorage(const Variant& bytes) noexcept {
  if (const ByteArray* array = bytes.AsByteArray()) return array->IsDimensioned();
  const ByteTable* const table = bytes.AsByteTable();
  return table != nullptr && table->IsDimensioned();
}

std::span<const Byte> Ours(const Variant& bytes) noexcept {
  if (const ByteArray* array = bytes.AsByteArray()) return array->Elements();
  return bytes.AsByteTable()->Elements();
}

std::vector<Byte> ReadElements(SAFEARRAY* array, const Layout& layout, VARTYPE type, LCID locale) {
  const Elements elements(array);
  std::vector<Byte> bytes(layout.Count());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const std::size_t place = layout.Theirs(i);
    bytes[i] = type == VT_UI1 ? elements.As<Byte>()[place]
                              : NumberIn(elements.As<VARIANT>()[place], locale);
  }
  return bytes;
}

Variant Shaped(std::vector<Byte> bytes, const Layout& layout) {
  if (layout.bounds.size() == 1) return ByteArray(std::move(bytes), layout.bounds[0].lower);
  if (bytes.empty()) return ByteTable();
  ByteTable table(layout.bounds[0], layout.bounds[1]);
  std::copy(bytes.begin(), bytes.end(), table.Elements().begin());
  return table;
}

// An empty element counts as a 0 that was never written.
bool IsBehind(const VARIANT& element, Byte byte, LCID locale) {
  return element.vt == VT_EMPTY || NumberIn(element, locale) != byte;
}

void WriteElements(SAFEARRAY* array, std::span<const Byte> bytes, const Layout& layout,
                   VARTYPE type, LCID locale) {
  const Elements elements(array);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const std::size_t place = layout.Theirs(i);
    if (type == VT_UI1) {
      Byte& element = elements.As<Byte>()[place];
      if (element != bytes[i]) element = bytes[i];
      continue;
    }
    VARIANT& element = elements.As<VARIANT>()[place];
    if (!IsBehind(element, bytes[i], locale)) continue;
    Require(VariantClear(&element));
    element.vt = VT_UI1;
    element.bVal = bytes[i];
  }
}

SAFEARRAY* NewArray(const Layout& layout, VARTYPE type) {
  std::vector<SAFEARRAYBOUND> bounds;
  for (const ArrayBound& bound : layout.bounds)
    bounds.push_back({static_cast<ULONG>(bound.count), bound.lower});
  SAFEARRAY* const array = SafeArrayCreate(type, static_cast<UINT>(bounds.size()), bounds.data());
  if (array == nullptr) throw Refused{E_OUTOFMEMORY};
  return array;
}

}  // namespace

Variant ReadBytes(const ArgumentPlace& place, LCID locale) {
  if (place.Value().vt == VT_EMPTY) return {};
  const VARTYPE type = ElementType(place);
  const bool of_bytes = place.IsArray() && (type == VT_UI1 || type == VT_VARIANT);
  if (!of_bytes) throw Refused{DISP_E_TYPEMISMATCH};
  SAFEARRAY* const array = place.Array();
  if (!HasStorage(array)) return {};
  const Layout layout = LayoutOf(array);
  return Shaped(ReadElements(array, layout, type, locale), layout);
}

void WriteBytes(ArgumentPlace& place, const Variant& bytes, LCID locale) {
  const VARTYPE type = place.IsArray() ? ElementType(place) : VARTYPE{VT_UI1};
  if (!HasStorage(bytes)) {
    if (place.Array() != nullptr) place.ReplaceArray(nullptr, type);
    return;
  }
  const Layout layout = LayoutOf(bytes);
  SAFEARRAY* const array = place.Array();
  if (HasStorage(array) && LayoutOf(array).bounds == layout.bounds) {
    return WriteElements(array, Ours(bytes), layout, type, locale);
  }
  SAFEARRAY* const made = NewArray(layout, type);
  try {
    WriteElements(made, Ours(bytes), layout, type, locale);
  } catch (...) {
    SafeArrayDestroy(made);
    throw;
  }
  place.ReplaceArray(made, type);
}

}  // namespace vandpublic
