#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

#include "exchange/inventory_rows.h"
#include "store/database.h"

/// The steps of an import: rows are read, tied together, compared with the databases, and written.
namespace orvex::exchange {

struct Inventory {
  Inventory(const std::filesystem::path& folder, Faults& faults);

  InventoryRows tanks, mixtures, components, fittings;
  // The row of `tanks` to which each row belongs; filled by `TieRows`.
  std::vector<std::size_t> tank_of_mixture, tank_of_component, tank_of_fitting;
  // Components whose mixture is gone; counted by `TieRows`.
  std::int64_t without_mixture = 0;
};

/// Finds the tank of each row, by `USER ID` or `ID`, and the mixture of each component, and numbers the rows that have
/// no number: behind the highest one of their tank or mixture. A component with all its numbers, as an export writes
/// it, may be of a mixture that is not there: when a person deletes a mixture, components stay. Faults: rows without a
/// tank, of a tank or, else, a mixture that is not in the files, two rows of one number, a tank without identification,
/// type or mixture.
void TieRows(Inventory& inventory, Faults& faults);

/// Faults: a `USER ID` that a tank of the client database has already.
void CheckIdentifications(const Inventory& inventory, store::Database& client, Faults& faults);

/// Faults: cities, rim seals, chemicals and fittings that the reference database does not hold. What is left empty is
/// no fault: a run tells what it needs.
void CheckReferences(const Inventory& inventory, store::Database& reference, Faults& faults);

}  // namespace orvex::exchange
