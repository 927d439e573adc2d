// SaveSettingToIni, GetSettingFromIni and GetSettingFromReg.
#include <string>

#include "env/sys_setting.h"
#include "frame/trap.h"
#include "members/messages.h"
#include "platform/platform.h"

namespace vandpublic {
namespace {

// Names are only checked trimmed; the platform gets them as they were given.
void CheckName(const String& name, std::u16string_view message) {
  if (TrimSpaces(name.view()).empty()) Reject(message);
}

// Five pieces, held apart by single carriage returns.
std::u16string SaveFailure(const String& file, const String& section, const String& key,
                           const String& value) {
  std::u16string text(messages::kIniSaveFailed);
  const auto add = [&text](std::u16string_view label, const String& piece) {
    text += u'\r';
    text += label;
    text += TrimSpaces(piece.view());
  };
  add(u"Filename: ", file);
  add(u"Section: ", section);
  add(u"Key: ", key);
  add(u"Value: ", value);
  return text;
}

}  // namespace

void clsPublic::SaveSettingToIni(const String& istr_IniFileName, const String& istr_Section,
                                 const String& istr_Key, const String& istr_Value) {
  Trapped(*this, Member::SaveSettingToIni, [&] {
    CheckName(istr_IniFileName, messages::kFileNameMissing);
    CheckName(istr_Section, messages::kSectionMissing);
    CheckName(istr_Key, messages::kKeyMissing);
    if (!modSysSetting::WriteIniValue(platform(), istr_IniFileName.view(), istr_Section.view(),
                                      istr_Key.view(), istr_Value.view())) {
      Reject(SaveFailure(istr_IniFileName, istr_Section, istr_Key, istr_Value));
    }
  });
}

String clsPublic::GetSettingFromIni(const String& istr_IniFileName, const String& istr_Section,
                                    const String& istr_Key, const String& istr_Default) {
  return Trapped(*this, Member::GetSettingFromIni, [&] {
    CheckName(istr_IniFileName, messages::kFileNameMissing);
    CheckName(istr_Section, messages::kSectionMissing);
    CheckName(istr_Key, messages::kKeyMissing);
    return modSysSetting::ReadIniValue(platform(), istr_IniFileName.view(), istr_Section.view(),
                                       istr_Key.view(), istr_Default.view());
  });
}

String clsPublic::GetSettingFromReg(const String& istr_Section, const String& istr_Key,
                                    const String&) {
  // The default is ignored, on purpose: a missing value is "".
  return Trapped(*this, Member::GetSettingFromReg, [&] {
    CheckName(istr_Section, messages::kSectionMissing);
    CheckName(istr_Key, messages::kKeyMissing);
    return modSysSetting::ReadRegistryValue(platform(), istr_Section.view(), istr_Key.view());
  });
}

}  // namespace vandpublic
