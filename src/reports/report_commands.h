#pragma once

#include "shell/command.h"

namespace orvex::reports {

// Each sets the kind and the time of the report, and opens the window in which its tanks, or first its months, are
// chosen.
void AnnualBrief(shell::Session& session);
void AnnualSummary(shell::Session& session);
void AnnualDetail(shell::Session& session);
void MonthlyBrief(shell::Session& session);
void MonthlySummary(shell::Session& session);
void MonthlyDetail(shell::Session& session);

/// The commands of the menu Report.
inline constexpr shell::Command kReportCommands[] = {
    {"mnuAnnBrief", AnnualBrief},  {"mnuAnnSummary", AnnualSummary},  {"mnuAnnDetail", AnnualDetail},
    {"mnuMonBrief", MonthlyBrief}, {"mnuMonSummary", MonthlySummary}, {"mnuDetail", MonthlyDetail},
};

}  // namespace orvex::reports
