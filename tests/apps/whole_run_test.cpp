#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/report_program.h"
#include "orvex-report/failure.h"
#include "support/file_content.h"
#include "support/sample_tanks.h"

namespace orvex::report_app {
namespace {

using test::FileContent;

int Count(const std::string& text, std::string_view part) {
  int count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

class WholeRunTest : public test::ReportProgram {
 protected:
  WholeRunTest() {
    test::AddVerticalTank(test_, {{"USER ID", "V, 1"}});
    test::AddHorizontalTank(test_, {{"USER ID", "H"}});
    test::AddInternalTank(test_, {{"USER ID", "I"}});
    test::AddExternalTank(test_, {{"USER ID", "E"}});
    test::AddDomedTank(test_, {{"USER ID", "D"}});
  }

  [[nodiscard]] std::string Brief() const { return FileContent(Output() / "briefdata.xml"); }

  /// All rows of a table of the client database as it now stands.
  [[nodiscard]] std::vector<std::vector<store::Value>> Rows(std::string_view table) const {
    const auto client = store::Database::Open(Client(), store::OpenMode::kReadOnly);
    return client->OpenTable(table).GetRows(1000000);
  }
};

TEST_F(WholeRunTest, AnAnnualRunWritesTheReportAndPrintsTheTable) {
  ASSERT_EQ(RunOn({"--annual"}), kDone) << err_.str();
  EXPECT_EQ(err_.str(), "");
  const auto table = out_.str();
  EXPECT_TRUE(table.starts_with("Losses in pounds: Annual\n\nUSER ID  Type ")) << table;
  EXPECT_NE(table.find("\nV, 1     VFRT "), std::string::npos) << table;
  EXPECT_NE(table.find("\nD        DEFRT "), std::string::npos) << table;
  EXPECT_NE(table.find("\nTotal "), std::string::npos) << table;
  EXPECT_TRUE(table.ends_with("\nReport: " + (Output() / "briefdata.xml").string() +
                              "\nDisplay page: " + (Output() / "briefdisplay.htm").string() + "\n"))
      << table;
  EXPECT_EQ(Count(Brief(), "<Tank>"), 5);
  EXPECT_EQ(Count(Brief(), "<TankSum "), 5);
  EXPECT_EQ(Rows("emission").size(), 5U);
}

TEST_F(WholeRunTest, ADetailReportIsWrittenAndItsPageNamed) {
  ASSERT_EQ(RunOn({"--annual", "--kind", "detail"}), kDone) << err_.str();
  const auto report = FileContent(Output() / "summarydata.xml");
  EXPECT_EQ(Count(report, "<TYPE>Detail</TYPE>"), 1);
  EXPECT_GT(Count(report, "<Detail"), 0);
  EXPECT_TRUE(out_.str().ends_with("\nReport: " + (Output() / "summarydata.xml").string() +
                                   "\nDisplay page: " + (Output() / "summarydisplay.htm").string() + "\n"))
      << out_.str();
  EXPECT_FALSE(std::filesystem::exists(Output() / "briefdata.xml"));
}

TEST_F(WholeRunTest, ASummaryReportTakesThePlaceOfADetailReport) {
  ASSERT_EQ(RunOn({"--annual", "--kind", "detail"}), kDone) << err_.str();
  ASSERT_EQ(RunOn({"--monthly", "Jan,Jul", "--kind", "SUMMARY"}), kDone) << err_.str();
  const auto report = FileContent(Output() / "summarydata.xml");
  EXPECT_EQ(Count(report, "<TYPE>Summary</TYPE>"), 1);
  EXPECT_EQ(Count(report, "<Detail"), 0);
}

TEST_F(WholeRunTest, TheTotalOfTheTableIsThatOfTheReport) {
  ASSERT_EQ(RunOn({"--annual"}), kDone) << err_.str();
  const auto brief = Brief();
  const auto start = brief.find("<Total>") + 7;
  const auto total = brief.substr(start, brief.find("</Total>") - start);
  const auto line = out_.str().substr(out_.str().find("\nTotal "));
  EXPECT_NE(line.find(" " + total + " "), std::string::npos) << line << total;
}

TEST_F(WholeRunTest, ChosenTanksAndMonthsOnlyAreComputed) {
  ASSERT_EQ(RunOn({"--monthly", "feb,January", "--tanks", R"(h,"v, 1")"}), kDone) << err_.str();
  EXPECT_EQ(Rows("emission").size(), 4U);
  EXPECT_EQ(Count(Brief(), "<TimePeriod>"), 2);
  EXPECT_LT(Brief().find("<TankName>H "), Brief().find("<TankName>V, 1 "));
  EXPECT_TRUE(out_.str().starts_with("Losses in pounds: January, February\n"));
}

TEST_F(WholeRunTest, ASecondRunGivesTheSameReport) {
  ASSERT_EQ(RunOn({"--annual"}), kDone) << err_.str();
  const auto first = Brief();
  const auto rows = Rows("emission");
  ASSERT_EQ(RunOn({"--annual"}), kDone) << err_.str();
  EXPECT_EQ(Brief(), first);
  EXPECT_EQ(Rows("emission"), rows);
}

TEST_F(WholeRunTest, CsvHoldsTheRowsOfTheChosenTanks) {
  const auto csv = (test_.folder.Path() / "rows.csv").string();
  ASSERT_EQ(RunOn({"--annual"}), kDone) << err_.str();
  ASSERT_EQ(RunOn({"--monthly", "May", "--tanks", "E", "--csv", csv}), kDone) << err_.str();
  EXPECT_EQ(Count(FileContent(csv), "\r\n"), 2);
  EXPECT_EQ(Count(FileContent(csv), ",May,"), 1);
  EXPECT_NE(out_.str().find("\nEmission rows: " + csv + "\n"), std::string::npos);
}

TEST_F(WholeRunTest, QuietPrintsNothing) {
  terminal_ = true;
  ASSERT_EQ(RunOn({"--annual", "--quiet"}), kDone);
  EXPECT_EQ(out_.str() + err_.str(), "");
  EXPECT_EQ(Count(Brief(), "<Tank>"), 5);
}

TEST_F(WholeRunTest, ProgressIsShownOnATerminalAndClearedAtTheEnd) {
  terminal_ = true;
  ASSERT_EQ(RunOn({"--annual"}), kDone);
  EXPECT_NE(err_.str().find("\r\x1B[KProcessing, "), std::string::npos);
  EXPECT_TRUE(err_.str().ends_with("\r\x1B[K"));
}

TEST_F(WholeRunTest, FaultsOfTheDataAreListedAndStopTheRun) {
  test::ChangeRow(test_.client(), "tank", "USER ID", {"D"}, {{"MET CTYST", "Nowhere, Ohio"}});
  const auto csv = test_.folder.Path() / "rows.csv";
  EXPECT_EQ(RunOn({"--annual", "--csv", csv.string()}), kDataFaults);
  EXPECT_TRUE(err_.str().starts_with("D: Nearest major city must be specified.\n")) << err_.str();
  EXPECT_EQ(static_cast<std::size_t>(Count(err_.str(), "\n")), Rows("error").size()) << err_.str();
  EXPECT_EQ(out_.str(), "");
  EXPECT_TRUE(Rows("emission").empty());
  EXPECT_FALSE(std::filesystem::exists(Output() / "briefdata.xml"));
  EXPECT_FALSE(std::filesystem::exists(csv));
}

TEST_F(WholeRunTest, FaultsOfAnEarlierTankAreWarnings) {
  test::ChangeRow(test_.client(), "tank", "USER ID", {"V, 1"}, {{"VOLUME", 0.0}});
  EXPECT_EQ(RunOn({"--annual"}), kDone);
  EXPECT_TRUE(err_.str().starts_with("warning: V, 1: ")) << err_.str();
  EXPECT_EQ(Count(Brief(), "<TankName>D "), 1);
}

TEST_F(WholeRunTest, OnlyWhatARunChangesIsChanged) {
  const auto reference = FileContent(Reference());
  const auto fittings = Rows("fittings");
  ASSERT_EQ(RunOn({"--annual"}), kDone) << err_.str();
  EXPECT_EQ(FileContent(Reference()), reference);
  EXPECT_EQ(Rows("fittings"), fittings);
  // Databases, report folder and the two of the program, nothing else.
  EXPECT_EQ(test::EntryCount(test_.folder.Path()), 5);
  // The report and the three display files.
  EXPECT_EQ(test::EntryCount(Output()), 4);
}

TEST_F(WholeRunTest, AnInterruptedRunLeavesTheClientDatabaseAsItWas) {
  ASSERT_EQ(RunOn({"--annual"}), kDone) << err_.str();
  const auto tanks = Rows("tank");
  const auto mixtures = Rows("mixtures");
  const auto emission = Rows("emission");
  int asked = 0;
  stop_requested_ = [&] { return ++asked > 3; };
  EXPECT_EQ(RunOn({"--monthly", "Jan"}), kInterrupted);
  EXPECT_TRUE(Told("Stopped; the client database '" + Client() + "' is unchanged")) << err_.str();
  EXPECT_EQ(Rows("tank"), tanks);
  EXPECT_EQ(Rows("mixtures"), mixtures);
  EXPECT_EQ(Rows("emission"), emission);
}

TEST_F(WholeRunTest, ARunTimeFailureIsToldAndTheRestIsPrinted) {
  // The report's place is taken by a folder: the report cannot be written, the run itself is done.
  std::filesystem::create_directories(Output() / "briefdata.xml");
  EXPECT_EQ(RunOn({"--annual"}), kRunTimeFailure);
  EXPECT_TRUE(Told("Number: 3043")) << err_.str();
  EXPECT_TRUE(Told("frmPreview.BriefReport")) << err_.str();
  EXPECT_NE(out_.str().find("\nV, 1     VFRT "), std::string::npos) << out_.str();
  EXPECT_EQ(out_.str().find("Report: "), std::string::npos) << out_.str();
}

TEST_F(WholeRunTest, ACalculationCellThatFailsIsToldAndTheRestOfTheReportWritten) {
  // The losses are computed by the type as it is spelt, the page looks for "VERTICAL" in it: of a tank whose type
  // stands in capitals it shows columns that a floating roof's loss leaves null.
  test::AddVerticalTank(test_, {{"USER ID", "W"}, {"TANK_TYPE", "VERTICAL FIXED ROOF TANK"}});
  ASSERT_EQ(RunOn({"--annual", "--kind", "summary", "--tanks", "W"}), kDone) << err_.str();
  EXPECT_EQ(RunOn({"--annual", "--kind", "detail", "--tanks", "W"}), kRunTimeFailure);
  EXPECT_TRUE(Told("  error: Invalid use of Null in the field 'VS_VOL' of the table 'emission'.\n")) << err_.str();
  EXPECT_FALSE(Told("Number: ")) << err_.str();
  EXPECT_TRUE(Told("run-time failures were reported: figures may be missing")) << err_.str();
  const auto report = FileContent(Output() / "summarydata.xml");
  EXPECT_EQ(Count(report, "<Value label=\"\u00A0\u00A0\u00A0Vapor Space Volume (cu ft):\"/>"), 2);
  EXPECT_EQ(Count(report, "<Value label=\"Standing Losses (lb):\" month_0=\"0.0000\"/>"), 1);
  EXPECT_TRUE(report.ends_with("</REPORT>"));
}

}  // namespace
}  // namespace orvex::report_app
