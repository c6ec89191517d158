#include "refdata/weather_plot.h"

#include <fmt/format.h>

#include <algorithm>

#include "refdata/line_chart.h"
#include "refdata/plot_paper.h"
#include "shell/entry_number.h"
#include "shell/periods.h"

namespace orvex::refdata {
namespace {

constexpr double kHeight = 444, kFooterFoot = 421;
constexpr std::size_t kMonths = shell::kMonths.size();
constexpr std::string_view kBandColor = "#eceef1";
constexpr Look kWarm{"#d55e00", "", Marker::kTriangle}, kCold{"#0072b2", "", Marker::kCircle},
    kSun{"#8a6100", "", Marker::kSquare}, kWindy{"#00795a", "", Marker::kDiamond};

/// A kind of value that a city has for each month and for the year.
struct Family {
  std::string_view prefix;  ///< of its fields
  std::string_view name;
  Look look;
};
constexpr Family kMaximum{"TAX_", "maximum", kWarm}, kMinimum{"TAN_", "minimum", kCold},
    kInsolation{"INSOL_", "", kSun}, kWind{"WIND_", "", kWindy};

/// Where a month stands on the axis: January at 1.
double Place(std::size_t month) { return static_cast<double>(month + 1); }
constexpr double kHalfMonth = 0.5;
constexpr std::size_t kMostNamed = 2;  ///< months that are told by their names

/// The number that a field holds; nothing for none, and for a text that is none.
std::optional<double> Given(const RecordEditor& form, std::string_view prefix, std::string_view suffix) {
  return shell::ParseEntryNumber(HeldText(form, fmt::format("{}{}", prefix, suffix)));
}

std::optional<double> Annual(const RecordEditor& form, const Family& family) {
  return Given(form, family.prefix, "ANN");
}

Curve Monthly(const RecordEditor& form, const Family& family) {
  Curve curve{std::string(family.name), family.look, {}, {}};
  for (std::size_t month = 0; month < kMonths; ++month) {
    curve.across.push_back(Place(month));
    curve.up.push_back(Given(form, family.prefix, shell::kMonths[month].suffix));
  }
  return curve;
}

Axis Months() {
  Axis axis{Place(0) - kHalfMonth, Place(kMonths - 1) + kHalfMonth, Scale::kLinear, {}};
  for (std::size_t month = 0; month < kMonths; ++month)
    axis.ticks.push_back({Place(month), std::string(shell::kMonths[month].name.substr(0, 1))});
  return axis;
}

/// A panel of the plot: some families that have one unit.
struct Panel {
  std::string_view heading;
  double top, bottom;  ///< of its chart
  std::vector<Family> families;
};
const Panel kPanels[] = {
    {"Daily temperature (F)", 48, 176, {kMaximum, kMinimum}},
    {"Solar insolation (Btu/(ft2 day))", 222, 290, {kInsolation}},
    {"Wind speed (mph)", 318, 386, {kWind}},
};
constexpr double kAboveChart = 10, kAboveFirst = 11;

Axis Values(const RecordEditor& form, const Panel& panel) {
  std::vector<double> values;
  for (const auto& family : panel.families) {
    for (const auto& value : Monthly(form, family).up)
      if (value) values.push_back(*value);
    if (const auto annual = Annual(form, family)) values.push_back(*annual);
  }
  return LinearAxis(values);
}

/// The months, from 0, whose minimum is above their maximum.
std::vector<std::size_t> Reversed(const RecordEditor& form) {
  const auto highest = Monthly(form, kMaximum).up, lowest = Monthly(form, kMinimum).up;
  std::vector<std::size_t> months;
  for (std::size_t month = 0; month < kMonths; ++month)
    if (highest[month] && lowest[month] && *lowest[month] > *highest[month]) months.push_back(month);
  return months;
}

bool IsEmpty(const RecordEditor& form) {
  return std::ranges::all_of(kPanels, [&](const Panel& panel) { return Values(form, panel).ticks.empty(); });
}

void DrawPanel(svg::Svg& svg, const RecordEditor& form, const Panel& panel, double left,
               const std::vector<std::size_t>& shaded) {
  LineChart chart(svg, {left, panel.top, kPlotWidth - kPlotEdge, panel.bottom}, Months(), Values(form, panel));
  std::vector<Curve> curves;
  for (const auto& family : panel.families) curves.push_back(Monthly(form, family));
  if (curves.size() == 2) {
    chart.FillBetween(curves[0], curves[1], kBandColor);
    for (const auto month : shaded) chart.Shade(Place(month) - kHalfMonth, Place(month) + kHalfMonth);
  }
  chart.DrawAxes(&panel != &kPanels[1]);
  for (const auto& family : panel.families)
    if (const auto annual = Annual(form, family)) chart.DrawLevel(*annual, family.look.color);
  for (const auto& curve : curves) chart.Draw(curve);
}

}  // namespace

std::string WeatherPlot(const RecordEditor& form) {
  auto svg = PlotPaper(kHeight, kPanels[0].heading);
  const auto shaded = Reversed(form);
  double left = 0;
  for (const auto& panel : kPanels) left = std::max(left, kPlotEdge + LabelRoom(Values(form, panel)));
  for (const auto& panel : kPanels) {
    if (&panel != &kPanels[0]) svg.Text({kPlotEdge, panel.top - kAboveChart}, svg::Anchor::kStart, panel.heading, kInk);
    DrawPanel(svg, form, panel, left, shaded);
  }
  DrawLegend(svg, {kPlotEdge, kPanels[0].top - kAboveFirst}, {Monthly(form, kMaximum), Monthly(form, kMinimum)});
  DrawParagraph(svg, kFooterFoot, WeatherSummary(form), shaded.empty() ? kFaintInk : kAlarmColor, 2);
  return svg.Finish();
}

std::string WeatherSummary(const RecordEditor& form) {
  const auto months = Reversed(form);
  if (months.size() > kMostNamed) return fmt::format("In {} months the minimum is above the maximum.", months.size());
  if (!months.empty()) {
    std::vector<std::string_view> names;
    for (const auto month : months) names.push_back(shell::kMonths[month].name);
    return fmt::format("The minimum is above the maximum in {}.", fmt::join(names, ", "));
  }
  return IsEmpty(form) ? "No weather is filled in yet." : "Dashed: the annual values.";
}

}  // namespace orvex::refdata
