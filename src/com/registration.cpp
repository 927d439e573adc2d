// The entries as a list, so that what is written and what is removed cannot drift apart.
#include "com/registration.h"

#include <vector>

#include "com/registry_key.h"
#include "members/identity.h"

namespace vandpublic {
namespace {

constexpr const wchar_t* kVersion = L"1.0";
constexpr const wchar_t* kVersionSuffix = L".1";
constexpr const wchar_t* kMarshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr bool kIs64Bit = sizeof(void*) == 8;
constexpr const wchar_t* kPlatform = kIs64Bit ? L"win64" : L"win32";
constexpr REGSAM kOtherView = kIs64Bit ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

struct Entry {
  std::wstring key;
  std::wstring name;
  std::wstring text;
};

std::wstring Widened(std::string_view text) { return {text.begin(), text.end()}; }

HKEY RootOf(RegistrationScope scope) {
  return scope == RegistrationScope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

std::wstring Below(const std::wstring& key) { return L"Software\\Classes\\" + key; }

std::wstring ClassKey() { return L"CLSID\\" + BracedId(kClassId); }
std::wstring InterfaceKey() { return L"Interface\\" + BracedId(kInterfaceId); }
std::wstring LibraryKey() { return L"TypeLib\\" + BracedId(kLibraryId); }
std::wstring LibraryVersionKey() { return LibraryKey() + L"\\" + kVersion; }
std::wstring LibraryPlatformKey() { return LibraryVersionKey() + L"\\0\\" + kPlatform; }

void AddClass(std::vector<Entry>& entries, const std::wstring& path) {
  const std::wstring key = ClassKey();
  const std::wstring name = kProgIds[0];
  entries.push_back({key, L"", name});
  entries.push_back({key + L"\\InprocServer32", L"", path});
  entries.push_back({key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"});
  entries.push_back({key + L"\\ProgID", L"", name + kVersionSuffix});
  entries.push_back({key + L"\\VersionIndependentProgID", L"", name});
  entries.push_back({key + L"\\TypeLib", L"", BracedId(kLibraryId)});
  entries.push_back({key + L"\\Version", L"", kVersion});
  entries.push_back({key + L"\\Programmable", L"", L""});
}

void AddNames(std::vector<Entry>& entries) {
  const std::wstring description = Widened(kLibraryDescription);
  for (const std::wstring name : kProgIds) {
    entries.push_back({name, L"", description});
    entries.push_back({name + L"\\CLSID", L"", BracedId(kClassId)});
    entries.push_back({name + L"\\CurVer", L"", name + kVersionSuffix});
    entries.push_back({name + kVersionSuffix, L"", description});
    entries.push_back({name + kVersionSuffix + L"\\CLSID", L"", BracedId(kClassId)});
  }
}

void AddLibrary(std::vector<Entry>& entries, const std::wstring& path) {
  const std::wstring folder = path.substr(0, path.find_last_of(L'\\'));
  entries.push_back({InterfaceKey(), L"", Widened(kInterfaceName)});
  entries.push_back({InterfaceKey() + L"\\ProxyStubClsid32", L"", kMarshaller});
  entries.push_back({InterfaceKey() + L"\\TypeLib", L"", BracedId(kLibraryId)});
  entries.push_back({InterfaceKey() + L"\\TypeLib", L"Version", kVersion});
  entries.push_back({LibraryVersionKey(), L"", Widened(kLibraryDescription)});
  entries.push_back({LibraryPlatformKey(), L"", path});
  entries.push_back({LibraryVersionKey() + L"\\FLAGS", L"", L"0"});
  entries.push_back({LibraryVersionKey() + L"\\HELPDIR", L"", folder});
}

std::vector<Entry> Entries(const std::wstring& path) {
  std::vector<Entry> entries;
  AddClass(entries, path);
  AddNames(entries);
  AddLibrary(entries, path);
  return entries;
}

LSTATUS RemoveTree(HKEY root, const std::wstring& key) {
  const LSTATUS status = RegDeleteTreeW(root, Below(key).c_str());
  return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status;
}

void RemoveIfEmpty(HKEY root, const std::wstring& key) {
  const auto opened = RegistryKey::Open(root, Below(key), KEY_READ);
  if (opened && opened->IsEmpty()) RegDeleteKeyW(root, Below(key).c_str());
}

bool IsThere(HKEY root, const std::wstring& key, REGSAM view = 0) {
  return RegistryKey::Open(root, Below(key), KEY_READ, view).has_value();
}

// Whether the DLL of the other bitness is registered too. A system of one bitness has one view.
bool HasOtherBitness(HKEY root) {
  BOOL emulated = FALSE;
  const bool two_views = kIs64Bit || (IsWow64Process(GetCurrentProcess(), &emulated) && emulated);
  if (!two_views) return false;
  const std::wstring library = LibraryVersionKey() + L"\\0\\" + (kIs64Bit ? L"win32" : L"win64");
  return IsThere(root, library) && IsThere(root, ClassKey() + L"\\InprocServer32", kOtherView);
}

LSTATUS RemoveShared(HKEY root) {
  LSTATUS status = RemoveTree(root, LibraryVersionKey());
  RemoveIfEmpty(root, LibraryKey());
  for (const std::wstring name : kProgIds) {
    for (const std::wstring& key : {name, name + kVersionSuffix}) {
      const LSTATUS removed = RemoveTree(root, key);
      if (status == ERROR_SUCCESS) status = removed;
    }
  }
  return status;
}

}  // namespace

std::wstring BracedId(std::string_view id) { return L"{" + Widened(id) + L"}"; }

HRESULT Register(RegistrationScope scope, const std::wstring& module_path) {
  if (module_path.empty()) return E_UNEXPECTED;
  for (const Entry& entry : Entries(module_path)) {
    const LSTATUS status = WriteText(RootOf(scope), Below(entry.key), entry.name, entry.text);
    if (status == ERROR_SUCCESS) continue;
    Unregister(scope);
    return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
  }
  return S_OK;
}

HRESULT Unregister(RegistrationScope scope) {
  HKEY const root = RootOf(scope);
  LSTATUS status = RemoveTree(root, LibraryPlatformKey());
  for (const std::wstring& key : {ClassKey(), InterfaceKey()}) {
    const LSTATUS removed = RemoveTree(root, key);
    if (status == ERROR_SUCCESS) status = removed;
  }
  if (!HasOtherBitness(root)) {
    const LSTATUS removed = RemoveShared(root);
    if (status == ERROR_SUCCESS) status = removed;
  }
  // A user's own classes may have been the only ones of their kind.
  if (scope == RegistrationScope::User) {
    for (const wchar_t* const key : {L"CLSID", L"Interface", L"TypeLib"})
      RemoveIfEmpty(root, key);
  }
  return status == ERROR_SUCCESS ? S_OK : HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

}  // namespace vandpublic
