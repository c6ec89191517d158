#include "entry/editing.h"

#include <fmt/format.h>

#include <system_error>

#include "entry/tank_entry.h"
#include "shell/status.h"

namespace orvex::entry {

namespace fs = std::filesystem;

fs::path EditingPath(const fs::path& client) {
  std::error_code error;
  auto path = fs::canonical(client, error);
  if (error) path = client;
  return path += ".editing";
}

std::shared_ptr<store::LockFile> TryEditing(shell::Session& session) {
  if (auto held = session.tank_entry->editing.lock()) return held;
  auto taken = store::LockFile::Take(EditingPath(session.ClientDb->Path()));
  session.tank_entry->editing = taken;
  return taken;
}

std::shared_ptr<store::LockFile> BeginEditing(shell::Session& session) {
  auto editing = TryEditing(session);
  if (!editing) {
    shell::Tell(session.host,
                fmt::format("The client database {} is being edited by another program. Nothing was changed. Close the "
                            "tank there, then try again.",
                            session.ClientDb->Path().string()),
                shell::Icon::kExclamation);
  }
  return editing;
}

}  // namespace orvex::entry
