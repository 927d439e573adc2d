// Rows: count of columns, fixed-length values, variable-length values, list of their places (from
// the last to the first), null mask.
#include "platform/posix/ado/jet/jet_row.h"

#include <algorithm>

#include "platform/posix/ado/jet/jet_errors.h"
#include "platform/posix/ado/sql/byte_order.h"

namespace vandpublic::ado {

JetRow::JetRow(std::string_view bytes, const JetDefinition& definition, bool is_jet4)
    : bytes_(bytes), is_jet4_(is_jet4) {
  const std::size_t count_size = is_jet4_ ? 2 : 1;
  if (bytes_.size() < count_size) RaiseDamaged("a row");
  column_count_ = is_jet4_ ? LittleEndian<std::uint16_t>(bytes_) : ByteAt(0);
  mask_size_ = (column_count_ + 7) / 8;
  if (count_size + mask_size_ > bytes_.size()) RaiseDamaged("a row");
  if (!definition.has_variable_columns) return;
  if (is_jet4_) {
    ReadOffsetsJet4();
  } else {
    ReadOffsetsJet3();
  }
}

std::size_t JetRow::ByteAt(std::size_t position) const {
  if (position >= bytes_.size()) RaiseDamaged("a row");
  return static_cast<std::uint8_t>(bytes_[position]);
}

void JetRow::ReadOffsetsJet4() {
  const std::size_t end = bytes_.size() - mask_size_;
  if (end < 4) RaiseDamaged("a row");
  const std::size_t count = LittleEndian<std::uint16_t>(bytes_, end - 2);
  if (4 + count * 2 > end) RaiseDamaged("a row");
  for (std::size_t i = 0; i <= count; ++i) {
    offsets_.push_back(LittleEndian<std::uint16_t>(bytes_, end - 4 - i * 2));
  }
}

// Offsets are single bytes. The jump table tells from which value on 256 is to be added, once for
// each of its entries; it may have an entry too many.
void JetRow::ReadOffsetsJet3() {
  const std::size_t end = bytes_.size() - mask_size_;
  if (end < 2) RaiseDamaged("a row");
  const std::size_t count = ByteAt(end - 1);
  std::size_t jumps = (bytes_.size() - 1) / 256;
  if (end < 2 + jumps + count + 1) RaiseDamaged("a row");
  const std::size_t first = end - 2 - jumps;  // of the first value
  if ((first - count) / 256 < jumps) --jumps;
  std::size_t used = 0;
  for (std::size_t i = 0; i <= count; ++i) {
    while (used < jumps && ByteAt(end - 2 - used) == i)
      ++used;
    offsets_.push_back(ByteAt(first - i) + used * 256);
  }
}

bool JetRow::HasValue(const JetColumn& column) const noexcept {
  if (column.number >= column_count_) return false;
  const std::size_t position = bytes_.size() - mask_size_ + column.number / 8;
  return (static_cast<std::uint8_t>(bytes_[position]) >> (column.number % 8) & 1) != 0;
}

std::optional<std::string_view> JetRow::Bytes(const JetColumn& column) const {
  if (!HasValue(column)) return std::nullopt;
  const std::size_t limit = bytes_.size() - mask_size_;
  if (column.is_fixed) {
    const std::size_t start = column.fixed_offset + (is_jet4_ ? 2u : 1u);
    if (start > limit || column.size > limit - start) RaiseDamaged("a value of a row");
    return bytes_.substr(start, column.size);
  }
  // A column that was added after the row was written.
  if (column.variable_index + 1 >= offsets_.size()) return std::nullopt;
  const std::size_t start = offsets_[column.variable_index];
  const std::size_t end = offsets_[column.variable_index + 1];
  if (start > end || end > limit) RaiseDamaged("a value of a row");
  return bytes_.substr(start, end - start);
}

}  // namespace vandpublic::ado
