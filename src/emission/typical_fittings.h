#pragma once

#include <cstdint>
#include <string_view>

#include "shell/session.h"

namespace orvex::emission {

/// Replaces a tank's `fittings` rows by the typical ones of an internal floating roof.
void TypicalFitIFRT(shell::Session& session, std::int32_t ID, std::string_view deck_construction, bool self_supporting,
                    double diameter_ft);

/// Replaces a tank's `fittings` rows by the typical ones of an external floating roof.
void TypicalFitEFRT(shell::Session& session, std::int32_t ID, std::string_view deck_type, std::string_view primary_seal,
                    double diameter_ft);

}  // namespace orvex::emission
