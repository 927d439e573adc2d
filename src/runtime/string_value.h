// String: the counted text of the automation interface.
//
// Its truth is a number of storage bytes, low byte of each 16-bit unit first. Usually they are
// whole units; byte text may end in half a unit. An absent string (a null pointer in COM) differs
// from the empty one only where a caller asks for it: most members treat both alike.
//
//   String key = "0123456789ABCDEF";      // UTF-8
//   String text = u"\u00e9t\u00e9";       // 16-bit units
//   std::string shown = text.ToUtf8();
#ifndef VANDPUBLIC_RUNTIME_STRING_VALUE_H
#define VANDPUBLIC_RUNTIME_STRING_VALUE_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "basic_types.h"

namespace vandpublic {

class VANDPUBLIC_API String {
 public:
  // The empty string.
  String() = default;
  String(std::u16string units) : units_(std::move(units)) {}
  String(std::u16string_view units) : units_(units) {}
  String(const char16_t* units) : units_(units) {}
  // From UTF-8; each malformed byte becomes U+FFFD.
  String(std::string_view utf8);
  String(const std::string& utf8) : String(std::string_view(utf8)) {}
  String(const char* utf8) : String(std::string_view(utf8)) {}

  static String Absent();
  // From storage bytes, an odd count included.
  static String FromBytes(std::string_view bytes);

  bool IsAbsent() const noexcept { return absent_; }
  // The number of whole 16-bit units.
  std::size_t Length() const noexcept { return units_.size(); }
  std::size_t ByteLength() const noexcept { return 2 * units_.size() + (half_unit_ ? 1 : 0); }
  // Storage byte at an index below ByteLength().
  Byte ByteAt(std::size_t index) const noexcept;

  // Changes the units where they stand: edit is called with the std::u16string that holds them. A
  // stray last byte is dropped, and an absent string becomes the empty one first.
  template <class Edit>
  void EditUnits(Edit edit) {
    half_unit_.reset();
    absent_ = false;
    edit(units_);
  }

  // The whole units; a stray last byte is not among them.
  std::u16string_view view() const noexcept { return units_; }
  std::string ToBytes() const;
  // An unpaired surrogate becomes U+FFFD; a stray last byte is left out.
  std::string ToUtf8() const;

  // Same storage bytes; absent and empty compare equal, as they do in text comparisons.
  friend bool operator==(const String& a, const String& b) noexcept {
    return a.units_ == b.units_ && a.half_unit_ == b.half_unit_;
  }

 private:
  std::u16string units_;
  std::optional<Byte> half_unit_;
  bool absent_ = false;
};

// Without leading and trailing blanks (U+0020 only).
VANDPUBLIC_API std::u16string_view TrimSpaces(std::u16string_view text) noexcept;

}  // namespace vandpublic

#endif
