#include "entry/copy_command.h"

#include <fmt/format.h>

#include "entry/bound_record.h"
#include "entry/frmcopydata.h"
#include "entry/tank_saving.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::entry {

void ClickCopy(shell::Session& session, FrmTank& form) {
  shell::Trapped(session, "frmTank.cmdCopy_Click", [&] {
    if (RefuseUnstorable(session, form)) return;
    // The tank's own entries, too: its row is read and shown anew by the copy.
    CommitTank(session, form);
    CommitMixture(session, form);
    if (CopySources(session, form).empty()) {
      shell::Tell(session.host, fmt::format("There are no other {} tanks.", form.tank_type));
      return;
    }
    session.host.ShowWindow(kFrmCopyDataText.name);
  });
}

}  // namespace orvex::entry
