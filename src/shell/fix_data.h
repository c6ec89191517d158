#pragma once

#include "shell/session.h"

namespace orvex::shell {

/// Sets the shares of hexane and benzene in the delivered profile of jet kerosene, which older reference databases hold
/// otherwise, and tells the person. It can be run again with the same result.
void FixData(Session& session);

}  // namespace orvex::shell
