#pragma once

#include <cstdint>

namespace orvex::windows {

/// The paper that a report is printed on, always in landscape.
enum class Paper : std::uint8_t { kLetter, kA4 };

}  // namespace orvex::windows
