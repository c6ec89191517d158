#pragma once

#include <cstdint>
#include <string>

#include "shell/session.h"

namespace orvex::emission {

/// Splits the losses of a mixture's `PRIMARY` row of `emission` among its components: one row each, and one for
/// "Unidentified Components" where a profile does not reach 100 percent.
void Speciate(shell::Session& session, std::int32_t ID, std::int32_t MixID, const std::string& Month);

}  // namespace orvex::emission
