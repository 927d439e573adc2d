// The bytes of a table as the format's description has them, put together without our own code.
#include "db/made_table.h"

#include <array>

namespace vandpublic::db_tests {
namespace {

constexpr std::size_t kBackLink = 263;

std::string Number(unsigned value, int bytes) {
  std::string text;
  for (; bytes > 0; --bytes, value /= 256)
    text += static_cast<char>(value % 256);
  return text;
}

std::string Descriptor(const std::string& name, char type, unsigned offset, unsigned size,
                       int flags = 0) {
  std::string text = name + std::string(11 - name.size(), '\0');
  text += type;
  text += Number(offset, 4) + Number(size, 1) + std::string(1, '\0') + static_cast<char>(flags);
  return text + std::string(32 - text.size(), '\0');
}

}  // namespace

void MakeFoxProTable(const TempFolder& folder, const std::string& name, int rows) {
  constexpr std::array<const char*, 4> kNames = {"one", "two", "three", "four"};
  constexpr char kVisualFoxPro = '\x30';
  constexpr char kHasMemo = 2;
  constexpr char kWestern = 3;
  constexpr int kNullable = 2;
  constexpr int kSystem = 5;
  const std::string fields =
      Descriptor("ID", 'I', 1, 4) + Descriptor("NAME", 'C', 5, 20, kNullable) +
      Descriptor("PHOTO", 'G', 25, 4) + Descriptor("_NullFlags", '0', 29, 1, kSystem);
  const auto header_length = static_cast<unsigned>(32 + fields.size() + 1 + kBackLink);
  std::string table(1, kVisualFoxPro);
  table += std::string("\x18\x01\x01", 3) + Number(static_cast<unsigned>(rows), 4) +
           Number(header_length, 2) + Number(30, 2) + std::string(16, '\0') + kHasMemo + kWestern +
           std::string(2, '\0') + fields + '\r' + std::string(kBackLink, '\0');
  for (int i = 0; i < rows; ++i) {
    std::string text = kNames.at(static_cast<std::size_t>(i));
    table += ' ' + Number(static_cast<unsigned>(i + 1), 4);
    table += text + std::string(20 - text.size(), ' ') + Number(0, 5);
  }
  table += '\x1A';
  folder.Write(name + ".dbf", table);
  // The next free block, two bytes of nothing, blocks of 64 bytes; all of it big-endian.
  std::string memo("\0\0\0\x08\0\0\0\x40", 8);
  folder.Write(name + ".fpt", memo + std::string(512 - memo.size(), '\0'));
}

}  // namespace vandpublic::db_tests
