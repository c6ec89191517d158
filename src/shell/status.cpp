#include "shell/status.h"

#include <string>
#include <utility>

namespace orvex::shell {

void SetStatus(Host& host, std::string_view text, bool please_wait) {
  if (text.empty()) {
    host.SetStatusText("Ready");
    return;
  }
  host.SetStatusText(std::string(text) + (please_wait ? ", please wait..." : ""));
}

BusyScope::BusyScope(Host& host, std::string_view status)
    : host_(host), outer_status_(std::exchange(host.busy_status_, std::string(status))) {
  host_.SetPointer(Pointer::kBusy);
  SetStatus(host_, status, true);
}

BusyScope::~BusyScope() {
  host_.busy_status_ = outer_status_;
  const bool still_busy = !outer_status_.empty();
  host_.SetPointer(still_busy ? Pointer::kBusy : Pointer::kDefault);
  SetStatus(host_, outer_status_, still_busy);
}

}  // namespace orvex::shell
