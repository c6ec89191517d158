#include "refdata/plot_paper.h"

namespace orvex::refdata {
namespace {

constexpr double kHeadingFoot = 18;
constexpr auto kLetters = static_cast<std::size_t>((kPlotWidth - 2 * kPlotEdge) / kLetterWidth);

}  // namespace

svg::Svg PlotPaper(double height, std::string_view heading) {
  svg::Svg svg(kPlotWidth, height, kPlotLetters);
  svg.Rectangle({0, 0, kPlotWidth, height}, {.fill = "#ffffff", .stroke = {}}, "paper");
  svg.Text({kPlotEdge, kHeadingFoot}, svg::Anchor::kStart, heading, kInk);
  return svg;
}

void DrawParagraph(svg::Svg& svg, double foot, std::string_view text, std::string_view color, int most_lines) {
  for (const auto& line : svg::Lines(text, kLetters)) {
    if (most_lines-- == 0) return;
    svg.Text({kPlotEdge, foot}, svg::Anchor::kStart, line, color);
    foot += kLineHeight;
  }
}

bool FitsParagraph(std::string_view text, int most_lines) {
  return svg::Lines(text, kLetters).size() <= static_cast<std::size_t>(most_lines);
}

}  // namespace orvex::refdata
