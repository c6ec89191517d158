#pragma once

#include <cstdint>

#include "shell/session.h"

namespace orvex::emission {

/// Refreshes the stored liquid properties of a tank's mixtures and components. A tank that is not complete enough keeps
/// what it has.
void CalcProp(shell::Session& session, std::int32_t ID);

}  // namespace orvex::emission
