// Reading and summing up what the benchmark processes wrote.
#include "measurements.h"

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>
#include <stdexcept>

namespace bench {
namespace {

bool IsPeer(const std::string& who) { return who != "engine" && who != "member"; }

// WORKLOAD/WHO/BYTES
Key ParseName(const std::string& name, const std::string& kernels) {
  const std::size_t first = name.find('/');
  const std::size_t last = name.rfind('/');
  if (first == std::string::npos || first == last) throw std::runtime_error("odd name: " + name);
  return {name.substr(0, first), std::stoi(name.substr(last + 1)),
          name.substr(first + 1, last - first - 1), kernels};
}

}  // namespace

double Median(std::vector<double> values) {
  if (values.empty()) return 0;
  std::sort(values.begin(), values.end());
  const std::size_t half = values.size() / 2;
  return values.size() % 2 == 1 ? values[half] : (values[half - 1] + values[half]) / 2;
}

void Measurements::Add(const std::string& file) {
  std::ifstream in(file);
  const auto json = nlohmann::json::parse(in);
  const std::string kernels = json.at("context").at("kernels");
  if (std::find(kernels_.begin(), kernels_.end(), kernels) == kernels_.end()) {
    kernels_.push_back(kernels);
  }
  std::map<Key, std::vector<double>> repetitions;
  std::map<std::string, int> first_place;  // of each workload among the registered ones
  for (const auto& run : json.at("benchmarks")) {
    if (run.at("run_type") != "iteration") continue;
    const Key key = ParseName(run.at("run_name"), kernels);
    repetitions[key].push_back(run.at("cpu_time"));
    const int place = run.at("family_index");
    const auto [first, is_new] = first_place.emplace(key.workload, place);
    if (!is_new) first->second = std::min(first->second, place);
  }
  AddWorkloads(first_place);
  for (const auto& [key, times] : repetitions)
    medians_[key].push_back(Median(times));
}

void Measurements::AddWorkloads(const std::map<std::string, int>& places) {
  std::vector<std::pair<int, std::string>> ordered;
  for (const auto& [workload, place] : places)
    ordered.emplace_back(place, workload);
  std::sort(ordered.begin(), ordered.end());
  for (const auto& [place, workload] : ordered) {
    const bool known =
        std::find(workloads_.begin(), workloads_.end(), workload) != workloads_.end();
    if (!known) workloads_.push_back(workload);
  }
}

double Measurements::Time(const Key& key) const {
  const auto found = medians_.find(key);
  return found == medians_.end() ? 0 : Median(found->second);
}

std::pair<std::string, double> Measurements::BestPeer(const std::string& workload, int size) const {
  std::pair<std::string, double> best;
  for (const auto& [key, times] : medians_) {
    if (key.workload != workload || key.size != size || !IsPeer(key.who)) continue;
    const double time = Median(times);
    if (best.first.empty() || time < best.second) best = {key.who, time};
  }
  return best;
}

std::vector<int> Measurements::Sizes(const std::string& workload) const {
  std::set<int> sizes;
  for (const auto& [key, times] : medians_) {
    if (key.workload == workload) sizes.insert(key.size);
  }
  return {sizes.begin(), sizes.end()};
}

std::vector<std::string> Measurements::Peers() const {
  std::set<std::string> peers;
  for (const auto& [key, times] : medians_) {
    if (IsPeer(key.who)) peers.insert(key.who);
  }
  return {peers.begin(), peers.end()};
}

}  // namespace bench
