#pragma once

#include <string>
#include <string_view>

#include "shell/controls.h"
#include "shell/session.h"

namespace orvex::shell {

/// Title of message boxes that have none of their own.
inline constexpr std::string_view kApplicationTitle = "ORVEX";
inline constexpr std::string_view kVersion = "4.0.9d";

/// Writes the status line: "Ready" for an empty text, otherwise the text, with ", please wait..." behind it on demand.
void SetStatus(Host& host, std::string_view text, bool please_wait);

/// Busy pointer and a status text for the length of a command; both are restored on every way out. A command inside
/// another one gives back the outer one's, so that the pointer stays busy to the end of that.
class BusyScope {
 public:
  BusyScope(Session& session, std::string_view status);
  BusyScope(const BusyScope&) = delete;
  BusyScope& operator=(const BusyScope&) = delete;
  ~BusyScope();

 private:
  Session& session_;
  std::string outer_status_;
};

/// A message box under the program's own title that can only be acknowledged.
void Tell(Host& host, const std::string& text, Icon icon = Icon::kNone);

/// Asks whether a proposed value is to be used, or a proposed step to be taken.
[[nodiscard]] bool Accepted(Host& host, const std::string& question, std::string_view title = kApplicationTitle,
                            Icon icon = Icon::kNone);

/// Tells why a control is refused, and leads back to it.
void Refuse(Host& host, WindowState& window, std::string_view control, const std::string& reason);

}  // namespace orvex::shell
