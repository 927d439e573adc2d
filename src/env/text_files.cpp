// TextRWWrite, AppendText and TextRWRead: whole texts to and from files in the ANSI code page.
//
// The path is looked up trimmed and opened as it was given: with blanks around it the two differ,
// on purpose.
#include <string>

#include "frame/trap.h"
#include "members/messages.h"
#include "platform/platform.h"

namespace vandpublic {
namespace {

constexpr std::u16string_view kLineEnd = u"\r\n";

void CheckPath(clsPublic& object, const String& path) {
  if (object.FstrIsNullExt(path, true, true)) Reject(messages::kFilePathMissing);
}

bool MayOverride(const Platform& platform, std::u16string_view path) {
  const std::u16string question = u"File " + std::u16string(path) + u" exists, Override ?";
  return platform.message_boxes->Show(question, u"Override ?", kBoxYesNoQuestionDefaultNo) !=
         kBoxAnswerNo;
}

void WriteLine(const Platform& platform, std::u16string_view path, OpenMode mode,
               std::u16string_view text) {
  std::u16string line(text);
  line += kLineEnd;
  WriteFile(*platform.files, path, mode, platform.code_page->Encode(line));
}

}  // namespace

void clsPublic::TextRWWrite(String& istr_FilePath, String& istr_Printed,
                            OptionalRef<bool> ibln_PromptOverRide,
                            OptionalRef<String> rstr_ErrDesc) {
  Trapped(*this, Member::TextRWWrite, rstr_ErrDesc, [&] {
    CheckPath(*this, istr_FilePath);
    // Asked whether or not the file exists, on purpose.
    if (*ibln_PromptOverRide && !MayOverride(platform(), istr_FilePath.view())) return;
    WriteLine(platform(), istr_FilePath.view(), OpenMode::Output, istr_Printed.view());
  });
}

bool clsPublic::AppendText(const String& istr_Path, const String& istr_Text,
                           OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::AppendText, rstr_ErrDesc, [&] {
    CheckPath(*this, istr_Path);
    String trimmed = TrimSpaces(istr_Path.view());
    if (!platform().files->FindsNormalFile(trimmed.view())) {
      // So that a new file starts with an empty line, on purpose.
      String nothing;
      TextRWWrite(trimmed, nothing, false);
    }
    WriteLine(platform(), istr_Path.view(), OpenMode::Append, istr_Text.view());
    return true;
  });
}

String clsPublic::TextRWRead(const String& istr_FilePath, OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::TextRWRead, rstr_ErrDesc, [&]() -> String {
    CheckPath(*this, istr_FilePath);
    // The same message for a file that is not there.
    if (!platform().files->FindsNormalFile(TrimSpaces(istr_FilePath.view()))) {
      Reject(messages::kFilePathMissing);
    }
    return platform().code_page->Decode(platform().files->ReadAll(istr_FilePath.view()));
  });
}

}  // namespace vandpublic
