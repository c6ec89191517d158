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

void Tell(Host& host, const std::string& text, Icon icon) {
  host.ShowMessage(text, std::string(kApplicationTitle), Buttons::kOk, icon);
}

bool Accepted(Host& host, const std::string& question, std::string_view title, Icon icon) {
  return host.ShowMessage(question, std::string(title), Buttons::kYesNo, icon) == Answer::kYes;
}

void Refuse(Host& host, WindowState& window, std::string_view control, const std::string& reason) {
  Tell(host, reason, Icon::kExclamation);
  window.focus = control;
  window.refusal = reason;
}

BusyScope::BusyScope(Session& session, std::string_view status)
    : session_(session), outer_status_(std::exchange(session.busy_status, std::string(status))) {
  session_.host.SetPointer(Pointer::kBusy);
  SetStatus(session_.host, status, true);
}

BusyScope::~BusyScope() {
  session_.busy_status = outer_status_;
  const bool still_busy = !outer_status_.empty();
  session_.host.SetPointer(still_busy ? Pointer::kBusy : Pointer::kDefault);
  SetStatus(session_.host, outer_status_, still_busy);
}

}  // namespace orvex::shell
