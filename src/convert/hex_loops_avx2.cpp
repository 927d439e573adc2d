// The hexadecimal loops for x86 with AVX2. What does not fill a vector is left to the plain loops.
#include <immintrin.h>

#include "convert/hex_loops_forms.h"

namespace vandpublic {
namespace {

constexpr std::size_t kEncodeStep = 16;  // bytes
constexpr std::size_t kDecodeStep = 32;  // pairs
constexpr std::size_t kUnits = 32;       // in two vectors

bool HasAvx2() { return __builtin_cpu_supports("avx2") != 0; }

// Unaligned moves of 32 and 16 bytes.
__m256i Load(const void* from) { return _mm256_loadu_si256(static_cast<const __m256i*>(from)); }
__m128i LoadHalf(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }
void Store(void* to, __m256i v) { _mm256_storeu_si256(static_cast<__m256i*>(to), v); }
void StoreHalf(void* to, __m128i v) { _mm_storeu_si128(static_cast<__m128i*>(to), v); }

// The 32 digits of 16 bytes, in order, as bytes.
__m256i DigitsOf(const Byte* bytes) {
  const __m256i digits = _mm256_broadcastsi128_si256(_mm_setr_epi8(
      '0', '1', '2', '3', '4', '5', '6', '7', '8', '9', 'A', 'B', 'C', 'D', 'E', 'F'));
  const __m256i wide = _mm256_cvtepu8_epi16(LoadHalf(bytes));
  const __m256i halves = _mm256_or_si256(_mm256_srli_epi16(wide, 4), _mm256_slli_epi16(wide, 8));
  return _mm256_shuffle_epi8(digits, _mm256_and_si256(halves, _mm256_set1_epi8(15)));
}

void Encode(const Byte* bytes, std::size_t count, char16_t* digits) {
  std::size_t at = 0;
  for (; count - at >= kEncodeStep; at += kEncodeStep) {
    const __m256i both = DigitsOf(bytes + at);
    Store(digits + 2 * at, _mm256_cvtepu8_epi16(_mm256_castsi256_si128(both)));
    Store(digits + 2 * at + 16, _mm256_cvtepu8_epi16(_mm256_extracti128_si256(both, 1)));
  }
  if (at < count) kPlainHexLoops.encode(bytes + at, count - at, digits + 2 * at);
}

// Bytes that are at most `limit`.
__m256i UpTo(__m256i bytes, char limit) {
  return _mm256_cmpeq_epi8(_mm256_min_epu8(bytes, _mm256_set1_epi8(limit)), bytes);
}

// 32 units as bytes, the middle quarters exchanged. A unit above 255 becomes 255 or 0, which no
// digit is.
__m256i Narrow(const char16_t* units) { return _mm256_packus_epi16(Load(units), Load(units + 16)); }

// The values of 32 upper-case digits, and in `good` whether they are such digits.
__m256i ReadDigits(__m256i text, __m256i& good) {
  const __m256i number = _mm256_sub_epi8(text, _mm256_set1_epi8('0'));
  const __m256i is_letter = UpTo(_mm256_sub_epi8(text, _mm256_set1_epi8('A')), 5);
  good = _mm256_and_si256(good, _mm256_or_si256(UpTo(number, 9), is_letter));
  return _mm256_sub_epi8(number, _mm256_and_si256(is_letter, _mm256_set1_epi8('A' - '0' - 10)));
}

bool All(__m256i good) { return _mm256_movemask_epi8(good) == -1; }

std::size_t Decode(const char16_t* digits, std::size_t pairs, Byte* bytes) {
  const __m256i weights = _mm256_set1_epi16(0x0110);  // 16 for the first digit, 1 for the second
  const __m256i order = _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7);
  std::size_t at = 0;
  for (; pairs - at >= kDecodeStep; at += kDecodeStep) {
    __m256i good = _mm256_set1_epi8(-1);
    const __m256i first = ReadDigits(Narrow(digits + 2 * at), good);
    const __m256i second = ReadDigits(Narrow(digits + 2 * at + kUnits), good);
    if (!All(good)) break;
    const __m256i mixed = _mm256_packus_epi16(_mm256_maddubs_epi16(first, weights),
                                              _mm256_maddubs_epi16(second, weights));
    Store(bytes + at, _mm256_permutevar8x32_epi32(mixed, order));
  }
  if (pairs - at >= kDecodeStep / 2) {
    __m256i good = _mm256_set1_epi8(-1);
    const __m256i values = ReadDigits(Narrow(digits + 2 * at), good);
    if (All(good)) {
      const __m256i sums = _mm256_maddubs_epi16(values, weights);
      const __m256i mixed = _mm256_packus_epi16(sums, sums);
      StoreHalf(bytes + at, _mm256_castsi256_si128(_mm256_permutevar8x32_epi32(mixed, order)));
      at += kDecodeStep / 2;
    }
  }
  if (at == pairs) return at;
  return at + kPlainHexLoops.decode(digits + 2 * at, pairs - at, bytes + at);
}

bool AreDigits(const char16_t* text, std::size_t size) {
  std::size_t at = 0;
  for (; size - at >= kUnits; at += kUnits) {
    const __m256i units = Narrow(text + at);
    const __m256i lower = _mm256_or_si256(units, _mm256_set1_epi8(0x20));
    const __m256i number = UpTo(_mm256_sub_epi8(units, _mm256_set1_epi8('0')), 9);
    const __m256i letter = UpTo(_mm256_sub_epi8(lower, _mm256_set1_epi8('a')), 5);
    if (!All(_mm256_or_si256(number, letter))) return false;
  }
  return at == size || kPlainHexLoops.are_digits(text + at, size - at);
}

// Sixteen units of a dump: the digits that `order` picks, blanks where it picks none.
void DumpPart(__m128i digits, __m128i order, char16_t* text) {
  const __m128i blanks =
      _mm_and_si128(_mm_cmplt_epi8(order, _mm_setzero_si128()), _mm_set1_epi8(' '));
  Store(text, _mm256_cvtepu8_epi16(_mm_or_si128(_mm_shuffle_epi8(digits, order), blanks)));
}

void DumpLine(const Byte* bytes, std::size_t count, char16_t* text) {
  // Of 32 digits in order: the first 16, those from the ninth on, the last 16.
  const __m128i first = _mm_setr_epi8(0, 1, -1, 2, 3, -1, 4, 5, -1, 6, 7, -1, 8, 9, -1, 10);
  const __m128i second = _mm_setr_epi8(3, -1, 4, 5, -1, 6, 7, -1, 8, 9, -1, 10, 11, -1, 12, 13);
  const __m128i third = _mm_setr_epi8(-1, 6, 7, -1, 8, 9, -1, 10, 11, -1, 12, 13, -1, 14, 15, -1);
  std::size_t at = 0;
  for (; count - at >= kEncodeStep; at += kEncodeStep) {
    const __m256i digits = DigitsOf(bytes + at);
    const __m128i low = _mm256_castsi256_si128(digits);
    const __m128i high = _mm256_extracti128_si256(digits, 1);
    DumpPart(low, first, text + 3 * at);
    DumpPart(_mm_alignr_epi8(high, low, 8), second, text + 3 * at + 16);
    DumpPart(high, third, text + 3 * at + 32);
  }
  // Lines of more bytes than are left, so without a line end.
  if (at < count) kPlainHexLoops.dump(bytes + at, count - at, count + 1, text + 3 * at);
}

}  // namespace

const HexLoops kAvx2HexLoops = {"avx2", HasAvx2, Encode, Decode, AreDigits, DumpLines<DumpLine>};

}  // namespace vandpublic
