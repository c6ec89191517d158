#pragma once

#include "shell/session.h"

namespace orvex::windows {

/// Puts into the session what the desktop program's menus and tool bar do: the commands of all layers, and tank entry
/// with them.
void AddCommands(shell::Session& session);

}  // namespace orvex::windows
