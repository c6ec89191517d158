#pragma once

#include "shell/session.h"

namespace orvex::reports {

inline constexpr const char* kBriefData = "briefdata.xml";
inline constexpr const char* kBriefDisplay = "briefdisplay.htm";

/// Writes the Brief report of the tanks of `TankList` to the application's folder, from the rows that the last run left
/// in `emission`, and opens a browser on its display page. A tank without such rows is passed over.
void BriefReport(shell::Session& session);

}  // namespace orvex::reports
