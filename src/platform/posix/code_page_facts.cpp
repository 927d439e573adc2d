// The corrections that turn the C library's tables into those of Windows.
//
// The published Windows tables leave no single byte undefined: a byte without a character stands
// for the control character of the same value (80 to 9F) or, above that, for a unit of the private
// use area near U+F8xx, so that any byte survives a round trip. The C library has such bytes as
// errors. The control characters follow one rule and are filled in by code_page_tables.cpp; the
// private ones are listed here, and so are the user-defined areas of the double-byte pages.
#include "platform/posix/code_page_facts.h"

namespace vandpublic {
namespace {

constexpr ByteRange kNone = {1, 0};

constexpr ByteRange kLeads932[] = {{0x81, 0x9F}, {0xE0, 0xFC}};
constexpr ByteRange kLeadsTo254[] = {{0x81, 0xFE}};  // 936, 949 and 950

// Bytes that the Thai standard leaves free.
constexpr SingleRun kSingles874[] = {{0xDB, 0xDE, 0xF8C1}, {0xFC, 0xFF, 0xF8C5}};

// The four single bytes of Shift_JIS that are neither ASCII, katakana nor lead byte.
constexpr SingleRun kSingles932[] = {{0xA0, 0xA0, 0xF8F0}, {0xFD, 0xFF, 0xF8F1}};

// GBK has no single byte 80; Windows put the euro sign there.
constexpr SingleRun kSingles936[] = {{0x80, 0x80, 0x20AC}, {0xFF, 0xFF, 0xF8F5}};
constexpr SingleRun kSingles949[] = {{0xFF, 0xFF, 0xF8F7}};
constexpr SingleRun kSingles950[] = {{0xFF, 0xFF, 0xF8F8}};

// The 27 characters of 1252 that are not Latin-1: the page must work without any converter.
constexpr SingleRun kSingles1252[] = {
    {0x80, 0x80, 0x20AC}, {0x82, 0x82, 0x201A}, {0x83, 0x83, 0x0192}, {0x84, 0x84, 0x201E},
    {0x85, 0x85, 0x2026}, {0x86, 0x87, 0x2020}, {0x88, 0x88, 0x02C6}, {0x89, 0x89, 0x2030},
    {0x8A, 0x8A, 0x0160}, {0x8B, 0x8B, 0x2039}, {0x8C, 0x8C, 0x0152}, {0x8E, 0x8E, 0x017D},
    {0x91, 0x92, 0x2018}, {0x93, 0x94, 0x201C}, {0x95, 0x95, 0x2022}, {0x96, 0x97, 0x2013},
    {0x98, 0x98, 0x02DC}, {0x99, 0x99, 0x2122}, {0x9A, 0x9A, 0x0161}, {0x9B, 0x9B, 0x203A},
    {0x9C, 0x9C, 0x0153}, {0x9E, 0x9E, 0x017E}, {0x9F, 0x9F, 0x0178}};

constexpr SingleRun kSingles1253[] = {
    {0xAA, 0xAA, 0xF8F9}, {0xD2, 0xD2, 0xF8FA}, {0xFF, 0xFF, 0xF8FB}};

// CA is the point "holam haser for vav", which came to Unicode after the C library's table.
constexpr SingleRun kSingles1255[] = {
    {0xCA, 0xCA, 0x05BA}, {0xD9, 0xDF, 0xF88D}, {0xFB, 0xFC, 0xF894}, {0xFF, 0xFF, 0xF896}};

constexpr SingleRun kSingles1257[] = {{0xA1, 0xA1, 0xF8FC}, {0xA5, 0xA5, 0xF8FD}};

// The user-defined areas of GBK: two of whole rows, one of the low halves of the symbol rows, and
// the cells that the symbol, hanzi and extension rows leave free.
constexpr PairBlock kPairs936[] = {{{0xAA, 0xAF}, {0xA1, 0xFE}, kNone, 0xE000},
                                   {{0xF8, 0xFE}, {0xA1, 0xFE}, kNone, 0xE234},
                                   {{0xA1, 0xA7}, {0x40, 0x7E}, {0x80, 0xA0}, 0xE4C6},
                                   {{0xA2, 0xA2}, {0xAB, 0xB0}, kNone, 0xE766},
                                   {{0xA2, 0xA2}, {0xE3, 0xE4}, {0xEF, 0xF0}, 0xE76C},
                                   {{0xA2, 0xA2}, {0xFD, 0xFE}, kNone, 0xE770},
                                   {{0xA4, 0xA4}, {0xF4, 0xFE}, kNone, 0xE772},
                                   {{0xA5, 0xA5}, {0xF7, 0xFE}, kNone, 0xE77D},
                                   {{0xA6, 0xA6}, {0xB9, 0xC0}, {0xD9, 0xDF}, 0xE785},
                                   {{0xA6, 0xA6}, {0xEC, 0xED}, {0xF3, 0xF3}, 0xE794},
                                   {{0xA6, 0xA6}, {0xF6, 0xFE}, kNone, 0xE797},
                                   {{0xA7, 0xA7}, {0xC2, 0xD0}, {0xF2, 0xFE}, 0xE7A0},
                                   {{0xA8, 0xA8}, {0x96, 0xA0}, {0xBC, 0xBC}, 0xE7BC},
                                   {{0xA8, 0xA8}, {0xBF, 0xBF}, {0xC1, 0xC4}, 0xE7C8},
                                   {{0xA8, 0xA8}, {0xEA, 0xFE}, kNone, 0xE7CD},
                                   {{0xA9, 0xA9}, {0x58, 0x58}, {0x5B, 0x5B}, 0xE7E2},
                                   {{0xA9, 0xA9}, {0x5D, 0x5F}, {0x89, 0x95}, 0xE7E4},
                                   {{0xA9, 0xA9}, {0x97, 0xA3}, {0xF0, 0xFE}, 0xE7F4},
                                   {{0xD7, 0xD7}, {0xFA, 0xFE}, kNone, 0xE810},
                                   {{0xFE, 0xFE}, {0x50, 0x7E}, {0x80, 0xA0}, 0xE815}};

// The two user-defined rows of the Korean standard.
constexpr PairBlock kPairs949[] = {{{0xC9, 0xC9}, {0xA1, 0xFE}, kNone, 0xE000},
                                   {{0xFE, 0xFE}, {0xA1, 0xFE}, kNone, 0xE05E}};

// The three user-defined areas of Big5, then the rows from C6A1 that Windows never filled.
constexpr PairBlock kPairs950[] = {{{0xFA, 0xFE}, {0x40, 0x7E}, {0xA1, 0xFE}, 0xE000},
                                   {{0x8E, 0xA0}, {0x40, 0x7E}, {0xA1, 0xFE}, 0xE311},
                                   {{0x81, 0x8D}, {0x40, 0x7E}, {0xA1, 0xFE}, 0xEEB8},
                                   {{0xC6, 0xC6}, {0xA1, 0xFE}, kNone, 0xF6B1},
                                   {{0xC7, 0xC8}, {0x40, 0x7E}, {0xA1, 0xFE}, 0xF70F}};

// Of several codes with one unit the lowest is written, but never one of these.
// 932: the IBM characters as NEC placed them; Windows writes them where IBM did (FA40 on).
constexpr CodeRange kDuplicates932[] = {{0xED40, 0xEEFC}};
// 950: four double lines, which Windows writes among the extensions (F9F9 and on), and two
// numerals, which it writes as the hanzi (A451, A4CA).
constexpr CodeRange kDuplicates950[] = {{0xA2A4, 0xA2A7}, {0xA2CC, 0xA2CC}, {0xA2CE, 0xA2CE}};

constexpr CodePageFacts kFacts[] = {
    {874, "CP874", {}, kSingles874, {}, {}},
    {932, "CP932", kLeads932, kSingles932, {}, kDuplicates932},
    {936, "CP936", kLeadsTo254, kSingles936, kPairs936, {}},
    {949, "CP949", kLeadsTo254, kSingles949, kPairs949, {}},
    {950, "CP950", kLeadsTo254, kSingles950, kPairs950, kDuplicates950},
    {1250, "CP1250", {}, {}, {}, {}},
    {1251, "CP1251", {}, {}, {}, {}},
    {1252, nullptr, {}, kSingles1252, {}, {}},
    {1253, "CP1253", {}, kSingles1253, {}, {}},
    {1254, "CP1254", {}, {}, {}, {}},
    {1255, "CP1255", {}, kSingles1255, {}, {}},
    {1256, "CP1256", {}, {}, {}, {}},
    {1257, "CP1257", {}, kSingles1257, {}, {}},
    {1258, "CP1258", {}, {}, {}, {}},
};

}  // namespace

std::span<const CodePageFacts> AllCodePageFacts() noexcept { return kFacts; }

}  // namespace vandpublic
