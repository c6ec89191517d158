#include <algorithm>
#include <cmath>

#include "entry/drawing_legend.h"
#include "entry/drawing_parts.h"
#include "entry/drawings_by_type.h"

namespace orvex::entry {
namespace {

constexpr Box kRoom = {48, 106, 200, kGround};
constexpr Proportions kShellProportions = {.least = 0.32, .usual = 0.9, .greatest = 2};
constexpr double kUsualFilling = 0.9, kUsualLevel = 0.5, kLowestLevel = 0.08;  // of the shell's height
constexpr double kLeastRise = 10, kGreatestRise = 42;
constexpr double kLineOfText = 16;

struct Sizes {
  Measure D, H_S, H_LX, H_L, H_R;
  bool dome;
  Measure form_of_roof;  ///< slope of a cone, radius of a dome
};

Sizes Read(const FrmTank& form) {
  const bool dome = StoredPhysical(form, "RF_TYPE") == "Dome";
  return {.D = Size(form, "DIAMETER", {"D", ""}, "ft"),
          .H_S = Size(form, "HEIGHT S", {"H", "S"}, "ft"),
          .H_LX = Size(form, "HEIGHT ML", {"H", "LX"}, "ft"),
          .H_L = Size(form, "HEIGHT AL", {"H", "L"}, "ft"),
          .H_R = Size(form, "RF_HEIGHT", {"H", "R"}, "ft"),
          .dome = dome,
          .form_of_roof = dome ? Size(form, "D_RADIUS", {"R", "R"}, "ft") : Size(form, "C_SLOPE", {"S", "R"}, "ft/ft")};
}

std::string_view Kind(const FrmTank& form) {
  const auto roof = StoredPhysical(form, "RF_TYPE");
  return roof == "Cone" ? "cone roof" : roof == "Dome" ? "dome roof" : "";
}

/// Height of the shell {ft}; one that the full tank fills in the usual way where it is not given.
std::optional<double> ShellHeight(const Sizes& sizes) {
  if (sizes.H_S.value || !sizes.H_LX.value) return sizes.H_S.value;
  return *sizes.H_LX.value / kUsualFilling;
}

/// Rise of the roof by diameter of the shell.
double RelativeRise(const Sizes& sizes) {
  constexpr double kUsualCone = 0.0625 / 2, kUsualDome = 0.134;  // a dome whose radius is the diameter
  const double usual = sizes.dome ? kUsualDome : kUsualCone;
  if (sizes.H_R.value) return sizes.D.value ? *sizes.H_R.value / *sizes.D.value : usual;
  if (!sizes.form_of_roof.value) return usual;
  if (!sizes.dome) return *sizes.form_of_roof.value / 2;
  if (!sizes.D.value) return usual;
  const double radius = *sizes.form_of_roof.value / *sizes.D.value;
  if (radius < 0.5) return usual;
  return 0.25 / (radius + std::sqrt(radius * radius - 0.25));
}

struct Levels {
  double maximum, average;  ///< heights on the paper
};

Levels DrawnLevels(const Sizes& sizes, const Box& inside) {
  const auto height = ShellHeight(sizes);
  const auto part = [&](const Measure& level, double usual) {
    return level.value && height ? std::clamp(*level.value / *height, kLowestLevel, 1.0) : usual;
  };
  const double maximum = part(sizes.H_LX, std::max(kUsualFilling, part(sizes.H_L, 0)));
  const double average = std::min(maximum, part(sizes.H_L, std::min(kUsualLevel, maximum)));
  return {inside.bottom - maximum * inside.Height(), inside.bottom - average * inside.Height()};
}

/// The mark of a liquid's surface, standing on it.
void DrawSurfaceMark(Svg& svg, Point at) {
  svg.Path(PathData(at).To({at.x - 4, at.y - 7}).To({at.x + 4, at.y - 7}).Close().Commands(),
           {.fill = "#ffffff", .stroke = kLevelColor});
}

void DrawLevel(Svg& svg, const Box& shell, double level, double arrows, double label, const Measure& measure) {
  const Paint thin = {.fill = "", .stroke = kLevelColor, .width = 0.8};
  const double end = shell.right + 22;
  svg.Line({shell.right + 2, level}, {end, level}, thin);
  svg.Line({end, level}, {end + 4, label}, thin);
  DrawArrows(svg, shell.right + arrows, shell.bottom, level, kLevelColor);
  DrawSign(svg, {end + 6, label + 5}, Anchor::kStart, measure, kLevelColor);
}

void DrawLevels(Svg& svg, const Box& shell, const Sizes& sizes) {
  const auto inside = Inside(shell);
  const auto levels = DrawnLevels(sizes, inside);
  svg.Rectangle({inside.left, levels.average, inside.right, inside.bottom}, {.fill = kLiquidColor, .stroke = ""});
  svg.Line({inside.left, levels.maximum}, {inside.right, levels.maximum},
           {.fill = "", .stroke = kLevelColor, .width = 1.2, .dashes = "5 3"}, "maximum-level");
  svg.Line({inside.left, levels.average}, {inside.right, levels.average},
           {.fill = "", .stroke = kLevelColor, .width = 1.5}, "average-level");
  DrawSurfaceMark(svg, {inside.right - 14, levels.average});
  // Where the levels are close, their labels part.
  const double apart = std::max(0.0, kLineOfText - (levels.average - levels.maximum)) / 2;
  DrawLevel(svg, shell, levels.maximum, 17, levels.maximum - apart, sizes.H_LX);
  DrawLevel(svg, shell, levels.average, 8, levels.average + apart, sizes.H_L);
}

void DrawLegend(Svg& svg, const Sizes& sizes, const FrmTank& form) {
  DrawingLegend legend(svg);
  legend.Line(sizes.H_S, sizes.D, kInk);
  legend.Line(sizes.H_LX, sizes.H_L, kLevelColor);
  legend.Line(sizes.H_R, sizes.form_of_roof, kInk);
  legend.Line(VacuumSetting(form), PressureSetting(form), kInk);
  legend.Line(Size(form, "VOLUME", {"V", ""}, "gal"), kInk);
  if (IsYes(form, "HEATED")) legend.Part(kHeatColor, "heated", "");
}

}  // namespace

std::string DrawVerticalTank(const FrmTank& form) {
  const auto sizes = Read(form);
  auto svg = Paper("Vertical fixed roof tank", Kind(form));
  DrawGround(svg, kGround);
  const auto shell = FitShell(sizes.D.value, ShellHeight(sizes), kRoom, kShellProportions);
  const double rise = std::clamp(RelativeRise(sizes) * shell.Width(), kLeastRise, kGreatestRise);
  DrawShell(svg, shell, PaintColor(StoredPhysical(form, "SHL COLSHD")));
  DrawLevels(svg, shell, sizes);
  const auto roof_color = PaintColor(StoredPhysical(form, "RF_COLSHD"));
  if (sizes.dome) {
    DrawDomeRoof(svg, shell, rise, roof_color);
  } else {
    DrawConeRoof(svg, shell, rise, roof_color);
  }
  const Point peak = {shell.Center(), shell.top - rise};
  DrawVent(svg, peak);
  DrawVentSettings(svg, peak, form);
  if (IsYes(form, "HEATED")) DrawHeating(svg, Inside(shell));

  DrawDimensionAcross(svg, shell.left, shell.right, shell.bottom, sizes.D);
  DrawDimensionUp(svg, shell.left - 12, {shell.left, shell.bottom}, {shell.left, shell.top}, sizes.H_S);
  DrawDimensionUp(svg, shell.left - 12, {shell.left, shell.top}, peak, sizes.H_R);
  const double slant = sizes.dome ? 0.75 : 0.5;  // height of the roof at half its radius
  DrawSign(svg, {shell.Center() + shell.Width() / 4 + 6, shell.top - slant * rise - 4}, Anchor::kStart,
           sizes.form_of_roof);
  DrawLegend(svg, sizes, form);
  return svg.Finish();
}

}  // namespace orvex::entry
