#pragma once

#include <string_view>

#include "shell/session.h"

namespace orvex::emission {

/// Whether a liquid stands in the reference table `chemical`.
bool IsChemical(shell::Session& session, std::string_view name);

/// True vapor pressure {psia} of a liquid of `chemical` at a temperature {R}, by the form that its row fills; 0 where
/// none can be made: the name is unknown, or no form is complete.
double PVA(shell::Session& session, std::string_view Name, double T);

}  // namespace orvex::emission
