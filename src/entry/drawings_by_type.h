#pragma once

#include <string>

#include "entry/frmtank.h"

/// The drawing of each tank type.
namespace orvex::entry {

std::string DrawVerticalTank(const FrmTank& form);
std::string DrawHorizontalTank(const FrmTank& form);
/// Internal, external and domed.
std::string DrawFloatingRoofTank(const FrmTank& form);

}  // namespace orvex::entry
