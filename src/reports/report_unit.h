#pragma once

#include <cstdint>
#include <string>

#include "shell/session.h"
#include "store/record_set.h"

namespace orvex::reports {

/// The table `mixtures`, set up for `ReportUnit`.
store::RecordSet OpenMixtures(shell::Session& session);

/// The time basis on which a tank is shown, "Annual" or "Monthly": `ReportTime`, but an annual report shows a tank
/// with several mixtures, or with a mixture whose month flags differ, as the sum of its months.
std::string ReportUnit(const shell::Session& session, store::RecordSet& mixtures, std::int32_t ID);

}  // namespace orvex::reports
