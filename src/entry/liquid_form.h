#pragma once

#include <string>
#include <string_view>

#include "entry/frmtank.h"
#include "shell/session.h"

/// The forms of the liquid page, and what its subjects share.
namespace orvex::entry {

/// Shows the form that the kind and the option of the mixture call for, and its commands.
void ShowForm(shell::Session& session, FrmTank& form);

/// The properties of a partial form can be typed where its name is no chemical; otherwise the table gives them.
void EnableProperties(FrmTank& form, bool enabled);

/// The mixture's speciation option as chosen. While the list shows none it is as stored: a copy of the tank's own data
/// takes back the choice and leaves the mixture as it is.
[[nodiscard]] std::string SpeciationOption(shell::Session& session, FrmTank& form);

/// The mixture's name as shown; while no form is, as stored.
[[nodiscard]] std::string MixtureName(FrmTank& form);

[[nodiscard]] bool IsHeated(FrmTank& form);

/// Writes a text to an entry on the program's own account.
void Put(Entry& entry, std::string_view text);

}  // namespace orvex::entry
