// What the tool offers, in the words of its help texts.
#include <algorithm>
#include <iterator>

#include "cli/command_line.h"
#include "cli/system_commands.h"

namespace vandpublic {
namespace {

constexpr Option kToolOptions[] = {
    {"--codepage", "N", "ANSI code page 874, 932, 936, 949, 950, 1250-1258 (default: by locale)"},
    {"--registry", "FILE", "registry values (default: /etc/vandpublic/registry.reg)"},
    {"--help", "", "this text, or that of a command"},
    {"--version", "", "the version"},
};

constexpr Option kCallOptions[] = {
    {"--refs", "", "show what the member wrote to its by-reference parameters"},
    {"--json", "", "print the reply object of the pipe instead"},
    {"--app-path", "DIR", "call Init with this folder first"},
    {"--debug-mode", "N", "set DebugMode: a number, or a name like DEBUG_MODE_OFF"},
    {"--log-path", "DIR", "set LogFilePath (default: LOG in the tool's folder)"},
    {"--log-name", "NAME", "set LogFileName (default: ERROR.log)"},
};

constexpr Option kBatchOptions[] = {
    {"--column", "P=COLUMN", "the column that gives parameter P its value (repeatable)", true},
    {"--reference", "P=COLUMN", "write by-reference parameter P to a column (repeatable)", true},
    {"--result", "COLUMN", "name of the result's column (default: result)"},
    {"--format", "FORMAT", "csv or jsonl (default: csv)"},
    {"--separator", "C", "between the fields of a CSV row (default: a comma; \\t: a tab)"},
    {"--no-header", "", "the first row is data; columns are numbers from 1"},
    {"--drop-input", "", "write the new columns only"},
    {"--input", "FILE", "read this file (default: standard input)"},
    {"--output", "FILE", "write this file (default: standard output)"},
    {"--resume", "", "go on behind the rows that the output has already"},
    {"--jobs", "N", "threads (default: one for each processor)"},
    {"--app-path", "DIR", "call Init with this folder first"},
    {"--debug-mode", "N", "set DebugMode (default: DEBUG_MODE_OFF)"},
    {"--log-path", "DIR", "set LogFilePath"},
    {"--log-name", "NAME", "set LogFileName"},
};

constexpr Option kMembersOptions[] = {
    {"--json", "", "print the table as JSON"},
};

constexpr std::string_view kToolExamples = R"(  vandpublic call IsHex 1F
  vandpublic members HexToDec
  echo '{"member":"HexToDec","args":["FF"]}' | vandpublic pipe
)";

constexpr std::string_view kToolNotes = R"(Exit status:
  0  done
  1  the member failed
  2  the command line is wrong, or reading or writing failed

)";

constexpr std::string_view kCallExamples = R"(  vandpublic call HexToDec ff
  vandpublic call BitToHex ibyt_Bit3=1
  vandpublic call FstrDES3 @key.txt 0123456789ABCDEF
  vandpublic call DES 133457799BBCDFF1 0123456789ABCDEF 8 :8 --refs
)";

constexpr std::string_view kCallNotes =
    R"(A value alone is for the first parameter that has none yet; what is optional can be left out.
Their form follows the parameter's type:

  text         as it is, in UTF-8; nothing is escaped
  number       decimal
  Boolean      True, False, -1, 1 or 0
  enumeration  a number or a name (LEFTPAD)
  byte array   hexadecimal digits in either case, blanks allowed; "" is an array that is not
               dimensioned; :N are N zero bytes, the way to give a result its size; where two
               dimensions are wanted :RxC are R rows of C zero bytes
  variant      a text; json:VALUE for anything else, as the pipe takes it: json:{"vt":2,"value":5}
  error object {"Number":5,"Source":"S","Description":"D"}
  any object   "" for one that is not set; objects themselves need the pipe

@FILE takes the value from a file and @- from standard input, less one line end: a command line
can be seen by others, so keys belong there. @@TEXT is the text @TEXT.
Write -- in front of values that start with "-" and are no numbers.

The result goes to standard output: texts as they are, byte arrays in hexadecimal, Booleans as
True or False. Text that UTF-8 cannot hold is shown as utf16le: and its bytes in hexadecimal.
A failure is one line on standard error: number, source, description.

Exit status: 0 done, 1 the member failed, 2 the command line is wrong.

)";

constexpr std::string_view kPipeExamples =
    R"(  echo '{"member":"IsHex","args":["1F"]}' | vandpublic pipe
  vandpublic pipe --codepage 936 <requests >replies
)";

constexpr std::string_view kPipeNotes =
    R"(Every line of standard input is one JSON request and gets one line of JSON in reply:

  {"member":"HexToDec","args":["FF"]}             {"result":255,"refs":{}}
  {"member":"HexToDec","args":["G"]}              {"error":{"number":...},"refs":{}}
  {"set":"LogFilePath","value":"/var/log/app"}    {"result":null}
  {"get":"DebugMode"}                             {"result":1}
  {"let":"a","type":"ByteArray","value":{"bytes":"0A"}}, {"show":"a"}, {"drop":"a"}
  {"new":"Public_Module.clsPublic","as":"other"}, then "on":"other" in other requests

An "id" is echoed unchanged. A line that is no request is answered with "protocol_error". A line
may have 64 MB, 64 levels and 10000 values.

Exit status: 0 at the end of input, 2 when reading or writing fails or the command line is wrong.

)";

constexpr std::string_view kBatchExamples =
    R"(  vandpublic batch HexToDec --column istr_HexNumber=code <codes.csv >numbers.csv
  vandpublic batch FstrDiversifyKey istr_Key=@master.txt --column istr_DivFactor=serial \
      --input cards.csv --output keys.csv --resume
  parallel --pipe --keep-order --header : vandpublic batch IsHex --column istr_HexNumber=code
)";

constexpr std::string_view kBatchNotes =
    R"(Calls one member for every row, on all processors, and writes the rows in the same order with
new columns behind: the result, the by-reference parameters that --reference names, and "error".
Arguments that no --column gives are words, as in call, and the same for all rows. A column may be
named like its parameter: --column istr_HexNumber.

A row that cannot be used keeps its place, with empty results and the reason in "error"; a line on
standard error names it, and the rest goes on. JSON lines (--format jsonl) have objects as rows,
their values in the form of the pipe.

With --output and --resume an interrupted run goes on behind its last complete row; options and
input must be the same. Rows of more than 1 MB are not read.

Exit status: 0 all rows are good, 1 some are not, 2 reading or writing failed or the command line
is wrong.

)";

constexpr std::string_view kMembersExamples = R"(  vandpublic members
  vandpublic members FstrDES3
  vandpublic members --json
)";

constexpr std::string_view kMembersNotes =
    R"(Lists all members in the order of the interface. With a name, tells everything about one member.

Exit status: 0 done, 2 no such member.

)";

constexpr std::string_view kRegistryExamples = R"(  vandpublic registry check
  vandpublic registry check exported.reg
)";

constexpr std::string_view kRegistryNotes =
    R"(Reads a file as the registry editor exports it and names each line that cannot be used, as
FILE:LINE: problem; all other lines count. Without a FILE it is the one that GetSettingFromReg
reads.

Exit status: 0 nothing is wrong, 1 something is, 2 the file cannot be read.

)";

constexpr std::string_view kComCheckExamples = R"(  vandpublic com-check
)";

constexpr std::string_view kComCheckNotes =
    R"(Looks at the registry as 64-bit and as 32-bit programs see it, at the files that it names, and
creates an object. A program can only load a DLL of its own bitness; each needs its registration.

Exit status: 0 all is well for programs like this one, 1 something is wrong.

)";

constexpr Command kCommands[] = {
    {"", "VandPublic: conversions, ciphers, settings, files and databases in one component.",
     "COMMAND [ARGUMENT...]", kToolExamples, kToolNotes, kToolOptions},
    {"call", "Calls one member.", "call [OPTION...] MEMBER [VALUE | NAME=VALUE]...", kCallExamples,
     kCallNotes, kCallOptions},
    {"pipe",
     "Calls members from any language: JSON lines in, JSON lines out.",
     "pipe [OPTION...]",
     kPipeExamples,
     kPipeNotes,
     {}},
    {"batch", "Calls one member for every row of a file, on all processors.",
     "batch [OPTION...] MEMBER [VALUE | NAME=VALUE]...", kBatchExamples, kBatchNotes,
     kBatchOptions},
    {"members", "Lists the members, or describes one.", "members [OPTION...] [MEMBER]",
     kMembersExamples, kMembersNotes, kMembersOptions},
    {"registry",
     "Checks the registry file.",
     "registry check [FILE]",
     kRegistryExamples,
     kRegistryNotes,
     {}},
    {"com-check",
     "Tells what programs find when they create the class, and what is wrong.",
     "com-check",
     kComCheckExamples,
     kComCheckNotes,
     {}},
};

}  // namespace

std::span<const Command> Commands() {
  static const std::vector<Command> offered = [] {
    std::vector<Command> commands;
    std::copy_if(std::begin(kCommands), std::end(kCommands), std::back_inserter(commands),
                 [](const Command& command) { return IsOffered(command.name); });
    return commands;
  }();
  return offered;
}

}  // namespace vandpublic
