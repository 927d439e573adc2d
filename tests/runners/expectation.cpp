// Comparing.
#include "runners/expectation.h"

#include <algorithm>
#include <charconv>
#include <ctime>

#include "runtime/utf8.h"

namespace vandpublic {
namespace {

constexpr std::size_t kDateLength = 19;
constexpr std::size_t kIndent = 20;
constexpr std::string_view kLineEnd = "\r\n";

bool HasDateForm(std::string_view text) {
  constexpr std::string_view kForm = "0000-00-00 00:00:00";
  const auto fits = [](char c, char form) {
    return form == '0' ? c >= '0' && c <= '9' : c == form;
  };
  return std::equal(text.begin(), text.end(), kForm.begin(), kForm.end(), fits);
}

// Without the order of keys.
nlohmann::json Unordered(const Json& json) { return nlohmann::json(json); }

std::string Shown(const Json& json) {
  constexpr std::size_t kLongest = 400;
  const std::string text = json.dump(-1, ' ', false, Json::error_handler_t::replace);
  return text.size() <= kLongest ? text : text.substr(0, kLongest) + "...";
}

std::string Difference(const std::string& what, const Json& expected, const Json& actual) {
  if (Unordered(expected) == Unordered(actual)) return {};
  return what + "\n    expected " + Shown(expected) + "\n    actual   " + Shown(actual);
}

// An error number may be written as "0x80040013".
Json Number(const Json& json) {
  if (!json.is_string()) return json;
  const std::string& text = json.get_ref<const std::string&>();
  std::uint32_t number = 0;
  const bool hexadecimal = text.starts_with("0x") && text.size() > 2;
  const char* const end = text.data() + text.size();
  if (!hexadecimal || std::from_chars(text.data() + 2, end, number, 16).ptr != end) return json;
  return static_cast<std::int32_t>(number);
}

std::string ErrorProblem(const Json& expected, const Json& actual) {
  for (const auto& [key, value] : expected.items()) {
    const Json wanted = key == "number" ? Number(value) : value;
    const std::string problem = Difference("error " + key, wanted, actual.value(key, Json()));
    if (!problem.empty()) return problem;
  }
  return {};
}

std::string ReferencesProblem(const Json& expected, const Json& reply) {
  const Json references = reply.value("refs", Json::object());
  for (const auto& [name, value] : expected.items()) {
    if (!references.contains(name)) return "there is no reference '" + name + "'";
    const std::string problem = Difference("reference " + name, value, references[name]);
    if (!problem.empty()) return problem;
  }
  return {};
}

std::string OutcomeProblem(const Json& reply, const Json& expected) {
  if (expected.contains("protocol_error")) {
    const Json& wanted = expected["protocol_error"];
    if (wanted == true && reply.contains("protocol_error")) return {};
    return Difference("protocol error", wanted, reply.value("protocol_error", reply));
  }
  if (expected.contains("error")) {
    if (!reply.contains("error")) return Difference("no error", expected["error"], reply);
    return ErrorProblem(expected["error"], reply["error"]);
  }
  if (!reply.contains("result")) return "no success\n    actual   " + Shown(reply);
  if (!expected.contains("result")) return {};
  return Difference("result", expected["result"], reply["result"]);
}

// Walks through the log's text piece by piece.
class LogWalk {
 public:
  LogWalk(std::string text, std::string earliest, std::string latest)
      : text_(std::move(text)), earliest_(std::move(earliest)), latest_(std::move(latest)) {}

  std::string Entry(const std::vector<std::string>& lines) {
    std::string problem = Date();
    if (problem.empty()) problem = Literal(" " + lines.front());
    for (std::size_t i = 1; i < lines.size() && problem.empty(); ++i)
      problem = Literal(std::string(kIndent, ' ') + lines[i]);
    return problem;
  }

  std::string End() const {
    if (at_ == text_.size()) return {};
    return "log: more than expected\n    actual   " + Shown(text_.substr(at_));
  }

 private:
  std::string Date() {
    const std::string date = text_.substr(at_, kDateLength);
    // Texts of this form sort like the moments they stand for.
    if (!HasDateForm(date) || date < earliest_ || date > latest_) {
      return "log: a date from " + earliest_ + " to " + latest_ + " is expected\n    actual   " +
             Shown(text_.substr(at_));
    }
    at_ += kDateLength;
    return {};
  }

  std::string Literal(const std::string& line) {
    const std::string wanted = line + std::string(kLineEnd);
    const std::string actual = text_.substr(at_, wanted.size());
    if (actual != wanted) return Difference("log", wanted, text_.substr(at_));
    at_ += wanted.size();
    return {};
  }

  std::string text_;
  std::string earliest_;
  std::string latest_;
  std::size_t at_ = 0;
};

}  // namespace

std::string ReplyProblem(const Json& reply, const std::optional<Json>& expected) {
  const Json wanted = expected.value_or(Json::object());
  const std::string problem = OutcomeProblem(reply, wanted);
  if (!problem.empty() || !wanted.contains("refs")) return problem;
  return ReferencesProblem(wanted["refs"], reply);
}

std::string Now() {
  const std::time_t now = std::time(nullptr);
  const std::tm local = *std::localtime(&now);
  char text[kDateLength + 1];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
  return text;
}

std::string LogProblem(const std::string& bytes,
                       const std::vector<std::vector<std::string>>& entries, const CodePage& page,
                       const std::string& earliest, const std::string& latest) {
  LogWalk walk(ToUtf8(page.Decode(bytes)), earliest, latest);
  for (const auto& entry : entries) {
    const std::string problem = walk.Entry(entry);
    if (!problem.empty()) return problem;
  }
  return walk.End();
}

}  // namespace vandpublic
