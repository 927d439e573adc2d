// RetrieveSeed, SystemEncrypt and SystemDecrypt.
//
// A protected value is a length byte, the data and random filler, or the data, 80 and zeros;
// enciphered as a whole with two-key triple DES. Every block that held the key or plain text is
// overwritten before the call ends, whichever way it ends.
#include <algorithm>
#include <cmath>
#include <string>

#include "convert/array_size.h"
#include "frame/trap.h"
#include "members/messages.h"
#include "platform/platform.h"
#include "runtime/checked.h"
#include "runtime/coerce.h"
#include "runtime/wipe.h"

namespace vandpublic {
namespace {

constexpr Long kKeySize = 16;
constexpr Long kBlockSize = 8;
constexpr Integer kBytesPerLine = 40;
constexpr Byte kPaddingMark = 0x80;

// Halves are rounded to even, as the platform's conversions do.
int RoundedPart(RandomSource& random, int scale) {
  return static_cast<int>(std::nearbyint(random.Next() * scale));
}

// The key of one call. The fill changes the caller's text, and the caller sees it; a short or
// empty one leaves zeros in the key.
class SystemKey {
 public:
  SystemKey(clsPublic& object, String& key_text) : bytes_(ByteArray::WithBounds(0, kKeySize - 1)) {
    object.FillByteArrWithHexStr(*bytes_, key_text, Integer{0});
  }
  ByteArray& operator*() noexcept { return *bytes_; }

 private:
  WipedByteArray bytes_;
};

// The working buffer of one call, subscripts from 0.
class ProtectedBuffer {
 public:
  explicit ProtectedBuffer(clsPublic& object) : object_(object) {}

  ByteArray& operator*() noexcept { return *bytes_; }
  Long Size() { return SizeOf(object_, *bytes_); }

  // A copy with subscripts from 0, whatever the source's lower bound.
  void TakeArray(const Variant& source) {
    const ByteArray* const array = source.AsByteArray();
    if (array == nullptr) RaiseFault(FaultNumber::TypeMismatch);
    if (array->Count() == 0) return;
    bytes_.Redimension(0, array->Count() - 1);
    std::copy_n(array->Elements().begin(), array->Elements().size(), (*bytes_).Elements().begin());
  }

  void TakeHex(String& digits, Long bytes) {
    bytes_.Redimension(0, bytes - 1);
    object_.FillByteArrWithHexStr(*bytes_, digits, Integer{0});
  }

  // Puts the number of data bytes in front. More than 255 do not fit: fault 6.
  void PrefixLength() {
    WipedString dump(object_.DispBytes(*bytes_, 0, kBytesPerLine, true));
    const Long size = Size();
    bytes_.Redimension(0, size);
    (*bytes_).At(0) = CheckedCast<Byte>(size);
    // The dump's line breaks are not hexadecimal.
    (*dump).EditUnits([](std::u16string& units) {
      std::erase_if(units, [](char16_t c) { return c == u'\r' || c == u'\n'; });
    });
    object_.FillByteArrWithHexStr(*bytes_, *dump, Integer{1});
  }

  // Completes the last block: with random bytes behind a length byte, else with 80 and zeros.
  void CompleteBlocks(bool has_length_byte, RandomSource& random) {
    const Long size = Size();
    if (size % kBlockSize == 0) return;
    const Long completed = (size + kBlockSize - 1) / kBlockSize * kBlockSize;
    bytes_.RedimensionPreserving(completed - 1);
    if (!has_length_byte) {
      (*bytes_).At(size) = kPaddingMark;
      return;
    }
    // Scaled by 255, so that 0 and 255 come half as often as the rest: on purpose.
    for (Long i = size; i < completed; ++i) {
      (*bytes_).At(i) = static_cast<Byte>(RoundedPart(random, 255));
    }
  }

  // The data behind the length byte; fault 9 for a length of 0 or beyond the end.
  ByteArray DataBehindLength() {
    Integer length = (*bytes_).At(0);
    WipedByteArray data(ByteArray::WithBounds(0, length - 1));
    object_.CpyByteArray(*data, *bytes_, length, Integer{0}, Integer{1});
    return std::move(*data);
  }

  // Keeps the first bytes only.
  void Shorten(std::size_t size) { bytes_.RedimensionPreserving(static_cast<Long>(size) - 1); }

  // The number of bytes in front of the trailing run of 00 and 80, in any mix.
  std::size_t SizeWithoutFiller() {
    std::size_t size = (*bytes_).Elements().size();
    const auto is_filler = [](Byte value) { return value == 0 || value == kPaddingMark; };
    while (size > 0 && is_filler((*bytes_).Elements()[size - 1]))
      --size;
    return size;
  }

 private:
  clsPublic& object_;
  WipedByteArray bytes_;
};

bool HoldsArray(const Variant& value) {
  const auto flags = static_cast<unsigned>(value.Type());
  return (flags & static_cast<unsigned>(VarType::Array)) != 0;
}

// The bytes as an array, or as characters of the code page.
void Deliver(clsPublic& object, const ByteArray& bytes, bool as_array, Variant& result) {
  if (as_array) {
    result = bytes;
    return;
  }
  const auto elements = bytes.Elements();
  result = String(object.platform().code_page->Decode(
      {reinterpret_cast<const char*>(elements.data()), elements.size()}));
}

}  // namespace

bool clsPublic::RetrieveSeed(ByteArray& rabyt_Seed, OptionalRef<Integer> iint_SeedLen,
                             OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::RetrieveSeed, rstr_ErrDesc, [&] {
    if (SizeOf(*this, rabyt_Seed) == 0) rabyt_Seed.Redimension(0, *iint_SeedLen - 1);
    for (Long i = 0; i < *iint_SeedLen; ++i) {
      Byte& place = rabyt_Seed.At(i);  // before a value is drawn that would have no place
      place = static_cast<Byte>(RoundedPart(*platform().random, 256) % 256);
    }
    return true;
  });
}

bool clsPublic::SystemEncrypt(String& istr_SystemKey, Variant& Source, Variant& Result,
                              bool ibln_InArray, bool ibln_OutArray, bool ibln_PaddingLen,
                              OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::SystemEncrypt, rstr_ErrDesc, [&] {
    SystemKey key(*this, istr_SystemKey);
    ProtectedBuffer buffer(*this);
    if (ibln_InArray) {
      buffer.TakeArray(Source);
    } else {
      WipedString text(ToText(Source));
      WipedString digits(FstrVbStrToHexStr(*text));
      buffer.TakeHex(*digits, static_cast<Long>((*digits).Length() / 2));
    }
    if (ibln_PaddingLen) buffer.PrefixLength();
    buffer.CompleteBlocks(ibln_PaddingLen, *platform().random);

    auto length = CheckedCast<Integer>(buffer.Size());
    DES3(*key, *buffer, length, *buffer);
    if (ibln_OutArray) {
      Result = *buffer;
    } else {
      Result = DispBytes(*buffer, 0, kBytesPerLine, true);
    }
    return true;
  });
}

bool clsPublic::SystemDecrypt(String& istr_SystemKey, Variant& Source, Variant& Result,
                              bool ibln_InArray, bool ibln_OutArray, bool ibln_PaddingLen,
                              OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::SystemDecrypt, rstr_ErrDesc, [&] {
    SystemKey key(*this, istr_SystemKey);
    ProtectedBuffer buffer(*this);
    if (ibln_InArray) {
      buffer.TakeArray(Source);
    } else {
      String text = ToText(Source);
      text.EditUnits([](std::u16string& units) { std::erase(units, u' '); });
      if (text.Length() == 0) {
        // A blank source ends the call quietly, on purpose.
        if (!ibln_OutArray) Result = String();
        if (ibln_OutArray && HoldsArray(Result)) Result = ByteArray();
        return false;
      }
      if (!IsHex(text)) Reject(messages::kInputNotHexString);
      buffer.TakeHex(text, static_cast<Long>((text.Length() + 1) / 2));
    }

    auto length = CheckedCast<Integer>(buffer.Size());
    UDES3(*key, *buffer, length, *buffer);
    if (ibln_PaddingLen) {
      WipedByteArray data(buffer.DataBehindLength());
      Deliver(*this, *data, ibln_OutArray, Result);
      return true;
    }
    const std::size_t size = buffer.SizeWithoutFiller();
    if (size == 0) {
      Result = ibln_OutArray ? Variant(ByteArray()) : Variant(String());
      return true;
    }
    // Array output ends in front of the filler; text output is the whole buffer, filler included.
    // The difference is on purpose.
    if (ibln_OutArray) buffer.Shorten(size);
    Deliver(*this, *buffer, ibln_OutArray, Result);
    return true;
  });
}

}  // namespace vandpublic
