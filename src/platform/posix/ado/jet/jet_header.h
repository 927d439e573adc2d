// Page 0 of a Jet database: what kind of file it is, and its password.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_JET_JET_HEADER_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_JET_JET_HEADER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/code_page.h"

namespace vandpublic::ado {

// The bytes of page 0 that are looked at.
inline constexpr std::size_t kJetHeaderSize = 0x98;

struct JetHeader {
  bool is_jet4 = true;  // else Jet 3
  std::size_t page_size = 4096;
  int code_page = 0;           // of Jet 3's texts
  std::uint32_t page_key = 0;  // of the encoded pages; 0: they are plain
  std::string password;  // as it is stored: 40 bytes of UTF-16 (Jet 4), 20 of the code page (3)
};

// "Unrecognized database format ..." for what is not a Jet 3 or Jet 4 database. The path is for
// the text only.
JetHeader ReadJetHeader(std::string_view bytes, std::string_view path);

// Whether the password opens the database. Case counts. A database without a password opens with
// any.
bool PasswordFits(const JetHeader& header, std::u16string_view password, const CodePage& code_page);

// Encodes or decodes bytes by the RC4 stream of the key, the same operation both ways.
void ApplyRc4(std::string_view key, char* bytes, std::size_t size) noexcept;

}  // namespace vandpublic::ado

#endif
