// What the benchmark processes measured: their JSON files, summed up.
#ifndef VANDPUBLIC_BENCH_REPORT_MEASUREMENTS_H
#define VANDPUBLIC_BENCH_REPORT_MEASUREMENTS_H

#include <compare>
#include <map>
#include <string>
#include <vector>

namespace bench {

// One workload by one library at one size. `kernels` is the set the process ran with.
struct Key {
  std::string workload;
  int size = 0;
  std::string who;
  std::string kernels;

  auto operator<=>(const Key&) const = default;
};

class Measurements {
 public:
  // Adds the file that one process wrote (--benchmark_format=json, every repetition in it).
  void Add(const std::string& file);

  // Nanoseconds: the median over the processes of each process's median; 0 when not measured.
  double Time(const Key& key) const;
  // The fastest library that is neither the engine nor the members, and its time.
  std::pair<std::string, double> BestPeer(const std::string& workload, int size) const;

  // The kernel set of the first file, which is the one the processor gets by itself.
  const std::string& DefaultKernels() const { return kernels_.front(); }
  // All kernel sets, the default one first.
  const std::vector<std::string>& Kernels() const { return kernels_; }
  // The sizes measured for a workload, ascending; the libraries of the default runs.
  std::vector<int> Sizes(const std::string& workload) const;
  // In the order in which the processes measured them.
  const std::vector<std::string>& Workloads() const { return workloads_; }
  std::vector<std::string> Peers() const;

 private:
  void AddWorkloads(const std::map<std::string, int>& places);

  std::map<Key, std::vector<double>> medians_;  // one for each process
  std::vector<std::string> kernels_;
  std::vector<std::string> workloads_;
};

// The middle value; 0 for none.
double Median(std::vector<double> values);

}  // namespace bench

#endif
