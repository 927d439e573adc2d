// Damaged databases end in an error, or in rows: never in a crash, an endless loop or a flood of
// memory.
#include <gtest/gtest.h>

#include "platform/posix/ado/jet/jet_database.h"
#include "platform/posix/ado/sql/byte_order.h"
#include "platform/posix/ado/sql/sql_engine.h"
#include "platform/posix/code_pages.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"
#include "support/damage.h"
#include "support/expected_rows.h"
#include "support/temp_folder.h"
#include "support/test_data.h"

namespace vandpublic::ado {
namespace {

struct Sample {
  const char* file;
  const char* table;
  const char16_t* password;
};

constexpr Sample kSamples[] = {
    {"testV1997", "Table1", u""},
    {"test2V1997", "MSP_PROJECTS", u""},
    {"fixedTextTestV2000", "users", u""},
    {"db97-enc", "Table1", u""},
    {"V2003_with-password", "Table1", u"password"},
};

std::size_t ReadAll(const std::string& path, const Sample& sample) {
  SqlEngine engine(std::make_unique<JetDatabase>(path, sample.password, FindCodePage(1252)),
                   Dialect::Jet);
  return engine.Execute("Select * From " + std::string(sample.table), true).rows.size();
}

class JetDamage : public testing::TestWithParam<Sample> {};

TEST_P(JetDamage, Ends_in_order) {
  constexpr int kCopies = 300;
  const TempFolder folder;
  const std::string content = ReadSample("jet/" + std::string(GetParam().file) + ".mdb");
  std::mt19937 random(20240305);
  for (int i = 0; i < kCopies; ++i) {
    folder.Write("damaged.mdb", Damaged(content, random));
    ExpectOrderlyEnd("copy " + std::to_string(i),
                     [&] { ReadAll(folder.File("damaged.mdb"), GetParam()); });
  }
}

TEST_P(JetDamage, Of_a_cut_file_ends_in_order) {
  const TempFolder folder;
  const std::string content = ReadSample("jet/" + std::string(GetParam().file) + ".mdb");
  for (std::size_t size = 0; size < content.size(); size += content.size() / 100) {
    folder.Write("cut.mdb", content.substr(0, size));
    ExpectOrderlyEnd("size " + std::to_string(size),
                     [&] { ReadAll(folder.File("cut.mdb"), GetParam()); });
  }
}

INSTANTIATE_TEST_SUITE_P(All, JetDamage, testing::ValuesIn(kSamples), [](const auto& sample) {
  std::string name = sample.param.file;
  for (char& c : name) {
    if (c == '-') c = '_';
  }
  return name;
});

// The page of the only table of the sample, whose definition follows the name in the catalog.
std::string ErrorOf(const TempFolder& folder, const std::string& content) {
  folder.Write("made.mdb", content);
  try {
    ReadAll(folder.File("made.mdb"), kSamples[1]);
    return "no error";
  } catch (const AutomationError& error) {
    return ToUtf8(error.description());
  }
}

constexpr std::size_t kPageSize = 2048;

TEST(JetDamageOf, A_definition_that_follows_itself_is_found) {
  const TempFolder folder;
  std::string content = ReadSample("jet/test2V1997.mdb");
  std::size_t changed = 0;
  for (std::size_t page = 1; page < content.size() / kPageSize; ++page) {
    if (content[page * kPageSize] != 2) continue;
    PutLittleEndian(static_cast<std::uint32_t>(page), content.data() + page * kPageSize + 4);
    ++changed;
  }
  ASSERT_GT(changed, 0u);
  EXPECT_EQ(ErrorOf(folder, content),
            "The database is damaged: the length of a table definition is not as it must be.");
}

TEST(JetDamageOf, Long_values_that_follow_themselves_are_found) {
  const TempFolder folder;
  std::string content = ReadSample("jet/test2V1997.mdb");
  std::size_t changed = 0;
  for (std::size_t page = 1; page < content.size() / kPageSize; ++page) {
    char* const start = content.data() + page * kPageSize;
    if (std::string_view(start + 4, 4) != "LVAL") continue;
    // The first row of the page points to itself, and is four bytes long.
    PutLittleEndian(static_cast<std::uint16_t>(kPageSize - 4), start + 10);
    PutLittleEndian(static_cast<std::uint32_t>(page << 8), start + kPageSize - 4);
    ++changed;
  }
  ASSERT_GT(changed, 0u);
  EXPECT_NE(ErrorOf(folder, content).find("The database is damaged"), std::string::npos);
}

}  // namespace
}  // namespace vandpublic::ado
