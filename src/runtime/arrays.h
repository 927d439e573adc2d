// The arrays that cross the interface: byte arrays of one dimension with a lower bound of their
// own, byte arrays of two dimensions, and arrays of any type, of which only the bounds matter.
#ifndef VANDPUBLIC_RUNTIME_ARRAYS_H
#define VANDPUBLIC_RUNTIME_ARRAYS_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

#include "basic_types.h"
#include "errors.h"

namespace vandpublic {

// One dimension: subscripts lower to lower + count - 1.
struct ArrayBound {
  Long lower = 0;
  Long count = 0;

  bool operator==(const ArrayBound&) const = default;
  // Where a subscript stands, counted from 0; fault 9 outside the bounds.
  std::size_t Position(std::int64_t subscript) const {
    const std::int64_t position = subscript - lower;
    if (position < 0 || position >= count) RaiseFault(FaultNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(position);
  }
};

// A one-dimensional array of bytes. A new one has no storage: it is "not dimensioned", and every
// subscript of it is fault 9. Subscripts are absolute: they respect the lower bound.
//
//   ByteArray key = {0x01, 0x23, 0x45};   // subscripts 0 to 2
//   ByteArray result = ByteArray::WithBounds(0, 7);
class VANDPUBLIC_API ByteArray {
 public:
  ByteArray() = default;
  ByteArray(std::initializer_list<Byte> bytes) : ByteArray(std::vector<Byte>(bytes)) {}
  // lower + bytes.size() - 1 must not pass 2147483647 (fault 6).
  explicit ByteArray(std::vector<Byte> bytes, Long lower = 0);
  // Zero bytes with subscripts lower to upper; fault 9 when upper is below lower.
  static ByteArray WithBounds(Long lower, Long upper);

  bool IsDimensioned() const noexcept { return dimensioned_; }
  // The number of elements: 0 when not dimensioned, and in the zero-element arrays that script
  // engines make (bounds 0 to -1).
  Long Count() const noexcept { return static_cast<Long>(bytes_.size()); }
  Long LowerBound() const noexcept { return lower_; }
  ArrayBound Bound() const noexcept { return {lower_, Count()}; }

  // The element at an absolute subscript; fault 9 outside the array.
  Byte& At(std::int64_t subscript) { return bytes_[Bound().Position(subscript)]; }
  Byte At(std::int64_t subscript) const { return bytes_[Bound().Position(subscript)]; }

  // New storage of zero bytes with subscripts lower to upper; fault 9, and the array as it was,
  // when upper is below lower.
  void Redimension(Long lower, Long upper);
  // The same, keeping the elements that both have. The lower bound stays.
  void RedimensionPreserving(Long upper);
  // Back to "not dimensioned".
  void Erase() noexcept;

  std::span<Byte> Elements() noexcept { return bytes_; }
  std::span<const Byte> Elements() const noexcept { return bytes_; }

  bool operator==(const ByteArray&) const = default;

 private:
  std::vector<Byte> bytes_;
  Long lower_ = 0;
  bool dimensioned_ = false;
};

// A two-dimensional array of bytes, last subscript running fastest.
class VANDPUBLIC_API ByteTable {
 public:
  ByteTable() = default;
  // Zero bytes; fault 9 for a dimension with fewer than one element, 7 when it would be too large.
  ByteTable(ArrayBound rows, ArrayBound columns);

  bool IsDimensioned() const noexcept { return !bytes_.empty(); }
  ArrayBound Rows() const noexcept { return rows_; }
  ArrayBound Columns() const noexcept { return columns_; }
  // Fault 9 outside the table.
  Byte& At(std::int64_t row, std::int64_t column) { return bytes_[Position(row, column)]; }
  Byte At(std::int64_t row, std::int64_t column) const { return bytes_[Position(row, column)]; }

  std::span<Byte> Elements() noexcept { return bytes_; }
  std::span<const Byte> Elements() const noexcept { return bytes_; }

  bool operator==(const ByteTable&) const = default;

 private:
  std::size_t Position(std::int64_t row, std::int64_t column) const {
    return rows_.Position(row) * static_cast<std::size_t>(columns_.count) +
           columns_.Position(column);
  }

  ArrayBound rows_;
  ArrayBound columns_;
  std::vector<Byte> bytes_;
};

// The bounds of an array whose elements the component never reads. No bounds: not dimensioned.
struct ArrayShape {
  std::uint16_t element_type = 12;  // variant type code of the elements
  std::vector<ArrayBound> bounds;

  bool operator==(const ArrayShape&) const = default;
};

}  // namespace vandpublic

#endif
