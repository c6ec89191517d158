#pragma once

#include <string>

#include "shell/session.h"

namespace orvex::shell {

// The paths of the two databases change only here, so that the panels of the status line follow.
void SetTankPath(Session& session, std::string path);
void SetClientPath(Session& session, std::string path);

/// The path in the settings; without one, that of the file beside the report files.
std::string SavedTankPath(const Session& session);
std::string SavedClientPath(const Session& session);

/// Keeps the current path in the settings. Settings that cannot be written are told under the routine's label and hold
/// nobody up: the database is open all the same.
void SaveTankPath(Session& session, std::string_view routine);
void SaveClientPath(Session& session, std::string_view routine);

}  // namespace orvex::shell
