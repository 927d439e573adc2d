// The header, whose interesting part is encoded with a fixed key.
#include "platform/posix/ado/jet/jet_header.h"

#include <array>
#include <cmath>
#include <numeric>
#include <utility>

#include "platform/posix/ado/jet/jet_errors.h"
#include "platform/posix/ado/sql/byte_order.h"

namespace vandpublic::ado {
namespace {

constexpr std::string_view kSignature = "Standard Jet DB";
constexpr std::size_t kSignaturePosition = 4;
constexpr std::size_t kVersionPosition = 0x14;
constexpr std::size_t kEncodedPosition = 0x18;
constexpr std::size_t kEncodedSizeJet3 = 126;
constexpr std::size_t kEncodedSizeJet4 = 128;
constexpr std::string_view kHeaderKey("\xC7\xDA\x39\x6B", 4);

constexpr std::size_t kCodePagePosition = 0x3C;
constexpr std::size_t kPageKeyPosition = 0x3E;
constexpr std::size_t kPasswordPosition = 0x42;
constexpr std::size_t kPasswordSizeJet3 = 20;
constexpr std::size_t kPasswordSizeJet4 = 40;
constexpr std::size_t kCreationDatePosition = 0x72;

// Jet 4 hides the password behind the day on which the database was made.
std::string UnmaskedPassword(std::string_view page) {
  std::string password(page.substr(kPasswordPosition, kPasswordSizeJet4));
  const double date = LittleEndianDouble(page, kCreationDatePosition);
  if (!(std::abs(date) < 2147483648.0)) return password;
  std::array<char, 4> mask{};
  PutLittleEndian(static_cast<std::uint32_t>(static_cast<std::int32_t>(date)), mask.data());
  for (std::size_t i = 0; i < password.size(); ++i) {
    password[i] = static_cast<char>(password[i] ^ mask[i % mask.size()]);
  }
  return password;
}

}  // namespace

void ApplyRc4(std::string_view key, char* bytes, std::size_t size) noexcept {
  std::array<std::uint8_t, 256> state{};
  std::iota(state.begin(), state.end(), std::uint8_t{0});
  std::uint8_t j = 0;
  for (std::size_t i = 0; i < state.size(); ++i) {
    j = static_cast<std::uint8_t>(j + state[i] + static_cast<std::uint8_t>(key[i % key.size()]));
    std::swap(state[i], state[j]);
  }
  std::uint8_t i = 0;
  j = 0;
  for (std::size_t at = 0; at < size; ++at) {
    ++i;
    j = static_cast<std::uint8_t>(j + state[i]);
    std::swap(state[i], state[j]);
    const std::uint8_t pad = state[static_cast<std::uint8_t>(state[i] + state[j])];
    bytes[at] = static_cast<char>(static_cast<std::uint8_t>(bytes[at]) ^ pad);
  }
}

JetHeader ReadJetHeader(std::string_view bytes, std::string_view path) {
  const auto unrecognized = [path] {
    RaiseJet(SourceError::Failed, "Unrecognized database format '" + std::string(path) + "'.");
  };
  if (bytes.size() < kJetHeaderSize ||
      bytes.substr(kSignaturePosition, kSignature.size()) != kSignature) {
    unrecognized();
  }
  const auto version = static_cast<std::uint8_t>(bytes[kVersionPosition]);
  if (version > 1) unrecognized();

  JetHeader header;
  header.is_jet4 = version == 1;
  header.page_size = header.is_jet4 ? 4096 : 2048;
  std::string page(bytes.substr(0, kJetHeaderSize));
  ApplyRc4(kHeaderKey, page.data() + kEncodedPosition,
           header.is_jet4 ? kEncodedSizeJet4 : kEncodedSizeJet3);
  header.code_page = LittleEndian<std::uint16_t>(page, kCodePagePosition);
  header.page_key = LittleEndian<std::uint32_t>(page, kPageKeyPosition);
  header.password =
      header.is_jet4 ? UnmaskedPassword(page) : page.substr(kPasswordPosition, kPasswordSizeJet3);
  return header;
}

bool PasswordFits(const JetHeader& header, std::u16string_view password,
                  const CodePage& code_page) {
  if (header.password.find_first_not_of('\0') == std::string::npos) return true;
  std::string given;
  if (header.is_jet4) {
    for (const char16_t unit : password) {
      given += static_cast<char>(unit & 0xFF);
      given += static_cast<char>(unit >> 8);
    }
  } else {
    given = code_page.Encode(password);
  }
  if (given.size() > header.password.size()) return false;
  given.resize(header.password.size(), '\0');
  // All of the bytes are compared, so that the time does not tell how many are right.
  unsigned difference = 0;
  for (std::size_t i = 0; i < given.size(); ++i) {
    difference |= static_cast<unsigned>(static_cast<std::uint8_t>(given[i]) ^
                                        static_cast<std::uint8_t>(header.password[i]));
  }
  return difference == 0;
}

void RaiseJet(SourceError error, std::string_view description) {
  Raise(error, kJetSource, description);
}

void RaiseDamaged(std::string_view what) {
  RaiseJet(SourceError::Failed,
           "The database is damaged: " + std::string(what) + " is not as it must be.");
}

}  // namespace vandpublic::ado
