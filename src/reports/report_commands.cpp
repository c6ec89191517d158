#include "reports/report_commands.h"

#include "reports/frmmonth.h"
#include "reports/frmtankrep.h"
#include "shell/periods.h"
#include "shell/trap.h"

namespace orvex::reports {
namespace {

constexpr std::string_view kLabel = "MDIForm1.";

void Ask(shell::Session& session, std::string_view type, std::string_view time) {
  shell::Trapped(session, kLabel, [&] {
    session.ReportType = type;
    session.ReportTime = time;
    session.host.ShowWindow(time == shell::kAnnual ? kFrmtankrepText.name : kFrmmonthText.name);
  });
}

}  // namespace

void AnnualBrief(shell::Session& session) { Ask(session, "Brief", shell::kAnnual); }
void AnnualSummary(shell::Session& session) { Ask(session, "Summary", shell::kAnnual); }
void AnnualDetail(shell::Session& session) { Ask(session, "Detail", shell::kAnnual); }
void MonthlyBrief(shell::Session& session) { Ask(session, "Brief", shell::kMonthly); }
void MonthlySummary(shell::Session& session) { Ask(session, "Summary", shell::kMonthly); }
void MonthlyDetail(shell::Session& session) { Ask(session, "Detail", shell::kMonthly); }

}  // namespace orvex::reports
