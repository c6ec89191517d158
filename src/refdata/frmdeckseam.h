#pragma once

#include "refdata/deck_seam_entries.h"
#include "refdata/record_editor.h"

/// The editor of the table `deckseam`.
namespace orvex::refdata {

inline constexpr auto kFrmDeckSeamControls =
    EditorControls(kDeckSeamEntries, {"picDeck", "", "The size and the factors of the deck seam"});
inline constexpr shell::WindowText kFrmDeckSeamText = {"frmDeckSeam", "Deck Seam", "deck_seams_edit",
                                                       kFrmDeckSeamControls};

RecordEditor OpenFrmDeckSeam(shell::Session& session);

}  // namespace orvex::refdata
