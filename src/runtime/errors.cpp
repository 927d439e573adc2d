// The texts of the runtime faults, and the exceptions that carry them.
#include "runtime/errors.h"

#include "runtime/utf8.h"

namespace vandpublic {
namespace {

constexpr std::u16string_view kFaultSource = u"Public_Module";

std::string Describe(Long number, const std::u16string& source, const std::u16string& description) {
  std::string text = ToUtf8(source);
  text += " (";
  text += std::to_string(number);
  text += ") ";
  text += ToUtf8(description);
  return text;
}

}  // namespace

AutomationError::AutomationError(Long number, std::u16string source, std::u16string description)
    : number_(number),
      source_(std::move(source)),
      description_(std::move(description)),
      what_(Describe(number_, source_, description_)) {}

std::u16string_view FaultText(FaultNumber number) noexcept {
  switch (number) {
    case FaultNumber::InvalidProcedureCall:
      return u"Invalid procedure call or argument";
    case FaultNumber::Overflow:
      return u"Overflow";
    case FaultNumber::OutOfMemory:
      return u"Out of memory";
    case FaultNumber::SubscriptOutOfRange:
      return u"Subscript out of range";
    case FaultNumber::TypeMismatch:
      return u"Type mismatch";
    case FaultNumber::OutOfStackSpace:
      return u"Out of stack space";
    case FaultNumber::InternalError:
      return u"Internal error";
    case FaultNumber::BadFileName:
      return u"Bad file name or number";
    case FaultNumber::FileNotFound:
      return u"File not found";
    case FaultNumber::FileAlreadyOpen:
      return u"File already open";
    case FaultNumber::DeviceIoError:
      return u"Device I/O error";
    case FaultNumber::DiskFull:
      return u"Disk full";
    case FaultNumber::TooManyFiles:
      return u"Too many files";
    case FaultNumber::PermissionDenied:
      return u"Permission denied";
    case FaultNumber::PathFileAccessError:
      return u"Path/File access error";
    case FaultNumber::PathNotFound:
      return u"Path not found";
    case FaultNumber::ObjectVariableNotSet:
      return u"Object variable or With block variable not set";
    case FaultNumber::InvalidUseOfNull:
      return u"Invalid use of Null";
    case FaultNumber::CannotCreateObject:
      return u"ActiveX component can't create object";
    case FaultNumber::NoSuchPropertyOrMethod:
      return u"Object doesn't support this property or method";
    case FaultNumber::NamedArgumentNotFound:
      return u"Named argument not found";
    case FaultNumber::ArgumentNotOptional:
      return u"Argument not optional";
    case FaultNumber::WrongNumberOfArguments:
      return u"Wrong number of arguments or invalid property assignment";
    case FaultNumber::PropertyNotWritable:
      return u"Property let procedure not defined and property get procedure did not return an "
             u"object";
    case FaultNumber::RegExpSyntaxError:
      return u"Syntax error in regular expression";
    case FaultNumber::RegExpUnexpectedQuantifier:
      return u"Unexpected quantifier";
    case FaultNumber::RegExpExpectedBracket:
      return u"Expected ']' in regular expression";
    case FaultNumber::RegExpExpectedParenthesis:
      return u"Expected ')' in regular expression";
    case FaultNumber::RegExpInvalidRange:
      return u"Invalid range in character set";
  }
  return u"Application-defined or object-defined error";
}

RuntimeFault::RuntimeFault(FaultNumber number)
    : AutomationError(static_cast<Long>(number), std::u16string(kFaultSource),
                      std::u16string(FaultText(number))) {}

void RaiseFault(FaultNumber number) { throw RuntimeFault(number); }

}  // namespace vandpublic
