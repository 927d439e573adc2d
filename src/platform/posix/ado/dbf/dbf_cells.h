// The values of records, from and to the bytes that the format keeps them as.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_DBF_CELLS_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_DBF_CELLS_H

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/code_page.h"
#include "platform/posix/ado/dbf/dbf_layout.h"
#include "platform/posix/ado/sql/file_table.h"
#include "runtime/variant.h"

namespace vandpublic::ado {

// What the field is for clients. N and F are doubles whatever their width, the precision that the
// programs of this format calculate with.
TableColumn ColumnOf(const DbfField& field);

// Whether the record holds no more than the number of a block in the memo file.
bool IsMemo(const DbfField& field) noexcept;

// Bit of the null flags in a record.
bool NullFlag(const DbfLayout& layout, std::string_view record, std::size_t bit) noexcept;
void SetNullFlag(const DbfLayout& layout, std::string& record, std::size_t bit,
                 bool value) noexcept;

// The value of a field that is no memo. Blank fields are 0, False, 30 December 1899: the format
// has no empty values. Text is padded to the width of its field. Bytes that are no value of the
// type are an error, which names the field.
Variant DecodeCell(const DbfLayout& layout, const DbfField& field, std::string_view record,
                   const CodePage& code_page);

// The number of a memo's first block; 0 for an empty memo.
std::uint32_t MemoBlock(const DbfField& field, std::string_view record);

// Content of a memo as a value.
Variant DecodeMemo(const DbfField& field, std::string_view content, const CodePage& code_page);

// Stores a value in the record, converted to the field's type as automation converts it; the
// null value only in a field that may be null. Nothing is changed when it throws.
void EncodeCell(const DbfLayout& layout, const DbfField& field, const Variant& value,
                const CodePage& code_page, std::string& record);

// The bytes that a value makes in the memo file.
std::string EncodeMemo(const DbfField& field, const Variant& value, const CodePage& code_page);

void PutMemoBlock(const DbfField& field, std::uint32_t block, std::string& record);

}  // namespace vandpublic::ado

#endif
