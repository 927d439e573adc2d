// What a recordset offers by name.
#include <utility>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/ado_field.h"
#include "platform/posix/ado/ado_recordset.h"
#include "platform/posix/ado/dispatch.h"

namespace vandpublic::ado {
namespace {

constexpr Long kAtStart = -2;
constexpr Long kAtEnd = -3;
constexpr Long kNowhere = -1;
constexpr Long kCurrentRow = 1;

// Bookmarks that Move can start from.
constexpr Long kFromCurrent = 0;
constexpr Long kFromFirst = 1;
constexpr Long kFromLast = 2;

Variant AbsolutePosition(AdoRecordset& self) {
  const RowBuffer& rows = self.Rows();
  if (const auto position = rows.Position()) return static_cast<Long>(*position + 1);
  if (rows.IsAtStart()) return kAtStart;
  return rows.IsAtEnd() ? kAtEnd : kNowhere;
}

// A connection object, nothing, or a connection string to open one with.
ConnectionRef ToConnection(const Variant& value) {
  if (value.IsEmpty() || value.IsNull()) return nullptr;
  if (const auto* text = value.Get<String>()) {
    auto made = std::make_shared<AdoConnection>();
    made->Open(text->view(), u"", u"", kUnspecified);
    return made;
  }
  const auto* object = value.Get<ObjectRef>();
  if (object == nullptr) Raise(ObjectError::InvalidArgument, kRecordsetSource);
  ConnectionRef connection = std::dynamic_pointer_cast<Connection>(*object);
  if (connection == nullptr && *object != nullptr) {
    Raise(ObjectError::InvalidArgument, kRecordsetSource);
  }
  return connection;
}

Variant OpenByName(AdoRecordset& self, std::span<Variant> arguments) {
  const auto number = [&](std::size_t i) {
    return LongArgument(arguments, i, kUnspecified, kRecordsetSource);
  };
  const ConnectionRef connection = arguments.size() > 1 ? ToConnection(arguments[1]) : nullptr;
  self.Open(TextArgument(arguments, 0, kRecordsetSource), connection, number(2), number(3),
            number(4));
  return {};
}

Variant MoveByName(AdoRecordset& self, std::span<Variant> arguments) {
  if (arguments.empty()) RaiseFault(FaultNumber::ArgumentNotOptional);
  const Long rows = LongValue(arguments[0], kRecordsetSource);
  const Long start = LongArgument(arguments, 1, kFromCurrent, kRecordsetSource);
  if (start == kFromFirst) {
    self.MoveFirst();
  } else if (start == kFromLast) {
    self.MoveLast();
  } else if (start != kFromCurrent) {
    Raise(ObjectError::InvalidArgument, kRecordsetSource);
  }
  self.Move(rows);
  return {};
}

// The optional field and value of AddNew and Update.
bool SetGivenField(AdoRecordset& self, std::span<Variant> arguments) {
  if (arguments.size() < 2) return false;
  const auto field =
      std::static_pointer_cast<AdoField>(AdoFields(self.shared_from_this()).Find(arguments[0]));
  field->SetValue(arguments[1]);
  return true;
}

Variant AddNewByName(AdoRecordset& self, std::span<Variant> arguments) {
  self.AddNew();
  if (SetGivenField(self, arguments)) self.Update();
  return {};
}

Variant UpdateByName(AdoRecordset& self, std::span<Variant> arguments) {
  SetGivenField(self, arguments);
  self.Update();
  return {};
}

Variant DeleteByName(AdoRecordset& self, std::span<Variant> arguments) {
  if (LongArgument(arguments, 0, kCurrentRow, kRecordsetSource) != kCurrentRow) {
    RaiseNotCapable(kRecordsetSource);
  }
  self.Delete();
  return {};
}

template <void (AdoRecordset::*kOperation)()>
Variant Do(AdoRecordset& self, std::span<Variant>) {
  (self.*kOperation)();
  return {};
}

using Property = NamedProperty<AdoRecordset>;
using Operation = NamedOperation<AdoRecordset>;

constexpr Property kProperties[] = {
    {"ActiveConnection", [](AdoRecordset& self) { return Variant(ObjectRef(self.connection())); },
     [](AdoRecordset& self, const Variant& value) {
       self.SetActiveConnection(ToConnection(value));
     }},
    {"CursorLocation", [](AdoRecordset& self) { return Variant(self.cursor_location()); },
     [](AdoRecordset& self, const Variant& value) {
       self.SetCursorLocation(LongValue(value, kRecordsetSource));
     }},
    {"CursorType", [](AdoRecordset& self) { return Variant(self.cursor_type()); },
     [](AdoRecordset& self, const Variant& value) {
       self.SetCursorType(LongValue(value, kRecordsetSource));
     }},
    {"LockType", [](AdoRecordset& self) { return Variant(self.lock_type()); },
     [](AdoRecordset& self, const Variant& value) {
       self.SetLockType(LongValue(value, kRecordsetSource));
     }},
    {"Source", [](AdoRecordset& self) { return Variant(String(self.source())); },
     [](AdoRecordset& self, const Variant& value) {
       self.SetSource(TextValue(value, kRecordsetSource));
     }},
    {"State", [](AdoRecordset& self) { return Variant(self.GetState()); }},
    {"EOF", [](AdoRecordset& self) { return Variant(self.Rows().IsAtEnd()); }},
    {"BOF", [](AdoRecordset& self) { return Variant(self.Rows().IsAtStart()); }},
    {"RecordCount",
     [](AdoRecordset& self) { return Variant(static_cast<Long>(self.Rows().RowCount())); }},
    {"AbsolutePosition", &AbsolutePosition,
     [](AdoRecordset& self, const Variant& value) {
       self.SetAbsolutePosition(LongValue(value, kRecordsetSource));
     }},
    {"EditMode",
     [](AdoRecordset& self) { return Variant(static_cast<Long>(self.Rows().edit_mode())); }},
};

constexpr Operation kOperations[] = {
    {"Open", 5, &OpenByName},
    {"Close", 0, &Do<&AdoRecordset::Close>},
    {"Requery", 0, &Do<&AdoRecordset::Requery>},
    {"Move", 2, &MoveByName},
    {"MoveFirst", 0, &Do<&AdoRecordset::MoveFirst>},
    {"MoveLast", 0, &Do<&AdoRecordset::MoveLast>},
    {"MoveNext", 0,
     [](AdoRecordset& self, std::span<Variant>) {
       self.Move(1);
       return Variant();
     }},
    {"MovePrevious", 0,
     [](AdoRecordset& self, std::span<Variant>) {
       self.Move(-1);
       return Variant();
     }},
    {"AddNew", 2, &AddNewByName},
    {"Update", 2, &UpdateByName},
    {"CancelUpdate", 0, &Do<&AdoRecordset::CancelUpdate>},
    {"Delete", 1, &DeleteByName},
    {"UpdateBatch", 0, &Do<&AdoRecordset::UpdateBatch>},
    {"CancelBatch", 0, &Do<&AdoRecordset::CancelBatch>},
    {"Supports", 1,
     [](AdoRecordset& self, std::span<Variant> arguments) {
       if (arguments.empty()) RaiseFault(FaultNumber::ArgumentNotOptional);
       return Variant(self.Supports(LongValue(arguments[0], kRecordsetSource)));
     }},
};

}  // namespace

Variant AdoRecordset::Get(std::string_view name, std::span<const Variant> arguments) {
  if (SameName(name, "Fields") && arguments.size() < 2) {
    Rows();
    AdoFields fields(shared_from_this());
    if (arguments.size() == 1) return ObjectRef(fields.Find(arguments[0]));
    return ObjectRef(std::make_shared<AdoFields>(std::move(fields)));
  }
  return GetProperty(*this, kProperties, name, arguments);
}

void AdoRecordset::Set(std::string_view name, const Variant& value) {
  SetProperty(*this, kProperties, name, value);
}

Variant AdoRecordset::Call(std::string_view name, std::span<Variant> arguments) {
  return CallOperation(*this, kOperations, name, arguments);
}

}  // namespace vandpublic::ado
