// The ways to reach the component that every case runs on.
#ifndef VANDPUBLIC_TESTS_RUNNERS_SURFACE_H
#define VANDPUBLIC_TESTS_RUNNERS_SURFACE_H

#include <memory>
#include <string>

#include "cli/json_text.h"

namespace vandpublic {

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

// In this process: a new component, called by name.
std::unique_ptr<Surface> MakeCppSurface(const Surroundings& surroundings);

// Through a new process of the tool, `TOOL pipe --codepage N`.
std::unique_ptr<Surface> MakePipeSurface(const std::string& tool, const Surroundings& surroundings);

}  // namespace vandpublic

#endif
