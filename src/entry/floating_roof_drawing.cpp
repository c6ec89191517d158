#include <algorithm>
#include <cmath>
#include <utility>

#include "entry/drawing_parts.h"
#include "entry/drawings_by_type.h"
#include "entry/drawn_floating_roof.h"
#include "shell/tank_types.h"

namespace orvex::entry {
namespace {

constexpr Box kRoom = {40, 100, 220, kGround};
constexpr Proportions kShellProportions = {.least = 0.45, .usual = 0.85, .greatest = 1.1};
constexpr double kRoofLevel = 0.52;  // where the roof floats, of the shell's height
constexpr double kConeRise = 20, kDomeRise = 34;

/// Height {ft} of a shell that holds the volume of liquid below its rim.
std::optional<double> HeightFromVolume(std::optional<double> diameter_ft, std::optional<double> volume_gal) {
  constexpr double kCubicFeetPerGallon = 0.13368, kPi = 3.14159, kRim = 1.1;
  if (!diameter_ft || !volume_gal) return std::nullopt;
  return *volume_gal * kCubicFeetPerGallon / kPi / *diameter_ft / *diameter_ft * 4 * kRim;
}

std::string_view Heading(const FrmTank& form) {
  if (form.tank_type == shell::kInternalFloatingRoof) return "Internal floating roof tank";
  return form.tank_type == shell::kDomedExternalFloatingRoof ? "Domed external floating roof tank"
                                                             : "External floating roof tank";
}

std::string_view Kind(const FrmTank& form) {
  if (form.tank_type == shell::kInternalFloatingRoof)
    return IsYes(form, "SELF_SUP") ? "self-supporting roof" : "roof on columns";
  const auto roof = StoredPhysical(form, "RF_TYPE");
  return roof == "Double Deck" ? "double deck roof" : roof == "Pontoon" ? "pontoon roof" : "";
}

Measure Columns(const FrmTank& form) { return Size(form, "COL_NO", {"N", "C"}, ""); }

/// The columns under a cone roof; no more than can be told apart.
void DrawColumns(Svg& svg, const Box& shell, const FrmTank& form) {
  constexpr double kMost = 7, kHalf = 2;
  const auto number = Columns(form);
  const double drawn = std::clamp(std::floor(number.value.value_or(1)), 1.0, kMost);
  const auto inside = Inside(shell);
  for (double i = 1; i <= drawn; ++i) {
    const double x = inside.left + inside.Width() * i / (drawn + 1);
    const double roof = shell.top - kConeRise * (1 - std::abs(x - shell.Center()) / (shell.Width() / 2)) + kWall;
    svg.Rectangle({x - kHalf, roof, x + kHalf, inside.bottom}, {.fill = "#e3dfd5", .stroke = kInk, .width = 0.8},
                  "column");
  }
  const double foot = inside.bottom - 8;
  svg.Line({shell.left - 8, foot}, {inside.left + inside.Width() / (drawn + 1), foot},
           {.fill = "", .stroke = kFaintInk, .width = 0.8});
  DrawSign(svg, {shell.left - 10, foot + 4}, Anchor::kEnd, number);
}

void DrawInternalParts(Svg& svg, const Box& shell, const FrmTank& form) {
  const auto color = PaintColor(StoredPhysical(form, "RF_COLSHD"));
  if (IsYes(form, "SELF_SUP")) {
    DrawDomeRoof(svg, shell, kDomeRise, color);
    DrawVent(svg, {shell.Center(), shell.top - kDomeRise});
    return;
  }
  DrawConeRoof(svg, shell, kConeRise, color);
  DrawColumns(svg, shell, form);
  DrawVent(svg, {shell.Center(), shell.top - kConeRise});
}

/// The girder that stiffens an open shell against the wind.
void DrawWindGirder(Svg& svg, const Box& shell) {
  for (const auto& [from, to] : {std::pair(shell.left - 7, shell.left), std::pair(shell.right, shell.right + 7)})
    svg.Rectangle({from, shell.top + 4, to, shell.top + 8}, {.fill = "#d9d6cf", .stroke = kInk}, "girder");
}

void DrawLegend(Svg& svg, const Measure& diameter, const FrmTank& form) {
  DrawingLegend legend(svg);
  const bool on_columns = form.tank_type == shell::kInternalFloatingRoof && !IsYes(form, "SELF_SUP");
  if (on_columns) {
    legend.Line(diameter, Columns(form), kInk);
  } else {
    legend.Line(diameter, kInk);
  }
  legend.Line(Size(form, "VOLUME", {"V", ""}, "gal"), kInk);
  // A welded deck has no seams that count.
  if (StoredPhysical(form, "DECK_TYPE") == "Bolted") {
    legend.Line(Size(form, "DECK_SEAM_LENGTH", {"L", "SEAM"}, "ft"), kInk);
    legend.Line(Size(form, "SD", {"S", "D"}, "ft/sq ft"), kInk);
  }
  ListFloatingRoof(legend, form);
}

}  // namespace

std::string DrawFloatingRoofTank(const FrmTank& form) {
  auto svg = Paper(Heading(form), Kind(form));
  const auto diameter = Size(form, "DIAMETER", {"D", ""}, "ft");
  const auto height = HeightFromVolume(diameter.value, Size(form, "VOLUME", {}, "").value);
  const auto shell = FitShell(diameter.value, height, kRoom, kShellProportions);
  const auto inside = Inside(shell);
  const double level = shell.bottom - kRoofLevel * shell.Height();
  DrawGround(svg, kGround);
  DrawShell(svg, shell, PaintColor(StoredPhysical(form, "SHL COLSHD")));
  svg.Rectangle({inside.left, level, inside.right, inside.bottom}, {.fill = kLiquidColor, .stroke = ""});
  if (form.tank_type == shell::kInternalFloatingRoof) {
    DrawInternalParts(svg, shell, form);
  } else if (form.tank_type == shell::kDomedExternalFloatingRoof) {
    DrawDomeRoof(svg, shell, kDomeRise, "#dce3ea");
    DrawVent(svg, {shell.Center(), shell.top - kDomeRise});
  } else {
    DrawWindGirder(svg, shell);
  }
  DrawFloatingRoof(svg, shell, level, form);
  DrawSeals(svg, shell, level, form);
  DrawDimensionAcross(svg, shell.left, shell.right, shell.bottom, diameter);
  DrawLegend(svg, diameter, form);
  return svg.Finish();
}

}  // namespace orvex::entry
