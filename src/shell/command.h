#pragma once

#include <string_view>

namespace orvex::shell {

struct Session;

/// What a menu entry or tool-bar button does. Each layer has a table of those that it owns; the program puts the
/// tables together in `Session::commands`.
struct Command {
  std::string_view control;  ///< the entry's name ("mnuExit")
  void (*run)(Session&);
  bool without_databases = false;  ///< works while a database is not open, too
};

/// The tool tip of an entry or button that has no command.
inline constexpr std::string_view kLaterReleaseTip = "Comes with a later release of this program.";

/// The command of an entry; null if the program has none.
const Command* FindCommand(const Session& session, std::string_view control);

/// Runs the command of an entry, if there is one. One that works on the databases is refused with error 3420 while
/// they are not open: the person is told where to choose them.
void RunCommand(Session& session, std::string_view control);

}  // namespace orvex::shell
