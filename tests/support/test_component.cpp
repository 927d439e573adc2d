// The helpers of the member tests.
#include "support/test_component.h"

#include <cstdio>
#include <ostream>
#include <stdexcept>

#include "members/member_table.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

constexpr std::size_t kDateLength = 19;

int DigitValue(char c) {
  constexpr std::string_view kDigits = "0123456789ABCDEFabcdef";
  const std::size_t place = kDigits.find(c);
  if (place == std::string_view::npos) throw std::invalid_argument("no hexadecimal digit");
  return static_cast<int>(place < 16 ? place : place - 6);
}

}  // namespace

std::string TestComponent::Log() const {
  const auto file = services.files->contents.find(object.LogFileFullName().view());
  return file == services.files->contents.end() ? "" : file->second;
}

std::vector<std::string> TestComponent::LogLines() const {
  const std::string log = Log();
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < log.size();) {
    const std::size_t end = log.find("\r\n", start);
    if (end == std::string::npos) throw std::runtime_error("the log does not end with CR LF");
    lines.push_back(log.substr(start, end - start));
    start = end + 2;
  }
  return lines;
}

std::vector<std::string> TestComponent::LoggedNames() const {
  std::vector<std::string> names;
  for (const std::string& line : LogLines()) {
    if (line.starts_with(std::string(kDateLength + 1, ' '))) continue;
    names.push_back(line.substr(line.rfind('.') + 1));
  }
  return names;
}

std::ostream& operator<<(std::ostream& out, const Raised& raised) {
  if (raised == kNothingRaised) return out << "nothing raised";
  return out << raised.number << " from \"" << raised.source << "\": \"" << raised.description
             << '"';
}

Raised MemberError(int code, std::string_view name, std::string_view description) {
  return {ErrorNumber(static_cast<std::uint16_t>(code)), "clsCommon." + std::string(name),
          std::string(description)};
}

Raised PlainFault(FaultNumber fault) {
  return {static_cast<Long>(fault), "Public_Module", ToUtf8(FaultText(fault))};
}

std::string Composed(FaultNumber fault) {
  return "Public_Module (" + std::to_string(static_cast<Long>(fault)) + ") - " +
         ToUtf8(FaultText(fault));
}

std::string Hex(const ByteArray& bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const Byte value : bytes.Elements()) {
    if (!text.empty()) text += ' ';
    text += kDigits[value >> 4];
    text += kDigits[value & 15];
  }
  return text;
}

std::string Codes(const String& text) {
  std::string codes;
  for (const char16_t c : text.view()) {
    char buffer[12];
    std::snprintf(buffer, sizeof buffer, codes.empty() ? "%02X" : ".%02X",
                  static_cast<unsigned>(c));
    codes += buffer;
  }
  return codes;
}

ByteArray FromHex(std::string_view digits, Long lower) {
  std::vector<Byte> bytes;
  int high = -1;
  for (const char c : digits) {
    if (c == ' ') continue;
    if (high < 0) {
      high = DigitValue(c);
      continue;
    }
    bytes.push_back(static_cast<Byte>(16 * high + DigitValue(c)));
    high = -1;
  }
  if (high >= 0) throw std::invalid_argument("an odd number of digits");
  return ByteArray(std::move(bytes), lower);
}

ByteArray Counting(std::size_t count, Long lower, int start) {
  std::vector<Byte> bytes(count);
  for (std::size_t i = 0; i < count; ++i)
    bytes[i] = static_cast<Byte>(static_cast<std::size_t>(start) + i);
  return ByteArray(std::move(bytes), lower);
}

}  // namespace vandpublic
