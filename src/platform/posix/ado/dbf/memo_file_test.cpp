// Every kind of memo file, and each part of one that can be wrong, in tables that are made here.
#include "platform/posix/ado/dbf/memo_file.h"

#include <gtest/gtest.h>

#include "support/expected_rows.h"
#include "support/foxpro_folder.h"
#include "support/made_dbf.h"

namespace vandpublic::ado {
namespace {

// Tables of a memo field "x" and their memo files.
struct MemoCase {
  const char* name;
  char version;
  char type;
  std::string cell;
  std::string memos;
  std::string shown;
};

std::string Dbase4Header(unsigned block_size) {
  return (std::string(20, '\0') + MadeNumber(block_size, 2)).append(490, '\0');
}

std::string Dbase4Memo(const std::string& content) {
  return "\xFF\xFF" + std::string("\x08\0", 2) + MadeNumber(content.size() + 8, 4) + content;
}

TEST(DbfMemos, Are_read_of_every_kind_of_file) {
  const std::string in_dbt = "Memo file made.dbt is missing or is invalid.";
  const std::string in_fpt = "Memo file made.fpt is missing or is invalid.";
  const std::string no_file = "Memo file for made.dbf is missing or is invalid.";
  const std::string bad_cell = "Field x holds no value of its type; the table may be damaged.";
  const std::string first = "         1";
  const std::string block(512, '\0');
  const std::string long_text(5000, 'm');
  const std::string fpt = MadeFptHeader();
  const std::string eighth = MadeNumber(8, 4);
  const MemoCase cases[] = {
      {"dBASE 3", MadeDbf::kDbase3Memo, 'M', first, block + "memo\x1A\x1A", "memo"},
      {"dBASE 3, long", MadeDbf::kDbase3Memo, 'M', first, block + long_text + "\x1A", long_text},
      {"dBASE 3, without an end", MadeDbf::kDbase3Memo, 'M', first, block + "memo", "memo"},
      {"dBASE 3, empty", MadeDbf::kDbase3Memo, 'M', "          ", block, ""},
      {"dBASE 3, behind the end", MadeDbf::kDbase3Memo, 'M', first, block, in_dbt},
      {"dBASE 3, without a file", MadeDbf::kDbase3Memo, 'M', first, "", no_file},
      {"dBASE 3, no number", MadeDbf::kDbase3Memo, 'M', "         x", block, bad_cell},
      {"dBASE 3, half a number", MadeDbf::kDbase3Memo, 'M', "1x        ", block, bad_cell},
      {"dBASE 3, too large a number", MadeDbf::kDbase3Memo, 'M', "9999999999", block, bad_cell},
      {"dBASE 3 without memos", MadeDbf::kDbase3, 'M', first, block + "memo", no_file},
      {"dBASE 4", MadeDbf::kDbase4Memo, 'M', first, Dbase4Header(512) + Dbase4Memo("memo"), "memo"},
      {"dBASE 4, default block", MadeDbf::kDbase4Memo, 'M', first,
       Dbase4Header(0) + Dbase4Memo("memo"), "memo"},
      {"dBASE 4, binary", MadeDbf::kDbase4Memo, 'B', first, Dbase4Header(512) + Dbase4Memo("a"),
       ShownValue(ByteArray({'a'}), DataType::LongVarBinary)},
      {"dBASE 4, without its mark", MadeDbf::kDbase4Memo, 'M', first, Dbase4Header(512) + block,
       in_dbt},
      {"dBASE 4, too short", MadeDbf::kDbase4Memo, 'M', first,
       Dbase4Header(512) + "\xFF\xFF" + std::string("\x08\0\x07\0\0\0", 6), in_dbt},
      {"dBASE 4, too long", MadeDbf::kDbase4Memo, 'M', first,
       Dbase4Header(512) + Dbase4Memo("memo").substr(0, 10), in_dbt},
      {"dBASE 4, half a block's header", MadeDbf::kDbase4Memo, 'M', first,
       Dbase4Header(512) + "\xFF", in_dbt},
      {"dBASE 4, half a header", MadeDbf::kDbase4Memo, 'M', first, "short", in_dbt},
      {"FoxPro 2", MadeDbf::kFoxPro2, 'M', "         8", fpt + MadeFptMemo("memo"), "memo"},
      {"FoxPro", MadeDbf::kVisualFoxPro, 'M', eighth, fpt + MadeFptMemo("memo"), "memo"},
      {"FoxPro, general", MadeDbf::kVisualFoxPro, 'G', eighth, fpt + MadeFptMemo("a", false),
       ShownValue(ByteArray({'a'}), DataType::LongVarBinary)},
      {"FoxPro, picture", MadeDbf::kVisualFoxPro, 'P', eighth, fpt + MadeFptMemo("a", false),
       ShownValue(ByteArray({'a'}), DataType::LongVarBinary)},
      {"FoxPro, blob", MadeDbf::kVisualFoxPro, 'W', eighth, fpt + MadeFptMemo("a", false),
       ShownValue(ByteArray({'a'}), DataType::LongVarBinary)},
      {"FoxPro, empty", MadeDbf::kVisualFoxPro, 'M', MadeNumber(0, 4), fpt, ""},
      {"FoxPro, behind the end", MadeDbf::kVisualFoxPro, 'M', eighth, fpt, in_fpt},
      {"FoxPro, half a block's header", MadeDbf::kVisualFoxPro, 'M', eighth, fpt + "abc", in_fpt},
      {"FoxPro, too long", MadeDbf::kVisualFoxPro, 'M', eighth, fpt + MadeFptMemo("x").substr(0, 8),
       in_fpt},
      {"FoxPro, half a header", MadeDbf::kVisualFoxPro, 'M', eighth, "abc", in_fpt},
      {"FoxPro, blocks of no bytes", MadeDbf::kVisualFoxPro, 'M', eighth, block, in_fpt},
      {"FoxPro, without a file", MadeDbf::kVisualFoxPro, 'M', eighth, "", no_file},
  };
  for (const MemoCase& memo : cases) {
    MadeDbf table;
    table.version = memo.version;
    table.fields = {{"x", memo.type, static_cast<unsigned>(memo.cell.size())}};
    table.records = {memo.cell};
    const TempFolder folder;
    folder.Write("made.dbf", table.Content());
    const bool is_fpt = memo.version == MadeDbf::kVisualFoxPro || memo.version == MadeDbf::kFoxPro2;
    if (!memo.memos.empty()) folder.Write(is_fpt ? "made.fpt" : "made.dbt", memo.memos);
    EXPECT_EQ(Rows(folder), memo.shown) << memo.name;
  }
}

TEST(DbfMemos, Of_foxpro_2_are_numbered_in_digits) {
  MadeDbf table;
  table.version = MadeDbf::kFoxPro2;
  table.fields = {{"x", 'M', 10}};
  const TempFolder folder;
  folder.Write("made.dbf", table.Content());
  folder.Write("made.fpt", MadeFptHeader());
  Rows(folder, "Insert Into made (x) Values ('first')");
  Rows(folder, "Insert Into made (x) Values ('second')");
  Rows(folder, "Insert Into made (x) Values ('')");
  EXPECT_EQ(Rows(folder), "first/second/");
  const std::string records = folder.Read("made.dbf").substr(table.HeaderLength());
  EXPECT_EQ(records, "          8          9           \x1A");
}

TEST(DbfMemos, Are_not_added_to_a_file_that_is_full) {
  MadeDbf table;
  table.fields = {{"x", 'M', 4}};
  table.records = {MadeNumber(0, 4)};
  const TempFolder folder;
  folder.Write("made.dbf", table.Content());
  folder.Write("made.fpt", MadeFptHeader().replace(0, 4, "\xFF\xFF\xFF\xFF"));
  const std::string before = folder.Read("made.fpt");
  EXPECT_EQ(Rows(folder, "Update made Set x='memo'"),
            "Memo file made.fpt is missing or is invalid.");
  EXPECT_EQ(folder.Read("made.fpt"), before);
}

}  // namespace
}  // namespace vandpublic::ado
