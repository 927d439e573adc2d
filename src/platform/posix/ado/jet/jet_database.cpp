// The catalog: a table of tables at a fixed page.
#include "platform/posix/ado/jet/jet_database.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/posix/ado/jet/jet_errors.h"
#include "platform/posix/ado/jet/jet_file.h"
#include "platform/posix/ado/jet/jet_table.h"
#include "runtime/object.h"
#include "runtime/utf8.h"

namespace vandpublic::ado {
namespace {

constexpr std::uint32_t kCatalogPage = 2;

// Kinds of objects in the catalog.
constexpr Integer kTable = 1;
constexpr Integer kLinkedOdbcTable = 4;
constexpr Integer kQuery = 5;
constexpr Integer kLinkedTable = 6;

// Flags of tables that Jet keeps for itself.
constexpr std::uint32_t kSystemFlags = 0x80000002;
constexpr std::uint32_t kPageMask = 0x00FFFFFF;

std::size_t ColumnIndex(const FileTable& table, std::string_view name) {
  const auto& columns = table.Columns();
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [name](const TableColumn& c) { return SameName(c.name, name); });
  if (found == columns.end()) RaiseDamaged("the catalog");
  return static_cast<std::size_t>(found - columns.begin());
}

// 0 where the catalog holds no number of the type.
template <class T>
T NumberOf(const Variant& value) {
  const T* const number = value.Get<T>();
  return number == nullptr ? T{} : *number;
}

[[noreturn]] void RaiseUnsupported(Integer kind, std::string_view name) {
  const char* const what = kind == kQuery ? "Saved queries" : "Linked tables";
  RaiseJet(SourceError::Failed,
           std::string(what) + " are not supported: '" + std::string(name) + "'.");
}

}  // namespace

JetDatabase::JetDatabase(std::string native_path, std::u16string_view password,
                         std::shared_ptr<const CodePage> ansi)
    : path_(std::move(native_path)), ansi_(std::move(ansi)) {
  const JetFile file(path_, ansi_);
  if (!PasswordFits(file.header(), password, file.code_page())) {
    RaiseJet(SourceError::LogInFailed, "Not a valid password.");
  }
}

std::shared_ptr<FileTable> JetDatabase::Open(std::string_view name) {
  auto file = std::make_shared<const JetFile>(path_, ansi_);
  JetTable catalog(file, kCatalogPage);
  const std::size_t id_column = ColumnIndex(catalog, "Id");
  const std::size_t name_column = ColumnIndex(catalog, "Name");
  const std::size_t type_column = ColumnIndex(catalog, "Type");
  const std::size_t flags_column = ColumnIndex(catalog, "Flags");
  const auto scan = catalog.Scan();
  while (scan->Next()) {
    const Variant found_name = scan->Value(name_column);
    const auto* const text = found_name.Get<String>();
    if (text == nullptr || !SameName(text->ToUtf8(), name)) continue;
    const auto kind = NumberOf<Integer>(scan->Value(type_column));
    if (kind == kQuery || kind == kLinkedTable || kind == kLinkedOdbcTable) {
      RaiseUnsupported(kind, name);
    }
    const auto flags = static_cast<std::uint32_t>(NumberOf<Long>(scan->Value(flags_column)));
    if (kind != kTable || (flags & kSystemFlags) != 0) continue;
    const auto id = static_cast<std::uint32_t>(NumberOf<Long>(scan->Value(id_column)));
    return std::make_shared<JetTable>(file, id & kPageMask);
  }
  return nullptr;
}

}  // namespace vandpublic::ado
