// What the text benchmarks share: a contest is one workload at one size, by us and by the peers.
//
// A contestant is a call that returns its outcome (or a view of it). The first contestant of a
// contest is ours; the outcome of every other is compared with it before anything is measured.
#ifndef VANDPUBLIC_BENCH_TEXTS_CONTEST_H
#define VANDPUBLIC_BENCH_TEXTS_CONTEST_H

#include <benchmark/benchmark.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace bench {

// Outcomes in one form. Hexadecimal digits count in either case.
std::string Canonical(std::string_view text);
std::string Canonical(std::u16string_view text);
std::string Canonical(std::span<const std::uint8_t> bytes);
std::string Canonical(bool truth);

class Contest {
 public:
  // Names are WORKLOAD/WHO/SIZE; neither name may have a "/" in it.
  Contest(std::string workload, std::size_t size) : workload_(std::move(workload)), size_(size) {}

  // Ends the program when the outcome differs from the first one. Who is "engine" (the inner
  // function), "member" (the whole call of the component's member) or the peer's name.
  template <class Call>
  void Add(const std::string& who, Call call) {
    Expect(who, Canonical(call()));
    const std::string name = workload_ + "/" + who + "/" + std::to_string(size_);
    benchmark::RegisterBenchmark(name.c_str(), [call](benchmark::State& state) mutable {
      for (auto _ : state) {
        benchmark::DoNotOptimize(call());
        benchmark::ClobberMemory();
      }
    });
  }

 private:
  void Expect(const std::string& who, const std::string& outcome);

  std::string workload_;
  std::size_t size_;
  std::string expected_;
  bool has_expected_ = false;
};

// Each file of workloads.
void AddHex();
void AddCodePages();
void AddExpressions();
void AddSettings();
void AddStrings();

}  // namespace bench

#endif
