#pragma once

#include <cstdint>

#include "shell/controls.h"
#include "shell/session.h"

/// The window in which the fittings of a floating roof tank are shown and changed, one row of `fittings` at a time.
/// What is chosen and entered reaches the row while the person works.
namespace orvex::entry {

inline constexpr shell::ControlText kFrmrecfitControls[] = {
    {"lblRecord", "", "The fitting shown, of the tank's fittings"},
    {"cboFitType", "Fitting &Type:", "Kind of the fitting"},
    {"cboStatus", "&Status:", "Construction or cover of the fitting; the list follows the kind"},
    {"txtQuantity", "&Quantity:", "How many such fittings the tank has, N_F"},
    {"txtK_FA", "K_Fa (lb-mole/yr):", "Loss factor without wind, K_Fa (lb-mole/yr)"},
    {"txtK_FB", "K_Fb (lb-mole/(yr mph^m)):", "Loss factor of the wind, K_Fb (lb-mole/(yr mph^m))"},
    {"txtK_M", "m:", "Exponent of the wind speed, m"},
    {"cmdAdd", "&Add", "Go on to the next fitting, making it if there is none"},
    {"cmdPrevious", "&Previous", "Show the fitting before this one"},
    {"cmdNext", "&Next", "Show the fitting behind this one"},
    {"cmdDelete", "&Delete", "Remove the fitting shown"},
    {"cmdDeleteAll", "De&lete All", "Remove all fittings of the tank"},
    {"cmdQuantity", "&Estimate Quantity", "The usual number of such fittings on a tank of this diameter"},
    {"cmdClose", "&Close", "Go back to the tank"},
};
inline constexpr shell::WindowText kFrmrecfitText = {"frmrecfit", "Specify Fittings", "fittings_entry",
                                                     kFrmrecfitControls};

struct Frmrecfit {
  std::int32_t ID = 0;      ///< the tank
  std::int32_t FIT_ID = 1;  ///< of the row shown
  std::int32_t count = 0;   ///< the tank's rows, as last counted

  shell::TextBox lblRecord{.text = "", .read_only = true};
  shell::ComboBox cboFitType;
  shell::ComboBox cboStatus;
  shell::TextBox txtQuantity;
  shell::TextBox txtK_FA{.text = "", .read_only = true};
  shell::TextBox txtK_FB{.text = "", .read_only = true};
  shell::TextBox txtK_M{.text = "", .read_only = true};
  shell::Button cmdAdd, cmdPrevious, cmdNext, cmdDelete, cmdDeleteAll, cmdQuantity, cmdClose;
  shell::WindowState window;
};

/// Shows the first fitting of the tank in the editor; a tank without one gets an empty row.
Frmrecfit OpenFrmrecfit(shell::Session& session);

// What a view reports. The view has written what the person chose or typed to the control before.
void ChooseFitType(shell::Session& session, Frmrecfit& form);
void ChooseStatus(shell::Session& session, Frmrecfit& form);
/// A whole number is stored. Any other text is refused: the person is told, it becomes "0", and the focus goes back.
void LeaveQuantity(shell::Session& session, Frmrecfit& form);

/// Adding, going and closing are refused while the row is not complete, and all but closing while it is another row's
/// duplicate.
void ClickAdd(shell::Session& session, Frmrecfit& form);
void ClickPrevious(shell::Session& session, Frmrecfit& form);
void ClickNext(shell::Session& session, Frmrecfit& form);
void ClickClose(shell::Session& session, Frmrecfit& form);

/// The rows behind the deleted one move up by one number. The last row takes the window with it.
void ClickDelete(shell::Session& session, Frmrecfit& form);
/// Leaves one empty row.
void ClickDeleteAll(shell::Session& session, Frmrecfit& form);
/// Offers the usual number of such fittings on a tank of the editor's diameter.
void ClickQuantity(shell::Session& session, Frmrecfit& form);

}  // namespace orvex::entry
