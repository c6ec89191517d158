#pragma once

#include "refdata/frmprofile.h"

/// Between the profile in memory and the window's controls.
namespace orvex::refdata {

/// The component on show.
[[nodiscard]] ProfileComponent& OnShow(FrmProfile& form);

/// Shows the profile, its component on show and where that stands, and enables what the person may do with it.
void ShowEntries(FrmProfile& form);
void ShowComponent(FrmProfile& form, std::size_t component);

/// Gives the profile what the person made of the entries. False if a number is none: the person has been told, and it
/// has become 0. A shipped profile takes nothing.
[[nodiscard]] bool TakeEntries(shell::Session& session, FrmProfile& form);

/// Whether the tables can hold the texts of the component on show, or of the profile. The person is led to the one that
/// they cannot.
[[nodiscard]] bool IsComponentStorable(shell::Session& session, FrmProfile& form);
[[nodiscard]] bool IsProfileStorable(shell::Session& session, FrmProfile& form);

}  // namespace orvex::refdata
