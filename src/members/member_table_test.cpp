#include "members/member_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "members/member_ids.h"
#include "members/member_text.h"
#include "members/messages.h"
#include "runtime/utf8.h"
#include "support/test_data.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

std::string StyleName(FailureStyle style) {
  switch (style) {
    case FailureStyle::Raise:
      return "raise";
    case FailureStyle::RaiseOwn:
      return "raise-own";
    case FailureStyle::Report:
      return "report";
    case FailureStyle::Swallow:
      return "swallow";
    case FailureStyle::Pass:
      return "pass";
  }
  return "?";
}

bool HasErrDesc(const MemberInfo& member) {
  return std::any_of(member.parameters.begin(), member.parameters.end(),
                     [](const Parameter& p) { return p.name == "rstr_ErrDesc"; });
}

// One line as in interface/failures.txt.
std::string FailureLine(std::size_t index, const MemberInfo& member) {
  const bool logs = member.failure != FailureStyle::Swallow;
  std::vector<std::string> words = {
      std::to_string(index + 1),
      std::string(member.name),
      member.code == 0 ? "-" : HexNumber(ErrorNumber(member.code)).substr(2),
      StyleName(member.failure),
      !logs                                                    ? "-"
      : member.fault_description == FaultDescription::Composed ? "composed"
                                                               : "empty",
      logs ? ToUtf8(member.log_application) : "-",
      logs ? ToUtf8(member.log_module) : "-",
      logs ? std::string(member.LogName()) : "-",
      !HasErrDesc(member)         ? "none"
      : member.writes_description ? "writes"
                                  : "keeps"};
  std::string line;
  for (const std::string& word : words)
    line += (line.empty() ? "" : " ") + word;
  return line;
}

std::vector<std::string> Names() {
  std::vector<std::string> names;
  for (const MemberInfo& member : MemberTable())
    names.emplace_back(member.name);
  return names;
}

TEST(MemberTable, The_78_slots_have_the_promised_signatures_in_the_promised_order) {
  std::vector<std::string> signatures;
  for (const MemberInfo& member : MemberTable())
    signatures.push_back(MemberSignature(member));
  EXPECT_EQ(signatures.size(), 78u);
  EXPECT_THAT(signatures, ElementsAreArray(ReadLines("interface/signatures.txt")));
}

TEST(MemberTable, There_are_74_names) {
  const std::vector<std::string> names = Names();
  EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), 74u);
}

TEST(MemberTable, Names_are_legal_and_tell_each_other_apart_without_case) {
  std::set<std::string> seen;
  for (const MemberInfo& member : MemberTable()) {
    EXPECT_TRUE(std::isalpha(static_cast<unsigned char>(member.name.front()))) << member.name;
    EXPECT_TRUE(std::all_of(member.name.begin(), member.name.end(),
                            [](unsigned char c) { return std::isalnum(c) || c == '_'; }));
    if (member.kind == SlotKind::PropertyPut) continue;
    std::string lower(member.name);
    std::transform(lower.begin(), lower.end(), lower.begin(), ::tolower);
    EXPECT_TRUE(seen.insert(lower).second) << member.name;
  }
}

TEST(MemberTable, The_Member_enumeration_counts_the_slots) {
  EXPECT_EQ(MemberTable()[static_cast<std::size_t>(Member::NotNull)].name, "NotNull");
  EXPECT_EQ(MemberTable()[static_cast<std::size_t>(Member::PutDebugMode)].name, "DebugMode");
  EXPECT_EQ(MemberTable()[static_cast<std::size_t>(Member::DES)].name, "DES");
  EXPECT_EQ(static_cast<std::size_t>(Member::SystemDecrypt), kSlotCount - 1);
}

TEST(MemberTable, Properties_have_a_read_slot_and_a_write_slot_but_for_LogFileFullName) {
  std::vector<std::string> gets;
  std::vector<std::string> puts;
  for (const MemberInfo& member : MemberTable()) {
    if (member.kind == SlotKind::PropertyGet) gets.emplace_back(member.name);
    if (member.kind == SlotKind::PropertyPut) puts.emplace_back(member.name);
  }
  EXPECT_THAT(gets,
              ElementsAre("AppPath", "DebugMode", "LogFilePath", "LogFileName", "LogFileFullName"));
  EXPECT_THAT(puts, ElementsAre("AppPath", "DebugMode", "LogFilePath", "LogFileName"));
}

TEST(MemberTable, Dispatch_ids_run_from_1_to_74_and_a_property_has_one) {
  std::map<std::string, std::int32_t> ids;
  std::int32_t last = 0;
  for (std::size_t i = 0; i < kSlotCount; ++i) {
    const std::int32_t id = DispatchId(i);
    const auto [known, is_new] = ids.emplace(MemberTable()[i].name, id);
    EXPECT_EQ(known->second, id);
    EXPECT_EQ(id, is_new ? last + 1 : last) << MemberTable()[i].name;
    last = id;
  }
  EXPECT_EQ(last, 74);
  EXPECT_EQ(DispatchId(0), 1);
  EXPECT_EQ(ids["AppPath"], 15);
  EXPECT_EQ(ids["DebugMode"], 16);
  EXPECT_EQ(ids["LogFileFullName"], 21);
  EXPECT_EQ(ids["DES"], 63);
  EXPECT_EQ(ids["SystemDecrypt"], 74);
}

TEST(MemberTable, FindSlot_ignores_case_and_minds_the_kind) {
  EXPECT_EQ(FindSlot("NotNull", SlotKind::Method), 0u);
  EXPECT_EQ(FindSlot("systemDECRYPT", SlotKind::Method), 77u);
  EXPECT_EQ(FindSlot("debugmode", SlotKind::PropertyGet), 16u);
  EXPECT_EQ(FindSlot("debugmode", SlotKind::PropertyPut), 17u);
  EXPECT_EQ(FindSlot("debugmode", SlotKind::Method), std::nullopt);
  EXPECT_EQ(FindSlot("LogFileFullName", SlotKind::PropertyPut), std::nullopt);
  EXPECT_EQ(FindSlot("DES4", SlotKind::Method), std::nullopt);
  EXPECT_EQ(FindSlot("", SlotKind::Method), std::nullopt);
}

TEST(MemberTable, Failures_lead_to_what_was_promised) {
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < kSlotCount; ++i) {
    const MemberInfo& member = MemberTable()[i];
    if (member.failure != FailureStyle::Pass) lines.push_back(FailureLine(i, member));
  }
  EXPECT_EQ(lines.size(), 58u);
  EXPECT_THAT(lines, ElementsAreArray(ReadLines("interface/failures.txt")));
}

TEST(MemberTable, Of_47_numbers_44_differ) {
  std::map<int, std::vector<std::string>> users;
  std::size_t with_number = 0;
  for (const MemberInfo& member : MemberTable()) {
    if (member.code == 0) continue;
    ++with_number;
    users[member.code].emplace_back(member.name);
  }
  EXPECT_EQ(with_number, 47u);
  EXPECT_EQ(users.size(), 44u);
  EXPECT_THAT(users[0x12], ElementsAre("HexToBit", "HexXor"));
  EXPECT_THAT(users[0x16], ElementsAre("GetSettingFromReg", "SelectField"));
  EXPECT_THAT(users[0x2D], ElementsAre("MAC", "TMAC"));
  for (const int code : {0x04, 0x11, 0x1D, 0x2C, 0x2E})
    EXPECT_FALSE(users.contains(code)) << code;
  EXPECT_EQ(users.begin()->first, 0x01);
  EXPECT_EQ(users.rbegin()->first, 0x31);
}

TEST(MemberTable, Exactly_the_members_that_raise_have_a_number) {
  for (const MemberInfo& member : MemberTable()) {
    const bool raises =
        member.failure == FailureStyle::Raise || member.failure == FailureStyle::RaiseOwn;
    EXPECT_EQ(member.code != 0, raises) << member.name;
  }
}

TEST(MemberTable, ErrorNumber_is_the_signed_code) {
  EXPECT_EQ(ErrorNumber(0x01), -2147221503);
  EXPECT_EQ(ErrorNumber(0x31), -2147221455);
}

// The members' own messages in the order of their checks.
const std::map<std::string, std::vector<std::string>> kMessages = {
    {"NotNull", {"Invalid value type."}},
    {"OpenConnAsMDB",
     {"Connection object not set yet.", "MDB file path not provided.", "File name not provided.",
      "MDB file not found."}},
    {"OpenConnAsFoxpro",
     {"Connection object not set yet.", "DBF file directory not provided.", "DBF file not found."}},
    {"OpenADORecordSet", {"Connection object not set yet.", "Recordset object not set yet."}},
    {"AppendText", {"File path not provided."}},
    {"ArraySize", {"Invalid input dimension."}},
    {"TextRWWrite", {"File path not provided."}},
    {"TextRWRead", {"File path not provided."}},
    {"BitToHex", {"Input value is not in bit format."}},
    {"HexToDec", {"Input value is not in hex format."}},
    {"BitToMsgFmtText", {"Input value is not in bit format."}},
    {"SaveSettingToIni",
     {"File name not provided.", "Section name not provided.", "Key name not provided.",
      "Failed to save setting into .ini file!"}},
    {"GetSettingFromIni",
     {"File name not provided.", "Section name not provided.", "Key name not provided."}},
    {"GetSettingFromReg", {"Section name not provided.", "Key name not provided."}},
    {"DispBytes", {"Invalid Count of displaying per line. ", "Invalid displayed Number . "}},
    {"FstrPackTable", {"Invalid Source String .", "Invalid Table ID ."}},
    {"FstrHexStrToByte",
     {"Resouce string not Hex string.", "the specified len is not enough to hold the byte array."}},
    {"FillByteArrWithHexStr", {"Resouce string not Hex string."}},
    {"SystemDirectory", {"Call API not get correct System Dir information !"}},
    {"WindowsDirectory", {"Call API not get correct Windows Dir information !"}},
    {"ComputerName", {"Call API not get correct Computer Name information !"}},
    {"DES",
     {"Invalid key size provided.", "Invalid source data length.",
      "Length of source bytes must be multiple of 8.", "Source byte array size not enough.",
      "Result byte array size not enough.", "Error occurs during encrypt data."}},
    {"UDES",
     {"Invalid key size provided.", "Invalid source data length.",
      "Length of source bytes must be multiple of 8.", "Source byte array size not enough.",
      "Result byte array size not enough.", "Error occurs during encrypt data."}},
    {"DES3", {"Invalid key size provided."}},
    {"UDES3", {"Invalid key size provided."}},
    {"DiversifyKey",
     {"Invalid master key size. ", "Length of Div data bytes must be multiple of 8.",
      "DivKey size is less than 16 bytes."}},
    {"GenOrigalityKey", {"Invalid seed size."}},
    {"SystemDecrypt", {"Input not Hex string . "}},
};

TEST(MemberTable, Each_member_rejects_with_its_own_messages) {
  for (const MemberInfo& member : MemberTable()) {
    std::vector<std::string> texts;
    for (const std::u16string_view message : member.messages)
      texts.push_back(ToUtf8(message));
    const auto expected = kMessages.find(std::string(member.name));
    EXPECT_EQ(texts, expected == kMessages.end() ? std::vector<std::string>() : expected->second)
        << member.name;
  }
}

TEST(MemberTable, Every_message_stands_once_and_belongs_to_a_member) {
  constexpr messages::Text kAll[] = {messages::kInvalidDimension,
                                     messages::kNotHexNumber,
                                     messages::kNotBits,
                                     messages::kNotHexString,
                                     messages::kLengthTooSmall,
                                     messages::kInvalidSourceString,
                                     messages::kInvalidTableId,
                                     messages::kInvalidCountPerLine,
                                     messages::kInvalidDisplayNumber,
                                     messages::kInvalidBitCount,
                                     messages::kInvalidValueType,
                                     messages::kInvalidKeySize,
                                     messages::kInvalidSourceLength,
                                     messages::kLengthNotMultipleOf8,
                                     messages::kSourceTooSmall,
                                     messages::kResultTooSmall,
                                     messages::kEncryptFailed,
                                     messages::kInvalidMasterKeySize,
                                     messages::kDivDataNotMultipleOf8,
                                     messages::kDivKeyTooSmall,
                                     messages::kInvalidSeedSize,
                                     messages::kInputNotHexString,
                                     messages::kConnectionNotSet,
                                     messages::kRecordsetNotSet,
                                     messages::kMdbPathMissing,
                                     messages::kMdbNotFound,
                                     messages::kDbfFolderMissing,
                                     messages::kDbfNotFound,
                                     messages::kFilePathMissing,
                                     messages::kFileNameMissing,
                                     messages::kSectionMissing,
                                     messages::kKeyMissing,
                                     messages::kIniSaveFailed,
                                     messages::kNoSystemDirectory,
                                     messages::kNoWindowsDirectory,
                                     messages::kNoComputerName};
  std::set<messages::Text> used;
  for (const MemberInfo& member : MemberTable())
    used.insert(member.messages.begin(), member.messages.end());
  used.insert(messages::kInvalidBitCount);  // of the bit dump, which is no member
  EXPECT_EQ(std::set<messages::Text>(std::begin(kAll), std::end(kAll)).size(), std::size(kAll));
  EXPECT_EQ(used, std::set<messages::Text>(std::begin(kAll), std::end(kAll)));
}

TEST(MemberTable, Every_member_says_what_it_does_and_when_it_fails) {
  for (const MemberInfo& member : MemberTable()) {
    EXPECT_TRUE(member.does.ends_with('.')) << member.name;
    EXPECT_TRUE(member.raises.empty() || member.raises.ends_with('.')) << member.name;
    EXPECT_TRUE(member.leaves.empty() || member.leaves.ends_with('.')) << member.name;
  }
}

TEST(MemberTable, Optional_parameters_follow_the_required_ones) {
  for (const MemberInfo& member : MemberTable()) {
    bool optional = false;
    for (const Parameter& parameter : member.parameters) {
      EXPECT_TRUE(parameter.IsOptional() || !optional) << member.name << "." << parameter.name;
      optional = parameter.IsOptional();
    }
    EXPECT_LE(member.parameters.size(), kMostParameters);
  }
}

TEST(MemberTable, Parameter_names_of_a_member_differ_without_case) {
  for (const MemberInfo& member : MemberTable()) {
    std::set<std::string> seen;
    for (const Parameter& parameter : member.parameters) {
      std::string lower(parameter.name);
      std::transform(lower.begin(), lower.end(), lower.begin(), ::tolower);
      EXPECT_TRUE(seen.insert(lower).second) << member.name << "." << parameter.name;
    }
  }
}

TEST(MemberTable, The_enumerations_have_their_values) {
  std::map<std::string, std::map<std::string, int>> values;
  for (const Enumeration& enumeration : Enumerations()) {
    EXPECT_EQ(FindEnumeration(enumeration.type), &enumeration);
    EXPECT_EQ(TypeName(enumeration.type), enumeration.name);
    for (const EnumerationValue& value : enumeration.values)
      values[std::string(enumeration.name)][std::string(value.name)] = value.value;
  }
  const std::map<std::string, std::map<std::string, int>> expected = {
      {"enumDebugMode",
       {{"DEBUG_MODE_OFF", 0}, {"DEBUG_MODE_LOGFILE", 1}, {"DEBUG_MODE_MSGBOX", 2}}},
      {"enumInputMode",
       {{"INPUT_MODE_BIT", 0},
        {"INPUT_MODE_DECIMAL", 1},
        {"INPUT_MODE_HEX", 2},
        {"INPUT_MODE_ASC", 3},
        {"INPUT_MODE_NO_RESTRICT", 4}}},
      {"enumPadMethod", {{"LEFTPAD", 1}, {"RIGHTPAD", 2}}},
      {"LockTypeEnum",
       {{"adLockUnspecified", -1},
        {"adLockReadOnly", 1},
        {"adLockPessimistic", 2},
        {"adLockOptimistic", 3},
        {"adLockBatchOptimistic", 4}}},
  };
  EXPECT_EQ(values, expected);
  EXPECT_EQ(FindEnumeration(InterfaceType::Long), nullptr);
}

TEST(MemberTable, Every_type_has_a_name_but_no_result) {
  const std::pair<InterfaceType, const char*> cases[] = {
      {InterfaceType::None, ""},
      {InterfaceType::Boolean, "Boolean"},
      {InterfaceType::Byte, "Byte"},
      {InterfaceType::Integer, "Integer"},
      {InterfaceType::Long, "Long"},
      {InterfaceType::DebugMode, "enumDebugMode"},
      {InterfaceType::InputMode, "enumInputMode"},
      {InterfaceType::PadMethod, "enumPadMethod"},
      {InterfaceType::LockType, "LockTypeEnum"},
      {InterfaceType::String, "String"},
      {InterfaceType::Variant, "Variant"},
      {InterfaceType::ByteArray, "ByteArray"},
      {InterfaceType::ByteTable, "ByteArray(,)"},
      {InterfaceType::ErrObject, "ErrObject"},
      {InterfaceType::Connection, "Connection"},
      {InterfaceType::Recordset, "Recordset"},
      {InterfaceType::Field, "Field"},
  };
  for (const auto& [type, name] : cases)
    EXPECT_EQ(TypeName(type), name);
}

}  // namespace
}  // namespace vandpublic
