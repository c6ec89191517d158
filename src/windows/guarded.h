#pragma once

#include <functional>

#include "shell/session.h"

namespace orvex::windows {

/// Runs what the person asked for. A command that the person interrupts has undone itself and is over; nothing else may
/// leave it for the toolkit, which cannot carry exceptions: it is told in a message box.
void Guarded(shell::Session& session, const std::function<void()>& command);

}  // namespace orvex::windows
