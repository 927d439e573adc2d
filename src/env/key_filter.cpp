// FilterInput: which typed characters an entry field accepts.
#include "convert/hex_digits.h"
#include "frame/clsPublic.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

constexpr Integer kBackspace = 8;
constexpr Integer kLowerToUpper = 'a' - 'A';

// The code that stays of one in 0 to 255; 0 swallows the key.
Integer Filtered(Integer code, enumInputMode mode) {
  const int value = HexDigitValue(static_cast<char16_t>(code));
  switch (mode) {
    case INPUT_MODE_BIT:
      return value == 0 || value == 1 ? code : Integer{0};
    case INPUT_MODE_DECIMAL:
      return value >= 0 && value <= 9 ? code : Integer{0};
    case INPUT_MODE_HEX:
      if (value < 0) return 0;
      return code >= 'a' ? static_cast<Integer>(code - kLowerToUpper) : code;
    default:
      return code;
  }
}

}  // namespace

void clsPublic::FilterInput(Integer& rint_KeyAscii, enumInputMode enm_InputMode) {
  if (rint_KeyAscii == kBackspace) return;
  // Before the modes: also the modes that keep every code refuse what is no character.
  if (rint_KeyAscii < 0 || rint_KeyAscii > 255) RaiseFault(FaultNumber::InvalidProcedureCall);
  rint_KeyAscii = Filtered(rint_KeyAscii, enm_InputMode);
}

}  // namespace vandpublic
