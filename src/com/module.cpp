// The count of uses, the path, and the type library in the resources.
#include "com/module.h"

#include <atomic>

#include "com/argument_place.h"

// The start of this module in memory, which is its handle; the linker defines it.
extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier)

namespace vandpublic {
namespace {

std::atomic<long> use_count{0};

constexpr std::size_t kLongestPath = 32768;

}  // namespace

void ModuleUse::Add() noexcept { ++use_count; }
void ModuleUse::Remove() noexcept { --use_count; }
bool ModuleUse::IsAny() noexcept { return use_count != 0; }

std::wstring ModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(reinterpret_cast<HMODULE>(&__ImageBase), path.data(),
                                            static_cast<DWORD>(path.size()));
    if (length < path.size()) return path.substr(0, length);
    if (path.size() >= kLongestPath) return {};
    path.resize(2 * path.size());
  }
}

ComPointer<ITypeInfo> LoadTypeInfo(const GUID& id) {
  ComPointer<ITypeLib> library;
  ComPointer<ITypeInfo> info;
  // Without registering it: the library is found where the code is, whatever is registered.
  Require(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.Receive()));
  Require(library->GetTypeInfoOfGuid(id, info.Receive()));
  return info;
}

}  // namespace vandpublic
