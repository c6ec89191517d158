#include "shell/restore.h"

#include <fmt/format.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "shell/add_cas_field.h"
#include "shell/database_locations.h"
#include "shell/database_names.h"
#include "shell/editing.h"
#include "shell/status.h"
#include "shell/trap.h"
#include "store/database_replacement.h"
#include "store/file_check.h"

namespace orvex::shell {
namespace {

namespace fs = std::filesystem;

/// What the two commands differ in.
struct Restore {
  DatabaseKind kind;
  std::string_view title;
  std::unique_ptr<store::Database> Session::*database;
  void (*open)(Session&, const std::string& path);
};

constexpr Restore kTankRestore = {DatabaseKind::kTank, "Restore Tank Database From", &Session::ReferenceDb,
                                  OpenTankDatabase};
constexpr Restore kClientRestore = {DatabaseKind::kClient, "Restore Client Database From", &Session::ClientDb,
                                    OpenClientDatabase};

/// Behind a link it is the file itself that is replaced.
fs::path BehindLinks(const std::string& path) {
  std::error_code not_there;
  auto file = fs::canonical(path, not_there);
  return not_there ? fs::path(path) : file;
}

/// Whether the file chosen can take the database's place. One that a program left in the midst of work shows that only
/// when the work has been played back, which is done in the copy.
bool IsGood(DatabaseKind kind, const std::string& chosen) {
  try {
    store::CheckFile(chosen);
    if (!store::WasLeftAtWork(chosen)) RequireTables(kind, *store::Database::Open(chosen, store::OpenMode::kReadOnly));
    return true;
  } catch (const store::RunTimeError&) {
    return false;
  }
}

/// Copies it and reads the copy back whole; false when that shows that it cannot take the place.
bool CopyGood(Session& session, DatabaseKind kind, const std::string& chosen, store::DatabaseReplacement& copy) {
  try {
    copy.CopyFrom(chosen, [&](std::int64_t done, std::int64_t total) { session.host.Progress(done, total); });
    copy.Check([&](store::Database& database) { RequireTables(kind, database); });
    return true;
  } catch (const store::RunTimeError& error) {
    if (!IsWrongLocation(error)) throw;
    return false;
  }
}

/// Nothing may hold the old file while it goes. Whatever happens, the database that is at the path then is opened.
void PutInPlace(Session& session, const Restore& restore, const std::string& path, store::DatabaseReplacement& copy) {
  auto& database = session.*restore.database;
  const bool was_open = database != nullptr;
  database.reset();
  try {
    copy.Commit();
  } catch (const store::RunTimeError&) {
    if (was_open) Trapped(session, "MDIForm1.", [&] { restore.open(session, path); });
    throw;
  }
  restore.open(session, path);
}

void Run(Session& session, const Restore& restore) {
  const BusyScope busy(session, "Processing");
  Trapped(session, "MDIForm1.", [&] {
    const auto tell_wrong_structure = [&] {
      Tell(session.host, "The database you specified does not have the appropriate structure.");
    };
    if (IsEditedHere(session, restore.kind)) return;
    const std::string path = CurrentPath(session, restore.kind);
    const std::string chosen = session.host.OpenFile(DatabaseRequest(restore.title, path));
    if (IsSameFile(chosen, path)) return Tell(session.host, "Restore path is the same as the current database!");
    if (!IsGood(restore.kind, chosen)) return tell_wrong_structure();
    const auto editing = BeginEditing(session, restore.kind);
    if (!editing) return;
    store::DatabaseReplacement copy(BehindLinks(path));
    if (!CopyGood(session, restore.kind, chosen, copy)) return tell_wrong_structure();
    session.host.CloseOtherWindows("");
    PutInPlace(session, restore, path, copy);
    const bool client = restore.kind == DatabaseKind::kClient;
    if (client) AddCASField(session);
    Tell(session.host, fmt::format("{} was restored from {}.", path, chosen));
    if (client && session.offerUnsavedTank != nullptr) session.offerUnsavedTank(session);
  });
}

}  // namespace

void RestoreTank(Session& session) { Run(session, kTankRestore); }

void RestoreClient(Session& session) { Run(session, kClientRestore); }

}  // namespace orvex::shell
