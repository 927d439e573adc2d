// The DLL beside the test program, loaded by its path: no registration is needed, none is used.
#ifndef VANDPUBLIC_TESTS_COM_SERVER_FIXTURE_H
#define VANDPUBLIC_TESTS_COM_SERVER_FIXTURE_H

#include <windows.h>
// After windows.h, which it builds on.
#include <oleauto.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "com/public_module.h"
#include "platform/windows/automation/com_pointer.h"
#include "platform/windows/automation/owned_variant.h"

namespace vandpublic {

// An entry point of the DLL, which is loaded at the first call and stays.
HMODULE ServerModule();
template <class Function>
Function EntryPoint(const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(ServerModule(), name)));
}

ComPointer<IClassFactory> MakeFactory();
ComPointer<_clsPublic> MakeObject();

// COM in use on the thread, and an object that neither logs nor shows anything.
class ComTest : public testing::Test {
 protected:
  ComTest();
  ~ComTest() override;

  _clsPublic& object() const { return *object_.get(); }

 private:
  ComPointer<_clsPublic> object_;
};

// ---- values

class Text {
 public:
  Text(const wchar_t* text) : text_(SysAllocString(text)) {}
  ~Text() { SysFreeString(text_); }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  operator BSTR() const { return text_; }
  BSTR* operator&() { return &text_; }
  std::wstring str() const { return {text_, text_ + SysStringLen(text_)}; }
  bool IsNull() const { return text_ == nullptr; }
  UINT Bytes() const { return SysStringByteLen(text_); }

 private:
  BSTR text_;
};

class Bytes {
 public:
  // Not dimensioned.
  Bytes() = default;
  Bytes(std::initializer_list<unsigned> bytes, LONG lower = 0);
  ~Bytes() {
    if (array_ != nullptr) SafeArrayDestroy(array_);
  }
  Bytes(const Bytes&) = delete;
  Bytes& operator=(const Bytes&) = delete;
  SAFEARRAY** operator&() { return &array_; }
  SAFEARRAY* get() const { return array_; }
  std::vector<unsigned> values() const;
  LONG lower() const;

 private:
  SAFEARRAY* array_ = nullptr;
};

VARIANT Number(short value);
VARIANT Number32(LONG value);
VARIANT Real(double value);
VARIANT Truth(bool value);
VARIANT Missing();
VARIANT Borrowed(BSTR text);
VARIANT Reference(VARIANT& variable);
VARIANT Reference(VARTYPE type, void* data);

// ---- late-bound calls

struct Outcome {
  HRESULT result = S_OK;
  OwnedVariant value;
  HRESULT code = S_OK;
  std::wstring source;
  std::wstring description;
  bool texts_are_there = false;
  UINT bad_argument = 99;

  std::wstring text() const;
};

// Arguments in their order. `flags` as in Invoke.
Outcome Call(IDispatch& object, const wchar_t* name, std::vector<VARIANT> arguments,
             WORD flags = DISPATCH_METHOD);
// With names for the last arguments.
Outcome CallNamed(IDispatch& object, const wchar_t* name, std::vector<VARIANT> positional,
                  const std::vector<std::pair<const wchar_t*, VARIANT>>& named);
DISPID IdOf(IDispatch& object, const wchar_t* name);

}  // namespace vandpublic

#endif
