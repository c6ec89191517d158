#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "store/database.h"

/// Whether data_export.xml holds what the reference table does, told without the code that writes it.
namespace orvex::test {

/// The numbers by which the rows of a report's table are told apart, in the order of the table.
std::vector<std::int32_t> RowNumbers(store::Database& reference, std::string_view word);

/// What is wrong with the file, one line each, when it is to show these rows of the table of a report ("Chemical").
std::vector<std::string> ExportFaults(const std::filesystem::path& file, std::string_view word,
                                      store::Database& reference, const std::vector<std::int32_t>& numbers);

}  // namespace orvex::test
