#include "shell/svg.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "shell/xml_text.h"
#include "store/utf8.h"

namespace orvex::svg {
namespace {

constexpr int kIndexLetters = 10;

std::string Attribute(std::string_view name, std::string_view value) {
  return value.empty() ? "" : fmt::format(" {}=\"{}\"", name, value);
}

std::string Attributes(const Paint& paint, std::string_view part) {
  auto text = Attribute("class", part) + fmt::format(" fill=\"{}\"", paint.fill.empty() ? "none" : paint.fill);
  if (!paint.stroke.empty()) text += fmt::format(" stroke=\"{}\" stroke-width=\"{:.2f}\"", paint.stroke, paint.width);
  return text + Attribute("stroke-dasharray", paint.dashes);
}

std::string_view AnchorName(Anchor anchor) {
  switch (anchor) {
    case Anchor::kStart:
      return "start";
    case Anchor::kMiddle:
      return "middle";
    case Anchor::kEnd:
      return "end";
  }
  return {};
}

std::string TextElement(Point at, Anchor anchor, std::string_view color, std::string_view content) {
  return fmt::format("<text x=\"{:.2f}\" y=\"{:.2f}\" text-anchor=\"{}\" fill=\"{}\">{}</text>\n", at.x, at.y,
                     AnchorName(anchor), color, content);
}

}  // namespace

Svg::Svg(double width, double height, int letters)
    : elements_(fmt::format("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                            "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\"{0:.0f}\" "
                            "height=\"{1:.0f}\" viewBox=\"0 0 {0:.0f} {1:.0f}\" font-family=\"sans-serif\" "
                            "font-size=\"{2}\">\n",
                            width, height, letters)) {}

void Svg::Rectangle(const Box& box, const Paint& paint, std::string_view part) {
  fmt::format_to(std::back_inserter(elements_),
                 "<rect x=\"{:.2f}\" y=\"{:.2f}\" width=\"{:.2f}\" height=\"{:.2f}\"{}/>\n", box.left, box.top,
                 box.Width(), box.Height(), Attributes(paint, part));
}

void Svg::Line(Point from, Point to, const Paint& paint, std::string_view part) {
  fmt::format_to(std::back_inserter(elements_), "<line x1=\"{:.2f}\" y1=\"{:.2f}\" x2=\"{:.2f}\" y2=\"{:.2f}\"{}/>\n",
                 from.x, from.y, to.x, to.y, Attributes(paint, part));
}

void Svg::Circle(Point center, double radius, const Paint& paint, std::string_view part) {
  fmt::format_to(std::back_inserter(elements_), "<circle cx=\"{:.2f}\" cy=\"{:.2f}\" r=\"{:.2f}\"{}/>\n", center.x,
                 center.y, radius, Attributes(paint, part));
}

void Svg::Path(std::string_view commands, const Paint& paint, std::string_view part) {
  fmt::format_to(std::back_inserter(elements_), "<path d=\"{}\"{}/>\n", commands, Attributes(paint, part));
}

void Svg::Text(Point at, Anchor anchor, std::string_view text, std::string_view color) {
  elements_ += TextElement(at, anchor, color, shell::EscapeXml(text));
}

void Svg::Text(Point at, Anchor anchor, Symbol symbol, std::string_view rest, std::string_view color) {
  auto content = fmt::format("<tspan font-style=\"italic\">{}</tspan>", symbol.letter);
  if (!symbol.index.empty()) content += fmt::format("<tspan font-size=\"{}\">{}</tspan>", kIndexLetters, symbol.index);
  elements_ += TextElement(at, anchor, color, content + shell::EscapeXml(rest));
}

std::string Svg::Finish() const { return elements_ + "</svg>\n"; }

std::string Shortened(std::string_view text, std::size_t letters) {
  if (store::CharacterCount(text) <= letters) return std::string(text);
  std::string shown;
  for (std::size_t i = 1; i < letters; ++i)
    store::AppendCharacter(shown, store::TakeCharacter(text).value_or(store::kReplacementCharacter));
  return shown + "…";
}

std::vector<std::string> Lines(std::string_view text, std::size_t letters) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const auto word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(word.size() + 1, text.size()));
    if (!lines.empty() && store::CharacterCount(lines.back()) + 1 + store::CharacterCount(word) <= letters) {
      lines.back().append(" ").append(word);
    } else {
      lines.emplace_back(word);
    }
  }
  return lines;
}

PathData::PathData(Point start) : commands_(fmt::format("M{:.2f} {:.2f}", start.x, start.y)) {}

PathData& PathData::To(Point end) {
  fmt::format_to(std::back_inserter(commands_), " L{:.2f} {:.2f}", end.x, end.y);
  return *this;
}

PathData& PathData::Bend(Point corner, Point end) {
  fmt::format_to(std::back_inserter(commands_), " Q{:.2f} {:.2f} {:.2f} {:.2f}", corner.x, corner.y, end.x, end.y);
  return *this;
}

PathData& PathData::Close() {
  commands_ += " Z";
  return *this;
}

}  // namespace orvex::svg
