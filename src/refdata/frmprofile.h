#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "refdata/profile_record.h"
#include "shell/controls.h"
#include "shell/session.h"
#include "store/lock_file.h"

/// The editor of the speciation profiles: a profile and its components, of which one is on show. What the person does
/// stays in memory until the profile is saved; then both of its tables are written together.
namespace orvex::refdata {

inline constexpr shell::ControlText kFrmProfileControls[] = {
    {"dbcboProfName", "Profile Na&me:", "The profile; type a part of its name to find it"},
    {"cboType", "Profile &Type:",
     "What the shares are parts of, and whether they add up to all of it; those of another kind are cleared"},
    {"picProfile", "Component", "The components of the profile"},
    {"lblComponentXofX", "", "The component shown, of the profile's components"},
    {"dbcboChemName", "&Chemical Name:", "The chemical; type a part of its name to find it"},
    {"dbcboCAS", "CAS N&umber:", "Its number in the registry; type a part of it to find it"},
    {"txtMOLWT", "Liquid Molecular &Weight:", "Molecular weight of the liquid (lb/lb-mole)"},
    {"txtVP_MOLWT", "&Vapor Molecular Weight", "Molecular weight of the vapor (lb/lb-mole)"},
    {"txtWT_FRACT", "P&ercent of Total Liquid Weight:", "Share of the component in the liquid (percent by weight)"},
    {"txtVP_FRACT", "Percent of Total Vapo&r Weight:", "Share of the component in the vapor (percent by weight)"},
    {"txtWEIGHT", "Relative Wei&ght:", "Weight of the component in relation to those of the others (lb)"},
    {"cmdRelLiq", "Relative Weight / Liquid Weight",
     "Enter the shares of all components the other way; those entered are cleared"},
    {"txtSum", "", "Sum of the shares of all components"},
    {"cmdPrevComp", "< &Previous", "Show the component before this one"},
    {"cmdNextComp", "&Next>", "Show the component behind this one"},
    {"cmdAdd", "A&dd", "Give the profile another component"},
    {"cmdDeleteComp", "De&lete", "Remove the component shown"},
    {"cmdAddNew", "&Add New Profile", "Make a profile of your own"},
    {"cmdSave", "&Save Profile", "Store the profile with all of its components"},
    {"cmdDelete", "&Delete Profile", "Remove the profile with all of its components, if it is your own"},
    {"cmdClose", "Close", "Leave the window"},
    {"cmdHelp", "&Help", "Help on this window"},
};
inline constexpr shell::WindowText kFrmProfileText = {"frmProfile", "Speciation Profile", "profiles_edit",
                                                      kFrmProfileControls};

struct FrmProfile {
  std::int32_t SpecID = 0;    ///< key of the profile on show; 0 while there is none, and until it is first saved
  ProfileRecord profile;      ///< as it will be saved
  ProfileRecord loaded;       ///< as the tables hold it
  std::size_t component = 0;  ///< the one on show, counted from 0
  bool user_defined = false;  ///< the person made the profile on show, and may change it
  bool just_added = false;    ///< and has not saved it yet

  // On a shipped profile this list finds profiles; on a person's own it takes the profile's name, too.
  shell::ComboBox dbcboProfName;
  shell::ComboBox cboType;
  /// Around what only a person's own profile has enabled: all on the component but the ways to the others.
  shell::Frame picProfile{.enabled = false};
  shell::TextBox lblComponentXofX{.text = "", .read_only = true};  ///< "Component 1 of 1"
  // Every chemical of the reference database; they take a text that is none of them, too.
  shell::ComboBox dbcboChemName, dbcboCAS;
  shell::TextBox txtMOLWT, txtVP_MOLWT;
  shell::TextBox txtWT_FRACT, txtVP_FRACT, txtWEIGHT;    ///< only the share that the type asks for is visible
  shell::Button cmdRelLiq;                               ///< visible for a full profile
  shell::TextBox txtSum{.text = "", .read_only = true};  ///< "Sum: 97.30 of 100", "Sum: 12.50" of relative weights
  shell::Button cmdPrevComp, cmdNextComp, cmdAdd, cmdDeleteComp;
  shell::Button cmdAddNew, cmdSave, cmdDelete, cmdClose, cmdHelp;
  shell::WindowState window;
  std::shared_ptr<store::LockFile> editing;
};

/// Opens on the first profile. While another program edits the database the window is closed at once, and the person is
/// told.
FrmProfile OpenFrmProfile(shell::Session& session);

// What a view reports. It has written what the person chose or typed to the control's record before.
/// A profile was picked in `dbcboProfName`. A changed one on show is saved first.
void PickProfile(shell::Session& session, FrmProfile& form);
/// A letter was typed into an entry.
void TypeText(shell::Session& session, FrmProfile& form, std::string_view control);
/// An item was picked in `cboType`, `dbcboChemName` or `dbcboCAS`. Of a chemical its name, number and molecular weights
/// are taken over; a text that is none stands as the component's own. Another type clears the shares of other kinds in
/// all components.
void ChooseItem(shell::Session& session, FrmProfile& form, std::string_view control);
/// An entry was left. What is no number is refused, becomes "0" and keeps the focus.
void LeaveEntry(shell::Session& session, FrmProfile& form, std::string_view control);

/// Goes over from percents of the liquid to relative weights, or back; what was entered so far is set to 0.
void ClickRelLiq(shell::Session& session, FrmProfile& form);

// A component of a person's own profile is left only with a share and a name.
void ClickPrevComp(shell::Session& session, FrmProfile& form);
void ClickNextComp(shell::Session& session, FrmProfile& form);
void ClickAdd(shell::Session& session, FrmProfile& form);
/// Removes the component on show, but never the only one.
void ClickDeleteComp(shell::Session& session, FrmProfile& form);

void ClickAddNew(shell::Session& session, FrmProfile& form);
void ClickSave(shell::Session& session, FrmProfile& form);
void ClickDelete(shell::Session& session, FrmProfile& form);
void ClickClose(shell::Session& session, FrmProfile& form);
void ClickHelp(shell::Session& session, FrmProfile& form);

}  // namespace orvex::refdata
