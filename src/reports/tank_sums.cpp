#include "reports/tank_sums.h"

#include <unordered_map>
#include <vector>

#include "reports/report_document.h"
#include "shell/number_format.h"

namespace orvex::reports {

void AddTankSums(shell::Session& session, pugi::xml_node summary, std::string (*location)(const TankLosses&)) {
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
      AddAttribute(sum, "location", location(*tank));
      const double loss = RollUpLoss(tank->tank_type, tank->losses);
      total += loss;
      AddAttribute(sum, "loss", shell::FormatTwoDecimals(loss));
    }
  }
  AddElement(summary, "Total", shell::FormatTwoDecimals(total));
}

}  // namespace orvex::reports
