// COM on a thread, for as long as something of ours needs it.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_APARTMENT_H
#define VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_APARTMENT_H

#include <windows.h>

namespace vandpublic {

// Takes part in the thread's apartment; where COM is not in use there yet (a program that is no
// automation client), it enters a single-threaded one. Leaves it again when destroyed on the same
// thread; on another thread nothing is left, which costs the first thread nothing but memory.
class Apartment {
 public:
  Apartment() noexcept;
  ~Apartment();
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;

 private:
  DWORD thread_;
  bool entered_;
};

}  // namespace vandpublic

#endif
