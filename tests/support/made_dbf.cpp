// Headers, field descriptors and records in a row.
#include "support/made_dbf.h"

#include <algorithm>

namespace vandpublic {
namespace {

constexpr unsigned kProlog = 32;
constexpr unsigned kDescriptor = 32;
constexpr unsigned kBackLink = 263;  // of Visual FoxPro, to a container
constexpr unsigned kMemoBlock = 64;
constexpr unsigned kMemoHeader = 512;

std::string HighestFirst(std::string lowest_first) {
  std::reverse(lowest_first.begin(), lowest_first.end());
  return lowest_first;
}

std::string Filled(std::string bytes, std::size_t size) {
  bytes.resize(size, '\0');
  return bytes;
}

}  // namespace

std::string MadeNumber(unsigned long long value, unsigned bytes) {
  std::string text;
  for (; bytes > 0; --bytes, value /= 256)
    text += static_cast<char>(value % 256);
  return text;
}

unsigned MadeDbf::RecordLength() const {
  unsigned length = 1;
  for (const MadeDbfField& field : fields)
    length += field.size;
  return length;
}

unsigned MadeDbf::HeaderLength() const {
  return kProlog + kDescriptor * static_cast<unsigned>(fields.size()) + 1 +
         (version == kVisualFoxPro ? kBackLink : 0);
}

std::string MadeDbf::Content() const {
  std::string table(1, version);
  table += "\x18\x01\x01" + MadeNumber(records.size(), 4) + MadeNumber(HeaderLength(), 2) +
           MadeNumber(RecordLength(), 2) + std::string(16, '\0') + table_flags + code_page_mark +
           std::string(2, '\0');
  unsigned offset = 1;
  for (const MadeDbfField& field : fields) {
    std::string descriptor = Filled(field.name, 11) + field.type + MadeNumber(offset, 4);
    descriptor += MadeNumber(field.size, 1) + static_cast<char>(field.decimals);
    table += Filled(descriptor + static_cast<char>(field.flags), kDescriptor);
    offset += field.size;
  }
  table = Filled(table + '\r', HeaderLength());
  for (const std::string& record : records)
    table += ' ' + record;
  return table + '\x1A';
}

std::string MadeFptHeader() {
  return Filled(HighestFirst(MadeNumber(kMemoHeader / kMemoBlock, 4)) +
                    HighestFirst(MadeNumber(kMemoBlock, 4)),
                kMemoHeader);
}

std::string MadeFptMemo(const std::string& content, bool is_text) {
  const std::string memo = HighestFirst(MadeNumber(is_text ? 1 : 0, 4)) +
                           HighestFirst(MadeNumber(content.size(), 4)) + content;
  return Filled(memo, (memo.size() + kMemoBlock - 1) / kMemoBlock * kMemoBlock);
}

}  // namespace vandpublic
