// Creation and redimensioning of the interface's arrays.
#include "runtime/arrays.h"

#include <utility>

#include "runtime/checked.h"

namespace vandpublic {
namespace {

// A guard against sizes that only a mistake asks for; the interface's arrays are small.
constexpr std::int64_t kLargestElementCount = 0x7FFFFFFF;

std::size_t ElementCount(Long lower, Long upper) {
  const std::int64_t count = std::int64_t{upper} - lower + 1;
  if (count < 1) RaiseFault(FaultNumber::SubscriptOutOfRange);
  if (count > kLargestElementCount) RaiseFault(FaultNumber::OutOfMemory);
  return static_cast<std::size_t>(count);
}

}  // namespace

ByteArray::ByteArray(std::vector<Byte> bytes, Long lower)
    : bytes_(std::move(bytes)), lower_(lower), dimensioned_(true) {
  const auto last_position = static_cast<std::int64_t>(bytes_.size()) - 1;
  if (last_position > 0) CheckedCast<Long>(lower + last_position);
}

ByteArray ByteArray::WithBounds(Long lower, Long upper) {
  ByteArray array;
  array.Redimension(lower, upper);
  return array;
}

void ByteArray::Redimension(Long lower, Long upper) {
  bytes_ = std::vector<Byte>(ElementCount(lower, upper));
  lower_ = lower;
  dimensioned_ = true;
}

void ByteArray::RedimensionPreserving(Long upper) {
  bytes_.resize(ElementCount(lower_, upper));
  dimensioned_ = true;
}

void ByteArray::Erase() noexcept { *this = ByteArray(); }

ByteTable::ByteTable(ArrayBound rows, ArrayBound columns) : rows_(rows), columns_(columns) {
  if (rows.count < 1 || columns.count < 1) RaiseFault(FaultNumber::SubscriptOutOfRange);
  const std::int64_t count = std::int64_t{rows.count} * columns.count;
  if (count > kLargestElementCount) RaiseFault(FaultNumber::OutOfMemory);
  bytes_.resize(static_cast<std::size_t>(count));
}

}  // namespace vandpublic
