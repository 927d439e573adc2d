// Initialisation files beside glib's key files: one key read, one key set, in a text in memory and
// in a file. Sizes are those of the text in bytes.
#include <glib.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include "contest.h"
#include "frame/clsPublic.h"
#include "platform/posix/code_pages.h"
#include "platform/posix/ini_text.h"

namespace bench {
namespace {

using vandpublic::clsPublic;
using vandpublic::String;

constexpr std::size_t kSizes[] = {1024, 16384, 262144};
constexpr const char* kSection = "Last section";
constexpr const char* kKeyName = "Key 5";
constexpr vandpublic::IniKey kKey = {kSection, kKeyName};

// Sections of ten keys; the one that is asked for is in the last.
std::string IniText(std::size_t size) {
  constexpr std::size_t kSectionSize = 200;
  std::string text;
  const auto add = [&text](const std::string& section) {
    text += "[" + section + "]\n";
    for (int key = 0; key < 10; ++key)
      text += "Key " + std::to_string(key) + "=some value " + std::to_string(key) + "\n";
  };
  for (int section = 0; text.size() + kSectionSize < size; ++section)
    add("Section " + std::to_string(section));
  add(kSection);
  return text;
}

using KeyFile = std::unique_ptr<GKeyFile, decltype(&g_key_file_free)>;

std::string Taken(char* text) {
  std::string taken = text == nullptr ? "" : text;
  g_free(text);
  return taken;
}

std::string GlibValue(const GKeyFile* file) {
  return Taken(g_key_file_get_string(const_cast<GKeyFile*>(file), kSection, kKeyName, nullptr));
}

KeyFile GlibParsed(const std::string& text) {
  KeyFile file(g_key_file_new(), g_key_file_free);
  g_key_file_load_from_data(file.get(), text.data(), text.size(), G_KEY_FILE_KEEP_COMMENTS,
                            nullptr);
  return file;
}

KeyFile GlibLoaded(const std::string& path) {
  KeyFile file(g_key_file_new(), g_key_file_free);
  g_key_file_load_from_file(file.get(), path.c_str(), G_KEY_FILE_KEEP_COMMENTS, nullptr);
  return file;
}

// The edited text: only how its lines end tells ours from glib's, and blank lines.
struct Edited {
  std::string text;
};

std::string Canonical(Edited edited) {
  std::erase_if(edited.text, [](char c) { return c == '\r' || c == '\n'; });
  return edited.text;
}

// The member's files and the peer's lie in one folder, which is removed at the end.
class Folder {
 public:
  Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) std::abort();
    path_ = name;
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }

  std::string Make(const std::string& name, const std::string& text) const {
    const std::filesystem::path path = path_ / name;
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
  }

 private:
  std::filesystem::path path_;
};

void AddInMemory(std::size_t size) {
  const std::string text = IniText(size);
  const auto page = vandpublic::FindCodePage(1252);
  Contest read("INI read", text.size());
  read.Add("engine", [=] { return vandpublic::ReadIniText(text, kKey, "", *page); });
  read.Add("glib", [=] { return GlibValue(GlibParsed(text).get()); });

  Contest edit("INI edit", text.size());
  edit.Add("engine", [=] { return Edited{vandpublic::EditIniText(text, kKey, "another", *page)}; });
  edit.Add("glib", [=] {
    const KeyFile file = GlibParsed(text);
    g_key_file_set_string(file.get(), kSection, kKeyName, "another");
    return Edited{Taken(g_key_file_to_data(file.get(), nullptr, nullptr))};
  });
}

void AddInFiles(std::size_t size, const std::shared_ptr<Folder>& folder) {
  const std::string text = IniText(size);
  const auto object = std::make_shared<clsPublic>();
  const std::string ours = folder->Make("ours" + std::to_string(size), text);
  const std::string peers = folder->Make("peers" + std::to_string(size), text);

  Contest read("INI file read", text.size());
  read.Add("member", [=, file = String(ours), result = String()]() mutable {
    result = object->GetSettingFromIni(file, kSection, kKeyName, "");
    return result.view();
  });
  read.Add("glib", [=] { return GlibValue(GlibLoaded(peers).get()); });

  Contest write("INI file write", text.size());
  write.Add("member", [=, file = String(ours), flip = 0]() mutable {
    object->SaveSettingToIni(file, kSection, kKeyName, (++flip % 2) != 0 ? "odd" : "even");
    return folder != nullptr;  // which stays for as long as this does
  });
  write.Add("glib", [=, flip = 0]() mutable {
    const KeyFile file = GlibLoaded(peers);
    g_key_file_set_string(file.get(), kSection, kKeyName, (++flip % 2) != 0 ? "odd" : "even");
    return g_key_file_save_to_file(file.get(), peers.c_str(), nullptr) != 0;
  });
}

}  // namespace

void AddSettings() {
  const auto folder = std::make_shared<Folder>();
  for (const std::size_t size : kSizes) {
    AddInMemory(size);
    AddInFiles(size, folder);
  }
}

}  // namespace bench
