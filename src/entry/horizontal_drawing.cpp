#include <algorithm>

#include "entry/drawing_legend.h"
#include "entry/drawing_parts.h"
#include "entry/drawings_by_type.h"

namespace orvex::entry {
namespace {

constexpr Box kRoomAboveGround = {64, 80, 228, kGround - 16};
constexpr Box kRoomUnderground = {64, 110, 228, kGround - 6};
constexpr Proportions kShellProportions = {.least = 0.2, .usual = 0.4, .greatest = 1.2};
constexpr double kGreatestHead = 16;  // how far the ends bulge

/// The outline of the tank below a height, or as a whole.
std::string_view Outline(PathData& path, const Box& shell, double head) {
  return path.To({shell.right, shell.top})
      .Bend({shell.right + head, shell.top}, {shell.right + head, shell.Middle()})
      .Bend({shell.right + head, shell.bottom}, {shell.right, shell.bottom})
      .To({shell.left, shell.bottom})
      .Bend({shell.left - head, shell.bottom}, {shell.left - head, shell.Middle()})
      .Bend({shell.left - head, shell.top}, {shell.left, shell.top})
      .Close()
      .Commands();
}

/// The tank is half full, as its losses are computed.
void DrawLiquid(Svg& svg, const Box& shell, double head) {
  svg.Path(PathData({shell.left - head, shell.Middle()})
               .To({shell.right + head, shell.Middle()})
               .Bend({shell.right + head, shell.bottom}, {shell.right, shell.bottom})
               .To({shell.left, shell.bottom})
               .Bend({shell.left - head, shell.bottom}, {shell.left - head, shell.Middle()})
               .Close()
               .Commands(),
           {.fill = kLiquidColor, .stroke = ""});
  svg.Line({shell.left - head, shell.Middle()}, {shell.right + head, shell.Middle()},
           {.fill = "", .stroke = kLevelColor, .width = 1.5});
}

void DrawTankBody(Svg& svg, const Box& shell, double head, std::string_view color) {
  const Box inside = {shell.left, shell.top + kWall, shell.right, shell.bottom - kWall};
  PathData outer({shell.left, shell.top}), inner({inside.left, inside.top});
  svg.Path(Outline(outer, shell, head), {.fill = color, .stroke = kInk, .width = 1.2}, "shell");
  svg.Path(Outline(inner, inside, head - kWall), {.fill = kVaporColor, .stroke = ""});
  DrawLiquid(svg, inside, head - kWall);
  svg.Path(inner.Commands(), {.fill = "", .stroke = kInk, .width = 1});
}

void DrawSaddles(Svg& svg, const Box& shell) {
  for (const double x : {shell.left + shell.Width() * 0.15, shell.right - shell.Width() * 0.15}) {
    svg.Path(PathData({x - 8, shell.bottom})
                 .To({x + 8, shell.bottom})
                 .To({x + 12, kGround})
                 .To({x - 12, kGround})
                 .Close()
                 .Commands(),
             {.fill = "#d9d6cf", .stroke = kInk}, "saddle");
  }
}

}  // namespace

std::string DrawHorizontalTank(const FrmTank& form) {
  const bool underground = IsYes(form, "UNDER");
  auto svg = Paper("Horizontal tank", underground ? "underground" : "above ground");
  const auto diameter = Size(form, "DIAMETER", {"D", ""}, "ft");
  const auto length = Size(form, "HEIGHT S", {"L", ""}, "ft");
  const auto shell =
      FitShell(length.value, diameter.value, underground ? kRoomUnderground : kRoomAboveGround, kShellProportions);
  const double head = std::clamp(shell.Height() / 4, kWall + 4, kGreatestHead);
  const double surface = underground ? shell.top - 24 : kGround;
  if (underground) {
    svg.Rectangle({kPaperEdge, surface, kPaperWidth - kPaperEdge, kGround + 8}, {.fill = "#efe6d6", .stroke = ""},
                  "soil");
  } else {
    DrawSaddles(svg, shell);
  }
  DrawGround(svg, surface);
  // No paint is seen of a tank in the ground.
  DrawTankBody(svg, shell, head, PaintColor(underground ? "" : StoredPhysical(form, "SHL COLSHD")));
  const double top = underground ? surface - 6 : shell.top;
  if (underground)
    svg.Rectangle({shell.Center() - 3, top, shell.Center() + 3, shell.top}, {.fill = "#ffffff", .stroke = kInk});
  DrawVent(svg, {shell.Center(), top});
  DrawVentSettings(svg, {shell.Center(), top}, form);
  if (IsYes(form, "HEATED")) DrawHeating(svg, {shell.left, shell.top, shell.right, shell.bottom - kWall});

  DrawDimensionAcross(svg, shell.left, shell.right, shell.bottom, length);
  DrawDimensionUp(svg, shell.left - head - 10, {shell.left, shell.bottom}, {shell.left, shell.top}, diameter);
  DrawingLegend legend(svg);
  legend.Line(diameter, length, kInk);
  legend.Line(VacuumSetting(form), PressureSetting(form), kInk);
  legend.Line(Size(form, "VOLUME", {"V", ""}, "gal"), kInk);
  if (IsYes(form, "HEATED")) legend.Part(kHeatColor, "heated", "");
  return svg.Finish();
}

}  // namespace orvex::entry
