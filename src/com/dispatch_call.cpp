// Which slot is meant, and which argument belongs to which parameter.
#include "com/dispatch_call.h"

#include <algorithm>
#include <array>
#include <string>

#include "com/member_call.h"
#include "invoke/late_call.h"
#include "members/member_table.h"

namespace vandpublic {
namespace {

// Names of the interface are ASCII: a text with anything else matches none.
std::string Narrow(const wchar_t* text) {
  std::string narrow;
  for (; text != nullptr && *text != L'\0'; ++text)
    narrow += *text < 0x80 ? static_cast<char>(*text) : '?';
  return narrow;
}

const MemberInfo* FindMember(const std::string& name) noexcept {
  const auto table = MemberTable();
  const auto found = std::find_if(table.begin(), table.end(), [&](const MemberInfo& member) {
    return SameName(member.name, name);
  });
  return found == table.end() ? nullptr : &*found;
}

// The id of each slot; counted once, for every late-bound call looks through them.
const std::array<DISPID, kSlotCount>& Ids() noexcept {
  static const std::array<DISPID, kSlotCount> ids = [] {
    std::array<DISPID, kSlotCount> counted{};
    for (std::size_t i = 0; i < kSlotCount; ++i)
      counted[i] = DispatchId(i);
    return counted;
  }();
  return ids;
}

DISPID IdOf(const MemberInfo& member) noexcept {
  return Ids()[static_cast<std::size_t>(&member - MemberTable().data())];
}

// The slot of the id for that use of it.
std::optional<std::size_t> FindSlotFor(DISPID id, WORD flags) noexcept {
  for (std::size_t i = 0; i < kSlotCount; ++i) {
    if (Ids()[i] != id) continue;
    const SlotKind kind = MemberTable()[i].kind;
    const WORD wanted = kind == SlotKind::Method        ? DISPATCH_METHOD
                        : kind == SlotKind::PropertyGet ? DISPATCH_PROPERTYGET
                                                        : DISPATCH_PROPERTYPUT;
    if ((flags & wanted) != 0) return i;
  }
  return std::nullopt;
}

// The caller's arguments in the order of the parameters.
struct OrderedArguments {
  std::array<VARIANTARG*, kMostParameters> arguments{};
  std::array<UINT, kMostParameters> places{};  // where each stands in the caller's array
  std::size_t count = 0;

  void Place(std::size_t parameter, VARIANTARG& argument, UINT place) {
    arguments[parameter] = &argument;
    places[parameter] = place;
    count = std::max(count, parameter + 1);
  }
};

// Positional arguments stand last first, behind the named ones.
HRESULT Order(const MemberInfo& member, const DISPPARAMS& given, OrderedArguments& ordered,
              UINT& bad_place) {
  const UINT positional = given.cArgs - given.cNamedArgs;
  if (given.cArgs > member.parameters.size()) return DISP_E_BADPARAMCOUNT;
  for (UINT i = 0; i < positional; ++i) {
    const UINT place = given.cArgs - 1 - i;
    ordered.Place(i, given.rgvarg[place], place);
  }
  for (UINT place = 0; place < given.cNamedArgs; ++place) {
    const DISPID id = given.rgdispidNamedArgs[place];
    const bool is_value = id == DISPID_PROPERTYPUT && member.kind == SlotKind::PropertyPut;
    const auto parameter = is_value ? std::size_t{0} : static_cast<std::size_t>(id);
    const bool known = is_value || (id >= 0 && parameter < member.parameters.size());
    bad_place = place;
    if (!known || ordered.arguments[parameter] != nullptr) return DISP_E_PARAMNOTFOUND;
    ordered.Place(parameter, given.rgvarg[place], place);
  }
  return S_OK;
}

bool IsUsable(const DISPPARAMS* parameters) noexcept {
  if (parameters == nullptr || parameters->cNamedArgs > parameters->cArgs) return false;
  if (parameters->cArgs > 0 && parameters->rgvarg == nullptr) return false;
  return parameters->cNamedArgs == 0 || parameters->rgdispidNamedArgs != nullptr;
}

void Tell(UINT* bad_argument, UINT place) noexcept {
  if (bad_argument != nullptr) *bad_argument = place;
}

}  // namespace

HRESULT FindIds(LPOLESTR* names, UINT count, DISPID* ids) noexcept {
  if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
  try {
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const MemberInfo* const member = FindMember(Narrow(names[0]));
    if (member == nullptr) return DISP_E_UNKNOWNNAME;
    ids[0] = IdOf(*member);
    HRESULT result = S_OK;
    for (UINT i = 1; i < count; ++i) {
      const auto parameter = FindParameter(*member, Narrow(names[i]));
      if (parameter) ids[i] = static_cast<DISPID>(*parameter);
      if (!parameter) result = DISP_E_UNKNOWNNAME;
    }
    return result;
  } catch (...) {
    return CurrentFailure().result;
  }
}

HRESULT InvokeMember(clsPublic& object, DISPID member, LCID locale, WORD flags,
                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                     UINT* bad_argument) noexcept {
  if (result != nullptr) VariantInit(result);
  if (!IsUsable(parameters)) return E_INVALIDARG;
  const auto slot = FindSlotFor(member, flags);
  if (!slot) return DISP_E_MEMBERNOTFOUND;
  OrderedArguments ordered;
  UINT bad_place = 0;
  const HRESULT order = Order(MemberTable()[*slot], *parameters, ordered, bad_place);
  if (FAILED(order)) {
    if (order == DISP_E_PARAMNOTFOUND) Tell(bad_argument, bad_place);
    return order;
  }
  OwnedVariant returned;
  const auto failure =
      CallMember(object, *slot, {ordered.arguments.data(), ordered.count}, locale, returned);
  if (failure) {
    if (failure->parameter && *failure->parameter < kMostParameters) {
      Tell(bad_argument, ordered.places[*failure->parameter]);
    }
    return ReportToInvoke(*failure, exception);
  }
  if (result != nullptr) *result = returned.Release();
  return S_OK;
}

}  // namespace vandpublic
