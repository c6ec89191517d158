#pragma once

#include <cstdint>
#include <string>

#include "shell/session.h"

namespace orvex::emission {

/// Computes the standing-storage and working losses of one mixture of a fixed-roof tank
/// for one period and writes its `PRIMARY` row of `emission`, or a row of `error` and `ValidationFailed`. Nothing is
/// written for a month that the mixture is not stored in.
void EmissFix(shell::Session& session, std::int32_t ID, std::int32_t MixID, const std::string& Month);

}  // namespace orvex::emission
