// The helpers of the database tests.
#include "db/by_name.h"

#include <fstream>
#include <iterator>

#include "runtime/coerce.h"
#include "runtime/utf8.h"

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // NOLINT: the sanitizer's name
#endif

namespace vandpublic::db_tests {

Variant Get(Object& object, std::string_view name) { return object.Get(name, {}); }

void Set(Object& object, std::string_view name, Variant value) { object.Set(name, value); }

Variant Call(Object& object, std::string_view name, std::vector<Variant> arguments) {
  return object.Call(name, arguments);
}

std::string Shown(const Variant& value) {
  switch (value.Type()) {
    case VarType::Empty:
      return "Empty";
    case VarType::Null:
      return "Null";
    case VarType::Integer:
      return "Integer " + ToText(value).ToUtf8();
    case VarType::Long:
      return "Long " + ToText(value).ToUtf8();
    case VarType::Single:
      return "Single " + ToText(value).ToUtf8();
    case VarType::Double:
      return "Double " + ToText(value).ToUtf8();
    case VarType::Currency:
      return "Currency " + ToText(value).ToUtf8();
    case VarType::Date:
      return "Date " + ToText(value).ToUtf8();
    case VarType::String:
      return "String " + ToText(value).ToUtf8();
    case VarType::Boolean:
      return "Boolean " + ToText(value).ToUtf8();
    case VarType::Decimal:
      return "Decimal " + ToText(value).ToUtf8();
    case VarType::ByteArray: {
      const auto elements = value.AsByteArray()->Elements();
      return "bytes " + HexDigits({elements.begin(), elements.end()});
    }
    default:
      return "another type";
  }
}

FieldRef FieldOf(Recordset& rows, std::string_view name) {
  return rows.GetFields()->GetItem(FromUtf8(name));
}

Variant Value(Recordset& rows, std::string_view name) { return FieldOf(rows, name)->GetValue(); }

std::vector<Byte> Pattern(std::size_t size) {
  std::vector<Byte> bytes(size);
  for (std::size_t i = 0; i < size; ++i)
    bytes[i] = static_cast<Byte>(i * 7 + i / 251);
  return bytes;
}

std::string HexDigits(const std::vector<Byte>& bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  text.reserve(2 * bytes.size());
  for (const Byte byte : bytes) {
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

void WriteFile(const std::filesystem::path& file, const std::vector<Byte>& bytes) {
  std::ofstream(file, std::ios::binary) << std::string(bytes.begin(), bytes.end());
}

std::string FileContent(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

int OpenDescriptors() {
  int count = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
    ++count;
  return count;
}

long MemoryInUse() {
#ifdef __SANITIZE_ADDRESS__
  return static_cast<long>(__sanitizer_get_current_allocated_bytes() / 1024);
#else
  std::ifstream file("/proc/self/statm");
  long total = 0;
  long resident = 0;
  file >> total >> resident;
  return resident * 4;
#endif
}

}  // namespace vandpublic::db_tests
