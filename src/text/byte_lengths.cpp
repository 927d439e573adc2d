// FstrActualLen and FstrLeftByByteLen: lengths in bytes of the ANSI code page.
#include <string>

#include "frame/trap.h"
#include "platform/platform.h"
#include "runtime/checked.h"

namespace vandpublic {

Integer clsPublic::FstrActualLen(const String& istr_Source, OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::FstrActualLen, rstr_ErrDesc, [&]() -> Integer {
    if (FstrIsNullExt(istr_Source, true, false)) return 0;
    return CheckedCast<Integer>(platform().code_page->Encode(istr_Source.view()).size());
  });
}

String clsPublic::FstrLeftByByteLen(const String& istr_Source, Integer& iint_ByteLen,
                                    OptionalRef<Integer> rint_UnicodeLen,
                                    OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::FstrLeftByByteLen, rstr_ErrDesc, [&]() -> String {
    *rint_UnicodeLen = 0;
    // A negative length is not reported, on purpose: it only lets nothing fit.
    if (iint_ByteLen <= 0 || FstrIsNullExt(istr_Source, true, false)) return {};

    // Every byte from 128 on counts as the first of a pair, whatever the code page: on purpose. It
    // is counted only when the byte behind it fits too.
    const std::string bytes = platform().code_page->Encode(istr_Source.view());
    bool pending = false;
    for (std::size_t i = 0; i < bytes.size() && std::cmp_less(i, iint_ByteLen); ++i) {
      pending = !pending && static_cast<Byte>(bytes[i]) >= 128;
      if (!pending) *rint_UnicodeLen = CheckedAdd(*rint_UnicodeLen, Integer{1});
    }
    return istr_Source.view().substr(0, static_cast<std::size_t>(*rint_UnicodeLen));
  });
}

}  // namespace vandpublic
