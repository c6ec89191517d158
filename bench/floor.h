#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "inventory.h"
#include "row_memory.h"

/// The least that any program must do to the file for a run: the floor that the run is compared with.
namespace orvex::bench {

/// What a run left in its client database, in the order in which it was written.
struct RunResult {
  explicit RunResult(const std::filesystem::path& client);
  SqliteFile file;
  RowMemory mixtures;    ///< the columns that a run computes, then the row id
  RowMemory components;  ///< likewise
  RowMemory emission;    ///< all columns
};

/// Reads, for each tank, what its calculation takes, each row once with every column: the tank by its `USER ID`, its
/// mixtures, components and fittings, its city, its seals and its chemicals. Writes what the run has written: the
/// computed columns of mixtures and components, and the rows of `emission` in place of the old ones. Statements are
/// prepared once, all of it is one transaction, and nothing is computed.
void RunFloor(const std::filesystem::path& client, const std::filesystem::path& reference, TankKind kind,
              const std::vector<std::string>& user_ids, const RunResult& result);

}  // namespace orvex::bench
