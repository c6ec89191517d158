#include "entry/entry_commands.h"

#include <iterator>

#include "entry/tank_entry.h"
#include "entry/tank_lifecycle.h"
#include "entry/unsaved_tank.h"
#include "shell/tank_types.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

void Show(shell::Session& session, std::string_view window) {
  shell::Trapped(session, "MDIForm1.", [&] { session.host.ShowWindow(window); });
}

}  // namespace

void NewHorizontal(shell::Session& session) { NewTank(session, shell::kHorizontal); }
void NewVerticalFixedRoof(shell::Session& session) { NewTank(session, shell::kVerticalFixedRoof); }
void NewInternalFloatingRoof(shell::Session& session) { NewTank(session, shell::kInternalFloatingRoof); }
void NewExternalFloatingRoof(shell::Session& session) { NewTank(session, shell::kExternalFloatingRoof); }
void NewDomedExternalFloatingRoof(shell::Session& session) { NewTank(session, shell::kDomedExternalFloatingRoof); }

void EditTank(shell::Session& session) { Show(session, "frmeditrec"); }
void DeleteTanks(shell::Session& session) { Show(session, "frmrecdelete"); }

void AddTankEntry(shell::Session& session) {
  session.tank_entry = std::make_shared<TankEntry>();
  session.editRecord = editRecord;
  session.offerUnsavedTank = OfferUnsavedTank;
  session.commands.insert(session.commands.end(), std::begin(kEntryCommands), std::end(kEntryCommands));
}

}  // namespace orvex::entry
