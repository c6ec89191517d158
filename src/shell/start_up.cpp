#include "shell/start_up.h"

#include <string>

#include "shell/add_cas_field.h"
#include "shell/compact.h"
#include "shell/database_locations.h"
#include "shell/shell_commands.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::shell {
namespace {

using store::RunTimeError;

constexpr std::string_view kRoutine = "MDIForm1.";
constexpr std::string_view kHelpFile = "ORVEX40.hlp";

/// False when the program goes no further. A path that cannot be kept for the next start is told, but holds nobody up:
/// the database is open.
bool OpenTank(Session& session) {
  try {
    OpenTankDatabase(session, TankPathSetting(session));
  } catch (const RunTimeError& error) {
    if (IsWrongLocation(error)) {
      session.host.ShowWindow("Frmtankdata");
      return !session.ended;
    }
    HandleFailure(session, kRoutine, error);
    return false;
  }
  Trapped(session, kRoutine, [&] { SaveTankPath(session); });
  return true;
}

/// False when the person ended the program, the only way on without a client database.
bool OpenClient(Session& session) {
  for (std::string path = ClientPathSetting(session); !session.ended; path = session.ClientPath) {
    try {
      OpenClientDatabase(session, path);
    } catch (const RunTimeError&) {
      session.host.ShowWindow("Frmclientdata");
      continue;
    }
    Trapped(session, kRoutine, [&] { SaveClientPath(session); });
    return true;
  }
  return false;
}

void CloseDatabases(Session& session) {
  session.ReferenceDb.reset();
  session.ClientDb.reset();
}

}  // namespace

bool StartUp(Session& session) {
  session.help_file = session.application_folder / kHelpFile;
  session.host.ShowMainWindow();
  session.host.ShowWindow("frmstart");
  session.host.ShowWindow("frmNotice");
  CloseDatabases(session);
  if (!OpenTank(session) || !OpenClient(session)) return false;
  AddCASField(session);
  if (session.offerUnsavedTank != nullptr) session.offerUnsavedTank(session);
  session.host.ShowWindow("frmqmenu");
  session.CopyDataPending = false;
  return !session.ended;
}

void Close(Session& session) {
  if (session.ended) return;
  const auto answer =
      session.host.ShowMessage("Do you want to backup your data now?", "Backup?", Buttons::kYesNo, Icon::kNone);
  if (answer == Answer::kYes) {
    RunCommand(session, kBackupTankCommand);
    RunCommand(session, kBackupClientCommand);
  }
  session.host.CloseOtherWindows("");
  const bool tank_open = session.ReferenceDb != nullptr;
  const bool client_open = session.ClientDb != nullptr;
  CloseDatabases(session);
  // A file that could not be opened has not grown, and may be no database at all.
  if (tank_open) Compact(session, session.TankPath);
  if (client_open) Compact(session, session.ClientPath);
  session.ended = true;
  session.host.CloseMainWindow();
}

}  // namespace orvex::shell
