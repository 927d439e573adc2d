// Statements over a folder of dBASE and FoxPro tables, and what they come to as text.
#ifndef VANDPUBLIC_TESTS_SUPPORT_FOXPRO_FOLDER_H
#define VANDPUBLIC_TESTS_SUPPORT_FOXPRO_FOLDER_H

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/dbf/dbf_folder.h"
#include "platform/posix/ado/sql/sql_engine.h"
#include "platform/posix/code_pages.h"
#include "platform/posix/posix_clock.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"
#include "support/expected_rows.h"
#include "support/temp_folder.h"

namespace vandpublic::ado {

inline SqlEngine EngineFor(const TempFolder& folder) {
  const DbfSettings settings{FindCodePage(1252), std::make_shared<PosixClock>()};
  return {std::make_unique<DbfFolder>(folder.path().string(), settings), Dialect::FoxPro};
}

// What an action gives, or the error's description.
template <class Action>
std::string OutcomeOf(Action action) {
  try {
    return action();
  } catch (const AutomationError& error) {
    EXPECT_EQ(ToUtf8(error.source()), kOdbcSource);
    return ToUtf8(error.description());
  }
}

inline std::string Rows(const TempFolder& folder,
                        const std::string& statement = "Select * From made") {
  return OutcomeOf([&] { return ShownResult(EngineFor(folder).Execute(statement, false)); });
}

}  // namespace vandpublic::ado

#endif
