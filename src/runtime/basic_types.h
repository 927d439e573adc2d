// The scalar types of the automation interface under their classic names.
#ifndef VANDPUBLIC_RUNTIME_BASIC_TYPES_H
#define VANDPUBLIC_RUNTIME_BASIC_TYPES_H

#include <cstdint>

// Marks what the shared library exports; everything else is hidden.
#if defined(_WIN32)
#define VANDPUBLIC_API
#else
#define VANDPUBLIC_API __attribute__((visibility("default")))
#endif

namespace vandpublic {

using Byte = std::uint8_t;
using Integer = std::int16_t;
using Long = std::int32_t;
using Boolean = bool;  // crosses COM as the 16-bit values -1 and 0

}  // namespace vandpublic

#endif
