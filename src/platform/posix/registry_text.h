// The text form of the registry, as the Windows registry editor exports it:
//
//   Windows Registry Editor Version 5.00
//
//   [HKEY_LOCAL_MACHINE\Software\Maker\Program]
//   "Folder"="C:\\Data"
//   @="the key's default value"
//   "Limit"=dword:0000000a
//   "Search"=hex(2):25,00,54,00,25,00,00,00
//   "Old"=-
//   ; a comment
//   [-HKEY_LOCAL_MACHINE\Software\Maker\Old]
//
// Files. UTF-16 with its mark, UTF-8 with or without one, or bytes in the ANSI page. The first
// line is either the one above or "REGEDIT4"; a file with the latter and no mark is in the ANSI
// page, one without mark that is no UTF-8 as well. A line ends with CR LF, CR or LF.
//
// Keys. The path to its last "]"; "[-" removes the key and all below it. Roots other than
// HKEY_LOCAL_MACHINE are accepted and ignored; HKLM and the like are no roots. A "\" at the end of
// a path does not count.
//
// Values. A text in quotes, with \\ for a backslash and \" for a quote; any other backslash stands
// for itself, which is reported. A line end inside is part of the text. dword: has one to eight
// hexadecimal digits, hex: and hex(TYPE): bytes with commas between, continued on the next line
// after a "\". "-" removes the value. A comment may follow. A later entry replaces an earlier one.
//
// The bytes of types 1, 2 and 7 are text: UTF-16 under the long first line, the ANSI page under
// REGEDIT4. They are given as the query function for the ANSI page gives them: converted, and
// with a terminating zero even where the file has none.
#ifndef VANDPUBLIC_PLATFORM_POSIX_REGISTRY_TEXT_H
#define VANDPUBLIC_PLATFORM_POSIX_REGISTRY_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/code_page.h"
#include "platform/posix/registry_values.h"

namespace vandpublic {

struct RegistryDiagnostic {
  std::size_t line;     // from 1
  std::string message;  // one English sentence without a full stop
};

// Never fails: an entry that cannot be read is left out, everything else is used.
RegistryValues ParseRegistryText(std::string_view file, const CodePage& page);

// What is wrong with the file, in the order of its lines; at most 1,000 problems and a last entry
// that says so.
std::vector<RegistryDiagnostic> CheckRegistryText(std::string_view file, const CodePage& page);

}  // namespace vandpublic

#endif
