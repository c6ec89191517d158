#pragma once

#include <pugixml.hpp>

#include "reports/detail_tank.h"
#include "shell/session.h"

namespace orvex::reports {

/// Appends a `LiquidContents` for each mixture and component that a tank holds, by months in the order of the calendar
/// when it is shown by months.
void DetailReportPage2(shell::Session& session, const DetailTank& tank, pugi::xml_node tank_element);

}  // namespace orvex::reports
