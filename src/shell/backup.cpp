#include "shell/backup.h"

#include <fmt/format.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "shell/status.h"
#include "shell/table_copy.h"
#include "shell/trap.h"
#include "store/database_replacement.h"
#include "store/letter_case.h"

namespace orvex::shell {
namespace {

/// What the two commands differ in.
struct Backup {
  std::string_view title;
  std::string_view copied;
  std::unique_ptr<store::Database> Session::*database;
  std::string Session::*path;
};

constexpr Backup kTankBackup = {"Backup Tank Database To", " was Copied to ", &Session::ReferenceDb,
                                &Session::TankPath};
constexpr Backup kClientBackup = {"Backup Client Database To", " was copied to ", &Session::ClientDb,
                                  &Session::ClientPath};

constexpr std::string_view kFilter = "Access (*.mdb) |*.mdb|";
/// Tables of the store's own, in files that other programs made.
constexpr std::string_view kSystemTables = "msys";

/// Whether a name is that of a database in use, however it is written.
bool IsInUse(const Session& session, const std::string& name) {
  for (const auto path : {&Session::TankPath, &Session::ClientPath}) {
    std::error_code not_there;
    if (store::EqualNoCase(name, session.*path) || std::filesystem::equivalent(name, session.*path, not_there))
      return true;
  }
  return false;
}

/// Asks until the name is none of a database in use.
std::string AskForName(Session& session, const Backup& backup) {
  FileRequest request;
  request.title = backup.title;
  request.file_name = "*.mdb";
  request.folder = std::filesystem::path(session.*backup.path).parent_path();
  request.filter = kFilter;
  while (true) {
    const std::string chosen = session.host.SaveFile(request);
    std::string name = chosen.find('.') == std::string::npos ? chosen + ".MDB" : chosen;
    if (!IsInUse(session, chosen) && !IsInUse(session, name)) return name;
    Tell(session.host, "You cannot write the one of the data base paths currently in use.", Icon::kExclamation);
  }
}

bool CopyTables(Session& session, store::Database& from, store::Database& to) {
  // One view of the file for all tables.
  const store::Transaction view(from, store::Transaction::Purpose::kRead);
  for (const auto& table : from.TableNames()) {
    if (store::LowerCase(table).starts_with(kSystemTables)) continue;
    if (!CopyStruct(session, {from, table}, {to, table}) || !CopyData(session, {from, table}, {to, table}))
      return false;
  }
  return true;
}

void Run(Session& session, const Backup& backup) {
  const BusyScope busy(session, "Processing");
  Trapped(session, "MDIForm1.", [&] {
    if (!(session.*backup.database))
      throw store::RunTimeError(store::ErrorNumber::kObjectClosed, "The database to be copied is not open.");
    const std::string name = AskForName(session, backup);
    // An older backup of that name goes when the new one is complete.
    store::DatabaseReplacement copy(name);
    if (!CopyTables(session, *(session.*backup.database), copy.New())) {
      copy.KeepUnfinished();
      // What was wrong has been told.
      throw store::RunTimeError(store::ErrorNumber::kNone, "");
    }
    copy.Commit();
    Tell(session.host, fmt::format("{}{}{}.", session.*backup.path, backup.copied, name));
  });
}

}  // namespace

void BackupTank(Session& session) { Run(session, kTankBackup); }
void BackupClient(Session& session) { Run(session, kClientBackup); }

}  // namespace orvex::shell
