#pragma once

#include "shell/session.h"

namespace orvex::reports {

inline constexpr const char* kSummaryData = "summarydata.xml";
inline constexpr const char* kSummaryDisplay = "summarydisplay.htm";

/// Writes the Detail or Summary report (by `ReportType`) of the tanks of `TankList` to the application's folder, from
/// the rows that the last run left in `emission`, and opens a browser on its display page. A Summary leaves out the
/// calculation page; a tank that is not there any more has a `Tank` without pages.
void DetailReport(shell::Session& session);

}  // namespace orvex::reports
