#include "windows/desktop_program.h"

#include <QApplication>
#include <QSettings>
#include <QTimer>
#include <string>

#include "shell/application_folder.h"
#include "shell/start_up.h"
#include "shell/status.h"
#include "windows/desktop_host.h"
#include "windows/guarded.h"
#include "windows/pictures.h"
#include "windows/program_commands.h"

namespace orvex::windows {
namespace {

constexpr int kCannotStart = 1;
/// Sizes of the windows; the settings that the program works by are kept apart from them.
constexpr const char* kViewSettings = "windows.ini";

/// The program may work without a file that could not be put in place, so it goes on.
void FillFolder(shell::Session& session, const std::filesystem::path& program) {
  const auto text = shell::FailureText(shell::FillApplicationFolder(session.application_folder, program));
  if (!text.empty()) shell::Tell(session.host, text, shell::Icon::kExclamation);
}

void Start(DesktopHost& host, shell::Session& session, const std::filesystem::path& program) {
  Guarded(session, [&] {
    FillFolder(session, program);
    shell::StartUp(session);
  });
  if (!session.ended) return;
  host.CloseAll();
  QCoreApplication::quit();
}

}  // namespace

int RunDesktopProgram(const ProgramPlaces& places) {
  QGuiApplication::setDesktopFileName(QStringLiteral("orvex"));
  QGuiApplication::setWindowIcon(ProgramIcon());
  QSettings view_settings(QString::fromStdString((places.settings_folder / kViewSettings).string()),
                          QSettings::IniFormat);
  DesktopHost host(&view_settings);
  shell::Session session(host);
  session.application_folder = places.application_folder;
  session.settings = shell::Settings(places.settings_folder);
  AddCommands(session);
  host.Attach(session);
  QTimer::singleShot(0, QCoreApplication::instance(), [&] { Start(host, session, places.program); });
  return QApplication::exec();
}

int TellCannotStart(const store::RunTimeError& error) {
  DesktopHost host(nullptr);
  shell::Tell(host, error.Description(), shell::Icon::kCritical);
  return kCannotStart;
}

}  // namespace orvex::windows
