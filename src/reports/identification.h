#pragma once

#include <pugixml.hpp>

#include "reports/detail_tank.h"
#include "shell/session.h"

namespace orvex::reports {

/// Appends what a tank is: its name and type, and under `PhysicalChar` its identification, the groups of its type, its
/// deck fittings and its city's weather. A field that is null, or that is not there, leaves out just its own element.
void DetailReportPage1(shell::Session& session, const DetailTank& tank, pugi::xml_node tank_element);

}  // namespace orvex::reports
