#include "reports/brief_report.h"

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "reports/losses.h"
#include "reports/report_document.h"
#include "reports/report_text.h"
#include "reports/report_unit.h"
#include "shell/number_format.h"
#include "shell/periods.h"
#include "shell/status.h"
#include "shell/tank_types.h"
#include "shell/trap.h"

namespace orvex::reports {
namespace {

constexpr std::string_view kLabel = "frmPreview.BriefReport";
constexpr int kComponentIndent = 6;

/// A chosen tank as its rows of `emission` tell it.
struct ReportedTank {
  std::int32_t id;
  std::string user_id;
  std::string tank_type;
  std::string unit;  ///< `ReportUnit`
};

/// A loss element and where its number comes from.
struct LossElement {
  const char* name;
  double Losses::*loss;
};

constexpr LossElement kFixedRoofElements[] = {{"WorkingLoss", &Losses::working}, {"BreathingLoss", &Losses::standing}};
constexpr LossElement kFloatingRoofElements[] = {{"RimSealLoss", &Losses::rim_seal},
                                                 {"WithdrawlLoss", &Losses::withdrawal},
                                                 {"DeckFittingLoss", &Losses::deck_fitting},
                                                 {"DeckSeamLoss", &Losses::deck_seam}};

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

void AddComponent(pugi::xml_node tank_element, const ReportedTank& tank, const EmissionLine& line) {
  const bool fixed_roof = shell::IsFixedRoof(tank.tank_type);
  auto component = AddElement(tank_element, "COMPONENT");
  AddAttribute(component, "Type", tank.tank_type);
  AddElement(component, "NAME", line.primary ? line.name : NoBreakSpaces(kComponentIndent) + line.name);
  const auto add_losses = [&](const auto& elements) {
    for (const auto& element : elements)
      AddElement(component, element.name, shell::FormatTwoDecimals(line.losses.*element.loss));
  };
  if (fixed_roof) {
    add_losses(kFixedRoofElements);
  } else {
    add_losses(kFloatingRoofElements);
  }
  const double total = fixed_roof ? line.losses.FixedRoofTotal() : line.losses.FloatingRoofTotal();
  AddElement(component, "TotalEmissions", shell::FormatTwoDecimals(total));
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
      for (const auto& line : found->second) AddComponent(element, tank, line);
  }
}

std::string Location(const TankLosses& tank) {
  return tank.city.IsNull() ? tank.state : tank.city.AsText() + ", " + tank.state;
}

void AddSummary(shell::Session& session, pugi::xml_node report) {
  auto summary = AddElement(report, "Summary");
  AddAttribute(summary, "months", PeriodText(session));
  const auto all = LossesByTank(*session.ClientDb);
  std::unordered_map<std::string, std::vector<const TankLosses*>> by_user_id;
  for (const auto& tank : all) by_user_id[tank.user_id].push_back(&tank);
  double total = 0;
  for (const auto& user_id : session.TankList) {
    const auto found = by_user_id.find(user_id);
    if (found == by_user_id.end()) continue;
    for (const auto* tank : found->second) {
      auto sum = AddElement(summary, "TankSum");
      AddAttribute(sum, "id", tank->user_id);
      AddAttribute(sum, "company", tank->company);
      AddAttribute(sum, "type", tank->tank_type);
      AddAttribute(sum, "location", Location(*tank));
      const double loss = RollUpLoss(tank->tank_type, tank->losses);
      total += loss;
      AddAttribute(sum, "loss", shell::FormatTwoDecimals(loss));
    }
  }
  AddElement(summary, "Total", shell::FormatTwoDecimals(total));
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
  shell::Trapped(session, kLabel, [&] {
    const shell::BusyScope busy(session.host, "Processing report");
    ReportDocument document;
    AddContent(session, document.Root());
    document.Save(session.application_folder / kBriefData);
    session.host.Navigate((session.application_folder / kBriefDisplay).string());
  });
}

}  // namespace orvex::reports
