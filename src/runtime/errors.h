// The two exceptions that leave the component: AutomationError, which carries number, source and
// description to the caller, and RuntimeFault, the plain runtime faults with their classic texts.
#ifndef VANDPUBLIC_RUNTIME_ERRORS_H
#define VANDPUBLIC_RUNTIME_ERRORS_H

#include <exception>
#include <string>
#include <string_view>

#include "basic_types.h"

namespace vandpublic {

// An error as automation clients see it. what() is "source (number) description" in UTF-8.
class VANDPUBLIC_API AutomationError : public std::exception {
 public:
  AutomationError(Long number, std::u16string source, std::u16string description);

  Long number() const noexcept { return number_; }
  const std::u16string& source() const noexcept { return source_; }
  const std::u16string& description() const noexcept { return description_; }
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  Long number_;
  std::u16string source_;
  std::u16string description_;
  std::string what_;
};

// The numbers of the runtime faults that the component raises. FaultText has their descriptions.
enum class FaultNumber : Long {
  InvalidProcedureCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,
  TypeMismatch = 13,
  OutOfStackSpace = 28,
  InternalError = 51,
  BadFileName = 52,
  FileNotFound = 53,
  FileAlreadyOpen = 55,
  DeviceIoError = 57,
  DiskFull = 61,
  TooManyFiles = 67,
  PermissionDenied = 70,
  PathFileAccessError = 75,
  PathNotFound = 76,
  ObjectVariableNotSet = 91,
  InvalidUseOfNull = 94,
  CannotCreateObject = 429,
  NoSuchPropertyOrMethod = 438,
  NamedArgumentNotFound = 448,
  ArgumentNotOptional = 449,
  WrongNumberOfArguments = 450,
  PropertyNotWritable = 451,
  RegExpSyntaxError = 5017,
  RegExpUnexpectedQuantifier = 5018,
  RegExpExpectedBracket = 5019,
  RegExpExpectedParenthesis = 5020,
  RegExpInvalidRange = 5021,
};

// The classic English description, "Application-defined or object-defined error" for a number
// that is not in the enumeration.
VANDPUBLIC_API std::u16string_view FaultText(FaultNumber number) noexcept;

// A fault of the runtime: an index outside an array, an overflow, a file that is not there. The
// source is always "Public_Module", the description FaultText's.
class VANDPUBLIC_API RuntimeFault : public AutomationError {
 public:
  explicit RuntimeFault(FaultNumber number);
};

// Throws RuntimeFault; out of line, so that a check costs its caller a compare and a jump.
[[noreturn]] VANDPUBLIC_API void RaiseFault(FaultNumber number);

}  // namespace vandpublic

#endif
