#pragma once

#include <cstdint>
#include <string_view>

#include "shell/session.h"

namespace orvex::emission {

/// Adds a row to `error`, behind those already there. What it means for the run is for the caller to say.
void AddErrorRow(shell::Session& session, std::int32_t ID, std::string_view user_id, std::string_view text);

}  // namespace orvex::emission
