// A Visual FoxPro table that a test makes: an integer, a text and a general column.
#ifndef VANDPUBLIC_TESTS_DB_MADE_TABLE_H
#define VANDPUBLIC_TESTS_DB_MADE_TABLE_H

#include <string>

#include "support/temp_folder.h"

namespace vandpublic::db_tests {

// Writes NAME.dbf and NAME.fpt with the columns ID (integer), NAME (20 characters, may be
// null) and PHOTO (general), and rows 1 to `rows` with the names "one", "two", ...
void MakeFoxProTable(const TempFolder& folder, const std::string& name, int rows);

}  // namespace vandpublic::db_tests

#endif
