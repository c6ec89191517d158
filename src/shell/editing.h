#pragma once

#include <filesystem>
#include <memory>

#include "shell/database_locations.h"
#include "shell/session.h"
#include "store/lock_file.h"

/// Two programs on one database file: only one at a time may edit it, since each holds rows that it writes back later.
/// Which one it is stands in a file beside the database ("client1.mdb.editing"); reading, calculating and reporting are
/// not held up.
namespace orvex::shell {

/// The file beside a database, behind links the database itself.
std::filesystem::path EditingPath(const std::filesystem::path& database);

/// The right to edit that database of the session, or the file that stands where it should be, for as long as the
/// result lives; inside a command that has it already, the same. If another program has it the person is told, and the
/// result is null: the command ends, with nothing changed.
[[nodiscard]] std::shared_ptr<store::LockFile> BeginEditing(Session& session, DatabaseKind kind);

/// Whether a window of this program is editing that database. Its file must not go from under it: the person is told
/// to close the window first.
[[nodiscard]] bool IsEditedHere(Session& session, DatabaseKind kind);

/// The same as `BeginEditing` without a word.
[[nodiscard]] std::shared_ptr<store::LockFile> TryEditing(Session& session, DatabaseKind kind);

}  // namespace orvex::shell
