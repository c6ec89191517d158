#include "shell/editing.h"

#include <fmt/format.h>

#include <cstddef>
#include <string_view>
#include <system_error>

#include "shell/status.h"

namespace orvex::shell {
namespace {

namespace fs = std::filesystem;

store::Database& DatabaseOf(const Session& session, DatabaseKind kind) {
  return kind == DatabaseKind::kTank ? *session.ReferenceDb : *session.ClientDb;
}

}  // namespace

fs::path EditingPath(const fs::path& database) {
  std::error_code error;
  auto path = fs::canonical(database, error);
  if (error) path = database;
  return path += ".editing";
}

std::shared_ptr<store::LockFile> TryEditing(Session& session, DatabaseKind kind) {
  auto& held = session.editing.at(static_cast<std::size_t>(kind));
  if (auto editing = held.lock()) return editing;
  auto taken = store::LockFile::Take(EditingPath(DatabaseOf(session, kind).Path()));
  held = taken;
  return taken;
}

std::shared_ptr<store::LockFile> BeginEditing(Session& session, DatabaseKind kind) {
  auto editing = TryEditing(session, kind);
  if (editing) return editing;
  const bool tank = kind == DatabaseKind::kTank;
  Tell(session.host,
       fmt::format("The {} database {} is being edited by another program. Nothing was changed. Close the {} there, "
                   "then try again.",
                   tank ? "tank" : "client", DatabaseOf(session, kind).Path().string(), tank ? "window" : "tank"),
       Icon::kExclamation);
  return editing;
}

}  // namespace orvex::shell
