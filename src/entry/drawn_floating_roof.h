#pragma once

#include "entry/drawing_legend.h"
#include "entry/frmtank.h"
#include "shell/svg.h"

/// What floats on the liquid of a drawn tank.
namespace orvex::entry {

/// The deck of an internal floating roof, or an external roof, with its underside at `level`.
void DrawFloatingRoof(Svg& svg, const Box& shell, double level, const FrmTank& form);

/// The seals between the roof's rim and the shell.
void DrawSeals(Svg& svg, const Box& shell, double level, const FrmTank& form);

/// Names roof and seals.
void ListFloatingRoof(DrawingLegend& legend, const FrmTank& form);

}  // namespace orvex::entry
