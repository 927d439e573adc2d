// What happens to an exception at a member's border.
#include "frame/trap.h"

#include <exception>
#include <memory>
#include <new>
#include <stdexcept>
#include <utility>

#include "members/member_table.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

// The error object as it stands when the handler is entered, and the member's own message.
struct Failure {
  bool rejected = false;
  Long number = 0;
  std::u16string source;
  std::u16string description;
  std::u16string message;
};

Failure FromError(const AutomationError& error) {
  return {false, error.number(), error.source(), error.description(), {}};
}

Failure CurrentFailure() {
  try {
    throw;
  } catch (const Rejection& rejection) {
    return {true, 0, {}, {}, rejection.message};
  } catch (const AutomationError& error) {
    return FromError(error);
  } catch (const std::bad_alloc&) {
    return FromError(RuntimeFault(FaultNumber::OutOfMemory));
  } catch (const std::length_error&) {
    return FromError(RuntimeFault(FaultNumber::OutOfMemory));
  } catch (...) {
    return FromError(RuntimeFault(FaultNumber::InternalError));
  }
}

std::u16string ErrorSource(const MemberInfo& info) {
  const std::string_view name = info.LogName();
  return u"clsCommon." + std::u16string(name.begin(), name.end());
}

}  // namespace

void Reject(std::u16string_view message) { throw Rejection{std::u16string(message)}; }

void HandleFailure(clsPublic& object, Member member, String description, String* rstr_ErrDesc) {
  const MemberInfo& info = MemberTable()[static_cast<std::size_t>(member)];
  if (info.failure == FailureStyle::Swallow) return;
  Failure failure = CurrentFailure();
  if (info.failure == FailureStyle::RaiseOwn && !failure.rejected) throw;
  if (failure.rejected) description = failure.message;

  // LogError composes a text into what it is given when that is blank. Whether the text goes any
  // further than the log is the member's policy.
  String logged = description;
  const auto error = std::make_shared<ErrObject>(failure.number, std::move(failure.source),
                                                 std::move(failure.description));
  object.LogError(info.log_application, info.log_module, info.LogName(), error, logged);
  if (info.fault_description == FaultDescription::Composed) description = logged;

  if (rstr_ErrDesc != nullptr) *rstr_ErrDesc = description;
  if (info.failure == FailureStyle::Report) return;
  throw AutomationError(ErrorNumber(info.code), ErrorSource(info),
                        std::u16string(description.view()));
}

}  // namespace vandpublic
