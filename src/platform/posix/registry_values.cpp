// An ordered map, because in it the keys below a key stand together.
#include "platform/posix/registry_values.h"

#include <utility>

#include "platform/posix/name_fold.h"

namespace vandpublic {
namespace {

std::u16string FoldPath(std::u16string_view key_path) {
  if (key_path.ends_with(u'\\')) key_path.remove_suffix(1);
  return FoldName(key_path);
}

}  // namespace

void RegistryValues::Set(std::u16string_view key_path, std::u16string_view name,
                         std::string bytes) {
  keys_[FoldPath(key_path)][FoldName(name)] = std::move(bytes);
}

void RegistryValues::RemoveValue(std::u16string_view key_path, std::u16string_view name) {
  const auto key = keys_.find(FoldPath(key_path));
  if (key != keys_.end()) key->second.erase(FoldName(name));
}

void RegistryValues::RemoveKey(std::u16string_view key_path) {
  const std::u16string path = FoldPath(key_path);
  if (path.empty()) return keys_.clear();
  keys_.erase(path);
  // Every path below it begins with path + "\", so it lies before path + the next character.
  constexpr char16_t kAfterSeparator = u'\\' + 1;
  keys_.erase(keys_.lower_bound(path + u'\\'), keys_.lower_bound(path + kAfterSeparator));
}

std::optional<std::string> RegistryValues::Find(std::u16string_view key_path,
                                                std::u16string_view name) const {
  const auto key = keys_.find(FoldPath(key_path));
  if (key == keys_.end()) return std::nullopt;
  const auto value = key->second.find(FoldName(name));
  if (value == key->second.end()) return std::nullopt;
  return value->second;
}

}  // namespace vandpublic
