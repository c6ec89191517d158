#pragma once

#include <filesystem>
#include <vector>

#include "orvex-report/tank_choice.h"
#include "store/csv.h"
#include "store/database.h"
#include "store/value.h"

namespace orvex::report_app {

/// A field's content as a CSV file holds it. A null is no cell, numbers are the shortest text that reads back as the
/// same number, Booleans are -1 and 0, and a text is never changed.
store::CsvCell ToCell(const store::Value& value);

/// Writes the rows of `emission` of these tanks, all fields in the order of the table under a line with their names.
/// The file is replaced whole or not at all; errors 3043 and 3044 name it.
void WriteEmissionCsv(store::Database& client, const std::vector<ChosenTank>& tanks, const std::filesystem::path& path);

}  // namespace orvex::report_app
