// Hexadecimal texts and dumps. The peers write 8-bit text into memory that is there already, we
// 16-bit text; the members allocate it too.
#include <algorithm>
#include <cctype>
#include <memory>
#include <vector>

#include "contest.h"
#include "convert/hex_loops.h"
#include "frame/clsPublic.h"
#include "peers_found.h"

namespace bench {
namespace {

using vandpublic::ByteArray;
using vandpublic::clsPublic;
using vandpublic::Integer;
using vandpublic::String;
using vandpublic::Variant;

constexpr std::size_t kSizes[] = {16, 64, 256, 1024, 4096, 16384};
constexpr Integer kBytesPerLine = 16;
constexpr std::size_t kMostDigits = 32767;  // that members take

// A text of digits: case, line ends and a last blank do not count.
template <class Char>
struct Digits {
  std::basic_string_view<Char> text;
};

template <class Char>
std::string Canonical(Digits<Char> digits) {
  std::string text = bench::Canonical(digits.text);
  std::erase_if(text, [](char c) { return c == '\r' || c == '\n' || c == '\0'; });
  if (text.ends_with(' ')) text.pop_back();
  for (char& c : text)
    c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

std::vector<Byte> Data(std::size_t size) {
  std::vector<Byte> data(size);
  for (std::size_t i = 0; i < size; ++i)
    data[i] = static_cast<Byte>(i * 131 + (i >> 8) * 7 + 1);
  return data;
}

// One character for each byte.
String MessageText(const std::vector<Byte>& data) {
  return std::u16string(data.begin(), data.end());
}

void AddEncode(std::size_t size) {
  Contest contest("hex encode", size);
  const std::vector<Byte> data = Data(size);
  contest.Add("engine", [data, text = std::u16string(2 * size, u'\0')]() mutable {
    vandpublic::EncodeHex(data, text.data());
    return Digits<char16_t>{text};
  });
  const auto object = std::make_shared<clsPublic>();
  contest.Add("member", [object, text = MessageText(data), result = String()]() mutable {
    result = object->MsgFmtTextToHex(text, false);
    return Digits<char16_t>{result.view()};
  });
  for (const HexPeer* peer : HexPeersFound()) {
    contest.Add(peer->name, [peer, data, text = std::string(2 * size + 1, '\0')]() mutable {
      peer->encode(data.data(), data.size(), text.data());
      return Digits<char>{text};
    });
  }
}

void AddDecode(std::size_t size) {
  Contest contest("hex decode", size);
  const std::vector<Byte> data = Data(size);
  std::u16string digits(2 * size, u'0');
  vandpublic::EncodeHex(data, digits.data());
  contest.Add("engine", [digits, bytes = data]() mutable {
    vandpublic::DecodeHex(digits, bytes.data());
    return std::span<const Byte>(bytes);
  });
  const auto object = std::make_shared<clsPublic>();
  if (digits.size() <= kMostDigits) {
    contest.Add("member", [object, text = String(digits), array = ByteArray(data)]() mutable {
      object->FillByteArrWithHexStr(array, text, Integer{0});
      return std::span<const Byte>(array.Elements());
    });
  }
  for (const HexPeer* peer : HexPeersFound()) {
    contest.Add(peer->name,
                [peer, bytes = data, text = std::string(digits.begin(), digits.end())]() mutable {
                  peer->decode(text.data(), text.size(), bytes.data());
                  return std::span<const Byte>(bytes);
                });
  }
}

// The members that make what they return.
void AddOtherMembers(std::size_t size) {
  const auto object = std::make_shared<clsPublic>();
  const std::vector<Byte> data = Data(size);
  std::u16string digits(2 * size, u'0');
  vandpublic::EncodeHex(data, digits.data());
  std::u16string plain(data.begin(), data.end());
  for (char16_t& c : plain)
    c &= 0x7F;
  Contest("FstrVbStrToHexStr", size).Add("member", [object, text = String(plain)] {
    return Digits<char16_t>{object->FstrVbStrToHexStr(text).view()};
  });
  if (digits.size() > kMostDigits) return;
  Contest("HexToMsgFmtText", size).Add("member", [object, text = String(digits)] {
    return object->HexToMsgFmtText(text, 0, true, u"0", false).Length() > 0;
  });
  if (size > 1024) return;
  Contest("FstrHexStrToByte", size).Add("member", [object, text = String(digits)] {
    return object->FstrHexStrToByte(text).Count() > 0;
  });
}

void AddDump(std::size_t size) {
  Contest contest("dump", size);
  const std::vector<Byte> data = Data(size);
  const std::size_t lines = size / static_cast<std::size_t>(kBytesPerLine);
  contest.Add("engine", [data, text = std::u16string(3 * size + 2 * lines, u' ')]() mutable {
    vandpublic::DumpHex(data, kBytesPerLine, text.data());
    return Digits<char16_t>{text};
  });
  const auto object = std::make_shared<clsPublic>();
  contest.Add("member", [object, array = ByteArray(data), result = String()]() mutable {
    result = object->DispBytes(array, 0, kBytesPerLine, true);
    return Digits<char16_t>{result.view()};
  });
  for (const HexPeer* peer : HexPeersFound()) {
    if (peer->dump == nullptr) continue;
    contest.Add(peer->name, [peer, data, text = std::string(3 * size + 1, '\0')]() mutable {
      peer->dump(data.data(), data.size(), text.data());
      return Digits<char>{text};
    });
  }
  Contest("decimal dump", size).Add("member", [object, array = ByteArray(data)]() mutable {
    return object->DispBytes(array, 0, kBytesPerLine, false).Length() > 0;
  });
}

}  // namespace

void AddHex() {
  for (const std::size_t size : kSizes) {
    AddEncode(size);
    AddDecode(size);
    AddDump(size);
    AddOtherMembers(size);
  }
}

}  // namespace bench
