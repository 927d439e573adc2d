// Dates as the error log and the stopwatches write them.
#ifndef VANDPUBLIC_FRAME_DATE_TEXT_H
#define VANDPUBLIC_FRAME_DATE_TEXT_H

#include <string>

#include "platform/clock.h"

namespace vandpublic {

// "YYYY-MM-DD HH:NN:SS": 19 characters, every field padded with zeros, 24 hours.
std::u16string DateText(const LocalTime& time);

}  // namespace vandpublic

#endif
