// What the functions of both dialects give for ordinary, null, empty and bad arguments, asked for
// by statements without a table.
#include "platform/posix/ado/sql/sql_functions.h"

#include <gtest/gtest.h>

#include "platform/platform.h"
#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/dates.h"
#include "platform/posix/ado/sql/sql_engine.h"
#include "runtime/errors.h"
#include "runtime/utf8.h"
#include "support/expected_rows.h"

namespace vandpublic::ado {
namespace {

class NoTables final : public TableSource {
 public:
  std::shared_ptr<FileTable> Open(std::string_view) override { return nullptr; }
};

std::string Shown(Dialect dialect, const std::string& expression) {
  SqlEngine engine(std::make_unique<NoTables>(), dialect);
  try {
    return ShownResult(engine.Execute("Select " + expression, false));
  } catch (const AutomationError& error) {
    EXPECT_EQ(ToUtf8(error.source()), SourceOf(dialect));
    const bool is_conversion = error.number() == static_cast<Long>(SourceError::CannotConvert);
    EXPECT_TRUE(is_conversion || error.number() == static_cast<Long>(SourceError::BadStatement));
    return (is_conversion ? "value: " : "statement: ") + ToUtf8(error.description());
  }
}

struct Call {
  const char* expression;
  const char* shown;  // "\N" is null; of an error the beginning
};

void ExpectAll(Dialect dialect, std::span<const Call> calls) {
  for (const Call& call : calls) {
    const std::string shown = Shown(dialect, call.expression);
    if (shown.starts_with("value: ") || shown.starts_with("statement: ")) {
      EXPECT_EQ(shown.substr(0, std::string_view(call.shown).size()), call.shown)
          << call.expression << " gave " << shown;
    } else {
      EXPECT_EQ(shown, call.shown) << call.expression;
    }
  }
}

constexpr const char* kBadArgument = "value: Invalid procedure call";
constexpr const char* kMismatch = "value: Type mismatch";
constexpr const char* kOverflow = "value: Overflow";
constexpr const char* kOutOfMemory = "value: Out of memory";
constexpr const char* kBadStatement = "statement: ";

constexpr Call kJetTexts[] = {
    {"Len('abc')", "3"},
    {"Len('')", "0"},
    {"Len(12.5)", "4"},
    {"Len(Null)", "\\N"},
    {"UCase('\xC3\xA9t\xC3\xA9 1')", "\xC3\x89T\xC3\x89 1"},
    {"UCase('stra\xC3\x9F' & 'e')",
     "STRA\xC3\x9F"
     "E"},
    {"UCase('\xCF\x89')", "\xCE\xA9"},  // a Greek capital, not the sign of the ohm
    {"UCase('\xD0\xB6\xD1\x8F')", "\xD0\x96\xD0\xAF"},
    {"UCase('\xC4\x81\xC4\x80')", "\xC4\x80\xC4\x80"},  // small and capital by turns
    {"UCase('\xC2\xB5')", "\xC2\xB5"},                  // the micro sign has no capital of its own
    {"UCase('')", ""},
    {"LCase('\xC3\x84 ABC z')", "\xC3\xA4 abc z"},
    {"LCase('\xD0\x96')", "\xD0\xB6"},
    {"LCase('\xC4\x81\xEF\xBC\xA1\xEF\xBF\xBD')", "\xC4\x81\xEF\xBD\x81\xEF\xBF\xBD"},
    {"LCase('\xF0\x9D\x94\xB8')", "\xF0\x9D\x94\xB8"},
    {"LCase(Null)", "\\N"},
    {"LTrim('  a ') & '|'", "a |"},
    {"RTrim('  a ') & '|'", "  a|"},
    {"Trim('  a ') & '|'", "a|"},
    {"Trim('   ') & '|'", "|"},
    {"Trim('') & '|'", "|"},
    {"Left('abc', 2)", "ab"},
    {"Left('abc', 9)", "abc"},
    {"Left('abc', 0) & '|'", "|"},
    {"Left(Null, 2)", "\\N"},
    {"Left('abc', Null)", "\\N"},
    {"Left('abc', -1)", kBadArgument},
    {"Left('abc', 'x')", kMismatch},
    {"Left('abc')", kBadStatement},
    {"Right('abc', 2)", "bc"},
    {"Right('abc', 9)", "abc"},
    {"Right('abc', 0) & '|'", "|"},
    {"Right('abc', -1)", kBadArgument},
    {"Mid('abcdef', 2)", "bcdef"},
    {"Mid('abcdef', 2, 3)", "bcd"},
    {"Mid('abc', 2, 0) & '|'", "|"},
    {"Mid('abc', 9, 1) & '|'", "|"},
    {"Mid('abc', 0)", kBadArgument},
    {"Mid('abc', 1, -1)", kBadArgument},
    {"InStr('abcd', 'CD')", "3"},
    {"InStr(2, 'abab', 'A')", "3"},
    {"InStr(4, 'abab', 'a')", "0"},
    {"InStr(9, 'abab', 'a')", "0"},
    {"InStr('abc', '')", "1"},
    {"InStr(2, 'abc', '')", "2"},
    {"InStr('', '')", "0"},
    {"InStr(Null, 'a')", "\\N"},
    {"InStr(0, 'abc', 'a')", kBadArgument},
    {"Replace('abcabc', 'b', '--')", "a--ca--c"},
    {"Replace('abc', 'x', 'y')", "abc"},
    {"Replace('abc', '', 'y')", "abc"},
    {"Replace('aaa', 'a', '') & '|'", "|"},
    {"Replace(Space(65535), ' ', Space(1000))", kOutOfMemory},
    {"Space(3) & '|'", "   |"},
    {"Space(0) & '|'", "|"},
    {"Space(-1)", kBadArgument},
    {"Space(65536)", kOutOfMemory},
    {"String(3, 'xy')", "xxx"},
    {"String(3, 65)", "AAA"},
    {"String(2, 256 + 65)", "AA"},
    {"String(0, 'x') & '|'", "|"},
    {"String(3, '') & '|'", "|"},
    {"String(70000, 'x')", kOutOfMemory},
    {"Chr(65) & Chr(233)", "A\xC3\xA9"},
    {"Chr(256)", kBadArgument},
    {"Chr(-1)", kBadArgument},
    {"Asc('ABC')", "65"},
    {"Asc('\xC3\xA9')", "233"},
    {"Asc('')", kBadArgument},
    {"'a' & Null & 1 & ''", "a1"},
};

TEST(JetFunctions, Of_texts) { ExpectAll(Dialect::Jet, kJetTexts); }

constexpr Call kJetNumbers[] = {
    {"Val('12.5 kg')", "12.5"},
    {"Val('  12 3\t4')", "1234"},
    {"Val('-3e2x')", "-300"},
    {"Val('2E+1')", "20"},
    {"Val('1e')", "1"},
    {"Val('1e+')", "1"},
    {"Val('1e+-5')", "1"},
    {"Val('.5')", "0.5"},
    {"Val('+7')", "7"},
    {"Val('12.3.4')", "12.3"},
    {"Val('1,000')", "1"},
    {"Val('&HFFx')", "255"},
    {"Val('&h10')", "16"},
    {"Val('&O178')", "15"},
    {"Val('&o7')", "7"},
    {"Val('&H')", "0"},
    {"Val('--7')", "0"},
    {"Val('abc')", "0"},
    {"Val('')", "0"},
    {"Val(Null)", "\\N"},
    {"Val('1e999')", kOverflow},
    {"Val(String(60000, 'a'))", "0"},
    {"Str(5)", " 5"},
    {"Str(-5)", "-5"},
    {"Str(0)", " 0"},
    {"Str(0.5)", " .5"},
    {"Str(-0.5)", "-.5"},
    {"Str(Null)", "\\N"},
    {"Str('x')", kMismatch},
    {"CStr(12.5)", "12.5"},
    {"CInt(2.5)", "2"},
    {"CInt(3.5)", "4"},
    {"CInt('12')", "12"},
    {"CInt(40000)", kOverflow},
    {"CLng(100000.4)", "100000"},
    {"CLng(3000000000)", kOverflow},
    {"CLng('')", kMismatch},
    {"CDbl('1.5e3')", "1500"},
    {"CDbl('x')", kMismatch},
    {"CSng(0.1)", "0.10000000149011612"},
    {"CSng(1e300)", kOverflow},
    {"CCur(1.23456)", "1.2346"},
    {"CCur(1e15)", kOverflow},
    {"CBool(5)", "-1"},
    {"CBool('True')", "-1"},
    {"CBool(0)", "0"},
    {"CBool('x')", kMismatch},
    {"Abs(-2.5)", "2.5"},
    {"Fix(-2.5)", "-2"},
    {"Int(-2.5)", "-3"},
    {"Int(2.5)", "2"},
    {"Sgn(-3)", "-1"},
    {"Sgn(0)", "0"},
    {"Sgn(9)", "1"},
    {"Sqr(9)", "3"},
    {"Sqr(-1)", kBadArgument},
    {"Round(2.5)", "2"},
    {"Round(3.5)", "4"},
    {"Round(-2.5)", "-2"},
    {"Round(2.346, 2)", "2.35"},
    {"Round(Null)", "\\N"},
    {"Round(1234, -2)", kBadArgument},
    {"IIf(Round(1e308, 5) = 1e308, 'same', 'other')", "same"},
};

TEST(JetFunctions, Of_numbers) { ExpectAll(Dialect::Jet, kJetNumbers); }

constexpr Call kJetChoicesAndDates[] = {
    {"IIf(1 > 0, 'yes', 'no')", "yes"},
    {"IIf(0, 'yes', 'no')", "no"},
    {"IIf('true', 'yes', 'no')", "yes"},
    {"IIf(Null, 'yes', 'no')", "no"},
    {"IIf('x', 'yes', 'no')", kMismatch},
    {"IsNull(Null)", "-1"},
    {"IsNull('')", "0"},
    {"Nz(Null) & '|'", "|"},
    {"Nz(Null, 5)", "5"},
    {"Nz(3, 5)", "3"},
    {"CDate('2024-03-05 06:00')", "45356.25"},
    {"CDate(5)", "5"},
    {"CDate(Null)", "\\N"},
    {"CDate('nonsense')", kMismatch},
    {"CVDate(#1/2/1900#)", "3"},
    {"Year(#2024-02-29#) & '-' & Month(#2024-02-29#) & '-' & Day(#2024-02-29#)", "2024-2-29"},
    {"Hour(#13:14:15#) & '-' & Minute(#13:14:15#) & '-' & Second(#13:14:15#)", "13-14-15"},
    {"Year('1/2/1999')", "1999"},
    {"Year(0)", "1899"},
    {"Year(Null)", "\\N"},
    {"Year('nonsense')", kMismatch},
    {"Year(1e10)", kBadArgument},
    {"Hour(1e10)", kBadArgument},
    {"IIf(Now() >= Date() And Now() < Date() + 2, 'now', 'another time')", "now"},
    {"IIf(Time() >= 0 And Time() < 1, 'time', 'no time')", "time"},
    {"IIf(Date() = Int(Date()), 'day', 'no day')", "day"},
    {"DToS(0)", "statement: Undefined function 'DToS' in expression."},
    {"AllTrim('a')", "statement: Undefined function 'AllTrim' in expression."},
    {"Join('a', 'b')", kBadStatement},
    {"vp_join('a', 'b')", "ab"},
};

TEST(JetFunctions, Of_choices_and_dates) { ExpectAll(Dialect::Jet, kJetChoicesAndDates); }

constexpr Call kFoxProTexts[] = {
    {"Trim('  a  ') + '|'", "  a|"},
    {"RTrim('  a  ') + '|'", "  a|"},
    {"LTrim('  a') + '|'", "a|"},
    {"AllTrim('  a  ') + '|'", "a|"},
    {"Upper('\xC3\xA4"
     "b')",
     "\xC3\x84"
     "B"},
    {"Lower('\xC3\x84"
     "B')",
     "\xC3\xA4"
     "b"},
    {"SubStr('abc', 2)", "bc"},
    {"SubStr('abc', 2, 1)", "b"},
    {"SubStr('abc', 0)", kBadArgument},
    {"At('b', 'abc')", "2"},
    {"At('B', 'abc')", "0"},
    {"At(Null, 'abc')", "\\N"},
    {"StrTran('abcabc', 'b', 'x')", "axcaxc"},
    {"PadL('5', 3)", "  5"},
    {"PadL('abcdef', 3)", "abc"},
    {"PadL('', 2) + '|'", "  |"},
    {"PadL('a', 70000)", kOutOfMemory},
    {"PadR('5', 3) + '|'", "5  |"},
    {"PadR('abcdef', 3)", "abc"},
    {"PadR('a', 70000)", kOutOfMemory},
    {"PadR('a', -1)", kBadArgument},
    {"Replicate('ab', 2)", "abab"},
    {"Replicate('', 5) + '|'", "|"},
    {"Replicate('ab', 40000)", kOutOfMemory},
    {"Str(2.5)", "         3"},
    {"Str(-2.5)", "        -3"},
    {"Str(3.14159, 6, 2)", "  3.14"},
    {"Str(3, 6, 2)", "  3.00"},
    {"Str(123.456, 5, 2)", "123.5"},
    {"Str(-0.4, 3)", "  0"},
    {"Str(12345, 3)", "***"},
    {"Str(1e300, 5, 2)", "*****"},
    {"Str(1.5, 30, 25)", "          1.500000000000000000"},
    {"Str(Null)", "\\N"},
    {"Str(1, -1)", kBadArgument},
    {"Str(1, 5, -1)", kBadArgument},
    {"Str(1, 70000)", kOutOfMemory},
    {"Val('12 34')", "12"},
    {"Val(' -1.5')", "-1.5"},
};

TEST(FoxProFunctions, Of_texts) { ExpectAll(Dialect::FoxPro, kFoxProTexts); }

constexpr Call kFoxProOthers[] = {
    {"Int(-2.5)", "-2"},
    {"Floor(-2.5)", "-3"},
    {"Sign(-2)", "-1"},
    {"Sqrt(16)", "4"},
    {"Sqrt(-1)", kBadArgument},
    {"Round(2.5)", "3"},
    {"Round(-2.5, 0)", "-3"},
    {"Round(1250, -2)", "1300"},
    {"Nvl(Null, 5)", "5"},
    {"Nvl('a', 5)", "a"},
    {"Nvl(Null)", kBadStatement},
    {"Empty('  ')", "-1"},
    {"Empty('a')", "0"},
    {"Empty(0)", "-1"},
    {"Empty(0.5)", "0"},
    {"Empty({})", "-1"},
    {"Empty(Null)", "0"},
    {"Between(2, 1, 3)", "-1"},
    {"Between(0, 1, 3)", "0"},
    {"Between(4, 1, 3)", "0"},
    {"Between('b', 'a', 'c')", "-1"},
    {"Between('d', 'a', 'c')", "0"},
    {"Between(1, '0', 2)", "-1"},
    {"Between('x', 1, 2)", kMismatch},
    {"Between(Null, 1, 2)", "\\N"},
    {"IIf(2 Between (1) And (3), 'in', 'out')", "in"},
    {"IIf(2 Not Between (1) And (3), 'in', 'out')", "out"},
    {"IIf(Not Between(2, 1, 3), 'out', 'in')", "in"},
    {"Sec({^2024-03-05 14:07:09}) + 100 * Minute({^2024-03-05 14:07:09})", "709"},
    {"Hour({^2024-03-05 14:07:09})", "14"},
    {"DToS({^2024-03-05})", "20240305"},
    {"DToS({^0100-01-02})", "01000102"},
    {"DToS({}) + '|'", "        |"},
    {"Year({^2024-03-05})", "2024"},
    {"Year({})", "0"},
    {"Month({})", "0"},
    {"Day({})", "0"},
    {"Hour({})", "0"},
    {"CToD('03/05/2024')", "45356"},
    {"CToD('nonsense')", kMismatch},
    {"IIf(DateTime() >= Date(), 'now', 'another time')", "now"},
    {"UCase('a')", "statement: Undefined function 'UCase' in expression."},
};

TEST(FoxProFunctions, Of_numbers_choices_and_dates) { ExpectAll(Dialect::FoxPro, kFoxProOthers); }

// Midnight may pass between the two looks at the clock.
TEST(FunctionsOfTheClock, Tell_the_local_day) {
  const auto day = [] {
    const LocalTime now = SystemPlatform()->clock->Now();
    return std::to_string(DayNumber(now.year, now.month, now.day).value());
  };
  const std::string before = day();
  const std::string shown = Shown(Dialect::Jet, "Date()");
  EXPECT_TRUE(shown == before || shown == day()) << shown;
}

}  // namespace
}  // namespace vandpublic::ado
