// Reading, showing and comparing of rows.
#include "support/expected_rows.h"

#include <gtest/gtest.h>
#include <nettle/sha2.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/posix/ado/dates.h"
#include "runtime/coerce.h"
#include "support/test_data.h"

namespace vandpublic::ado {
namespace {

// Splits a file into cells. A quoted cell may hold anything, its quotes doubled.
class CellReader {
 public:
  explicit CellReader(const std::string& text) : text_(text) {}

  TextRows Read() {
    while (position_ < text_.size()) {
      rows_.emplace_back();
      do {
        rows_.back().push_back(Peek() == '"' ? Quoted() : Plain());
      } while (Take(','));
      Take('\r');
      Take('\n');
    }
    return rows_;
  }

 private:
  char Peek() const { return position_ < text_.size() ? text_[position_] : '\n'; }

  bool Take(char c) {
    if (position_ >= text_.size() || text_[position_] != c) return false;
    ++position_;
    return true;
  }

  std::string Plain() {
    const std::size_t end = std::min(text_.find_first_of(",\n", position_), text_.size());
    std::string cell = text_.substr(position_, end - position_);
    position_ = end;
    return cell;
  }

  std::string Quoted() {
    std::string cell;
    for (++position_; position_ < text_.size(); ++position_) {
      if (text_[position_] == '"') {
        if (position_ + 1 >= text_.size() || text_[position_ + 1] != '"') break;
        ++position_;
      }
      cell += text_[position_];
    }
    ++position_;
    return cell;
  }

  const std::string& text_;
  std::size_t position_ = 0;
  TextRows rows_;
};

std::string Digest(const ByteArray& bytes) {
  sha256_ctx context;
  sha256_init(&context);
  sha256_update(&context, bytes.Elements().size(), bytes.Elements().data());
  std::array<std::uint8_t, SHA256_DIGEST_SIZE> digest{};
  sha256_digest(&context, digest.size(), digest.data());
  std::string text;
  for (const std::uint8_t byte : digest) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

std::string ShownDate(Date value, DataType type) {
  const auto time = ToCivilTime(value, kMillisecondsOfSecond);
  if (!time) return "date " + std::to_string(value.days);
  return type == DataType::DBDate ? DateOnlyText(*time) : TimestampText(*time);
}

template <class Real>
std::string Shortest(Real value) {
  std::array<char, 64> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed).ptr;
  return {text.data(), end};
}

std::string WithoutBlanksAtEnd(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

bool IsBlank(const std::string& cell) {
  return cell.empty() || cell == "0" || cell == "False" || cell.starts_with("1899-12-30") ||
         cell.starts_with("bin:0:");
}

bool SameRow(const TextRow& actual, const TextRow& expected) {
  return std::equal(actual.begin(), actual.end(), expected.begin(), expected.end(),
                    [](const std::string& a, const std::string& b) {
                      return a == WithoutBlanksAtEnd(b) || (b == "\\E" && IsBlank(a));
                    });
}

std::string Joined(const TextRow& row) {
  std::string text;
  for (const std::string& cell : row)
    text += "[" + cell + "]";
  return text;
}

}  // namespace

TextRows ReadExpectedRows(const std::string& name) {
  const std::string text = ReadSample(name);
  return CellReader(text).Read();
}

std::string ShownValue(const Variant& value, DataType type) {
  if (value.IsNull()) return "\\N";
  if (const auto* const date = value.Get<Date>()) return ShownDate(*date, type);
  if (const auto* const number = value.Get<double>()) return Shortest(*number);
  if (const auto* const number = value.Get<float>()) return Shortest(*number);
  if (const ByteArray* const bytes = value.AsByteArray()) {
    return "bin:" + std::to_string(bytes->Count()) + ":" + Digest(*bytes);
  }
  return WithoutBlanksAtEnd(ToText(value).ToUtf8());
}

std::string ShownResult(const Result& result) {
  std::string text;
  for (const Row& row : result.rows) {
    if (!text.empty()) text += "/";
    for (std::size_t i = 0; i < row.values.size(); ++i) {
      text += (i == 0 ? "" : "|") + ShownValue(row.values[i], result.columns[i].type);
    }
  }
  return text;
}

TextRows ShownRows(FileTable& table, bool lower_case_names) {
  TextRows rows(1);
  const auto& columns = table.Columns();
  for (const TableColumn& column : columns) {
    std::string name = column.name;
    if (lower_case_names) {
      std::transform(name.begin(), name.end(), name.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
      });
    }
    rows[0].push_back(name);
  }
  const auto scan = table.Scan();
  while (scan->Next()) {
    rows.emplace_back();
    for (std::size_t i = 0; i < columns.size(); ++i) {
      rows.back().push_back(ShownValue(scan->Value(i), columns[i].type));
    }
  }
  return rows;
}

void ExpectSameRows(const TextRows& actual, TextRows expected) {
  ASSERT_FALSE(actual.empty());
  ASSERT_FALSE(expected.empty());
  EXPECT_EQ(actual[0], expected[0]);
  EXPECT_EQ(actual.size(), expected.size());
  for (std::size_t i = 1; i < actual.size(); ++i) {
    const auto found = std::find_if(expected.begin() + 1, expected.end(),
                                    [&](const TextRow& row) { return SameRow(actual[i], row); });
    if (found == expected.end()) {
      ADD_FAILURE() << "not expected: " << Joined(actual[i]);
    } else {
      expected.erase(found);
    }
  }
  for (std::size_t i = 1; i < expected.size(); ++i) {
    ADD_FAILURE() << "missing: " << Joined(expected[i]);
  }
}

}  // namespace vandpublic::ado
