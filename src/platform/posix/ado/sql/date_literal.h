// Dates as statements write them.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_DATE_LITERAL_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_DATE_LITERAL_H

#include <optional>
#include <string_view>

namespace vandpublic::ado {

// The day number of the text between the marks of a date literal, #...# or {...}: a date
// ("2024-03-05", "3/5/2024" with the month first, "5-Mar-2024", "March 5, 2024"), a time of day
// ("14:07", "2:07:09 PM") or both; an ODBC escape ("d '2024-03-05'", "ts '...'", "t '...'");
// FoxPro's "^2024-03-05 14:07". A year of two digits is 1930 to 2029. Blank fields, as in "  /  /
// ", are day 0. Nothing for any other text.
std::optional<double> ParseDateLiteral(std::string_view text);

}  // namespace vandpublic::ado

#endif
