// Short ways to drive objects by name and to show values, for the database tests.
#ifndef VANDPUBLIC_TESTS_DB_BY_NAME_H
#define VANDPUBLIC_TESTS_DB_BY_NAME_H

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"
#include "runtime/object.h"
#include "runtime/variant.h"

namespace vandpublic::db_tests {

Variant Get(Object& object, std::string_view name);
void Set(Object& object, std::string_view name, Variant value);
Variant Call(Object& object, std::string_view name, std::vector<Variant> arguments = {});

FieldRef FieldOf(Recordset& rows, std::string_view name);
Variant Value(Recordset& rows, std::string_view name);

// A variant as a short text: "Long 5", "String abc", "Null", "bytes 0102FF".
std::string Shown(const Variant& value);

// Bytes that show when one is lost, doubled or moved.
std::vector<Byte> Pattern(std::size_t size);
std::string HexDigits(const std::vector<Byte>& bytes);

void WriteFile(const std::filesystem::path& file, const std::vector<Byte>& bytes);
std::string FileContent(const std::filesystem::path& file);

// What this process holds at the moment: open descriptors, and memory in KiB, which is what was
// allocated under AddressSanitizer and what is resident without it.
int OpenDescriptors();
long MemoryInUse();

}  // namespace vandpublic::db_tests

#endif
