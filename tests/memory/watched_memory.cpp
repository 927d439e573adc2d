// The program's operator delete is replaced, so that every block is searched before it is freed.
#include "memory/watched_memory.h"

#include <malloc.h>
#include <pthread.h>
#include <sys/mman.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>

namespace vandpublic {
namespace {

constexpr std::size_t kMostSecrets = 32;

// Set while a call is watched, on the thread that runs it only.
thread_local const std::vector<Secret>* watched = nullptr;
thread_local std::array<int, kMostSecrets> found_in_heap{};

// Reads memory that the address sanitizer may have marked, too.
[[gnu::no_sanitize("address"), gnu::noinline]] bool Contains(const unsigned char* memory,
                                                             std::size_t size,
                                                             const std::vector<Byte>& bytes) {
  const Byte* const wanted = bytes.data();
  const std::size_t count = bytes.size();
  for (std::size_t i = 0; i + count <= size; ++i) {
    std::size_t same = 0;
    while (same < count && memory[i + same] == wanted[same])
      ++same;
    if (same == count) return true;
  }
  return false;
}

void SearchFreed(const void* block) noexcept {
  if (watched == nullptr || block == nullptr) return;
  const std::size_t size = malloc_usable_size(const_cast<void*>(block));
  for (std::size_t i = 0; i < watched->size(); ++i) {
    if (Contains(static_cast<const unsigned char*>(block), size, (*watched)[i].bytes))
      ++found_in_heap[i];
  }
}

// A stack that stays readable when its thread is gone.
class OwnStack {
 public:
  OwnStack()
      : memory_(mmap(nullptr, kSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) {
    if (memory_ == MAP_FAILED) throw std::runtime_error("no memory for a stack");
  }
  OwnStack(const OwnStack&) = delete;
  OwnStack& operator=(const OwnStack&) = delete;
  ~OwnStack() { munmap(memory_, kSize); }

  void Run(void* (*work)(void*), void* argument) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstack(&attributes, memory_, kSize);
    pthread_t thread{};
    const int error = pthread_create(&thread, &attributes, work, argument);
    pthread_attr_destroy(&attributes);
    if (error != 0) throw std::runtime_error("no thread");
    pthread_join(thread, nullptr);
  }

  bool Holds(const std::vector<Byte>& bytes) const {
    return Contains(static_cast<const unsigned char*>(memory_), kSize, bytes);
  }

 private:
  static constexpr std::size_t kSize = std::size_t{1} << 20;
  void* memory_;
};

struct WatchedCall {
  const std::vector<Secret>* secrets;
  const std::function<void()>* work;
  std::array<int, kMostSecrets> found;
};

void* RunWatched(void* argument) {
  auto& call = *static_cast<WatchedCall*>(argument);
  watched = call.secrets;
  (*call.work)();
  watched = nullptr;
  call.found = found_in_heap;
  return nullptr;
}

}  // namespace

std::vector<std::string> Remains(const std::vector<Secret>& secrets,
                                 const std::function<void()>& work) {
  if (secrets.size() > kMostSecrets) throw std::runtime_error("too many secrets");
  OwnStack stack;
  WatchedCall call{&secrets, &work, {}};
  stack.Run(&RunWatched, &call);
  std::vector<std::string> places;
  for (std::size_t i = 0; i < secrets.size(); ++i) {
    if (call.found[i] != 0) places.push_back("heap: " + secrets[i].name);
    if (stack.Holds(secrets[i].bytes)) places.push_back("stack: " + secrets[i].name);
  }
  return places;
}

}  // namespace vandpublic

void* operator new(std::size_t size) {
  if (void* const block = std::malloc(size == 0 ? 1 : size)) return block;
  throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
  vandpublic::SearchFreed(block);
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }
