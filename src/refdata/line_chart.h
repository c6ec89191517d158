#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "refdata/chart_axis.h"
#include "shell/svg.h"

namespace orvex::refdata {

enum class Marker : std::uint8_t { kCircle, kSquare, kTriangle, kDiamond };

/// How a curve is told from the others: by its colour, and by dashes and marker for whoever does not see colours.
struct Look {
  std::string_view color;
  std::string_view dashes;
  Marker marker;
};

/// A curve, interrupted where it has no value.
struct Curve {
  std::string name;
  Look look;
  std::vector<double> across;
  std::vector<std::optional<double>> up;  ///< one for each of `across`
  std::size_t first_mark = 0, marks_every = 1;
};

/// A panel of curves with its axes. Whatever the numbers are, nothing is drawn outside of it but the labels of its
/// ticks on the left and below, for which there is room to be left.
class LineChart {
 public:
  LineChart(svg::Svg& svg, const svg::Box& room, Axis across, Axis up)
      : svg_(svg), room_(room), across_(std::move(across)), up_(std::move(up)) {}

  /// Grid and labels.
  void DrawAxes(bool labels_across = true);
  /// A range of the axis across at which the person should look.
  void Shade(double from, double to);
  /// The area between two curves over the same values.
  void FillBetween(const Curve& upper, const Curve& lower, std::string_view color);
  void Draw(const Curve& curve);
  /// A dashed line at a height.
  void DrawLevel(double up, std::string_view color);

  [[nodiscard]] svg::Point At(double across, double up) const;

 private:
  void DrawMarks(const Curve& curve);

  svg::Svg& svg_;
  svg::Box room_;
  Axis across_, up_;
};

/// Room that an axis's labels take left of the chart.
double LabelRoom(const Axis& up);

/// Names the curves by samples of their lines, beside each other from `left` as long as there is room, then in the next
/// line.
/// @return the foot of the last line
double DrawLegend(svg::Svg& svg, svg::Point start, const std::vector<Curve>& curves);

}  // namespace orvex::refdata
