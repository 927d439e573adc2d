// Makes the report of the cipher benchmarks from the files of the processes.
//
//   bench_report FOLDER FILE...     writes FOLDER/ciphers.md, FOLDER/des.svg and FOLDER/3des.svg,
//                                   and the table to standard output
//
// The first file is one of a process that chose its kernels itself.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

#include "measurements.h"
#include "plot.h"

namespace bench {
namespace {

constexpr const char* kWorkloads[] = {"DES", "3DES", "CBC-MAC", "retail-MAC", "diversify"};

// Nanoseconds as a person would write them.
std::string ShownTime(double nanoseconds) {
  char buffer[32];
  if (nanoseconds < 1000) {
    std::snprintf(buffer, sizeof buffer, "%.0f ns", nanoseconds);
  } else if (nanoseconds < 1e6) {
    std::snprintf(buffer, sizeof buffer, "%.3g us", nanoseconds / 1e3);
  } else {
    std::snprintf(buffer, sizeof buffer, "%.3g ms", nanoseconds / 1e6);
  }
  return buffer;
}

std::string ShownRatio(double ratio) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, ratio < 10 ? "%.2f" : "%.1f", ratio);
  return buffer;
}

std::string Row(const Measurements& all, const std::string& workload, int size) {
  const auto [peer, peer_time] = all.BestPeer(workload, size);
  std::string row = "| " + workload + " | " + std::to_string(size) + " | " + peer + " | " +
                    ShownTime(peer_time) + " |";
  for (const std::string& kernels : all.Kernels()) {
    const double time = all.Time({workload, size, "engine", kernels});
    row += " " + ShownTime(time) + " | **" + ShownRatio(peer_time / time) + "** |";
  }
  const double member = all.Time({workload, size, "member", all.DefaultKernels()});
  return row + " " + ShownTime(member) + " | " + ShownRatio(peer_time / member) + " |\n";
}

std::string Table(const Measurements& all) {
  std::string table = "| workload | bytes | best peer | its time |";
  std::string rule = "|---|---|---|---|";
  for (const std::string& kernels : all.Kernels()) {
    table += " engine, " + kernels + " | ratio |";
    rule += "---|---|";
  }
  table += " member | ratio |\n" + rule + "---|---|\n";
  for (const char* workload : kWorkloads) {
    for (const int size : all.Sizes(workload))
      table += Row(all, workload, size);
  }
  return table;
}

std::string OtherCalls(const Measurements& all) {
  const std::string& kernels = all.DefaultKernels();
  const double create = all.Time({"create-object", 0, "member", kernels});
  const double late = all.Time({"late-bound-DES", 8, "member", kernels});
  return "Creating an object takes " + ShownTime(create) +
         "; DES of 8 bytes called by slot with variants " + ShownTime(late) + ".\n";
}

// The first line of a file that starts with this name, behind the colon.
std::string FactOf(const char* file, const std::string& name) {
  std::ifstream in(file);
  for (std::string line; std::getline(in, line);) {
    if (line.rfind(name, 0) == 0) return line.substr(line.find(':') + 2);
  }
  return "unknown";
}

std::string Peers(const Measurements& all) {
  std::string names;
  for (const std::string& peer : all.Peers())
    names += (names.empty() ? "" : ", ") + peer;
  return names;
}

std::string Page(const Measurements& all) {
  return "# Speed of the ciphers\n\n"
         "Written by `bench/run.sh`. Time for one call, key schedule included, in one process side "
         "by side\nwith the peers; medians over five processes. \"Ratio\" is the best peer's time "
         "over ours. \"Engine\" is\nits C++ border, for each set of kernels that this processor "
         "can run; \"member\" is the whole call of\nthe component's member.\n\n"
         "Processor: " +
         FactOf("/proc/cpuinfo", "model name") + ". Compiler: " + __VERSION__ +
         ". Peers: " + Peers(all) + ".\n\n" + Table(all) + "\n" + OtherCalls(all) +
         "\n![DES](des.svg)\n\n![Triple DES](3des.svg)\n";
}

std::vector<Series> AllSeries(const Measurements& all, const std::string& workload) {
  std::vector<Series> series;
  const auto add = [&](const std::string& who, const std::string& kernels, bool ours) {
    Series s{ours ? "engine, " + kernels : who, ours, {}};
    for (const int size : all.Sizes(workload)) {
      const double time = all.Time({workload, size, who, kernels});
      if (time > 0) s.points.emplace_back(size, time);
    }
    series.push_back(std::move(s));
  };
  for (const std::string& kernels : all.Kernels())
    add("engine", kernels, true);
  for (const std::string& peer : all.Peers())
    add(peer, all.DefaultKernels(), false);
  return series;
}

void Write(const std::string& file, const std::string& text) {
  std::ofstream out(file, std::ios::binary);
  out << text;
  out.close();
  if (!out) throw std::runtime_error("cannot write " + file);
}

int Run(int argc, char** argv) {
  if (argc < 3) {
    std::cerr << "usage: bench_report FOLDER FILE...\n";
    return 2;
  }
  Measurements all;
  for (int i = 2; i < argc; ++i)
    all.Add(argv[i]);
  const std::string folder = argv[1];
  Write(folder + "/ciphers.md", Page(all));
  Write(folder + "/des.svg", PlotSvg("DES", AllSeries(all, "DES")));
  Write(folder + "/3des.svg", PlotSvg("Triple DES", AllSeries(all, "3DES")));
  std::cout << Table(all) << OtherCalls(all);
  return 0;
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  try {
    return bench::Run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "bench_report: " << error.what() << "\n";
    return 1;
  }
}
