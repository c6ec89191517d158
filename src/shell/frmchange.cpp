#include "shell/frmchange.h"

#include <fmt/format.h>

#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "shell/add_cas_field.h"
#include "shell/backup.h"
#include "shell/database_locations.h"
#include "shell/status.h"
#include "shell/trap.h"
#include "store/letter_case.h"

namespace orvex::shell {
namespace {

constexpr std::string_view kRoutine = "frmChange.";

/// What the steps for the two databases differ in.
struct Steps {
  DatabaseKind kind;
  std::string_view word;
  std::unique_ptr<store::Database> Session::*database;
  std::string Session::*path;
  void (*backup)(Session&);
  void (*save)(Session&);
};

constexpr Steps kTank = {DatabaseKind::kTank, "tank",     &Session::ReferenceDb,
                         &Session::TankPath,  BackupTank, SaveTankPath};
constexpr Steps kClient = {DatabaseKind::kClient, "client",     &Session::ClientDb,
                           &Session::ClientPath,  BackupClient, SaveClientPath};

bool IsGood(DatabaseKind kind, const std::string& path) {
  try {
    (void)OpenGoodDatabase(kind, path);
    return true;
  } catch (const store::RunTimeError&) {
    return false;
  }
}

/// Opens both databases anew, the changed one at its new path. The old ones are let go when both are open and not
/// before: whatever fails, the program goes on with those. Only a database that is not open anyway (the program has
/// started without it) may stay so, since it has its turn behind this one.
void Reopen(Session& session, const Steps& changed, const Steps& other, const std::string& path) {
  auto changed_database = OpenGoodDatabase(changed.kind, path);
  std::unique_ptr<store::Database> other_database;
  try {
    other_database = OpenGoodDatabase(other.kind, session.*other.path);
  } catch (const store::RunTimeError&) {
    if (session.*other.database) throw;
  }
  session.*changed.database = std::move(changed_database);
  session.*other.database = std::move(other_database);
  session.*changed.path = path;
  ShowPath(session, changed.kind);
}

enum class Outcome { kDone, kWrongFile };

Outcome Change(Session& session, const Steps& changed, const Steps& other, const std::string& path) {
  const bool open = session.*changed.database != nullptr;
  const bool without_client = session.ClientDb == nullptr;
  if (open && store::EqualNoCase(path, session.*changed.path)) return Outcome::kDone;
  if (!IsGood(changed.kind, path)) return Outcome::kWrongFile;
  if (open &&
      session.host.ShowMessage(fmt::format("Do you want to backup the {} database?", changed.word),
                               std::string(kApplicationTitle), Buttons::kYesNo, Icon::kQuestion) == Answer::kYes)
    changed.backup(session);
  Reopen(session, changed, other, path);
  // The database is open whether or not its path can be kept.
  Trapped(session, kRoutine, [&] { changed.save(session); });
  // A start that went on without a client database did not come to this.
  if (without_client && session.ClientDb) AddCASField(session);
  return Outcome::kDone;
}

}  // namespace

FrmChange OpenFrmChange(Session& session) {
  session.host.CloseOtherWindows(kFrmChangeText.name);
  FrmChange model;
  model.txtTankData.text = CurrentPath(session, DatabaseKind::kTank);
  model.txtClientData.text = CurrentPath(session, DatabaseKind::kClient);
  return model;
}

void ClickBrowseTank(Session& session, FrmChange& model) {
  model.txtTankData.text = BrowseForDatabase(session, DatabaseKind::kTank, kRoutine, model.txtTankData.text);
}

void ClickBrowseClient(Session& session, FrmChange& model) {
  model.txtClientData.text = BrowseForDatabase(session, DatabaseKind::kClient, kRoutine, model.txtClientData.text);
}

void ClickOK(Session& session, FrmChange& model) {
  Trapped(session, kRoutine, [&] {
    std::optional<BusyScope> busy(std::in_place, session, "Changing locations");
    const auto tell = [&](const char* text) {
      busy.reset();
      Tell(session.host, text);
    };
    // A tank database that is not good keeps nobody from changing the client database.
    if (Change(session, kTank, kClient, model.txtTankData.text) == Outcome::kWrongFile)
      tell("The tank database you specified does not have the correct format.");
    if (Change(session, kClient, kTank, model.txtClientData.text) == Outcome::kWrongFile)
      return tell("The client database you specified does not have the correct format.");
    tell("The database locations were changed.");
    model.window.closed = true;
  });
}

void ClickClose(Session& /*session*/, FrmChange& model) { model.window.closed = true; }

void ClickHelp(Session& session, FrmChange& /*model*/) { session.host.ShowHelp(std::string(kFrmChangeText.topic)); }

}  // namespace orvex::shell
