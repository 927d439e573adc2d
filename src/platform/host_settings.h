// What a host program sets for the whole process. There is nothing else to configure: no file, no
// environment variable.
#ifndef VANDPUBLIC_PLATFORM_HOST_SETTINGS_H
#define VANDPUBLIC_PLATFORM_HOST_SETTINGS_H

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "runtime/basic_types.h"

namespace vandpublic {

// Seeds the generator behind RetrieveSeed and SystemEncrypt. Without a call every process draws
// the same sequence; for values that nobody may guess, give it 64 bits of the system's own random
// source, and keep keys to a real key generator all the same.
VANDPUBLIC_API void SeedRandom(std::uint64_t seed);

// Selects the ANSI code page of the objects created from now on: 874, 932, 936, 949, 950 or 1250
// to 1258. By default it is the page that the locale's charset names, 1252 where it names none; on
// Windows the system's own page. False, and nothing changed, for any other number and for a page
// that the system has no converter for.
//
// On Windows the settings members (initialisation files, registry, the names of machine and
// folders) read and write the system's own page all the same.
VANDPUBLIC_API bool SelectCodePage(int number);

#if !defined(_WIN32)
// Reads the registry values of objects created from now on from another file than the system's,
// /etc/vandpublic/registry.reg. After SelectCodePage it must be set again. There is no such
// function on Windows, which has a registry of its own: a program that would replace it does not
// build there.
VANDPUBLIC_API void SelectRegistryFile(const std::string& path);
#endif

// Shows a message box: the text, the title and the style 48 (an OK box) or 324 (a question with
// Yes and No); returns the button, 1 OK, 6 Yes or 7 No.
using MessageBoxHandler =
    std::function<int(std::u16string_view text, std::u16string_view title, int style)>;

// Has the boxes of objects created from now on shown by the host; an empty handler gives them back
// to the desktop. The handler is called on the thread of the member that asks.
VANDPUBLIC_API void SetMessageBoxHandler(MessageBoxHandler handler);

}  // namespace vandpublic

#endif
