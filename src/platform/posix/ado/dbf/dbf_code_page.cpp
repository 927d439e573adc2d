// Marks and pages. The DOS pages are made like the Windows ones, of the C library's converters.
#include "platform/posix/ado/dbf/dbf_code_page.h"

#include <algorithm>
#include <array>
#include <map>
#include <mutex>

#include "platform/posix/code_page_tables.h"
#include "platform/posix/code_pages.h"
#include "platform/posix/table_code_page.h"

namespace vandpublic::ado {
namespace {

struct MarkedPage {
  std::uint8_t mark;
  int page;
};

constexpr std::array kMarkedPages = {
    MarkedPage{0x01, 437},  MarkedPage{0x02, 850},  MarkedPage{0x03, 1252}, MarkedPage{0x08, 865},
    MarkedPage{0x09, 437},  MarkedPage{0x0A, 850},  MarkedPage{0x0B, 437},  MarkedPage{0x0D, 437},
    MarkedPage{0x0E, 850},  MarkedPage{0x0F, 437},  MarkedPage{0x10, 850},  MarkedPage{0x11, 437},
    MarkedPage{0x12, 850},  MarkedPage{0x13, 932},  MarkedPage{0x14, 850},  MarkedPage{0x15, 437},
    MarkedPage{0x16, 850},  MarkedPage{0x17, 865},  MarkedPage{0x18, 437},  MarkedPage{0x19, 437},
    MarkedPage{0x1A, 850},  MarkedPage{0x1B, 437},  MarkedPage{0x1C, 863},  MarkedPage{0x1D, 850},
    MarkedPage{0x1F, 852},  MarkedPage{0x22, 852},  MarkedPage{0x23, 852},  MarkedPage{0x24, 860},
    MarkedPage{0x25, 850},  MarkedPage{0x26, 866},  MarkedPage{0x37, 850},  MarkedPage{0x40, 852},
    MarkedPage{0x4D, 936},  MarkedPage{0x4E, 949},  MarkedPage{0x4F, 950},  MarkedPage{0x50, 874},
    MarkedPage{0x57, 1252}, MarkedPage{0x58, 1252}, MarkedPage{0x59, 1252}, MarkedPage{0x64, 852},
    MarkedPage{0x65, 866},  MarkedPage{0x66, 865},  MarkedPage{0x67, 861},  MarkedPage{0x6A, 737},
    MarkedPage{0x6B, 857},  MarkedPage{0x6C, 863},  MarkedPage{0x78, 950},  MarkedPage{0x79, 949},
    MarkedPage{0x7A, 936},  MarkedPage{0x7B, 932},  MarkedPage{0x7C, 874},  MarkedPage{0x7D, 1255},
    MarkedPage{0x7E, 1256}, MarkedPage{0x86, 737},  MarkedPage{0x87, 852},  MarkedPage{0x88, 857},
    MarkedPage{0xC8, 1250}, MarkedPage{0xC9, 1251}, MarkedPage{0xCA, 1254}, MarkedPage{0xCB, 1253},
    MarkedPage{0xCC, 1257},
};

CodePageFacts DosPage(int number, const char* charset) { return {number, charset, {}, {}, {}, {}}; }

// The converter's name; null for a page that is no DOS page.
const char* DosCharset(int number) {
  static constexpr struct {
    int number;
    const char* charset;
  } kCharsets[] = {{437, "CP437"}, {737, "CP737"}, {850, "CP850"}, {852, "CP852"}, {857, "CP857"},
                   {860, "CP860"}, {861, "CP861"}, {863, "CP863"}, {865, "CP865"}, {866, "CP866"}};
  for (const auto& known : kCharsets) {
    if (known.number == number) return known.charset;
  }
  return nullptr;
}

// The pages made so far: they never change, so all tables share them.
std::shared_ptr<const CodePage> FindDosPage(int number) {
  static std::mutex mutex;
  static std::map<int, std::shared_ptr<const CodePage>> pages;
  const char* const charset = DosCharset(number);
  if (charset == nullptr) return nullptr;
  const std::lock_guard lock(mutex);
  std::shared_ptr<const CodePage>& page = pages[number];
  if (page == nullptr) {
    page = MakeTableCodePage(number, BuildCodePageTables(DosPage(number, charset)));
  }
  return page;
}

}  // namespace

std::shared_ptr<const CodePage> CodePageOfMark(std::uint8_t mark,
                                               const std::shared_ptr<const CodePage>& unmarked) {
  const auto found = std::find_if(kMarkedPages.begin(), kMarkedPages.end(),
                                  [mark](const MarkedPage& known) { return known.mark == mark; });
  if (found == kMarkedPages.end()) return unmarked;
  const auto page = FindDosPage(found->page);
  return page != nullptr ? page : FindCodePage(found->page);
}

}  // namespace vandpublic::ado
