#include <unistd.h>

#include <atomic>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

#include "orvex-report/run.h"

namespace {

/// Set by a signal; the only way in which a handler may speak to the program.
std::atomic<bool> stop_requested = false;
static_assert(std::atomic<bool>::is_always_lock_free);

void RequestStop(int) { stop_requested = true; }

/// The first signal asks the run to stop; a second one ends the program at once. A program that was started with the
/// signals ignored, as one in the background is, goes on ignoring them; one that was started with them blocked hears
/// them.
void HandleSignals() {
  struct sigaction action {};
  action.sa_handler = RequestStop;
  action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
  sigemptyset(&action.sa_mask);
  sigset_t handled;
  sigemptyset(&handled);
  for (const int signal : {SIGINT, SIGTERM}) {
    struct sigaction inherited {};
    sigaction(signal, nullptr, &inherited);
    if (inherited.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);
    sigaddset(&handled, signal);
  }
  sigprocmask(SIG_UNBLOCK, &handled, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
  HandleSignals();
  std::error_code ignored;
  return orvex::report_app::Run(std::vector<std::string>(argv + 1, argv + argc),
                                {.out = std::cout,
                                 .err = std::cerr,
                                 .program = std::filesystem::read_symlink("/proc/self/exe", ignored),
                                 .err_is_terminal = isatty(STDERR_FILENO) == 1,
                                 .stop_requested = [] { return stop_requested.load(); }});
}
