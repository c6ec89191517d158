#include "entry/drawing_legend.h"

#include "entry/drawing_parts.h"

namespace orvex::entry {
namespace {

constexpr double kFirstLine = kGround + 52, kLineHeight = 17;
constexpr double kSecondColumn = 136, kKindColumn = 128;
constexpr std::size_t kKindLetters = 17;

}  // namespace

double DrawingLegend::NextLine() { return kFirstLine + kLineHeight * lines_++; }

void DrawingLegend::Line(const Measure& measure, std::string_view color) {
  svg_.Text({kPaperEdge, NextLine()}, Anchor::kStart, measure.symbol, ValueText(measure), color);
}

void DrawingLegend::Line(const Measure& left, const Measure& right, std::string_view color) {
  const double foot = NextLine();
  svg_.Text({kPaperEdge, foot}, Anchor::kStart, left.symbol, ValueText(left), color);
  svg_.Text({kSecondColumn, foot}, Anchor::kStart, right.symbol, ValueText(right), color);
}

void DrawingLegend::Part(std::string_view color, std::string_view part, std::string_view kind) {
  constexpr double kSide = 9;
  const double foot = NextLine();
  svg_.Rectangle({kPaperEdge, foot - kSide, kPaperEdge + kSide, foot}, {.fill = color, .stroke = kInk, .width = 0.8});
  svg_.Text({kPaperEdge + kSide + 6, foot}, Anchor::kStart, part, kInk);
  if (!kind.empty()) svg_.Text({kKindColumn, foot}, Anchor::kStart, svg::Shortened(kind, kKindLetters), kFaintInk);
}

}  // namespace orvex::entry
