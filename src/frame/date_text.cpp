// The one date format of the component.
#include "frame/date_text.h"

#include <cstdio>

namespace vandpublic {

std::u16string DateText(const LocalTime& time) {
  char text[80];  // room for fields of any size, though real ones fill 19 characters
  const int length = std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", time.year,
                                   time.month, time.day, time.hour, time.minute, time.second);
  return std::u16string(text, text + length);
}

}  // namespace vandpublic
