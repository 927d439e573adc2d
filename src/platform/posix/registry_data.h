// The part of a registry entry behind the "=".
#ifndef VANDPUBLIC_PLATFORM_POSIX_REGISTRY_DATA_H
#define VANDPUBLIC_PLATFORM_POSIX_REGISTRY_DATA_H

#include <optional>
#include <string>

#include "platform/code_page.h"
#include "platform/posix/registry_cursor.h"

namespace vandpublic {

struct RegistryDialect {
  const CodePage& page;
  bool wide = true;  // the bytes of a text are UTF-16, else in the ANSI page
};

struct RegistryData {
  bool removes = false;  // "-": the value is to go
  std::string bytes;     // as the query function for the ANSI page gives them
};

// Reads what the cursor stands at; it is behind the data afterwards. On a problem: reports it and
// gives nothing, and the cursor is at the start of the line after the entry.
std::optional<RegistryData> ReadRegistryData(RegistryCursor& cursor, const RegistryDialect& dialect,
                                             RegistryProblems& problems);

// A text in quotation marks, the cursor at the first. Nothing, and the cursor somewhere behind,
// when the other is missing. Line ends inside only where they may be.
struct RegistryQuoted {
  std::u16string text;
  bool has_lone_backslash = false;
};
std::optional<RegistryQuoted> ReadRegistryQuoted(RegistryCursor& cursor, bool may_span_lines);

inline constexpr std::string_view kLoneBackslash =
    "a backslash stands before something else than \\ or \" and is taken as it is";

}  // namespace vandpublic

#endif
