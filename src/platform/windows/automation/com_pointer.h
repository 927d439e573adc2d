// A counted reference to a COM object.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_COM_POINTER_H
#define VANDPUBLIC_PLATFORM_WINDOWS_AUTOMATION_COM_POINTER_H

#include <utility>

namespace vandpublic {

//   ComPointer<ITypeInfo> type;
//   object->GetTypeInfo(0, 0, type.Receive());
//   auto shared = ComPointer<IDispatch>::Sharing(callers_pointer);
template <class T>
class ComPointer {
 public:
  ComPointer() = default;
  ~ComPointer() {
    if (object_ != nullptr) object_->Release();
  }
  ComPointer(const ComPointer& other) : object_(other.object_) {
    if (object_ != nullptr) object_->AddRef();
  }
  ComPointer(ComPointer&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPointer& operator=(ComPointer other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  // Adds a reference of its own to the caller's pointer, which may be null.
  static ComPointer Sharing(T* object) {
    ComPointer pointer;
    pointer.object_ = object;
    if (object != nullptr) object->AddRef();
    return pointer;
  }

  // Where a function that hands out a reference stores it. The pointer must be null.
  T** Receive() noexcept { return &object_; }

  T* get() const noexcept { return object_; }
  T* operator->() const noexcept { return object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }

 private:
  T* object_ = nullptr;
};

}  // namespace vandpublic

#endif
