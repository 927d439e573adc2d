// ADODB.Fields and ADODB.Field: views on the columns of a recordset's current row.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_ADO_FIELD_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_ADO_FIELD_H

#include <cstddef>
#include <memory>

#include "platform/database.h"
#include "platform/posix/ado/ado_recordset.h"

namespace vandpublic::ado {

// By name it has the properties Count and Item (a name, or a number from 0).
class AdoFields final : public Fields {
 public:
  explicit AdoFields(std::shared_ptr<AdoRecordset> recordset);

  FieldRef GetItem(std::u16string_view name) override;
  Variant Get(std::string_view name, std::span<const Variant> arguments) override;

  std::size_t Count();
  FieldRef ItemAt(Long index);
  // By number when the variant holds one, else by name.
  FieldRef Find(const Variant& name_or_number);

 private:
  std::shared_ptr<AdoRecordset> recordset_;
};

// By name it has the properties Name, Type, Value, OriginalValue, ActualSize, DefinedSize and
// Attributes, and the operations AppendChunk and GetChunk. A field of rows that were closed since
// raises 3704.
class AdoField final : public Field {
 public:
  AdoField(std::shared_ptr<AdoRecordset> recordset, std::size_t column);

  Variant GetValue() override;
  Long GetActualSize() override;
  void AppendChunk(const Variant& data) override;
  Variant GetChunk(Long size) override;
  Variant Get(std::string_view name, std::span<const Variant> arguments) override;
  void Set(std::string_view name, const Variant& value) override;
  Variant Call(std::string_view name, std::span<Variant> arguments) override;

  void SetValue(const Variant& value);
  Variant OriginalValue();
  const Column& Description();
  // ADO's field attributes as bits.
  Long Attributes();

 private:
  AdoRecordset& Opened();

  std::shared_ptr<AdoRecordset> recordset_;
  std::size_t column_;
  Long generation_;
};

}  // namespace vandpublic::ado

#endif
