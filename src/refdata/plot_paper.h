#pragma once

#include <string_view>

#include "shell/svg.h"

/// What the plots of the reference editors have in common. The paper is always white, so that a plot is read alike in a
/// light and a dark window.
namespace orvex::refdata {

inline constexpr std::string_view kInk = "#2b3036", kFaintInk = "#6b7077", kGridColor = "#dfe2e6",
                                  kAlarmColor = "#b3261e", kAlarmShade = "#f8dcd6";

/// In its units; a plot is made to be shown one unit a pixel or larger, and can be read somewhat smaller.
inline constexpr int kPlotWidth = 320;
inline constexpr int kPlotLetters = 12;
inline constexpr double kPlotEdge = 10;                     ///< kept free
inline constexpr double kLetterWidth = 0.6 * kPlotLetters;  ///< of a wide typeface
inline constexpr double kLineHeight = 15;

/// An empty paper with its heading.
svg::Svg PlotPaper(double height, std::string_view heading);

/// A text in lines, as wide as the paper, from this height of its first line's foot. What is more than so many lines is
/// left out.
void DrawParagraph(svg::Svg& svg, double foot, std::string_view text, std::string_view color, int most_lines);
/// Whether it is told whole in so many lines.
[[nodiscard]] bool FitsParagraph(std::string_view text, int most_lines);

}  // namespace orvex::refdata
