#pragma once

#include <string_view>
#include <utility>

#include "shell/trap.h"

namespace orvex::emission {

/// Runs a model as the routine it is: a failure is reported under the routine's label, and the result is 0.
template <typename Body>
auto Routine(shell::Session& session, std::string_view label, Body&& body) {
  return shell::Trapped(session, label, decltype(body()){}, std::forward<Body>(body));
}

}  // namespace orvex::emission
