// Numbers of automation and what they are called in the classic runtime.
#include "platform/windows/automation/automation_errors.h"

#include <optional>
#include <string>

#include "platform/windows/automation/automation_values.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

constexpr std::u16string_view kSource = u"Public_Module";
constexpr std::u16string_view kAutomationError = u"Automation error";

constexpr HRESULT kClassicBase = static_cast<HRESULT>(0x800A0000);
constexpr Long kLastClassic = 999;

struct KnownResult {
  HRESULT result;
  FaultNumber fault;
};

constexpr KnownResult kKnownResults[] = {
    {DISP_E_TYPEMISMATCH, FaultNumber::TypeMismatch},
    {DISP_E_BADVARTYPE, FaultNumber::TypeMismatch},
    {DISP_E_OVERFLOW, FaultNumber::Overflow},
    {DISP_E_BADINDEX, FaultNumber::SubscriptOutOfRange},
    {DISP_E_UNKNOWNNAME, FaultNumber::NoSuchPropertyOrMethod},
    {DISP_E_MEMBERNOTFOUND, FaultNumber::NoSuchPropertyOrMethod},
    {DISP_E_BADPARAMCOUNT, FaultNumber::WrongNumberOfArguments},
    {DISP_E_PARAMNOTOPTIONAL, FaultNumber::ArgumentNotOptional},
    {DISP_E_PARAMNOTFOUND, FaultNumber::NamedArgumentNotFound},
    {E_OUTOFMEMORY, FaultNumber::OutOfMemory},
    {E_INVALIDARG, FaultNumber::InvalidProcedureCall},
    {REGDB_E_CLASSNOTREG, FaultNumber::CannotCreateObject},
    {CO_E_CLASSSTRING, FaultNumber::CannotCreateObject},
    {CO_E_APPNOTFOUND, FaultNumber::CannotCreateObject},
    {CO_E_DLLNOTFOUND, FaultNumber::CannotCreateObject},
};

// Texts that are freed whatever happens.
struct ExceptionTexts {
  explicit ExceptionTexts(EXCEPINFO& record) : record_(record) {}
  ~ExceptionTexts() {
    SysFreeString(record_.bstrSource);
    SysFreeString(record_.bstrDescription);
    SysFreeString(record_.bstrHelpFile);
    record_ = {};
  }
  ExceptionTexts(const ExceptionTexts&) = delete;
  ExceptionTexts& operator=(const ExceptionTexts&) = delete;

 private:
  EXCEPINFO& record_;
};

// The runtime's own number behind a number of automation.
std::optional<FaultNumber> ClassicNumber(Long number) noexcept {
  const auto small = static_cast<Long>(std::int64_t{number} - kClassicBase);
  const bool is_regexp = small >= static_cast<Long>(FaultNumber::RegExpSyntaxError) &&
                         small <= static_cast<Long>(FaultNumber::RegExpInvalidRange);
  if (is_regexp || (small >= 1 && small <= kLastClassic)) return static_cast<FaultNumber>(small);
  return std::nullopt;
}

bool IsOfRegExpEngine(FaultNumber fault) noexcept {
  return static_cast<Long>(fault) > kLastClassic;
}

[[noreturn]] void RaiseRecord(const EXCEPINFO& record) {
  Long number = record.scode != 0 ? Long{record.scode} : Long{record.wCode};
  if (number == 0) number = E_FAIL;
  // A bare number is no more than a result.
  if (record.bstrSource == nullptr && record.bstrDescription == nullptr) RaiseResult(number);
  const auto fault = ClassicNumber(number);
  // Its texts differ from system to system; the component's do not.
  if (fault && IsOfRegExpEngine(*fault)) RaiseFault(*fault);
  if (fault) number = static_cast<Long>(*fault);

  std::u16string description(fault ? FaultText(*fault) : kAutomationError);
  if (record.bstrDescription != nullptr) description = FromBstr(record.bstrDescription).view();
  throw AutomationError(number, std::u16string(FromBstr(record.bstrSource).view()),
                        std::move(description));
}

}  // namespace

void RaiseInvokeFailure(HRESULT result, EXCEPINFO& exception) {
  if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  const ExceptionTexts texts(exception);
  if (result == DISP_E_EXCEPTION) RaiseRecord(exception);
  RaiseResult(result);
}

void RaiseResult(HRESULT result) {
  for (const KnownResult& known : kKnownResults) {
    if (known.result == result) RaiseFault(known.fault);
  }
  const auto fault = ClassicNumber(result);
  if (fault) RaiseFault(*fault);
  throw AutomationError(result, std::u16string(kSource), std::u16string(kAutomationError));
}

}  // namespace vandpublic
