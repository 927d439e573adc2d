// The header of a dBASE or FoxPro table: what its records are made of.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_DBF_LAYOUT_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_DBF_LAYOUT_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/code_page.h"

namespace vandpublic::ado {

// Where a table keeps its memo texts.
enum class MemoKind {
  None,
  Dbase3,  // .dbt, blocks of 512 bytes up to an end mark
  Dbase4,  // .dbt, blocks with a length
  FoxPro,  // .fpt
};

struct DbfField {
  std::string name;        // UTF-8, unique in the table
  char type = 'C';         // the letter in the file
  std::size_t offset = 0;  // in the record, whose byte 0 is the deletion mark
  std::size_t size = 0;
  int decimals = 0;            // of N and F
  bool binary = false;         // bytes, not text
  bool autoincrement = false;  // numbered by the program that adds the row
  // Bits of the table's null flags: the value is null; the value is shorter than the field.
  std::optional<std::size_t> null_bit;
  std::optional<std::size_t> length_bit;
};

struct DbfLayout {
  std::uint32_t record_count = 0;
  std::size_t header_length = 0;
  std::size_t record_length = 0;
  MemoKind memo = MemoKind::None;
  bool visual_foxpro = false;
  bool has_index = false;  // an index file that must be kept up to date goes with the table
  std::uint8_t code_page_mark = 0;
  std::vector<DbfField> fields;  // hidden system fields left out
  std::size_t null_flags_offset = 0;
  std::size_t null_flags_size = 0;  // 0: the table has none
};

// The most bytes that a header has.
inline constexpr std::size_t kMaxDbfHeader = 65535;

// Reads the code page mark of a header, 0 where it is too short.
std::uint8_t CodePageMark(std::string_view header) noexcept;

// Reads and checks a header. `header` is the beginning of the file, as much as there is up to
// kMaxDbfHeader bytes; names of fields are in the code page. Every field lies inside the record,
// and every record inside the file. Anything else, and dBASE 2 and 7, is "Not a table.".
DbfLayout ReadDbfLayout(std::string_view file_name, std::string_view header,
                        std::uint64_t file_size, const CodePage& code_page);

}  // namespace vandpublic::ado

#endif
