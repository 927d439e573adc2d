// Makes a report of the benchmarks from the files of the processes.
//
//   bench_report ciphers FOLDER FILE...   writes FOLDER/ciphers.md and its plots
//   bench_report texts FOLDER FILE...     writes FOLDER/texts.md and its plots
//
// The table goes to standard output, too. The first file is one of a process that chose its
// kernels itself.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "measurements.h"
#include "plot.h"

namespace bench {
namespace {

struct Plot {
  const char* file;
  const char* title;
  const char* workload;
};

struct Report {
  std::string name;
  std::string page_head;  // before the facts of the machine
  std::vector<Plot> plots;
};

Report Ciphers() {
  return {
      "ciphers",
      "# Speed of the ciphers\n\n"
      "Written by `bench/run.sh`. Time for one call, key schedule included, in one process side "
      "by side\nwith the peers; medians over five processes. \"Ratio\" is the best peer's time "
      "over ours. \"Engine\" is\nits C++ border, for each set of kernels that this processor "
      "can run; \"member\" is the whole call of\nthe component's member.\n\n",
      {{"des.svg", "DES", "DES"}, {"3des.svg", "Triple DES", "3DES"}}};
}

Report Texts() {
  return {
      "texts",
      "# Speed of the texts\n\n"
      "Written by `bench/run.sh`. Time for one call, in one process side by side with the peers; "
      "medians over\nfive processes. \"Ratio\" is the best peer's time over ours. \"Engine\" is "
      "the inner function, for each\nform of the hexadecimal loops that this processor can run; "
      "\"member\" is the whole call of the\ncomponent's member. Sizes are bytes, characters for "
      "code pages, expressions and strings.\n\n"
      "- Hexadecimal texts and dumps: the peers write 8-bit text into memory that is there, the "
      "engine 16-bit\n  text; members make their result. The peers' dumps have no line ends.\n"
      "- Code pages: the peers' converters are opened beforehand and write into memory that is "
      "there; the\n  engine makes its result.\n"
      "- Expressions: \"new pattern\" is one that no cache can hold, \"known pattern\" the same "
      "again and again,\n  compiled beforehand by the peers. PCRE2 runs without our limits on "
      "steps, time and memory.\n"
      "- Files are written with a flush to the disk by both; the time shown is the "
      "processor's.\n\n",
      {{"hex_encode.svg", "Hexadecimal text from bytes", "hex encode"},
       {"hex_decode.svg", "Bytes from hexadecimal text, checked", "hex decode"},
       {"dump.svg", "Dump", "dump"},
       {"code_page_936.svg", "Code page 936 to text, mixed", "936 mixed to text"},
       {"ini_read.svg", "Key read from an INI text", "INI read"}}};
}

// Nanoseconds as a person would write them.
std::string ShownTime(double nanoseconds) {
  char buffer[32];
  if (nanoseconds <= 0) return "-";
  if (nanoseconds < 10) {
    std::snprintf(buffer, sizeof buffer, "%.1f ns", nanoseconds);
  } else if (nanoseconds < 1000) {
    std::snprintf(buffer, sizeof buffer, "%.0f ns", nanoseconds);
  } else if (nanoseconds < 1e6) {
    std::snprintf(buffer, sizeof buffer, "%.3g us", nanoseconds / 1e3);
  } else {
    std::snprintf(buffer, sizeof buffer, "%.3g ms", nanoseconds / 1e6);
  }
  return buffer;
}

std::string ShownRatio(double peer_time, double time, const char* mark) {
  if (peer_time <= 0 || time <= 0) return "-";
  const double ratio = peer_time / time;
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, ratio < 10 ? "%.2f" : "%.1f", ratio);
  return mark + std::string(buffer) + mark;
}

std::string Row(const Measurements& all, const std::string& workload, int size) {
  const auto [peer, peer_time] = all.BestPeer(workload, size);
  std::string row = "| " + workload + " | " + std::to_string(size) + " | " +
                    (peer.empty() ? "-" : peer) + " | " + ShownTime(peer_time) + " |";
  for (const std::string& kernels : all.Kernels()) {
    const double time = all.Time({workload, size, "engine", kernels});
    row += " " + ShownTime(time) + " | " + ShownRatio(peer_time, time, "**") + " |";
  }
  const double member = all.Time({workload, size, "member", all.DefaultKernels()});
  return row + " " + ShownTime(member) + " | " + ShownRatio(peer_time, member, "") + " |\n";
}

// Calls without peers, told in a sentence.
bool IsOtherCall(const std::string& workload) {
  return workload == "create-object" || workload == "late-bound-DES";
}

std::string Table(const Measurements& all) {
  std::string table = "| workload | size | best peer | its time |";
  std::string rule = "|---|---|---|---|";
  for (const std::string& kernels : all.Kernels()) {
    table += " engine, " + kernels + " | ratio |";
    rule += "---|---|";
  }
  table += " member | ratio |\n" + rule + "---|---|\n";
  for (const std::string& workload : all.Workloads()) {
    if (IsOtherCall(workload)) continue;
    for (const int size : all.Sizes(workload))
      table += Row(all, workload, size);
  }
  return table;
}

std::string OtherCalls(const Measurements& all) {
  const std::string& kernels = all.DefaultKernels();
  const double create = all.Time({"create-object", 0, "member", kernels});
  const double late = all.Time({"late-bound-DES", 8, "member", kernels});
  if (create <= 0) return "";
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

// The machine should have nothing else to do; the page says whether it had.
std::string Load() {
  std::ifstream in("/proc/loadavg");
  std::string minutes[3];
  in >> minutes[0] >> minutes[1] >> minutes[2];
  return minutes[1] + " over five minutes, on " +
         std::to_string(std::thread::hardware_concurrency()) + " processors";
}

std::string Page(const Report& report, const Measurements& all) {
  std::string page = report.page_head + "Processor: " + FactOf("/proc/cpuinfo", "model name") +
                     ". Compiler: " + __VERSION__ + ". Peers: " + Peers(all) +
                     ".\nLoad of the machine: " + Load() + ".\n\n" + Table(all);
  const std::string other = OtherCalls(all);
  if (!other.empty()) page += "\n" + other;
  for (const Plot& plot : report.plots)
    page += "\n![" + std::string(plot.title) + "](" + plot.file + ")\n";
  return page;
}

std::vector<Series> AllSeries(const Measurements& all, const std::string& workload) {
  std::vector<Series> series;
  const auto add = [&](const std::string& who, const std::string& kernels, bool ours) {
    Series s{who == "engine" ? "engine, " + kernels : who, ours, {}};
    for (const int size : all.Sizes(workload)) {
      const double time = all.Time({workload, size, who, kernels});
      if (time > 0 && size > 0) s.points.emplace_back(size, time);
    }
    if (!s.points.empty()) series.push_back(std::move(s));
  };
  for (const std::string& kernels : all.Kernels())
    add("engine", kernels, true);
  add("member", all.DefaultKernels(), true);
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
  const std::string name = argc > 1 ? argv[1] : "";
  if (argc < 4 || (name != "ciphers" && name != "texts")) {
    std::cerr << "usage: bench_report ciphers|texts FOLDER FILE...\n";
    return 2;
  }
  Measurements all;
  for (int i = 3; i < argc; ++i)
    all.Add(argv[i]);
  const Report report = name == "ciphers" ? Ciphers() : Texts();
  const std::string folder = argv[2];
  Write(folder + "/" + report.name + ".md", Page(report, all));
  for (const Plot& plot : report.plots)
    Write(folder + "/" + plot.file, PlotSvg(plot.title, AllSeries(all, plot.workload)));
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
