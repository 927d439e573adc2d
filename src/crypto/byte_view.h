// Checked access to bytes by absolute subscript, for the cipher engines: over byte arrays of any
// lower bound at run time, over plain arrays at compile time.
#ifndef VANDPUBLIC_CRYPTO_BYTE_VIEW_H
#define VANDPUBLIC_CRYPTO_BYTE_VIEW_H

#include <cstddef>
#include <span>

#include "runtime/arrays.h"

namespace vandpublic {

// T is Byte or const Byte. A subscript outside the bounds is fault 9.
template <class T>
class BasicByteView {
 public:
  constexpr BasicByteView(std::span<T> elements, Long lower = 0)
      : elements_(elements), lower_(lower) {}

  constexpr T& operator[](Long subscript) const {
    const std::int64_t position = std::int64_t{subscript} - lower_;
    if (position < 0 || position >= static_cast<std::int64_t>(elements_.size())) {
      RaiseFault(FaultNumber::SubscriptOutOfRange);
    }
    return elements_[static_cast<std::size_t>(position)];
  }

 private:
  std::span<T> elements_;
  Long lower_;
};

using ByteView = BasicByteView<const Byte>;
using MutableByteView = BasicByteView<Byte>;

inline ByteView View(const ByteArray& array) { return {array.Elements(), array.LowerBound()}; }
inline MutableByteView View(ByteArray& array) { return {array.Elements(), array.LowerBound()}; }

}  // namespace vandpublic

#endif
