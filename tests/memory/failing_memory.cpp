// The program's operator new is replaced, so that it can fail.
#include "memory/failing_memory.h"

#include <cstdlib>
#include <new>

namespace vandpublic {
namespace {

// How many requests there are up to the one that fails; 0: none does.
thread_local std::size_t requests_left = 0;

void* Serve(std::size_t size) {
  const bool counts = size >= vandpublic::kMuchMemory && requests_left > 0;
  if (counts && --requests_left == 0) throw std::bad_alloc();
  if (void* const block = std::malloc(size == 0 ? 1 : size)) return block;
  throw std::bad_alloc();
}

}  // namespace

FailingRequest::FailingRequest(std::size_t n) noexcept { requests_left = n; }
FailingRequest::~FailingRequest() { requests_left = 0; }
bool FailingRequest::HasFailed() const noexcept { return requests_left == 0; }

}  // namespace vandpublic

void* operator new(std::size_t size) { return vandpublic::Serve(size); }
void* operator new[](std::size_t size) { return vandpublic::Serve(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
