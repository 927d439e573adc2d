// Reads a registry file from top to bottom. The same reader parses and checks: it differs only in
// where the problems go.
#include "platform/posix/registry_text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "platform/posix/name_fold.h"
#include "platform/posix/registry_cursor.h"
#include "platform/posix/registry_data.h"
#include "platform/posix/utf16_bytes.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

constexpr std::u16string_view kWideHeader = u"Windows Registry Editor Version 5.00";
constexpr std::u16string_view kNarrowHeader = u"REGEDIT4";
constexpr std::string_view kNarrowHeaderBytes = "REGEDIT4";
constexpr std::u16string_view kRoot = u"HKEY_LOCAL_MACHINE";
constexpr std::array<std::u16string_view, 4> kOtherRoots = {
    u"HKEY_CLASSES_ROOT", u"HKEY_CURRENT_USER", u"HKEY_USERS", u"HKEY_CURRENT_CONFIG"};

std::u16string DecodeFile(std::string_view file, const CodePage& page) {
  if (const auto order = MarkedByteOrder(file)) return Utf16FromBytes(file.substr(2), *order);
  if (file.starts_with(kUtf8Mark)) return FromUtf8(file.substr(kUtf8Mark.size()));
  if (file.starts_with(kNarrowHeaderBytes)) return page.Decode(file);
  std::u16string text = FromUtf8(file);
  return ToUtf8(text) == file ? text : page.Decode(file);
}

class RegistryReader {
 public:
  RegistryReader(std::u16string_view text, const CodePage& page,
                 std::vector<RegistryDiagnostic>* problems)
      : cursor_(text), dialect_{page}, problems_(problems) {}

  RegistryValues Read() {
    ReadHeader();
    while (!cursor_.AtEnd())
      ReadEntry();
    return std::move(values_);
  }

 private:
  // What happens to the values of the key that was named last.
  enum class Key { None, Used, OtherRoot, Removed, Unreadable };

  void ReadHeader() {
    const RegistryCursor start = cursor_;
    std::u16string_view header = cursor_.TakeRestOfLine();
    while (header.ends_with(u' ') || header.ends_with(u'\t'))
      header.remove_suffix(1);
    dialect_.wide = header != kNarrowHeader;
    if (header == kWideHeader || header == kNarrowHeader) return;
    problems_.Add(1,
                  "the first line is not \"Windows Registry Editor Version 5.00\" or \"REGEDIT4\"");
    // An entry where the header should be is used like any other.
    if (header.find_first_of(u"[\"@;") == 0) cursor_ = start;
  }

  void ReadEntry() {
    if (cursor_.AtLastWord()) {
      cursor_.SkipLine();
    } else if (cursor_.Take(u'[')) {
      ReadKey();
    } else {
      ReadValue();
    }
  }

  void ReadKey() {
    const std::size_t line = cursor_.line();
    std::u16string_view path = cursor_.TakeRestOfLine();
    cursor_.SkipLine();
    key_ = Key::Unreadable;
    const std::size_t end = path.rfind(u']');
    if (end == std::u16string_view::npos) {
      return problems_.Add(line, "the key has no closing \"]\", its values are ignored");
    }
    RegistryCursor behind(path.substr(end + 1));
    if (!behind.AtLastWord()) problems_.Add(line, "unexpected text after the key is ignored");
    path = path.substr(0, end);
    const bool removes = path.starts_with(u'-');
    if (removes) path.remove_prefix(1);
    SelectKey(line, path, removes);
  }

  void SelectKey(std::size_t line, std::u16string_view path, bool removes) {
    if (path.ends_with(u'\\')) path.remove_suffix(1);
    const std::size_t root_size = std::min(path.find(u'\\'), path.size());
    const std::u16string_view root = path.substr(0, root_size);
    path.remove_prefix(std::min(root_size + 1, path.size()));

    for (const std::u16string_view other : kOtherRoots) {
      if (SameName(root, other)) key_ = Key::OtherRoot;
    }
    if (key_ == Key::OtherRoot) return;
    if (!SameName(root, kRoot)) {
      return problems_.Add(line,
                           "the key does not begin with HKEY_LOCAL_MACHINE or another root key's "
                           "full name, its values are ignored");
    }
    if (path.starts_with(u'\\') || path.ends_with(u'\\') ||
        path.find(u"\\\\") != std::u16string_view::npos) {
      return problems_.Add(line, "the key's path has an empty name, its values are ignored");
    }
    if (removes && path.empty()) {
      return problems_.Add(line, "HKEY_LOCAL_MACHINE itself cannot be removed");
    }
    key_ = removes ? Key::Removed : Key::Used;
    key_path_ = path;
    if (removes) values_.RemoveKey(path);
  }

  // One line, or several where the value spans them. What cannot be read is skipped.
  void ReadValue() {
    const std::size_t line = cursor_.line();
    const std::optional<std::u16string> name = ReadName();
    if (!name) return cursor_.SkipLine();
    const std::optional<RegistryData> data = ReadRegistryData(cursor_, dialect_, problems_);
    if (!data) return;
    if (!cursor_.AtLastWord()) {
      problems_.Add(cursor_.line(), "unexpected text after the value, which is ignored");
      return cursor_.SkipLine();
    }
    cursor_.SkipLine();
    StoreValue(line, *name, *data);
  }

  // The value's name and the "=" behind it.
  std::optional<std::u16string> ReadName() {
    RegistryQuoted name;
    if (cursor_.Peek() == u'"') {
      std::optional<RegistryQuoted> quoted = ReadRegistryQuoted(cursor_, false);
      if (!quoted) {
        problems_.Add(cursor_.line(), "the value's name has no closing quotation mark");
        return std::nullopt;
      }
      name = *std::move(quoted);
    } else if (!cursor_.Take(u'@')) {
      problems_.Add(cursor_.line(),
                    "a key in brackets, a value's name in quotation marks or @ expected");
      return std::nullopt;
    }
    if (name.has_lone_backslash) problems_.Add(cursor_.line(), kLoneBackslash);
    cursor_.SkipBlanks();
    if (!cursor_.Take(u'=')) {
      problems_.Add(cursor_.line(), "\"=\" expected after the value's name");
      return std::nullopt;
    }
    cursor_.SkipBlanks();
    return std::move(name.text);
  }

  void StoreValue(std::size_t line, std::u16string_view name, const RegistryData& data) {
    if (key_ == Key::None) problems_.Add(line, "a value before the first key is ignored");
    if (key_ == Key::Removed) problems_.Add(line, "a value of a key that is removed is ignored");
    if (key_ != Key::Used) return;
    if (data.removes) {
      values_.RemoveValue(key_path_, name);
    } else {
      values_.Set(key_path_, name, data.bytes);
    }
  }

  RegistryCursor cursor_;
  RegistryDialect dialect_;
  RegistryProblems problems_;
  RegistryValues values_;
  Key key_ = Key::None;
  std::u16string_view key_path_;
};

RegistryValues ReadRegistry(std::string_view file, const CodePage& page,
                            std::vector<RegistryDiagnostic>* problems) {
  const std::u16string text = DecodeFile(file, page);
  return RegistryReader(text, page, problems).Read();
}

}  // namespace

RegistryValues ParseRegistryText(std::string_view file, const CodePage& page) {
  return ReadRegistry(file, page, nullptr);
}

std::vector<RegistryDiagnostic> CheckRegistryText(std::string_view file, const CodePage& page) {
  std::vector<RegistryDiagnostic> problems;
  ReadRegistry(file, page, &problems);
  return problems;
}

}  // namespace vandpublic
