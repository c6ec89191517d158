#pragma once

#include "entry/frmtank.h"
#include "shell/session.h"

/// The liquid page: one mixture at a time.
namespace orvex::entry {

/// Shows the mixture `form.MixID`: its row, its lists, the form that its kind and option call for, the label and the
/// commands. Counts the tank's mixtures.
void ShowMixture(shell::Session& session, FrmTank& form);

/// The speciation options of the tank's type, with none chosen.
void FillSpeciationOptions(FrmTank& form);

/// Liquid temperatures are entered by hand in a heated tank only.
void EnableTemperatures(FrmTank& form);

/// Whether the mixture shown has no name.
[[nodiscard]] bool MixtureNameIsEmpty(FrmTank& form);

/// The property calculation.
void ClickCalcProp(shell::Session& session, FrmTank& form);
void ClickAdd(shell::Session& session, FrmTank& form);
void ClickNextMix(shell::Session& session, FrmTank& form);
void ClickPrevMix(shell::Session& session, FrmTank& form);
void ClickDelete(shell::Session& session, FrmTank& form);

/// `cmdSpecCompFull`, `cmdSpecCompPartial`: opens `Frmcomponent` on the mixture.
void ClickSpecComp(shell::Session& session, FrmTank& form);
/// `cmdCopySpecFull`, `cmdCopySpecPartial`: opens `Frmspecpro` on the mixture.
void ClickCopySpec(shell::Session& session, FrmTank& form);

}  // namespace orvex::entry
