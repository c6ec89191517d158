#pragma once

#include <cstdint>

#include "shell/session.h"

namespace orvex::emission {

/// Total deck fitting loss factor F_F {lb-mole/yr} of a tank's `fittings` at a wind {mph}.
double FittingFactor(shell::Session& session, std::int32_t ID, double wind_mph);

}  // namespace orvex::emission
