#include "shell/database_locations.h"

#include "shell/delivered_files.h"
#include "shell/path_text.h"
#include "shell/status.h"
#include "shell/trap.h"
#include "store/field_table.h"

namespace orvex::shell {
namespace {

using store::ErrorNumber;

std::string Setting(const Session& session, std::string_view key, std::string_view file) {
  return session.settings.GetSetting(kSettingsApplication, kStartupSection, key,
                                     (session.application_folder / file).string());
}

/// What a file dialog says when it is to find a database.
struct DialogText {
  std::string_view title, file_name;
};

constexpr DialogText DialogTextOf(DatabaseKind kind) {
  return kind == DatabaseKind::kTank ? DialogText{"Locate Tank Database", kReferenceFile}
                                     : DialogText{"Locate Client Database", kClientFile};
}

}  // namespace

void RequireTables(DatabaseKind kind, store::Database& database) {
  const auto tables = kind == DatabaseKind::kTank ? store::TestedReferenceTables() : store::ClientTables();
  for (const auto& table : tables) (void)database.OpenTable(table.name);
}

std::unique_ptr<store::Database> OpenGoodDatabase(DatabaseKind kind, const std::string& path) {
  auto database = store::Database::Open(path);
  RequireTables(kind, *database);
  return database;
}

std::string CurrentPath(const Session& session, DatabaseKind kind) {
  const bool tank = kind == DatabaseKind::kTank;
  const auto& path = tank ? session.TankPath : session.ClientPath;
  if (!path.empty()) return path;
  return tank ? TankPathSetting(session) : ClientPathSetting(session);
}

void ShowPath(Session& session, DatabaseKind kind) {
  const bool tank = kind == DatabaseKind::kTank;
  session.host.SetPathPanel(tank ? PathPanel::kTank : PathPanel::kClient,
                            PathPanelText(tank ? session.TankPath : session.ClientPath));
}

void OpenTankDatabase(Session& session, const std::string& path) {
  session.TankPath = path;
  ShowPath(session, DatabaseKind::kTank);
  session.ReferenceDb = OpenGoodDatabase(DatabaseKind::kTank, path);
}

void OpenClientDatabase(Session& session, const std::string& path) {
  session.ClientPath = path;
  ShowPath(session, DatabaseKind::kClient);
  session.ClientDb = OpenGoodDatabase(DatabaseKind::kClient, path);
}

bool IsWrongLocation(const store::RunTimeError& error) {
  switch (error.Number()) {
    case ErrorNumber::kFileNotFound:
    case ErrorNumber::kObjectNotFound:
    case ErrorNumber::kInvalidPath:
    // A file of another kind, an empty one and one that is cut off hold none of the tables, so they count with 3011.
    // A file that is in use or may not be read is none of these: it can well be the right one.
    case ErrorNumber::kNotADatabase:
    case ErrorNumber::kDamagedFile:
      return true;
    default:
      return false;
  }
}

std::string TankPathSetting(const Session& session) { return Setting(session, kTankKey, kReferenceFile); }
std::string ClientPathSetting(const Session& session) { return Setting(session, kClientKey, kClientFile); }

void SaveTankPath(Session& session) {
  session.settings.SaveSetting(kSettingsApplication, kStartupSection, kTankKey, session.TankPath);
}

void SaveClientPath(Session& session) {
  session.settings.SaveSetting(kSettingsApplication, kStartupSection, kClientKey, session.ClientPath);
}

std::string BrowseForDatabase(Session& session, DatabaseKind kind, std::string_view routine, const std::string& text) {
  const BusyScope busy(session, "Processing");
  return Trapped(session, routine, text, [&] {
    const DialogText dialog = DialogTextOf(kind);
    FileRequest request;
    request.title = dialog.title;
    request.file_name = dialog.file_name;
    const std::string current = kind == DatabaseKind::kTank ? TankPathSetting(session) : ClientPathSetting(session);
    request.folder = std::filesystem::path(current).parent_path();
    return session.host.OpenFile(request);
  });
}

}  // namespace orvex::shell
