// clsPublic: the component's one class, with all its members.
//
// Generated from members/member_table.cpp by scripts/generate.sh; edit the table, not this file.
//
//   vandpublic::clsPublic component;
//   component.Init("/srv/app");
//   vandpublic::String key = "0123456789ABCDEFFEDCBA9876543210", data = "0123456789ABCDE7";
//   std::cout << component.FstrDES3(key, data).ToUtf8();
//
// A failing member throws AutomationError (number, source, description); "plain fault n" in the
// comments is a RuntimeFault with that small number. An object is used from one thread at a time.
#ifndef VANDPUBLIC_FRAME_CLSPUBLIC_H
#define VANDPUBLIC_FRAME_CLSPUBLIC_H

#include <memory>

#include "runtime/arrays.h"
#include "runtime/basic_types.h"
#include "runtime/object.h"
#include "runtime/optional_ref.h"
#include "runtime/string_value.h"
#include "runtime/variant.h"

namespace vandpublic {

struct Platform;

// Objects of platform/database.h.
class Connection;
class Recordset;
class Field;
using ConnectionRef = std::shared_ptr<Connection>;
using RecordsetRef = std::shared_ptr<Recordset>;
using FieldRef = std::shared_ptr<Field>;

// Any 32-bit value is valid in these types; the members say what they do.
enum enumDebugMode : Long {
  DEBUG_MODE_OFF = 0,
  DEBUG_MODE_LOGFILE = 1,
  DEBUG_MODE_MSGBOX = 2,
};
enum enumInputMode : Long {
  INPUT_MODE_BIT = 0,
  INPUT_MODE_DECIMAL = 1,
  INPUT_MODE_HEX = 2,
  INPUT_MODE_ASC = 3,
  INPUT_MODE_NO_RESTRICT = 4,
};
enum enumPadMethod : Long {
  LEFTPAD = 1,
  RIGHTPAD = 2,
};
enum LockTypeEnum : Long {
  adLockUnspecified = -1,
  adLockReadOnly = 1,
  adLockPessimistic = 2,
  adLockOptimistic = 3,
  adLockBatchOptimistic = 4,
};

class VANDPUBLIC_API clsPublic {
 public:
  // DebugMode 1, LogFileName "ERROR.log", LogFilePath "\LOG" below the component's folder. Nothing
  // is created on disk.
  clsPublic();
  // The same on other platform services than the system's.
  explicit clsPublic(std::shared_ptr<const Platform> platform);
  ~clsPublic();
  clsPublic(clsPublic&&) noexcept;
  clsPublic& operator=(clsPublic&&) noexcept;

  // Returns Value, or a replacement when Value is the null value: a 16-bit 0 for the types 2 to 6,
  // the empty string for 8, False for 11. An empty value, an object and an array are returned as
  // they are.
  // Raises 0x80040009 (clsCommon.NotNull): ValueType is none of 2, 3, 4, 5, 6, 8 and 11, also when
  // Value is not null.
  // Messages: "Invalid value type.".
  Variant NotNull(Variant& Value, OptionalRef<Long> ValueType = 8);

  // Stores the local date and time in one of the object's 17 stopwatch slots, 0 to 16.
  // Raises: The slot number is outside 0 to 16: plain fault 9.
  void EnableTimer(OptionalRef<Integer> iint_TimerNnum = 0);

  // Computes the seconds since EnableTimer filled the slot, and shows them nowhere: on purpose, the
  // member has no visible effect.
  // Raises: The slot number is outside 0 to 16: plain fault 9.
  void DispTimerEsp(OptionalRef<Integer> iint_TimerNum = 0);

  // Pads the text with blanks on the right to iint_Len characters. A longer text is returned whole.
  // Raises: iint_Len is negative: plain fault 5.
  String FstrFmtToSpecLen(const String& istr_Source, Integer iint_Len);

  // Opens the connection on an ODBC data source. The values go into the connection string untrimmed
  // and unquoted.
  // Raises 0x80040025 (clsCommon.OpenConnAsSQLDNS): The connection is not set, or the provider
  // reports an error.
  // After a failure: The connection object is as the failed Open left it.
  bool OpenConnAsSQLDNS(ConnectionRef& adoConn, const String& sDsn, const String& sDatabaseName,
                        const String& sUserid, const String& sPwd,
                        OptionalRef<String> rstr_ErrDesc = u"");

  // Copies iint_DataLen bytes from subscript iint_SrcSub of abyt_Src on to subscript rvar_DesSub of
  // abyt_Dest on, one by one upwards, also when both are one array. rvar_DesSub ends just past the
  // last byte written; iint_SrcSub stays. A length of 0 or less copies nothing. Subscripts are
  // absolute. Always returns False.
  // Raises: A subscript lies outside its array: plain fault 9. rvar_DesSub is no number: 13; null:
  // 94.
  // After a failure: The bytes copied so far stay, rvar_DesSub shows how far it got.
  bool CpyByteArray(ByteArray& abyt_Dest, ByteArray& abyt_Src, Integer& iint_DataLen,
                    OptionalRef<Variant> rvar_DesSub = Integer{0},
                    OptionalRef<Integer> iint_SrcSub = 0);

  // True when ibln_VbNullStringIsNull is set and the text is absent or empty or, with
  // ibln_SpaceIsNull, consists of blanks (U+0020) only. False for every text when
  // ibln_VbNullStringIsNull is not set.
  bool FstrIsNullExt(const String& istr_Source, bool ibln_VbNullStringIsNull = true,
                     bool ibln_SpaceIsNull = true);

  // Opens the connection on a Jet database file. Path and password are trimmed.
  // Raises 0x80040026 (clsCommon.OpenConnAsMDB): The connection is not set, the path is blank, no
  // such file exists, or the provider reports an error.
  // Messages: "Connection object not set yet.", "MDB file path not provided.", "File name not
  // provided.", "MDB file not found.".
  // After a failure: The connection object is as the failed Open left it.
  bool OpenConnAsMDB(ConnectionRef& DB_Conn, const String& istr_MDBPath,
                     const String& istr_Password = u"", OptionalRef<String> rstr_ErrDesc = u"");

  // Opens the connection on a folder of FoxPro or dBASE tables. The folder is trimmed.
  // Raises 0x80040027 (clsCommon.OpenConnAsFoxpro): The connection is not set, the folder is blank
  // or not there, or the provider reports an error.
  // Messages: "Connection object not set yet.", "DBF file directory not provided.", "DBF file not
  // found.".
  // After a failure: The connection object is as the failed Open left it.
  bool OpenConnAsFoxpro(ConnectionRef& DB_Conn, const String& istr_DBFDirectory,
                        OptionalRef<String> rstr_ErrDesc = u"");

  // Opens the recordset on the statement over the connection, with a client-side cursor and the
  // lock type given.
  // Raises 0x80040024 (clsCommon.OpenADORecordSet): The connection or the recordset is not set, or
  // the provider reports an error.
  // Messages: "Connection object not set yet.", "Recordset object not set yet.".
  // After a failure: Properties of the recordset that were set stay set.
  bool OpenADORecordSet(ConnectionRef& adoConn, RecordsetRef& adoRecSet,
                        const String& adoSelectString,
                        OptionalRef<LockTypeEnum> adoLockType = adLockReadOnly,
                        OptionalRef<String> rstr_ErrDesc = u"");

  // Decides whether a typed character code may stay; a rejected one becomes 0. Backspace (8) always
  // stays. Mode 0 keeps 0 and 1; mode 1 the digits; mode 2 hexadecimal digits, turning a to f into
  // A to F; other modes keep every code.
  // Raises: The code is outside 0 to 255, in any mode: plain fault 5.
  void FilterInput(Integer& rint_KeyAscii, enumInputMode enm_InputMode = INPUT_MODE_DECIMAL);

  // Appends the text and a line end (CR LF) to the file. A missing file is created first, with an
  // empty line in front. The trimmed path is looked up, the path as given is opened.
  // Raises 0x80040007 (clsCommon.AppendText): The path is blank; the file cannot be created, opened
  // or written.
  // Messages: "File path not provided.".
  // After a failure: A file that was created stays.
  bool AppendText(const String& istr_Path, const String& istr_Text,
                  OptionalRef<String> rstr_ErrDesc = u"");

  // Whether the regular expression matches anywhere in the source.
  // Raises 0x80040001 (clsCommon.RegExpTest): The pattern is not valid, or the match takes too many
  // steps.
  bool RegExpTest(const String& istr_Source, const String& istr_Pattern, bool ibln_Globle = true,
                  bool ibln_IgnorseCase = true, bool ibln_Multiline = false,
                  OptionalRef<String> rstr_ErrDesc = u"");

  // The source with every match (the first only, when ibln_Globle is False) replaced. The
  // replacement may hold $1 to $99, $&, $`, $' and $$.
  // Raises 0x80040002 (clsCommon.RegExpReplace): The pattern is not valid, or the match takes too
  // many steps.
  String RegExpReplace(const String& istr_Source, const String& istr_Pattern,
                       const String& istr_RepWith, bool ibln_Globle = true,
                       bool ibln_IgnorseCase = true, bool ibln_Multiline = false,
                       OptionalRef<String> rstr_ErrDesc = u"");

  // The client's application folder, empty until Init or a write sets it.
  String AppPath() const;

  // Stores the folder as given. The log folder does not follow.
  void AppPath(const String& value);

  // What LogError does: bit 1 writes the log file, bit 2 shows a message box. 1 in a new object.
  enumDebugMode DebugMode() const;

  // Stores the value without any check.
  void DebugMode(enumDebugMode value);

  // Sets AppPath to the folder, LogFilePath to the folder followed by \LOG (the ends of the joined
  // text trimmed) and DebugMode. A folder that ends in a backslash gives two of them before LOG.
  // LogFileName stays. Nothing is created on disk.
  void Init(const String& istr_AppPath, enumDebugMode iint_DebugMode = DEBUG_MODE_LOGFILE);

  // Appends a dated entry of two or three lines to the file LogFileFullName, shows a message box,
  // or both, as the bits of DebugMode say. The message is the trimmed description; when that is
  // blank, the error's "source (number) - description", which is then handed back in irstr_ErrDesc;
  // "Unknown error!" when there is no error either. A third line shows the error when both are
  // there. Failures while writing or showing are swallowed.
  // Raises: iobj_Err is left out or unset: plain fault 91. It lacks Source, Number or Description:
  // 438.
  // After a failure: irstr_ErrDesc keeps its text.
  void LogError(const String& istr_AppName, const String& istr_ModuleName,
                const String& istr_FunctionName, const ObjectRef& iobj_Err = nullptr,
                OptionalRef<String> irstr_ErrDesc = u"");

  // The folder of the error log: the component's own folder followed by \LOG until Init or a write
  // changes it.
  String LogFilePath() const;

  // Stores the folder without leading and trailing blanks.
  void LogFilePath(const String& value);

  // The error log's file name, ERROR.log in a new object.
  String LogFileName() const;

  // Stores the name without leading and trailing blanks.
  void LogFileName(const String& value);

  // LogFilePath, a backslash unless it ends in one, and LogFileName.
  String LogFileFullName() const;

  // The number of elements in one dimension of an array of any type. 0, without an error, for what
  // is no array, has no storage or lacks the dimension.
  // Raises 0x80040003 (clsCommon.ArraySize): iint_Dimension is below 1.
  // Messages: "Invalid input dimension.".
  Long ArraySize(Variant& iavar_Array, Integer iint_Dimension = 1);

  // Replaces the file's content with the text and a line end (CR LF). With ibln_PromptOverRide a
  // question is asked first, whether or not the file exists; No leaves everything as it is.
  // Raises 0x80040006 (clsCommon.TextRWWrite): The path is blank; the file cannot be created,
  // opened or written.
  // Messages: "File path not provided.".
  void TextRWWrite(String& istr_FilePath, String& istr_Printed,
                   OptionalRef<bool> ibln_PromptOverRide = false,
                   OptionalRef<String> rstr_ErrDesc = u"");

  // Stores a byte array in a binary column, in chunks of 5120 bytes. The caller updates the row. A
  // byte count that is a multiple of 5120 is stored whole and returns False.
  // After a failure: False is returned; chunks already appended stay.
  bool ArrayToColumn(FieldRef& Col, Variant& Ary);

  // The content of a binary column as a byte array with subscripts from 1; a single zero byte at
  // subscript 0 for an empty column.
  // After a failure: The null value is returned, or the array as far as it was filled.
  Variant ColumnToArray(FieldRef& Col);

  // Stores a file, or its first First_X_Bytes bytes, in a binary column, in chunks of 5120 bytes.
  // An empty file is not transferred.
  // After a failure: False is returned; chunks already appended stay.
  bool FileToColumn(FieldRef& Col, String& DiskFile, OptionalRef<Long> First_X_Bytes = 0);

  // Writes a binary column to a file, replacing an existing one.
  // After a failure: False is returned; the old file is already gone.
  bool ColumnToFile(FieldRef& Col, String& DiskFile);

  // The whole content of a text file, line ends included, read in the ANSI code page.
  // Raises 0x80040005 (clsCommon.TextRWRead): The path is blank or names no file; the file cannot
  // be opened or read.
  // Messages: "File path not provided.".
  String TextRWRead(const String& istr_FilePath, OptionalRef<String> rstr_ErrDesc = u"");

  // The text's bytes as hexadecimal digits: the low byte of each character or, with
  // ibln_InByteText, every storage byte.
  // Raises 0x8004000C (clsCommon.MsgFmtTextToHex): More than 32767 characters, or bytes with
  // ibln_InByteText.
  String MsgFmtTextToHex(const String& istr_MsgFmtText, bool ibln_InByteText = false);

  // The eight bits of the first character's low byte; Bit0 has weight 1.
  // Raises 0x8004000A (clsCommon.MsgFmtTextToBit): The text is empty.
  // After a failure: The bits keep their values.
  void MsgFmtTextToBit(const String& istr_MsgFmtText, OptionalRef<Byte> rbyt_Bit0 = 0,
                       OptionalRef<Byte> rbyt_Bit1 = 0, OptionalRef<Byte> rbyt_Bit2 = 0,
                       OptionalRef<Byte> rbyt_Bit3 = 0, OptionalRef<Byte> rbyt_Bit4 = 0,
                       OptionalRef<Byte> rbyt_Bit5 = 0, OptionalRef<Byte> rbyt_Bit6 = 0,
                       OptionalRef<Byte> rbyt_Bit7 = 0, bool ibln_InByteText = false);

  // The text's bytes read as one unsigned number, most significant byte first.
  // Raises 0x8004000B (clsCommon.MsgFmtTextToDec): The number is above 2147483647.
  Long MsgFmtTextToDec(const String& istr_MsgFmtText, bool ibln_InByteText = false);

  // The upper-case hexadecimal digit of four bits; Bit0 has weight 1, Bit3 weight 8.
  // Raises 0x80040010 (clsCommon.BitToHex): A bit is above 1.
  // Messages: "Input value is not in bit format.".
  String BitToHex(Byte ibyt_Bit0 = 0, Byte ibyt_Bit1 = 0, Byte ibyt_Bit2 = 0, Byte ibyt_Bit3 = 0);

  // The four bits of the text's first hexadecimal digit, leading blanks skipped; further characters
  // are ignored. An empty text gives four zeros.
  // Raises 0x80040012 (clsCommon.HexToBit): The first character is no hexadecimal digit: HexToDec
  // logs and raises, then this member.
  // After a failure: The bits keep their values.
  void HexToBit(const String& istr_HexChr, OptionalRef<Byte> rbyt_Bit0 = 0,
                OptionalRef<Byte> rbyt_Bit1 = 0, OptionalRef<Byte> rbyt_Bit2 = 0,
                OptionalRef<Byte> rbyt_Bit3 = 0);

  // The value of a hexadecimal number in either case, blanks around it removed; 0 for an empty
  // text.
  // Raises 0x80040013 (clsCommon.HexToDec): A character is no hexadecimal digit (with the message);
  // the value is above 7FFFFFFF (empty description).
  // Messages: "Input value is not in hex format.".
  Long HexToDec(const String& istr_HexNumber);

  // The character whose code eight bits give, or with ibln_InByteText one storage byte.
  // Raises 0x8004000D (clsCommon.BitToMsgFmtText): A bit is above 1.
  // Messages: "Input value is not in bit format.".
  String BitToMsgFmtText(Byte ibyt_Bit0 = 0, Byte ibyt_Bit1 = 0, Byte ibyt_Bit2 = 0,
                         Byte ibyt_Bit3 = 0, Byte ibyt_Bit4 = 0, Byte ibyt_Bit5 = 0,
                         Byte ibyt_Bit6 = 0, Byte ibyt_Bit7 = 0, bool ibln_InByteText = false);

  // The number as message-format text, most significant byte first; iint_TextLen counts hexadecimal
  // digits, 0 takes as many as needed.
  // Raises 0x8004000E (clsCommon.DecToMsgFmtText): Only what HexToMsgFmtText raises.
  String DecToMsgFmtText(Long ilng_DecVal, Integer iint_TextLen = 0, bool ibln_InByteText = false);

  // Whether every character is a hexadecimal digit, in either case; True for the empty text.
  // Nothing is trimmed.
  // Raises 0x80040008 (clsCommon.IsHex): The text has more than 32767 characters.
  bool IsHex(const String& istr_HexNumber);

  // Hexadecimal digits as message-format text, brought to iint_TextLen digits first when that is
  // above 0. A text or pad character that is not hexadecimal gives "" and no error.
  // Raises 0x8004000F (clsCommon.HexToMsgFmtText): The text has more than 32767 digits.
  String HexToMsgFmtText(const String& istr_HexChr, Integer iint_TextLen = 0,
                         bool ibln_LeftPad = true, const String& istr_PadWith = u"0",
                         bool ibln_InByteText = false);

  // The text with every single quote doubled.
  String EncodeStrSQL(const String& istr_Source);

  // The text with every pair of single quotes replaced by one, from the left.
  String DecodeStrSQL(const String& istr_Source);

  // Reads one column of the first row that up to three conditions select; "" when no row matches.
  // Names and values go into the statement as they are: double the quotes of a text with
  // EncodeStrSQL first.
  // Raises 0x80040016 (clsCommon.SelectField): The connection is not set, or the provider rejects
  // the statement.
  // After a failure: rstr_ReturnValue keeps its value.
  bool SelectField(ConnectionRef& DB_Connection, const String& istr_ReturnField,
                   Variant& rstr_ReturnValue, OptionalRef<String> istr_Table = u"",
                   OptionalRef<String> istr_FieldName1 = u"",
                   OptionalRef<String> istr_FieldValue1 = u"",
                   OptionalRef<bool> ibln_FieldIsStr1 = true,
                   OptionalRef<String> istr_FieldName2 = u"",
                   OptionalRef<String> istr_FieldValue2 = u"",
                   OptionalRef<bool> ibln_FieldIsStr2 = true,
                   OptionalRef<String> istr_FieldName3 = u"",
                   OptionalRef<String> istr_FieldValue3 = u"",
                   OptionalRef<bool> ibln_FieldIsStr3 = true,
                   OptionalRef<String> rstr_ErrDesc = u"");

  // The bytes from subscript 0 on as display text: two hexadecimal digits (or decimal digits, when
  // ibln_HexStr is False) and a blank each, CR LF after every iint_CntPerLine bytes. iint_DispNum
  // limits the count, 0 shows the whole array.
  // Raises: Never. A failure is logged and described in rstr_ErrDesc, the result is "":
  // iint_CntPerLine below 1, iint_DispNum below 0, no subscript 0.
  // Messages: "Invalid Count of displaying per line. ", "Invalid displayed Number . ".
  // After a failure: The result is "", never a part of the text.
  String DispBytes(ByteArray& arr_Bytes, Integer iint_DispNum = 0, Integer iint_CntPerLine = 40,
                   bool ibln_HexStr = true, OptionalRef<String> rstr_ErrDesc = u"");

  // The text's bytes in the ANSI code page as hexadecimal digits. A character outside the page is
  // 3F.
  // Raises 0x80040018 (clsCommon.FstrVbStrToHexStr): only for want of memory.
  String FstrVbStrToHexStr(const String& istr_Source, OptionalRef<String> rstr_ErrDesc = u"");

  // A packed-table record as message-format text: length, table ID, data length and data; the
  // lengths are four decimal digits, two bytes each.
  // Raises 0x80040020 (clsCommon.FstrPackTable): The source is not hexadecimal, or the table ID's
  // last two characters are no number.
  // Messages: "Invalid Source String .", "Invalid Table ID .".
  String FstrPackTable(const String& istr_Source, const String& istr_TableID,
                       bool ibln_HexStr = true, OptionalRef<String> rstr_ErrDesc = u"");

  // Two-key triple-DES encipherment (FIPS 46-3, ECB) of hexadecimal text; the result is display
  // text as DispBytes makes it, 40 bytes a line. iDataLen 0 takes all of istr_Src; a length that is
  // no multiple of 8 is completed with 80 and zeros. Up to 1024 bytes.
  // Raises 0x8004001C (clsCommon.FstrDES3): A text is not upper-case hexadecimal or too long for
  // its buffer, or DES3 fails.
  // After a failure: istr_Key and istr_Src lose their blanks and get a leading 0 when odd; iDataLen
  // becomes the length enciphered.
  String FstrDES3(String& istr_Key, String& istr_Src, OptionalRef<Integer> iDataLen = 0);

  // Two-key triple-DES decipherment of hexadecimal text. The filling that FstrDES3 added is not
  // removed.
  // Raises: Never. The result is "" after a failure; only the members it calls log.
  // After a failure: The texts and iDataLen change as in FstrDES3.
  String FstrUDES3(String& istr_Key, String& istr_Src, OptionalRef<Integer> iDataLen = 0);

  // DiversifyKey on hexadecimal text; the first 8 bytes of the factor count. The result is display
  // text of 16 bytes.
  // Raises 0x8004001E (clsCommon.FstrUDES3): A text is not upper-case hexadecimal or too long for
  // its buffer, or DiversifyKey fails.
  // After a failure: The texts lose their blanks and get a leading 0 when odd.
  String FstrDiversifyKey(String& istr_Key, String& istr_DivFactor);

  // TMAC on hexadecimal text; the result is display text of 4 bytes. iint_DataLen 0 takes all of
  // istr_Src.
  // Raises 0x8004001F (clsCommon.FstrTMAC): A text is not upper-case hexadecimal or too long for
  // its buffer, or TMAC fails.
  // After a failure: The texts lose their blanks and get a leading 0 when odd; iint_DataLen becomes
  // the length used.
  String FstrTMAC(String& istr_Key, String& istr_Src, String& istr_InitMAC,
                  OptionalRef<Integer> iint_DataLen = 0);

  // The text brought to exactly iint_PadToLen characters with the first character of istr_PadWith:
  // padded or cut on the right for method 2, on the left for every other.
  // Raises 0x8004001B (clsCommon.FstrPadToSpecLen): iint_PadToLen is negative, or istr_PadWith is
  // empty.
  String FstrPadToSpecLen(const String& istr_Source, Integer iint_PadToLen,
                          const String& istr_PadWith = u" ", enumPadMethod enumMethod = RIGHTPAD,
                          OptionalRef<String> rstr_ErrDesc = u"");

  // The text brought to exactly iint_PadToLen characters, padded or cut on the left.
  // Raises: Never. A negative length or an empty pad text is logged and described in rstr_ErrDesc,
  // the result is "".
  String FstrPadLeft(const String& istr_Source, Integer iint_PadToLen,
                     const String& istr_PadWith = u" ", OptionalRef<String> rstr_ErrDesc = u"");

  // The text brought to exactly iint_PadToLen characters, padded or cut on the right.
  // Raises: Never. A negative length or an empty pad text is logged and described in rstr_ErrDesc,
  // the result is "".
  String FstrPadRight(const String& istr_Source, Integer iint_PadToLen,
                      const String& istr_PadWith = u" ", OptionalRef<String> rstr_ErrDesc = u"");

  // The text's length in bytes of the ANSI code page.
  // Raises 0x80040019 (clsCommon.FstrActualLen): More than 32767 bytes.
  Integer FstrActualLen(const String& istr_Source, OptionalRef<String> rstr_ErrDesc = u"");

  // Upper-case hexadecimal text as a byte array of lower bound 0, up to 1024 bytes; an odd text
  // gets a leading 0. PaddingToLen above 0 gives that many bytes: the zeros stand behind the data
  // with PaddingLeft, else in front of it but for one behind.
  // Raises 0x80040030 (clsCommon.FstrHexStrToByte): The text is not hexadecimal or too long for
  // PaddingToLen (with the message); a lower-case digit, more than 1024 bytes, an empty text
  // without PaddingToLen, or a text that just fits with PaddingLeft False (empty description).
  // Messages: "Resouce string not Hex string.", "the specified len is not enough to hold the byte
  // array.".
  ByteArray FstrHexStrToByte(const String& istr_HexStr, Integer PaddingToLen = 0,
                             OptionalRef<bool> PaddingLeft = true,
                             OptionalRef<String> rstr_ErrDesc = u"");

  // Stores upper-case hexadecimal text in the array from subscript rvar_Pos on, which ends just
  // past the last byte. Blanks are removed from istr_HexStr, an odd one gets a leading 0. An array
  // without elements is dimensioned to hold the text.
  // Raises 0x80040031 (clsCommon.FillByteArrWithHexStr): The text is not hexadecimal (with the
  // message); a lower-case digit, or a subscript outside the array (empty description).
  // Messages: "Resouce string not Hex string.".
  // After a failure: The bytes stored so far, rvar_Pos, the changed istr_HexStr and a newly made
  // array all stay.
  bool FillByteArrWithHexStr(ByteArray& ArrToBeFill, String& istr_HexStr,
                             OptionalRef<Variant> rvar_Pos = Integer{0},
                             OptionalRef<String> rstr_ErrDesc = u"");

  // The longest leading part of the text that fits into iint_ByteLen bytes of a double-byte code
  // page; rint_UnicodeLen receives its length. Every byte from 128 on counts as the first of a
  // pair, also in single-byte pages.
  // Raises 0x8004001A (clsCommon.FstrLeftByByteLen): More than 32767 characters fit.
  // After a failure: rint_UnicodeLen as far as the count went.
  String FstrLeftByByteLen(const String& istr_Source, Integer& iint_ByteLen,
                           OptionalRef<Integer> rint_UnicodeLen = 0,
                           OptionalRef<String> rstr_ErrDesc = u"");

  // The text without ideographic spaces (U+3000), blanks and CR LF pairs. istr_Source itself stays.
  String FstrRidOfEmpty(String& istr_Source);

  // DES encipherment (FIPS 46-3, ECB) of bytes 0 to iint_SrcLen - 1 under key bytes 0 to 7 into the
  // same bytes of abyt_Result, which the caller dimensions and which may be abyt_Source. True.
  // Raises 0x80040028 (clsCommon.DES): Key below 8 bytes, length below 8 or no multiple of 8,
  // source below 8 bytes, result below the length; an array that lacks a subscript.
  // Messages: "Invalid key size provided.", "Invalid source data length.", "Length of source bytes
  // must be multiple of 8.", "Source byte array size not enough.", "Result byte array size not
  // enough.", "Error occurs during encrypt data.".
  // After a failure: Blocks already written stay. rstr_ErrDesc is never written.
  bool DES(ByteArray& abyt_Key, ByteArray& abyt_Source, Integer& iint_SrcLen,
           ByteArray& abyt_Result, OptionalRef<String> rstr_ErrDesc = u"");

  // The first four bytes of a DES CBC-MAC (ISO/IEC 9797-1 algorithm 1, padding method 2) with a
  // caller-given initial value, over up to 1023 bytes. True.
  // Raises 0x8004002D (clsCommon.MAC): Key or initial value below 8 bytes, more than 1023 bytes, a
  // receiver below 4.
  // After a failure: Bytes already written to rabyt_MAC stay. rstr_ErrDesc is never written.
  bool MAC(ByteArray& rabyt_Key, ByteArray& rabyt_Src, Integer& iint_SrcLen, ByteArray& rabyt_Init,
           ByteArray& rabyt_MAC, OptionalRef<String> rstr_ErrDesc = u"");

  // The first four bytes of a retail MAC (ISO/IEC 9797-1 algorithm 3, padding method 2; ANSI X9.19)
  // with a caller-given initial value, over up to 1023 bytes. True.
  // Raises 0x8004002D (clsCommon.TMAC): Key below 16 or initial value below 8 bytes, more than 1023
  // bytes, a receiver below 4.
  // After a failure: Bytes already written to rabyt_MAC stay. rstr_ErrDesc is never written.
  bool TMAC(ByteArray& rabyt_Key, ByteArray& rabyt_Src, Integer& iint_SrcLen,
            ByteArray& rabyt_Init, ByteArray& rabyt_MAC, OptionalRef<String> rstr_ErrDesc = u"");

  // Derives a 16-byte key: DES3 of the first 8 data bytes under the master key, then DES3 of their
  // complement. The receiver may be one of the other arrays. True.
  // Raises 0x80040017 (clsCommon.DiversifyKey): Master key not 16 bytes, data no multiple of 8,
  // receiver below 16. What DES3 raises passes through with its own number.
  // Messages: "Invalid master key size. ", "Length of Div data bytes must be multiple of 8.",
  // "DivKey size is less than 16 bytes.".
  // After a failure: Bytes 0 to 7 of the receiver may be written. rstr_ErrDesc is never written.
  bool DiversifyKey(ByteArray& abyt_MasterKey, ByteArray& abyt_DivData, ByteArray& abyt_DivKey,
                    OptionalRef<String> rstr_ErrDesc = u"");

  // Expands a 16-byte seed into iint_KeyNumber keys of 16 bytes, rows 0 on of the two-dimensional
  // abyt_KeyResult, by a fixed chain of DES steps. True.
  // Raises 0x8004002F (clsCommon.GenOrigalityKey): Seed not 16 bytes; the table lacks a subscript.
  // Messages: "Invalid seed size.".
  // After a failure: Keys already written stay. rstr_ErrDesc is never written.
  bool GenOrigalityKey(ByteArray& abyt_Seed, Integer& iint_KeyNumber, ByteTable& abyt_KeyResult,
                       OptionalRef<String> rstr_ErrDesc = u"");

  // DES decipherment; everything else as in DES.
  // Raises 0x80040029 (clsCommon.UDES): As DES.
  // Messages: "Invalid key size provided.", "Invalid source data length.", "Length of source bytes
  // must be multiple of 8.", "Source byte array size not enough.", "Result byte array size not
  // enough.", "Error occurs during encrypt data.".
  // After a failure: Blocks already written stay. rstr_ErrDesc is never written.
  bool UDES(ByteArray& abyt_Key, ByteArray& abyt_Source, Integer& iint_SrcLen,
            ByteArray& abyt_Result, OptionalRef<String> rstr_ErrDesc = u"");

  // Two-key triple-DES encipherment (FIPS 46-3, ECB; encipher, decipher, encipher) under key bytes
  // 0 to 15; the rest as in DES. True.
  // Raises 0x8004002A (clsCommon.DES3): Key below 16 bytes; what DES and UDES raise is logged and
  // raised again.
  // Messages: "Invalid key size provided.".
  // After a failure: Blocks already written stay. rstr_ErrDesc is never written.
  bool DES3(ByteArray& abyt_Key, ByteArray& abyt_Source, Integer& iint_SrcLen,
            ByteArray& abyt_Result, OptionalRef<String> rstr_ErrDesc = u"");

  // Two-key triple-DES decipherment; everything else as in DES3.
  // Raises 0x8004002B (clsCommon.UDES3): As DES3.
  // Messages: "Invalid key size provided.".
  // After a failure: Blocks already written stay. rstr_ErrDesc is never written.
  bool UDES3(ByteArray& abyt_Key, ByteArray& abyt_Source, Integer& iint_SrcLen,
             ByteArray& abyt_Result, OptionalRef<String> rstr_ErrDesc = u"");

  // Fills bytes 0 to iint_SeedLen - 1 with random bytes; an array without elements is dimensioned
  // first. The generator starts every process in the same state: seed it well before its bytes
  // become keys.
  // Raises: Never. A failure is logged and described in rstr_ErrDesc, the result is False.
  // After a failure: Bytes already written stay.
  bool RetrieveSeed(ByteArray& rabyt_Seed, OptionalRef<Integer> iint_SeedLen = 8,
                    OptionalRef<String> rstr_ErrDesc = u"");

  // The exclusive or of two hexadecimal texts as display text. Both are aligned on the left, the
  // shorter one completed with zero bytes, whatever ibln_PadLeft says.
  // Raises 0x80040012 (clsCommon.HexXor): An operand is not upper-case hexadecimal, or both are
  // empty.
  // After a failure: rstr_ErrDesc is never written.
  String HexXor(const String& istr_Hex1, const String& istr_Hex2, bool ibln_PadLeft = true,
                OptionalRef<String> rstr_ErrDesc = u"");

  // Enciphers text or a byte array under a key given as hexadecimal text, with a length byte in
  // front (up to 255 data bytes) or with 80 and zeros behind. The result is display text or a byte
  // array.
  // Raises: Never. A failure is logged and described in rstr_ErrDesc, the result is False.
  // After a failure: Result keeps its value; istr_SystemKey has lost its blanks.
  bool SystemEncrypt(String& istr_SystemKey, Variant& Source, Variant& Result,
                     bool ibln_InArray = false, bool ibln_OutArray = false,
                     bool ibln_PaddingLen = true, OptionalRef<String> rstr_ErrDesc = u"");

  // Undoes SystemEncrypt; ibln_PaddingLen must be the same. Text of 40 or more bytes holds line
  // breaks that the caller removes first.
  // Raises: Never. A failure is logged and described in rstr_ErrDesc, the result is False; a blank
  // source is neither logged nor described.
  // Messages: "Input not Hex string . ".
  // After a failure: Result keeps its value; istr_SystemKey has lost its blanks.
  bool SystemDecrypt(String& istr_SystemKey, Variant& Source, Variant& Result,
                     bool ibln_InArray = false, bool ibln_OutArray = false,
                     bool ibln_PaddingLen = true, OptionalRef<String> rstr_ErrDesc = u"");

  // The services this object works with.
  const Platform& platform() const noexcept;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace vandpublic

#endif
