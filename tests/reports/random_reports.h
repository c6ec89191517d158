#pragma once

#include <filesystem>
#include <vector>

#include "support/test_databases.h"

/// Reports on random inventories, for checks that look at many files.
namespace orvex::test {

/// Writes the Brief, Summary and Detail reports on random inventories of one to four tanks into a folder, each annual
/// and, over chosen months, monthly; `inventories` is a multiple of 100. A monthly report's tanks have lost some of
/// their fields since the run. Gives the paths, whose names begin with the kind. Fails the test when a run does not end
/// in a report.
std::vector<std::filesystem::path> WriteRandomReports(const std::filesystem::path& folder, int inventories);

/// Chooses two random tanks in random weather and runs the calculation for a report on them, annual or of all months.
/// For the body of a property, which undoes it.
void RunOnTwoRandomTanks(TestSession& test);

}  // namespace orvex::test
