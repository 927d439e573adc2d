// RegExpTest and RegExpReplace: the dialect and its errors are the engine's.
#include "frame/trap.h"
#include "platform/platform.h"

namespace vandpublic {

bool clsPublic::RegExpTest(const String& istr_Source, const String& istr_Pattern, bool ibln_Globle,
                           bool ibln_IgnorseCase, bool ibln_Multiline,
                           OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::RegExpTest, rstr_ErrDesc, [&] {
    return platform().regexp->Test(
        istr_Pattern.view(), {ibln_Globle, ibln_IgnorseCase, ibln_Multiline}, istr_Source.view());
  });
}

String clsPublic::RegExpReplace(const String& istr_Source, const String& istr_Pattern,
                                const String& istr_RepWith, bool ibln_Globle, bool ibln_IgnorseCase,
                                bool ibln_Multiline, OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::RegExpReplace, rstr_ErrDesc, [&]() -> String {
    return platform().regexp->Replace(istr_Pattern.view(),
                                      {ibln_Globle, ibln_IgnorseCase, ibln_Multiline},
                                      istr_Source.view(), istr_RepWith.view());
  });
}

}  // namespace vandpublic
