#pragma once

#include <pugixml.hpp>

#include "reports/report_faults.h"

namespace orvex::test {

/// Checks the calculation of a tank (its `Detail`) against the other parts of the same tank.
void CheckCalculation(const pugi::xml_node& tank, Faults& faults);

}  // namespace orvex::test
