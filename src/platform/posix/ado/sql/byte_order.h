// Numbers as files store them, in either byte order, on any machine.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_BYTE_ORDER_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_BYTE_ORDER_H

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vandpublic::ado {

// The unsigned integer whose first byte, the lowest one, stands at the position. The caller has
// checked that the bytes are there.
template <std::unsigned_integral T>
T LittleEndian(std::string_view bytes, std::size_t position = 0) noexcept {
  T value = 0;
  for (std::size_t i = 0; i < sizeof(T); ++i) {
    const auto byte = static_cast<std::uint8_t>(bytes[position + i]);
    value = static_cast<T>(value | static_cast<T>(static_cast<T>(byte) << (8 * i)));
  }
  return value;
}

// The same with the highest byte first.
template <std::unsigned_integral T>
T BigEndian(std::string_view bytes, std::size_t position = 0) noexcept {
  T value = 0;
  for (std::size_t i = 0; i < sizeof(T); ++i) {
    const auto byte = static_cast<std::uint8_t>(bytes[position + i]);
    value =
        static_cast<T>(value | static_cast<T>(static_cast<T>(byte) << (8 * (sizeof(T) - 1 - i))));
  }
  return value;
}

inline double LittleEndianDouble(std::string_view bytes, std::size_t position = 0) noexcept {
  return std::bit_cast<double>(LittleEndian<std::uint64_t>(bytes, position));
}

inline float LittleEndianSingle(std::string_view bytes, std::size_t position = 0) noexcept {
  return std::bit_cast<float>(LittleEndian<std::uint32_t>(bytes, position));
}

// Writes the integer to bytes of its size.
template <std::unsigned_integral T>
void PutLittleEndian(T value, char* bytes) noexcept {
  for (std::size_t i = 0; i < sizeof(T); ++i)
    bytes[i] = static_cast<char>(value >> (8 * i) & 0xFF);
}

template <std::unsigned_integral T>
void PutBigEndian(T value, char* bytes) noexcept {
  for (std::size_t i = 0; i < sizeof(T); ++i) {
    bytes[sizeof(T) - 1 - i] = static_cast<char>(value >> (8 * i) & 0xFF);
  }
}

}  // namespace vandpublic::ado

#endif
