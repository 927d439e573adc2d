// Drawing of the plot: two logarithmic axes, a line for each series, a legend.
#include "plot.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace bench {
namespace {

constexpr double kWidth = 760;
constexpr double kHeight = 480;
constexpr double kLeft = 70;
constexpr double kRight = 600;
constexpr double kTop = 40;
constexpr double kBottom = 430;

constexpr std::array<const char*, 12> kColours = {"#d62728", "#1f77b4", "#2ca02c", "#9467bd",
                                                  "#8c564b", "#e377c2", "#7f7f7f", "#bcbd22",
                                                  "#17becf", "#ff7f0e", "#393b79", "#637939"};

std::string Format(const char* format, double a, double b = 0, double c = 0, double d = 0) {
  std::array<char, 256> buffer{};
  std::snprintf(buffer.data(), buffer.size(), format, a, b, c, d);
  return buffer.data();
}

// From a value to its place on an axis.
struct Axis {
  double low, high;   // powers of ten
  double start, end;  // places

  double At(double value) const {
    return start + (std::log10(value) - low) / (high - low) * (end - start);
  }
};

Axis MakeAxis(const std::vector<Series>& series, double std::pair<double, double>::*member,
              double start, double end) {
  double low = 1e30;
  double high = 0;
  for (const Series& s : series) {
    for (const auto& point : s.points) {
      low = std::min(low, point.*member);
      high = std::max(high, point.*member);
    }
  }
  if (high <= 0) return {0, 1, start, end};
  return {std::floor(std::log10(low)), std::ceil(std::log10(high)), start, end};
}

std::string Grid(const Axis& x, const Axis& y) {
  std::string svg;
  for (double power = x.low; power <= x.high; ++power) {
    const double place = x.At(std::pow(10, power));
    svg += Format("<line x1='%.1f' y1='%.1f' x2='%.1f' y2='%.1f' stroke='#ccc'/>\n", place, kTop,
                  place, kBottom);
    svg += Format("<text x='%.1f' y='%.1f' text-anchor='middle'>%.0f</text>\n", place, kBottom + 18,
                  std::pow(10, power));
  }
  for (double power = y.low; power <= y.high; ++power) {
    const double place = y.At(std::pow(10, power));
    svg += Format("<line x1='%.1f' y1='%.1f' x2='%.1f' y2='%.1f' stroke='#ccc'/>\n", kLeft, place,
                  kRight, place);
    svg += Format("<text x='%.1f' y='%.1f' text-anchor='end'>%.0f</text>\n", kLeft - 6, place + 4,
                  std::pow(10, power));
  }
  svg += Format("<text x='%.1f' y='%.1f' text-anchor='middle'>bytes</text>\n", (kLeft + kRight) / 2,
                kBottom + 38);
  return svg + Format("<text x='%.1f' y='%.1f'>nanoseconds a call</text>\n", 8, kTop - 10);
}

std::string Line(const Series& series, std::size_t number, const Axis& x, const Axis& y) {
  const std::string colour = kColours[number % kColours.size()];
  const std::string width = series.ours ? "3" : "1.2";
  std::string svg =
      "<polyline fill='none' stroke='" + colour + "' stroke-width='" + width + "' points='";
  for (const auto& [bytes, time] : series.points)
    svg += Format("%.1f,%.1f ", x.At(bytes), y.At(time));
  svg += "'/>\n";
  const double place = kTop + 10 + 18 * static_cast<double>(number);
  svg += Format("<line x1='%.1f' y1='%.1f' x2='%.1f' y2='%.1f'", kRight + 14, place - 4,
                kRight + 38, place - 4);
  svg += " stroke='" + colour + "' stroke-width='" + width + "'/>\n";
  return svg + Format("<text x='%.1f' y='%.1f'>", kRight + 44, place) + series.name + "</text>\n";
}

}  // namespace

std::string PlotSvg(const std::string& title, const std::vector<Series>& series) {
  const Axis x = MakeAxis(series, &std::pair<double, double>::first, kLeft, kRight);
  const Axis y = MakeAxis(series, &std::pair<double, double>::second, kBottom, kTop);
  std::string svg = Format(
      "<svg xmlns='http://www.w3.org/2000/svg' width='%.0f' height='%.0f' "
      "font-family='sans-serif' font-size='12'>\n",
      kWidth, kHeight);
  svg += "<rect width='100%' height='100%' fill='white'/>\n";
  svg +=
      Format("<text x='%.1f' y='20' text-anchor='middle' font-size='15'>", (kLeft + kRight) / 2) +
      title + "</text>\n" + Grid(x, y);
  for (std::size_t i = 0; i < series.size(); ++i)
    svg += Line(series[i], i, x, y);
  return svg + "</svg>\n";
}

}  // namespace bench
