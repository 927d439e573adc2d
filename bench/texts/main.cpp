// The text family beside the peers, in one process: hexadecimal texts and dumps, code pages,
// regular expressions, initialisation files, and a few string members.
//
// Everything runs on a thread with a large stack, because std::wregex needs some 320 bytes of it
// for each character that it repeats over.
#include <pthread.h>

#include <cstdlib>

#include "contest.h"
#include "convert/hex_loops.h"

namespace bench {
namespace {

constexpr std::size_t kStack = std::size_t{512} << 20;

void* Run(void*) {
  AddHex();
  AddCodePages();
  AddExpressions();
  AddSettings();
  AddStrings();
  benchmark::RunSpecifiedBenchmarks();
  return nullptr;
}

int RunOnLargeStack() {
  pthread_attr_t attributes;
  pthread_t thread{};
  const bool started = pthread_attr_init(&attributes) == 0 &&
                       pthread_attr_setstacksize(&attributes, kStack) == 0 &&
                       pthread_create(&thread, &attributes, Run, nullptr) == 0;
  if (!started) return EXIT_FAILURE;
  return pthread_join(thread, nullptr) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  benchmark::AddCustomContext("kernels", std::string(vandpublic::ActiveHexLoops().name));
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  return bench::RunOnLargeStack();
}
