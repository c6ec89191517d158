#include "entry/drawing_parts.h"

#include <algorithm>

namespace orvex::entry {
namespace {

constexpr double kArrow = 3;        // half the width of an arrow's head
constexpr double kLevelOfText = 5;  // from the middle of a letter down to its foot
constexpr double kVentHeight = 10;

constexpr Paint kOutline = {.fill = "", .stroke = kInk, .width = 1.2};
constexpr Paint kThin = {.fill = "", .stroke = kFaintInk, .width = 0.8};

Paint Filled(std::string_view color) { return {.fill = color, .stroke = kInk, .width = 1.2}; }

/// The head of an arrow that points up (-1) or down (1).
void DrawHeadUp(Svg& svg, Point tip, double direction, std::string_view color) {
  const double foot = tip.y - direction * 2 * kArrow;
  svg.Path(PathData(tip).To({tip.x - kArrow, foot}).To({tip.x + kArrow, foot}).Close().Commands(),
           {.fill = color, .stroke = ""});
}

void DrawHeadAcross(Svg& svg, Point tip, double direction, std::string_view color) {
  const double foot = tip.x - direction * 2 * kArrow;
  svg.Path(PathData(tip).To({foot, tip.y - kArrow}).To({foot, tip.y + kArrow}).Close().Commands(),
           {.fill = color, .stroke = ""});
}

}  // namespace

Svg Paper(std::string_view heading, std::string_view kind) {
  Svg svg(kPaperWidth, kPaperHeight);
  svg.Rectangle({0, 0, kPaperWidth, kPaperHeight}, {.fill = "#ffffff", .stroke = ""});
  svg.Text({kPaperWidth / 2, 20}, Anchor::kMiddle, heading, kInk);
  svg.Text({kPaperWidth / 2, 37}, Anchor::kMiddle, kind, kFaintInk);
  return svg;
}

void DrawGround(Svg& svg, double height) {
  constexpr double kLeft = kPaperEdge, kRight = kPaperWidth - kPaperEdge, kStep = 10, kDepth = 5;
  svg.Line({kLeft, height}, {kRight, height}, kOutline);
  for (double x = kLeft + kStep; x <= kRight; x += kStep) svg.Line({x, height}, {x - kDepth, height + kDepth}, kThin);
}

Box FitShell(std::optional<double> width, std::optional<double> height, const Box& room, Proportions proportions) {
  const double typed = width && height ? *height / *width : proportions.usual;
  const double ratio = std::clamp(typed, proportions.least, proportions.greatest);
  const double drawn_width = std::min(room.Width(), room.Height() / ratio);
  const double left = room.Center() - drawn_width / 2;
  return {left, room.bottom - drawn_width * ratio, left + drawn_width, room.bottom};
}

void DrawSign(Svg& svg, Point at, Anchor anchor, const Measure& measure, std::string_view color) {
  svg.Text(at, anchor, measure.symbol, {}, color);
}

void DrawDimensionAcross(Svg& svg, double from, double to, double edge, const Measure& measure) {
  constexpr double kLine = kGround + 16, kText = kLine + 15;
  for (const double x : {from, to}) svg.Line({x, edge + 2}, {x, kLine + 4}, kThin);
  svg.Line({from, kLine}, {to, kLine}, kThin);
  DrawHeadAcross(svg, {from, kLine}, -1, kFaintInk);
  DrawHeadAcross(svg, {to, kLine}, 1, kFaintInk);
  DrawSign(svg, {(from + to) / 2, kText}, Anchor::kMiddle, measure);
}

void DrawArrows(Svg& svg, double x, double bottom, double top, std::string_view color) {
  svg.Line({x, bottom}, {x, top}, {.fill = "", .stroke = color, .width = 0.8});
  DrawHeadUp(svg, {x, top}, -1, color);
  DrawHeadUp(svg, {x, bottom}, 1, color);
}

void DrawDimensionUp(Svg& svg, double x, Point bottom, Point top, const Measure& measure) {
  for (const auto& point : {bottom, top}) svg.Line({x - 4, point.y}, {point.x - 2, point.y}, kThin);
  DrawArrows(svg, x, bottom.y, top.y, kFaintInk);
  DrawSign(svg, {x - 6, (bottom.y + top.y) / 2 + kLevelOfText}, Anchor::kEnd, measure);
}

Box Inside(const Box& shell) { return {shell.left + kWall, shell.top, shell.right - kWall, shell.bottom - kWall / 2}; }

void DrawShell(Svg& svg, const Box& shell, std::string_view color) {
  const auto inside = Inside(shell);
  svg.Rectangle(inside, {.fill = kVaporColor, .stroke = ""});
  svg.Path(PathData({shell.left, shell.top})
               .To({shell.left, shell.bottom})
               .To({shell.right, shell.bottom})
               .To({shell.right, shell.top})
               .To({inside.right, inside.top})
               .To({inside.right, inside.bottom})
               .To({inside.left, inside.bottom})
               .To({inside.left, inside.top})
               .Close()
               .Commands(),
           Filled(color), "shell");
}

void DrawConeRoof(Svg& svg, const Box& shell, double rise, std::string_view color) {
  const Point peak = {shell.Center(), shell.top - rise};
  svg.Path(PathData({shell.left, shell.top}).To(peak).To({shell.right, shell.top}).Close().Commands(),
           {.fill = kVaporColor, .stroke = ""});
  svg.Path(PathData({shell.left - 2, shell.top})
               .To(peak)
               .To({shell.right + 2, shell.top})
               .To({shell.right - kWall, shell.top})
               .To({peak.x, peak.y + kWall - 1})
               .To({shell.left + kWall, shell.top})
               .Close()
               .Commands(),
           Filled(color), "roof");
}

void DrawDomeRoof(Svg& svg, const Box& shell, double rise, std::string_view color) {
  // A parabola is highest at half the height of its corner.
  const Point corner = {shell.Center(), shell.top - 2 * rise};
  const Point inner = {corner.x, corner.y + 2 * (kWall - 1)};
  svg.Path(PathData({shell.left, shell.top}).Bend(corner, {shell.right, shell.top}).Close().Commands(),
           {.fill = kVaporColor, .stroke = ""});
  svg.Path(PathData({shell.left - 2, shell.top})
               .Bend(corner, {shell.right + 2, shell.top})
               .To({shell.right - kWall, shell.top})
               .Bend(inner, {shell.left + kWall, shell.top})
               .Close()
               .Commands(),
           Filled(color), "roof");
}

void DrawVent(Svg& svg, Point foot) {
  svg.Rectangle({foot.x - 3, foot.y - kVentHeight, foot.x + 3, foot.y + 1}, {.fill = "#ffffff", .stroke = kInk},
                "vent");
  svg.Path(PathData({foot.x - 7, foot.y - kVentHeight + 2})
               .Bend({foot.x, foot.y - kVentHeight - 6}, {foot.x + 7, foot.y - kVentHeight + 2})
               .Close()
               .Commands(),
           {.fill = "#ffffff", .stroke = kInk});
}

void DrawVentSettings(Svg& svg, Point vent, const FrmTank& form) {
  const double height = vent.y - kVentHeight;
  DrawSign(svg, {vent.x - 12, height}, Anchor::kEnd, VacuumSetting(form));
  DrawSign(svg, {vent.x + 12, height}, Anchor::kStart, PressureSetting(form));
}

void DrawHeating(Svg& svg, const Box& inside) {
  constexpr int kTurns = 6;
  constexpr double kAbove = 6, kGreatestHeight = 7;
  const double height = std::min(kGreatestHeight, inside.Height() / 10);
  const double turn = inside.Width() * 0.7 / kTurns;
  double x = inside.left + inside.Width() * 0.15;
  PathData coil({x, inside.bottom - kAbove});
  for (int i = 0; i < kTurns; ++i, x += turn) {
    coil.Bend({x + turn / 4, inside.bottom - kAbove - 2 * height}, {x + turn / 2, inside.bottom - kAbove})
        .Bend({x + 3 * turn / 4, inside.bottom - kAbove + height / 2}, {x + turn, inside.bottom - kAbove});
  }
  svg.Path(coil.Commands(), {.fill = "", .stroke = kHeatColor, .width = 2}, "heating");
}

}  // namespace orvex::entry
