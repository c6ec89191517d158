#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "store/field_table.h"

/// The four CSV files of an inventory.
namespace orvex::exchange {

/// A field that holds one of these words or nothing.
struct FieldChoices {
  std::string_view field;
  std::span<const std::string_view> words;
};

struct InventoryFile {
  std::string_view name;
  std::string_view table;
  std::span<const FieldChoices> choices;
  bool names_its_tank;  ///< has the tank's `USER ID` in front of the table's fields
};

extern const InventoryFile kTanksFile, kMixturesFile, kComponentsFile, kFittingsFile;

/// In the order in which they are written, read and told of.
std::span<const InventoryFile* const> InventoryFiles();

/// The columns of a file in their order: the table's fields, behind the tank's `USER ID` where it is none of them.
std::vector<store::FieldInfo> ColumnsOf(const InventoryFile& file);

}  // namespace orvex::exchange
