#pragma once

#include <string>
#include <string_view>

namespace orvex::report_app {

/// A text of any content as it may be printed on a terminal: what could move the cursor, change colours or turn the
/// writing direction is shown as \x1B or \u{202E}, and so are bytes that are no character.
std::string TerminalText(std::string_view text);

}  // namespace orvex::report_app
