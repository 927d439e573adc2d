// The one description of the interface: all 78 slots of _clsPublic in their order.
//
// From it come the class declaration (frame/clsPublic.h), the Member enumeration, calls by name,
// the tool's listings and the reference pages; scripts/generate.sh writes what is generated.
#ifndef VANDPUBLIC_MEMBERS_MEMBER_TABLE_H
#define VANDPUBLIC_MEMBERS_MEMBER_TABLE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string_view>

namespace vandpublic {

// The types that cross the interface.
enum class InterfaceType : std::uint8_t {
  None,  // no result
  Boolean,
  Byte,
  Integer,    // 16-bit
  Long,       // 32-bit
  DebugMode,  // the four enumerations are 32-bit
  InputMode,
  PadMethod,
  LockType,
  String,
  Variant,
  ByteArray,
  ByteTable,  // a two-dimensional byte array
  ErrObject,  // any object with Number, Source and Description
  Connection,
  Recordset,
  Field,
};

// What an optional parameter holds when the caller leaves it out.
struct DefaultValue {
  enum class Kind : std::uint8_t {
    Required,
    Unstated,  // optional, no default declared: reads as "", 0, False or the unset reference
    Number,
    Truth,
    Text,
  };
  Kind kind = Kind::Required;
  std::int32_t number = 0;  // of Number, and 0 or 1 of Truth
  std::u16string_view text = {};
};

struct Parameter {
  std::string_view name = {};
  InterfaceType type = InterfaceType::None;
  bool by_reference = false;
  DefaultValue default_value = {};

  constexpr bool IsOptional() const { return default_value.kind != DefaultValue::Kind::Required; }
};

// A list inside a constant: holds its items itself, so that the whole table is one constant.
template <class T, std::size_t kMost>
class ConstantList {
 public:
  constexpr ConstantList() = default;
  constexpr ConstantList(std::initializer_list<T> list) : count_(list.size()) {
    std::size_t i = 0;
    for (const T& item : list)
      items_[i++] = item;
  }

  constexpr std::size_t size() const { return count_; }
  constexpr const T& operator[](std::size_t i) const { return items_[i]; }
  constexpr const T* begin() const { return items_.data(); }
  constexpr const T* end() const { return items_.data() + count_; }

 private:
  std::array<T, kMost> items_{};
  std::size_t count_ = 0;
};

enum class SlotKind : std::uint8_t { Method, PropertyGet, PropertyPut };

// What a failure inside the member leads to.
enum class FailureStyle : std::uint8_t {
  Raise,     // log it, hand out the description, raise the member's own number
  RaiseOwn,  // the same for the member's own rejections; other errors pass through unlogged
  Report,    // log it, hand out the description, return the initial result
  Swallow,   // return what the result is so far; nothing is logged
  Pass,      // no trap: a fault reaches the caller unchanged
};

// What is raised and handed out when the failure is not a rejection of the member's own.
enum class FaultDescription : std::uint8_t {
  Composed,  // "source (number) - description", as the log entry has it
  Empty,     // the empty string; the log entry has the composed text all the same
};

inline constexpr std::size_t kMostParameters = 14;

struct MemberInfo {
  std::string_view name = {};
  SlotKind kind = SlotKind::Method;
  ConstantList<Parameter, kMostParameters> parameters = {};
  InterfaceType result = InterfaceType::None;

  FailureStyle failure = FailureStyle::Pass;
  std::uint16_t code = 0;  // the error number raised is 0x80040000 + code; 0: none
  FaultDescription fault_description = FaultDescription::Composed;
  std::u16string_view log_application = u"VandPublic";
  std::u16string_view log_module = u"clsCommon";
  std::string_view log_name = {};  // where the name logged and raised is not the member's own
  bool writes_description = true;  // false: has rstr_ErrDesc and never writes it

  // Of its own rejections, in the order of the checks.
  ConstantList<std::u16string_view, 6> messages = {};

  std::string_view does = {};    // what the member does, in sentences
  std::string_view raises = {};  // which inputs fail
  std::string_view leaves = {};  // by-reference arguments and side effects after a failure

  constexpr std::string_view LogName() const { return log_name.empty() ? name : log_name; }
};

inline constexpr std::size_t kSlotCount = 78;

// Slot n is element n - 1.
std::span<const MemberInfo, kSlotCount> MemberTable() noexcept;

// The slot of that kind with the name, compared without regard to case.
std::optional<std::size_t> FindSlot(std::string_view name, SlotKind kind) noexcept;

// Dispatch ids count names, from 1 in the order of their first slots; the read and the write slot
// of a property share one. They are fixed for ever.
std::int32_t DispatchId(std::size_t slot_index) noexcept;

// The number a member raises: 0x80040000 + code as a signed 32-bit value.
constexpr std::int32_t ErrorNumber(std::uint16_t code) {
  return static_cast<std::int32_t>(0x80040000u + code);
}

// The name a type has in the reference ("Integer", "ByteArray", "enumPadMethod").
std::string_view TypeName(InterfaceType type) noexcept;

// An enumeration of the interface with its members.
struct EnumerationValue {
  std::string_view name = {};
  std::int32_t value;
};
struct Enumeration {
  InterfaceType type;
  std::string_view name = {};
  std::span<const EnumerationValue> values;
};
std::span<const Enumeration> Enumerations() noexcept;
// The enumeration of a type, or null for types that are none.
const Enumeration* FindEnumeration(InterfaceType type) noexcept;

}  // namespace vandpublic

#endif
