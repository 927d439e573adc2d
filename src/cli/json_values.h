// Values between JSON and the interface's types.
//
// | type             | JSON                                                                      |
// |------------------|---------------------------------------------------------------------------|
// | String           | "text"; null: the absent string; {"utf16le":"4100"}: storage bytes in hex |
// | Integer, Long,   | a whole number in the type's range                                        |
// | Byte             |                                                                           |
// | Boolean          | true, false                                                               |
// | enumerations     | a number, or a member's name in any case                                  |
// | ByteArray        | {"bytes":"0A0B"}, with "lower":1; null: not dimensioned                   |
// | ByteArray(,)     | {"bytes":"...", "bounds":[[0,1],[0,15]]}, last subscript fastest          |
// | Variant          | plain JSON, or {"vt":2,"value":5}; see DecodeVariant                      |
// | ErrObject        | {"Number":5,"Source":"s","Description":"d"}; null: unset                  |
// | Connection, ...  | null: unset; the objects themselves are passed as variables               |
#ifndef VANDPUBLIC_CLI_JSON_VALUES_H
#define VANDPUBLIC_CLI_JSON_VALUES_H

#include "cli/json_text.h"
#include "members/member_table.h"
#include "runtime/errors.h"
#include "runtime/variant.h"

namespace vandpublic {

// The value for a parameter of that type. Raises ProtocolError, which says what would fit.
Variant DecodeValue(const Json& json, InterfaceType type);

// A string, a Boolean, a whole number (32-bit), another number (double), null, a byte array; or
// {"vt":code,"value":...} with the code 0, 1, 2 to 8, 11, 14, 17, 8209 as in Variant::Type. The
// value of 6 and 14 is text ("12.5000"), of 7 the days since 30 December 1899; 9 takes null only.
// Another array type has only its bounds: {"vt":8204,"value":{"bounds":[[1,3]]}}.
Variant DecodeVariant(const Json& json);

// The value as a parameter of that type has it: a variant always as {"vt":...,"value":...}, an
// object as {"object":"ADODB.Recordset"}. Text that UTF-8 cannot hold exactly, with half a unit or
// an unpaired surrogate, becomes {"utf16le":...}. A value that does not have the type is converted
// to it where that is possible.
Json EncodeValue(const Variant& value, InterfaceType type);

// {"vt":...,"value":...}
Json EncodeVariant(const Variant& value);

// {"number":-2147221485,"hex":"0x80040013","source":"...","description":"..."}
Json EncodeError(const AutomationError& error);

// Whether the value has the type already, and the value converted to it (faults 6, 13, 94).
bool Holds(const Variant& value, InterfaceType type) noexcept;
Variant Converted(const Variant& value, InterfaceType type);

}  // namespace vandpublic

#endif
