// How each dialog program is told what to show, and how it tells what was pressed.
//
// A program that loses its display or cannot reach one exits with status 1, which is also how some
// of them say No, or with a signal. So Yes must never be a status that a failure could give, and
// each program is made to answer by something unmistakable.
#include "platform/posix/dialog_programs.h"

#include <langinfo.h>
#include <locale.h>

#include <string_view>
#include <vector>

namespace vandpublic {
namespace {

// Free in all three programs and in the shell's conventions.
constexpr int kPressedFirst = 101;   // OK or Yes
constexpr int kPressedSecond = 102;  // No, or closed
constexpr const char* kFirstStatus = "101";
constexpr const char* kSecondStatus = "102";

using Arguments = std::vector<std::string>;

struct DialogProgram {
  const char* name;
  Arguments (*arguments)(const BoxRequest& box);
  // What was pressed; nothing when the program failed.
  std::optional<bool> (*answer)(const BoxRequest& box, const ProgramEnd& end);
};

std::optional<bool> AnswerByStatus(const BoxRequest&, const ProgramEnd& end) {
  if (end.status == kPressedFirst) return true;
  if (end.status == kPressedSecond) return false;
  return std::nullopt;
}

// --no-markup also keeps backslashes as they are. The statuses are set in the environment.
Arguments ZenityArguments(const BoxRequest& box) {
  Arguments arguments = {"zenity", "--no-markup", "--title=" + box.title, "--text=" + box.text};
  if (box.is_question) {
    arguments.insert(arguments.end(), {"--question", "--default-cancel"});
  } else {
    arguments.emplace_back("--warning");
  }
  return arguments;
}

// kdialog reads backslash escapes, and takes a text for HTML when it looks like it. So it gets
// HTML, with everything escaped.
std::string KdialogText(std::string_view text) {
  std::string html = "<qt><p style=\"white-space:pre-wrap\">";
  for (const char c : text) {
    switch (c) {
      case '\\':
        html += "\\\\";
        break;
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      default:
        html += c;
    }
  }
  return html + "</p>";
}

// Its Yes/No box cannot have No as the default, and exchanged labels would make a failure a Yes.
// The list box can: it writes the chosen key to standard output.
Arguments KdialogArguments(const BoxRequest& box) {
  const std::string text = KdialogText(box.text);
  const std::string title = "--title=" + box.title;
  if (!box.is_question) return {"kdialog", title, "--sorry=" + text};
  return {"kdialog",     title, "--default=No", "--menu=" + text,
          kSecondStatus, "No",  kFirstStatus,   "Yes"};
}

std::optional<bool> KdialogAnswer(const BoxRequest& box, const ProgramEnd& end) {
  constexpr int kCancelledMenu = 1;
  constexpr int kClosedBox = 2;
  if (!box.is_question) {
    if (end.status == 0 || end.status == kClosedBox) return true;
    return std::nullopt;
  }
  if (end.status == 0) return end.output.starts_with(kFirstStatus);
  if (end.status == kCancelledMenu) return false;
  return std::nullopt;
}

// xmessage takes an argument for an option wherever it stands, so a text that could be one gets a
// space in front. Without `international` it shows UTF-8 as Latin-1.
Arguments XmessageArguments(const BoxRequest& box) {
  const bool like_option = box.text.starts_with('-') || box.text.starts_with('+');
  const std::string yes = box.is_question ? "Yes" : "OK";
  std::string buttons = yes + ":" + kFirstStatus;
  if (box.is_question) buttons += std::string(",No:") + kSecondStatus;
  return {"xmessage",
          "-center",
          "-title",
          box.title,
          "-xrm",
          "*international: true",
          "-buttons",
          buttons,
          "-default",
          box.is_question ? "No" : "OK",
          like_option ? " " + box.text : box.text};
}

constexpr DialogProgram kPrograms[] = {
    {"zenity", ZenityArguments, AnswerByStatus},
    {"kdialog", KdialogArguments, KdialogAnswer},
    {"xmessage", XmessageArguments, AnswerByStatus},
};

bool IsUtf8Locale(const Environment& environment) {
  std::string name;
  for (const char* const variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    if (name.empty()) name = Variable(environment, variable);
  }
  // An empty name would mean the host's own environment to newlocale.
  if (name.empty()) return false;
  const locale_t locale = newlocale(LC_CTYPE_MASK, name.c_str(), nullptr);
  if (locale == nullptr) return false;
  const bool is_utf8 = std::string_view(nl_langinfo_l(CODESET, locale)) == "UTF-8";
  freelocale(locale);
  return is_utf8;
}

// The texts are UTF-8, and the programs read them in the charset of their locale.
Environment DialogEnvironment(const Environment& environment) {
  Environment dialog = environment;
  if (!IsUtf8Locale(environment)) SetVariable(dialog, "LC_ALL", "C.UTF-8");
  SetVariable(dialog, "ZENITY_OK", kFirstStatus);
  SetVariable(dialog, "ZENITY_CANCEL", kSecondStatus);
  SetVariable(dialog, "ZENITY_ESC", kSecondStatus);
  return dialog;
}

std::optional<bool> AnswerOf(const DialogProgram& program, const BoxRequest& box,
                             const ProgramEnd& end) {
  if (end.kind == ProgramEnd::Kind::kUnknown) return !box.is_question;
  if (end.kind != ProgramEnd::Kind::kExited) return std::nullopt;
  const std::optional<bool> pressed = program.answer(box, end);
  if (!pressed) return std::nullopt;
  return *pressed || !box.is_question;  // an OK box that is closed is as good as pressed
}

}  // namespace

std::optional<bool> ShowByDialogProgram(const BoxRequest& box, const Environment& environment) {
  const bool has_display = !Variable(environment, "DISPLAY").empty() ||
                           !Variable(environment, "WAYLAND_DISPLAY").empty();
  if (!has_display) return std::nullopt;
  const Environment dialog = DialogEnvironment(environment);
  for (const DialogProgram& program : kPrograms) {
    const std::string path = FindProgram(environment, program.name);
    if (path.empty()) continue;
    const ProgramEnd end = RunProgram(path, program.arguments(box), dialog);
    if (const std::optional<bool> answer = AnswerOf(program, box, end)) return answer;
  }
  return std::nullopt;
}

}  // namespace vandpublic
