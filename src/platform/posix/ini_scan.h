// Finds a key in the text of an initialisation file, in one pass and without copying the text.
#ifndef VANDPUBLIC_PLATFORM_POSIX_INI_SCAN_H
#define VANDPUBLIC_PLATFORM_POSIX_INI_SCAN_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "platform/posix/name_fold.h"

namespace vandpublic {

template <class Char>
constexpr bool IsIniBlank(Char c) noexcept {
  return c == ' ' || c == '\t';
}

template <class Char>
std::basic_string_view<Char> TrimIniBlanks(std::basic_string_view<Char> text) noexcept {
  while (!text.empty() && IsIniBlank(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && IsIniBlank(text.back()))
    text.remove_suffix(1);
  return text;
}

// The first CR or LF from this place on, or the end of the text. Bytes are tested eight at a time,
// as lines are too short for two calls of memchr to pay.
inline std::size_t FindLineEnd(std::string_view text, std::size_t from) noexcept {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  const auto has_zero_byte = [](std::uint64_t word) {
    return ((word - kOnes) & ~word & (kOnes << 7)) != 0;
  };
  std::uint64_t word = 0;
  for (; text.size() - from >= sizeof word; from += sizeof word) {
    std::memcpy(&word, text.data() + from, sizeof word);
    if (has_zero_byte(word ^ (kOnes * '\r')) || has_zero_byte(word ^ (kOnes * '\n'))) break;
  }
  while (from < text.size() && text[from] != '\r' && text[from] != '\n')
    ++from;
  return from;
}

inline std::size_t FindLineEnd(std::u16string_view text, std::size_t from) noexcept {
  while (from < text.size() && text[from] != u'\r' && text[from] != u'\n')
    ++from;
  return from;
}

// The name of a section or key that is looked for. Blanks around it do not count, nor does case.
template <class Codec>
class IniName {
 public:
  using Char = typename Codec::Char;
  using View = std::basic_string_view<Char>;

  IniName(std::string_view ansi_name, const Codec& codec)
      : codec_(codec), text_(codec.FromAnsi(TrimIniBlanks(ansi_name))) {}

  const std::basic_string<Char>& text() const noexcept { return text_; }

  // Cheap and without memory unless a character outside ASCII makes up the difference.
  bool Matches(View other) const {
    if (other == text_) return true;
    const std::size_t common = std::min(other.size(), text_.size());
    for (std::size_t i = 0; i < common; ++i) {
      if (!IsAscii(other[i]) && !IsAscii(text_[i])) {
        return SameName(codec_.ToUtf16(other), codec_.ToUtf16(text_));
      }
      if (Upper(other[i]) != Upper(text_[i])) return false;
    }
    return other.size() == text_.size();
  }

  // False when no name that begins with this character can match.
  bool MayBeginWith(Char c) const noexcept {
    if (text_.empty()) return true;
    const Char first = text_.front();
    return IsAscii(c) == IsAscii(first) && (!IsAscii(c) || Upper(c) == Upper(first));
  }

 private:
  static constexpr bool IsAscii(Char c) noexcept {
    return static_cast<std::make_unsigned_t<Char>>(c) < 0x80;
  }
  static constexpr Char Upper(Char c) noexcept {
    return c >= 'a' && c <= 'z' ? static_cast<Char>(c - 'a' + 'A') : c;
  }

  const Codec& codec_;
  std::basic_string<Char> text_;
};

enum class IniFound { Nothing, Section, Key };

// Where a key stands, or where its line would go. All numbers are places in the text.
struct IniPlace {
  IniFound found = IniFound::Nothing;

  // Found the section only: past its last line that is not blank.
  std::size_t insert = 0;

  // Found the key. Blanks around name and value are outside; a line without "=" has no value.
  std::size_t name_end = 0;
  bool has_value = false;
  std::size_t value_begin = 0;
  std::size_t value_end = 0;
  std::size_t next_line = 0;
};

// For one search; the text and the codec must outlive it.
template <class Codec>
class IniScan {
 public:
  using Char = typename Codec::Char;
  using View = std::basic_string_view<Char>;

  IniScan(View text, const Codec& codec) : text_(text), codec_(codec) {}

  // The first section of the name is the only one that counts, and in it the first line of the
  // key, be it without "=".
  IniPlace Find(const IniName<Codec>& section, const IniName<Codec>& key) {
    const std::optional<std::size_t> begin = FindSection(section);
    if (!begin) return {};
    IniPlace place;
    place.found = IniFound::Section;
    place.insert = *begin;
    for (std::size_t line = *begin; line < text_.size();) {
      const std::size_t end = FindLineEnd(text_, line);
      const std::size_t first = SkipBlanks(line, end);
      line = NextLine(end);
      if (first == end) continue;
      if (text_[first] == '[' && SectionName(text_.substr(first, end - first))) break;
      place.insert = line;
      if (IsKeyLine(first, end, key, place)) break;
    }
    return place;
  }

 private:
  // Jumps from bracket to bracket, since a file is mostly lines of other sections.
  std::optional<std::size_t> FindSection(const IniName<Codec>& section) {
    for (std::size_t place = text_.find('['); place != View::npos;) {
      std::size_t from = place + 1;
      if (BeginsLine(place)) {
        const std::size_t end = FindLineEnd(text_, place);
        const std::optional<View> name = SectionName(text_.substr(place, end - place));
        if (name && section.Matches(*name)) return NextLine(end);
        from = end;
      }
      place = text_.find('[', from);
    }
    return std::nullopt;
  }

  // The line begins with "[". Its name runs to the last "]"; without one it is an ordinary line.
  std::optional<View> SectionName(View line) const {
    const std::size_t end = codec_.LastBracket(line);
    if (end == View::npos) return std::nullopt;
    return TrimIniBlanks(line.substr(1, end - 1));
  }

  bool IsKeyLine(std::size_t first, std::size_t end, const IniName<Codec>& key,
                 IniPlace& place) const {
    const View line = text_.substr(first, end - first);
    if (line.front() == ';' || !key.MayBeginWith(line.front())) return false;
    const std::size_t equals = line.find('=');
    const std::size_t name_size = equals == View::npos ? line.size() : equals;
    const View name = TrimIniBlanks(line.substr(0, name_size));
    if (!key.Matches(name)) return false;
    place.found = IniFound::Key;
    place.name_end = first + name.size();
    place.next_line = NextLine(end);
    place.has_value = equals != View::npos;
    if (!place.has_value) return true;
    const View value = TrimIniBlanks(line.substr(equals + 1));
    place.value_begin = static_cast<std::size_t>(value.data() - text_.data());
    place.value_end = place.value_begin + value.size();
    return true;
  }

  bool BeginsLine(std::size_t place) const noexcept {
    while (place > 0 && IsIniBlank(text_[place - 1]))
      --place;
    return place == 0 || text_[place - 1] == '\n' || text_[place - 1] == '\r';
  }

  std::size_t SkipBlanks(std::size_t from, std::size_t end) const noexcept {
    while (from < end && IsIniBlank(text_[from]))
      ++from;
    return from;
  }

  std::size_t NextLine(std::size_t end) const noexcept {
    if (end == text_.size()) return end;
    const bool pair = text_[end] == '\r' && end + 1 < text_.size() && text_[end + 1] == '\n';
    return end + (pair ? 2 : 1);
  }

  View text_;
  const Codec& codec_;
};

}  // namespace vandpublic

#endif
