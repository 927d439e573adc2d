// Requests damaged at random: whatever arrives, there is exactly one reply, and it is JSON.
#include <gtest/gtest.h>

#include <random>

#include "cli/pipe_session.h"
#include "support/tool_platform.h"

namespace vandpublic {
namespace {

constexpr int kRounds = 6000;

const std::vector<std::string> kRequests = {
    R"({"id":1,"member":"DES","args":{"abyt_Key":{"bytes":"0123456789ABCDEF"},"abyt_Source":)"
    R"({"bytes":"0011223344556677"},"iint_SrcLen":8,"abyt_Result":{"bytes":"0000000000000000"}}})",
    R"({"id":"a","member":"IsHex","args":["1F"]})",
    R"({"member":"HexToBit","args":["A",{"var":"b"},{"missing":true},{"var":"b"}]})",
    R"({"member":"LogError","args":["a","m","f",{"Number":5,"Source":"s","Description":"d"},)"
    R"({"utf16le":"410042"}]})",
    R"({"member":"CpyByteArray","args":[{"var":"a"},{"var":"a"},3,{"vt":6,"value":"1.5000"},1]})",
    R"({"member":"ArraySize","args":[{"vt":8209,"value":{"bytes":"0102","bounds":[[0,1],[0,0]]}},2]})",
    R"({"member":"ArraySize","args":[{"vt":8204,"value":{"bounds":[[1,3]]}}]})",
    R"({"member":"FillByteArrWithHexStr","args":[{"var":"a"},"0A0B",{"vt":5,"value":1e2}]})",
    R"({"member":"FstrHexStrToByte","args":["ABC",{"vt":2,"value":9},true]})",
    R"({"member":"DispBytes","args":[{"bytes":"FF00","lower":-3},0,40,false]})",
    R"({"let":"a","type":"ByteArray","value":{"bytes":"01020304","lower":1}})",
    R"({"let":"v","type":"Variant","value":{"vt":14,"value":"1234.50"}})",
    R"({"let":"v","type":"Variant","value":{"vt":7,"value":45356.5}})",
    R"({"show":"a"})",
    R"({"drop":"a"})",
    R"({"new":"Public_Module.clsPublic","as":"o"})",
    R"({"id":[1,{"x":2.50}],"on":"o","set":"DebugMode","value":"DEBUG_MODE_OFF"})",
    R"({"on":"o","get":"LogFileFullName","as":"p"})",
    R"({"set":"LogFilePath","value":"/d\u00e9/\ud83d\ude00"})",
};

// Pieces that are likely to lead somewhere: structure, limits, odd bytes.
const std::vector<std::string> kPieces = {"{",
                                          "}",
                                          "[",
                                          "]",
                                          ":",
                                          ",",
                                          "\"",
                                          "\\",
                                          "\\u0000",
                                          "\\ud800",
                                          "null",
                                          "true",
                                          "-1",
                                          "0",
                                          "256",
                                          "32768",
                                          "2147483648",
                                          "-2147483648",
                                          "1e308",
                                          "1e999",
                                          "1.5",
                                          "\"var\"",
                                          "\"bytes\"",
                                          "\"vt\":",
                                          "\"value\":",
                                          "\"bounds\":[[0,2147483647],[0,2147483647]]",
                                          "\"lower\":2147483647",
                                          "\"id\":",
                                          std::string(1, '\0'),
                                          "\xFF",
                                          "\xC3\xA9",
                                          "\xED\xA0\x80",
                                          "\n",
                                          " ",
                                          std::string(70, '['),
                                          std::string(200, '9')};

class Damage {
 public:
  explicit Damage(std::uint32_t seed) : random_(seed) {}

  std::string Line() {
    std::string line = Pick(kRequests);
    for (std::size_t changes = Below(4); changes > 0; --changes)
      Change(line);
    return line;
  }

 private:
  std::size_t Below(std::size_t limit) { return random_() % limit; }
  const std::string& Pick(const std::vector<std::string>& from) { return from[Below(from.size())]; }

  void Change(std::string& line) {
    const std::size_t at = Below(line.size() + 1);
    switch (Below(5)) {
      case 0:
        line.erase(at, Below(8));
        break;
      case 1:
        line.insert(at, Pick(kPieces));
        break;
      case 2:
        line.replace(at, Below(12), Pick(kPieces));
        break;
      case 3:  // a part of another request
        line.insert(at, Pick(kRequests).substr(Below(10), Below(30)));
        break;
      default:
        if (at < line.size()) line[at] = static_cast<char>(Below(256));
        break;
    }
  }

  std::mt19937 random_;
};

TEST(PipeRobustness, damaged_requests_get_one_json_reply_each) {
  PipeSession session(TestPlatform());
  Damage damage(20240305);
  int answered = 0;
  int refused = 0;
  for (int round = 0; round < kRounds; ++round) {
    const std::string line = damage.Line();
    const std::string reply = session.HandleLine(line);
    ASSERT_EQ(reply.find('\n'), reply.npos) << line;
    const Json parsed = Json::parse(reply, nullptr, false);
    ASSERT_TRUE(parsed.is_object()) << line << "\n" << reply;
    const bool ran = parsed.contains("result") || parsed.contains("error");
    ASSERT_NE(ran, parsed.contains("protocol_error")) << line << "\n" << reply;
    ++(ran ? answered : refused);
  }
  // The damage must leave some requests whole and break others, or nothing was tried.
  EXPECT_GT(answered, kRounds / 10);
  EXPECT_GT(refused, kRounds / 10);
}

}  // namespace
}  // namespace vandpublic
