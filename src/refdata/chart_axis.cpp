#include "refdata/chart_axis.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace orvex::refdata {
namespace {

/// Greatest and least size of a number that an axis tells. Greater ones stand at its end, smaller ones are 0.
constexpr double kGreatest = 1e30, kLeast = 1e-30;
constexpr double kSteps = 4;              ///< about so many on a linear axis
constexpr double kLeastSpan = 1e-4;       ///< of an axis, by the numbers on it: their labels must differ
constexpr double kTooWideForLinear = 50;  ///< greatest by least value
constexpr double kNoise = 1e-9;           ///< of quotients that are meant to be whole
constexpr int kMostDecades = 12, kLabels = 6;

double Tamed(double value) {
  if (!(std::abs(value) >= kLeast)) return 0;
  return std::clamp(value, -kGreatest, kGreatest);
}

std::string Label(double value) { return fmt::format("{:.7G}", value); }

/// The smallest round number that is not below this one.
double RoundStep(double least) {
  const double decade = std::pow(10, std::floor(std::log10(least)));
  for (const double step : {1.0, 2.0, 2.5, 5.0})
    if (step * decade >= least * (1 - kNoise)) return step * decade;
  return 10 * decade;
}

Axis LogarithmicAxis(double low, double high) {
  const int last = static_cast<int>(std::ceil(std::log10(high)));
  const int first = std::max(static_cast<int>(std::floor(std::log10(low))), last - kMostDecades);
  Axis axis{std::pow(10, first), std::pow(10, last), Scale::kLogarithmic, {}};
  const int step = (last - first + kLabels - 1) / kLabels;
  for (int decade = first; decade <= last; decade += step) {
    const double value = std::pow(10, decade);
    axis.ticks.push_back({value, Label(value)});
  }
  return axis;
}

}  // namespace

Axis LinearAxis(std::span<const double> values) {
  if (values.empty()) return {0, 1, Scale::kLinear, {}};
  const auto [least, greatest] = std::ranges::minmax(values);
  double low = Tamed(least), high = Tamed(greatest);
  if (low > 0 && 2 * low <= high) low = 0;
  if (high < 0 && 2 * high >= low) high = 0;
  const double size = std::max(std::abs(low), std::abs(high));
  if (high - low <= kLeastSpan * size) {
    const double room = size == 0 ? 1 : size / 10;
    high += room;
    low -= low == 0 ? 0 : room;
  }

  const double step = RoundStep((high - low) / kSteps);
  const auto first = std::llround(std::floor(low / step + kNoise));
  const auto last = std::llround(std::ceil(high / step - kNoise));
  Axis axis{static_cast<double>(first) * step, static_cast<double>(last) * step, Scale::kLinear, {}};
  for (auto i = first; i <= last; ++i) {
    const double value = static_cast<double>(i) * step;
    axis.ticks.push_back({value, Label(value)});
  }
  return axis;
}

Axis ReadableAxis(std::span<const double> values) {
  if (values.empty()) return LinearAxis(values);
  const auto [least, greatest] = std::ranges::minmax(values);
  const double low = Tamed(least), high = Tamed(greatest);
  return low > 0 && high > kTooWideForLinear * low ? LogarithmicAxis(low, high) : LinearAxis(values);
}

double Share(const Axis& axis, double value) {
  const double inside = std::clamp(value, axis.low, axis.high);
  if (axis.scale == Scale::kLinear) return (inside - axis.low) / (axis.high - axis.low);
  return std::log(inside / axis.low) / std::log(axis.high / axis.low);
}

}  // namespace orvex::refdata
