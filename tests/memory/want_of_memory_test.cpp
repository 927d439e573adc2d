// The tool where memory ends: whichever request for memory fails, a line of the pipe gets one reply
// and the conversation goes on, and a command ends with a status and a message.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/pipe_session.h"
#include "cli/system_streams.h"
#include "cli/tool.h"
#include "memory/failing_memory.h"
#include "support/temp_folder.h"
#include "support/tool_platform.h"

namespace vandpublic {
namespace {

using testing::AnyOf;
using testing::HasSubstr;
using testing::StartsWith;

const std::string kLongText(20000, 'A');

// "..." stands for the long text.
std::string WithLongText(std::string line) { return line.replace(line.find("..."), 3, kLongText); }

constexpr const char* kRequests[] = {
    R"({"id":1,"member":"IsHex","args":["..."]})",
    R"({"id":"...","get":"DebugMode"})",
    R"({"member":"FstrVbStrToHexStr","args":["..."],"as":"kept"})",
    R"({"member":"HexToDec","args":["..."]})",
    R"({"member":"FillByteArrWithHexStr","args":[{"var":"a"},{"utf16le":"..."}]})",
    R"({"let":"a","type":"ByteArray","value":{"bytes":"..."}})",
    R"({"set":"AppPath","value":"..."})",
    R"({"member":"..."})",
    R"({"id":"...","member":})",
};

// The reply to a line when the n-th request for memory fails; nothing when there are fewer.
std::optional<std::string> ReplyWithout(std::size_t n, std::string_view line) {
  PipeSession session(TestPlatform());
  std::string reply;
  bool failed = false;
  {
    const FailingRequest failing(n);
    reply = session.HandleLine(line);
    failed = failing.HasFailed();
  }
  EXPECT_EQ(session.HandleLine(R"({"member":"IsHex","args":["1F"]})"),
            R"({"result":true,"refs":{}})")
      << n << " of " << line.substr(0, 40);
  if (!failed) return std::nullopt;
  return reply;
}

TEST(WantOfMemory, every_line_gets_one_reply_and_the_next_is_answered) {
  std::size_t faults = 0;
  std::size_t refusals = 0;
  for (const char* const request : kRequests) {
    const std::string line = WithLongText(request);
    std::size_t n = 1;
    while (const auto reply = ReplyWithout(n, line)) {
      ASSERT_LT(++n, 1000u) << request;
      const Json parsed = Json::parse(*reply, nullptr, false);
      ASSERT_TRUE(parsed.is_object()) << request;
      if (parsed.contains("error") && parsed["error"]["number"] == 7) ++faults;
      if (parsed.contains("protocol_error") && parsed["protocol_error"] == "out of memory")
        ++refusals;
    }
    EXPECT_GT(n, 3u) << request;
  }
  EXPECT_GT(faults, 0u) << "inside the component";
  EXPECT_GT(refusals, 0u) << "around it";
}

struct Outcome {
  int status;
  std::string output;
  std::string errors;
};

// A run of the tool whose n-th request for memory fails; nothing when there are fewer.
std::optional<Outcome> RunWithout(std::size_t n, const std::vector<const char*>& arguments) {
  Outcome outcome;
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  bool failed = false;
  {
    const FailingRequest failing(n);
    outcome.status = RunTool(arguments);
    failed = failing.HasFailed();
  }
  outcome.output = testing::internal::GetCapturedStdout();
  outcome.errors = testing::internal::GetCapturedStderr();
  if (!failed) return std::nullopt;
  return outcome;
}

TEST(WantOfMemory, a_call_is_refused_or_fails_and_says_so) {
  const TempFolder folder;
  folder.Write("text", kLongText);
  const std::string word = "@" + folder.File("text");
  const std::vector<const char*> arguments = {"call", "FstrVbStrToHexStr", word.c_str(), "--refs"};
  std::size_t n = 1;
  while (const auto outcome = RunWithout(n, arguments)) {
    ASSERT_LT(++n, 1000u);
    // The member's own error where it has begun, else the tool's.
    EXPECT_THAT(outcome->errors.substr(0, 200),
                AnyOf(StartsWith("0x80040018 clsCommon.FstrVbStrToHexStr "),
                      StartsWith("7 Public_Module Out of memory"),
                      StartsWith("vandpublic: out of memory\n")))
        << n;
    EXPECT_EQ(outcome->status, outcome->errors.starts_with("vandpublic: ") ? 2 : 1) << n;
  }
  EXPECT_GT(n, 10u);
}

TEST(WantOfMemory, a_batch_ends_with_a_message_or_has_a_bad_row) {
  const TempFolder folder;
  folder.Write("in.csv", "code,text\n1," + kLongText + "\n2,x\n");
  const std::string input = folder.File("in.csv");
  const std::vector<const char*> arguments = {
      "batch", "EncodeStrSQL", "--column",   "istr_Source=text", "--drop-input", "--jobs",
      "1",     "--input",      input.c_str()};
  std::size_t n = 1;
  std::size_t bad_rows = 0;
  while (const auto outcome = RunWithout(n, arguments)) {
    ASSERT_LT(++n, 1000u);
    ASSERT_NE(outcome->status, 0) << n;
    EXPECT_THAT(outcome->errors.substr(0, 200), HasSubstr("ut of memory")) << n;
    if (outcome->status != 1) continue;
    ++bad_rows;
    EXPECT_EQ(outcome->output, "result,error\n,out of memory\nx,\n") << n;
  }
  EXPECT_GT(n, 5u);
  EXPECT_GT(bad_rows, 0u);
}

}  // namespace
}  // namespace vandpublic
