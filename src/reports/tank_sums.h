#pragma once

#include <pugixml.hpp>
#include <string>

#include "reports/losses.h"
#include "shell/session.h"

namespace orvex::reports {

/// Appends the roll-up of the tanks of `TankList`: a `TankSum` for each one that has rows in `emission`, with the
/// location as the report tells it, and their `Total`.
void AddTankSums(shell::Session& session, pugi::xml_node summary, std::string (*location)(const TankLosses&));

}  // namespace orvex::reports
