// Values on their way into a column.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_COLUMN_VALUES_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_COLUMN_VALUES_H

#include "platform/posix/ado/provider.h"

namespace vandpublic::ado {

bool IsBinary(DataType type) noexcept;
bool IsText(DataType type) noexcept;
// Text whose size is counted in 16-bit units rather than in characters.
bool IsWideText(DataType type) noexcept;

// A value as a Single; faults of the conversion, 6 for what is past its range.
float ToSingle(const Variant& value);

// The value as the type of variant that the column holds; the null value stays. Error 3421 where
// it does not fit. Whether a text is too long is left to the source.
Variant ToColumnValue(const Column& column, const Variant& value);

// The size that clients see of a value: bytes of an array, bytes or characters of a text, the
// column's size for other types, 0 for the null value.
Long ActualSizeOf(const Column& column, const Variant& value);

}  // namespace vandpublic::ado

#endif
