// A file's handle that closes itself.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_SYSTEM_HANDLE_H
#define VANDPUBLIC_PLATFORM_WINDOWS_SYSTEM_HANDLE_H

#include <windows.h>

#include <utility>

namespace vandpublic {

class SystemHandle {
 public:
  explicit SystemHandle(HANDLE handle) noexcept : handle_(handle) {}
  ~SystemHandle() {
    if (IsOpen()) CloseHandle(handle_);
  }
  SystemHandle(SystemHandle&& other) noexcept : handle_(other.Release()) {}
  SystemHandle& operator=(SystemHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }

  bool IsOpen() const noexcept { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const noexcept { return handle_; }
  // Gives the handle away; nothing closes it then.
  HANDLE Release() noexcept { return std::exchange(handle_, INVALID_HANDLE_VALUE); }

 private:
  HANDLE handle_;
};

}  // namespace vandpublic

#endif
