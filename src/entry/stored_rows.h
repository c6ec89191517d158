#pragma once

#include <cstdint>
#include <string_view>

#include "entry/tank_entry.h"
#include "store/database.h"

/// All rows of a tank, read from their tables and written back to them.
namespace orvex::entry {

/// The rows as they are stored.
RecordCopy ReadRows(store::Database& client, std::int32_t ID);

/// Writes the fields of a tank's row from the one at `first` on, counted from 0, as another row has them. Error 3021
/// when the tank has none.
void OverwriteTank(store::Database& client, std::int32_t ID, const Rows& tank_copy, int first);

/// Deletes a tank's rows of `table`, whose `index` begins with `ID`, and adds these, whose first field becomes the
/// tank's `ID`.
void ReplaceRows(store::Database& client, std::string_view table, std::string_view index, std::int32_t ID,
                 const Rows& rows);

}  // namespace orvex::entry
