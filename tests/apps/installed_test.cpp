#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "orvex-report/child_program.h"
#include "support/file_content.h"
#include "support/test_databases.h"

/// The programs where they are installed, started by somebody who has never started them.
namespace orvex::report_app {
namespace {

namespace fs = std::filesystem;
using test::FileContent;

/// Whether this build has the programs with windows; the help is shown by one of them.
constexpr bool kWithWindows = ORVEX_WITH_WINDOWS;

class InstalledTest : public testing::Test {
 protected:
  InstalledTest() {
    Start(ORVEX_CMAKE, {"--install", ORVEX_BUILD_FOLDER, "--prefix", prefix_});
    fs::copy_file(ORVEX_SAMPLE_DATABASE, folder_.Path() / "client1.mdb");
  }

  void Start(const fs::path& program, std::vector<std::string> arguments) {
    const auto end = RunChild({.program = program,
                               .arguments = std::move(arguments),
                               .limit = std::chrono::minutes(2),
                               .on_line = [&](std::string_view line) { said_ += std::string(line) + "\n"; }});
    EXPECT_EQ(end.how, ChildEnd::How::kExited);
    EXPECT_EQ(end.code, 0) << program << '\n' << said_;
  }

  void Report(const std::vector<std::string>& more) {
    std::vector<std::string> arguments = {"--client", folder_.Path() / "client1.mdb", "--annual", "--tanks", "HT-204",
                                          "--out",    folder_.Path() / "out"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    Start(prefix_ / "bin" / "orvex-report", arguments);
  }

  test::TemporaryFolder folder_;
  fs::path prefix_ = folder_.Path() / "an empty prefix";
  std::string said_;
};

TEST_F(InstalledTest, TheReportProgramFindsWhatItIsDeliveredWith) {
  Report({});
  EXPECT_TRUE(FileContent(folder_.Path() / "out" / "briefdata.xml").ends_with("</REPORT>"));
  for (const auto& file : fs::directory_iterator(ORVEX_DISPLAY_FOLDER)) {
    const auto name = file.path().filename();
    EXPECT_EQ(FileContent(folder_.Path() / "out" / name), FileContent(file.path())) << name;
  }
}

TEST_F(InstalledTest, TheHelpIsDeliveredWithTheWindows) {
  EXPECT_EQ(fs::is_regular_file(prefix_ / "share" / "orvex" / "help" / "ORVEX40.hlp"), kWithWindows);
}

TEST_F(InstalledTest, ThePdfProgramIsDeliveredWithTheWindowsAndPrints) {
  ASSERT_EQ(fs::exists(prefix_ / "bin" / "orvex-pdf"), kWithWindows);
  if (!kWithWindows) return;
  Report({"--quiet", "--pdf", folder_.Path() / "report.pdf"});
  EXPECT_TRUE(FileContent(folder_.Path() / "report.pdf").starts_with("%PDF-"));
}

TEST_F(InstalledTest, TheSchemasOfTheReportFilesAreThere) {
  for (const auto* name : {"briefdata.rng", "summarydata.rng", "data_export.rng", "report_texts.rng"})
    EXPECT_NE(FileContent(prefix_ / "share" / "orvex" / "schema" / name).find("relaxng.org"), std::string::npos)
        << name;
}

}  // namespace
}  // namespace orvex::report_app
