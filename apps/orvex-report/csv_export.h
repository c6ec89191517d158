#pragma once

#include <filesystem>
#include <vector>

#include "orvex-report/tank_choice.h"
#include "store/database.h"

namespace orvex::report_app {

/// Writes the rows of `emission` of these tanks, all fields in the order of the table under a line with their names.
/// The file is replaced whole or not at all; errors 3043 and 3044 name it.
void WriteEmissionCsv(store::Database& client, const std::vector<ChosenTank>& tanks, const std::filesystem::path& path);

}  // namespace orvex::report_app
