#include "cli/text_values.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "cli/command_line.h"

namespace vandpublic {
namespace {

using Type = InterfaceType;

struct Word {
  InterfaceType type;
  const char* word;
  const char* json;  // null: a usage error
};

class FromWord : public testing::TestWithParam<Word> {};

TEST_P(FromWord, follows_the_parameters_type) {
  const auto& [type, word, json] = GetParam();
  if (json == nullptr) {
    EXPECT_THROW(JsonFromWord(word, type), UsageError) << word;
  } else {
    EXPECT_EQ(JsonFromWord(word, type).dump(), json) << word;
  }
}

constexpr Word kWords[] = {
    {Type::String, "a\\n\"", R"("a\\n\"")"},
    {Type::String, "", "\"\""},
    {Type::String, "json:1", "\"json:1\""},
    {Type::Integer, "-5", "-5"},
    {Type::Integer, "40000", "40000"},  // the range is the request's matter
    {Type::Integer, "", nullptr},
    {Type::Integer, "1.5", nullptr},
    {Type::Integer, "0x10", nullptr},
    {Type::Integer, " 1", nullptr},
    {Type::Long, "99999999999999999999", nullptr},
    {Type::Boolean, "true", "true"},
    {Type::Boolean, "False", "false"},
    {Type::Boolean, "-1", "true"},
    {Type::Boolean, "1", "true"},
    {Type::Boolean, "0", "false"},
    {Type::Boolean, "2", nullptr},
    {Type::Boolean, "", nullptr},
    {Type::PadMethod, "2", "2"},
    {Type::PadMethod, "LEFTPAD", "\"LEFTPAD\""},
    {Type::ByteArray, "", "null"},
    {Type::ByteArray, "0a FF\n", R"({"bytes":"0aFF"})"},
    {Type::ByteArray, "0\ta\r\n", R"({"bytes":"0a"})"},
    {Type::ByteArray, "gg", nullptr},
    {Type::ByteArray, "0a F", nullptr},
    {Type::ByteArray, "0x", nullptr},
    {Type::ByteArray, ":0", R"({"bytes":""})"},
    {Type::ByteArray, ":3", R"({"bytes":"000000"})"},
    {Type::ByteArray, ":", nullptr},
    {Type::ByteArray, ":-1", nullptr},
    {Type::ByteArray, ":2x2", nullptr},
    {Type::ByteArray, ":1048577", nullptr},
    {Type::ByteTable, ":2x3", R"({"bytes":"000000000000","bounds":[[0,1],[0,2]]})"},
    {Type::ByteTable, ":0x3", nullptr},
    {Type::ByteTable, ":3x0", nullptr},
    {Type::ByteTable, ":1024x1025", nullptr},
    {Type::ByteTable, ":3x", nullptr},
    {Type::ByteTable, ":1000000x1000000", nullptr},
    {Type::ByteTable, ":2", R"({"bytes":"0000"})"},
    {Type::Variant, "12", "\"12\""},
    {Type::Variant, "json:12", "12"},
    {Type::Variant, "json:{\"vt\":2,\"value\":5}", R"({"vt":2,"value":5})"},
    {Type::Variant, "json:", nullptr},
    {Type::ErrObject, "{\"Number\":5}", R"({"Number":5})"},
    {Type::ErrObject, "", "null"},
    {Type::ErrObject, "{", nullptr},
    {Type::Connection, "", "null"},
    {Type::Connection, "conn", nullptr},
};
INSTANTIATE_TEST_SUITE_P(TextValues, FromWord, testing::ValuesIn(kWords));

struct Shown {
  const char* json;
  const char* text;
};

class FromJson : public testing::TestWithParam<Shown> {};

TEST_P(FromJson, reads_like_text) {
  EXPECT_EQ(TextFromJson(ParseJson(GetParam().json)), GetParam().text);
}

constexpr Shown kShown[] = {
    {"\"a\\nb\"", "a\nb"},
    {"true", "True"},
    {"false", "False"},
    {"-5", "-5"},
    {"null", ""},
    {R"({"bytes":"0A0B","lower":1})", "0A0B"},
    {R"({"bytes":"0A0B0C0D","bounds":[[0,1],[3,4]]})", "0A0B 0C0D"},
    {R"({"utf16le":"00D8"})", "utf16le:00D8"},
    {R"({"vt":8,"value":"x"})", "x"},
    {R"({"vt":1,"value":null})", ""},
    {R"({"vt":11,"value":true})", "True"},
    {R"({"vt":8209,"value":{"bytes":"FF"}})", "FF"},
    {R"({"object":"ADODB.Field"})", "ADODB.Field"},
    {R"({"vt":8204,"value":{"bounds":[[1,3]]}})", R"({"bounds":[[1,3]]})"},
};
INSTANTIATE_TEST_SUITE_P(TextValues, FromJson, testing::ValuesIn(kShown));

// A file that is gone when the test is over.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& text)
      : path_(testing::TempDir() + "vandpublic_word_" + std::to_string(getpid())) {
    std::ofstream(path_, std::ios::binary) << text;
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() { std::filesystem::remove(path_); }
  std::string word() const { return "@" + path_; }

 private:
  std::string path_;
};

TEST(WordReader, reads_a_file_less_one_line_end) {
  WordReader reader;
  EXPECT_EQ(reader.Read(TemporaryFile("0A").word()), "0A");
  EXPECT_EQ(reader.Read(TemporaryFile("0A\n").word()), "0A");
  EXPECT_EQ(reader.Read(TemporaryFile("0A\r\n").word()), "0A");
  EXPECT_EQ(reader.Read(TemporaryFile("0A\n\n").word()), "0A\n");
  EXPECT_EQ(reader.Read(TemporaryFile("0A\r").word()), "0A\r");
  EXPECT_EQ(reader.Read(TemporaryFile("").word()), "");
}

TEST(WordReader, takes_other_words_as_they_are) {
  WordReader reader;
  EXPECT_EQ(reader.Read("@@x"), "@x");
  EXPECT_EQ(reader.Read("@@"), "@");
  EXPECT_EQ(reader.Read("a@b"), "a@b");
  EXPECT_EQ(reader.Read(""), "");
}

TEST(WordReader, refuses_what_it_cannot_read) {
  WordReader reader;
  EXPECT_THROW(reader.Read("@/no/such/file"), UsageError);
  EXPECT_THROW(reader.Read("@/"), UsageError);
  EXPECT_THROW(reader.Read(TemporaryFile("\xFF").word()), UsageError);
  EXPECT_THROW(reader.Read("\xC3"), UsageError);
  EXPECT_EQ(reader.Read("\xEF\xBF\xBD"), "\xEF\xBF\xBD");
}

}  // namespace
}  // namespace vandpublic
