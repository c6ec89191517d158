#include <filesystem>
#include <system_error>

#include "shell/application_folder.h"
#include "shell/settings.h"
#include "windows/desktop_program.h"
#include "windows/web_application.h"

namespace {

/// This program's own file, beside which it looks for what it is delivered with.
std::filesystem::path OwnFile(const char* started_as) {
  std::error_code error;
  const auto file = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::filesystem::path(started_as) : file;
}

}  // namespace

int main(int, char** arguments) {
  using namespace orvex;
  const windows::WebApplication application("orvex", windows::Screen::kPersons);
  try {
    const auto person = shell::FindPersonFolders();
    return windows::RunDesktopProgram(
        {shell::ApplicationFolder(person), shell::SettingsFolder(person), OwnFile(arguments[0])});
  } catch (const store::RunTimeError& error) {
    return windows::TellCannotStart(error);
  }
}
