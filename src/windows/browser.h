#pragma once

#include <filesystem>

class QSettings;

namespace orvex::windows {

/// The host's browser: opens another window on a display page and shows it. The window deletes itself when it is
/// closed. Needs a running QApplication (`WebApplication`).
/// @param settings where the windows remember size and paper; none: they do not
void OpenBrowser(const std::filesystem::path& page, QSettings* settings = nullptr);

}  // namespace orvex::windows
