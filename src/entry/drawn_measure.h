#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "entry/frmtank.h"
#include "shell/svg.h"

/// What a drawing of the tank takes from the entries of its physical page.
namespace orvex::entry {

using svg::Anchor, svg::Box, svg::Paint, svg::PathData, svg::Point, svg::Svg, svg::Symbol;

/// A quantity and how it is written.
struct Measure {
  Symbol symbol;
  std::string_view unit;
  std::optional<double> value;  ///< nothing while it is not given, or is no number
};

/// A size: a number above zero, since zero means that it is not given yet.
Measure Size(const FrmTank& form, std::string_view field, Symbol symbol, std::string_view unit);
/// A setting: any number.
Measure Setting(const FrmTank& form, std::string_view field, Symbol symbol, std::string_view unit);

/// Settings of the breather vent of a fixed roof.
Measure VacuumSetting(const FrmTank& form);
Measure PressureSetting(const FrmTank& form);

/// What follows the symbol: " = 30 ft"; nothing without a value.
std::string ValueText(const Measure& measure);

/// What the entry for the field stores; empty if the tank's type has none.
std::string StoredPhysical(const FrmTank& form, std::string_view field);
/// Whether "Yes" is chosen.
bool IsYes(const FrmTank& form, std::string_view field);

/// The colour that a color/shade is drawn in.
std::string_view PaintColor(std::string_view color_shade);

}  // namespace orvex::entry
