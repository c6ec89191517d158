#include "reports/emission_totals.h"

#include <string>

#include "reports/component_lines.h"
#include "reports/report_document.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::reports {
namespace {

constexpr std::string_view kLabel = "frmPreview.DetailReportPage4";
constexpr int kComponentIndent = 8;

std::string EmissionTankType(store::Database& client, std::int32_t id) {
  auto emission = client.OpenTable("emission");
  emission.SetIndex("COMPID");
  emission.Seek({id});
  std::string type;
  shell::Statement([&] { type = emission.TextOrEmpty("TANK_TYPE"); });
  return type;
}

}  // namespace

const std::vector<EmissionLine>& SummedTanks::Lines(store::Database& client, std::int32_t id) {
  if (!lines_) lines_ = SummedLines(client, tanks_);
  return (*lines_)[id];
}

void DetailReportPage4(shell::Session& session, const DetailTank& tank, SummedTanks& summed,
                       pugi::xml_node tank_element) {
  shell::Trapped(session, kLabel, [&] {
    const shell::BusyScope busy(session, "Processing report");
    auto& client = *session.ClientDb;
    const auto tank_type = EmissionTankType(client, tank.id);
    auto totals = AddElement(tank_element, "EmissionTotals");
    const auto lines = tank.Monthly() ? summed.Lines(client, tank.id) : LinesInStoredOrder(client, tank.id);
    for (const auto& line : lines) AddComponent(totals, tank_type, line, kComponentIndent);
  });
}

}  // namespace orvex::reports
