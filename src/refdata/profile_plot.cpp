#include "refdata/profile_plot.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "refdata/chart_axis.h"
#include "refdata/plot_paper.h"
#include "refdata/profile_types.h"
#include "shell/number_format.h"

namespace orvex::refdata {
namespace {

constexpr double kHeight = 340, kFirstRow = 32, kRowHeight = 17, kFooterFoot = 318;
constexpr std::size_t kMostRows = 14, kNameLetters = 15;
constexpr double kBarsLeft = kPlotEdge + kNameLetters * kLetterWidth + 6, kBarsRight = 258;
constexpr double kBarEdge = 3, kLetterFoot = 12.5;
constexpr double kLeastBand = 4;  ///< width of the range, which is too narrow to be seen by its numbers alone
constexpr std::string_view kBarColor = "#0072b2", kLastBarColor = "#7fb4d6", kBandColor = "#bfe3d6";
constexpr double kReadable = 1e4;

/// A bar: from the sum before the component to the sum with it.
struct Row {
  std::string name;
  double before, after;
  bool many;
};

std::vector<Row> Rows(const std::vector<ProfileShare>& shares) {
  const bool all = shares.size() <= kMostRows;
  const auto single = all ? shares.size() : kMostRows - 1;
  std::vector<Row> rows;
  double sum = 0;
  for (std::size_t i = 0; i < shares.size(); ++i) {
    const double before = std::exchange(sum, sum + shares[i].percent);
    if (i < single) {
      rows.push_back({shares[i].name, before, sum, false});
    } else if (i == single) {
      rows.push_back({fmt::format("{} others", shares.size() - single), before, sum, true});
    } else {
      rows.back().after = sum;
    }
  }
  return rows;
}

/// A number with two decimals, or with few digits if it is so great that nobody means it.
std::string NumberText(double value) {
  return std::abs(value) < kReadable ? shell::FormatFixed(value) : fmt::format("{:.0E}", value);
}

class Bars {
 public:
  Bars(svg::Svg& svg, const std::vector<Row>& rows) : svg_(svg), rows_(rows), axis_(SumAxis(rows)) {}

  void Draw(const ProfileRecord& profile) {
    const svg::Box room{kBarsLeft, kFirstRow, kBarsRight, kFirstRow + kRowHeight * static_cast<double>(kMostRows)};
    if (profile.Type == kFullType) {
      const double from = X(kLeastFullSum), to = X(kGreatestSum), wider = std::max(0.0, kLeastBand - (to - from)) / 2;
      svg_.Rectangle({from - wider, room.top, to + wider, room.bottom}, {.fill = kBandColor, .stroke = {}}, "range");
    }
    for (const auto& tick : axis_.ticks) {
      const double x = X(tick.value);
      svg_.Line({x, room.top}, {x, room.bottom}, {.fill = {}, .stroke = kGridColor, .width = 1}, "grid");
      svg_.Text({x, room.bottom + kPlotLetters + 3}, svg::Anchor::kMiddle, tick.label, kFaintInk);
    }
    double top = room.top;
    for (const auto& row : rows_) {
      DrawRow(row, top);
      top += kRowHeight;
    }
    svg_.Line({X(100), room.top}, {X(100), room.bottom}, {.fill = {}, .stroke = kInk, .width = 1.2, .dashes = "5 3"},
              "whole");
  }

 private:
  static Axis SumAxis(const std::vector<Row>& rows) {
    std::vector<double> sums{0, 100};
    for (const auto& row : rows) sums.push_back(row.after);
    auto axis = LinearAxis(sums);
    // Only the ends and 100 are labelled where the numbers are great.
    if (axis.ticks.back().label.size() > 4) axis.ticks = {axis.ticks.front(), axis.ticks.back()};
    return axis;
  }

  [[nodiscard]] double X(double sum) const { return kBarsLeft + Share(axis_, sum) * (kBarsRight - kBarsLeft); }

  void DrawRow(const Row& row, double top) {
    const double from = X(row.before), to = X(row.after), foot = top + kLetterFoot;
    svg_.Text({kPlotEdge, foot}, svg::Anchor::kStart, svg::Shortened(row.name, kNameLetters), kInk);
    svg_.Rectangle({std::min(from, to), top + kBarEdge, std::max(from, to), top + kRowHeight - kBarEdge},
                   {.fill = row.many ? kLastBarColor : kBarColor, .stroke = kInk, .width = 0.6}, "share");
    svg_.Text({kPlotWidth - kPlotEdge, foot}, svg::Anchor::kEnd, NumberText(row.after), kInk);
  }

  svg::Svg& svg_;
  const std::vector<Row>& rows_;
  Axis axis_;
};

}  // namespace

std::string ProfilePlot(const ProfileRecord& profile) {
  auto svg = PlotPaper(kHeight, "Running sum of the shares (percent)");
  const auto rows = Rows(Shares(profile));
  Bars(svg, rows).Draw(profile);
  const bool refused = IsSumTooGreat(profile) || IsSumTooSmall(profile);
  DrawParagraph(svg, kFooterFoot, ProfileSummary(profile), refused ? kAlarmColor : kFaintInk, 2);
  return svg.Finish();
}

std::string ProfileSummary(const ProfileRecord& profile) {
  const auto sum = NumberText(SumOfShares(profile));
  if (profile.relative) return fmt::format("The relative weights add up to {}.", sum);
  const auto text = fmt::format("The shares add up to {} percent", sum);
  if (IsSumTooSmall(profile)) return text + ". A full profile needs 100.";
  if (IsSumTooGreat(profile)) return text + ", more than 100.";
  return text + ".";
}

}  // namespace orvex::refdata
