#pragma once

#include <cstdint>

#include "shell/session.h"

namespace orvex::emission {

/// Checks a tank, its mixtures and components before a calculation, and completes the record in four fixed ways. Every
/// broken rule becomes a row of `error`; `ValidationFailed` tells whether there was one.
void Validate(shell::Session& session, std::int32_t ID);

}  // namespace orvex::emission
