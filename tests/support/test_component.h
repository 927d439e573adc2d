// What nearly every test of a member needs: an object on stand-in services with its log at hand,
// the error that a call raises as a value, and byte arrays as texts.
#ifndef VANDPUBLIC_TESTS_SUPPORT_TEST_COMPONENT_H
#define VANDPUBLIC_TESTS_SUPPORT_TEST_COMPONENT_H

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "frame/clsPublic.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"
#include "support/fake_platform.h"

namespace vandpublic {

// An object on stand-in services. Its log file is in memory.
struct TestComponent {
  FakePlatform services;
  clsPublic object{services.Make()};

  // The bytes of the log file, "" when nothing was logged.
  std::string Log() const;
  // The log's lines without their line ends. Lines are split at CR LF only.
  std::vector<std::string> LogLines() const;
  // Who wrote the entries, in order: "VandPublic.clsCommon.HexToDec" is "HexToDec" here.
  std::vector<std::string> LoggedNames() const;
};

// An error as a caller sees it, in UTF-8. All fields are blank when nothing was raised.
struct Raised {
  Long number = 0;
  std::string source;
  std::string description;

  bool operator==(const Raised&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Raised& raised);

inline const Raised kNothingRaised;

// A member's own error: 0x80040000 + code from "clsCommon." and the name.
Raised MemberError(int code, std::string_view name, std::string_view description);
// A plain runtime fault.
Raised PlainFault(FaultNumber fault);
// "Public_Module (6) - Overflow": what the log and composed descriptions say of a fault.
std::string Composed(FaultNumber fault);

template <class Work>
Raised RaisedBy(Work work) {
  try {
    work();
  } catch (const AutomationError& error) {
    return {error.number(), ToUtf8(error.source()), ToUtf8(error.description())};
  }
  return {};
}

// The elements as "0A BC FF", "" when there are none.
std::string Hex(const ByteArray& bytes);
// The codes of a text's characters as "41.20AC.00".
std::string Codes(const String& text);
// The way back of Hex: digits in either case, blanks ignored.
ByteArray FromHex(std::string_view digits, Long lower = 0);
// Bytes start, start + 1, ..., with the given lower bound.
ByteArray Counting(std::size_t count, Long lower = 0, int start = 0);

}  // namespace vandpublic

#endif
