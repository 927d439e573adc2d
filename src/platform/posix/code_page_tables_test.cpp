#include "platform/posix/code_page_tables.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "runtime/errors.h"

namespace vandpublic {
namespace {

TEST(CodePageTables, a_missing_converter_is_a_clear_error) {
  const CodePageFacts facts = {1, "NO-SUCH-CHARSET", {}, {}, {}, {}};
  try {
    BuildCodePageTables(facts);
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 429);
    EXPECT_EQ(error.source(), u"Public_Module");
    EXPECT_EQ(error.description(), u"The C library has no converter for NO-SUCH-CHARSET");
  }
}

TEST(CodePageTables, page_1252_asks_no_converter) {
  const auto pages = AllCodePageFacts();
  const auto page = std::find_if(pages.begin(), pages.end(),
                                 [](const CodePageFacts& facts) { return facts.number == 1252; });
  ASSERT_NE(page, pages.end());
  EXPECT_EQ(page->charset, nullptr);
}

TEST(CodePageTables, a_duplicate_is_written_when_no_other_code_has_its_unit) {
  static constexpr ByteRange kLeads[] = {{0x81, 0x82}};
  static constexpr PairBlock kPairs[] = {{{0x81, 0x81}, {0x40, 0x41}, {1, 0}, u'X' + 0x100},
                                         {{0x82, 0x82}, {0x40, 0x40}, {1, 0}, u'X' + 0x100}};
  static constexpr CodeRange kDuplicates[] = {{0x8140, 0x8141}};
  const CodePageFacts facts = {1, nullptr, kLeads, {}, kPairs, kDuplicates};
  const CodePageTables tables = BuildCodePageTables(facts);
  EXPECT_EQ(tables.codes[u'X' + 0x100], 0x8240) << "the other code goes first";
  EXPECT_EQ(tables.codes[u'Y' + 0x100], 0x8141) << "its only code";
}

}  // namespace
}  // namespace vandpublic
