#include "shell/status.h"

#include <string>

namespace orvex::shell {

void SetStatus(Host& host, std::string_view text, bool please_wait) {
  if (text.empty()) {
    host.SetStatusText("Ready");
    return;
  }
  host.SetStatusText(std::string(text) + (please_wait ? ", please wait..." : ""));
}

BusyScope::BusyScope(Host& host, std::string_view status) : host_(host) {
  host_.SetPointer(Pointer::kBusy);
  SetStatus(host_, status, true);
}

BusyScope::~BusyScope() {
  host_.SetPointer(Pointer::kDefault);
  SetStatus(host_, "", false);
}

}  // namespace orvex::shell
