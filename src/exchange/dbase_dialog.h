#pragma once

#include <string>
#include <string_view>

#include "shell/host.h"

namespace orvex::exchange {

/// Asks for a dBASE file of the previous version by its usual name, first where that kept its files. Error 32755 when
/// cancelled.
std::string AskForDbaseFile(shell::Host& host, std::string_view file);

}  // namespace orvex::exchange
