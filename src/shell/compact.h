#pragma once

#include <string>

#include "shell/session.h"

namespace orvex::shell {

/// Makes a database file as small as its content. No database may be open on it. A file that is read-only, or that
/// another program has open, is left as it is, and the person is told. The person may stop it.
void Compact(Session& session, const std::string& path);

}  // namespace orvex::shell
