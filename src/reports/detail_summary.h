#pragma once

#include <pugixml.hpp>

#include "shell/session.h"

namespace orvex::reports {

/// Appends the roll-up of all tanks of a Detail or Summary report. A location is "city, state" whatever of it is known.
void DetailSummaryPage(shell::Session& session, pugi::xml_node summary);

}  // namespace orvex::reports
