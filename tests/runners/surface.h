// The ways to reach the component that every case runs on.
#ifndef VANDPUBLIC_TESTS_RUNNERS_SURFACE_H
#define VANDPUBLIC_TESTS_RUNNERS_SURFACE_H

#include <memory>
#include <stdexcept>
#include <string>

#include "cli/json_text.h"

namespace vandpublic {

// Why a case cannot run on this machine.
class CannotRunHere : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Surface {
 public:
  // Whatever runs behind the surface ends with it.
  virtual ~Surface() = default;

  // The reply to a request of the pipe's protocol. Raises std::runtime_error when there is none.
  virtual Json Ask(const Json& request) = 0;

  // The folder of the program that holds the component, as the component must see it.
  virtual std::string ComponentFolder() const = 0;

  // Ends the session; a problem with the way it ended, or nothing.
  virtual std::string Finish() = 0;
};

// What a component finds around it.
struct Surroundings {
  int code_page = 1252;
  std::string registry_file;  // empty: the system's
};

// Sets them for the components that this process creates from now on. Raises CannotRunHere.
void UseSurroundings(const Surroundings& surroundings);

// In this process: a new component, called by name.
std::unique_ptr<Surface> MakeCppSurface(const Surroundings& surroundings);

// The other surfaces of the system that the runner is built for, by name; null for unknown ones.
//
//   pipe  a new process of the tool with the path `argument`, `TOOL pipe --codepage N`
//   com   (Windows) an object of the registered class; `argument` is a style of com_component.h
std::unique_ptr<Surface> MakeSystemSurface(const std::string& name, const std::string& argument,
                                           const Surroundings& surroundings);

}  // namespace vandpublic

#endif
