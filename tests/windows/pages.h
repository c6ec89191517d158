#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QString>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "support/test_databases.h"

namespace orvex::test {

/// How long a test waits for what must happen, before it fails.
inline constexpr int kPatienceMs = 180'000;

/// Three sheets, the first with a black mark of 100 by 50 pt in its corner, a table to copy and three times the word
/// "tank", with a script that behaves as those of the display pages do.
extern const std::string_view kTinyReport;

/// A folder with pages of the test's own, and the event loop.
class PageTest : public testing::Test {
 protected:
  /// Writes a page with this state, title and body.
  std::filesystem::path WritePage(const std::string& name, std::string_view state, std::string_view title,
                                  std::string_view body);
  /// Writes the tiny report under a title.
  std::filesystem::path WriteReport(const std::string& name = "report.htm", std::string_view title = "Tiny report");
  /// Puts the delivered display pages and a Brief report of two tanks into the folder.
  std::filesystem::path DeliverBriefReport();
  /// Puts the delivered display pages and a report on one deck seam into the folder.
  std::filesystem::path DeliverDeckSeamReport();

  /// Works the event loop until the condition holds; false when the tests' patience ends first.
  static bool WaitFor(const std::function<bool()>& condition);

  TemporaryFolder folder_;

 private:
  void DeliverPages();
};

/// What pdfinfo and pdftotext tell of a PDF file.
struct PdfFacts {
  int pages = 0;
  double width_pt = 0;
  double height_pt = 0;
  std::string text;
};
PdfFacts ReadPdf(const std::filesystem::path& file);

}  // namespace orvex::test
