#pragma once

#include "shell/session.h"

namespace orvex::shell {

/// Adds the field `CAS` to `emission` of a client database made by an older program. A failure is told to the person.
void AddCASField(Session& session);

}  // namespace orvex::shell
