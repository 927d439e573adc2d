// The texts of the members' own rejections: the system's wording, odd spacing, spelling and
// trailing blanks included. Callers compare them, so none may change.
#ifndef VANDPUBLIC_MEMBERS_MESSAGES_H
#define VANDPUBLIC_MEMBERS_MESSAGES_H

#include <string_view>

namespace vandpublic::messages {

using Text = std::u16string_view;

inline constexpr Text kInvalidDimension = u"Invalid input dimension.";
inline constexpr Text kNotHexNumber = u"Input value is not in hex format.";
inline constexpr Text kNotBits = u"Input value is not in bit format.";
inline constexpr Text kNotHexString = u"Resouce string not Hex string.";
inline constexpr Text kLengthTooSmall = u"the specified len is not enough to hold the byte array.";
inline constexpr Text kInvalidSourceString = u"Invalid Source String .";
inline constexpr Text kInvalidTableId = u"Invalid Table ID .";
inline constexpr Text kInvalidCountPerLine = u"Invalid Count of displaying per line. ";
inline constexpr Text kInvalidDisplayNumber = u"Invalid displayed Number . ";
inline constexpr Text kInvalidBitCount = u"Invalid Data Len!";
inline constexpr Text kInvalidValueType = u"Invalid value type.";

inline constexpr Text kInvalidKeySize = u"Invalid key size provided.";
inline constexpr Text kInvalidSourceLength = u"Invalid source data length.";
inline constexpr Text kLengthNotMultipleOf8 = u"Length of source bytes must be multiple of 8.";
inline constexpr Text kSourceTooSmall = u"Source byte array size not enough.";
inline constexpr Text kResultTooSmall = u"Result byte array size not enough.";
inline constexpr Text kEncryptFailed = u"Error occurs during encrypt data.";

inline constexpr Text kInvalidMasterKeySize = u"Invalid master key size. ";
inline constexpr Text kDivDataNotMultipleOf8 = u"Length of Div data bytes must be multiple of 8.";
inline constexpr Text kDivKeyTooSmall = u"DivKey size is less than 16 bytes.";
inline constexpr Text kInvalidSeedSize = u"Invalid seed size.";
inline constexpr Text kInputNotHexString = u"Input not Hex string . ";

inline constexpr Text kConnectionNotSet = u"Connection object not set yet.";
inline constexpr Text kRecordsetNotSet = u"Recordset object not set yet.";
inline constexpr Text kMdbPathMissing = u"MDB file path not provided.";
inline constexpr Text kMdbNotFound = u"MDB file not found.";
inline constexpr Text kDbfFolderMissing = u"DBF file directory not provided.";
inline constexpr Text kDbfNotFound = u"DBF file not found.";

inline constexpr Text kFilePathMissing = u"File path not provided.";
inline constexpr Text kFileNameMissing = u"File name not provided.";
inline constexpr Text kSectionMissing = u"Section name not provided.";
inline constexpr Text kKeyMissing = u"Key name not provided.";
inline constexpr Text kIniSaveFailed = u"Failed to save setting into .ini file!";

inline constexpr Text kNoSystemDirectory = u"Call API not get correct System Dir information !";
inline constexpr Text kNoWindowsDirectory = u"Call API not get correct Windows Dir information !";
inline constexpr Text kNoComputerName = u"Call API not get correct Computer Name information !";

}  // namespace vandpublic::messages

#endif
