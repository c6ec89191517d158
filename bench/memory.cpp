#include "memory.h"

#include <malloc.h>

#include <charconv>
#include <fstream>
#include <string>
#include <string_view>

namespace orvex::bench {

void ResetPeakMemory() {
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << "5";
}

std::int64_t PeakMemory() {
  constexpr std::string_view kLabel = "VmHWM:";
  constexpr std::int64_t kBytesPerKilobyte = 1024;
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (!line.starts_with(kLabel)) continue;
    const auto digits = line.find_first_of("0123456789");
    if (digits == std::string::npos) return 0;
    std::int64_t kilobytes = 0;
    std::from_chars(line.data() + digits, line.data() + line.size(), kilobytes);
    return kilobytes * kBytesPerKilobyte;
  }
  return 0;
}

}  // namespace orvex::bench
