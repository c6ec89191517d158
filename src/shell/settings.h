#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "shell/application_folder.h"

namespace orvex::shell {

/// The application and section of the program's settings, and their keys.
inline constexpr std::string_view kSettingsApplication = "td40";
inline constexpr std::string_view kStartupSection = "Startup";
inline constexpr std::string_view kTankKey = "tankdata";
inline constexpr std::string_view kClientKey = "client";

/// The folder of the person's settings: `orvex` in XDG_CONFIG_HOME, or in `.config` of the home folder. A path that is
/// not absolute counts as not set; error 3044 if none is left.
std::filesystem::path SettingsFolder(const PersonFolders& person);

/// Texts that outlive the program: one file an application (`td40.ini`), in it a group a section. Whatever bytes a text
/// holds, it comes back as it was.
class Settings {
 public:
  /// Kept until the program ends, in no file.
  Settings() = default;
  /// Kept in files of this folder, which is made when something is first saved.
  explicit Settings(std::filesystem::path folder);

  /// What was saved last, by any program; the default if nothing was, or if the file cannot be read.
  [[nodiscard]] std::string GetSetting(std::string_view application, std::string_view section, std::string_view key,
                                       std::string_view default_text) const;

  /// Replaces the file whole or not at all; what else stands in it stays. Errors 3043 and 3044 name it.
  void SaveSetting(std::string_view application, std::string_view section, std::string_view key, std::string_view text);

 private:
  std::filesystem::path folder_;
  std::map<std::string, std::string, std::less<>> kept_;  ///< without a folder
};

}  // namespace orvex::shell
