#pragma once

#include <string>
#include <string_view>

#include "shell/session.h"

/// Texts that the reports have in common.
namespace orvex::reports {

/// A number of no-break spaces: indentation, and the content of an empty cell.
std::string NoBreakSpaces(int count);

/// "USER ID   -   tank type", both without blanks at their ends.
std::string ReportTankName(std::string_view user_id, std::string_view tank_type);

/// The chosen months' full names joined by ", ", or "Annual".
std::string PeriodText(const shell::Session& session);

}  // namespace orvex::reports
