// Prints what a client finds in a type library: one line an attribute, function, parameter or
// constant. tests/com/type_library.txt is this output, frozen.
//
//   dump_type_library FILE
#include <windows.h>

#include <oleauto.h>

#include <cstdio>
#include <map>
#include <string>

namespace {

std::string Narrow(BSTR text) {
  if (text == nullptr) return "(none)";
  std::string narrow;
  for (UINT i = 0; i < SysStringLen(text); ++i) {
    const wchar_t unit = text[i];
    narrow += unit < 128 ? static_cast<char>(unit) : '?';
  }
  return narrow;
}

std::string IdText(const GUID& id) {
  wchar_t text[40] = {};
  StringFromGUID2(id, text, 40);
  std::string narrow;
  for (const wchar_t* unit = text; *unit != 0; ++unit)
    narrow += static_cast<char>(*unit);
  return narrow;
}

std::string Documentation(ITypeLib* library) {
  BSTR name = nullptr;
  BSTR help = nullptr;
  library->GetDocumentation(-1, &name, &help, nullptr, nullptr);
  const std::string text = Narrow(name) + " \"" + Narrow(help) + "\"";
  SysFreeString(name);
  SysFreeString(help);
  return text;
}

std::string NameOf(ITypeInfo* info, MEMBERID member) {
  BSTR name = nullptr;
  info->GetDocumentation(member, &name, nullptr, nullptr, nullptr);
  const std::string text = Narrow(name);
  SysFreeString(name);
  return text;
}

std::string TypeText(ITypeInfo* info, const TYPEDESC& type) {
  static const std::map<VARTYPE, std::string> kNames = {
      {VT_I2, "short"},        {VT_I4, "long"},
      {VT_UI1, "byte"},        {VT_BOOL, "bool"},
      {VT_BSTR, "BSTR"},       {VT_VARIANT, "VARIANT"},
      {VT_VOID, "void"},       {VT_DISPATCH, "IDispatch"},
      {VT_HRESULT, "HRESULT"}, {VT_UNKNOWN, "IUnknown"},
      {VT_INT, "int"},         {VT_UINT, "uint"}};
  if (type.vt == VT_PTR) return TypeText(info, *type.lptdesc) + "*";
  if (type.vt == VT_SAFEARRAY) return "array of " + TypeText(info, *type.lptdesc);
  if (type.vt == VT_USERDEFINED) {
    ITypeInfo* referred = nullptr;
    if (FAILED(info->GetRefTypeInfo(type.hreftype, &referred))) return "(unknown)";
    const std::string name = NameOf(referred, MEMBERID_NIL);
    referred->Release();
    return name;
  }
  const auto found = kNames.find(type.vt);
  return found == kNames.end() ? "vt" + std::to_string(type.vt) : found->second;
}

std::string ValueText(VARIANT& value) {
  VARIANT text;
  VariantInit(&text);
  if (FAILED(VariantChangeType(&text, &value, 0, VT_BSTR))) return "?";
  std::string shown = Narrow(V_BSTR(&text));
  if (V_VT(&value) == VT_BSTR) shown = "\"" + shown + "\"";
  VariantClear(&text);
  return shown + " (type " + std::to_string(V_VT(&value)) + ")";
}

std::string ParameterText(ITypeInfo* info, const ELEMDESC& parameter) {
  const USHORT flags = parameter.paramdesc.wParamFlags;
  std::string text = "[";
  if (flags & PARAMFLAG_FIN) text += "in ";
  if (flags & PARAMFLAG_FOUT) text += "out ";
  if (flags & PARAMFLAG_FRETVAL) text += "retval ";
  if (flags & PARAMFLAG_FOPT) text += "optional ";
  text.back() = ']';
  text += " " + TypeText(info, parameter.tdesc);
  if (flags & PARAMFLAG_FHASDEFAULT) {
    text += " = " + ValueText(parameter.paramdesc.pparamdescex->varDefaultValue);
  }
  return text;
}

void DumpFunction(ITypeInfo* info, UINT index, std::size_t pointer_size) {
  FUNCDESC* function = nullptr;
  if (FAILED(info->GetFuncDesc(index, &function))) return;
  static const std::map<int, std::string> kKinds = {{INVOKE_FUNC, "method"},
                                                    {INVOKE_PROPERTYGET, "get"},
                                                    {INVOKE_PROPERTYPUT, "put"},
                                                    {INVOKE_PROPERTYPUTREF, "putref"}};
  BSTR names[32] = {};
  UINT count = 0;
  info->GetNames(function->memid, names, 32, &count);
  std::printf("  slot %d id %ld %s %s: %s, flags %d\n",
              static_cast<int>(static_cast<std::size_t>(function->oVft) / pointer_size),
              function->memid, kKinds.at(function->invkind).c_str(), Narrow(names[0]).c_str(),
              TypeText(info, function->elemdescFunc.tdesc).c_str(), function->wFuncFlags);
  for (SHORT i = 0; i < function->cParams; ++i) {
    const UINT name = static_cast<UINT>(i) + 1;
    std::printf("    %s %s\n", ParameterText(info, function->lprgelemdescParam[i]).c_str(),
                name < count ? Narrow(names[name]).c_str() : "(unnamed)");
  }
  for (BSTR name : names)
    SysFreeString(name);
  info->ReleaseFuncDesc(function);
}

void DumpConstants(ITypeInfo* info, UINT count) {
  for (UINT i = 0; i < count; ++i) {
    VARDESC* variable = nullptr;
    if (FAILED(info->GetVarDesc(i, &variable))) continue;
    if (variable->varkind == VAR_CONST) {
      std::printf("  %s = %s\n", NameOf(info, variable->memid).c_str(),
                  ValueText(*variable->lpvarValue).c_str());
    }
    info->ReleaseVarDesc(variable);
  }
}

void DumpImplemented(ITypeInfo* info, UINT count) {
  for (UINT i = 0; i < count; ++i) {
    HREFTYPE type = 0;
    int flags = 0;
    ITypeInfo* implemented = nullptr;
    if (FAILED(info->GetRefTypeOfImplType(i, &type))) continue;
    info->GetImplTypeFlags(i, &flags);
    if (FAILED(info->GetRefTypeInfo(type, &implemented))) continue;
    std::printf("  implements %s, flags %d\n", NameOf(implemented, MEMBERID_NIL).c_str(), flags);
    implemented->Release();
  }
}

// The functions stand in the vtable half of a dual interface; the dispatch half repeats them.
void DumpInterface(ITypeInfo* info) {
  HREFTYPE type = 0;
  ITypeInfo* half = nullptr;
  if (FAILED(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &type))) return;
  if (FAILED(info->GetRefTypeInfo(type, &half))) return;
  TYPEATTR* attributes = nullptr;
  half->GetTypeAttr(&attributes);
  std::printf("  vtable of %d slots, flags %04x\n",
              attributes->cbSizeVft / static_cast<int>(sizeof(void*)), attributes->wTypeFlags);
  const int pointer = static_cast<int>(sizeof(void*));
  for (UINT i = 0; i < attributes->cFuncs; ++i)
    DumpFunction(half, i, static_cast<std::size_t>(pointer));
  half->ReleaseTypeAttr(attributes);
  half->Release();
}

void DumpType(ITypeInfo* info) {
  static const std::map<int, std::string> kKinds = {{TKIND_ENUM, "enum"},
                                                    {TKIND_DISPATCH, "dispatch interface"},
                                                    {TKIND_INTERFACE, "interface"},
                                                    {TKIND_COCLASS, "class"}};
  TYPEATTR* attributes = nullptr;
  if (FAILED(info->GetTypeAttr(&attributes))) return;
  const auto kind = kKinds.find(attributes->typekind);
  std::printf("%s %s", kind == kKinds.end() ? "other" : kind->second.c_str(),
              NameOf(info, MEMBERID_NIL).c_str());
  if (attributes->typekind != TKIND_ENUM) std::printf(" %s", IdText(attributes->guid).c_str());
  std::printf(" version %d.%d, flags %04x\n", attributes->wMajorVerNum, attributes->wMinorVerNum,
              attributes->wTypeFlags);
  if (attributes->typekind == TKIND_ENUM) DumpConstants(info, attributes->cVars);
  if (attributes->typekind == TKIND_COCLASS) DumpImplemented(info, attributes->cImplTypes);
  if (attributes->typekind == TKIND_DISPATCH) DumpInterface(info);
  info->ReleaseTypeAttr(attributes);
}

int Dump(const wchar_t* path) {
  ITypeLib* library = nullptr;
  const HRESULT result = LoadTypeLibEx(path, REGKIND_NONE, &library);
  if (FAILED(result)) {
    std::fprintf(stderr, "cannot load it: %08lx\n", static_cast<unsigned long>(result));
    return 1;
  }
  TLIBATTR* attributes = nullptr;
  library->GetLibAttr(&attributes);
  std::printf("library %s %s version %d.%d, locale %lu\n", Documentation(library).c_str(),
              IdText(attributes->guid).c_str(), attributes->wMajorVerNum, attributes->wMinorVerNum,
              attributes->lcid);
  library->ReleaseTLibAttr(attributes);
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    ITypeInfo* info = nullptr;
    if (FAILED(library->GetTypeInfo(i, &info))) continue;
    DumpType(info);
    info->Release();
  }
  library->Release();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  wchar_t path[MAX_PATH] = {};
  MultiByteToWideChar(CP_ACP, 0, argv[1], -1, path, MAX_PATH);
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const int status = Dump(path);
  CoUninitialize();
  return status;
}
