// Long values in pieces.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_CHUNKS_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_CHUNKS_H

#include <cstddef>

#include "platform/posix/ado/provider.h"

namespace vandpublic::ado {

// 3001 unless the data is the null value, an array of bytes for a binary column, or a text for a
// text column.
void RequireChunk(const Column& column, const Variant& data);

// Appends the data to the content; the null value empties it.
void AddChunk(Variant& content, const Variant& data);

// Up to `size` bytes or characters of the content from the offset on, which moves behind them; the
// null value when there are none.
Variant TakeChunk(const Variant& content, std::size_t& offset, std::size_t size);

}  // namespace vandpublic::ado

#endif
