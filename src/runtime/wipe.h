// Overwriting key material, with stores that the compiler cannot drop.
#ifndef VANDPUBLIC_RUNTIME_WIPE_H
#define VANDPUBLIC_RUNTIME_WIPE_H

#include <cstddef>
#include <ranges>
#include <type_traits>

#include "arrays.h"
#include "string_value.h"

namespace vandpublic {

// Zeros, also where nothing reads the memory again.
void WipeMemory(void* memory, std::size_t size) noexcept;

// Overwrites a container's elements when it leaves scope, on every way out. The container must be
// declared before. At compile time there is nothing to hide.
//
//   std::array<Byte, 56> registers{};
//   const WipeOnExit wipe(registers);
template <std::ranges::contiguous_range Range>
class WipeOnExit {
 public:
  constexpr explicit WipeOnExit(Range& range) noexcept : range_(range) {}
  WipeOnExit(const WipeOnExit&) = delete;
  WipeOnExit& operator=(const WipeOnExit&) = delete;
  constexpr ~WipeOnExit() {
    if (std::is_constant_evaluated()) return;
    using Element = std::ranges::range_value_t<Range>;
    WipeMemory(std::ranges::data(range_), std::ranges::size(range_) * sizeof(Element));
  }

 private:
  Range& range_;
};

// A byte array whose elements are overwritten before they are given up: also when it is
// redimensioned through it.
class WipedByteArray {
 public:
  WipedByteArray() = default;
  explicit WipedByteArray(ByteArray array) noexcept : array_(std::move(array)) {}
  WipedByteArray(const WipedByteArray&) = delete;
  WipedByteArray& operator=(const WipedByteArray&) = delete;
  ~WipedByteArray() { Wipe(); }

  ByteArray& operator*() noexcept { return array_; }
  ByteArray* operator->() noexcept { return &array_; }

  // As the array's own operations of these names.
  void Redimension(Long lower, Long upper);
  void RedimensionPreserving(Long upper);

 private:
  void Wipe() noexcept { WipeMemory(array_.Elements().data(), array_.Elements().size()); }

  ByteArray array_;
};

// A text whose units are overwritten when it leaves scope.
class WipedString {
 public:
  explicit WipedString(String text) noexcept : text_(std::move(text)) {}
  WipedString(const WipedString&) = delete;
  WipedString& operator=(const WipedString&) = delete;
  ~WipedString() {
    text_.EditUnits([](std::u16string& units) { WipeMemory(units.data(), 2 * units.capacity()); });
  }

  String& operator*() noexcept { return text_; }

 private:
  String text_;
};

}  // namespace vandpublic

#endif
