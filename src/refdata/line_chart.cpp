#include "refdata/line_chart.h"

#include <algorithm>

#include "refdata/plot_paper.h"
#include "store/utf8.h"

namespace orvex::refdata {
namespace {

using svg::Anchor, svg::Paint, svg::PathData, svg::Point;

constexpr double kGap = 5;                     ///< between a label and what it labels
constexpr double kLetterRise = 4;              ///< from the middle of a letter to its foot
constexpr double kMark = 3.2;                  ///< half the size of a marker
constexpr double kSample = 24, kBetween = 16;  ///< length of a line in the legend, and room behind its name
constexpr double kCurveWidth = 1.8;

void DrawMark(svg::Svg& svg, Point at, const Look& look) {
  const Paint paint{.fill = look.color, .stroke = "#ffffff", .width = 0.6};
  const auto [x, y] = at;
  switch (look.marker) {
    case Marker::kCircle:
      return svg.Circle(at, kMark, paint, "mark");
    case Marker::kSquare:
      return svg.Rectangle({x - kMark, y - kMark, x + kMark, y + kMark}, paint, "mark");
    case Marker::kTriangle: {
      PathData path({x - kMark, y + kMark});
      return svg.Path(path.To({x + kMark, y + kMark}).To({x, y - kMark}).Close().Commands(), paint, "mark");
    }
    case Marker::kDiamond: {
      constexpr double kLong = 1.3 * kMark;
      PathData path({x - kLong, y});
      return svg.Path(path.To({x, y - kLong}).To({x + kLong, y}).To({x, y + kLong}).Close().Commands(), paint, "mark");
    }
  }
}

Paint LineOf(const Look& look) {
  return {.fill = {}, .stroke = look.color, .width = kCurveWidth, .dashes = look.dashes};
}

}  // namespace

Point LineChart::At(double across, double up) const {
  return {room_.left + Share(across_, across) * room_.Width(), room_.bottom - Share(up_, up) * room_.Height()};
}

void LineChart::DrawAxes(bool labels_across) {
  const Paint grid{.fill = {}, .stroke = kGridColor, .width = 1};
  for (const auto& tick : up_.ticks) {
    const double y = At(across_.low, tick.value).y;
    svg_.Line({room_.left, y}, {room_.right, y}, grid, "grid");
    svg_.Text({room_.left - kGap, y + kLetterRise}, Anchor::kEnd, tick.label, kFaintInk);
  }
  for (const auto& tick : across_.ticks) {
    const double x = At(tick.value, up_.low).x;
    svg_.Line({x, room_.top}, {x, room_.bottom}, grid, "grid");
    if (labels_across) svg_.Text({x, room_.bottom + kGap + kPlotLetters}, Anchor::kMiddle, tick.label, kFaintInk);
  }
  svg_.Rectangle(room_, {.fill = {}, .stroke = kFaintInk, .width = 1}, "frame");
}

void LineChart::Shade(double from, double to) {
  svg_.Rectangle({At(from, up_.low).x, room_.top, At(to, up_.low).x, room_.bottom}, {.fill = kAlarmShade, .stroke = {}},
                 "shade");
}

void LineChart::FillBetween(const Curve& upper, const Curve& lower, std::string_view color) {
  for (std::size_t i = 0; i + 1 < upper.across.size(); ++i) {
    if (!upper.up[i] || !lower.up[i] || !upper.up[i + 1] || !lower.up[i + 1]) continue;
    const double from = upper.across[i], to = upper.across[i + 1];
    PathData path(At(from, *upper.up[i]));
    path.To(At(to, *upper.up[i + 1])).To(At(to, *lower.up[i + 1])).To(At(from, *lower.up[i])).Close();
    svg_.Path(path.Commands(), {.fill = color, .stroke = {}}, "band");
  }
}

void LineChart::Draw(const Curve& curve) {
  std::optional<PathData> path;
  const auto end_piece = [&] {
    if (path) svg_.Path(path->Commands(), LineOf(curve.look), "curve");
    path.reset();
  };
  for (std::size_t i = 0; i < curve.across.size(); ++i) {
    if (!curve.up[i]) {
      end_piece();
    } else if (const auto point = At(curve.across[i], *curve.up[i]); path) {
      path->To(point);
    } else {
      path.emplace(point);
    }
  }
  end_piece();
  DrawMarks(curve);
}

void LineChart::DrawMarks(const Curve& curve) {
  const auto& up = curve.up;
  for (std::size_t i = 0; i < up.size(); ++i) {
    if (!up[i]) continue;
    const bool alone = (i == 0 || !up[i - 1]) && (i + 1 == up.size() || !up[i + 1]);
    if (alone || i % curve.marks_every == curve.first_mark) DrawMark(svg_, At(curve.across[i], *up[i]), curve.look);
  }
}

void LineChart::DrawLevel(double up, std::string_view color) {
  const double y = At(across_.low, up).y;
  svg_.Line({room_.left, y}, {room_.right, y}, {.fill = {}, .stroke = color, .width = 1.4, .dashes = "5 4"}, "level");
}

double LabelRoom(const Axis& up) {
  std::size_t letters = 0;
  for (const auto& tick : up.ticks) letters = std::max(letters, tick.label.size());
  return static_cast<double>(letters) * kLetterWidth + kGap;
}

double DrawLegend(svg::Svg& svg, Point start, const std::vector<Curve>& curves) {
  auto at = start;
  for (const auto& curve : curves) {
    const double width = kSample + kGap + static_cast<double>(store::CharacterCount(curve.name)) * kLetterWidth;
    if (at.x > start.x && at.x + width > kPlotWidth - kPlotEdge) at = {start.x, at.y + kLineHeight};
    const double middle = at.y - kLetterRise;
    svg.Line({at.x, middle}, {at.x + kSample, middle}, LineOf(curve.look), "sample");
    DrawMark(svg, {at.x + kSample / 2, middle}, curve.look);
    svg.Text({at.x + kSample + kGap, at.y}, Anchor::kStart, curve.name, kInk);
    at.x += width + kBetween;
  }
  return at.y;
}

}  // namespace orvex::refdata
