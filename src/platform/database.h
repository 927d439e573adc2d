// The port for databases: connections, recordsets and fields as the members use them. They are the
// caller's objects; a member sets properties and calls operations, nothing else.
//
//   vandpublic::clsPublic component;
//   vandpublic::ConnectionRef connection = vandpublic::MakeConnection();
//   component.OpenConnAsSQLDNS(connection, "Orders", "", "reader", "secret");
//   vandpublic::Variant name;
//   component.SelectField(connection, "Name", name, "Staff", "Code", "7");
//
// What the members do not need is reached by name: recordset->Call("MoveNext", {}). Failures are
// AutomationErrors with ADO's numbers, sources and texts.
#ifndef VANDPUBLIC_PLATFORM_DATABASE_H
#define VANDPUBLIC_PLATFORM_DATABASE_H

#include <memory>
#include <string_view>

#include "runtime/basic_types.h"
#include "runtime/object.h"
#include "runtime/variant.h"

namespace vandpublic {

class Connection;
class Recordset;
class Fields;
class Field;

// Null is the unset reference.
using ConnectionRef = std::shared_ptr<Connection>;
using RecordsetRef = std::shared_ptr<Recordset>;
using FieldsRef = std::shared_ptr<Fields>;
using FieldRef = std::shared_ptr<Field>;

// For options, cursor and lock types: as the object's properties say.
inline constexpr Long kUnspecified = -1;
inline constexpr Long kClientCursor = 3;
inline constexpr Long kStateClosed = 0;
inline constexpr Long kStateOpen = 1;

// A connection to a data source.
class VANDPUBLIC_API Connection : public Object {
 public:
  std::string_view ClassName() const noexcept override { return "ADODB.Connection"; }

  virtual void SetConnectionString(std::u16string_view text) = 0;
  // Opens the data source that the string names, the connection string that was set where it is
  // empty. User and password go before those in the string, unless they are empty.
  virtual void Open(std::u16string_view connection_string, std::u16string_view user_id,
                    std::u16string_view password, Long options) = 0;
};

// One column of the current row of a recordset; it follows the recordset from row to row.
class VANDPUBLIC_API Field : public Object {
 public:
  std::string_view ClassName() const noexcept override { return "ADODB.Field"; }

  virtual Variant GetValue() = 0;
  // The size of the value in bytes, 0 for the null value.
  virtual Long GetActualSize() = 0;
  // Appends to the column's new content, which the first call after a move or after the use of
  // another column starts afresh. The null value empties it.
  virtual void AppendChunk(const Variant& data) = 0;
  // The next bytes (or characters) of the content, as many as there are up to `size`; the null
  // value where none is left.
  virtual Variant GetChunk(Long size) = 0;
};

// The columns of a recordset.
class VANDPUBLIC_API Fields : public Object {
 public:
  std::string_view ClassName() const noexcept override { return "ADODB.Fields"; }

  // By name, without regard to case.
  virtual FieldRef GetItem(std::u16string_view name) = 0;
};

// The rows of a statement, one of them the current one.
class VANDPUBLIC_API Recordset : public Object {
 public:
  std::string_view ClassName() const noexcept override { return "ADODB.Recordset"; }

  virtual void SetActiveConnection(const ConnectionRef& connection) = 0;
  virtual void SetCursorLocation(Long location) = 0;
  virtual void SetLockType(Long lock_type) = 0;
  // An unset connection stands for an argument that is left out.
  virtual void Open(std::u16string_view source, const ConnectionRef& active_connection,
                    Long cursor_type, Long lock_type, Long options) = 0;
  virtual void Close() = 0;
  // kStateClosed or kStateOpen.
  virtual Long GetState() = 0;
  // Whether the current position is behind the last row.
  virtual bool IsAtEnd() = 0;
  virtual FieldsRef GetFields() = 0;
};

// What makes the objects of a platform.
class DatabaseObjects {
 public:
  virtual ~DatabaseObjects() = default;

  virtual ConnectionRef MakeConnection() = 0;
  virtual RecordsetRef MakeRecordset() = 0;
};

// New objects of this system, closed. Fault 429 where the system has none.
VANDPUBLIC_API ConnectionRef MakeConnection();
VANDPUBLIC_API RecordsetRef MakeRecordset();

}  // namespace vandpublic

#endif
