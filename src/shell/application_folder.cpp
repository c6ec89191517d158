#include "shell/application_folder.h"

#include <fmt/format.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <system_error>

#include "shell/delivered_files.h"
#include "shell/status.h"
#include "store/file_replacement.h"

namespace orvex::shell {
namespace {

namespace fs = std::filesystem;
using store::ErrorNumber;
using store::RunTimeError;

constexpr const char* kFolderName = "orvex";
/// Tells, with the version, that the folder was filled to its end.
constexpr const char* kFilledMark = ".filled";

constexpr std::string_view kDatabases[] = {kReferenceFile, kClientFile};
/// What only a first start writes.
constexpr std::string_view kFirstStartFiles[] = {kReferenceFile, kClientFile, kFilledMark};

/// A folder that takes nothing fails for every file, more than a message on a screen has room for.
constexpr std::size_t kToldFailures = 5;

/// A folder of files that belong to the program.
struct ProgramFolder {
  std::string_view name;
  bool required;
};

constexpr ProgramFolder kProgramFolders[] = {{kDisplayFolder, true}, {kHelpFolder, false}};

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::string AccountHome() {
  const auto* account = getpwuid(getuid());
  return account == nullptr || account->pw_dir == nullptr ? "" : account->pw_dir;
}

void WriteMark(const fs::path& path) {
  store::FileReplacement mark(path);
  mark.Write(fmt::format("{}\n", kVersion));
  mark.Commit();
}

class Filler {
 public:
  Filler(const fs::path& folder, const fs::path& program) : folder_(folder), program_(program) {}

  Filling Fill() {
    Try([&] { MakeFolder(folder_); });
    if (!filling_.failures.empty()) return std::move(filling_);
    for (const auto name : kFirstStartFiles) store::RemoveUnfinished(folder_ / name);
    std::error_code error;
    filling_.first_start = !fs::exists(folder_ / kFilledMark, error);
    if (filling_.first_start) AddDatabases();
    for (const auto& files : kProgramFolders) Try([&] { UpdateFiles(files); });
    return std::move(filling_);
  }

 private:
  /// What fails is noted and does not keep the rest from being done.
  template <typename Body>
  void Try(Body&& body) {
    try {
      body();
    } catch (const RunTimeError& failure) {
      filling_.failures.push_back(failure);
    }
  }

  void AddDatabases() {
    for (const auto name : kDatabases) {
      Try([&] {
        std::error_code error;
        if (fs::exists(fs::symlink_status(folder_ / name, error))) return;
        if (AddDatabase(FindDelivered(program_, name), folder_)) filling_.added.push_back(folder_ / name);
      });
    }
    if (filling_.failures.empty()) Try([&] { WriteMark(folder_ / kFilledMark); });
  }

  void UpdateFiles(const ProgramFolder& files) {
    fs::path delivered;
    try {
      delivered = FindDelivered(program_, files.name);
    } catch (const RunTimeError&) {
      if (files.required) throw;
      return;
    }
    for (const auto& file : DeliveredFiles(delivered)) {
      Try([&] {
        const auto delivery = BringUpToDate(file, folder_);
        if (delivery == Delivery::kAdded) filling_.added.push_back(folder_ / file.filename());
        if (delivery == Delivery::kUpdated) filling_.updated.push_back(folder_ / file.filename());
      });
    }
  }

  const fs::path& folder_;
  const fs::path& program_;
  Filling filling_;
};

}  // namespace

void MakeFolder(const fs::path& folder) {
  std::error_code error;
  const auto status = fs::status(folder, error);
  if (fs::is_directory(status)) return;
  if (fs::exists(status))
    throw RunTimeError(ErrorNumber::kInvalidPath, fmt::format("'{}' is not a folder.", folder.string()));
  if (folder.has_relative_path()) MakeFolder(folder.parent_path());
  if (mkdir(folder.c_str(), S_IRWXU) == 0) return;
  // Another program may have been quicker.
  const int cause = errno;
  if (fs::is_directory(folder, error)) return;
  throw RunTimeError(ErrorNumber::kDiskFailure, fmt::format("The folder '{}' cannot be made: {}.", folder.string(),
                                                            std::generic_category().message(cause)));
}

PersonFolders FindPersonFolders() {
  return {.data_home = Variable("XDG_DATA_HOME"),
          .home = Variable("HOME"),
          .account_home = AccountHome(),
          .config_home = Variable("XDG_CONFIG_HOME")};
}

fs::path ApplicationFolder(const PersonFolders& person) {
  if (fs::path(person.data_home).is_absolute()) return fs::path(person.data_home) / kFolderName;
  for (const auto& home : {person.home, person.account_home})
    if (fs::path(home).is_absolute()) return fs::path(home) / ".local" / "share" / kFolderName;
  throw RunTimeError(ErrorNumber::kInvalidPath,
                     fmt::format("There is no place for the program's folder '{}': neither XDG_DATA_HOME nor HOME is "
                                 "set, and the account has no home folder.",
                                 kFolderName));
}

Filling FillApplicationFolder(const fs::path& folder, const fs::path& program) {
  return Filler(folder, program).Fill();
}

std::string FailureText(const Filling& filling) {
  if (filling.failures.empty()) return {};
  std::string text = "Not all files of the program could be put into their folder:\n";
  const auto told = std::min(filling.failures.size(), kToldFailures);
  for (std::size_t i = 0; i < told; ++i) text += "\n" + filling.failures[i].Description();
  if (const auto others = filling.failures.size() - told; others > 0) text += fmt::format("\nAnd {} more.", others);
  return text;
}

}  // namespace orvex::shell
