// The bodies of the functions, and the table of them.
#include "platform/posix/ado/sql/sql_functions.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/platform.h"
#include "platform/posix/ado/sql/case_folding.h"
#include "platform/posix/ado/sql/date_functions.h"
#include "platform/posix/ado/sql/number_texts.h"
#include "platform/posix/ado/sql/sqlite_values.h"
#include "runtime/coerce.h"
#include "runtime/errors.h"

namespace vandpublic::ado {
namespace {

// More than any short column holds; a longer text would only be a way to use up the memory.
constexpr std::size_t kLongestMadeText = 65535;
// Replacing may make a memo longer, but not fill the memory.
constexpr std::size_t kLongestReplacedText = std::size_t{1} << 24;

std::u16string TextOf(SqlArguments a, std::size_t i) { return std::u16string(ToText(a[i]).view()); }

double NumberOf(SqlArguments a, std::size_t i) { return ToDouble(a[i]); }

// A count or a position; fault 5 below the least.
std::size_t CountOf(SqlArguments a, std::size_t i, Long least = 0) {
  const Long count = ToLong(a[i]);
  if (count < least) RaiseFault(FaultNumber::InvalidProcedureCall);
  return static_cast<std::size_t>(count);
}

Variant Text(std::u16string text) { return String(std::move(text)); }
Variant Truth(bool value) { return value ? -1.0 : 0.0; }

std::u16string Trimmed(std::u16string text, bool left, bool right) {
  if (right) text.erase(text.find_last_not_of(u' ') + 1);
  if (left) text.erase(0, text.find_first_not_of(u' '));
  return text;
}

std::u16string Repeated(std::u16string_view piece, std::size_t count) {
  if (piece.empty()) return {};
  if (count > kLongestMadeText / piece.size()) RaiseFault(FaultNumber::OutOfMemory);
  std::u16string text;
  for (std::size_t i = 0; i < count; ++i)
    text += piece;
  return text;
}

Variant Len(SqlArguments a, Dialect) { return static_cast<double>(TextOf(a, 0).size()); }

Variant Upper(SqlArguments a, Dialect) {
  std::u16string text = TextOf(a, 0);
  std::transform(text.begin(), text.end(), text.begin(), UpperCase);
  return Text(std::move(text));
}

Variant Lower(SqlArguments a, Dialect) { return Text(FoldCase(TextOf(a, 0))); }
Variant LeftTrim(SqlArguments a, Dialect) { return Text(Trimmed(TextOf(a, 0), true, false)); }
Variant RightTrim(SqlArguments a, Dialect) { return Text(Trimmed(TextOf(a, 0), false, true)); }
Variant AllTrim(SqlArguments a, Dialect) { return Text(Trimmed(TextOf(a, 0), true, true)); }

// FoxPro's TRIM leaves the blanks on the left.
Variant Trim(SqlArguments a, Dialect dialect) {
  return Text(Trimmed(TextOf(a, 0), dialect == Dialect::Jet, true));
}

Variant Left(SqlArguments a, Dialect) { return Text(TextOf(a, 0).substr(0, CountOf(a, 1))); }

Variant Right(SqlArguments a, Dialect) {
  std::u16string text = TextOf(a, 0);
  text.erase(0, text.size() - std::min(text.size(), CountOf(a, 1)));
  return Text(std::move(text));
}

Variant Mid(SqlArguments a, Dialect) {
  const std::u16string text = TextOf(a, 0);
  const std::size_t start = std::min(CountOf(a, 1, 1) - 1, text.size());
  return Text(text.substr(start, a.size() > 2 ? CountOf(a, 2) : std::u16string::npos));
}

Variant PositionIn(const std::u16string& text, const std::u16string& wanted, std::size_t start) {
  const std::size_t found = text.find(wanted, start);
  return found == std::u16string::npos ? 0.0 : static_cast<double>(found + 1);
}

// Nothing is found in an empty text, not even nothing.
Variant InStr(SqlArguments a, Dialect) {
  const std::size_t shift = a.size() > 2 ? 1 : 0;
  const std::size_t start = shift == 1 ? CountOf(a, 0, 1) - 1 : 0;
  const std::u16string text = TextOf(a, shift);
  if (text.empty()) return 0.0;
  return PositionIn(FoldCase(text), FoldCase(TextOf(a, shift + 1)), start);
}

Variant At(SqlArguments a, Dialect) { return PositionIn(TextOf(a, 1), TextOf(a, 0), 0); }

Variant Replace(SqlArguments a, Dialect) {
  const std::u16string text = TextOf(a, 0);
  const std::u16string wanted = TextOf(a, 1);
  const std::u16string other = TextOf(a, 2);
  if (wanted.empty()) return Text(text);
  std::u16string result;
  std::size_t at = 0;
  for (std::size_t found = 0; (found = text.find(wanted, at)) != std::u16string::npos;) {
    result.append(text, at, found - at).append(other);
    if (result.size() > kLongestReplacedText) RaiseFault(FaultNumber::OutOfMemory);
    at = found + wanted.size();
  }
  return Text(result.append(text, at));
}

Variant Space(SqlArguments a, Dialect) { return Text(Repeated(u" ", CountOf(a, 0))); }
Variant Replicate(SqlArguments a, Dialect) { return Text(Repeated(TextOf(a, 0), CountOf(a, 1))); }

Variant PadLeft(SqlArguments a, Dialect) {
  const std::u16string text = TextOf(a, 0);
  const std::size_t width = CountOf(a, 1);
  if (text.size() >= width) return Text(text.substr(0, width));
  return Text(Repeated(u" ", width - text.size()) + text);
}

Variant PadRight(SqlArguments a, Dialect) {
  const std::u16string text = TextOf(a, 0);
  const std::size_t width = CountOf(a, 1);
  if (text.size() >= width) return Text(text.substr(0, width));
  return Text(text + Repeated(u" ", width - text.size()));
}

std::u16string CharacterOfCode(Long code) {
  const std::string byte(1, static_cast<char>(code & 0xFF));
  return SystemPlatform()->code_page->Decode(byte);
}

Variant CharacterOf(SqlArguments a, Dialect) {
  const Long code = ToLong(a[0]);
  if (code < 0 || code > 255) RaiseFault(FaultNumber::InvalidProcedureCall);
  return Text(CharacterOfCode(code));
}

// Of a text's first character, or of the one that a number is the code of.
Variant StringOf(SqlArguments a, Dialect) {
  const bool is_text = a[1].Get<String>() != nullptr;
  const std::u16string piece = is_text ? TextOf(a, 1).substr(0, 1) : CharacterOfCode(ToLong(a[1]));
  return Text(Repeated(piece, CountOf(a, 0)));
}

Variant CodeOf(SqlArguments a, Dialect) {
  const std::string bytes = SystemPlatform()->code_page->Encode(TextOf(a, 0).substr(0, 1));
  if (bytes.empty()) RaiseFault(FaultNumber::InvalidProcedureCall);
  return static_cast<double>(static_cast<unsigned char>(bytes[0]));
}

// The number at the beginning of a text, 0 where there is none. Jet passes over blanks wherever
// they stand.
Variant Val(SqlArguments a, Dialect dialect) {
  std::u16string text = Trimmed(TextOf(a, 0), true, true);
  if (dialect == Dialect::Jet) {
    std::erase_if(text, [](char16_t c) { return c == u' ' || c == u'\t' || c == u'\n'; });
  }
  return LeadingNumber(text);
}

// Jet leaves a place for the sign, and a zero before the point out; FoxPro rounds and pads to ten
// places.
Variant Str(SqlArguments a, Dialect dialect) {
  if (dialect == Dialect::Jet) {
    std::u16string text = TextOf(std::array{Variant(NumberOf(a, 0))}, 0);
    if (!text.starts_with(u'-')) text.insert(0, 1, u' ');
    if (text.substr(1).starts_with(u"0.")) text.erase(1, 1);
    return Text(std::move(text));
  }
  const std::size_t width = a.size() > 1 ? CountOf(a, 1) : 10;
  const std::string text = FixedText(NumberOf(a, 0), width, a.size() > 2 ? CountOf(a, 2) : 0);
  if (text.size() > width) return Text(std::u16string(width, u'*'));
  return Text(Repeated(u" ", width - text.size()).append(text.begin(), text.end()));
}

Variant ToTextOf(SqlArguments a, Dialect) { return Text(TextOf(a, 0)); }
Variant ToShortNumber(SqlArguments a, Dialect) { return static_cast<double>(ToInteger(a[0])); }
Variant ToWholeNumber(SqlArguments a, Dialect) { return static_cast<double>(ToLong(a[0])); }
Variant ToNumber(SqlArguments a, Dialect) { return NumberOf(a, 0); }

Variant ToSingle(SqlArguments a, Dialect) {
  return ToDouble(AsType(Variant(NumberOf(a, 0)), DataType::Single));
}

Variant ToAmount(SqlArguments a, Dialect) {
  return ToDouble(AsType(Variant(NumberOf(a, 0)), DataType::Currency));
}

Variant ToTruth(SqlArguments a, Dialect) { return Truth(ToBoolean(a[0])); }
Variant Abs(SqlArguments a, Dialect) { return std::abs(NumberOf(a, 0)); }
Variant Floor(SqlArguments a, Dialect) { return std::floor(NumberOf(a, 0)); }
Variant Fix(SqlArguments a, Dialect) { return std::trunc(NumberOf(a, 0)); }

// Jet's INT goes down, FoxPro's towards zero.
Variant Int(SqlArguments a, Dialect dialect) {
  return dialect == Dialect::Jet ? Floor(a, dialect) : Fix(a, dialect);
}

Variant Sign(SqlArguments a, Dialect) {
  const double number = NumberOf(a, 0);
  return static_cast<double>((number > 0) - (number < 0));
}

Variant SquareRoot(SqlArguments a, Dialect) {
  if (NumberOf(a, 0) < 0) RaiseFault(FaultNumber::InvalidProcedureCall);
  return std::sqrt(NumberOf(a, 0));
}

// Jet rounds halves to even, FoxPro away from zero, and before the point too.
Variant Round(SqlArguments a, Dialect dialect) {
  const Long places = a.size() > 1 ? ToLong(a[1]) : 0;
  if (places < 0 && dialect == Dialect::Jet) RaiseFault(FaultNumber::InvalidProcedureCall);
  const double scale = std::pow(10.0, places);
  const double scaled = NumberOf(a, 0) * scale;
  const double rounded = dialect == Dialect::Jet ? std::nearbyint(scaled) : std::round(scaled);
  return std::isfinite(rounded / scale) ? rounded / scale : NumberOf(a, 0);
}

Variant Iif(SqlArguments a, Dialect) { return !a[0].IsNull() && ToBoolean(a[0]) ? a[1] : a[2]; }

Variant IsNullValue(SqlArguments a, Dialect) { return Truth(a[0].IsNull()); }

Variant NullToOther(SqlArguments a, Dialect) {
  if (!a[0].IsNull()) return a[0];
  return a.size() > 1 ? a[1] : Variant(String());
}

Variant Empty(SqlArguments a, Dialect) {
  if (a[0].IsNull()) return Truth(false);
  if (const auto* const text = a[0].Get<String>()) {
    return Truth(text->view().find_first_not_of(u" \t\r\n") == std::u16string_view::npos);
  }
  return Truth(a[0].Get<double>() != nullptr && NumberOf(a, 0) == 0);
}

Variant Between(SqlArguments a, Dialect) {
  const auto at_most = [](const Variant& low, const Variant& high) {
    const auto* const low_text = low.Get<String>();
    const auto* const high_text = high.Get<String>();
    if (low_text != nullptr && high_text != nullptr) return low_text->view() <= high_text->view();
    return ToDouble(low) <= ToDouble(high);
  };
  return Truth(at_most(a[1], a[0]) && at_most(a[0], a[2]));
}

// Texts, with nothing for a null; the "&" operator.
Variant Join(SqlArguments a, Dialect) {
  std::u16string text;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (!a[i].IsNull()) text += TextOf(a, i);
  }
  return Text(std::move(text));
}

constexpr int kMany = 100;

constexpr SqlFunction kFunctions[] = {
    // name, arguments, Jet, FoxPro, takes null values
    {"ABS", 1, 1, true, true, false, Abs},
    {"ALLTRIM", 1, 1, false, true, false, AllTrim},
    {"ASC", 1, 1, true, true, false, CodeOf},
    {"AT", 2, 2, false, true, false, At},
    {"BETWEEN", 3, 3, false, true, false, Between},
    {"CBOOL", 1, 1, true, false, false, ToTruth},
    {"CCUR", 1, 1, true, false, false, ToAmount},
    {"CDATE", 1, 1, true, false, false, date_functions::ToDate},
    {"CDBL", 1, 1, true, false, false, ToNumber},
    {"CHR", 1, 1, true, true, false, CharacterOf},
    {"CINT", 1, 1, true, false, false, ToShortNumber},
    {"CLNG", 1, 1, true, false, false, ToWholeNumber},
    {"CSNG", 1, 1, true, false, false, ToSingle},
    {"CSTR", 1, 1, true, false, false, ToTextOf},
    {"CTOD", 1, 1, false, true, false, date_functions::ToDate},
    {"CVDATE", 1, 1, true, false, false, date_functions::ToDate},
    {"DATE", 0, 0, true, true, false, date_functions::Today},
    {"DATETIME", 0, 0, false, true, false, date_functions::Now},
    {"DAY", 1, 1, true, true, false, date_functions::Day},
    {"DTOS", 1, 1, false, true, false, date_functions::DateDigits},
    {"EMPTY", 1, 1, false, true, true, Empty},
    {"FIX", 1, 1, true, false, false, Fix},
    {"FLOOR", 1, 1, false, true, false, Floor},
    {"HOUR", 1, 1, true, true, false, date_functions::Hour},
    {"IIF", 3, 3, true, true, true, Iif},
    {"INSTR", 2, 3, true, false, false, InStr},
    {"INT", 1, 1, true, true, false, Int},
    {"ISNULL", 1, 1, true, true, true, IsNullValue},
    {"JOIN", 2, kMany, false, false, true, Join},
    {"LCASE", 1, 1, true, false, false, Lower},
    {"LEFT", 2, 2, true, true, false, Left},
    {"LEN", 1, 1, true, true, false, Len},
    {"LOWER", 1, 1, false, true, false, Lower},
    {"LTRIM", 1, 1, true, true, false, LeftTrim},
    {"MID", 2, 3, true, false, false, Mid},
    {"MINUTE", 1, 1, true, true, false, date_functions::Minute},
    {"MONTH", 1, 1, true, true, false, date_functions::Month},
    {"NOW", 0, 0, true, false, false, date_functions::Now},
    {"NVL", 2, 2, false, true, true, NullToOther},
    {"NZ", 1, 2, true, false, true, NullToOther},
    {"PADL", 2, 2, false, true, false, PadLeft},
    {"PADR", 2, 2, false, true, false, PadRight},
    {"REPLACE", 3, 3, true, false, false, Replace},
    {"REPLICATE", 2, 2, false, true, false, Replicate},
    {"RIGHT", 2, 2, true, true, false, Right},
    {"ROUND", 1, 2, true, true, false, Round},
    {"RTRIM", 1, 1, true, true, false, RightTrim},
    {"SEC", 1, 1, false, true, false, date_functions::Second},
    {"SECOND", 1, 1, true, false, false, date_functions::Second},
    {"SGN", 1, 1, true, false, false, Sign},
    {"SIGN", 1, 1, false, true, false, Sign},
    {"SPACE", 1, 1, true, true, false, Space},
    {"SQR", 1, 1, true, false, false, SquareRoot},
    {"SQRT", 1, 1, false, true, false, SquareRoot},
    {"STR", 1, 3, true, true, false, Str},
    {"STRING", 2, 2, true, false, false, StringOf},
    {"STRTRAN", 3, 3, false, true, false, Replace},
    {"SUBSTR", 2, 3, false, true, false, Mid},
    {"TIME", 0, 0, true, false, false, date_functions::TimeNow},
    {"TRIM", 1, 1, true, true, false, Trim},
    {"UCASE", 1, 1, true, false, false, Upper},
    {"UPPER", 1, 1, false, true, false, Upper},
    {"VAL", 1, 1, true, true, false, Val},
    {"YEAR", 1, 1, true, true, false, date_functions::Year},
};

}  // namespace

std::span<const SqlFunction> AllSqlFunctions() noexcept { return kFunctions; }

bool IsDialectFunction(Dialect dialect, std::string_view upper_name) noexcept {
  return std::any_of(std::begin(kFunctions), std::end(kFunctions), [&](const SqlFunction& f) {
    return f.name == upper_name && (dialect == Dialect::Jet ? f.jet : f.foxpro);
  });
}

std::string SqliteFunctionName(std::string_view upper_name) {
  std::string name = "vp_";
  for (const char c : upper_name)
    name += static_cast<char>(c >= 'A' && c <= 'Z' ? c | 0x20 : c);
  return name;
}

}  // namespace vandpublic::ado
