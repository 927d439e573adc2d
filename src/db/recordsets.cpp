// OpenADORecordSet and SelectField: rows of a statement, and the one value that most callers want.
#include <string>

#include "db/object_ref.h"
#include "frame/trap.h"
#include "members/messages.h"
#include "platform/database.h"
#include "platform/platform.h"

namespace vandpublic {
namespace {

struct Condition {
  const String& column;  // "" leaves the condition out
  const String& value;
  bool is_text;
};

// Names and values go in as they are. A first condition that is left out leaves out the "Where"
// too, on purpose: the later ones are joined with "And" all the same.
std::u16string BuildSelect(const String& column, const String& table,
                           const Condition (&conditions)[3]) {
  std::u16string text = u"Select ";
  text += column.view();
  text += u" As RetField From ";
  text += table.view();
  for (const Condition& condition : conditions) {
    if (condition.column.Length() == 0) continue;
    text += &condition == &conditions[0] ? u" Where " : u" And ";
    text += condition.column.view();
    text += condition.is_text ? u"='" : u"=";
    text += condition.value.view();
    if (condition.is_text) text += u'\'';
  }
  return text;
}

// A recordset of our own, closed on every way out.
class PrivateRecordset {
 public:
  explicit PrivateRecordset(DatabaseObjects* objects) {
    if (objects == nullptr) RaiseFault(FaultNumber::CannotCreateObject);
    recordset_ = objects->MakeRecordset();
  }
  PrivateRecordset(const PrivateRecordset&) = delete;
  PrivateRecordset& operator=(const PrivateRecordset&) = delete;
  ~PrivateRecordset() {
    try {
      if (recordset_->GetState() == kStateOpen) recordset_->Close();
    } catch (...) {
      // A failure here no longer matters to anybody.
    }
  }

  RecordsetRef& Get() noexcept { return recordset_; }

 private:
  RecordsetRef recordset_;
};

}  // namespace

bool clsPublic::OpenADORecordSet(ConnectionRef& adoConn, RecordsetRef& adoRecSet,
                                 const String& adoSelectString,
                                 OptionalRef<LockTypeEnum> adoLockType,
                                 OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::OpenADORecordSet, rstr_ErrDesc, [&] {
    if (adoConn == nullptr) Reject(messages::kConnectionNotSet);
    if (adoRecSet == nullptr) Reject(messages::kRecordsetNotSet);
    adoRecSet->SetActiveConnection(adoConn);
    adoRecSet->SetCursorLocation(kClientCursor);
    adoRecSet->SetLockType(*adoLockType);
    adoRecSet->Open(adoSelectString.view(), nullptr, kUnspecified, kUnspecified, kUnspecified);
    return true;
  });
}

bool clsPublic::SelectField(ConnectionRef& DB_Connection, const String& istr_ReturnField,
                            Variant& rstr_ReturnValue, OptionalRef<String> istr_Table,
                            OptionalRef<String> istr_FieldName1,
                            OptionalRef<String> istr_FieldValue1,
                            OptionalRef<bool> ibln_FieldIsStr1, OptionalRef<String> istr_FieldName2,
                            OptionalRef<String> istr_FieldValue2,
                            OptionalRef<bool> ibln_FieldIsStr2, OptionalRef<String> istr_FieldName3,
                            OptionalRef<String> istr_FieldValue3,
                            OptionalRef<bool> ibln_FieldIsStr3, OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::SelectField, rstr_ErrDesc, [&](String& description) {
    const Condition conditions[] = {{*istr_FieldName1, *istr_FieldValue1, *ibln_FieldIsStr1},
                                    {*istr_FieldName2, *istr_FieldValue2, *ibln_FieldIsStr2},
                                    {*istr_FieldName3, *istr_FieldValue3, *ibln_FieldIsStr3}};
    const String statement = BuildSelect(istr_ReturnField, *istr_Table, conditions);
    PrivateRecordset recordset(platform().database.get());
    LockTypeEnum lock_type = adLockReadOnly;
    // It raises rather than return False, with the description filled, which is what is logged and
    // raised here as well.
    OpenADORecordSet(DB_Connection, recordset.Get(), statement, lock_type, description);
    Recordset& rows = *recordset.Get();
    rstr_ReturnValue = rows.IsAtEnd()
                           ? Variant(u"")
                           : ObjectIn(ObjectIn(rows.GetFields()).GetItem(u"RetField")).GetValue();
    return true;
  });
}

}  // namespace vandpublic
