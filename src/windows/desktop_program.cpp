#include "windows/desktop_program.h"

#include <QApplication>
#include <QSettings>
#include <QTimer>
#include <iterator>
#include <string>

#include "entry/entry_commands.h"
#include "reports/report_commands.h"
#include "shell/application_folder.h"
#include "shell/shell_commands.h"
#include "shell/start_up.h"
#include "shell/status.h"
#include "windows/desktop_host.h"
#include "windows/guarded.h"
#include "windows/pictures.h"

namespace orvex::windows {
namespace {

constexpr int kCannotStart = 1;
/// Sizes of the windows; the settings that the program works by are kept apart from them.
constexpr const char* kViewSettings = "windows.ini";

void AddCommands(shell::Session& session) {
  auto& commands = session.commands;
  commands.insert(commands.end(), std::begin(shell::kShellCommands), std::end(shell::kShellCommands));
  commands.insert(commands.end(), std::begin(reports::kReportCommands), std::end(reports::kReportCommands));
}

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
  entry::AddTankEntry(session);
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
