// Automation objects as the objects of this component: a caller's IDispatch becomes a Connection, a
// Recordset, a Field or a plain Object, and can be had back.
//
//   // A client's argument, an ADO connection of whatever version or a stand-in for one:
//   ConnectionRef connection = WrapConnection(argument->pdispVal);
//   component.OpenConnAsSQLDNS(connection, ...);
//   IDispatch* object = connection ? WrappedDispatch(*connection) : nullptr;
//
// A wrapper shares its object from the moment it is made to its end: one AddRef, one Release. It
// belongs to the thread that made it, as its object does. What it does is told in
// platform/database.h; each property and operation there goes to the object as one Invoke of that
// name, in the order of the calls:
//
//   property get      DISPATCH_PROPERTYGET   EOF, State, Fields, Value, ActualSize
//   property put      DISPATCH_PROPERTYPUT   ConnectionString, CursorLocation, LockType
//   ActiveConnection  DISPATCH_PROPERTYPUTREF
//   operations        DISPATCH_METHOD        Open, Close, AppendChunk, GetChunk; all arguments are
//                                            given, the one that is left out as a missing one
//   a field by name   DISPATCH_PROPERTYGET | DISPATCH_METHOD  Item, or the default member where
//                                                             there is no Item
//
// Failures are raised as automation_errors.h tells. By name (Get, Set, Call) everything else the
// object has is there too; arguments of Call are given as references to variants and get back what
// the object wrote.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_DISPATCH_OBJECTS_H
#define VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_DISPATCH_OBJECTS_H

#include <windows.h>
// After windows.h, which it builds on.
#include <oleauto.h>

#include <memory>

#include "platform/database.h"

namespace vandpublic {

// Null gives the unset reference.
ConnectionRef WrapConnection(IDispatch* object);
RecordsetRef WrapRecordset(IDispatch* object);
FieldsRef WrapFields(IDispatch* object);
FieldRef WrapField(IDispatch* object);
// As the one of these that it is, by ADO's own interfaces; any other object as one that is driven
// by name only.
ObjectRef WrapObject(IDispatch* object);

// The object behind a wrapper, without a reference added; null for objects of other makes.
IDispatch* WrappedDispatch(const Object& object) noexcept;

// Whether both are wrappers of one and the same object, as COM tells identity. Wrapping an object
// twice gives two wrappers of the same object.
bool IsSameObject(const Object& a, const Object& b) noexcept;

// ADODB.Connection and ADODB.Recordset as this system has them; fault 429 where it has none. They
// keep COM in use on their thread.
std::shared_ptr<DatabaseObjects> MakeAdoObjects();

}  // namespace vandpublic

#endif
