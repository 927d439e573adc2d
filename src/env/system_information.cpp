// SystemDirectory, WindowsDirectory and ComputerName.
#include <string>

#include "frame/trap.h"
#include "members/messages.h"
#include "platform/platform.h"

namespace vandpublic {
namespace {

// What the platform tells, whole: a name is never cut at a blank. Nothing told is a rejection.
String Told(const Platform& platform, const std::string& name, std::u16string_view message) {
  if (name.empty()) Reject(message);
  return platform.code_page->Decode(name);
}

}  // namespace

String clsPublic::SystemDirectory() {
  return Trapped(*this, Member::SystemDirectory, [&] {
    return Told(platform(), platform().system_names->SystemDirectory(),
                messages::kNoSystemDirectory);
  });
}

String clsPublic::WindowsDirectory() {
  return Trapped(*this, Member::WindowsDirectory, [&] {
    return Told(platform(), platform().system_names->WindowsDirectory(),
                messages::kNoWindowsDirectory);
  });
}

String clsPublic::ComputerName() {
  return Trapped(*this, Member::ComputerName, [&] {
    return Told(platform(), platform().system_names->ComputerName(), messages::kNoComputerName);
  });
}

}  // namespace vandpublic
