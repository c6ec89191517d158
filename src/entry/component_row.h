#pragma once

#include <string_view>

#include "entry/frmcomponent.h"

/// The way between the window on components and their rows. Failures pass through: the window's routines trap them.
namespace orvex::entry {

inline constexpr std::string_view kComponentRoutine = "frmComponent.";

/// An entry bound to a field of the row.
struct BoundNumber {
  std::string_view control;
  std::string_view field;  ///< empty: that of the basis
  shell::TextBox Frmcomponent::*box;
};
inline constexpr BoundNumber kBoundNumbers[] = {
    {"txtShare", "", &Frmcomponent::txtShare},
    {"txtMolWt", "MOLWT", &Frmcomponent::txtMolWt},
    {"txtVPMolWt", "VP_MOLWT", &Frmcomponent::txtVPMolWt},
    {"txtLDens", "L_DENS", &Frmcomponent::txtLDens},
    {"txtVP", "VP", &Frmcomponent::txtVP},
};

/// How a stored number is shown, null as "0".
std::string ShownNumber(const store::Value& value);

/// Adds a row of this number to the mixture.
void AddComponent(shell::Session& session, const Frmcomponent& form, std::int32_t number);

/// Shows the row `form.CompID` in all entries and lists; leaves them alone when there is none.
void ShowComponent(shell::Session& session, Frmcomponent& form);
/// The same for the share alone.
void ShowShare(shell::Session& session, Frmcomponent& form);
/// Shows name and registry number of the row in the lists.
void ShowNameInLists(Frmcomponent& form);

/// Writes what was changed to the row, in one statement. Error 3021 when the row is gone.
void CommitComponent(shell::Session& session, Frmcomponent& form);

/// Sets Previous and Next for the component, and the label: it stands at this place among the mixture's.
void ShowPlace(shell::Session& session, Frmcomponent& form, std::int32_t place);

/// The share of a row whatever its basis: only one of the three is filled at a time.
double AnyShare(store::RecordSet& component);
/// Their sum over the mixture. Error 6 when it is not finite.
double SumOfShares(shell::Session& session, const Frmcomponent& form);
void ShowSum(Frmcomponent& form, double sum);

/// Shows what the shares are entered as.
void UseBasis(Frmcomponent& form, const ComponentBasis& basis);

/// Shows the average liquid surface temperature that stands on the editor's page for the mixture's option.
void ShowTemperature(shell::Session& session, Frmcomponent& form);

}  // namespace orvex::entry
