// A plot of time against bytes, both logarithmic, as an SVG file.
#ifndef VANDPUBLIC_BENCH_REPORT_PLOT_H
#define VANDPUBLIC_BENCH_REPORT_PLOT_H

#include <string>
#include <utility>
#include <vector>

namespace bench {

struct Series {
  std::string name;
  bool ours = false;                              // drawn thick
  std::vector<std::pair<double, double>> points;  // bytes, nanoseconds; both positive
};

// The text of the file. Series are told apart by colour and by name at the right.
std::string PlotSvg(const std::string& title, const std::vector<Series>& series);

}  // namespace bench

#endif
