#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "entry/frmtank.h"
#include "shell/controls.h"
#include "shell/session.h"

/// The window in which a speciation profile is chosen for the mixture that the open tank editor shows.
namespace orvex::entry {

inline constexpr shell::ControlText kFrmspecproControls[] = {
    {"lstProfiles", "&Profiles:", "Profiles for the speciation option of the mixture"},
    {"cmdOK", "&OK", "Give the mixture the components of the profile, in place of those that it has"},
    {"cmdCancel", "&Cancel", "Leave the components as they are"},
    {"cmdHelp", "&Help", "Help on speciation profiles"},
};
inline constexpr shell::WindowText kFrmspecproText = {"Frmspecpro", "Speciation Profiles", "components",
                                                      kFrmspecproControls};

struct Frmspecpro {
  shell::ListBox lstProfiles;             ///< by name
  shell::Button cmdOK{.enabled = false};  ///< enabled while a profile is chosen
  shell::Button cmdCancel, cmdHelp;
  shell::WindowState window;
};

/// The names of the profiles that fit the speciation option of the editor's mixture, in their order.
std::vector<std::string> ProfileNames(shell::Session& session, FrmTank& editor);

Frmspecpro OpenFrmspecpro(shell::Session& session);

/// A row of `lstProfiles` was chosen.
void PickProfile(shell::Session& session, Frmspecpro& form, std::size_t row);

/// Puts the components of the profile in the place of the mixture's, all or none, and closes the window.
void ClickOK(shell::Session& session, Frmspecpro& form);
void ClickCancel(shell::Session& session, Frmspecpro& form);
void ClickHelp(shell::Session& session, Frmspecpro& form);

}  // namespace orvex::entry
