// Why a client gets "class not registered", or that it should not.
#ifndef VANDPUBLIC_COM_COM_CHECK_H
#define VANDPUBLIC_COM_COM_CHECK_H

#include <string>

namespace vandpublic {

struct RegistrationReport {
  // Lines of UTF-8 for an administrator: what is registered for programs of each bitness, with the
  // cause and the remedy where a client would fail.
  std::string text;
  // Nothing that is registered is broken, and a program like this one can create the class.
  bool is_good = false;
};

// Reads the registry as COM does for 64-bit and for 32-bit programs, looks at the files that it
// names, and creates an object. Changes nothing.
RegistrationReport CheckRegistration();

}  // namespace vandpublic

#endif
