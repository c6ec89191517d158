#pragma once

#include <string_view>

#include "entry/frmrecfit.h"
#include "store/record_set.h"

/// The way between the window of the fittings and the rows of `fittings` and `fitting`.
namespace orvex::entry {

/// Of all routines of the window, as error reports show it.
inline constexpr std::string_view kFrmrecfitLabel = "frmRecFit.";

/// The row of `fittings` that `form.FIT_ID` names.
store::RecordSet FittingRow(shell::Session& session, const Frmrecfit& form);
/// The row of `fitting` of the type and status shown; without a status, the first one of the type.
store::RecordSet ReferenceFitting(shell::Session& session, const Frmrecfit& form, bool with_status);

/// Lists the statuses of the type shown. One that the type does not have is not shown any longer.
void FillStatuses(shell::Session& session, Frmrecfit& form);

/// Shows the row that `form.FIT_ID` names, counts the tank's rows and enables what can be done with this one.
void ShowFitting(shell::Session& session, Frmrecfit& form);

/// The quantity shown; 0 for a text that is no number.
double QuantityShown(const Frmrecfit& form);
/// Writes the quantity shown to the row.
void StoreQuantity(shell::Session& session, const Frmrecfit& form);

/// Whether the quantity shown is a whole number. If not, the person is told, it becomes "0" and gets the focus.
bool AcceptQuantity(shell::Session& session, Frmrecfit& form);
/// Whether the row shown has what a fitting must have. If not, the person is told.
bool IsComplete(shell::Session& session, Frmrecfit& form);
/// Whether no other row of the tank is of the same type and status; stores the row shown. If not, the person is told.
bool IsUnique(shell::Session& session, Frmrecfit& form);

}  // namespace orvex::entry
