#pragma once

#include <filesystem>
#include <vector>

#include "support/test_databases.h"

/// Reports on random inventories, for checks that look at many files.
namespace orvex::test {

/// Writes reports of one kind ("Brief", "Summary", "Detail") on `count` random inventories of one to four tanks into a
/// folder: each annual and, over chosen months, monthly. Gives their paths. Fails the test when a run does not end in a
/// report.
std::vector<std::filesystem::path> WriteRandomReports(const std::filesystem::path& folder, const char* kind, int count);

}  // namespace orvex::test
