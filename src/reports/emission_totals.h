#pragma once

#include <optional>
#include <pugixml.hpp>
#include <unordered_set>
#include <utility>
#include <vector>

#include "reports/detail_tank.h"
#include "reports/losses.h"
#include "shell/session.h"

namespace orvex::reports {

/// The lines of the tanks of a report, summed over their months. All of them are read when the first is asked for.
class SummedTanks {
 public:
  explicit SummedTanks(std::unordered_set<std::int32_t> tanks) : tanks_(std::move(tanks)) {}

  const std::vector<EmissionLine>& Lines(store::Database& client, std::int32_t id);

 private:
  std::unordered_set<std::int32_t> tanks_;
  std::optional<EmissionLines> lines_;
};

/// Appends `EmissionTotals`: a tank's losses by mixture and component, over all periods.
void DetailReportPage4(shell::Session& session, const DetailTank& tank, SummedTanks& summed,
                       pugi::xml_node tank_element);

}  // namespace orvex::reports
