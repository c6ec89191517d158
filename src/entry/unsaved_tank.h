#pragma once

#include <cstdint>

#include "shell/session.h"
#include "store/database.h"

/// A tank that is being created has its rows in the client database before it was ever saved. Its number stands as the
/// file's mark from the transaction that makes the rows to the one that first saves the tank, or removes it. So a
/// program that was killed in between leaves a tank that the next start can offer.
namespace orvex::entry {

/// Called within the transaction that makes the tank.
void MarkUnsaved(store::Database& client, std::int32_t ID);
[[nodiscard]] bool IsUnsaved(store::Database& client, std::int32_t ID);
/// Called within the transaction that saves or removes the tank; leaves the mark of another tank alone.
void UnmarkSaved(store::Database& client, std::int32_t ID);

/// Asks about a tank that was never saved, if there is one and no other program is editing. Yes keeps it, under an
/// identification of its own: "Unsaved tank N" if it had none. No removes all its rows.
void OfferUnsavedTank(shell::Session& session);

}  // namespace orvex::entry
