// The values of a row, found in its bytes.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_JET_JET_ROW_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_JET_JET_ROW_H

#include <optional>
#include <string_view>
#include <vector>

#include "platform/posix/ado/jet/jet_definition.h"
#include "runtime/variant.h"

namespace vandpublic::ado {

// The parts of one row. Everything it gives lies inside the row, or is an error.
class JetRow {
 public:
  // Of a file of the kind that the header tells. The bytes must outlive it.
  JetRow(std::string_view bytes, const JetDefinition& definition, bool is_jet4);

  // The null mask's bit of the column; also the value of a Boolean.
  bool HasValue(const JetColumn& column) const noexcept;
  // The bytes of the value; nothing for a null value.
  std::optional<std::string_view> Bytes(const JetColumn& column) const;

 private:
  void ReadOffsetsJet3();
  void ReadOffsetsJet4();
  std::size_t ByteAt(std::size_t position) const;

  std::string_view bytes_;
  bool is_jet4_;
  std::size_t column_count_ = 0;  // that the row has; columns added later are null in it
  std::size_t mask_size_ = 0;
  std::vector<std::size_t> offsets_;  // of the variable-length values, and the end of the last
};

// A value of the row as the column's type has it. Memos are followed through their pages.
Variant JetValue(const JetFile& file, const JetRow& row, const JetColumn& column);

}  // namespace vandpublic::ado

#endif
