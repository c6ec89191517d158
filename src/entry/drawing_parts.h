#pragma once

#include <optional>
#include <string_view>

#include "entry/drawn_measure.h"
#include "entry/tank_drawing.h"
#include "shell/svg.h"

/// What the drawings of all tank types are put together from. The paper is always white, so that a drawing is read
/// alike in a light and a dark window.
namespace orvex::entry {

inline constexpr std::string_view kInk = "#2b3036", kFaintInk = "#6b7077", kLiquidColor = "#b4d6ec",
                                  kLevelColor = "#15649c", kHeatColor = "#c0392b", kVaporColor = "#f7f5ee",
                                  kSealColor = "#3d3d3d", kDeckColor = "#c7b27a";

inline constexpr double kPaperWidth = kDrawingWidth, kPaperHeight = kDrawingHeight;
inline constexpr double kPaperEdge = 10;  ///< kept free
inline constexpr double kGround = 260;    ///< height of the ground's line on the paper
inline constexpr double kWall = 6;        ///< thickness of a drawn wall

/// An empty paper with its heading, and what kind of such a tank it is.
Svg Paper(std::string_view heading, std::string_view kind);

void DrawGround(Svg& svg, double height);

/// The outline of a shell of this width and height {ft}, as large as the room allows, standing in the middle of its
/// lower edge. Very flat and very slender shells are drawn less so.
struct Proportions {
  double least, usual, greatest;  ///< height by width
};
Box FitShell(std::optional<double> width, std::optional<double> height, const Box& room, Proportions proportions);

/// The sign of a quantity; its number stands in the list below the tank.
void DrawSign(Svg& svg, Point at, Anchor anchor, const Measure& measure, std::string_view color = kInk);

/// A dimension line below the tank, from `from` to `to`, with extension lines up to `edge`.
void DrawDimensionAcross(Svg& svg, double from, double to, double edge, const Measure& measure);
/// A dimension line at `x`, left of the two points whose heights it measures.
void DrawDimensionUp(Svg& svg, double x, Point bottom, Point top, const Measure& measure);
/// A vertical double arrow.
void DrawArrows(Svg& svg, double x, double bottom, double top, std::string_view color);

/// Walls and floor of a shell that stands on the ground, in section, and what is inside.
void DrawShell(Svg& svg, const Box& shell, std::string_view color);
Box Inside(const Box& shell);

/// A roof between the upper corners of a shell.
void DrawConeRoof(Svg& svg, const Box& shell, double rise, std::string_view color);
void DrawDomeRoof(Svg& svg, const Box& shell, double rise, std::string_view color);

/// A vent on the roof, standing on `foot`.
void DrawVent(Svg& svg, Point foot);
/// The signs of the breather vent's settings, beside it.
void DrawVentSettings(Svg& svg, Point vent, const FrmTank& form);

/// A heating coil in the lower part of a tank.
void DrawHeating(Svg& svg, const Box& inside);

}  // namespace orvex::entry
