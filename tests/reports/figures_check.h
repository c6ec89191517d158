#pragma once

#include <pugixml.hpp>

#include "reports/report_faults.h"

namespace orvex::test {

/// Checks that the parts of a report agree with one another: names and types of a tank, months, sums, and the columns
/// of the calculation with the rows of the contents. The file is one that its grammar takes.
void CheckFigures(const pugi::xml_node& report, Faults& faults);

}  // namespace orvex::test
