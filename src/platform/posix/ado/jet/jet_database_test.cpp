// Jet databases as they are read: every sample against what an independent reader found in it.
#include "platform/posix/ado/jet/jet_database.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/sql/sql_engine.h"
#include "platform/posix/code_pages.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"
#include "support/expected_rows.h"
#include "support/test_data.h"

namespace vandpublic::ado {
namespace {

struct Sample {
  const char* file;
  const char* table;
  const char16_t* password;
};

class JetSample : public testing::TestWithParam<Sample> {};

TEST_P(JetSample, Holds_what_the_independent_reader_found) {
  const std::string file = GetParam().file;
  JetDatabase database(SamplePath("jet/" + file + ".mdb"), GetParam().password, FindCodePage(1252));
  const auto table = database.Open(GetParam().table);
  ASSERT_NE(table, nullptr);
  const std::string expected = "jet/expected/" + file + "." + GetParam().table + ".csv";
  ExpectSameRows(ShownRows(*table, false), ReadExpectedRows(expected));
}

constexpr Sample kSamples[] = {
    {"testV1997", "Table1", u""},
    {"test2V1997", "MSP_PROJECTS", u""},
    {"fixedTextTestV2000", "users", u""},
    {"db97-enc", "Table1", u""},
    {"V2003_with-password", "Table1", u"password"},
    {"charsetGBK", "table1", u""},
};

INSTANTIATE_TEST_SUITE_P(All, JetSample, testing::ValuesIn(kSamples), [](const auto& sample) {
  std::string name = sample.param.file;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
});

}  // namespace
}  // namespace vandpublic::ado
