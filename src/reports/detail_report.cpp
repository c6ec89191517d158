#include "reports/detail_report.h"

#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "reports/calculation_page.h"
#include "reports/detail_summary.h"
#include "reports/detail_tank.h"
#include "reports/emission_totals.h"
#include "reports/identification.h"
#include "reports/liquid_contents.h"
#include "reports/report_document.h"
#include "reports/report_file.h"
#include "reports/report_text.h"
#include "reports/report_unit.h"

namespace orvex::reports {
namespace {

constexpr std::string_view kSummaryType = "Summary";

std::string Location(store::RecordSet& tank) {
  if (tank.IsNull("CITY") || tank.IsNull("STATE")) return {};
  return tank.Text("CITY") + ", " + tank.Text("STATE");
}

/// The tanks of `TankList`; none in the place of one that is not there.
std::vector<std::optional<DetailTank>> FindTanks(shell::Session& session) {
  std::vector<std::optional<DetailTank>> tanks;
  auto mixtures = OpenMixtures(session);
  auto row = session.ClientDb->OpenTable("tank");
  row.SetIndex("USER ID");
  for (const auto& user_id : session.TankList) {
    row.Seek({user_id});
    if (row.NoMatch()) {
      tanks.emplace_back();
      continue;
    }
    const auto id = row.Long("ID");
    DetailTank tank{.id = id,
                    .unit = ReportUnit(session, mixtures, id),
                    .name = ReportTankName(row.TextOrEmpty("USER ID"), row.TextOrEmpty("TANK_TYPE")),
                    .location = Location(row)};
    tanks.emplace_back(std::move(tank));
  }
  return tanks;
}

SummedTanks MonthlyTanks(const std::vector<std::optional<DetailTank>>& tanks) {
  std::unordered_set<std::int32_t> ids;
  for (const auto& tank : tanks)
    if (tank && tank->Monthly()) ids.insert(tank->id);
  return SummedTanks(std::move(ids));
}

void AddContent(shell::Session& session, pugi::xml_node report) {
  // One view of each file for all pages, so that they agree with each other.
  store::Transaction client_view(*session.ClientDb, store::Transaction::Purpose::kRead);
  store::Transaction reference_view(*session.ReferenceDb, store::Transaction::Purpose::kRead);
  const auto period = PeriodText(session);
  AddElement(report, "TYPE", session.ReportType);
  const auto tanks = FindTanks(session);
  auto summed = MonthlyTanks(tanks);
  for (const auto& tank : tanks) {
    auto element = AddElement(report, "Tank");
    AddElement(element, "TimePeriod", period);
    AddElement(element, "Location", tank ? tank->location : "");
    if (!tank) continue;
    DetailReportPage1(session, *tank, element);
    DetailReportPage2(session, *tank, element);
    if (session.ReportType != kSummaryType) DetailReportPage3(session, *tank, element);
    DetailReportPage4(session, *tank, summed, element);
  }
  if (tanks.size() > 1) {
    auto summary = AddElement(report, "Summary");
    AddAttribute(summary, "months", period);
    DetailSummaryPage(session, summary);
  }
  reference_view.Commit();
  client_view.Commit();
}

}  // namespace

void DetailReport(shell::Session& session) {
  WriteReport(session, {.routine = "frmPreview.DetailReport", .data = kSummaryData, .display = kSummaryDisplay},
              AddContent);
}

}  // namespace orvex::reports
