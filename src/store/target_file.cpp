#include "store/target_file.h"

#include <fmt/format.h>

#include <system_error>
#include <utility>

#include "store/run_time_error.h"

namespace orvex::store {
namespace {

[[noreturn]] void Refuse(const std::filesystem::path& path) {
  throw RunTimeError(ErrorNumber::kAlreadyExists, fmt::format("The file '{}' already exists.", path.string()));
}

std::filesystem::path Checked(std::filesystem::path path, Existing existing) {
  std::error_code ignored;
  // A link that leads nowhere has the name, too.
  const bool taken = std::filesystem::exists(std::filesystem::symlink_status(path, ignored));
  if (existing == Existing::kRefuse && taken) Refuse(path);
  return path;
}

}  // namespace

TargetFile::TargetFile(std::filesystem::path path, Existing existing)
    : path_(Checked(std::move(path), existing)), existing_(existing), file_(path_) {}

void TargetFile::Commit() {
  if (existing_ == Existing::kReplace) {
    file_.Commit();
  } else if (!file_.CommitAsNew()) {
    Refuse(path_);
  }
}

}  // namespace orvex::store
