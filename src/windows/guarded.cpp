#include "windows/guarded.h"

#include <exception>
#include <string>

#include "shell/status.h"

namespace orvex::windows {

void Guarded(shell::Session& session, const std::function<void()>& command) {
  try {
    command();
  } catch (const shell::Interrupted&) {
    shell::SetStatus(session.host, "", false);
  } catch (const std::exception& fault) {
    session.host.SetPointer(shell::Pointer::kDefault);
    shell::Tell(session.host, fault.what(), shell::Icon::kCritical);
  }
}

}  // namespace orvex::windows
