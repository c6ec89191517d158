#include "windows/browser.h"

#include "windows/report_window.h"

namespace orvex::windows {

void OpenBrowser(const std::filesystem::path& page, QSettings* settings) {
  auto* window = new ReportWindow(page, settings);  // WA_DeleteOnClose: its own owner from here on
  window->show();
}

}  // namespace orvex::windows
