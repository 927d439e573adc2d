// Tables as they are read: every sample against what an independent reader found in it.
#include "platform/posix/ado/dbf/dbf_table.h"

#include <gtest/gtest.h>

#include "platform/posix/ado/dbf/dbf_folder.h"
#include "platform/posix/code_pages.h"
#include "platform/posix/posix_clock.h"
#include "runtime/errors.h"
#include "support/expected_rows.h"
#include "support/test_data.h"

namespace vandpublic::ado {
namespace {

DbfSettings Settings() { return {FindCodePage(1252), std::make_shared<PosixClock>()}; }

class DbfSample : public testing::TestWithParam<const char*> {};

TEST_P(DbfSample, Holds_what_the_independent_reader_found) {
  DbfFolder folder(SamplePath("dbf"), Settings());
  const auto table = folder.Open(GetParam());
  ASSERT_NE(table, nullptr);
  ExpectSameRows(ShownRows(*table, true),
                 ReadExpectedRows(std::string("dbf/expected/") + GetParam() + ".csv"));
}

INSTANTIATE_TEST_SUITE_P(All, DbfSample,
                         testing::Values("calls", "cp1251", "dbase_31", "dbase_32", "dbase_83",
                                         "dbase_8b", "memotest", "setup", "types"),
                         [](const auto& sample) { return sample.param; });

}  // namespace
}  // namespace vandpublic::ado
