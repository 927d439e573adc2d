// LogError: one dated entry in the log file, a message box, or both.
#include "frame/class_state.h"
#include "frame/clsPublic.h"
#include "frame/date_text.h"
#include "runtime/coerce.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

constexpr Long kLogFileBit = 1;
constexpr Long kMessageBoxBit = 2;
constexpr std::u16string_view kLineEnd = u"\r\n";
constexpr std::u16string_view kUnknownError = u"Unknown error!";

// An error as it was read from the error object, its texts trimmed.
struct LoggedError {
  std::u16string source;
  Long number;
  std::u16string description;

  // The ends of the whole are not trimmed: an empty description leaves a blank behind the dash.
  std::u16string Composed() const {
    return source + u" (" + std::u16string(String(std::to_string(number)).view()) + u") - " +
           description;
  }
};

std::u16string Trimmed(const String& text) { return std::u16string(TrimSpaces(text.view())); }

LoggedError ReadError(const ObjectRef& error) {
  if (error == nullptr) RaiseFault(FaultNumber::ObjectVariableNotSet);
  std::u16string source = Trimmed(ToText(error->Get("Source", {})));
  const Long number = ToLong(error->Get("Number", {}));
  return {std::move(source), number, Trimmed(ToText(error->Get("Description", {})))};
}

std::u16string Message(const std::u16string& description, const LoggedError& error) {
  if (!description.empty()) return description;
  return error.number != 0 ? error.Composed() : std::u16string(kUnknownError);
}

std::u16string Entry(const LocalTime& now, const std::u16string& heading,
                     const std::u16string& message, const std::u16string* error_line) {
  const std::u16string date = DateText(now);
  const std::u16string indent(date.size() + 1, u' ');
  std::u16string entry = date + u" " + heading;
  entry += kLineEnd;
  entry += indent + message;
  entry += kLineEnd;
  if (error_line != nullptr) {
    entry += indent + *error_line;
    entry += kLineEnd;
  }
  return entry;
}

// The file and the box are independent of each other: a failure of either is swallowed.
template <class Step>
void IgnoringErrors(Step step) noexcept {
  try {
    step();
  } catch (...) {
  }
}

}  // namespace

void clsPublic::LogError(const String& istr_AppName, const String& istr_ModuleName,
                         const String& istr_FunctionName, const ObjectRef& iobj_Err,
                         OptionalRef<String> irstr_ErrDesc) {
  const LoggedError error = ReadError(iobj_Err);
  IgnoringErrors([&] {
    const std::u16string heading =
        Trimmed(istr_AppName) + u"." + Trimmed(istr_ModuleName) + u"." + Trimmed(istr_FunctionName);
    const std::u16string description = Trimmed(*irstr_ErrDesc);
    const std::u16string message = Message(description, error);

    if ((DebugMode() & kLogFileBit) != 0) {
      IgnoringErrors([&] {
        const bool has_both = !description.empty() && error.number != 0;
        const std::u16string error_line = has_both ? error.Composed() : std::u16string();
        const std::u16string entry =
            Entry(platform().clock->Now(), heading, message, has_both ? &error_line : nullptr);
        WriteFile(*platform().files, LogFileFullName().view(), OpenMode::Append,
                  platform().code_page->Encode(entry));
      });
    }
    if ((DebugMode() & kMessageBoxBit) != 0) {
      IgnoringErrors([&] { platform().message_boxes->Show(message, heading, kBoxOkExclamation); });
    }
    if (description.empty()) *irstr_ErrDesc = message;
  });
}

}  // namespace vandpublic
