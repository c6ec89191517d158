#pragma once

#include <string>
#include <string_view>

#include "shell/session.h"
#include "shell/status.h"

namespace orvex::entry {

/// Asks whether a proposed value is to be used, or a proposed step to be taken.
inline bool Accepted(shell::Session& session, const std::string& question,
                     std::string_view title = shell::kApplicationTitle, shell::Icon icon = shell::Icon::kNone) {
  return session.host.ShowMessage(question, std::string(title), shell::Buttons::kYesNo, icon) == shell::Answer::kYes;
}

}  // namespace orvex::entry
