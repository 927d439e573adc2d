// Looking up the files of a table.
#include "platform/posix/ado/dbf/dbf_folder.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>
#include <vector>

#include "platform/posix/ado/dbf/dbf_errors.h"
#include "runtime/object.h"

namespace vandpublic::ado {
namespace {

// Index files that programs keep under the table's name.
constexpr std::array<std::string_view, 5> kIndexEndings = {".cdx", ".mdx", ".idx", ".ndx", ".ntx"};

// The name that is the wanted one but for letter case, an exactly equal one before others; empty
// when there is none.
std::string FindName(const std::vector<std::string>& names, const std::string& wanted) {
  std::string found;
  for (const std::string& name : names) {
    if (name == wanted) return name;
    if (SameName(name, wanted)) found = name;
  }
  return found;
}

}  // namespace

DbfFolder::DbfFolder(std::string native_path, DbfSettings settings)
    : path_(std::move(native_path)), settings_(std::move(settings)) {
  std::error_code error;
  if (!std::filesystem::is_directory(path_, error)) {
    RaiseDbf(SourceError::Failed, "Invalid path or file name: '" + path_ + "' is no folder.");
  }
}

std::shared_ptr<FileTable> DbfFolder::Open(std::string_view name) {
  const std::string stem(name);
  std::vector<std::string> names;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(path_, error), end; !error && entry != end;
       entry.increment(error)) {
    std::string file = entry->path().filename().string();
    if (file.size() == stem.size() + 4 && SameName(file.substr(0, stem.size()), stem)) {
      names.push_back(std::move(file));
    }
  }
  // In the order of their names: the folder's own order changes from system to system.
  std::sort(names.begin(), names.end());
  const std::string table = FindName(names, stem + ".dbf");
  if (table.empty()) return nullptr;

  DbfFiles files;
  files.table = path_ + "/" + table;
  const std::string table_stem = table.substr(0, stem.size());
  const auto path_of = [&](const char* ending) {
    const std::string found = FindName(names, table_stem + ending);
    return found.empty() ? found : path_ + "/" + found;
  };
  files.fpt = path_of(".fpt");
  files.dbt = path_of(".dbt");
  files.has_index =
      std::any_of(kIndexEndings.begin(), kIndexEndings.end(), [&](std::string_view ending) {
        return !FindName(names, table_stem + std::string(ending)).empty();
      });
  return std::make_shared<DbfTable>(std::move(files), settings_);
}

}  // namespace vandpublic::ado
