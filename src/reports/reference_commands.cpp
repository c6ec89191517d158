#include "reports/reference_commands.h"

#include "reports/frmrepselect.h"
#include "shell/trap.h"

namespace orvex::reports {
namespace {

constexpr std::string_view kLabel = "MDIForm1.";

void Ask(shell::Session& session, std::string_view print_mode) {
  shell::Trapped(session, kLabel, [&] {
    session.PrintMode = print_mode;
    session.host.ShowWindow(kFrmrepselectText.name);
  });
}

}  // namespace

void ExportChemicals(shell::Session& session) { Ask(session, "Chemical"); }
void ExportCities(shell::Session& session) { Ask(session, "Met"); }
void ExportFittings(shell::Session& session) { Ask(session, "Fit"); }
void ExportRimSeals(shell::Session& session) { Ask(session, "Rim"); }
void ExportDeckSeams(shell::Session& session) { Ask(session, "Deck"); }
void ExportProfiles(shell::Session& session) { Ask(session, "Profile"); }

}  // namespace orvex::reports
