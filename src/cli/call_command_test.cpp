#include "cli/call_command.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "cli/json_text.h"
#include "cli/members_command.h"
#include "members/member_table.h"
#include "support/tool_platform.h"

namespace vandpublic {
namespace {

CommandResult Tool(std::vector<const char*> arguments) {
  const CommandLine line = ParseCommandLine(arguments);
  return line.command->name == "call" ? RunCall(line, TestPlatform()) : RunMembers(line);
}

std::string Problem(std::vector<const char*> arguments) {
  try {
    Tool(std::move(arguments));
    return "";
  } catch (const UsageError& error) {
    return error.what();
  }
}

TEST(CallCommand, prints_results_by_their_type) {
  EXPECT_EQ(Tool({"call", "IsHex", "1F"}).output, "True\n");
  EXPECT_EQ(Tool({"call", "hextodec", "ff"}).output, "255\n");
  EXPECT_EQ(Tool({"call", "BitToHex", "1", "ibyt_Bit3=1"}).output, "9\n");
  EXPECT_EQ(Tool({"call", "FstrHexStrToByte", "ABC"}).output, "0ABC\n");
  EXPECT_EQ(Tool({"call", "HexToBit", "A"}).output, "");
}

TEST(CallCommand, a_value_alone_is_for_the_first_parameter_without_one) {
  EXPECT_EQ(Tool({"call", "BitToHex", "ibyt_Bit0=1", "1", "0", "1"}).output, "B\n");
  EXPECT_EQ(Tool({"call", "BitToHex", "1", "ibyt_Bit2=1", "0", "1"}).output, "D\n");
}

TEST(CallCommand, shows_references_when_asked) {
  EXPECT_EQ(Tool({"call", "HexToBit", "A", "--refs"}).output,
            "rbyt_Bit0 = 0\nrbyt_Bit1 = 1\nrbyt_Bit2 = 0\nrbyt_Bit3 = 1\n");
  EXPECT_EQ(
      Tool({"call", "--refs", "DES", "133457799BBCDFF1", "0123456789ABCDEF", "8", ":8"}).output,
      "True\nabyt_Key = 133457799BBCDFF1\nabyt_Source = 0123456789ABCDEF\niint_SrcLen = 8\n"
      "abyt_Result = 85E813540F0AB405\nrstr_ErrDesc = \n");
}

TEST(CallCommand, a_failing_member_is_status_1) {
  const CommandResult failed = Tool({"call", "HexToDec", "G"});
  EXPECT_EQ(failed.status, 1);
  EXPECT_EQ(failed.output, "");
  EXPECT_EQ(failed.errors, "0x80040013 clsCommon.HexToDec Input value is not in hex format.\n");
}

TEST(CallCommand, a_plain_fault_has_its_small_number) {
  const CommandResult failed = Tool({"call", "CpyByteArray", ":1", "0102", "2", "--refs"});
  EXPECT_EQ(failed.status, 1);
  EXPECT_EQ(failed.errors, "9 Public_Module Subscript out of range\n");
  EXPECT_EQ(failed.output,
            "abyt_Dest = 01\nabyt_Src = 0102\niint_DataLen = 2\nrvar_DesSub = 1\n"
            "iint_SrcSub = 0\n");
}

TEST(CallCommand, json_is_the_reply_of_the_pipe) {
  EXPECT_EQ(Tool({"call", "--json", "IsHex", "1F"}).output, "{\"result\":true,\"refs\":{}}\n");
  const CommandResult failed = Tool({"call", "--json", "HexToDec", "80000000"});
  EXPECT_EQ(failed.status, 1);
  EXPECT_EQ(failed.output,
            "{\"error\":{\"number\":-2147221485,\"hex\":\"0x80040013\",\"source\":"
            "\"clsCommon.HexToDec\",\"description\":\"\"},\"refs\":{}}\n");
}

TEST(CallCommand, settings_are_applied_before_the_call) {
  EXPECT_EQ(Tool({"call", "LogFileFullName", "--app-path", "/srv"}).output,
            "/srv\\LOG\\ERROR.log\n");
  EXPECT_EQ(Tool({"call", "LogFileFullName", "--app-path=/srv", "--log-name=x.log"}).output,
            "/srv\\LOG\\x.log\n");
  EXPECT_EQ(Tool({"call", "LogFilePath", "--app-path=/srv", "--log-path=/var"}).output, "/var\n");
  EXPECT_EQ(Tool({"call", "AppPath", "--app-path=/srv"}).output, "/srv\n");
  EXPECT_EQ(Tool({"call", "DebugMode"}).output, "1\n");
  EXPECT_EQ(Tool({"call", "DebugMode", "--app-path=/srv", "--debug-mode=0"}).output, "0\n");
  EXPECT_EQ(Tool({"call", "DebugMode", "--debug-mode", "debug_mode_msgbox"}).output, "2\n");
}

TEST(CallCommand, a_property_has_no_references) {
  EXPECT_EQ(Tool({"call", "AppPath", "--app-path=/srv", "--refs"}).output, "/srv\n");
  EXPECT_EQ(Tool({"call", "AppPath", "--app-path=/srv", "--json"}).output,
            "{\"result\":\"/srv\"}\n");
}

TEST(CallCommand, settings_that_are_no_text_are_refused) {
  for (const std::string option : {"--app-path", "--log-path", "--log-name"}) {
    EXPECT_EQ(Problem({"call", "AppPath", option.c_str(), "\xFF"}),
              "'" + option + "': a value is not in UTF-8");
  }
}

TEST(CallCommand, explains_a_wrong_command_line) {
  EXPECT_EQ(Problem({"call"}), "the member's name is missing");
  EXPECT_EQ(Problem({"call", "HxToDec"}), "unknown member 'HxToDec'; did you mean 'HexToDec'?");
  EXPECT_EQ(Problem({"call", "IsHex"}), "argument 'istr_HexNumber' is missing");
  EXPECT_EQ(Problem({"call", "IsHex", "1", "2"}), "too many arguments: 'IsHex' takes 1");
  EXPECT_EQ(Problem({"call", "IsHex", "1", "istr_hexnumber=2"}),
            "argument 'istr_HexNumber' is given twice");
  EXPECT_EQ(Problem({"call", "BitToHex", "x"}), "argument 'ibyt_Bit0': a whole number is needed");
  EXPECT_EQ(Problem({"call", "BitToHex", "256"}),
            "argument 'ibyt_Bit0': a whole number from 0 to 255 is needed");
  EXPECT_EQ(Problem({"call", "DebugMode", "--debug-mode", "loud"}),
            "'--debug-mode': a member of enumDebugMode is needed");
  EXPECT_EQ(Problem({"call", "LogFilePath", "/x"}), "too many arguments: 'LogFilePath' takes 0");
}

TEST(CallCommand, a_value_is_never_repeated_in_a_message) {
  const std::string problem = Problem({"call", "DES", "SECRET", "", "8", ""});
  EXPECT_NE(problem, "");
  EXPECT_EQ(problem.find("SECRET"), problem.npos);
}

TEST(MembersCommand, lists_every_slot) {
  const std::string list = Tool({"members"}).output;
  EXPECT_EQ(static_cast<std::size_t>(std::count(list.begin(), list.end(), '\n')), kSlotCount);
  EXPECT_NE(list.find("\nHexToDec(istr_HexNumber As String) As Long\n"), list.npos);
}

TEST(MembersCommand, tells_about_one_member) {
  const std::string page = Tool({"members", "hextodec"}).output;
  EXPECT_EQ(page.find("HexToDec(istr_HexNumber As String) As Long\n\nSlot 38, dispatch id "), 0u);
  EXPECT_NE(page.find("0x80040013"), page.npos);
  EXPECT_NE(page.find("Input value is not in hex format."), page.npos);
}

TEST(MembersCommand, shows_both_uses_of_a_property) {
  const std::string page = Tool({"members", "AppPath"}).output;
  EXPECT_NE(page.find("AppPath As String\n"), page.npos);
  EXPECT_NE(page.find("AppPath(value As String)\n"), page.npos);
}

TEST(MembersCommand, json_has_the_whole_table) {
  const Json list = Json::parse(Tool({"members", "--json"}).output);
  ASSERT_EQ(list.size(), kSlotCount);
  const Json& pad = list[55];
  EXPECT_EQ(pad["name"], "FstrPadToSpecLen");
  EXPECT_EQ(pad["slot"], 56);
  EXPECT_EQ(pad["result"], "String");
  EXPECT_EQ(pad["error"], -2147221477);
  EXPECT_EQ(pad["parameters"][3].dump(),
            R"({"name":"enumMethod","type":"enumPadMethod","by_reference":false,)"
            R"("optional":true,"default":2})");
  EXPECT_EQ(Json::parse(Tool({"members", "DebugMode", "--json"}).output).size(), 2u);
}

TEST(MembersCommand, explains_a_wrong_command_line) {
  EXPECT_EQ(Problem({"members", "IsHx"}), "unknown member 'IsHx'; did you mean 'IsHex'?");
  EXPECT_EQ(Problem({"members", "IsHex", "DES"}), "one member at a time");
}

}  // namespace
}  // namespace vandpublic
