#pragma once

#include <string>

#include "shell/session.h"

namespace orvex::reports {

/// Writes a table of one of the two databases to a file whose format and name the person chooses. `path` tells which
/// database, `clause` is a condition or empty. With the `PrintMode` "Profile" the profiles are written with their
/// components, a row each. The person is told of success and of what the format could not hold.
void Export(shell::Session& session, const std::string& table, const std::string& path, const std::string& clause);

}  // namespace orvex::reports
