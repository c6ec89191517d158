#pragma once

#include "shell/session.h"

namespace orvex::shell {

/// Makes an empty client database with the tables of the one in use, in a file that the person names, and goes on with
/// that one (`mnuNewClient`). A file of that name is replaced without a question, but only by a database that is
/// complete. The settings are left alone: the next start returns to the old file.
void NewClient(Session& session);

}  // namespace orvex::shell
