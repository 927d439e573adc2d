// Chooses the encoding by the file's mark; the work itself is the same for all of them.
#include "platform/posix/ini_text.h"

#include <algorithm>
#include <optional>

#include "platform/posix/ini_codec.h"
#include "platform/posix/ini_scan.h"
#include "platform/posix/utf16_bytes.h"

namespace vandpublic {
namespace {

template <class Codec>
using Text = std::basic_string<typename Codec::Char>;
template <class Codec>
using TextView = std::basic_string_view<typename Codec::Char>;

template <class Codec>
IniPlace FindKey(TextView<Codec> text, const IniName<Codec>& section, const IniName<Codec>& key,
                 const Codec& codec) {
  return IniScan<Codec>(text, codec).Find(section, key);
}

template <class Char>
std::basic_string_view<Char> WithoutQuotes(std::basic_string_view<Char> value) noexcept {
  if (value.size() < 2 || value.front() != value.back()) return value;
  if (value.front() != '"' && value.front() != '\'') return value;
  return value.substr(1, value.size() - 2);
}

template <class Codec>
std::optional<std::string> ReadValue(TextView<Codec> text, const IniKey& key, const Codec& codec) {
  const IniPlace place = FindKey<Codec>(text, {key.section, codec}, {key.key, codec}, codec);
  if (place.found != IniFound::Key || !place.has_value) return std::nullopt;
  const auto value = text.substr(place.value_begin, place.value_end - place.value_begin);
  return codec.ToAnsi(WithoutQuotes(value));
}

template <class Codec>
bool EndsLine(TextView<Codec> text) noexcept {
  return text.empty() || text.back() == '\n' || text.back() == '\r';
}

// What goes between the kept text and "=" for a key that is not there yet.
template <class Codec>
Text<Codec> NewKeyHead(TextView<Codec> kept, const IniName<Codec>* missing_section,
                       const IniName<Codec>& key, const Codec& codec) {
  const Text<Codec> line_end = codec.FromAnsi("\r\n");
  Text<Codec> head;
  if (!EndsLine<Codec>(kept)) head += line_end;
  if (missing_section != nullptr) {
    head.push_back('[');
    head += missing_section->text();
    head.push_back(']');
    head += line_end;
  }
  return head += key.text();
}

template <class Codec>
Text<Codec> EditValue(TextView<Codec> text, const IniKey& key, std::string_view value,
                      const Codec& codec) {
  const IniName<Codec> section_name(key.section, codec);
  const IniName<Codec> key_name(key.key, codec);
  const IniPlace place = FindKey<Codec>(text, section_name, key_name, codec);

  TextView<Codec> kept = text;
  TextView<Codec> rest;
  Text<Codec> line;
  if (place.found == IniFound::Key) {
    kept = text.substr(0, place.name_end);
    rest = text.substr(place.next_line);
  } else if (place.found == IniFound::Section) {
    kept = text.substr(0, place.insert);
    rest = text.substr(place.insert);
    line = NewKeyHead<Codec>(kept, nullptr, key_name, codec);
  } else {
    line = NewKeyHead<Codec>(kept, &section_name, key_name, codec);
  }
  line += codec.FromAnsi("=");
  line += codec.FromAnsi(value);
  line += codec.FromAnsi("\r\n");

  Text<Codec> edited;
  edited.reserve(kept.size() + line.size() + rest.size());
  edited += kept;
  edited += line;
  edited += rest;
  return edited;
}

std::string_view ValueToWrite(std::string_view value) noexcept {
  const std::size_t first = value.find_first_not_of(" \t\r\n");
  return first == std::string_view::npos ? std::string_view() : value.substr(first);
}

std::string_view WithoutLastBlanks(std::string_view text) noexcept {
  return text.substr(0, text.find_last_not_of(' ') + 1);  // npos + 1 is 0: blanks only
}

}  // namespace

std::string ReadIniText(std::string_view file, const IniKey& key, std::string_view default_value,
                        const CodePage& page) {
  std::optional<std::string> value;
  if (const auto order = MarkedByteOrder(file)) {
    value = ReadValue(std::u16string_view(Utf16FromBytes(file.substr(2), *order)), key,
                      Utf16Codec(page));
  } else if (file.starts_with(kUtf8Mark)) {
    value = ReadValue(file.substr(kUtf8Mark.size()), key, Utf8Codec(page));
  } else {
    value = ReadValue(file, key, AnsiCodec(page));
  }
  if (!value) return std::string(WithoutLastBlanks(default_value).substr(0, kIniResultLimit));
  value->resize(std::min({value->find('\0'), value->size(), kIniResultLimit}));
  return *std::move(value);
}

std::string EditIniText(std::string_view file, const IniKey& key, std::string_view value,
                        const CodePage& page) {
  const std::string_view written = ValueToWrite(value);
  if (const auto order = MarkedByteOrder(file)) {
    const std::u16string text = Utf16FromBytes(file.substr(2), *order);
    return std::string(file.substr(0, 2)) +
           Utf16ToBytes(EditValue(std::u16string_view(text), key, written, Utf16Codec(page)),
                        *order);
  }
  if (file.starts_with(kUtf8Mark)) {
    return std::string(kUtf8Mark) +
           EditValue(file.substr(kUtf8Mark.size()), key, written, Utf8Codec(page));
  }
  return EditValue(file, key, written, AnsiCodec(page));
}

}  // namespace vandpublic
