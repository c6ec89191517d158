#pragma once

#include <cstdint>

#include "entry/tank_entry.h"

/// The undo of the tank editor: a copy of a tank's stored rows.
namespace orvex::entry {

/// Keeps all rows of the tank in `session.tank_entry->copy`.
void GetRecordCopy(shell::Session& session, std::int32_t ID);

/// Writes the copy back: the tank's row if it is still there, its mixtures always, its fittings and components only if
/// the copy holds any. So fittings or components given to a tank that had none stay.
void RestoreRecordCopy(shell::Session& session, std::int32_t ID);

}  // namespace orvex::entry
