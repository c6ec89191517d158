#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// What a direction of a chart shows.
namespace orvex::refdata {

struct Tick {
  double value;
  std::string label;
};

enum class Scale : std::uint8_t { kLinear, kLogarithmic };

/// A range of values with its ticks. On a logarithmic scale `low` is above 0.
struct Axis {
  double low, high;
  Scale scale;
  std::vector<Tick> ticks;
};

/// A linear axis over these values, from a round number to a round number. It begins at 0 where that takes no more than
/// half of it. Without values it has no ticks.
Axis LinearAxis(std::span<const double> values);

/// A linear axis, or a logarithmic one from a power of ten to another where the values span so much that the small ones
/// could not be read off a linear one.
Axis ReadableAxis(std::span<const double> values);

/// How far along the axis the value stands: 0 at `low`, 1 at `high`. A value beyond them stands at the end.
double Share(const Axis& axis, double value);

}  // namespace orvex::refdata
