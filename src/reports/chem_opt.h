#pragma once

#include <string>
#include <string_view>

#include "shell/session.h"

namespace orvex::reports {

/// On which data of the chemical table a vapor pressure at a temperature {deg F} rests, and these data: "Option 2:
/// A=6.905, B=1211.033, C=220.79". Empty for a name that the table does not hold, for one without data, and where a
/// table by temperature ends below the temperature.
std::string ChemOpt(shell::Session& session, std::string_view name, double temperature_f);

}  // namespace orvex::reports
