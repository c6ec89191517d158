#include "shell/database_paths.h"

#include <utility>

#include "shell/delivered_files.h"
#include "shell/path_text.h"
#include "shell/trap.h"

namespace orvex::shell {
namespace {

std::string SavedPath(const Session& session, std::string_view key, std::string_view file) {
  return session.settings.GetSetting(kSettingsApplication, kStartupSection, key,
                                     (session.application_folder / file).string());
}

void SavePath(Session& session, std::string_view routine, std::string_view key, const std::string& path) {
  Trapped(session, routine, [&] { session.settings.SaveSetting(kSettingsApplication, kStartupSection, key, path); });
}

}  // namespace

void SetTankPath(Session& session, std::string path) {
  session.TankPath = std::move(path);
  session.host.SetPathPanel(PathPanel::kTank, PathPanelText(session.TankPath));
}

void SetClientPath(Session& session, std::string path) {
  session.ClientPath = std::move(path);
  session.host.SetPathPanel(PathPanel::kClient, PathPanelText(session.ClientPath));
}

std::string SavedTankPath(const Session& session) { return SavedPath(session, kTankKey, kReferenceFile); }
std::string SavedClientPath(const Session& session) { return SavedPath(session, kClientKey, kClientFile); }

void SaveTankPath(Session& session, std::string_view routine) {
  SavePath(session, routine, kTankKey, session.TankPath);
}

void SaveClientPath(Session& session, std::string_view routine) {
  SavePath(session, routine, kClientKey, session.ClientPath);
}

}  // namespace orvex::shell
