// Numbers, sources and texts of the errors.
#include "platform/posix/ado/ado_errors.h"

#include "runtime/errors.h"
#include "runtime/utf8.h"

namespace vandpublic::ado {
namespace {

// What the numbers of object errors are added to.
constexpr std::uint32_t kObjectErrorBase = 0x800A0000u;

std::u16string_view TextOf(ObjectError error) {
  switch (error) {
    case ObjectError::InvalidArgument:
      return u"Arguments are of the wrong type, are out of acceptable range, or are in conflict "
             u"with one another.";
    case ObjectError::NoCurrentRecord:
      return u"Either BOF or EOF is True, or the current record has been deleted. Requested "
             u"operation requires a current record.";
    case ObjectError::IllegalOperation:
      return u"Operation is not allowed in this context.";
    case ObjectError::NotUpdatable:
      return u"Current Recordset does not support updating. This may be a limitation of the "
             u"provider, or of the selected locktype.";
    case ObjectError::ItemNotFound:
      return u"Item cannot be found in the collection corresponding to the requested name or "
             u"ordinal.";
    case ObjectError::WrongType:
      return u"Application uses a value of the wrong type for the current operation.";
    case ObjectError::ObjectClosed:
      return u"Operation is not allowed when the object is closed.";
    case ObjectError::ObjectOpen:
      return u"Operation is not allowed when the object is open.";
    case ObjectError::ProviderNotFound:
      return u"Provider cannot be found. It may not be properly installed.";
    case ObjectError::InvalidConnection:
      return u"The connection cannot be used to perform this operation. It is either closed or "
             u"invalid in this context.";
  }
  return {};
}

Long NumberOf(ObjectError error) {
  return static_cast<Long>(kObjectErrorBase + static_cast<std::uint32_t>(error));
}

}  // namespace

void Raise(ObjectError error, std::string_view source) {
  throw AutomationError(NumberOf(error), FromUtf8(source), std::u16string(TextOf(error)));
}

void Raise(SourceError error, std::string_view source, std::string_view description) {
  throw AutomationError(static_cast<Long>(error), FromUtf8(source), FromUtf8(description));
}

void RaiseNotCapable(std::string_view source) {
  throw AutomationError(NumberOf(ObjectError::NotUpdatable), FromUtf8(source),
                        u"Object or provider is not capable of performing requested operation.");
}

void RaiseRowNotLocated() {
  Raise(SourceError::RowNotLocated, kCursorSource,
        "Row cannot be located for updating. Some values may have been changed since it was last "
        "read.");
}

void RaiseNoBaseTable() {
  Raise(SourceError::Failed, kCursorSource,
        "Insufficient base table information for updating or refreshing.");
}

void RaiseNoKeyColumns() {
  Raise(SourceError::Failed, kCursorSource,
        "Insufficient key column information for updating or refreshing.");
}

}  // namespace vandpublic::ado
