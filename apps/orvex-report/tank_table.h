#pragma once

#include <iosfwd>
#include <string_view>
#include <vector>

#include "orvex-report/tank_choice.h"
#include "store/database.h"

namespace orvex::report_app {

/// Prints the tanks with their types.
void PrintTankList(const std::vector<ChosenTank>& tanks, std::ostream& out);

/// Prints the tanks with the losses that the run left in `emission`, and their totals. `period` heads the table.
void PrintLossTable(store::Database& client, const std::vector<ChosenTank>& tanks, std::string_view period,
                    std::ostream& out);

}  // namespace orvex::report_app
