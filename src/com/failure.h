// Exceptions of the component as COM's failures.
#ifndef VANDPUBLIC_COM_FAILURE_H
#define VANDPUBLIC_COM_FAILURE_H

#include <windows.h>
// After windows.h, which it builds on.
#include <oleauto.h>

#include <optional>
#include <string>

namespace vandpublic {

// What a failed call tells its caller. Runtime faults have the numbers 0x800A0000 + n, so that
// script clients see n; all others their own.
struct Failure {
  struct Description {
    std::u16string source;
    std::u16string text;
  };

  HRESULT result = E_UNEXPECTED;
  // Set for what a member raised; not for arguments that automation refuses.
  std::optional<Description> description;
  // Of an argument that was refused: its position among the parameters, counted from 0.
  std::optional<std::size_t> parameter;
};

// The exception in flight. Knows them all.
Failure CurrentFailure() noexcept;

// As a late-bound caller gets it: DISP_E_EXCEPTION and the record, where there is a description.
// The texts are never null; no help file and no help context.
HRESULT ReportToInvoke(const Failure& failure, EXCEPINFO* record) noexcept;

// As a vtable caller gets it: the result, and an error info record on the thread.
HRESULT ReportToVtable(const Failure& failure) noexcept;

}  // namespace vandpublic

#endif
