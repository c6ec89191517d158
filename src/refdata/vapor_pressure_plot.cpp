#include "refdata/vapor_pressure_plot.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "refdata/line_chart.h"
#include "refdata/plot_paper.h"
#include "refdata/vapor_pressure_options.h"

namespace orvex::refdata {
namespace {

constexpr double kTolerance = 0.05;
constexpr double kHeight = 315, kLegendFoot = 38, kFooter = 81;
constexpr int kFooterLines = 4;
constexpr std::size_t kTenDegrees = 10;

constexpr std::string_view kNothing =
    "No option is filled in completely yet. Its vapor pressure from 40 F to 100 F will be drawn here.";
constexpr std::string_view kShadedOnly = "Options differ by more than 5 percent at the shaded temperatures.";

/// By the option's number. The marks stand at different temperatures, so that those of equal curves show side by side.
struct OptionLook {
  Look look;
  std::size_t first_mark;
};
constexpr OptionLook kLooks[] = {
    {{"#0072b2", "", Marker::kCircle}, 0},
    {{"#d55e00", "7 3", Marker::kSquare}, 3},
    {{"#00795a", "2 3", Marker::kTriangle}, 6},
    {{"#7b3294", "8 3 2 3", Marker::kDiamond}, 8},
};

/// Temperatures {F} that follow each other degree by degree.
struct Range {
  double from, to;
};

double Fahrenheit(std::size_t i) { return kFirstFahrenheit + static_cast<double>(i); }

/// The ranges in which something holds.
template <typename Holds>
std::vector<Range> Ranges(std::size_t count, Holds&& holds) {
  std::vector<Range> ranges;
  for (std::size_t i = 0; i < count; ++i) {
    if (!holds(i)) continue;
    if (ranges.empty() || ranges.back().to != Fahrenheit(i) - 1) {
      ranges.push_back({Fahrenheit(i), Fahrenheit(i)});
    } else {
      ranges.back().to = Fahrenheit(i);
    }
  }
  return ranges;
}

std::string RangeText(const Range& range) {
  return range.from == range.to ? fmt::format("at {} F", range.from)
                                : fmt::format("from {} F to {} F", range.from, range.to);
}

std::string RangesText(const std::vector<Range>& ranges) {
  if (ranges.size() > 2) return fmt::format("in places from {} F to {} F", ranges.front().from, ranges.back().to);
  auto text = RangeText(ranges.front());
  if (ranges.size() == 2) text += " and " + RangeText(ranges.back());
  return text;
}

bool Differ(const std::optional<double>& one, const std::optional<double>& other) {
  return one && other && std::abs(*one - *other) > kTolerance * std::max(std::abs(*one), std::abs(*other));
}

/// Two options, and where they differ.
struct Difference {
  int one, other;
  std::vector<Range> ranges;
};

std::vector<Difference> Differences(const std::vector<VaporPressureCurve>& curves) {
  std::vector<Difference> found;
  for (auto one = curves.begin(); one != curves.end(); ++one) {
    for (auto other = one + 1; other != curves.end(); ++other) {
      auto ranges = Ranges(one->psia.size(), [&](std::size_t i) { return Differ(one->psia[i], other->psia[i]); });
      if (!ranges.empty()) found.push_back({one->option, other->option, std::move(ranges)});
    }
  }
  return found;
}

void AppendSentence(std::string& text, std::string_view sentence) {
  if (!text.empty() && !sentence.empty()) text += ' ';
  text += sentence;
}

std::string MissingText(const std::vector<VaporPressureCurve>& curves) {
  std::string text;
  for (const auto& curve : curves) {
    const auto ranges = Ranges(curve.psia.size(), [&](std::size_t i) { return !curve.psia[i]; });
    if (ranges.empty()) continue;
    AppendSentence(text, fmt::format("Option {} gives no vapor pressure {}.", curve.option, RangesText(ranges)));
  }
  return text;
}

/// That a calculation goes by an option which is not filled in completely, and takes no notice of the others.
std::string UnusedText(const RecordEditor& form, const std::vector<VaporPressureCurve>& curves) {
  const auto lacks = [&](int option) {
    return std::ranges::find(curves, option, &VaporPressureCurve::option) == curves.end();
  };
  const auto& category = HeldText(form, "CATEGORY");
  if (category == shell::kCrudeOils || category == shell::kPetroleumDistillates)
    return lacks(4) ? fmt::format("{} are calculated by option 4 alone.", category) : std::string();
  const bool goes_by_option_2 = category == shell::kOrganicLiquids && HeldNumber(form, "VP_COEF_B") != 0;
  return goes_by_option_2 && lacks(2) ? fmt::format("With a B, {} are calculated by option 2 alone.", category)
                                      : std::string();
}

std::string DifferenceText(const std::vector<Difference>& differences) {
  std::string text;
  for (const auto& [one, other, ranges] : differences)
    AppendSentence(text,
                   fmt::format("Options {} and {} differ by more than 5 percent {}.", one, other, RangesText(ranges)));
  return text;
}

/// What is wrong with options by themselves.
std::string FaultText(const RecordEditor& form, const std::vector<VaporPressureCurve>& curves) {
  auto text = UnusedText(form, curves);
  AppendSentence(text, MissingText(curves));
  return text;
}

std::vector<Curve> DrawnCurves(const std::vector<VaporPressureCurve>& curves) {
  std::vector<Curve> drawn;
  for (const auto& [option, psia] : curves) {
    const auto& [look, first_mark] = kLooks[option - 1];
    Curve curve{fmt::format("Option {}", option), look, {}, psia, first_mark, kTenDegrees};
    for (std::size_t i = 0; i < psia.size(); ++i) curve.across.push_back(Fahrenheit(i));
    drawn.push_back(std::move(curve));
  }
  return drawn;
}

Axis Temperatures() {
  Axis axis{kFirstFahrenheit, kLastFahrenheit, Scale::kLinear, {}};
  for (double at = kFirstFahrenheit; at <= kLastFahrenheit; at += kTenDegrees)
    axis.ticks.push_back({at, fmt::format("{}", at)});
  return axis;
}

Axis Pressures(const std::vector<VaporPressureCurve>& curves) {
  std::vector<double> values;
  for (const auto& curve : curves)
    for (const auto& value : curve.psia)
      if (value) values.push_back(*value);
  return ReadableAxis(values);
}

}  // namespace

std::vector<VaporPressureCurve> VaporPressureCurves(const RecordEditor& form) {
  std::vector<VaporPressureCurve> curves;
  for (const auto& option : kVaporPressureOptions) {
    if (!IsFilled(form, option)) continue;
    VaporPressureCurve curve{option.number, {}};
    for (double fahrenheit = kFirstFahrenheit; fahrenheit <= kLastFahrenheit; ++fahrenheit)
      curve.psia.push_back(VaporPressure(form, option, fahrenheit));
    curves.push_back(std::move(curve));
  }
  return curves;
}

std::string VaporPressurePlot(const RecordEditor& form) {
  auto svg = PlotPaper(kHeight, "Vapor pressure (psia) at 40 F to 100 F");
  const auto curves = VaporPressureCurves(form);
  const auto differences = Differences(curves);
  const auto drawn = DrawnCurves(curves);
  const auto pressures = Pressures(curves);

  const double legend_foot = DrawLegend(svg, {kPlotEdge, kLegendFoot}, drawn);
  const svg::Box room{kPlotEdge + LabelRoom(pressures), legend_foot + 12, kPlotWidth - kPlotEdge - kLetterWidth,
                      kHeight - kFooter - 16};
  LineChart chart(svg, room, Temperatures(), pressures);
  for (const auto& difference : differences)
    for (const auto& [from, to] : difference.ranges) chart.Shade(from - 0.5, to + 0.5);
  chart.DrawAxes();
  for (const auto& curve : drawn) chart.Draw(curve);

  auto text = VaporPressureSummary(form);
  const auto faults = FaultText(form, curves);
  if (!FitsParagraph(text, kFooterLines)) {
    text = differences.empty() ? std::string() : std::string(kShadedOnly);
    AppendSentence(text, faults);
  }
  const bool alarming = !differences.empty() || !faults.empty();
  DrawParagraph(svg, kHeight - kFooter + 24, text, alarming ? kAlarmColor : kFaintInk, kFooterLines);
  return svg.Finish();
}

std::string VaporPressureSummary(const RecordEditor& form) {
  const auto curves = VaporPressureCurves(form);
  if (curves.empty()) return std::string(kNothing);
  auto text = DifferenceText(Differences(curves));
  AppendSentence(text, FaultText(form, curves));
  if (!text.empty()) return text;
  if (curves.size() == 1) return fmt::format("By option {}.", curves.front().option);
  return "The options agree within 5 percent.";
}

}  // namespace orvex::refdata
