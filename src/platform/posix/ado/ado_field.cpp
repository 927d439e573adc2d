// Columns by name and number, and what clients read and write of one.
#include "platform/posix/ado/ado_field.h"

#include <utility>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/column_values.h"
#include "platform/posix/ado/dispatch.h"
#include "runtime/utf8.h"

namespace vandpublic::ado {
namespace {

// ADO's field attributes.
constexpr Long kUpdatable = 0x4;
constexpr Long kFixed = 0x10;
constexpr Long kNullable = 0x20;
constexpr Long kMayBeNull = 0x40;
constexpr Long kLong = 0x80;
constexpr Long kKeyColumn = 0x8000;

bool HasFixedSize(DataType type) {
  const bool varies = type == DataType::VarChar || type == DataType::VarWChar ||
                      type == DataType::VarBinary || type == DataType::LongVarChar ||
                      type == DataType::LongVarWChar || type == DataType::LongVarBinary;
  return !varies;
}

using Property = NamedProperty<AdoField>;
using Operation = NamedOperation<AdoField>;

constexpr Property kProperties[] = {
    {"Name",
     [](AdoField& self) { return Variant(String(std::string_view(self.Description().name))); }},
    {"Type", [](AdoField& self) { return Variant(static_cast<Long>(self.Description().type)); }},
    {"Value", [](AdoField& self) { return self.GetValue(); },
     [](AdoField& self, const Variant& value) { self.SetValue(value); }},
    {"OriginalValue", [](AdoField& self) { return self.OriginalValue(); }},
    {"ActualSize", [](AdoField& self) { return Variant(self.GetActualSize()); }},
    {"DefinedSize", [](AdoField& self) { return Variant(self.Description().defined_size); }},
    {"Attributes", [](AdoField& self) { return Variant(self.Attributes()); }},
};

constexpr Operation kOperations[] = {
    {"AppendChunk", 1,
     [](AdoField& self, std::span<Variant> arguments) {
       if (arguments.empty()) RaiseFault(FaultNumber::ArgumentNotOptional);
       self.AppendChunk(arguments[0]);
       return Variant();
     }},
    {"GetChunk", 1,
     [](AdoField& self, std::span<Variant> arguments) {
       if (arguments.empty()) RaiseFault(FaultNumber::ArgumentNotOptional);
       return self.GetChunk(LongValue(arguments[0], kFieldSource));
     }},
};

}  // namespace

AdoFields::AdoFields(std::shared_ptr<AdoRecordset> recordset) : recordset_(std::move(recordset)) {}

std::size_t AdoFields::Count() { return recordset_->Rows(kFieldsSource).columns().size(); }

FieldRef AdoFields::ItemAt(Long index) {
  if (index < 0 || static_cast<std::size_t>(index) >= Count()) {
    Raise(ObjectError::ItemNotFound, kFieldsSource);
  }
  return std::make_shared<AdoField>(recordset_, static_cast<std::size_t>(index));
}

FieldRef AdoFields::GetItem(std::u16string_view name) {
  const std::string wanted = ToUtf8(name);
  const std::vector<Column>& columns = recordset_->Rows(kFieldsSource).columns();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (SameName(columns[i].name, wanted)) return std::make_shared<AdoField>(recordset_, i);
  }
  Raise(ObjectError::ItemNotFound, kFieldsSource);
}

FieldRef AdoFields::Find(const Variant& name_or_number) {
  if (const auto* name = name_or_number.Get<String>()) return GetItem(name->view());
  return ItemAt(LongValue(name_or_number, kFieldsSource));
}

Variant AdoFields::Get(std::string_view name, std::span<const Variant> arguments) {
  if (SameName(name, "Count") && arguments.empty()) return static_cast<Long>(Count());
  if (SameName(name, "Item") && arguments.size() == 1) return ObjectRef(Find(arguments[0]));
  return Fields::Get(name, arguments);
}

AdoField::AdoField(std::shared_ptr<AdoRecordset> recordset, std::size_t column)
    : recordset_(std::move(recordset)), column_(column), generation_(recordset_->generation()) {}

AdoRecordset& AdoField::Opened() {
  recordset_->Rows(kFieldSource);
  if (recordset_->generation() != generation_) Raise(ObjectError::ObjectClosed, kFieldSource);
  return *recordset_;
}

const Column& AdoField::Description() { return Opened().Rows().columns()[column_]; }

Variant AdoField::GetValue() { return Opened().FieldValue(column_); }

void AdoField::SetValue(const Variant& value) { Opened().SetFieldValue(column_, value); }

Variant AdoField::OriginalValue() { return Opened().Rows().StoredValue(column_); }

Long AdoField::GetActualSize() {
  const RowBuffer& rows = Opened().Rows();
  return ActualSizeOf(rows.columns()[column_], rows.Value(column_));
}

void AdoField::AppendChunk(const Variant& data) { Opened().AppendChunk(column_, data); }

Variant AdoField::GetChunk(Long size) { return Opened().GetChunk(column_, size); }

Long AdoField::Attributes() {
  const Column& column = Description();
  Long bits = 0;
  if (column.updatable && recordset_->IsUpdatable()) bits |= kUpdatable;
  if (HasFixedSize(column.type)) bits |= kFixed;
  if (column.nullable) bits |= kNullable | kMayBeNull;
  if (column.is_long) bits |= kLong;
  if (column.is_key) bits |= kKeyColumn;
  return bits;
}

Variant AdoField::Get(std::string_view name, std::span<const Variant> arguments) {
  return GetProperty(*this, kProperties, name, arguments);
}
void AdoField::Set(std::string_view name, const Variant& value) {
  SetProperty(*this, kProperties, name, value);
}
Variant AdoField::Call(std::string_view name, std::span<Variant> arguments) {
  return CallOperation(*this, kOperations, name, arguments);
}

}  // namespace vandpublic::ado
