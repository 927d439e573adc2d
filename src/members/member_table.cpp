// The table itself. Slot order, names, parameter names and numbers are the interface: fixed for
// ever, misspellings included.
#include "members/member_table.h"

#include <algorithm>

#include "members/messages.h"

namespace vandpublic {
namespace {

using enum InterfaceType;
using namespace messages;

constexpr DefaultValue Truth(bool value) {
  return {.kind = DefaultValue::Kind::Truth, .number = value ? 1 : 0};
}
constexpr DefaultValue Number(std::int32_t value) {
  return {.kind = DefaultValue::Kind::Number, .number = value};
}
constexpr DefaultValue Text(std::u16string_view value) {
  return {.kind = DefaultValue::Kind::Text, .text = value};
}
constexpr DefaultValue kUnstated{.kind = DefaultValue::Kind::Unstated};

// A parameter by value; with a default it is optional.
constexpr Parameter In(std::string_view name, InterfaceType type, DefaultValue value = {}) {
  return {.name = name, .type = type, .by_reference = false, .default_value = value};
}
// A parameter by reference.
constexpr Parameter Ref(std::string_view name, InterfaceType type, DefaultValue value = {}) {
  return {.name = name, .type = type, .by_reference = true, .default_value = value};
}
// rstr_ErrDesc; three quarters of the members declare its default, the rest do not.
constexpr Parameter ErrDesc(DefaultValue value = Text(u"")) {
  return Ref("rstr_ErrDesc", String, value);
}

constexpr SlotKind kGet = SlotKind::PropertyGet;
constexpr SlotKind kPut = SlotKind::PropertyPut;
constexpr FailureStyle kRaise = FailureStyle::Raise;
constexpr FaultDescription kEmpty = FaultDescription::Empty;

constexpr std::array<MemberInfo, kSlotCount> kTable = {{
    // Slot 1
    {.name = "NotNull",
     .parameters = {Ref("Value", Variant), Ref("ValueType", Long, Number(8))},
     .result = Variant,
     .failure = kRaise,
     .code = 0x09,
     .log_application = u"prjCommon",
     .messages = {kInvalidValueType},
     .does = "Returns Value, or a replacement when Value is the null value: a 16-bit 0 for the "
             "types 2 to 6, the empty string for 8, False for 11. An empty value, an object and "
             "an array are returned as they are.",
     .raises = "ValueType is none of 2, 3, 4, 5, 6, 8 and 11, also when Value is not null."},
    // Slot 2
    {.name = "EnableTimer",
     .parameters = {Ref("iint_TimerNnum", Integer, Number(0))},
     .does = "Stores the local date and time in one of the object's 17 stopwatch slots, 0 to 16.",
     .raises = "The slot number is outside 0 to 16: plain fault 9."},
    // Slot 3
    {.name = "DispTimerEsp",
     .parameters = {Ref("iint_TimerNum", Integer, Number(0))},
     .does = "Computes the seconds since EnableTimer filled the slot, and shows them nowhere: on "
             "purpose, the member has no visible effect.",
     .raises = "The slot number is outside 0 to 16: plain fault 9."},
    // Slot 4
    {.name = "FstrFmtToSpecLen",
     .parameters = {In("istr_Source", String), In("iint_Len", Integer)},
     .result = String,
     .does = "Pads the text with blanks on the right to iint_Len characters. A longer text is "
             "returned whole.",
     .raises = "iint_Len is negative: plain fault 5."},
    // Slot 5
    {.name = "OpenConnAsSQLDNS",
     .parameters = {Ref("adoConn", Connection), In("sDsn", String), In("sDatabaseName", String),
                    In("sUserid", String), In("sPwd", String), ErrDesc()},
     .result = Boolean,
     .failure = kRaise,
     .code = 0x25,
     .log_application = u"prjCommon",
     .does = "Opens the connection on an ODBC data source. The values go into the connection "
             "string untrimmed and unquoted.",
     .raises = "The connection is not set, or the provider reports an error.",
     .leaves = "The connection object is as the failed Open left it."},
    // Slot 6
    {.name = "CpyByteArray",
     .parameters = {Ref("abyt_Dest", ByteArray), Ref("abyt_Src", ByteArray),
                    Ref("iint_DataLen", Integer), Ref("rvar_DesSub", Variant, Number(0)),
                    Ref("iint_SrcSub", Integer, Number(0))},
     .result = Boolean,
     .does = "Copies iint_DataLen bytes from subscript iint_SrcSub of abyt_Src on to subscript "
             "rvar_DesSub of abyt_Dest on, one by one upwards, also when both are one array. "
             "rvar_DesSub ends just past the last byte written; iint_SrcSub stays. A length of 0 "
             "or less copies nothing. Subscripts are absolute. Always returns False.",
     .raises = "A subscript lies outside its array: plain fault 9. rvar_DesSub is no number: 13; "
               "null: 94.",
     .leaves = "The bytes copied so far stay, rvar_DesSub shows how far it got."},
    // Slot 7
    {.name = "FstrIsNullExt",
     .parameters = {In("istr_Source", String), In("ibln_VbNullStringIsNull", Boolean, Truth(true)),
                    In("ibln_SpaceIsNull", Boolean, Truth(true))},
     .result = Boolean,
     .does = "True when ibln_VbNullStringIsNull is set and the text is absent or empty or, with "
             "ibln_SpaceIsNull, consists of blanks (U+0020) only. False for every text when "
             "ibln_VbNullStringIsNull is not set."},
    // Slot 8
    {.name = "OpenConnAsMDB",
     .parameters = {Ref("DB_Conn", Connection), In("istr_MDBPath", String),
                    In("istr_Password", String, Text(u"")), ErrDesc()},
     .result = Boolean,
     .failure = kRaise,
     .code = 0x26,
     .messages = {kConnectionNotSet, kMdbPathMissing, kFileNameMissing, kMdbNotFound},
     .does = "Opens the connection on a Jet database file. Path and password are trimmed.",
     .raises = "The connection is not set, the path is blank, no such file exists, or the "
               "provider reports an error.",
     .leaves = "The connection object is as the failed Open left it."},
    // Slot 9
    {.name = "OpenConnAsFoxpro",
     .parameters = {Ref("DB_Conn", Connection), In("istr_DBFDirectory", String), ErrDesc()},
     .result = Boolean,
     .failure = kRaise,
     .code = 0x27,
     .messages = {kConnectionNotSet, kDbfFolderMissing, kDbfNotFound},
     .does = "Opens the connection on a folder of FoxPro or dBASE tables. The folder is trimmed.",
     .raises = "The connection is not set, the folder is blank or not there, or the provider "
               "reports an error.",
     .leaves = "The connection object is as the failed Open left it."},
    // Slot 10
    {.name = "OpenADORecordSet",
     .parameters = {Ref("adoConn", Connection), Ref("adoRecSet", Recordset),
                    In("adoSelectString", String), Ref("adoLockType", LockType, Number(1)),
                    ErrDesc()},
     .result = Boolean,
     .failure = kRaise,
     .code = 0x24,
     .messages = {kConnectionNotSet, kRecordsetNotSet},
     .does = "Opens the recordset on the statement over the connection, with a client-side cursor "
             "and the lock type given.",
     .raises = "The connection or the recordset is not set, or the provider reports an error.",
     .leaves = "Properties of the recordset that were set stay set."},
    // Slot 11
    {.name = "FilterInput",
     .parameters = {Ref("rint_KeyAscii", Integer), In("enm_InputMode", InputMode, Number(1))},
     .does = "Decides whether a typed character code may stay; a rejected one becomes 0. Backspace "
             "(8) always stays. Mode 0 keeps 0 and 1; mode 1 the digits; mode 2 hexadecimal "
             "digits, turning a to f into A to F; other modes keep every code.",
     .raises = "The code is outside 0 to 255, in any mode: plain fault 5."},
    // Slot 12
    {.name = "AppendText",
     .parameters = {In("istr_Path", String), In("istr_Text", String), ErrDesc(kUnstated)},
     .result = Boolean,
     .failure = kRaise,
     .code = 0x07,
     .messages = {kFilePathMissing},
     .does = "Appends the text and a line end (CR LF) to the file. A missing file is created "
             "first, with an empty line in front. The trimmed path is looked up, the path as "
             "given is opened.",
     .raises = "The path is blank; the file cannot be created, opened or written.",
     .leaves = "A file that was created stays."},
    // Slot 13
    {.name = "RegExpTest",
     .parameters = {In("istr_Source", String), In("istr_Pattern", String),
                    In("ibln_Globle", Boolean, Truth(true)),
                    In("ibln_IgnorseCase", Boolean, Truth(true)),
                    In("ibln_Multiline", Boolean, Truth(false)), ErrDesc()},
     .result = Boolean,
     .failure = kRaise,
     .code = 0x01,
     .does = "Whether the regular expression matches anywhere in the source.",
     .raises = "The pattern is not valid, or the match takes too many steps."},
    // Slot 14
    {.name = "RegExpReplace",
     .parameters = {In("istr_Source", String), In("istr_Pattern", String),
                    In("istr_RepWith", String), In("ibln_Globle", Boolean, Truth(true)),
                    In("ibln_IgnorseCase", Boolean, Truth(true)),
                    In("ibln_Multiline", Boolean, Truth(false)), ErrDesc()},
     .result = String,
     .failure = kRaise,
     .code = 0x02,
     .does = "The source with every match (the first only, when ibln_Globle is False) replaced. "
             "The replacement may hold $1 to $99, $&, $`, $' and $$.",
     .raises = "The pattern is not valid, or the match takes too many steps."},
    // Slot 15
    {.name = "AppPath",
     .kind = kGet,
     .result = String,
     .does = "The client's application folder, empty until Init or a write sets it."},
    // Slot 16
    {.name = "AppPath",
     .kind = kPut,
     .parameters = {In("value", String)},
     .does = "Stores the folder as given. The log folder does not follow."},
    // Slot 17
    {.name = "DebugMode",
     .kind = kGet,
     .result = DebugMode,
     .does = "What LogError does: bit 1 writes the log file, bit 2 shows a message box. 1 in a "
             "new object."},
    // Slot 18
    {.name = "DebugMode",
     .kind = kPut,
     .parameters = {In("value", DebugMode)},
     .does = "Stores the value without any check."},
    // Slot 19
    {.name = "Init",
     .parameters = {In("istr_AppPath", String), In("iint_DebugMode", DebugMode, Number(1))},
     .does = "Sets AppPath to the folder, LogFilePath to the folder followed by \\LOG (the ends of "
             "the joined text trimmed) and DebugMode. A folder that ends in a backslash gives two "
             "of them before LOG. LogFileName stays. Nothing is created on disk."},
    // Slot 20
    {.name = "LogError",
     .parameters = {In("istr_AppName", String), In("istr_ModuleName", String),
                    In("istr_FunctionName", String), In("iobj_Err", ErrObject, kUnstated),
                    Ref("irstr_ErrDesc", String, Text(u""))},
     .does = "Appends a dated entry of two or three lines to the file LogFileFullName, shows a "
             "message box, or both, as the bits of DebugMode say. The message is the trimmed "
             "description; when that is blank, the error's \"source (number) - description\", "
             "which is then handed back in irstr_ErrDesc; \"Unknown error!\" when there is no "
             "error either. A third line shows the error when both are there. Failures while "
             "writing or showing are swallowed.",
     .raises = "iobj_Err is left out or unset: plain fault 91. It lacks Source, Number or "
               "Description: 438.",
     .leaves = "irstr_ErrDesc keeps its text."},
    // Slot 21
    {.name = "LogFilePath",
     .kind = kGet,
     .result = String,
     .does = "The folder of the error log: the component's own folder followed by \\LOG until Init "
             "or a write changes it."},
    // Slot 22
    {.name = "LogFilePath",
     .kind = kPut,
     .parameters = {In("value", String)},
     .does = "Stores the folder without leading and trailing blanks."},
    // Slot 23
    {.name = "LogFileName",
     .kind = kGet,
     .result = String,
     .does = "The error log's file name, ERROR.log in a new object."},
    // Slot 24
    {.name = "LogFileName",
     .kind = kPut,
     .parameters = {In("value", String)},
     .does = "Stores the name without leading and trailing blanks."},
    // Slot 25
    {.name = "LogFileFullName",
     .kind = kGet,
     .result = String,
     .does = "LogFilePath, a backslash unless it ends in one, and LogFileName."},
    // Slot 26
    {.name = "ArraySize",
     .parameters = {Ref("iavar_Array", Variant), In("iint_Dimension", Integer, Number(1))},
     .result = Long,
     .failure = kRaise,
     .code = 0x03,
     .messages = {kInvalidDimension},
     .does = "The number of elements in one dimension of an array of any type. 0, without an "
             "error, for what is no array, has no storage or lacks the dimension.",
     .raises = "iint_Dimension is below 1."},
    // Slot 27
    {.name = "TextRWWrite",
     .parameters = {Ref("istr_FilePath", String), Ref("istr_Printed", String),
                    Ref("ibln_PromptOverRide", Boolean, Truth(false)), ErrDesc()},
     .failure = kRaise,
     .code = 0x06,
     .messages = {kFilePathMissing},
     .does = "Replaces the file's content with the text and a line end (CR LF). With "
             "ibln_PromptOverRide a question is asked first, whether or not the file exists; No "
             "leaves everything as it is.",
     .raises = "The path is blank; the file cannot be created, opened or written."},
    // Slot 28
    {.name = "ArrayToColumn",
     .parameters = {Ref("Col", Field), Ref("Ary", Variant)},
     .result = Boolean,
     .failure = FailureStyle::Swallow,
     .does = "Stores a byte array in a binary column, in chunks of 5120 bytes. The caller updates "
             "the row. A byte count that is a multiple of 5120 is stored whole and returns False.",
     .leaves = "False is returned; chunks already appended stay."},
    // Slot 29
    {.name = "ColumnToArray",
     .parameters = {Ref("Col", Field)},
     .result = Variant,
     .failure = FailureStyle::Swallow,
     .does = "The content of a binary column as a byte array with subscripts from 1; a single "
             "zero byte at subscript 0 for an empty column.",
     .leaves = "The null value is returned, or the array as far as it was filled."},
    // Slot 30
    {.name = "FileToColumn",
     .parameters = {Ref("Col", Field), Ref("DiskFile", String),
                    Ref("First_X_Bytes", Long, kUnstated)},
     .result = Boolean,
     .failure = FailureStyle::Swallow,
     .does = "Stores a file, or its first First_X_Bytes bytes, in a binary column, in chunks of "
             "5120 bytes. An empty file is not transferred.",
     .leaves = "False is returned; chunks already appended stay."},
    // Slot 31
    {.name = "ColumnToFile",
     .parameters = {Ref("Col", Field), Ref("DiskFile", String)},
     .result = Boolean,
     .failure = FailureStyle::Swallow,
     .does = "Writes a binary column to a file, replacing an existing one.",
     .leaves = "False is returned; the old file is already gone."},
    // Slot 32
    {.name = "TextRWRead",
     .parameters = {In("istr_FilePath", String), ErrDesc()},
     .result = String,
     .failure = kRaise,
     .code = 0x05,
     .messages = {kFilePathMissing},
     .does = "The whole content of a text file, line ends included, read in the ANSI code page.",
     .raises = "The path is blank or names no file; the file cannot be opened or read."},
    // Slot 33
    {.name = "MsgFmtTextToHex",
     .parameters = {In("istr_MsgFmtText", String), In("ibln_InByteText", Boolean, Truth(false))},
     .result = String,
     .failure = kRaise,
     .code = 0x0C,
     .fault_description = kEmpty,
     .does = "The text's bytes as hexadecimal digits: the low byte of each character or, with "
             "ibln_InByteText, every storage byte.",
     .raises = "More than 32767 characters, or bytes with ibln_InByteText."},
    // Slot 34
    {.name = "MsgFmtTextToBit",
     .parameters = {In("istr_MsgFmtText", String), Ref("rbyt_Bit0", Byte, kUnstated),
                    Ref("rbyt_Bit1", Byte, kUnstated), Ref("rbyt_Bit2", Byte, kUnstated),
                    Ref("rbyt_Bit3", Byte, kUnstated), Ref("rbyt_Bit4", Byte, kUnstated),
                    Ref("rbyt_Bit5", Byte, kUnstated), Ref("rbyt_Bit6", Byte, kUnstated),
                    Ref("rbyt_Bit7", Byte, kUnstated),
                    In("ibln_InByteText", Boolean, Truth(false))},
     .failure = kRaise,
     .code = 0x0A,
     .fault_description = kEmpty,
     .does = "The eight bits of the first character's low byte; Bit0 has weight 1.",
     .raises = "The text is empty.",
     .leaves = "The bits keep their values."},
    // Slot 35
    {.name = "MsgFmtTextToDec",
     .parameters = {In("istr_MsgFmtText", String), In("ibln_InByteText", Boolean, Truth(false))},
     .result = Long,
     .failure = kRaise,
     .code = 0x0B,
     .fault_description = kEmpty,
     .does = "The text's bytes read as one unsigned number, most significant byte first.",
     .raises = "The number is above 2147483647."},
    // Slot 36
    {.name = "BitToHex",
     .parameters = {In("ibyt_Bit0", Byte, Number(0)), In("ibyt_Bit1", Byte, Number(0)),
                    In("ibyt_Bit2", Byte, Number(0)), In("ibyt_Bit3", Byte, Number(0))},
     .result = String,
     .failure = kRaise,
     .code = 0x10,
     .fault_description = kEmpty,
     .messages = {kNotBits},
     .does = "The upper-case hexadecimal digit of four bits; Bit0 has weight 1, Bit3 weight 8.",
     .raises = "A bit is above 1."},
    // Slot 37
    {.name = "HexToBit",
     .parameters = {In("istr_HexChr", String), Ref("rbyt_Bit0", Byte, kUnstated),
                    Ref("rbyt_Bit1", Byte, kUnstated), Ref("rbyt_Bit2", Byte, kUnstated),
                    Ref("rbyt_Bit3", Byte, kUnstated)},
     .failure = kRaise,
     .code = 0x12,
     .fault_description = kEmpty,
     .does = "The four bits of the text's first hexadecimal digit, leading blanks skipped; further "
             "characters are ignored. An empty text gives four zeros.",
     .raises = "The first character is no hexadecimal digit: HexToDec logs and raises, then this "
               "member.",
     .leaves = "The bits keep their values."},
    // Slot 38
    {.name = "HexToDec",
     .parameters = {In("istr_HexNumber", String)},
     .result = Long,
     .failure = kRaise,
     .code = 0x13,
     .fault_description = kEmpty,
     .messages = {kNotHexNumber},
     .does = "The value of a hexadecimal number in either case, blanks around it removed; 0 for an "
             "empty text.",
     .raises = "A character is no hexadecimal digit (with the message); the value is above "
               "7FFFFFFF (empty description)."},
    // Slot 39
    {.name = "BitToMsgFmtText",
     .parameters = {In("ibyt_Bit0", Byte, Number(0)), In("ibyt_Bit1", Byte, Number(0)),
                    In("ibyt_Bit2", Byte, Number(0)), In("ibyt_Bit3", Byte, Number(0)),
                    In("ibyt_Bit4", Byte, Number(0)), In("ibyt_Bit5", Byte, Number(0)),
                    In("ibyt_Bit6", Byte, Number(0)), In("ibyt_Bit7", Byte, Number(0)),
                    In("ibln_InByteText", Boolean, Truth(false))},
     .result = String,
     .failure = kRaise,
     .code = 0x0D,
     .fault_description = kEmpty,
     .messages = {kNotBits},
     .does = "The character whose code eight bits give, or with ibln_InByteText one storage byte.",
     .raises = "A bit is above 1."},
    // Slot 40
    {.name = "DecToMsgFmtText",
     .parameters = {In("ilng_DecVal", Long), In("iint_TextLen", Integer, Number(0)),
                    In("ibln_InByteText", Boolean, Truth(false))},
     .result = String,
     .failure = kRaise,
     .code = 0x0E,
     .fault_description = kEmpty,
     .does = "The number as message-format text, most significant byte first; iint_TextLen counts "
             "hexadecimal digits, 0 takes as many as needed.",
     .raises = "Only what HexToMsgFmtText raises."},
    // Slot 41
    {.name = "IsHex",
     .parameters = {In("istr_HexNumber", String)},
     .result = Boolean,
     .failure = kRaise,
     .code = 0x08,
     .fault_description = kEmpty,
     .does = "Whether every character is a hexadecimal digit, in either case; True for the empty "
             "text. Nothing is trimmed.",
     .raises = "The text has more than 32767 characters."},
    // Slot 42
    {.name = "HexToMsgFmtText",
     .parameters = {In("istr_HexChr", String), In("iint_TextLen", Integer, Number(0)),
                    In("ibln_LeftPad", Boolean, Truth(true)),
                    In("istr_PadWith", String, Text(u"0")),
                    In("ibln_InByteText", Boolean, Truth(false))},
     .result = String,
     .failure = kRaise,
     .code = 0x0F,
     .fault_description = kEmpty,
     .does = "Hexadecimal digits as message-format text, brought to iint_TextLen digits first when "
             "that is above 0. A text or pad character that is not hexadecimal gives \"\" and no "
             "error.",
     .raises = "The text has more than 32767 digits."},
    // Slot 43
    {.name = "SaveSettingToIni",
     .parameters = {In("istr_IniFileName", String), In("istr_Section", String),
                    In("istr_Key", String), In("istr_Value", String)},
     .failure = kRaise,
     .code = 0x15,
     .messages = {kFileNameMissing, kSectionMissing, kKeyMissing, kIniSaveFailed},
     .does = "Writes one value to an initialisation file; creates the file, not its folder.",
     .raises = "A name is blank, or the file cannot be written.",
     .available = false},
    // Slot 44
    {.name = "GetSettingFromIni",
     .parameters = {In("istr_IniFileName", String), In("istr_Section", String),
                    In("istr_Key", String), In("istr_Default", String, Text(u""))},
     .result = String,
     .failure = kRaise,
     .code = 0x14,
     .messages = {kFileNameMissing, kSectionMissing, kKeyMissing},
     .does = "Reads one value from an initialisation file, or the default when it is not there; "
             "cut to 255 bytes, then trimmed.",
     .raises = "A name is blank.",
     .available = false},
    // Slot 45
    {.name = "GetSettingFromReg",
     .parameters = {In("istr_Section", String), In("istr_Key", String),
                    In("istr_Default", String, Text(u""))},
     .result = String,
     .failure = kRaise,
     .code = 0x16,
     .messages = {kSectionMissing, kKeyMissing},
     .does = "Reads one value below HKEY_LOCAL_MACHINE. A text comes back with its terminating "
             "zero character; a missing value is \"\", whatever the default.",
     .raises = "A name is blank.",
     .available = false},
    // Slot 46
    {.name = "EncodeStrSQL",
     .parameters = {In("istr_Source", String)},
     .result = String,
     .does = "The text with every single quote doubled."},
    // Slot 47
    {.name = "DecodeStrSQL",
     .parameters = {In("istr_Source", String)},
     .result = String,
     .does = "The text with every pair of single quotes replaced by one, from the left."},
    // Slot 48
    {.name = "SelectField",
     .parameters =
         {Ref("DB_Connection", Connection), In("istr_ReturnField", String),
          Ref("rstr_ReturnValue", Variant), Ref("istr_Table", String, Text(u"")),
          Ref("istr_FieldName1", String, Text(u"")), Ref("istr_FieldValue1", String, Text(u"")),
          Ref("ibln_FieldIsStr1", Boolean, Truth(true)), Ref("istr_FieldName2", String, Text(u"")),
          Ref("istr_FieldValue2", String, Text(u"")), Ref("ibln_FieldIsStr2", Boolean, Truth(true)),
          Ref("istr_FieldName3", String, Text(u"")), Ref("istr_FieldValue3", String, Text(u"")),
          Ref("ibln_FieldIsStr3", Boolean, Truth(true)), ErrDesc(kUnstated)},
     .result = Boolean,
     .failure = kRaise,
     .code = 0x16,
     .does = "Reads one column of the first row that up to three conditions select; \"\" when no "
             "row matches. Names and values go into the statement as they are: double the quotes "
             "of a text with EncodeStrSQL first.",
     .raises = "The connection is not set, or the provider rejects the statement.",
     .leaves = "rstr_ReturnValue keeps its value."},
    // Slot 49
    {.name = "DispBytes",
     .parameters = {Ref("arr_Bytes", ByteArray), In("iint_DispNum", Integer, Number(0)),
                    In("iint_CntPerLine", Integer, Number(40)),
                    In("ibln_HexStr", Boolean, Truth(true)), ErrDesc(kUnstated)},
     .result = String,
     .failure = FailureStyle::Report,
     .messages = {kInvalidCountPerLine, kInvalidDisplayNumber},
     .does = "The bytes from subscript 0 on as display text: two hexadecimal digits (or decimal "
             "digits, when ibln_HexStr is False) and a blank each, CR LF after every "
             "iint_CntPerLine bytes. iint_DispNum limits the count, 0 shows the whole array.",
     .raises = "Never. A failure is logged and described in rstr_ErrDesc, the result is \"\": "
               "iint_CntPerLine below 1, iint_DispNum below 0, no subscript 0.",
     .leaves = "The result is \"\", never a part of the text."},
    // Slot 50
    {.name = "FstrVbStrToHexStr",
     .parameters = {In("istr_Source", String), ErrDesc(kUnstated)},
     .result = String,
     .failure = kRaise,
     .code = 0x18,
     .fault_description = kEmpty,
     .does = "The text's bytes in the ANSI code page as hexadecimal digits. A character outside "
             "the page is 3F."},
    // Slot 51
    {.name = "FstrPackTable",
     .parameters = {In("istr_Source", String), In("istr_TableID", String),
                    In("ibln_HexStr", Boolean, Truth(true)), ErrDesc(kUnstated)},
     .result = String,
     .failure = kRaise,
     .code = 0x20,
     .fault_description = kEmpty,
     .messages = {kInvalidSourceString, kInvalidTableId},
     .does = "A packed-table record as message-format text: length, table ID, data length and "
             "data; the lengths are four decimal digits, two bytes each.",
     .raises = "The source is not hexadecimal, or the table ID's last two characters are no "
               "number."},
    // Slot 52
    {.name = "FstrDES3",
     .parameters = {Ref("istr_Key", String), Ref("istr_Src", String),
                    Ref("iDataLen", Integer, Number(0))},
     .result = String,
     .failure = kRaise,
     .code = 0x1C,
     .does = "Two-key triple-DES encipherment (FIPS 46-3, ECB) of hexadecimal text; the result is "
             "display text as DispBytes makes it, 40 bytes a line. iDataLen 0 takes all of "
             "istr_Src; a length that is no multiple of 8 is completed with 80 and zeros. Up to "
             "1024 bytes.",
     .raises = "A text is not upper-case hexadecimal or too long for its buffer, or DES3 fails.",
     .leaves = "istr_Key and istr_Src lose their blanks and get a leading 0 when odd; iDataLen "
               "becomes the length enciphered."},
    // Slot 53
    {.name = "FstrUDES3",
     .parameters = {Ref("istr_Key", String), Ref("istr_Src", String),
                    Ref("iDataLen", Integer, Number(0))},
     .result = String,
     .failure = FailureStyle::Swallow,
     .does = "Two-key triple-DES decipherment of hexadecimal text. The filling that FstrDES3 added "
             "is not removed.",
     .raises = "Never. The result is \"\" after a failure; only the members it calls log.",
     .leaves = "The texts and iDataLen change as in FstrDES3."},
    // Slot 54
    {.name = "FstrDiversifyKey",
     .parameters = {Ref("istr_Key", String), Ref("istr_DivFactor", String)},
     .result = String,
     .failure = kRaise,
     .code = 0x1E,
     .log_name = "FstrUDES3",  // on purpose: its own name appears nowhere in its failures
     .does = "DiversifyKey on hexadecimal text; the first 8 bytes of the factor count. The result "
             "is display text of 16 bytes.",
     .raises = "A text is not upper-case hexadecimal or too long for its buffer, or DiversifyKey "
               "fails.",
     .leaves = "The texts lose their blanks and get a leading 0 when odd."},
    // Slot 55
    {.name = "FstrTMAC",
     .parameters = {Ref("istr_Key", String), Ref("istr_Src", String), Ref("istr_InitMAC", String),
                    Ref("iint_DataLen", Integer, Number(0))},
     .result = String,
     .failure = kRaise,
     .code = 0x1F,
     .does = "TMAC on hexadecimal text; the result is display text of 4 bytes. iint_DataLen 0 "
             "takes all of istr_Src.",
     .raises = "A text is not upper-case hexadecimal or too long for its buffer, or TMAC fails.",
     .leaves = "The texts lose their blanks and get a leading 0 when odd; iint_DataLen becomes "
               "the length used."},
    // Slot 56
    {.name = "FstrPadToSpecLen",
     .parameters = {In("istr_Source", String), In("iint_PadToLen", Integer),
                    In("istr_PadWith", String, Text(u" ")), In("enumMethod", PadMethod, Number(2)),
                    ErrDesc()},
     .result = String,
     .failure = kRaise,
     .code = 0x1B,
     .does = "The text brought to exactly iint_PadToLen characters with the first character of "
             "istr_PadWith: padded or cut on the right for method 2, on the left for every other.",
     .raises = "iint_PadToLen is negative, or istr_PadWith is empty."},
    // Slot 57
    {.name = "FstrPadLeft",
     .parameters = {In("istr_Source", String), In("iint_PadToLen", Integer),
                    In("istr_PadWith", String, Text(u" ")), ErrDesc()},
     .result = String,
     .failure = FailureStyle::Report,
     .does = "The text brought to exactly iint_PadToLen characters, padded or cut on the left.",
     .raises = "Never. A negative length or an empty pad text is logged and described in "
               "rstr_ErrDesc, the result is \"\"."},
    // Slot 58
    {.name = "FstrPadRight",
     .parameters = {In("istr_Source", String), In("iint_PadToLen", Integer),
                    In("istr_PadWith", String, Text(u" ")), ErrDesc()},
     .result = String,
     .failure = FailureStyle::Report,
     .does = "The text brought to exactly iint_PadToLen characters, padded or cut on the right.",
     .raises = "Never. A negative length or an empty pad text is logged and described in "
               "rstr_ErrDesc, the result is \"\"."},
    // Slot 59
    {.name = "FstrActualLen",
     .parameters = {In("istr_Source", String), ErrDesc()},
     .result = Integer,
     .failure = kRaise,
     .code = 0x19,
     .does = "The text's length in bytes of the ANSI code page.",
     .raises = "More than 32767 bytes."},
    // Slot 60
    {.name = "FstrHexStrToByte",
     .parameters = {In("istr_HexStr", String), In("PaddingToLen", Integer, Number(0)),
                    Ref("PaddingLeft", Boolean, Truth(true)), ErrDesc(kUnstated)},
     .result = ByteArray,
     .failure = kRaise,
     .code = 0x30,
     .fault_description = kEmpty,
     .messages = {kNotHexString, kLengthTooSmall},
     .does = "Upper-case hexadecimal text as a byte array of lower bound 0, up to 1024 bytes; an "
             "odd text gets a leading 0. PaddingToLen above 0 gives that many bytes: the zeros "
             "stand behind the data with PaddingLeft, else in front of it but for one behind.",
     .raises = "The text is not hexadecimal or too long for PaddingToLen (with the message); a "
               "lower-case digit, more than 1024 bytes, an empty text without PaddingToLen, or a "
               "text that just fits with PaddingLeft False (empty description)."},
    // Slot 61
    {.name = "FillByteArrWithHexStr",
     .parameters = {Ref("ArrToBeFill", ByteArray), Ref("istr_HexStr", String),
                    Ref("rvar_Pos", Variant, Number(0)), ErrDesc()},
     .result = Boolean,
     .failure = kRaise,
     .code = 0x31,
     .fault_description = kEmpty,
     .messages = {kNotHexString},
     .does = "Stores upper-case hexadecimal text in the array from subscript rvar_Pos on, which "
             "ends just past the last byte. Blanks are removed from istr_HexStr, an odd one gets "
             "a leading 0. An array without elements is dimensioned to hold the text.",
     .raises = "The text is not hexadecimal (with the message); a lower-case digit, or a "
               "subscript outside the array (empty description).",
     .leaves = "The bytes stored so far, rvar_Pos, the changed istr_HexStr and a newly made "
               "array all stay."},
    // Slot 62
    {.name = "FstrLeftByByteLen",
     .parameters = {In("istr_Source", String), Ref("iint_ByteLen", Integer),
                    Ref("rint_UnicodeLen", Integer, Number(0)), ErrDesc()},
     .result = String,
     .failure = kRaise,
     .code = 0x1A,
     .does = "The longest leading part of the text that fits into iint_ByteLen bytes of a "
             "double-byte code page; rint_UnicodeLen receives its length. Every byte from 128 on "
             "counts as the first of a pair, also in single-byte pages.",
     .raises = "More than 32767 characters fit.",
     .leaves = "rint_UnicodeLen as far as the count went."},
    // Slot 63
    {.name = "FstrRidOfEmpty",
     .parameters = {Ref("istr_Source", String)},
     .result = String,
     .does = "The text without ideographic spaces (U+3000), blanks and CR LF pairs. istr_Source "
             "itself stays."},
    // Slot 64
    {.name = "SystemDirectory",
     .result = String,
     .failure = kRaise,
     .code = 0x21,
     .messages = {kNoSystemDirectory},
     .does = "The system's library folder, without a final separator.",
     .raises = "The system does not tell.",
     .available = false},
    // Slot 65
    {.name = "WindowsDirectory",
     .result = String,
     .failure = kRaise,
     .code = 0x22,
     .messages = {kNoWindowsDirectory},
     .does = "The operating system's folder, without a final separator.",
     .raises = "The system does not tell.",
     .available = false},
    // Slot 66
    {.name = "ComputerName",
     .result = String,
     .failure = kRaise,
     .code = 0x23,
     .messages = {kNoComputerName},
     .does = "The computer's network name, up to the first dot.",
     .raises = "The system does not tell.",
     .available = false},
    // Slot 67
    {.name = "DES",
     .parameters = {Ref("abyt_Key", ByteArray), Ref("abyt_Source", ByteArray),
                    Ref("iint_SrcLen", Integer), Ref("abyt_Result", ByteArray), ErrDesc()},
     .result = Boolean,
     .failure = kRaise,
     .code = 0x28,
     .writes_description = false,
     .messages = {kInvalidKeySize, kInvalidSourceLength, kLengthNotMultipleOf8, kSourceTooSmall,
                  kResultTooSmall, kEncryptFailed},
     .does = "DES encipherment (FIPS 46-3, ECB) of bytes 0 to iint_SrcLen - 1 under key bytes 0 to "
             "7 into the same bytes of abyt_Result, which the caller dimensions and which may be "
             "abyt_Source. True.",
     .raises = "Key below 8 bytes, length below 8 or no multiple of 8, source below 8 bytes, "
               "result below the length; an array that lacks a subscript.",
     .leaves = "Blocks already written stay. rstr_ErrDesc is never written."},
    // Slot 68
    {.name = "MAC",
     .parameters = {Ref("rabyt_Key", ByteArray), Ref("rabyt_Src", ByteArray),
                    Ref("iint_SrcLen", Integer), Ref("rabyt_Init", ByteArray),
                    Ref("rabyt_MAC", ByteArray), ErrDesc()},
     .result = Boolean,
     .failure = kRaise,
     .code = 0x2D,
     .writes_description = false,
     .does = "The first four bytes of a DES CBC-MAC (ISO/IEC 9797-1 algorithm 1, padding method "
             "2) with a caller-given initial value, over up to 1023 bytes. True.",
     .raises = "Key or initial value below 8 bytes, more than 1023 bytes, a receiver below 4.",
     .leaves = "Bytes already written to rabyt_MAC stay. rstr_ErrDesc is never written."},
    // Slot 69
    {.name = "TMAC",
     .parameters = {Ref("rabyt_Key", ByteArray), Ref("rabyt_Src", ByteArray),
                    Ref("iint_SrcLen", Integer), Ref("rabyt_Init", ByteArray),
                    Ref("rabyt_MAC", ByteArray), ErrDesc()},
     .result = Boolean,
     .failure = kRaise,
     .code = 0x2D,
     .writes_description = false,
     .does = "The first four bytes of a retail MAC (ISO/IEC 9797-1 algorithm 3, padding method 2; "
             "ANSI X9.19) with a caller-given initial value, over up to 1023 bytes. True.",
     .raises = "Key below 16 or initial value below 8 bytes, more than 1023 bytes, a receiver "
               "below 4.",
     .leaves = "Bytes already written to rabyt_MAC stay. rstr_ErrDesc is never written."},
    // Slot 70
    {.name = "DiversifyKey",
     .parameters = {Ref("abyt_MasterKey", ByteArray), Ref("abyt_DivData", ByteArray),
                    Ref("abyt_DivKey", ByteArray), ErrDesc(kUnstated)},
     .result = Boolean,
     .failure = FailureStyle::RaiseOwn,
     .code = 0x17,
     .writes_description = false,
     .messages = {kInvalidMasterKeySize, kDivDataNotMultipleOf8, kDivKeyTooSmall},
     .does = "Derives a 16-byte key: DES3 of the first 8 data bytes under the master key, then "
             "DES3 of their complement. The receiver may be one of the other arrays. True.",
     .raises = "Master key not 16 bytes, data no multiple of 8, receiver below 16. What DES3 "
               "raises passes through with its own number.",
     .leaves = "Bytes 0 to 7 of the receiver may be written. rstr_ErrDesc is never written."},
    // Slot 71
    {.name = "GenOrigalityKey",
     .parameters = {Ref("abyt_Seed", ByteArray), Ref("iint_KeyNumber", Integer),
                    Ref("abyt_KeyResult", ByteTable), ErrDesc()},
     .result = Boolean,
     .failure = kRaise,
     .code = 0x2F,
     .fault_description = kEmpty,
     .writes_description = false,
     .messages = {kInvalidSeedSize},
     .does = "Expands a 16-byte seed into iint_KeyNumber keys of 16 bytes, rows 0 on of the "
             "two-dimensional abyt_KeyResult, by a fixed chain of DES steps. True.",
     .raises = "Seed not 16 bytes; the table lacks a subscript.",
     .leaves = "Keys already written stay. rstr_ErrDesc is never written."},
    // Slot 72
    {.name = "UDES",
     .parameters = {Ref("abyt_Key", ByteArray), Ref("abyt_Source", ByteArray),
                    Ref("iint_SrcLen", Integer), Ref("abyt_Result", ByteArray), ErrDesc()},
     .result = Boolean,
     .failure = kRaise,
     .code = 0x29,
     .writes_description = false,
     .messages = {kInvalidKeySize, kInvalidSourceLength, kLengthNotMultipleOf8, kSourceTooSmall,
                  kResultTooSmall, kEncryptFailed},
     .does = "DES decipherment; everything else as in DES.",
     .raises = "As DES.",
     .leaves = "Blocks already written stay. rstr_ErrDesc is never written."},
    // Slot 73
    {.name = "DES3",
     .parameters = {Ref("abyt_Key", ByteArray), Ref("abyt_Source", ByteArray),
                    Ref("iint_SrcLen", Integer), Ref("abyt_Result", ByteArray), ErrDesc()},
     .result = Boolean,
     .failure = kRaise,
     .code = 0x2A,
     .writes_description = false,
     .messages = {kInvalidKeySize},
     .does = "Two-key triple-DES encipherment (FIPS 46-3, ECB; encipher, decipher, encipher) under "
             "key bytes 0 to 15; the rest as in DES. True.",
     .raises = "Key below 16 bytes; what DES and UDES raise is logged and raised again.",
     .leaves = "Blocks already written stay. rstr_ErrDesc is never written."},
    // Slot 74
    {.name = "UDES3",
     .parameters = {Ref("abyt_Key", ByteArray), Ref("abyt_Source", ByteArray),
                    Ref("iint_SrcLen", Integer), Ref("abyt_Result", ByteArray), ErrDesc()},
     .result = Boolean,
     .failure = kRaise,
     .code = 0x2B,
     .writes_description = false,
     .messages = {kInvalidKeySize},
     .does = "Two-key triple-DES decipherment; everything else as in DES3.",
     .raises = "As DES3.",
     .leaves = "Blocks already written stay. rstr_ErrDesc is never written."},
    // Slot 75
    {.name = "RetrieveSeed",
     .parameters = {Ref("rabyt_Seed", ByteArray), Ref("iint_SeedLen", Integer, Number(8)),
                    ErrDesc()},
     .result = Boolean,
     .failure = FailureStyle::Report,
     .does = "Fills bytes 0 to iint_SeedLen - 1 with random bytes; an array without elements is "
             "dimensioned first. The generator starts every process in the same state: seed it "
             "well before its bytes become keys.",
     .raises = "Never. A failure is logged and described in rstr_ErrDesc, the result is False.",
     .leaves = "Bytes already written stay."},
    // Slot 76
    {.name = "HexXor",
     .parameters = {In("istr_Hex1", String), In("istr_Hex2", String),
                    In("ibln_PadLeft", Boolean, Truth(true)), ErrDesc(kUnstated)},
     .result = String,
     .failure = kRaise,
     .code = 0x12,
     .fault_description = kEmpty,
     .writes_description = false,
     .does = "The exclusive or of two hexadecimal texts as display text. Both are aligned on the "
             "left, the shorter one completed with zero bytes, whatever ibln_PadLeft says.",
     .raises = "An operand is not upper-case hexadecimal, or both are empty.",
     .leaves = "rstr_ErrDesc is never written."},
    // Slot 77
    {.name = "SystemEncrypt",
     .parameters = {Ref("istr_SystemKey", String), Ref("Source", Variant), Ref("Result", Variant),
                    In("ibln_InArray", Boolean, Truth(false)),
                    In("ibln_OutArray", Boolean, Truth(false)),
                    In("ibln_PaddingLen", Boolean, Truth(true)), ErrDesc()},
     .result = Boolean,
     .failure = FailureStyle::Report,
     .fault_description = kEmpty,
     .log_module = u"clsPublic",
     .does = "Enciphers text or a byte array under a key given as hexadecimal text, with a length "
             "byte in front (up to 255 data bytes) or with 80 and zeros behind. The result is "
             "display text or a byte array.",
     .raises = "Never. A failure is logged and described in rstr_ErrDesc, the result is False.",
     .leaves = "Result keeps its value; istr_SystemKey has lost its blanks."},
    // Slot 78
    {.name = "SystemDecrypt",
     .parameters = {Ref("istr_SystemKey", String), Ref("Source", Variant), Ref("Result", Variant),
                    In("ibln_InArray", Boolean, Truth(false)),
                    In("ibln_OutArray", Boolean, Truth(false)),
                    In("ibln_PaddingLen", Boolean, Truth(true)), ErrDesc()},
     .result = Boolean,
     .failure = FailureStyle::Report,
     .fault_description = kEmpty,
     .log_module = u"clsPublic",
     .messages = {kInputNotHexString},
     .does = "Undoes SystemEncrypt; ibln_PaddingLen must be the same. Text of 40 or more bytes "
             "holds line breaks that the caller removes first.",
     .raises = "Never. A failure is logged and described in rstr_ErrDesc, the result is False; a "
               "blank source is neither logged nor described.",
     .leaves = "Result keeps its value; istr_SystemKey has lost its blanks."},
}};

constexpr EnumerationValue kDebugModes[] = {
    {"DEBUG_MODE_OFF", 0}, {"DEBUG_MODE_LOGFILE", 1}, {"DEBUG_MODE_MSGBOX", 2}};
constexpr EnumerationValue kInputModes[] = {{"INPUT_MODE_BIT", 0},
                                            {"INPUT_MODE_DECIMAL", 1},
                                            {"INPUT_MODE_HEX", 2},
                                            {"INPUT_MODE_ASC", 3},
                                            {"INPUT_MODE_NO_RESTRICT", 4}};
constexpr EnumerationValue kPadMethods[] = {{"LEFTPAD", 1}, {"RIGHTPAD", 2}};
constexpr EnumerationValue kLockTypes[] = {{"adLockUnspecified", -1},
                                           {"adLockReadOnly", 1},
                                           {"adLockPessimistic", 2},
                                           {"adLockOptimistic", 3},
                                           {"adLockBatchOptimistic", 4}};
constexpr Enumeration kEnumerations[] = {{DebugMode, "enumDebugMode", kDebugModes},
                                         {InputMode, "enumInputMode", kInputModes},
                                         {PadMethod, "enumPadMethod", kPadMethods},
                                         {LockType, "LockTypeEnum", kLockTypes}};

constexpr char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

constexpr bool SameLetters(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Lower(x) == Lower(y); });
}

}  // namespace

std::span<const MemberInfo, kSlotCount> MemberTable() noexcept { return kTable; }

std::optional<std::size_t> FindSlot(std::string_view name, SlotKind kind) noexcept {
  for (std::size_t i = 0; i < kTable.size(); ++i) {
    if (kTable[i].kind == kind && SameLetters(kTable[i].name, name)) return i;
  }
  return std::nullopt;
}

std::int32_t DispatchId(std::size_t slot_index) noexcept {
  const auto starts_name = [](std::size_t i) {
    return i == 0 || kTable[i].name != kTable[i - 1].name;  // the two slots of a property adjoin
  };
  std::int32_t id = 0;
  for (std::size_t i = 0; i <= slot_index; ++i)
    id += starts_name(i) ? 1 : 0;
  return id;
}

std::span<const Enumeration> Enumerations() noexcept { return kEnumerations; }

const Enumeration* FindEnumeration(InterfaceType type) noexcept {
  for (const Enumeration& enumeration : kEnumerations) {
    if (enumeration.type == type) return &enumeration;
  }
  return nullptr;
}

std::string_view TypeName(InterfaceType type) noexcept {
  if (const Enumeration* enumeration = FindEnumeration(type)) return enumeration->name;
  switch (type) {
    case Boolean:
      return "Boolean";
    case Byte:
      return "Byte";
    case Integer:
      return "Integer";
    case Long:
      return "Long";
    case String:
      return "String";
    case Variant:
      return "Variant";
    case ByteArray:
      return "ByteArray";
    case ByteTable:
      return "ByteArray(,)";
    case ErrObject:
      return "ErrObject";
    case Connection:
      return "Connection";
    case Recordset:
      return "Recordset";
    case Field:
      return "Field";
    default:
      return "";
  }
}

}  // namespace vandpublic
