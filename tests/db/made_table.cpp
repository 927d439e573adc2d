// The table's fields and rows.
#include "db/made_table.h"

#include <array>

#include "support/made_dbf.h"

namespace vandpublic::db_tests {

void MakeFoxProTable(const TempFolder& folder, const std::string& name, int rows) {
  constexpr std::array<const char*, 4> kNames = {"one", "two", "three", "four"};
  constexpr int kNullable = 2;
  constexpr int kSystem = 5;
  MadeDbf table;
  table.fields = {{"ID", 'I', 4},
                  {"NAME", 'C', 20, kNullable},
                  {"PHOTO", 'G', 4},
                  {"_NullFlags", '0', 1, kSystem}};
  table.table_flags = 2;
  for (int i = 0; i < rows; ++i) {
    std::string text = kNames.at(static_cast<std::size_t>(i));
    text.resize(20, ' ');
    table.records.push_back(MadeNumber(static_cast<unsigned>(i + 1), 4) + text +
                            MadeNumber(0, 4 + 1));
  }
  folder.Write(name + ".dbf", table.Content());
  folder.Write(name + ".fpt", MadeFptHeader());
}

}  // namespace vandpublic::db_tests
