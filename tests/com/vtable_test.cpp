// Early-bound calls, errors as vtable callers get them, and the object's other interfaces.
#include <ocidl.h>

#include "com/guids.h"
#include "com/server_fixture.h"

namespace vandpublic {
namespace {

using Vtable = ComTest;

struct LastError {
  bool is_there = false;
  GUID interface_id{};
  Text source{nullptr};
  Text description{nullptr};
  bool help_is_null = false;
};

void ReadLastError(LastError& error) {
  ComPointer<IErrorInfo> info;
  error.is_there = GetErrorInfo(0, info.Receive()) == S_OK;
  if (!error.is_there) return;
  Text help(nullptr);
  info->GetGUID(&error.interface_id);
  info->GetSource(&error.source);
  info->GetDescription(&error.description);
  info->GetHelpFile(&help);
  error.help_is_null = help.str().empty();
}

TEST_F(Vtable, members_of_every_result_type) {
  Text hex(L"1F");
  VARIANT_BOOL truth = 0;
  LONG number = 0;
  Text text(nullptr);
  Bytes bytes;
  short length = 0;
  EXPECT_EQ(object().IsHex(hex, &truth), S_OK);
  EXPECT_EQ(truth, VARIANT_TRUE);
  EXPECT_EQ(object().HexToDec(hex, &number), S_OK);
  EXPECT_EQ(number, 31);
  EXPECT_EQ(object().BitToHex(1, 1, 0, 1, &text), S_OK);
  EXPECT_EQ(text.str(), L"B");
  VARIANT_BOOL left = VARIANT_TRUE;
  EXPECT_EQ(object().FstrHexStrToByte(hex, 4, &left, nullptr, &bytes), S_OK);
  EXPECT_EQ(bytes.values().size(), 4u);
  EXPECT_EQ(object().FstrActualLen(hex, nullptr, &length), S_OK);
  EXPECT_EQ(length, 2);
  VARIANT value = Number(7);
  VARIANT returned{};
  LONG type = 2;
  EXPECT_EQ(object().NotNull(&value, &type, &returned), S_OK);
  EXPECT_EQ(returned.vt, VT_I2);
  enumDebugMode mode = DEBUG_MODE_MSGBOX;
  EXPECT_EQ(object().get_DebugMode(&mode), S_OK);
  EXPECT_EQ(mode, DEBUG_MODE_OFF);
}

TEST_F(Vtable, a_members_own_error_is_on_the_thread) {
  Text text(L"G");
  LONG number = 5;
  EXPECT_EQ(static_cast<unsigned long>(object().HexToDec(text, &number)), 0x80040013ul);
  EXPECT_EQ(number, 0);
  LastError error;
  ReadLastError(error);
  ASSERT_TRUE(error.is_there);
  EXPECT_EQ(error.interface_id, kInterfaceGuid);
  EXPECT_EQ(error.source.str(), L"clsCommon.HexToDec");
  EXPECT_FALSE(error.description.str().empty());
  EXPECT_TRUE(error.help_is_null);
}

TEST_F(Vtable, an_empty_description_is_not_null) {
  Text text(L"80000000");
  LONG number = 0;
  EXPECT_EQ(static_cast<unsigned long>(object().HexToDec(text, &number)), 0x80040013ul);
  LastError error;
  ReadLastError(error);
  ASSERT_TRUE(error.is_there);
  EXPECT_FALSE(error.description.IsNull());
  EXPECT_EQ(error.description.str(), L"");
}

TEST_F(Vtable, a_plain_fault_has_the_runtimes_number) {
  short slot = 17;
  EXPECT_EQ(static_cast<unsigned long>(object().EnableTimer(&slot)), 0x800A0009ul);
  LastError error;
  ReadLastError(error);
  EXPECT_EQ(error.source.str(), L"Public_Module");
  EXPECT_EQ(error.description.str(), L"Subscript out of range");
}

TEST_F(Vtable, null_pointers_are_left_out_or_refused) {
  Text text(L"ab");
  Text padded(nullptr);
  EXPECT_EQ(object().FstrPadLeft(text, 4, nullptr, nullptr, &padded), S_OK);
  EXPECT_EQ(object().IsHex(text, nullptr), E_POINTER);
  Bytes array({1});
  short count = 1;
  VARIANT_BOOL done = 0;
  EXPECT_EQ(object().CpyByteArray(nullptr, &array, &count, nullptr, nullptr, &done), E_POINTER);
  EXPECT_EQ(object().EnableTimer(nullptr), S_OK);
  EXPECT_EQ(object().get_AppPath(nullptr), E_POINTER);
}

TEST_F(Vtable, an_absent_text_is_told_from_an_empty_one_where_that_counts) {
  VARIANT_BOOL is_null = 0;
  EXPECT_EQ(object().FstrIsNullExt(nullptr, VARIANT_TRUE, VARIANT_TRUE, &is_null), S_OK);
  EXPECT_EQ(is_null, VARIANT_TRUE);
  EXPECT_EQ(object().put_AppPath(nullptr), S_OK);
  Text path(nullptr);
  EXPECT_EQ(object().get_AppPath(&path), S_OK);
  EXPECT_FALSE(path.IsNull());
}

TEST_F(Vtable, texts_by_reference_are_replaced) {
  Text key(L"01 23 45 67 89 AB CD EF FE DC BA 98 76 54 32 10");
  VARIANT source = Number(0);
  Text plain(L"abc");
  source = Borrowed(plain);
  VARIANT result{};
  VARIANT_BOOL done = 0;
  EXPECT_EQ(object().SystemEncrypt(&key, &source, &result, VARIANT_FALSE, VARIANT_FALSE,
                                   VARIANT_TRUE, nullptr, &done),
            S_OK);
  EXPECT_EQ(done, VARIANT_TRUE);
  EXPECT_EQ(key.str(), L"0123456789ABCDEFFEDCBA9876543210");
  VariantClear(&result);
}

TEST_F(Vtable, failures_have_rich_errors_and_the_class_its_types) {
  ComPointer<ISupportErrorInfo> support;
  ASSERT_EQ(
      object().QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(support.Receive())),
      S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(kInterfaceGuid), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IClassFactory), S_FALSE);

  ComPointer<IProvideClassInfo> provider;
  ASSERT_EQ(
      object().QueryInterface(IID_IProvideClassInfo, reinterpret_cast<void**>(provider.Receive())),
      S_OK);
  ComPointer<ITypeInfo> info;
  ASSERT_EQ(provider->GetClassInfo(info.Receive()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->guid, kClassGuid);
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  info->ReleaseTypeAttr(attributes);
}

TEST_F(Vtable, the_object_has_one_identity) {
  ComPointer<IUnknown> first;
  ComPointer<ISupportErrorInfo> support;
  ComPointer<IUnknown> second;
  object().QueryInterface(IID_IUnknown, reinterpret_cast<void**>(first.Receive()));
  object().QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(support.Receive()));
  support->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(second.Receive()));
  EXPECT_EQ(first.get(), second.get());
  void* nothing = &first;
  EXPECT_EQ(object().QueryInterface(IID_IClassFactory, &nothing), E_NOINTERFACE);
  EXPECT_EQ(nothing, nullptr);
}

TEST_F(Vtable, type_information_comes_from_the_dll_itself) {
  UINT count = 0;
  EXPECT_EQ(object().GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1u);
  ComPointer<ITypeInfo> info;
  EXPECT_EQ(object().GetTypeInfo(1, 0, info.Receive()), DISP_E_BADINDEX);
  ASSERT_EQ(object().GetTypeInfo(0, 0, info.Receive()), S_OK);
  // The system's own way to call goes through the vtable.
  wchar_t name[] = L"HexToDec";
  LPOLESTR names[] = {name};
  DISPID id = 0;
  ASSERT_EQ(info->GetIDsOfNames(names, 1, &id), S_OK);
  EXPECT_EQ(id, IdOf(object(), L"HexToDec"));
  Text hex(L"FF");
  VARIANT argument = Borrowed(hex);
  DISPPARAMS parameters{&argument, nullptr, 1, 0};
  OwnedVariant result;
  ASSERT_EQ(
      info->Invoke(&object(), id, DISPATCH_METHOD, &parameters, result.Receive(), nullptr, nullptr),
      S_OK);
  EXPECT_EQ(result.get().lVal, 255);
}

}  // namespace
}  // namespace vandpublic
