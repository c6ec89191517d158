#include "shell/settings.h"

#include <fmt/format.h>
#include <glib.h>

#include <memory>
#include <utility>

#include "store/file_replacement.h"
#include "store/run_time_error.h"

namespace orvex::shell {
namespace {

namespace fs = std::filesystem;
using store::ErrorNumber;
using store::RunTimeError;

constexpr const char* kFolderName = "orvex";

/// What stays readable in the file besides letters, digits and "-._~". All else, bytes that are no character and the
/// percent sign itself among it, is written as a percent sign and two digits.
constexpr const char* kReadable = " !#$&'()*+,/:;=?@[]{}\\";

struct Release {
  void operator()(GKeyFile* file) const { g_key_file_unref(file); }
  void operator()(GError* error) const { g_error_free(error); }
  void operator()(char* text) const { g_free(text); }
};
using KeyFile = std::unique_ptr<GKeyFile, Release>;
using Failure = std::unique_ptr<GError, Release>;
using Text = std::unique_ptr<char, Release>;

fs::path FileOf(const fs::path& folder, std::string_view application) {
  return folder / fmt::format("{}.ini", application);
}

struct ReadFile {
  KeyFile content;
  Failure failure;  ///< why there is no content
};

ReadFile Read(const fs::path& path) {
  ReadFile read{KeyFile(g_key_file_new()), nullptr};
  GError* error = nullptr;
  g_key_file_load_from_file(read.content.get(), path.c_str(), G_KEY_FILE_KEEP_COMMENTS, &error);
  read.failure.reset(error);
  return read;
}

std::string Escaped(std::string_view text) {
  return Text(g_uri_escape_string(std::string(text).c_str(), kReadable, TRUE)).get();
}

/// A text that a person wrote there with a percent sign of its own is taken as it stands.
std::string Unescaped(const char* text) {
  const Text plain(g_uri_unescape_string(text, nullptr));
  return plain ? plain.get() : text;
}

/// The settings may be a link to where a person keeps such files.
fs::path LinkedFile(const fs::path& path) {
  std::error_code error;
  auto target = fs::canonical(path, error);
  return error ? path : target;
}

std::string MemoryKey(std::string_view application, std::string_view section, std::string_view key) {
  return fmt::format("{}\n{}\n{}", application, section, key);
}

}  // namespace

fs::path SettingsFolder(const PersonFolders& person) {
  if (fs::path(person.config_home).is_absolute()) return fs::path(person.config_home) / kFolderName;
  for (const auto& home : {person.home, person.account_home})
    if (fs::path(home).is_absolute()) return fs::path(home) / ".config" / kFolderName;
  throw RunTimeError(ErrorNumber::kInvalidPath,
                     "There is no place for the program's settings: neither XDG_CONFIG_HOME nor HOME is set, and the "
                     "account has no home folder.");
}

Settings::Settings(fs::path folder) : folder_(std::move(folder)) {}

std::string Settings::GetSetting(std::string_view application, std::string_view section, std::string_view key,
                                 std::string_view default_text) const {
  if (folder_.empty()) {
    const auto found = kept_.find(MemoryKey(application, section, key));
    return found == kept_.end() ? std::string(default_text) : found->second;
  }
  const auto file = Read(FileOf(folder_, application));
  const Text text(
      g_key_file_get_string(file.content.get(), std::string(section).c_str(), std::string(key).c_str(), nullptr));
  return text ? Unescaped(text.get()) : std::string(default_text);
}

void Settings::SaveSetting(std::string_view application, std::string_view section, std::string_view key,
                           std::string_view text) {
  if (folder_.empty()) {
    kept_.insert_or_assign(MemoryKey(application, section, key), text);
    return;
  }
  const auto path = FileOf(folder_, application);
  const auto file = Read(path);
  // A file that is there and cannot be opened holds settings that must not be lost.
  if (file.failure && file.failure->domain == G_FILE_ERROR && file.failure->code != G_FILE_ERROR_NOENT)
    throw RunTimeError(ErrorNumber::kDiskFailure,
                       fmt::format("The settings '{}' cannot be read: {}.", path.string(), file.failure->message));
  g_key_file_set_string(file.content.get(), std::string(section).c_str(), std::string(key).c_str(),
                        Escaped(text).c_str());
  MakeFolder(folder_);
  gsize length = 0;
  const Text content(g_key_file_to_data(file.content.get(), &length, nullptr));
  store::FileReplacement replacement(LinkedFile(path));
  replacement.Write({content.get(), length});
  replacement.Commit();
}

}  // namespace orvex::shell
