// A stand-in for any automation object: it writes down each call that reaches its IDispatch, with
// the exact types of the arguments, and answers as the test says. It has no type library and no
// interface but IDispatch.
//
//   DispatchLog log;
//   auto connection = MakeRecordingObject(log, "Connection", {{"Open", {}}});
//   ...
//   EXPECT_THAT(log, ElementsAre("call Connection.Open(BSTR \"DSN=x\", BSTR \"\", ...)"));
#ifndef VANDPUBLIC_TESTS_SUPPORT_RECORDING_DISPATCH_H
#define VANDPUBLIC_TESTS_SUPPORT_RECORDING_DISPATCH_H

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/windows/automation/com_pointer.h"
#include "platform/windows/automation/owned_variant.h"
#include "runtime/variant.h"

namespace vandpublic {

using DispatchLog = std::vector<std::string>;

// What a member of a stand-in does, after the call was written down: fills `result` (null where the
// caller wants none) or `exception`, and returns what Invoke returns. The arguments stand in their
// order, not reversed.
using DispatchAnswer =
    std::function<HRESULT(std::vector<VARIANT*>& arguments, VARIANT* result, EXCEPINFO* exception)>;

// Members by name; an empty answer succeeds and gives Empty. The name "" is the default member.
using DispatchMembers = std::map<std::string, DispatchAnswer>;

// The object in its only reference. The log must outlive it.
ComPointer<IDispatch> MakeRecordingObject(DispatchLog& log, std::string label,
                                          DispatchMembers members);

// The references that somebody holds to a stand-in, those of the test among them.
ULONG CountReferences(IDispatch* object);

// An answer that gives the value: automation's for it, or another object.
DispatchAnswer Giving(const Variant& value);
DispatchAnswer Giving(ComPointer<IDispatch> object);

// An answer that fails with DISP_E_EXCEPTION; null texts stay null.
DispatchAnswer Raising(SCODE number, const wchar_t* source, const wchar_t* description);
// An answer that fails with this result.
DispatchAnswer Failing(HRESULT result);

// A value as the log tells it: I4 5, BSTR "text", VT_ARRAY|UI1 1 to 5120, missing, ...
std::string Describe(const VARIANT& value);

}  // namespace vandpublic

#endif
