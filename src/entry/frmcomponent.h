#pragma once

#include <cstdint>
#include <string>

#include "entry/component_basis.h"
#include "shell/controls.h"
#include "shell/session.h"

/// The window on the components of a mixture, one at a time. It belongs to the open tank editor, and to the mixture
/// that is shown there.
namespace orvex::entry {

inline constexpr shell::ControlText kFrmcomponentControls[] = {
    {"lblComponentXofX", "", "The component shown, of the mixture's components"},
    {"dbcboChemName", "Ch&emical Name:", "The chemical; type a part of its name to find it"},
    {"dbcboCAS", "CA&S Number:", "Its number in the registry; type a part of it to find it"},
    {"lblShare", "", "What the share of the component is entered as"},
    {"txtShare", "", "Share of the component in the mixture, in the unit that stands beside it (percent or lb)"},
    {"cmdRelative", "",
     "Enter the shares of all components the other way; those entered are cleared in the whole tank"},
    {"lblSum", "", "What the shares of the mixture's components are summed in"},
    {"txtSum", "", "Sum of the shares of all components of the mixture, in the same unit"},
    {"txtMolWt", "Liquid &Molecular Weight:", "Molecular weight of the liquid, M_i (lb/lb-mole)"},
    {"txtVPMolWt", "&Vapor Molecular Weight:", "Molecular weight of the vapor, M_V (lb/lb-mole)"},
    {"txtLDens", "Liquid Densit&y (lb/gal):", "Density of the liquid at 60 F, W_L (lb/gal)"},
    {"txtALST", "Average Liquid Surface Temperature (F):",
     "Average temperature of the surface of the mixture, T_LA (F), from the liquid page"},
    {"txtVP", "Vapor Pressure (psia):", "True vapor pressure of the chemical at that temperature, P_VA (psia)"},
    {"cmdAdd", "&Add", "Go on to the next component, making it if there is none"},
    {"cmdPrevious", "&Previous", "Show the component before this one"},
    {"cmdNext", "&Next", "Show the component behind this one"},
    {"cmdDelete", "&Delete", "Remove the component shown"},
    {"cmdDeleteAll", "Delete A&ll", "Remove all components of the mixture"},
    {"cmdClose", "&Close", "Close this window"},
    {"cmdHelp", "&Help", "Help on components"},
};
inline constexpr shell::WindowText kFrmcomponentText = {"Frmcomponent", "Specify Components", "components",
                                                        kFrmcomponentControls};

struct Frmcomponent {
  std::int32_t ID = 0, MixID = 0;                     ///< the mixture
  std::int32_t CompID = 1;                            ///< the component shown
  std::string SpecOpt;                                ///< the mixture's speciation option
  const ComponentBasis* basis = &kComponentBases[0];  ///< of the option and, where it has two, the mode chosen

  shell::TextBox lblComponentXofX{.text = "", .read_only = true};
  // Every chemical of the reference database. They show the row's name and number, and take a text to search by.
  shell::ComboBox dbcboChemName, dbcboCAS;
  std::string txtName, txtCAS;  ///< what the row holds, or will after its next commit; shown by the lists
  shell::TextBox lblShare{.text = "", .read_only = true};  ///< caption of `txtShare`
  shell::TextBox txtShare;
  shell::TextBox cmdRelativeCaption{.text = "", .read_only = true};
  shell::Button cmdRelative;
  shell::TextBox lblSum{.text = "", .read_only = true};  ///< caption of `txtSum`
  shell::TextBox txtSum{.text = "", .read_only = true};
  shell::TextBox txtMolWt, txtVPMolWt, txtLDens;
  shell::TextBox txtALST{.text = "", .read_only = true};  ///< {F}, of the liquid page; stored nowhere
  shell::TextBox txtVP{.text = "", .read_only = true};    ///< {psia}
  shell::Button cmdAdd, cmdPrevious, cmdNext, cmdDelete, cmdDeleteAll, cmdClose, cmdHelp;
  shell::WindowState window;
};

/// Opens on the first component of the editor's mixture. A mixture without one gets it.
Frmcomponent OpenFrmcomponent(shell::Session& session);

/// A number was left: an empty text becomes "0"; any other text that is no number is refused, becomes "0" and keeps the
/// focus.
void LeaveNumber(shell::Session& session, Frmcomponent& form, std::string_view control);

/// A name was chosen or typed: takes number, weights and density of that chemical, and its vapor pressure at the
/// temperature shown if that is not zero. Of an unknown chemical nothing is taken, and the lists show the row's again.
void ChooseChemName(shell::Session& session, Frmcomponent& form, const std::string& name);
/// The same for a registry number.
void ChooseCAS(shell::Session& session, Frmcomponent& form, const std::string& cas);

/// Clears the shares of all components of the tank, those of its other mixtures, too, and goes over to the other mode.
void ClickRelative(shell::Session& session, Frmcomponent& form);

// A component is left, and its row written, only with a name that no other has, and a share.
void ClickAdd(shell::Session& session, Frmcomponent& form);
void ClickNext(shell::Session& session, Frmcomponent& form);
void ClickPrevious(shell::Session& session, Frmcomponent& form);
void ClickClose(shell::Session& session, Frmcomponent& form);

/// Deletes the component shown and numbers the others anew. With the only one of the mixture the window closes.
void ClickDelete(shell::Session& session, Frmcomponent& form);
/// Deletes all of the mixture's components and starts again with an empty one.
void ClickDeleteAll(shell::Session& session, Frmcomponent& form);

void ClickHelp(shell::Session& session, Frmcomponent& form);

}  // namespace orvex::entry
