#pragma once

#include <cstdint>

namespace orvex::bench {

/// Gives unused memory back to the system and starts to watch the process's peak anew.
void ResetPeakMemory();

/// The most memory the process held since the last reset {bytes}; 0 where the system does not tell.
std::int64_t PeakMemory();

}  // namespace orvex::bench
