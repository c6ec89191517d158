#include "shell/frmtankdata.h"

#include "shell/database_locations.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::shell {
namespace {

constexpr std::string_view kRoutine = "frmTankData.";

/// False when there is no good database at the path.
bool Open(Session& session, const std::string& path) {
  const BusyScope busy(session, "Processing");
  try {
    OpenTankDatabase(session, path);
  } catch (const store::RunTimeError& error) {
    if (!IsWrongLocation(error)) throw;
    return false;
  }
  // The database is open whether or not its path can be kept.
  Trapped(session, kRoutine, [&] { SaveTankPath(session); });
  return true;
}

}  // namespace

Frmtankdata OpenFrmtankdata(Session& session) {
  Frmtankdata model;
  model.txtTankPath.text = session.TankPath;
  return model;
}

void ClickBrowse(Session& session, Frmtankdata& model) {
  model.txtTankPath.text = BrowseForDatabase(session, DatabaseKind::kTank, kRoutine, model.txtTankPath.text);
}

void ClickOK(Session& session, Frmtankdata& model) {
  Trapped(session, kRoutine, [&] {
    if (Open(session, model.txtTankPath.text)) {
      model.window.closed = true;
    } else {
      Tell(session.host, std::string(kWrongFileMessage));
    }
  });
}

void ClickExit(Session& session, Frmtankdata& model) {
  session.ended = true;
  model.window.closed = true;
}

void ClickHelp(Session& session, Frmtankdata& /*model*/) { session.host.ShowHelp(std::string(kFrmtankdataText.topic)); }

}  // namespace orvex::shell
