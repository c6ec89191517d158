#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The lines of a Detail report's calculation page, as tables by tank type.
namespace orvex::reports {

/// Begins the field word of a line whose cells are a text and no field.
inline constexpr std::string_view kConstantMark = "|_";

// Field words that are no names of columns of `emission`.
inline constexpr std::string_view kBlankLine = "linebreak";        ///< a line of blanks
inline constexpr std::string_view kHeading;                        ///< a label alone, its cells blank
inline constexpr std::string_view kRadius = "RADIUS";              ///< half of the diameter
inline constexpr std::string_view kFixedTotal = "TOTAL_LOSS";      ///< standing and working loss
inline constexpr std::string_view kFloatingTotal = "TOTAL_LOSS2";  ///< the four losses of a floating roof

struct CalculationLine {
  std::string label;  ///< with its indent of no-break spaces
  std::string field;  ///< field word

  friend bool operator==(const CalculationLine&, const CalculationLine&) = default;
};

/// What the lines depend on.
struct LineFacts {
  std::string_view tank_type, roof_type;
  bool underground = false;
  bool monthly = false;  ///< the tank is shown by months
};

/// The lines of a tank, first to last; none for a type that is not known.
std::vector<CalculationLine> CalculationLines(const LineFacts& facts);

/// Whether the tank type is one with a deck, whose fittings are listed behind the lines.
bool HasDeck(std::string_view tank_type);

}  // namespace orvex::reports
