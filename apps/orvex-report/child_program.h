#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orvex::report_app {

/// How a program that was started came to its end.
struct ChildEnd {
  enum class How {
    kExited,     ///< by itself; `code` is its exit status
    kSignalled,  ///< by the signal `code`
    kTimedOut,   ///< it took too long and was ended
    kStopped,    ///< the person asked to stop and it was ended
  };
  How how;
  int code;
};

/// What a program is started with.
struct ChildSetup {
  std::filesystem::path program;       ///< started as it is, without a shell or a search
  std::vector<std::string> arguments;  ///< without its name
  std::chrono::milliseconds limit;     ///< how long it may take
  std::function<bool()> stop_requested = {};
  std::function<void(std::string_view)> on_line = {};  ///< takes each line that it writes to its two outputs
};

/// Starts a program and waits for its end. It reads nothing. Whatever it has started itself ends with it. Throws
/// `std::system_error` if it cannot be started.
ChildEnd RunChild(const ChildSetup& setup);

}  // namespace orvex::report_app
