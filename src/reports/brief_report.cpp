#include "reports/brief_report.h"

#include <string>
#include <unordered_set>
#include <vector>

#include "reports/component_lines.h"
#include "reports/losses.h"
#include "reports/report_document.h"
#include "reports/report_file.h"
#include "reports/report_text.h"
#include "reports/report_unit.h"
#include "reports/tank_sums.h"
#include "shell/periods.h"

namespace orvex::reports {
namespace {

constexpr int kComponentIndent = 6;

/// A chosen tank as its rows of `emission` tell it.
struct ReportedTank {
  std::int32_t id;
  std::string user_id;
  std::string tank_type;
  std::string unit;  ///< `ReportUnit`
};

void AddTimePeriod(pugi::xml_node report, std::string_view value) {
  AddElement(AddElement(report, "TimePeriod"), "Value", value);
}

void AddTimePeriods(const shell::Session& session, pugi::xml_node report) {
  if (session.ReportTime == shell::kAnnual) {
    AddTimePeriod(report, shell::kAnnual);
    return;
  }
  for (std::size_t i = 0; i < shell::kMonths.size(); ++i)
    if (session.MonthSelected[i]) AddTimePeriod(report, shell::kMonths[i].name);
}

std::vector<ReportedTank> FindTanks(shell::Session& session) {
  std::vector<ReportedTank> tanks;
  auto mixtures = OpenMixtures(session);
  auto emission = session.ClientDb->OpenTable("emission");
  emission.SetIndex("USER ID");
  for (const auto& user_id : session.TankList) {
    emission.Seek({user_id});
    if (emission.NoMatch()) continue;
    const auto id = emission.LongOrZero("ID");
    tanks.push_back(
        {id, emission.TextOrEmpty("USER ID"), emission.TextOrEmpty("TANK_TYPE"), ReportUnit(session, mixtures, id)});
  }
  return tanks;
}

void AddTanks(shell::Session& session, pugi::xml_node report) {
  const auto tanks = FindTanks(session);
  std::unordered_set<std::int32_t> summed, stored;
  for (const auto& tank : tanks) (tank.unit == shell::kMonthly ? summed : stored).insert(tank.id);
  const auto summed_lines = SummedLines(*session.ClientDb, summed);
  const auto stored_lines = StoredLines(*session.ClientDb, stored);
  for (const auto& tank : tanks) {
    auto element = AddElement(report, "Tank");
    AddElement(element, "TankName", ReportTankName(tank.user_id, tank.tank_type));
    AddElement(element, "TankType", tank.tank_type);
    const auto& lines = tank.unit == shell::kMonthly ? summed_lines : stored_lines;
    if (const auto found = lines.find(tank.id); found != lines.end())
      for (const auto& line : found->second) AddComponent(element, tank.tank_type, line, kComponentIndent);
  }
}

std::string Location(const TankLosses& tank) {
  return tank.city.IsNull() ? tank.state : tank.city.AsText() + ", " + tank.state;
}

void AddSummary(shell::Session& session, pugi::xml_node report) {
  auto summary = AddElement(report, "Summary");
  AddAttribute(summary, "months", PeriodText(session));
  AddTankSums(session, summary, Location);
}

void AddContent(shell::Session& session, pugi::xml_node report) {
  // One view of the file for all queries, so that the roll-up agrees with the tanks above it.
  store::Transaction view(*session.ClientDb, store::Transaction::Purpose::kRead);
  AddElement(report, "TYPE", "Brief");
  AddTimePeriods(session, report);
  AddTanks(session, report);
  if (session.TankList.size() > 1) AddSummary(session, report);
  view.Commit();
}

}  // namespace

void BriefReport(shell::Session& session) {
  WriteReport(session, {.routine = "frmPreview.BriefReport", .data = kBriefData, .display = kBriefDisplay}, AddContent);
}

}  // namespace orvex::reports
