#pragma once

#include <string>

#include "entry/frmtank.h"

namespace orvex::entry {

/// Of the drawing, in its units.
inline constexpr int kDrawingWidth = 260, kDrawingHeight = 420;

/// The tank in section with its dimensions as they stand in the entries of the physical page, as an SVG text made to
/// be shown one unit a pixel or larger. There is a drawing for each type and kind of roof: signs at the tank, and below
/// it a list of what they stand for. What is not given, or is no number, is drawn in its
/// usual shape and has its symbol alone.
std::string TankDrawing(const FrmTank& form);

}  // namespace orvex::entry
