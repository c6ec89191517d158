#include "entry/tank_lifecycle.h"

#include "emission/calc_prop.h"
#include "entry/frmtank_text.h"
#include "entry/record_copy.h"
#include "entry/tank_rows.h"
#include "entry/tank_saving.h"
#include "entry/unsaved_tank.h"
#include "entry/update_tank.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Answer;
using shell::Session;
using shell::Statement;

void CloseUnsaved(Session& session, FrmTank& form) {
  if (form.cmdAbandon.enabled) {
    ClickAbandon(session, form);
    return;
  }
  form.window.closed = true;
  RestoreRecordCopy(session, form.ID);
}

}  // namespace

void ClickSave(Session& session, FrmTank& form) {
  shell::Trapped(session, "frmTank.cmdSave_Click", [&] {
    if (RefuseUnstorable(session, form)) return;
    Statement([&] { UpdateTank(session, form); });
    if (!SaveTank(session, form)) return;
    editRecord(session, form.ID, form.tank_type);
    Statement([&] { UpdateTank(session, form); });
  });
}

void ClickAbandon(Session& session, FrmTank& form) {
  if (!form.cmdAbandon.enabled) return;
  const shell::BusyScope busy(session, "Processing");
  shell::Trapped(session, "frmTank.cmdAbandon_Click", [&] {
    auto& client = *session.ClientDb;
    store::Transaction transaction(client);
    DeleteEditedRows(client, form.ID);
    UnmarkSaved(client, form.ID);
    transaction.Commit();
    form.window.closed = true;
  });
}

void ClickClose(Session& session, FrmTank& form) {
  shell::Trapped(session, "frmTank.cmdClose_Click", [&] {
    const auto answer =
        session.host.ShowMessage("Save Changes?", "Save?", shell::Buttons::kYesNoCancel, shell::Icon::kNone);
    if (answer == Answer::kYes && SaveTank(session, form)) form.window.closed = true;
    if (answer == Answer::kNo) CloseUnsaved(session, form);
  });
}

void ClickRunReport(Session& session, FrmTank& form) {
  shell::Trapped(session, "frmTank.cmdRunReport_Click", [&] {
    if (RefuseUnstorable(session, form)) return;
    emission::CalcProp(session, form.ID);
    Statement([&] { UpdateTank(session, form); });
    // An identification that another tank has is changed by the first one and stored by the second.
    (void)SaveTank(session, form);
    if (!SaveTank(session, form)) return;
    session.TankList = {StoredText(At(form, "txtUserID"))};
    session.host.ShowWindow("Frmreptyp");
    editRecord(session, form.ID, form.tank_type);
  });
}

void ClickHelp(Session& session, FrmTank& form) {
  session.host.ShowHelp(std::string(kPageTopics[static_cast<std::size_t>(form.page)]));
}

}  // namespace orvex::entry
