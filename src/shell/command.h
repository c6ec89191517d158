#pragma once

#include <cstdint>
#include <string_view>

namespace orvex::shell {

struct Session;

/// The databases without which a command cannot work.
enum class Needs : std::uint8_t { kBothDatabases, kTankDatabase, kClientDatabase, kNothing };

/// What a menu entry or tool-bar button does. Each layer has a table of those that it owns; the program puts the
/// tables together in `Session::commands`.
struct Command {
  std::string_view control;  ///< the entry's name ("mnuExit")
  void (*run)(Session&);
  Needs needs = Needs::kBothDatabases;
};

/// The command of an entry; null if the program has none.
const Command* FindCommand(const Session& session, std::string_view control);

/// Runs a command under the main window's trap. While a database that it needs is not open it is refused with error
/// 3420, which tells the person where to choose the file. One that the person stops by `Interrupted` just ends.
void RunCommand(Session& session, const Command& command);
/// The same for the command of an entry, if there is one.
void RunCommand(Session& session, std::string_view control);

}  // namespace orvex::shell
