#include "orvex-report/outputs.h"

#include <gtest/gtest.h>

#include "apps/report_program.h"
#include "orvex-report/failure.h"
#include "shell/delivered_files.h"
#include "support/file_content.h"
#include "support/sample_tanks.h"

namespace orvex::report_app {
namespace {

namespace fs = std::filesystem;
using test::FileContent;
using test::WriteFile;

class OutputsTest : public test::ReportProgram {
 protected:
  OutputsTest() { test::AddVerticalTank(test_, {{"USER ID", "V"}}); }
};

TEST_F(OutputsTest, AllDisplayFilesStandBesideTheReport) {
  ASSERT_EQ(RunOn({"--annual"}), kDone) << err_.str();
  for (const auto* name : {"briefdisplay.htm", "summarydisplay.htm", "display.js"})
    EXPECT_EQ(FileContent(Output() / name), FileContent(Delivered() / name)) << name;
}

TEST_F(OutputsTest, DisplayFilesOfAnotherVersionAreReplaced) {
  ASSERT_EQ(RunOn({"--annual"}), kDone) << err_.str();
  WriteFile(Delivered() / "display.js", "orvex, newer");
  WriteFile(Output() / "briefdisplay.htm", "<!-- changed ORVEX page -->");
  ASSERT_EQ(RunOn({"--annual"}), kDone) << err_.str();
  EXPECT_EQ(FileContent(Output() / "display.js"), "orvex, newer");
  EXPECT_EQ(FileContent(Output() / "briefdisplay.htm"), "orvex briefdisplay.htm");
}

TEST_F(OutputsTest, APersonsOwnFileIsNotReplaced) {
  fs::create_directories(Output());
  WriteFile(Output() / "display.js", "my own script");
  EXPECT_EQ(RunOn({"--annual"}), kCannotOpen);
  EXPECT_TRUE(Told("would replace '" + (Output() / "display.js").string() + "'")) << err_.str();
  EXPECT_EQ(FileContent(Output() / "display.js"), "my own script");
  // Nothing was put there before the trouble was seen.
  EXPECT_EQ(test::EntryCount(Output()), 1);
}

TEST_F(OutputsTest, EveryFileThatIsDeliveredIsKnownAsADisplayFile) {
  // Otherwise its next version could not take its place.
  for (const auto& file : shell::DeliveredFiles(ORVEX_DISPLAY_FOLDER)) EXPECT_TRUE(shell::IsDisplayFile(file)) << file;
}

TEST_F(OutputsTest, AFolderInThePlaceOfADisplayFileIsNamed) {
  fs::create_directories(Output() / "display.js");
  EXPECT_EQ(RunOn({"--annual"}), kCannotOpen);
  EXPECT_TRUE(Told("'" + (Output() / "display.js").string() + "'")) << err_.str();
}

TEST_F(OutputsTest, ADatabaseWithTheNameOfADisplayFileIsNotReplaced) {
  fs::create_directories(Output());
  const auto client = Output() / "display.js";
  test_.session.ClientDb.reset();
  fs::copy_file(Client(), client);
  const auto before = FileContent(client);
  EXPECT_EQ(Run({"--client", client, "--reference", Reference(), "--annual", "--out", Output()}), kWrongUse);
  EXPECT_TRUE(Told("'" + client.string() + "' is a database in use")) << err_.str();
  EXPECT_EQ(FileContent(client), before);
}

TEST_F(OutputsTest, TheRowsCannotGoToADisplayFile) {
  const auto csv = (Output() / "summarydisplay.htm").string();
  EXPECT_EQ(RunOn({"--annual", "--csv", csv}), kWrongUse);
  EXPECT_TRUE(Told("--csv: '" + csv + "' is the report's own file")) << err_.str();
}

TEST_F(OutputsTest, ADeviceIsNotReplacedByTheRows) {
  const auto device = test_.folder.Path() / "null.csv";
  fs::create_symlink("/dev/null", device);
  EXPECT_EQ(RunOn({"--annual", "--csv", device}), kCannotOpen);
  EXPECT_TRUE(Told("--csv: '/dev/null' is not a valid path: it is a device or the like.")) << err_.str();
  EXPECT_TRUE(fs::is_symlink(device));
}

TEST_F(OutputsTest, ALinkLeadsToTheFileThatTheRowsReplace) {
  const auto rows = test_.folder.Path() / "rows.csv", link = test_.folder.Path() / "link.csv";
  WriteFile(rows, "old rows");
  fs::create_symlink("rows.csv", link);
  ASSERT_EQ(RunOn({"--annual", "--csv", link}), kDone) << err_.str();
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_TRUE(FileContent(rows).starts_with("ID,")) << FileContent(rows).substr(0, 40);
  EXPECT_TRUE(out_.str().ends_with("\nEmission rows: " + link.string() + "\n")) << out_.str();
}

TEST_F(OutputsTest, WithoutDeliveredPagesTheReportIsWrittenWithAWarning) {
  fs::remove_all(Delivered());
  EXPECT_EQ(RunOn({"--annual"}), kDone);
  EXPECT_TRUE(Told("orvex-report: warning: the report gets no page that shows it: ")) << err_.str();
  EXPECT_TRUE(Told("share/orvex/display'")) << err_.str();
  EXPECT_TRUE(out_.str().ends_with("\nReport: " + (Output() / "briefdata.xml").string() + "\n")) << out_.str();
  EXPECT_EQ(test::EntryCount(Output()), 1);
}

TEST_F(OutputsTest, AFolderThatTakesNoFilesIsToldBeforeTheRun) {
  const auto before = FileContent(Client());
  EXPECT_EQ(RunOn({"--annual", "--out", "/proc/self"}), kCannotOpen);
  EXPECT_TRUE(Told("--out: ")) << err_.str();
  EXPECT_EQ(FileContent(Client()), before);
}

TEST_F(OutputsTest, FolderNamesOfAnyKindWillDo) {
  for (const auto* name : {"with blank", "it's", "\"quoted\"", "-rf", "é\nü", "$HOME *"}) {
    const auto folder = test_.folder.Path() / name;
    ASSERT_EQ(RunOn({"--annual", "--out", folder.string()}), kDone) << err_.str();
    EXPECT_TRUE(FileContent(folder / "briefdata.xml").ends_with("</REPORT>")) << name;
    EXPECT_EQ(FileContent(folder / "briefdisplay.htm"), "orvex briefdisplay.htm") << name;
  }
}

TEST_F(OutputsTest, TheFolderOfTheDeliveredFilesWillDoToo) {
  ASSERT_EQ(RunOn({"--annual", "--out", Delivered().string()}), kDone) << err_.str();
  EXPECT_EQ(test::EntryCount(Delivered()), 4);
  EXPECT_EQ(FileContent(Delivered() / "briefdisplay.htm"), "orvex briefdisplay.htm");
}

}  // namespace
}  // namespace orvex::report_app
