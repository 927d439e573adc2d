// The port for the system's ANSI code page: text to bytes and back.
#ifndef VANDPUBLIC_PLATFORM_CODE_PAGE_H
#define VANDPUBLIC_PLATFORM_CODE_PAGE_H

#include <string>
#include <string_view>

namespace vandpublic {

class CodePage {
 public:
  virtual ~CodePage() = default;

  // The page's number: 1252, 936, ...
  virtual int number() const noexcept = 0;

  // One "?" for each 16-bit unit outside the page (a surrogate pair gives two), no best fit.
  virtual std::string Encode(std::u16string_view text) const = 0;

  // Never reads past the end: a lone lead byte there decodes to "?". In a double-byte page an
  // invalid trail byte is taken together with its lead byte as one "?".
  virtual std::u16string Decode(std::string_view bytes) const = 0;
};

}  // namespace vandpublic

#endif
