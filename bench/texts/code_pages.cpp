// Code pages 1252 and 936, both ways. The peers' converters are opened beforehand and write into
// memory that is there already; ours makes the text that it returns.
#include <iconv.h>
#include <unicode/ucnv.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <random>
#include <vector>

#include "contest.h"
#include "platform/posix/code_pages.h"

namespace bench {
namespace {

constexpr std::size_t kSizes[] = {16, 256, 1024, 16384};

// Words of the text in random order, up to a number of units: no processor can learn where its
// characters stand. The same at every run.
std::u16string Shuffled(std::u16string_view text, std::size_t units) {
  std::vector<std::u16string_view> words;
  while (!text.empty()) {
    const std::size_t size = std::min(text.find(u' '), text.size() - 1) + 1;
    words.push_back(text.substr(0, size));
    text.remove_prefix(size);
  }
  std::minstd_rand random(7);
  std::u16string shuffled;
  while (shuffled.size() < units)
    shuffled += words[random() % words.size()];
  shuffled.resize(units);
  return shuffled;
}

// One call of iconv for the whole text, from its start state.
class Iconv {
 public:
  Iconv(const char* to, const char* from) : converter_(iconv_open(to, from)) {
    if (converter_ == reinterpret_cast<iconv_t>(-1)) std::abort();
  }
  Iconv(const Iconv&) = delete;
  Iconv& operator=(const Iconv&) = delete;
  ~Iconv() { iconv_close(converter_); }

  // The number of bytes written.
  std::size_t Convert(const char* from, std::size_t size, char* to, std::size_t room) {
    char* in = const_cast<char*>(from);
    std::size_t left = room;
    iconv(converter_, nullptr, nullptr, nullptr, nullptr);
    iconv(converter_, &in, &size, &to, &left);
    return room - left;
  }

 private:
  iconv_t converter_;
};

using Icu = std::shared_ptr<UConverter>;

Icu OpenIcu(const char* name) {
  UErrorCode error = U_ZERO_ERROR;
  const Icu converter(ucnv_open(name, &error), ucnv_close);
  if (U_FAILURE(error)) std::abort();
  return converter;
}

struct Page {
  int number;
  const char* iconv_name;
  const char* icu_name;
  const char* kind;  // of text
  const char16_t* text;
};

constexpr Page kPages[] = {
    {1252, "CP1252", "windows-1252", "mixed",
     u"Na\u00efve caf\u00e9 \u201cquoted\u201d, 5 \u20ac and a d\u00e9j\u00e0-vu of plain text "
     u"with "
     u"words in all sizes and languages, \u00fcber Stra\u00dfen und H\u00f6fe; "},
    {1252, "CP1252", "windows-1252", "ASCII", u"Plain text, nothing but ASCII: 0123456789; "},
    {936, "GBK", "windows-936", "ASCII", u"Plain text, nothing but ASCII: 0123456789; "},
    {936, "GBK", "windows-936", "mixed",
     u"\u4e2d\u6587\u5b57\u7b26 mixed \u6587\u672c with ASCII, \u6d4b\u8bd5\u4e00\u4e0b 42; "
     u"\u4e2d \u5b57\u7b26\u4e2d\u6587\u5b57\u7b26 x"},
};

void AddToBytes(const Page& page, std::size_t size) {
  Contest contest(std::to_string(page.number) + " " + page.kind + " to bytes", size);
  const std::u16string text = Shuffled(page.text, size);
  const auto ours = vandpublic::FindCodePage(page.number);
  contest.Add("engine", [ours, text] { return ours->Encode(text); });
  contest.Add("iconv", [text, peer = std::make_shared<Iconv>(page.iconv_name, "UTF-16LE"),
                        bytes = std::string(2 * size, '\0')]() mutable {
    const auto* const from = reinterpret_cast<const char*>(text.data());
    const std::size_t count = peer->Convert(from, 2 * text.size(), bytes.data(), bytes.size());
    return std::string_view(bytes).substr(0, count);
  });
  contest.Add(
      "ICU", [text, peer = OpenIcu(page.icu_name), bytes = std::string(2 * size, '\0')]() mutable {
        UErrorCode error = U_ZERO_ERROR;
        const auto count = ucnv_fromUChars(peer.get(), bytes.data(), static_cast<int>(bytes.size()),
                                           text.data(), static_cast<int>(text.size()), &error);
        return std::string_view(bytes).substr(0, static_cast<std::size_t>(count));
      });
}

void AddToText(const Page& page, std::size_t size) {
  Contest contest(std::to_string(page.number) + " " + page.kind + " to text", size);
  const auto ours = vandpublic::FindCodePage(page.number);
  const std::string bytes = ours->Encode(Shuffled(page.text, size));
  contest.Add("engine", [ours, bytes] { return ours->Decode(bytes); });
  contest.Add("iconv", [bytes, peer = std::make_shared<Iconv>("UTF-16LE", page.iconv_name),
                        text = std::u16string(2 * size, u'\0')]() mutable {
    auto* const to = reinterpret_cast<char*>(text.data());
    const std::size_t count = peer->Convert(bytes.data(), bytes.size(), to, 2 * text.size());
    return std::u16string_view(text).substr(0, count / 2);
  });
  contest.Add("ICU", [bytes, peer = OpenIcu(page.icu_name),
                      text = std::u16string(2 * size, u'\0')]() mutable {
    UErrorCode error = U_ZERO_ERROR;
    const auto count = ucnv_toUChars(peer.get(), text.data(), static_cast<int>(text.size()),
                                     bytes.data(), static_cast<int>(bytes.size()), &error);
    return std::u16string_view(text).substr(0, static_cast<std::size_t>(count));
  });
}

}  // namespace

void AddCodePages() {
  for (const Page& page : kPages) {
    for (const std::size_t size : kSizes) {
      AddToBytes(page, size);
      AddToText(page, size);
    }
  }
}

}  // namespace bench
