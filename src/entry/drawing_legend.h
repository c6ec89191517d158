#pragma once

#include <string_view>

#include "entry/drawn_measure.h"
#include "shell/svg.h"

namespace orvex::entry {

/// The list below a drawn tank, line by line: what its signs stand for, and what its parts are.
class DrawingLegend {
 public:
  explicit DrawingLegend(Svg& svg) : svg_(svg) {}

  void Line(const Measure& measure, std::string_view color);
  /// Two measures in one line, in one colour.
  void Line(const Measure& left, const Measure& right, std::string_view color);
  /// A part of the tank by its colour, and of which kind it is.
  void Part(std::string_view color, std::string_view part, std::string_view kind);

 private:
  /// Foot of the letters of the next line.
  double NextLine();

  Svg& svg_;
  int lines_ = 0;
};

}  // namespace orvex::entry
