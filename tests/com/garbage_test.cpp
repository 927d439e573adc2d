// Any values for any members: whatever they are, a call ends with a result.
#include <algorithm>
#include <array>
#include <random>
#include <set>
#include <string>

#include "com/server_fixture.h"
#include "members/member_table.h"

namespace vandpublic {
namespace {

// Members that would write files, or change what the next calls log and show.
const std::set<std::string_view> kLeftOut = {"TextRWWrite",  "AppendText",   "SaveSettingToIni",
                                             "ColumnToFile", "FileToColumn", "DebugMode",
                                             "Init"};

// One value of each kind, owned here; references point into the list itself.
class Pool {
 public:
  explicit Pool(IDispatch* object) {
    for (const wchar_t* text : {L"", L"1F", L"12", L"-1", L"word", L"0123456789ABCDEF"})
      Add(Borrowed(SysAllocString(text)));
    Add(Borrowed(SysAllocStringByteLen("abc", 3)));
    Add(Borrowed(nullptr));
    for (const int number : {-32768, -1, 0, 1, 8, 255, 32767})
      Add(Number(static_cast<short>(number)));
    for (const LONG number : {INT32_MIN, 0, 70000, INT32_MAX})
      Add(Number32(number));
    for (const double number : {-1e300, 0.5, 2.5, 1e300})
      Add(Real(number));
    Add(Truth(true));
    Add(Missing());
    AddType(VT_EMPTY);
    AddType(VT_NULL);
    AddType(VT_DISPATCH);
    AddType(VT_UNKNOWN);
    AddType(VT_CY);
    AddType(VT_DATE);
    AddType(VT_DECIMAL);
    AddType(VT_I8);
    AddType(VT_ERROR);
    AddType(VT_RECORD);
    AddType(999);
    AddType(VT_ARRAY | VT_UI1);
    AddType(VT_ARRAY | VT_VARIANT);
    VARIANT shared{};
    shared.vt = VT_DISPATCH;
    shared.pdispVal = object;
    object->AddRef();
    Add(shared);
    for (const VARTYPE type : {VT_UI1, VT_VARIANT, VT_I4, VT_BSTR}) {
      for (const UINT dimensions : {1u, 2u, 3u}) {
        for (const ULONG count : {0u, 1u, 16u})
          AddArray(type, dimensions, count);
      }
    }
  }
  Pool(const Pool&) = delete;
  Pool& operator=(const Pool&) = delete;
  ~Pool() {
    for (VARIANT& value : values_) {
      if (value.vt == 999 || value.vt == VT_RECORD) value.vt = VT_EMPTY;
      VariantClear(&value);
    }
  }

  // By value, as a reference to a variant, or as a typed reference.
  VARIANT Pick(std::mt19937& random) {
    VARIANT& value = values_[random() % values_.size()];
    const auto way = random() % 3;
    const bool has_plain_type = value.vt != VT_EMPTY && value.vt != VT_NULL &&
                                value.vt != VT_DECIMAL && value.vt != VT_RECORD;
    if (way == 0) return value;
    if (way == 1 || !has_plain_type) return Reference(value);
    return Reference(value.vt, &value.byref);
  }

 private:
  void Add(VARIANT value) { values_.push_back(value); }
  void AddType(VARTYPE type) {
    VARIANT value{};
    value.vt = type;
    Add(value);
  }
  void AddArray(VARTYPE type, UINT dimensions, ULONG count) {
    std::array<SAFEARRAYBOUND, 3> bounds;
    bounds.fill({count, -1});
    VARIANT value{};
    value.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    value.parray = SafeArrayCreate(type, dimensions, bounds.data());
    Add(value);
  }

  std::vector<VARIANT> values_;
};

class Garbage : public ComTest {};

TEST_F(Garbage, is_refused_or_worked_on_by_every_member) {
  constexpr int kCallsOfEach = 400;
  std::mt19937 random(1);
  int answered = 0;
  for (const MemberInfo& member : MemberTable()) {
    if (kLeftOut.contains(member.name)) continue;
    const std::wstring name(member.name.begin(), member.name.end());
    for (int i = 0; i < kCallsOfEach; ++i) {
      // Written values must not pile up: new ones now and then.
      Pool pool(&object());
      std::vector<VARIANT> arguments;
      const std::size_t count = random() % (member.parameters.size() + 2);
      while (arguments.size() < count)
        arguments.push_back(pool.Pick(random));
      const WORD flags = static_cast<WORD>(1u << (random() % 3));
      const Outcome outcome = Call(object(), name.c_str(), arguments, flags);
      // A member's own failure has its texts, automation's own has none.
      EXPECT_EQ(outcome.result == DISP_E_EXCEPTION, outcome.texts_are_there);
      ++answered;
    }
    object().put_DebugMode(DEBUG_MODE_OFF);
  }
  EXPECT_GT(answered, kCallsOfEach * 60);
}

}  // namespace
}  // namespace vandpublic
