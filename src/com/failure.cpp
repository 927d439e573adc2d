// The numbers, and the two kinds of record.
#include "com/failure.h"

#include <new>
#include <stdexcept>

#include "com/argument_place.h"
#include "com/guids.h"
#include "invoke/late_call.h"
#include "platform/windows/automation/com_pointer.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

constexpr HRESULT kRuntimeBase = static_cast<HRESULT>(0x800A0000);
constexpr Long kLastRuntimeNumber = 0xFFFF;

// Numbers that are no failure would tell a vtable caller that all is well.
HRESULT ResultOf(Long number) noexcept {
  if (number < 0) return number;
  return number > 0 && number <= kLastRuntimeNumber ? kRuntimeBase + number : E_FAIL;
}

Failure OfError(const AutomationError& error) {
  return {ResultOf(error.number()), Failure::Description{error.source(), error.description()}, {}};
}

Failure OfArgument(const ArgumentError& error) {
  Failure failure{DISP_E_TYPEMISMATCH, {}, error.index()};
  switch (error.reason()) {
    case FaultNumber::Overflow:
      failure.result = DISP_E_OVERFLOW;
      break;
    case FaultNumber::ArgumentNotOptional:
      failure.result = DISP_E_PARAMNOTOPTIONAL;
      break;
    case FaultNumber::WrongNumberOfArguments:
      failure.result = DISP_E_BADPARAMCOUNT;
      break;
    default:
      break;
  }
  return failure;
}

Failure Known() {
  try {
    throw;
  } catch (const AutomationError& error) {
    return OfError(error);
  } catch (const ArgumentError& error) {
    return OfArgument(error);
  } catch (const Refused& refused) {
    return {refused.result, {}, {}};
  } catch (const std::bad_alloc&) {
    return OfError(RuntimeFault(FaultNumber::OutOfMemory));
  } catch (const std::length_error&) {
    return OfError(RuntimeFault(FaultNumber::OutOfMemory));
  } catch (...) {
    return OfError(RuntimeFault(FaultNumber::InternalError));
  }
}

// Null only without memory.
BSTR Text(const std::u16string& text) noexcept {
  return SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()),
                           static_cast<UINT>(text.size()));
}

}  // namespace

Failure CurrentFailure() noexcept {
  try {
    return Known();
  } catch (...) {
    return {E_OUTOFMEMORY, {}, {}};
  }
}

HRESULT ReportToInvoke(const Failure& failure, EXCEPINFO* record) noexcept {
  if (!failure.description) return failure.result;
  if (record != nullptr) {
    *record = {};
    record->scode = failure.result;
    record->bstrSource = Text(failure.description->source);
    record->bstrDescription = Text(failure.description->text);
  }
  return DISP_E_EXCEPTION;
}

HRESULT ReportToVtable(const Failure& failure) noexcept {
  ComPointer<ICreateErrorInfo> record;
  ComPointer<IErrorInfo> info;
  if (!failure.description || FAILED(CreateErrorInfo(record.Receive()))) return failure.result;
  BSTR const source = Text(failure.description->source);
  BSTR const text = Text(failure.description->text);
  record->SetGUID(kInterfaceGuid);
  record->SetSource(source);
  record->SetDescription(text);
  SysFreeString(source);
  SysFreeString(text);
  const HRESULT result =
      record->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(info.Receive()));
  if (SUCCEEDED(result)) SetErrorInfo(0, info.get());
  return failure.result;
}

}  // namespace vandpublic
