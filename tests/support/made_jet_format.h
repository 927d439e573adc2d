// A test of both formats of Jet databases, on a database that the test makes.
#ifndef VANDPUBLIC_TESTS_SUPPORT_MADE_JET_FORMAT_H
#define VANDPUBLIC_TESTS_SUPPORT_MADE_JET_FORMAT_H

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/jet/jet_database.h"
#include "platform/posix/ado/sql/sql_engine.h"
#include "platform/posix/code_pages.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"
#include "support/expected_rows.h"
#include "support/made_jet.h"
#include "support/temp_folder.h"

namespace vandpublic::ado {

// Types of columns as the format numbers them.
enum JetKind {
  kBoolean = 1,
  kByte,
  kInteger,
  kLong,
  kCurrency,
  kSingle,
  kDouble,
  kDate,
  kBinary,
  kText,
  kOle,
  kMemo,
  kGuid = 15,
  kNumeric
};

// The rows of a statement over the database, or the error's description.
inline std::string OutcomeOf(const std::string& content, const std::string& statement) {
  const TempFolder folder;
  folder.Write("made.mdb", content);
  try {
    SqlEngine engine(
        std::make_unique<JetDatabase>(folder.File("made.mdb"), u"", FindCodePage(1252)),
        Dialect::Jet);
    return ShownResult(engine.Execute(statement, false));
  } catch (const AutomationError& error) {
    EXPECT_EQ(ToUtf8(error.source()), kJetSource);
    return ToUtf8(error.description());
  }
}

inline std::string Damaged(const std::string& what) {
  return "The database is damaged: " + what + " is not as it must be.";
}

// The parameter is whether the format is Jet 4.
class MadeJetFormat : public testing::TestWithParam<bool> {
 protected:
  MadeJet made_{GetParam()};

  // A table "Made" of one column "x".
  void AddColumn(MadeJetColumn column, MadeJetCell cell) {
    column.name = "x";
    made_.AddTable({"Made", {std::move(column)}, {{std::move(cell)}}});
  }
  std::string Outcome(const std::string& statement = "Select * From Made") {
    return OutcomeOf(made_.Content(), statement);
  }
};

}  // namespace vandpublic::ado

#endif
