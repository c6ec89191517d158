#pragma once

#include <cstdint>
#include <string_view>

#include "store/database.h"

namespace orvex::entry {

struct TankRowTable {
  std::string_view table;
  std::string_view index;  ///< whose key begins with the tank's number
};

/// Where the rows of a tank stand that its editor writes.
inline constexpr TankRowTable kEditedTables[] = {
    {"tank", "ID"}, {"mixtures", "IDMIX"}, {"components", "IDMIX"}, {"fittings", "fitid"}};

/// Deletes those rows, in one transaction.
void DeleteEditedRows(store::Database& client, std::int32_t ID);

}  // namespace orvex::entry
