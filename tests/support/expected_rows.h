// What a sample table holds, as an independent reader wrote it down.
#ifndef VANDPUBLIC_TESTS_SUPPORT_EXPECTED_ROWS_H
#define VANDPUBLIC_TESTS_SUPPORT_EXPECTED_ROWS_H

#include <string>
#include <vector>

#include "platform/posix/ado/provider.h"
#include "platform/posix/ado/sql/file_table.h"

namespace vandpublic::ado {

using TextRow = std::vector<std::string>;
using TextRows = std::vector<TextRow>;

// The rows of a file below tests/data, in the form that its README tells; the column names first.
TextRows ReadExpectedRows(const std::string& name);

// A value in that form. Texts lose the blanks at their ends, with which some columns are padded.
std::string ShownValue(const Variant& value, DataType type);

// The values of a statement's rows, "|" between those of a row and "/" between rows.
std::string ShownResult(const Result& result);

// All rows of the table, the column names first, in lower case where that is asked for.
TextRows ShownRows(FileTable& table, bool lower_case_names);

// Fails the test where the rows differ; their order does not count. "\E", a blank cell, is equal
// to what blank cells are read as.
void ExpectSameRows(const TextRows& actual, TextRows expected);

}  // namespace vandpublic::ado

#endif
