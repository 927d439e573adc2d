// Memory that ends at a chosen request.
#ifndef VANDPUBLIC_TESTS_MEMORY_FAILING_MEMORY_H
#define VANDPUBLIC_TESTS_MEMORY_FAILING_MEMORY_H

#include <cstddef>

namespace vandpublic {

// What counts as much memory: a long text, not the parts of a small object. The JSON library asks
// for a little even where it gives memory back, and nothing helps a process that has none at all.
inline constexpr std::size_t kMuchMemory = 4096;

// While one lives, the n-th request of this thread for so much memory or more, counted from 1,
// raises std::bad_alloc. All others are served.
class FailingRequest {
 public:
  explicit FailingRequest(std::size_t n) noexcept;
  FailingRequest(const FailingRequest&) = delete;
  FailingRequest& operator=(const FailingRequest&) = delete;
  ~FailingRequest();
  // Whether the request has come.
  bool HasFailed() const noexcept;
};

}  // namespace vandpublic

#endif
