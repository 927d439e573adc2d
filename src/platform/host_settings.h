// What a host program sets for the whole process. There is nothing else to configure: no file, no
// environment variable.
#ifndef VANDPUBLIC_PLATFORM_HOST_SETTINGS_H
#define VANDPUBLIC_PLATFORM_HOST_SETTINGS_H

#include <cstdint>

#include "runtime/basic_types.h"

namespace vandpublic {

// Seeds the generator behind RetrieveSeed and SystemEncrypt. Without a call every process draws
// the same sequence; for values that nobody may guess, give it 64 bits of the system's own random
// source, and keep keys to a real key generator all the same.
VANDPUBLIC_API void SeedRandom(std::uint64_t seed);

// Selects the ANSI code page of the objects created from now on: 874, 932, 936, 949, 950 or 1250
// to 1258. By default it is the page that the locale's charset names, 1252 where it names none.
// False, and nothing changed, for any other number and for a page that the system has no
// converter for.
VANDPUBLIC_API bool SelectCodePage(int number);

}  // namespace vandpublic

#endif
