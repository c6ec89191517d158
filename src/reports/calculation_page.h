#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "reports/detail_tank.h"
#include "shell/session.h"
#include "store/record_set.h"

namespace orvex::reports {

/// Appends `Detail`: every intermediate value of a tank's calculation on a line of its own, with one cell for the year
/// or one for each month, and the fittings of a deck with their losses.
void DetailReportPage3(shell::Session& session, const DetailTank& tank, pugi::xml_node tank_element);

/// The cell text of a line that tells a constant: the value, or in a report by months the value and a bar for each
/// month that has a row, a bar alone for each one before the last row that has none.
std::string DetCalcHCLine(shell::Session& session, std::string_view value, store::RecordSet& emission, bool monthly);

/// Appends the cells of one line to its `Value` element, by its field word (see calculation_lines.h). A failure is
/// shown, and leaves out the cells from there on.
void AddCells(shell::Session& session, std::string_view field, store::RecordSet& emission, bool monthly,
              pugi::xml_node value);

}  // namespace orvex::reports
