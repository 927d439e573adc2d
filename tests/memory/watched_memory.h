// Looks for secrets in what a call leaves behind: in heap blocks at the moment they are freed, and
// in the stack that the call ran on.
#ifndef VANDPUBLIC_TESTS_MEMORY_WATCHED_MEMORY_H
#define VANDPUBLIC_TESTS_MEMORY_WATCHED_MEMORY_H

#include <functional>
#include <string>
#include <vector>

#include "runtime/arrays.h"

namespace vandpublic {

// Bytes that must not be found.
struct Secret {
  std::string name;
  std::vector<Byte> bytes;
};

// Runs the work on a fresh stack of its own and gives where which secret was found, one line a
// place: "heap: key", "stack: key". Empty when nothing was left. Of memory that other threads free
// meanwhile nothing is said; one call at a time.
std::vector<std::string> Remains(const std::vector<Secret>& secrets,
                                 const std::function<void()>& work);

}  // namespace vandpublic

#endif
