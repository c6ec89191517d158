#pragma once

#include <string>
#include <string_view>

#include "exchange/inventory_files.h"
#include "store/value.h"

namespace orvex::exchange {

/// The greatest number that a row may have of its own: far from where the store would have none left for the next.
inline constexpr int kGreatestNumber = 1'000'000'000;

/// A cell that was read: its value, or why it has none.
struct ReadCell {
  store::Value value;
  std::string fault = {};
};

/// Reads a filled cell of a field. Numbers are written with a decimal point, whatever the locale; Booleans are Yes and
/// No, TRUE and FALSE, or -1 and 0, in any case; a word of a list is taken in any case and stored as the list has it.
ReadCell ReadInventoryCell(const InventoryFile& file, const store::FieldInfo& field, std::string_view cell);

}  // namespace orvex::exchange
