// dBASE and FoxPro tables that a test makes, put together as the format's description has them,
// without the code that reads them.
//
//   MadeDbf made;
//   made.fields = {{"ID", 'I', 4}, {"NAME", 'C', 20}};
//   made.records = {std::string("\7\0\0\0", 4) + "seven               "};
//   folder.Write("made.dbf", made.Content());
#ifndef VANDPUBLIC_TESTS_SUPPORT_MADE_DBF_H
#define VANDPUBLIC_TESTS_SUPPORT_MADE_DBF_H

#include <string>
#include <vector>

namespace vandpublic {

struct MadeDbfField {
  std::string name;  // up to 11 bytes
  char type = 'C';
  unsigned size = 0;
  int flags = 0;  // Visual FoxPro: 1 hidden, 2 may be null, 4 binary, 8 numbered by itself
  int decimals = 0;
};

struct MadeDbf {
  static constexpr char kVisualFoxPro = '\x30';
  static constexpr char kFoxPro2 = '\xF5';  // with memos
  static constexpr char kDbase3 = '\x03';
  static constexpr char kDbase3Memo = '\x83';
  static constexpr char kDbase4Memo = '\x8B';

  char version = kVisualFoxPro;
  std::vector<MadeDbfField> fields;
  std::vector<std::string> records;  // the bytes behind the deletion mark
  char table_flags = 0;              // 1 an index, 2 memos, 4 a container
  char code_page_mark = 3;           // Windows 1252

  unsigned RecordLength() const;  // the deletion mark counted
  unsigned HeaderLength() const;
  std::string Content() const;
};

// A number of that many bytes, the lowest one first.
std::string MadeNumber(unsigned long long value, unsigned bytes);

// A FoxPro memo file of blocks of 64 bytes without any memo; the first free block is block 8.
std::string MadeFptHeader();
// The blocks of one memo in such a file.
std::string MadeFptMemo(const std::string& content, bool is_text = true);

}  // namespace vandpublic

#endif
