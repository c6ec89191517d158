#include "reports/detail_summary.h"

#include <string>

#include "reports/tank_sums.h"
#include "shell/trap.h"

namespace orvex::reports {
namespace {

std::string Location(const TankLosses& tank) { return tank.city.TextOrEmpty() + ", " + tank.state; }

}  // namespace

void DetailSummaryPage(shell::Session& session, pugi::xml_node summary) {
  shell::Trapped(session, "frmPreview.DetailSummaryPage", [&] { AddTankSums(session, summary, Location); });
}

}  // namespace orvex::reports
