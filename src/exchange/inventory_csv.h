#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/session.h"

/// The tanks of a client database as a folder of four CSV files, for spreadsheets: tanks.csv, mixtures.csv,
/// components.csv and fittings.csv. Their columns are the fields of the tables; the rows of the last three name their
/// tank by its `USER ID`, its `ID` or both. What was exported and is imported into an empty database gives the same
/// rows.
namespace orvex::exchange {

struct InventoryCounts {
  std::int64_t tanks = 0, mixtures = 0, components = 0, fittings = 0;
  std::int64_t left_out = 0;         ///< rows not exported, since they belong to no tank
  std::int64_t without_mixture = 0;  ///< components imported whose mixture is not there, as deleting one leaves them

  /// "1 tank, 2 mixtures, 0 components and 3 fittings".
  [[nodiscard]] std::string Text() const;
};

/// Hears how many of all rows have been written; may throw to stop the work, which is undone then.
using InventoryProgress = std::function<void(std::int64_t done, std::int64_t total)>;

/// Writes the files and puts them into the places of older ones when all are complete; the folder is made if it is not
/// there. A database without tanks gives files with header lines only, to be filled in. Errors: 3043, 3044.
InventoryCounts ExportInventory(store::Database& client, const std::filesystem::path& folder);

/// Adds the tanks in a folder to a client database, all or none. Every row is checked first. A tank keeps its number
/// (`ID`) where the database has nothing under it, and gets the next free one otherwise. Errors: 3421, whose
/// description has a line for each fault with file, line and column; 3024 a file is not there; 3043; 3027.
InventoryCounts ImportInventory(store::Database& client, store::Database& reference,
                                const std::filesystem::path& folder, const InventoryProgress& progress = {});

/// The faults in the description of that error 3421, one a line.
std::vector<std::string_view> FaultLines(std::string_view description);

// The commands of the menu. Each asks for the folder.
void ImportCsv(shell::Session& session);
void ExportCsv(shell::Session& session);

}  // namespace orvex::exchange
