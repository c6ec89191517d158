#include "shell/compact.h"

#include <cstdint>

#include "shell/status.h"
#include "shell/trap.h"
#include "store/compact_file.h"

namespace orvex::shell {

void Compact(Session& session, const std::string& path) {
  const BusyScope busy(session, "Compacting " + path);
  Trapped(session, "mDatabase.Compact", [&] {
    try {
      store::CompactFile(path, [&](std::int64_t done, std::int64_t total) { session.host.Progress(done, total); });
    } catch (const Interrupted&) {
      // The file is whole, and no smaller. Whoever ends the program does not want to stop that.
    }
  });
}

}  // namespace orvex::shell
