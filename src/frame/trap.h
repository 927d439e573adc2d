// The error convention, written once.
//
// A member states who it is and does its work; what a failure leads to stands in its row of the
// member table. Entering a member clears the error object, so a rejection is logged without one.
//
//   Long clsPublic::HexToDec(const String& istr_HexNumber) {
//     return Trapped(*this, Member::HexToDec, [&] {
//       ...
//       if (digit < 0) Reject(messages::kNotHexNumber);
//       ...
//     });
//   }
#ifndef VANDPUBLIC_FRAME_TRAP_H
#define VANDPUBLIC_FRAME_TRAP_H

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>

#include "frame/clsPublic.h"
#include "members/member_ids.h"

namespace vandpublic {

// A member's own rejection of its input, on its way to that member's trap.
struct Rejection {
  std::u16string message;
};

[[noreturn]] void Reject(std::u16string_view message);

// Deals with the exception in flight as the member's row says: logs it, writes the description to
// rstr_ErrDesc where there is one, raises the member's number. Returns for members that raise
// nothing. `description` is what the member knows of the failure already, usually nothing.
void HandleFailure(clsPublic& object, Member member, String description, String* rstr_ErrDesc);

// The work under the trap of a member without rstr_ErrDesc (or with one that it never writes).
template <class Work>
auto Trapped(clsPublic& object, Member member, Work work) -> std::invoke_result_t<Work> {
  try {
    return work();
  } catch (...) {
    HandleFailure(object, member, {}, nullptr);
  }
  return std::invoke_result_t<Work>();
}

// The same for a member that hands the description out in rstr_ErrDesc.
template <std::invocable Work>
auto Trapped(clsPublic& object, Member member, OptionalRef<String>& rstr_ErrDesc, Work work)
    -> std::invoke_result_t<Work> {
  try {
    return work();
  } catch (...) {
    HandleFailure(object, member, {}, &*rstr_ErrDesc);
  }
  return std::invoke_result_t<Work>();
}

// The same for a member whose work keeps a description of its own: what the work has put there by
// the time an error strikes is logged and handed out, in place of a composed text.
template <std::invocable<String&> Work>
auto Trapped(clsPublic& object, Member member, OptionalRef<String>& rstr_ErrDesc, Work work)
    -> std::invoke_result_t<Work, String&> {
  String description;
  try {
    return work(description);
  } catch (...) {
    HandleFailure(object, member, description, &*rstr_ErrDesc);
  }
  return std::invoke_result_t<Work, String&>();
}

}  // namespace vandpublic

#endif
