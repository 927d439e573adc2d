// The port for the system's ANSI code page: text to bytes and back.
#ifndef VANDPUBLIC_PLATFORM_CODE_PAGE_H
#define VANDPUBLIC_PLATFORM_CODE_PAGE_H

#include <memory>
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

// The pages that a host can choose.
inline constexpr int kCodePages[] = {874,  932,  936,  949,  950,  1250, 1251,
                                     1252, 1253, 1254, 1255, 1256, 1257, 1258};

// The page with this number; null for any other number, and where the system does not have it. It
// converts as Windows does with best fit switched off, private-use characters included, on every
// system alike. Safe in any thread.
//
//   std::string bytes = FindCodePage(1252)->Encode(u"caf\u00e9");  // 63 61 66 E9
std::shared_ptr<const CodePage> FindCodePage(int number);

}  // namespace vandpublic

#endif
