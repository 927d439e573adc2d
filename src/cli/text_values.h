// Values between words of the command line and the JSON of a request, and results as text.
#ifndef VANDPUBLIC_CLI_TEXT_VALUES_H
#define VANDPUBLIC_CLI_TEXT_VALUES_H

#include <functional>
#include <string>
#include <string_view>

#include "cli/json_text.h"
#include "members/member_table.h"
#include "runtime/variant.h"

namespace vandpublic {

// A word as the value of a parameter of that type, in the form a request has it; the help text of
// `vandpublic call` tells the forms. Raises UsageError for what does not fit.
Json JsonFromWord(std::string_view word, InterfaceType type);

// A value of a reply as a person reads it: texts as they are, byte arrays in hexadecimal (blanks
// between the rows of a two-dimensional one), True and False. Null is the empty text, and so are
// an absent string, an empty variant and an array that is not dimensioned.
std::string TextFromJson(const Json& value);

// The same without the JSON in between, for many values. Raises UsageError and ProtocolError.
Variant ValueFromWord(std::string_view word, InterfaceType type);
std::string TextFromValue(const Variant& value, InterfaceType type);

// An error of a reply in one line: number, source, description. The members' own numbers are as the
// reference lists them, plain faults decimal.
std::string TextFromError(const Json& error);

// Reads "@FILE" and "@-"; "@@TEXT" is the literal text "@TEXT", other words are themselves. One
// line end at the end of what is read is removed.
class WordReader {
 public:
  // Raises UsageError for a file that cannot be read or has more than 64 MB, for standard input
  // asked for twice, and for what is not UTF-8.
  std::string Read(std::string_view word);
  bool HasReadStandardInput() const noexcept { return standard_input_used_; }

 private:
  bool standard_input_used_ = false;
};

}  // namespace vandpublic

#endif
