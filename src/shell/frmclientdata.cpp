#include "shell/frmclientdata.h"

#include "shell/database_locations.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::shell {
namespace {

constexpr std::string_view kRoutine = "frmCleintData.";

}  // namespace

Frmclientdata OpenFrmclientdata(Session& session) {
  Frmclientdata model;
  model.txtClientPath.text = session.ClientPath;
  return model;
}

void ClickBrowse(Session& session, Frmclientdata& model) {
  model.txtClientPath.text = BrowseForDatabase(session, DatabaseKind::kClient, kRoutine, model.txtClientPath.text);
}

void ClickOK(Session& session, Frmclientdata& model) {
  try {
    OpenClientDatabase(session, model.txtClientPath.text);
  } catch (const store::RunTimeError&) {
    Tell(session.host, std::string(kWrongFileMessage));
    return;
  }
  // The database is open whether or not its path can be kept.
  Trapped(session, kRoutine, [&] { SaveClientPath(session); });
  model.window.closed = true;
}

void ClickExit(Session& session, Frmclientdata& model) {
  session.ended = true;
  model.window.closed = true;
}

void ClickHelp(Session& session, Frmclientdata& /*model*/) {
  session.host.ShowHelp(std::string(kFrmclientdataText.topic));
}

}  // namespace orvex::shell
