// CoInitializeEx and its counterpart.
#include "platform/windows/automation/apartment.h"

#include <objbase.h>

namespace vandpublic {

// Fails where the thread is in the multithreaded apartment, which is as good: the objects we drive
// are reached through IDispatch, from whatever apartment.
Apartment::Apartment() noexcept
    : thread_(GetCurrentThreadId()),
      entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}

Apartment::~Apartment() {
  if (entered_ && GetCurrentThreadId() == thread_) CoUninitialize();
}

}  // namespace vandpublic
