#include "shell/editing.h"

#include <fmt/format.h>

#include <cstddef>
#include <string_view>
#include <system_error>

#include "shell/status.h"

namespace orvex::shell {
namespace {

namespace fs = std::filesystem;

fs::path PathOf(const Session& session, DatabaseKind kind) {
  const auto& database = kind == DatabaseKind::kTank ? session.ReferenceDb : session.ClientDb;
  return database ? database->Path() : fs::path(CurrentPath(session, kind));
}

std::weak_ptr<store::LockFile>& Held(Session& session, DatabaseKind kind) {
  return session.editing.at(static_cast<std::size_t>(kind));
}

/// The words for a database, and for what it is edited in.
std::string_view WordOf(DatabaseKind kind) { return kind == DatabaseKind::kTank ? "tank" : "client"; }
std::string_view WindowOf(DatabaseKind kind) { return kind == DatabaseKind::kTank ? "window" : "tank"; }

}  // namespace

fs::path EditingPath(const fs::path& database) {
  std::error_code error;
  auto path = fs::canonical(database, error);
  if (error) path = database;
  return path += ".editing";
}

std::shared_ptr<store::LockFile> TryEditing(Session& session, DatabaseKind kind) {
  auto& held = Held(session, kind);
  if (auto editing = held.lock()) return editing;
  auto taken = store::LockFile::Take(EditingPath(PathOf(session, kind)));
  held = taken;
  return taken;
}

std::shared_ptr<store::LockFile> BeginEditing(Session& session, DatabaseKind kind) {
  auto editing = TryEditing(session, kind);
  if (editing) return editing;
  Tell(session.host,
       fmt::format("The {} database {} is being edited by another program. Nothing was changed. Close the {} there, "
                   "then try again.",
                   WordOf(kind), PathOf(session, kind).string(), WindowOf(kind)),
       Icon::kExclamation);
  return editing;
}

bool IsEditedHere(Session& session, DatabaseKind kind) {
  if (Held(session, kind).expired()) return false;
  Tell(session.host,
       fmt::format("The {} database {} is being edited. Nothing was changed. Close the {} first, then try again.",
                   WordOf(kind), PathOf(session, kind).string(), WindowOf(kind)),
       Icon::kExclamation);
  return true;
}

}  // namespace orvex::shell
