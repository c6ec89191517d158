#include "shell/compact.h"

#include "shell/status.h"
#include "shell/trap.h"
#include "store/compact_file.h"

namespace orvex::shell {

void Compact(Session& session, const std::string& path) {
  const BusyScope busy(session, "Compacting " + path);
  Trapped(session, "mDatabase.Compact", [&] { store::CompactFile(path); });
}

}  // namespace orvex::shell
