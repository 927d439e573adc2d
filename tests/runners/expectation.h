// Replies and log files against what a case expects.
#ifndef VANDPUBLIC_TESTS_RUNNERS_EXPECTATION_H
#define VANDPUBLIC_TESTS_RUNNERS_EXPECTATION_H

#include <optional>
#include <string>
#include <vector>

#include "cli/json_text.h"
#include "platform/code_page.h"

namespace vandpublic {

// What is wrong with a reply, or nothing. Without an expectation the reply must be a success;
// references that are not expected are not looked at.
std::string ReplyProblem(const Json& reply, const std::optional<Json>& expected);

// The local time as log entries have it: "YYYY-MM-DD HH:NN:SS".
std::string Now();

// What is wrong with the bytes of a log file, or nothing. It must hold these entries and nothing
// else: a date between the two moments, a blank and the heading, then lines after exactly 20
// blanks, each ended by CR LF.
std::string LogProblem(const std::string& bytes,
                       const std::vector<std::vector<std::string>>& entries, const CodePage& page,
                       const std::string& earliest, const std::string& latest);

}  // namespace vandpublic

#endif
