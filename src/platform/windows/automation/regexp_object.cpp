// VBScript.RegExp through IDispatch.
#include "platform/windows/automation/regexp_object.h"

#include <string>

#include "platform/windows/automation/apartment.h"
#include "platform/windows/automation/late_bound.h"
#include "runtime/coerce.h"

namespace vandpublic {
namespace {

Variant Text(std::u16string_view text) { return String(text); }

class RegExpObjects final : public RegExpEngine {
 public:
  bool Test(std::u16string_view pattern, RegExpOptions options,
            std::u16string_view source) override {
    const Apartment apartment;
    return ToBoolean(MakeExpression(pattern, options).Call(L"Test", {Text(source)}));
  }

  std::u16string Replace(std::u16string_view pattern, RegExpOptions options,
                         std::u16string_view source, std::u16string_view replacement) override {
    const Apartment apartment;
    const LateBound expression = MakeExpression(pattern, options);
    const Variant result = expression.Call(L"Replace", {Text(source), Text(replacement)});
    return std::u16string(ToText(result).view());
  }

 private:
  static LateBound MakeExpression(std::u16string_view pattern, RegExpOptions options) {
    LateBound expression = CreateObject(L"VBScript.RegExp");
    expression.Put(L"Global", options.global);
    expression.Put(L"IgnoreCase", options.ignore_case);
    expression.Put(L"Multiline", options.multiline);
    expression.Put(L"Pattern", Text(pattern));
    return expression;
  }
};

}  // namespace

std::shared_ptr<RegExpEngine> MakeRegExpObjects() { return std::make_shared<RegExpObjects>(); }

}  // namespace vandpublic
