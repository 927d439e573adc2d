// A test of recordsets over a data source in memory.
#ifndef VANDPUBLIC_TESTS_SUPPORT_MEMORY_RECORDSET_H
#define VANDPUBLIC_TESTS_SUPPORT_MEMORY_RECORDSET_H

#include <gtest/gtest.h>

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/posix/ado/ado_recordset.h"
#include "support/memory_session.h"
#include "support/test_component.h"

namespace vandpublic::ado {

inline constexpr Long kObjectBase = static_cast<Long>(0x800A0000);
inline constexpr Long kInvalid = kObjectBase + 3001;
inline constexpr Long kNoRecord = kObjectBase + 3021;
inline constexpr Long kIllegal = kObjectBase + 3219;
inline constexpr Long kNotUpdatable = kObjectBase + 3251;
inline constexpr Long kNotFound = kObjectBase + 3265;
inline constexpr Long kWrongType = kObjectBase + 3421;
inline constexpr Long kClosed = kObjectBase + 3704;
inline constexpr Long kOpen = kObjectBase + 3705;
inline constexpr Long kBadConnection = kObjectBase + 3709;

class AdoRecordsetTest : public testing::Test {
 protected:
  void SetUp() override {
    memory_table = &table_;
    table_.rows = {MemoryTable::MakeRow(1, u"one"), MemoryTable::MakeRow(2, u"two"),
                   MemoryTable::MakeRow(3, NullValue{}, ByteArray({1, 2, 3, 4, 5}))};
    connection_ = std::make_shared<AdoConnection>(&OpenMemory);
    connection_->Open(u"", u"", u"", -1);
  }

  // Opened on all rows.
  std::shared_ptr<AdoRecordset> Open(Long lock_type = 3) {
    auto rows = std::make_shared<AdoRecordset>();
    rows->Open(u"rows", connection_, kUnspecified, lock_type, kUnspecified);
    table_.calls.clear();
    return rows;
  }
  static Variant Get(Object& object, std::string_view name, std::vector<Variant> arguments = {}) {
    return object.Get(name, arguments);
  }
  static Variant Call(Object& object, std::string_view name, std::vector<Variant> arguments = {}) {
    return object.Call(name, arguments);
  }
  static FieldRef FieldOf(Recordset& rows, std::u16string_view name) {
    return rows.GetFields()->GetItem(name);
  }
  static Variant Value(Recordset& rows, std::u16string_view name) {
    return FieldOf(rows, name)->GetValue();
  }
  static void SetValue(Recordset& rows, std::u16string_view name, Variant value) {
    FieldOf(rows, name)->Set("Value", value);
  }

  MemoryTable table_;
  std::shared_ptr<AdoConnection> connection_;
};

}  // namespace vandpublic::ado

#endif
