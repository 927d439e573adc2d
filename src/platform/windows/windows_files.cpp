// Files through the system calls themselves: no buffer, so a failing write is seen at once.
#include "platform/windows/windows_files.h"

#include <windows.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "platform/windows/file_lookup.h"
#include "platform/windows/system_handle.h"
#include "platform/windows/windows_paths.h"
#include "runtime/errors.h"

namespace vandpublic {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// What one call reads or writes at most.
constexpr std::size_t kMostBytes = std::size_t{1} << 30;

[[noreturn]] void RaiseLastError(const std::wstring& path) {
  RaiseFault(FaultFromSystemError(GetLastError(), path));
}

class WindowsOutputFile final : public OutputFile {
 public:
  WindowsOutputFile(SystemHandle file, std::wstring path)
      : file_(std::move(file)), path_(std::move(path)) {}

  void Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const auto size = static_cast<DWORD>(std::min(bytes.size(), kMostBytes));
      DWORD written = 0;
      const BOOL done = ::WriteFile(file_.get(), bytes.data(), size, &written, nullptr);
      if (done == 0) RaiseLastError(path_);
      if (written == 0) RaiseFault(FaultNumber::DiskFull);
      bytes.remove_prefix(written);
    }
  }

  void Close() override {
    if (CloseHandle(file_.Release()) == 0) RaiseLastError(path_);
  }

  void GiveUp() noexcept override { file_.Release(); }

 private:
  SystemHandle file_;
  std::wstring path_;
};

std::wstring NameToOpen(std::u16string_view path) {
  std::wstring native = NativePath(path);
  if (native.empty()) RaiseFault(FaultNumber::PathFileAccessError);
  if (native.find_first_of(L"*?") != std::wstring::npos) RaiseFault(FaultNumber::BadFileName);
  return native;
}

// Refuses what opening lets pass, and empties a file that is opened for output: what must not be
// emptied is only known now.
void CheckOpened(const SystemHandle& file, bool existed, OpenMode mode, const std::wstring& path) {
  const DWORD type = GetFileType(file.get());
  if (type == FILE_TYPE_CHAR) return;
  BY_HANDLE_FILE_INFORMATION facts{};
  if (type != FILE_TYPE_DISK) RaiseFault(FaultNumber::PathFileAccessError);
  if (GetFileInformationByHandle(file.get(), &facts) == 0) RaiseLastError(path);
  const bool is_read_only = (facts.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
  const bool is_output = mode == OpenMode::Output;
  if (is_read_only || (is_output && existed && IsHidden(facts.dwFileAttributes))) {
    RaiseFault(FaultNumber::PathFileAccessError);
  }
  if (is_output && SetEndOfFile(file.get()) == 0) RaiseLastError(path);
}

std::int64_t SizeOf(const SystemHandle& file, const std::wstring& path) {
  LARGE_INTEGER size{};
  if (GetFileSizeEx(file.get(), &size) == 0) RaiseLastError(path);
  return size.QuadPart;
}

// Reads until the bytes are full or the file ends. The bytes read; nothing, with GetLastError set,
// on an error.
std::optional<std::size_t> Fill(const SystemHandle& file, std::span<Byte> bytes) {
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const auto size = static_cast<DWORD>(std::min(bytes.size() - filled, kMostBytes));
    DWORD count = 0;
    if (ReadFile(file.get(), bytes.data() + filled, size, &count, nullptr) == 0) {
      return std::nullopt;
    }
    if (count == 0) break;
    filled += count;
  }
  return filled;
}

// An ordinary file, opened for reading.
SystemHandle OpenForReading(const std::wstring& path) {
  SystemHandle file(CreateFileW(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.IsOpen()) RaiseLastError(path);
  if (GetFileType(file.get()) != FILE_TYPE_DISK) RaiseFault(FaultNumber::PathFileAccessError);
  return file;
}

class WindowsInputFile final : public InputFile {
 public:
  WindowsInputFile(SystemHandle file, std::wstring path)
      : file_(std::move(file)), path_(std::move(path)) {}

  std::int64_t Size() override { return SizeOf(file_, path_); }

  std::size_t Read(std::span<Byte> bytes) override {
    const auto count = Fill(file_, bytes);
    if (!count) RaiseLastError(path_);
    return *count;
  }

 private:
  SystemHandle file_;
  std::wstring path_;
};

}  // namespace

std::unique_ptr<OutputFile> WindowsFiles::Open(std::u16string_view path, OpenMode mode) {
  const std::wstring native = NameToOpen(path);
  // With the right to append only, every write goes to the end that the file has then.
  const DWORD access = mode == OpenMode::Append ? DWORD{FILE_APPEND_DATA} : DWORD{GENERIC_WRITE};
  SetLastError(ERROR_SUCCESS);
  SystemHandle file(CreateFileW(native.c_str(), access, kShareAll, nullptr, OPEN_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.IsOpen()) RaiseLastError(native);
  const bool existed = GetLastError() == ERROR_ALREADY_EXISTS;
  CheckOpened(file, existed, mode, native);
  return std::make_unique<WindowsOutputFile>(std::move(file), native);
}

std::string WindowsFiles::ReadAll(std::u16string_view path) {
  const std::wstring native = NameToOpen(path);
  SystemHandle file = OpenForReading(native);
  // Up to the end that the file had when it was opened; somebody may cut it meanwhile.
  const std::int64_t size = SizeOf(file, native);
  if (size > std::numeric_limits<std::ptrdiff_t>::max()) RaiseFault(FaultNumber::OutOfMemory);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  const auto count = Fill(file, {reinterpret_cast<Byte*>(bytes.data()), bytes.size()});
  if (count) {
    bytes.resize(*count);
    return bytes;
  }
  const DWORD error = GetLastError();
  file.Release();  // given up, on purpose
  RaiseFault(FaultFromSystemError(error, native));
}

std::unique_ptr<InputFile> WindowsFiles::OpenToRead(std::u16string_view path) {
  const std::wstring native = NameToOpen(path);
  return std::make_unique<WindowsInputFile>(OpenForReading(native), native);
}

void WindowsFiles::DeleteIfThere(std::u16string_view path) {
  const std::wstring native = NameToOpen(path);
  const DWORD attributes = GetFileAttributesW(native.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return;
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return;
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) RaiseFault(FaultNumber::PermissionDenied);
  if (DeleteFileW(native.c_str()) == 0) RaiseLastError(native);
}

bool WindowsFiles::FindsNormalFile(std::u16string_view path) {
  return NormalFileExists(NativePath(path));
}

bool WindowsFiles::FindsFileOrFolder(std::u16string_view path) {
  return FileOrFolderExists(NativePath(path));
}

}  // namespace vandpublic
