// The notations of the command line.
#include "cli/text_values.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>

#include "cli/command_line.h"
#include "cli/hex_text.h"
#include "cli/json_values.h"
#include "cli/pipe.h"
#include "cli/system_streams.h"
#include "runtime/object.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

// A guard against a size that is only a mistake; the interface's lengths have 16 bits.
constexpr int kMostZeroBytes = 1024 * 1024;

// The value itself is not repeated: it may be a key that was read from a file.
[[noreturn]] void Misfit(const std::string& needed) { throw UsageError(needed + " is needed"); }

Json NumberFromWord(std::string_view word) {
  std::int64_t number = 0;
  const char* const end = word.data() + word.size();
  const auto [stop, error] = std::from_chars(word.data(), end, number);
  if (error != std::errc{} || stop != end) Misfit("a whole number");
  return number;
}

Json BooleanFromWord(std::string_view word) {
  if (SameName(word, "True") || word == "-1" || word == "1") return true;
  if (SameName(word, "False") || word == "0") return false;
  Misfit("True or False");
}

Json EnumerationFromWord(std::string_view word) {
  if (const auto number = ParseDecimal(word)) return *number;
  return std::string(word);
}

int CountFromWord(std::string_view word) {
  const auto count = ParseDecimal(word);
  if (!count || *count < 0 || *count > kMostZeroBytes) Misfit("a number of bytes");
  return *count;
}

// ":8" or, where two dimensions are wanted, ":2x16".
Json ZeroBytes(std::string_view size, InterfaceType type) {
  const std::size_t cross = size.find('x');
  const int rows = CountFromWord(size.substr(0, cross));
  const auto hex = [](int count) { return std::string(2 * static_cast<std::size_t>(count), '0'); };
  if (type != InterfaceType::ByteTable || cross == size.npos) {
    if (cross != size.npos) Misfit("a number of bytes");
    return JsonObject("bytes", hex(rows));
  }
  const int columns = CountFromWord(size.substr(cross + 1));
  if (std::int64_t{rows} * columns > kMostZeroBytes || rows == 0 || columns == 0) {
    Misfit("the size of a table");
  }
  Json table = JsonObject("bytes", hex(rows * columns));
  table["bounds"] = Json::array({Json::array({0, rows - 1}), Json::array({0, columns - 1})});
  return table;
}

Json BytesFromWord(std::string_view word, InterfaceType type) {
  if (word.empty()) return nullptr;
  if (word.front() == ':') return ZeroBytes(word.substr(1), type);
  std::string digits(word);
  std::erase_if(digits, [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
  if (!FromHexText(digits)) Misfit("hexadecimal text, two digits a byte,");
  return JsonObject("bytes", std::move(digits));
}

Json ParsedWord(std::string_view word) {
  try {
    return ParseJson(word);
  } catch (const ProtocolError& error) {
    throw UsageError(error.what());
  }
}

Json VariantFromWord(std::string_view word) {
  constexpr std::string_view kJson = "json:";
  if (word.starts_with(kJson)) return ParsedWord(word.substr(kJson.size()));
  return std::string(word);
}

std::string BytesText(const Json& array) {
  const auto& digits = array["bytes"].get_ref<const std::string&>();
  if (!array.contains("bounds")) return digits;
  const Json& columns = array["bounds"][1];
  const auto row = 2 * static_cast<std::size_t>(columns[1].get<std::int64_t>() -
                                                columns[0].get<std::int64_t>() + 1);
  std::string text;
  for (std::size_t start = 0; start < digits.size(); start += row) {
    text += (start == 0 ? "" : " ") + digits.substr(start, row);
  }
  return text;
}

std::string ReadAll(int descriptor, const std::string& name) {
  std::string text;
  char buffer[1 << 16];
  for (;;) {
    const std::ptrdiff_t count = ReadSome(descriptor, buffer, sizeof buffer);
    if (count < 0) throw UsageError("'" + name + "' cannot be read");
    if (count == 0) break;
    text.append(buffer, static_cast<std::size_t>(count));
    if (text.size() > kLongestLine) throw UsageError("'" + name + "' has more than 64 MB");
  }
  const std::size_t line_end = text.ends_with("\r\n") ? 2 : text.ends_with('\n') ? 1 : 0;
  text.resize(text.size() - line_end);
  return text;
}

std::string TextOfFile(const std::string& name) {
  const Stream file(OpenFile(name, FileUse::Read));
  if (file.get() < 0) throw UsageError("'" + name + "' cannot be opened");
  return ReadAll(file.get(), name);
}

}  // namespace

Json JsonFromWord(std::string_view word, InterfaceType type) {
  if (FindEnumeration(type) != nullptr) return EnumerationFromWord(word);
  switch (type) {
    case InterfaceType::Boolean:
      return BooleanFromWord(word);
    case InterfaceType::Byte:
    case InterfaceType::Integer:
    case InterfaceType::Long:
      return NumberFromWord(word);
    case InterfaceType::ByteArray:
    case InterfaceType::ByteTable:
      return BytesFromWord(word, type);
    case InterfaceType::Variant:
      return VariantFromWord(word);
    case InterfaceType::ErrObject:
      return word.empty() ? Json() : ParsedWord(word);
    case InterfaceType::Connection:
    case InterfaceType::Recordset:
    case InterfaceType::Field:
      if (!word.empty()) throw UsageError("objects can be passed in the pipe only; \"\" is unset");
      return nullptr;
    default:
      return std::string(word);
  }
}

std::string TextFromJson(const Json& value) {
  if (value.is_null()) return "";
  if (value.is_boolean()) return value.get<bool>() ? "True" : "False";
  if (value.is_string()) return value.get<std::string>();
  if (!value.is_object()) return value.dump();
  if (value.contains("vt")) return TextFromJson(value["value"]);
  if (value.contains("bytes")) return BytesText(value);
  if (value.contains("utf16le")) return "utf16le:" + value["utf16le"].get<std::string>();
  if (value.contains("object")) return value["object"].get<std::string>();
  return value.dump();
}

Variant ValueFromWord(std::string_view word, InterfaceType type) {
  if (type == InterfaceType::String) {
    String text(word);
    if (text.ToUtf8() != word) throw UsageError("a value is not in UTF-8");
    return text;
  }
  return DecodeValue(JsonFromWord(word, type), type);
}

std::string TextFromValue(const Variant& value, InterfaceType type) {
  return TextFromJson(EncodeValue(value, type));
}

std::string TextFromError(const Json& error) {
  const bool own = error["number"].get<std::int64_t>() < 0;
  return (own ? error["hex"].get<std::string>() : error["number"].dump()) + " " +
         TextFromJson(error["source"]) + " " + TextFromJson(error["description"]);
}

std::string WordReader::Read(std::string_view word) {
  std::string text(word);
  if (word.starts_with("@@")) {
    text = word.substr(1);
  } else if (word == "@-") {
    if (standard_input_used_) throw UsageError("standard input can give one value only");
    standard_input_used_ = true;
    text = ReadAll(kStandardInput, "standard input");
  } else if (word.starts_with('@')) {
    text = TextOfFile(std::string(word.substr(1)));
  }
  // A malformed byte would come back as another character.
  if (ToUtf8(FromUtf8(text)) != text) throw UsageError("a value is not in UTF-8");
  return text;
}

}  // namespace vandpublic
