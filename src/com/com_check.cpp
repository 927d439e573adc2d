// The registry's two views, the files behind them, and one attempt.
#include "com/com_check.h"

#include <windows.h>
// After windows.h, which it builds on.
#include <objbase.h>
#include <oleauto.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>

#include "com/guids.h"
#include "com/registration.h"
#include "com/registry_key.h"
#include "platform/windows/automation/apartment.h"
#include "platform/windows/automation/com_pointer.h"
#include "platform/windows/wide_text.h"
#include "runtime/utf8.h"

namespace vandpublic {
namespace {

enum class Bitness { Bits32, Bits64 };

constexpr Bitness kOwnBitness = sizeof(void*) == 8 ? Bitness::Bits64 : Bitness::Bits32;

std::string NameOf(Bitness bitness) { return bitness == Bitness::Bits64 ? "64-bit" : "32-bit"; }
std::string FolderOf(Bitness bitness) { return bitness == Bitness::Bits64 ? "x64" : "x86"; }

std::string Utf8(const std::wstring& text) { return ToUtf8(FromWide(text)); }

// The bitness of a program file; nothing for a file that is none, or for another processor.
std::optional<Bitness> BitnessOfFile(const std::wstring& path) {
  std::ifstream file(std::filesystem::path(path), std::ios::binary);
  IMAGE_DOS_HEADER start{};
  DWORD signature = 0;
  IMAGE_FILE_HEADER header{};
  file.read(reinterpret_cast<char*>(&start), sizeof start);
  file.seekg(start.e_lfanew);
  file.read(reinterpret_cast<char*>(&signature), sizeof signature);
  file.read(reinterpret_cast<char*>(&header), sizeof header);
  if (!file || start.e_magic != IMAGE_DOS_SIGNATURE || signature != IMAGE_NT_SIGNATURE) return {};
  if (header.Machine == IMAGE_FILE_MACHINE_AMD64) return Bitness::Bits64;
  if (header.Machine == IMAGE_FILE_MACHINE_I386) return Bitness::Bits32;
  return {};
}

// A value in what a program of that bitness sees: the user's own classes go before the machine's.
std::optional<std::wstring> ClassesText(const std::wstring& key, Bitness bitness,
                                        const std::wstring& name = L"") {
  const REGSAM view = bitness == Bitness::Bits64 ? KEY_WOW64_64KEY : KEY_WOW64_32KEY;
  for (HKEY const root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
    const auto opened = RegistryKey::Open(root, L"Software\\Classes\\" + key, KEY_READ, view);
    if (!opened) continue;
    if (auto text = opened->Text(name)) return text;
  }
  return {};
}

std::string Remedy(Bitness bitness) {
  return "    remedy: as administrator, regsvr32 " + FolderOf(bitness) + "\\VandPublic.dll\n";
}

// What is wrong with the file that the class names, or nothing.
std::string FileProblem(const std::wstring& path, Bitness bitness) {
  if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) {
    return "the file is missing: " + Utf8(path);
  }
  const auto actual = BitnessOfFile(path);
  if (!actual) return "the file is no DLL for this processor: " + Utf8(path);
  if (*actual != bitness) return "the file is a " + NameOf(*actual) + " DLL: " + Utf8(path);
  return {};
}

class Report {
 public:
  void Say(const std::string& line) { text_ += line + "\n"; }
  void Complain(const std::string& line, Bitness bitness) {
    text_ += line + "\n" + Remedy(bitness);
    ++complaints_;
  }
  RegistrationReport Result(bool created) const { return {text_, created && complaints_ == 0}; }

 private:
  std::string text_;
  int complaints_ = 0;
};

// Whether anything is registered for programs of that bitness.
bool CheckView(Bitness bitness, Report& report) {
  const std::string who = NameOf(bitness) + " programs: ";
  const std::wstring server = L"CLSID\\" + BracedId(kClassId) + L"\\InprocServer32";
  const auto path = ClassesText(server, bitness);
  if (!path) {
    report.Say(who + "the class is not registered for them");
    return false;
  }
  const std::string problem = FileProblem(*path, bitness);
  if (!problem.empty()) {
    report.Complain(who + problem, bitness);
    return true;
  }
  if (ClassesText(server, bitness, L"ThreadingModel") != L"Apartment") {
    report.Complain(who + "ThreadingModel is not Apartment", bitness);
  }
  report.Say(who + Utf8(*path));
  return true;
}

void CheckNames(Bitness bitness, Report& report) {
  for (const std::wstring name : kProgIds) {
    const auto id = ClassesText(name + L"\\CLSID", bitness);
    if (!id) {
      report.Complain(Utf8(name) + ": the name is not registered", bitness);
    } else if (CompareStringOrdinal(id->c_str(), -1, BracedId(kClassId).c_str(), -1, TRUE) !=
               CSTR_EQUAL) {
      report.Complain(Utf8(name) + ": the name stands for another class, " + Utf8(*id), bitness);
    }
  }
}

// Creates an object as a client of this program's bitness does.
bool TryToCreate(Report& report) {
  const Apartment apartment;
  ComPointer<IDispatch> object;
  const HRESULT result = CoCreateInstance(kClassGuid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                          reinterpret_cast<void**>(object.Receive()));
  const std::string who = "creating an object in this " + NameOf(kOwnBitness) + " program: ";
  if (SUCCEEDED(result)) {
    report.Say(who + "done");
    return true;
  }
  char number[16] = {};
  std::snprintf(number, sizeof number, "0x%08lX", static_cast<unsigned long>(result));
  const bool unknown = result == REGDB_E_CLASSNOTREG;
  report.Say(who + (unknown ? "class not registered (" : "failed (") + number + ")");
  return false;
}

bool HasTwoViews() {
  BOOL emulated = FALSE;
  if (kOwnBitness == Bitness::Bits64) return true;
  return IsWow64Process(GetCurrentProcess(), &emulated) && emulated != FALSE;
}

}  // namespace

RegistrationReport CheckRegistration() {
  Report report;
  bool any = false;
  if (HasTwoViews()) any = CheckView(Bitness::Bits64, report);
  any = CheckView(Bitness::Bits32, report) || any;
  if (!any) {
    report.Complain("VandPublic is not registered at all", kOwnBitness);
  } else {
    CheckNames(kOwnBitness, report);
  }
  const bool created = TryToCreate(report);
  if (any && !created) {
    report.Say("    only programs of the bitness that is registered can create the class");
  }
  return report.Result(created);
}

}  // namespace vandpublic
