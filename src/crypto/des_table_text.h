// The tables of the Data Encryption Standard (FIPS 46-3) as texts of decimal numbers separated by
// commas, and their parser. The texts hold stray blanks and leading zeros, which it tolerates.
//
// Positions are the standard's: counted from 1, bit 1 being the most significant bit of the first
// byte.
#ifndef VANDPUBLIC_CRYPTO_DES_TABLE_TEXT_H
#define VANDPUBLIC_CRYPTO_DES_TABLE_TEXT_H

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "runtime/arrays.h"
#include "runtime/basic_types.h"
#include "runtime/errors.h"

namespace vandpublic::des {

inline constexpr std::string_view kInitialPermutationText =
    "58,50,42,34,26,18,10, 2,60,52,44,36,28,20,12,04,"
    "62,54,46,38,30,22,14,06,64,56,48,40,32,24,16, 8,"
    "57,49,41,33,25,17,09, 1,59,51,43,35,27,19,11, 3,"
    "61,53,45,37,29,21,13,05,63,55,47,39,31,23,15, 7";

inline constexpr std::string_view kFinalPermutationText =
    "40, 8,48,16,56,24,64,32,39, 7,47,15,55,23,63,31,"
    "38,06,46,14,54,22,62,30,37,05,45,13,53,21,61,29,"
    "36,04,44,12,52,20,60,28,35, 3,43,11,51,19,59,27,"
    "34, 2,42,10,50,18,58,26,33, 1,41,9 ,49,17,57,25";

inline constexpr std::string_view kExpansionText =
    "32, 1, 2, 3,04,05,04,05, 6, 7, 8, 9, 8, 9,10,11,"
    "12,13,12,13,14,15,16,17, 16,17,18,19,20,21,20,21,"
    "22,23,24,25,24,25,26,27,28,29,28,29,30,31,32, 1";

inline constexpr std::string_view kRoundPermutationText =
    "16,  7,20,21,29,12,28,17, 1,15,23,26, 5,18,31,10,"
    "02, 8,24,14,32,27, 3,9 ,19,13,30, 6,22,11, 4,25";

inline constexpr std::string_view kPermutedChoice1Text =
    "57,49,41,33,25,17, 9, 1,58,50,42,34,26,18,10,02,59,51,43,35,27,19,11, 3,60,52,44,36,"
    "63,55,47,39,31,23,15, 7,62,54,46,38,30,22,14,06,61,53,45,37,29,21,13,05,28,20,12, 4";

inline constexpr std::string_view kPermutedChoice2Text =
    "14,17,11,24, 1,05, 3,28,15, 6,21,10,23,19,12, 4,26, 8, 16,7 ,27,20,13, 2,"
    "41,52,31,37,47,55,30,40,51,45,33,48,44,49,39,56,34,53,46,42,50,36,29,32";

inline constexpr std::string_view kShiftScheduleText = "1,1,2,2,2,2,2,2,1,2,2,2,2,2,2,1";

inline constexpr std::array<std::string_view, 8> kSubstitutionTexts = {
    "14,04,13,01,02,15,11,08,03,10,06,12,05,09,00,07,00,15,07,04,14,02,13,01,10,06,12,11,09,05,03,"
    "08,"
    "04,01,14,08,13,06,02,11,15,12,09,07,03,10,05,00,15,12,08,02,04,09,01,07,05,11,03,14,10,00,06,"
    "13",
    "15,01,08,14,06,11,03,04,09,07,02,13,12,00,05,10,03,13,04,07,15,02,08,14,12,00,01,10,06,09,11,"
    "05,"
    "00,14,07,11,10,04,13,01,05,08,12,06,09,03,02,15,13,08,10,01,03,15,04,02,11,06,07,12,00,05,14,"
    "09",
    "10,00,09,14,06,03,15,05,01,13,12,07,11,04,02,08,13,07,00,09,03,04,06,10,02,08,05,14,12,11,15,"
    "01,"
    "13,06,04,09,08,15,03,00,11,01,02,12,05,10,14,07,01,10,13,00,06,09,08,07,04,15,14,03,11,05,02,"
    "12",
    "07,13,14,03,00,06,09,10,01,02,08,05,11,12,04,15,13,08,11,05,06,15,00,03,04,07,02,12,01,10,14,"
    "09,"
    "10,06,09,00,12,11,07,13,15,01,03,14,05,02,08,04,03,15,00,06,10,01,13,08,09,04,05,11,12,07,02,"
    "14",
    "02,12,04,01,07,10,11,06,08,05,03,15,13,00,14,09,14,11,02,12,04,07,13,01,05,00,15,10,03,09,08,"
    "06,"
    "04,02,01,11,10,13,07,08,15,09,12,05,06,03,00,14,11,08,12,07,01,14,02,13,06,15,00,09,10,04,05,"
    "03",
    "12,01,10,15,09,02,06,08,00,13,03,04,14,07,05,11,10,15,04,02,07,12,09,05,06,01,13,14,00,11,03,"
    "08,"
    "09,14,15,05,02,08,12,03,07,00,04,10,01,13,11,06,04,03,02,12,09,05,15,10,11,14,01,07,06,00,08,"
    "13",
    "04,11,02,14,15,00,08,13,03,12,09,07,05,10,06,01,13,00,11,07,04,09,01,10,14,03,05,12,02,15,08,"
    "06,"
    "01,04,11,13,12,03,07,14,10,15,06,08,00,05,09,02,06,11,13,08,01,04,10,07,09,05,00,15,14,02,03,"
    "12",
    "13,02,08,04,06,15,11,01,10,09,03,14,05,00,12,07,01,15,13,08,10,03,07,04,12,05,06,11,00,14,09,"
    "02,"
    "07,11,04,01,09,12,14,02,00,06,10,13,15,03,05,08,02,01,14,07,04,10,08,13,15,12,09,00,03,05,06,"
    "11",
};

// One piece of a table text: blanks around decimal digits. Fault 13 for anything else, 6 above 255.
constexpr Byte ParseTableNumber(std::string_view piece) {
  const std::size_t first = piece.find_first_not_of(' ');
  if (first == std::string_view::npos) RaiseFault(FaultNumber::TypeMismatch);
  int value = 0;
  for (const char c : piece.substr(first, piece.find_last_not_of(' ') - first + 1)) {
    if (c < '0' || c > '9') RaiseFault(FaultNumber::TypeMismatch);
    value = 10 * value + (c - '0');
    if (value > 255) RaiseFault(FaultNumber::Overflow);
  }
  return static_cast<Byte>(value);
}

// Splits the text at "," and stores Count pieces. With a RowLength of -1 Dest is one-dimensional
// and piece k goes to Dest[Column + k]; otherwise Dest is a table of rows of RowLength elements,
// filled from (Row, Column) on, the column running fastest. Fault 9 for a place outside Dest and
// for a text with fewer pieces. True.
constexpr bool ParseTableText(std::string_view Text, std::span<Byte> Dest, Integer Count,
                              Integer Row, Integer Column, Integer RowLength) {
  std::int64_t place = Column;
  if (RowLength != -1) place += std::int64_t{Row} * RowLength;
  for (Long k = 0; k < Count; ++k, ++place) {
    if (Text.data() == nullptr || place < 0 || place >= static_cast<std::int64_t>(Dest.size())) {
      RaiseFault(FaultNumber::SubscriptOutOfRange);
    }
    const std::size_t comma = Text.find(',');
    Dest[static_cast<std::size_t>(place)] = ParseTableNumber(Text.substr(0, comma));
    Text = comma == std::string_view::npos ? std::string_view() : Text.substr(comma + 1);
  }
  return true;
}

// A whole one-dimensional table.
template <std::size_t kCount>
constexpr std::array<Byte, kCount> ParseTable(std::string_view text) {
  std::array<Byte, kCount> table{};
  ParseTableText(text, table, kCount, 0, 0, -1);
  return table;
}

// The standard's tables, parsed by the compiler.
inline constexpr auto kInitialPermutation = ParseTable<64>(kInitialPermutationText);
inline constexpr auto kFinalPermutation = ParseTable<64>(kFinalPermutationText);
inline constexpr auto kExpansion = ParseTable<48>(kExpansionText);
inline constexpr auto kRoundPermutation = ParseTable<32>(kRoundPermutationText);
inline constexpr auto kPermutedChoice1 = ParseTable<56>(kPermutedChoice1Text);
inline constexpr auto kPermutedChoice2 = ParseTable<48>(kPermutedChoice2Text);
inline constexpr auto kShiftSchedule = ParseTable<16>(kShiftScheduleText);

// S1 to S8, 64 values each: element 64 * k + 16 * row + column.
inline constexpr std::array<Byte, 512> kSubstitution = [] {
  std::array<Byte, 512> table{};
  for (Integer box = 0; box < 8; ++box) {
    ParseTableText(kSubstitutionTexts[static_cast<std::size_t>(box)], table, 64, box, 0, 64);
  }
  return table;
}();

}  // namespace vandpublic::des

#endif
