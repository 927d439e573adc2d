// Which texts are dates, and which day they mean.
#include "platform/posix/ado/sql/date_literal.h"

#include <gtest/gtest.h>

#include "platform/posix/ado/dates.h"

namespace vandpublic::ado {
namespace {

std::string Read(const char* text) {
  const auto days = ParseDateLiteral(text);
  if (!days) return "no date";
  const auto time = ToCivilTime(Date{*days}, kMillisecondsOfSecond);
  return time ? TimestampText(*time) : "no such day";
}

struct Literal {
  const char* text;
  const char* read;
};

constexpr Literal kLiterals[] = {
    {"9/21/1974", "1974-09-21 00:00:00"},
    {"9-21-1974", "1974-09-21 00:00:00"},
    {"9.21.1974", "1974-09-21 00:00:00"},
    {"1974-09-21", "1974-09-21 00:00:00"},
    {"21/9/1974", "1974-09-21 00:00:00"},  // the day first, where it cannot be a month
    {"9/21/74", "1974-09-21 00:00:00"},
    {"9/21/29", "2029-09-21 00:00:00"},
    {"9/21/30", "1930-09-21 00:00:00"},
    {"9/21/0100", "0100-09-21 00:00:00"},
    {"21 September 1974", "1974-09-21 00:00:00"},
    {"21-Sep-74", "1974-09-21 00:00:00"},
    {"sep 21, 1974", "1974-09-21 00:00:00"},
    {"MAY 1 2024", "2024-05-01 00:00:00"},
    {"9/21/1974 14:07", "1974-09-21 14:07:00"},
    {"9/21/1974 14:07:09", "1974-09-21 14:07:09"},
    {"9/21/1974 2:07:09 PM", "1974-09-21 14:07:09"},
    {"9/21/1974 2:07:09PM", "1974-09-21 14:07:09"},
    {"9/21/1974 2 pm", "1974-09-21 14:00:00"},
    {"12:30 am", "1899-12-30 00:30:00"},
    {"12:30 PM", "1899-12-30 12:30:00"},
    {"6 AM", "1899-12-30 06:00:00"},
    {"14:07", "1899-12-30 14:07:00"},
    {"  9/21/1974  ", "1974-09-21 00:00:00"},
    {"^2024-03-05", "2024-03-05 00:00:00"},
    {"^ 2024-03-05 14:07", "2024-03-05 14:07:00"},
    {"d '2024-03-05'", "2024-03-05 00:00:00"},
    {"D'2024-03-05'", "2024-03-05 00:00:00"},
    {"t '14:07:09'", "1899-12-30 14:07:09"},
    {"T '14:07:09'", "1899-12-30 14:07:09"},
    {"ts '2024-03-05 14:07:09'", "2024-03-05 14:07:09"},
    {"TS '2024-03-05 14:07:09'", "2024-03-05 14:07:09"},
    {"", "1899-12-30 00:00:00"},  // FoxPro's empty date
    {"  /  /  ", "1899-12-30 00:00:00"},
    {"x '2024-03-05'", "no date"},
    {"d '2024-03-05", "no date"},
    {"'", "no date"},
    {"13/13/1974", "no date"},
    {"2/30/1974", "no date"},
    {"9/21", "no date"},
    {"9/21/1974/5", "no date"},
    {"9//21/1974", "no date"},
    {"9+21+1974", "no date"},
    {"+9/21/1974", "no date"},
    {"9/21/19740", "no date"},
    {"se 21 1974", "no date"},
    {"septembers 21 1974", "no date"},
    {"21 1974 sep", "no date"},
    {"sep sep 1974", "no date"},
    {"sep", "no date"},
    {"am", "no date"},
    {"pm 5", "no date"},
    {"5 pm am", "no date"},
    {"1974", "no date"},
    {"25:00", "no date"},
    {"14:60", "no date"},
    {"14:07:60", "no date"},
    {"14:", "no date"},
    {"1:2:3:4", "no date"},
    {"14:sep", "no date"},
    {"sep:14", "no date"},
    {"9/21/1974 14:07 sep", "no date"},
    {"0:30 am", "no date"},
    {"13:30 pm", "no date"},
    {"1 2 3 pm", "no date"},
    {"9/21/1974 sep:14", "no date"},
};

TEST(DateLiteral, Is_read_by_the_places_of_its_parts) {
  for (const Literal& literal : kLiterals)
    EXPECT_EQ(Read(literal.text), literal.read) << "\"" << literal.text << "\"";
}

}  // namespace
}  // namespace vandpublic::ado
