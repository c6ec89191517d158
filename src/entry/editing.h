#pragma once

#include <filesystem>
#include <memory>

#include "shell/session.h"
#include "store/lock_file.h"

/// Two programs on one client database: only one at a time may edit, copy or delete tanks, since each holds rows that
/// it writes back later. Which one it is stands in a file beside the database ("client1.mdb.editing"); reading,
/// calculating and reporting are not held up.
namespace orvex::entry {

/// The file beside a client database, behind links the database itself.
std::filesystem::path EditingPath(const std::filesystem::path& client);

/// The right to edit, for as long as the result lives; inside a command that has it already, the same. If another
/// program has it the person is told, and the result is null: the command ends, with nothing changed.
[[nodiscard]] std::shared_ptr<store::LockFile> BeginEditing(shell::Session& session);

/// The same without a word.
[[nodiscard]] std::shared_ptr<store::LockFile> TryEditing(shell::Session& session);

}  // namespace orvex::entry
