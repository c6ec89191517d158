#include "refdata/editor_commands.h"

#include "shell/trap.h"

namespace orvex::refdata {
namespace {

void Show(shell::Session& session, std::string_view window) {
  shell::Trapped(session, "MDIForm1.", [&] { session.host.ShowWindow(window); });
}

}  // namespace

void EditChemicals(shell::Session& session) { Show(session, "frmchemical"); }
void EditWeather(shell::Session& session) { Show(session, "frmMet"); }
void EditFittings(shell::Session& session) { Show(session, "frmFitting"); }
void EditRimSeals(shell::Session& session) { Show(session, "frmRimSeal"); }
void EditDeckSeams(shell::Session& session) { Show(session, "frmDeckSeam"); }
void EditProfiles(shell::Session& session) { Show(session, "frmProfile"); }

}  // namespace orvex::refdata
