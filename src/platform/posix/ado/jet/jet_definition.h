// Table definitions: the columns of a table, and the pages that hold its rows.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_JET_JET_DEFINITION_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_JET_JET_DEFINITION_H

#include <cstdint>
#include <string>
#include <vector>

#include "platform/posix/ado/jet/jet_file.h"

namespace vandpublic::ado {

// Type codes of columns.
enum class JetType : std::uint8_t {
  Boolean = 1,
  Byte = 2,
  Integer = 3,
  Long = 4,
  Currency = 5,
  Single = 6,
  Double = 7,
  Date = 8,
  Binary = 9,
  Text = 10,
  Ole = 11,
  Memo = 12,
  Guid = 15,
  Numeric = 16,
};

struct JetColumn {
  std::string name;  // UTF-8
  JetType type = JetType::Text;
  std::uint32_t number = 0;  // among all columns that the table ever had: its bit of the null mask
  std::uint32_t variable_index = 0;  // in a row's list of variable-length values
  std::uint32_t fixed_offset = 0;    // behind a row's count of columns
  std::uint32_t size = 0;            // bytes
  std::uint8_t scale = 0;            // of Numeric
  std::uint8_t precision = 0;
  bool is_fixed = false;
};

struct JetDefinition {
  std::uint32_t page = 0;  // where it begins; rows name it as their owner
  bool has_variable_columns = false;
  std::vector<JetColumn> columns;         // in their order, deleted ones left out
  std::vector<std::uint32_t> data_pages;  // ascending, each inside the file
};

JetDefinition ReadJetDefinition(const JetFile& file, std::uint32_t page);

// Text as Jet 4 stores it: UTF-16, from FF FE on with the zero bytes of Latin-1 characters left
// out.
std::u16string DecodeJet4Text(std::string_view bytes);

}  // namespace vandpublic::ado

#endif
