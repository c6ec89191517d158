#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// An SVG picture written piece by piece, of the few elements that every reader of SVG draws. Lengths are in its own
/// units, from the upper left corner.
namespace orvex::svg {

struct Point {
  double x, y;
};

struct Box {
  double left, top, right, bottom;
  [[nodiscard]] double Width() const { return right - left; }
  [[nodiscard]] double Height() const { return bottom - top; }
  [[nodiscard]] double Center() const { return (left + right) / 2; }
  [[nodiscard]] double Middle() const { return (top + bottom) / 2; }
};

/// Colours as SVG writes them; an empty one is not drawn.
struct Paint {
  std::string_view fill;
  std::string_view stroke;
  double width = 1;
  std::string_view dashes = {};
};

/// Which end of a text stands at its point.
enum class Anchor : unsigned char { kStart, kMiddle, kEnd };

/// A quantity's sign: a slanted letter, an index in smaller letters.
struct Symbol {
  std::string_view letter;
  std::string_view index;
};

inline constexpr int kUsualLetters = 13;

/// Elements take the name of the part of the picture that they draw, which readers can ask for as its class.
class Svg {
 public:
  /// @param letters size of the letters of its texts
  Svg(double width, double height, int letters = kUsualLetters);

  void Rectangle(const Box& box, const Paint& paint, std::string_view part = {});
  void Line(Point from, Point to, const Paint& paint, std::string_view part = {});
  void Circle(Point center, double radius, const Paint& paint, std::string_view part = {});
  /// A path by its commands, which `PathData` makes.
  void Path(std::string_view commands, const Paint& paint, std::string_view part = {});
  /// A text of any characters.
  void Text(Point at, Anchor anchor, std::string_view text, std::string_view color);
  /// A symbol and what follows it.
  void Text(Point at, Anchor anchor, Symbol symbol, std::string_view rest, std::string_view color);

  /// The picture as drawn so far.
  [[nodiscard]] std::string Finish() const;

 private:
  std::string elements_;
};

/// As many of a text's letters as there is room for; what is left out shows as an ellipsis.
std::string Shortened(std::string_view text, std::size_t letters);
/// The lines of a text of words, each of no more letters than this where its words allow it.
std::vector<std::string> Lines(std::string_view text, std::size_t letters);

/// The commands of a path.
class PathData {
 public:
  explicit PathData(Point start);
  PathData& To(Point end);
  /// A parabola whose tangents at both ends meet in `corner`.
  PathData& Bend(Point corner, Point end);
  PathData& Close();
  [[nodiscard]] std::string_view Commands() const { return commands_; }

 private:
  std::string commands_;
};

}  // namespace orvex::svg
