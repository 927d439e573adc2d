// The functions of dates and times that the dialects have. A date is a number of days, or a text in
// any of the forms of a literal: fault 13 for a text that is no date, 5 for a day outside the
// calendar.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_DATE_FUNCTIONS_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_SQL_DATE_FUNCTIONS_H

#include "platform/posix/ado/sql/sql_functions.h"

namespace vandpublic::ado::date_functions {

// By the local clock: the day, the time as a part of a day, both.
Variant Today(SqlArguments, Dialect);
Variant TimeNow(SqlArguments, Dialect);
Variant Now(SqlArguments, Dialect);

// The number of days.
Variant ToDate(SqlArguments a, Dialect);

// Parts of a date; those of FoxPro's empty date are 0.
Variant Year(SqlArguments a, Dialect dialect);
Variant Month(SqlArguments a, Dialect dialect);
Variant Day(SqlArguments a, Dialect dialect);
Variant Hour(SqlArguments a, Dialect);
Variant Minute(SqlArguments a, Dialect);
Variant Second(SqlArguments a, Dialect);

// "20240305", eight blanks for the empty date.
Variant DateDigits(SqlArguments a, Dialect dialect);

}  // namespace vandpublic::ado::date_functions

#endif
