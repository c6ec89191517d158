#include "orvex-report/transfer.h"

#include <gtest/gtest.h>

#include <memory>

#include "apps/report_program.h"
#include "orvex-report/failure.h"
#include "shell/editing.h"
#include "support/file_content.h"
#include "support/sample_tanks.h"

/// Tanks from and to CSV files by the batch program.
namespace orvex::report_app {
namespace {

using test::FileContent;

class TransferTest : public test::ReportProgram {
 protected:
  TransferTest() {
    test::AddSampleReference(test_.reference());
    std::filesystem::create_directory(Folder());
  }

  [[nodiscard]] std::string Folder() const { return (test_.folder.Path() / "csv").string(); }
  void Write(const char* file, std::string_view content) const {
    test::WriteFile(std::filesystem::path(Folder()) / file, content);
  }
  void WriteTank() const {
    Write("tanks.csv", "USER ID,TANK_TYPE\nT-1,Horizontal Tank\n");
    Write("mixtures.csv", "USER ID,MIX NAME,COMPONENT\nT-1,Benzene,Single\n");
    Write("components.csv", "USER ID,NAME\n");
    Write("fittings.csv", "USER ID,FIT_TYPE\n");
  }
  int Import() { return Run({"--client", Client(), "--reference", Reference(), "--import-csv", Folder()}); }
  int Export() { return Run({"--client", Client(), "--export-csv", Folder()}); }
};

TEST_F(TransferTest, AnImportTellsWhatWasAdded) {
  WriteTank();
  EXPECT_EQ(Import(), kDone) << err_.str();
  EXPECT_EQ(out_.str(), "Imported into '" + Client() + "': 1 tank, 1 mixture, 0 components and 0 fittings\n");
  EXPECT_EQ(err_.str(), "");
  EXPECT_EQ(test_.client().OpenTable("tank").Text("USER ID"), "T-1");
}

TEST_F(TransferTest, AnExportNeedsNoReferenceDatabaseAndNoRightToWriteTheClientDatabase) {
  test::AddHorizontalTank(test_, {{"USER ID", "H"}});
  const auto before = FileContent(Client());
  EXPECT_EQ(Export(), kDone) << err_.str();
  EXPECT_EQ(out_.str(), "Exported to '" + Folder() + "': 1 tank, 1 mixture, 0 components and 0 fittings\n");
  EXPECT_EQ(err_.str(), "");
  EXPECT_EQ(FileContent(Client()), before);
  EXPECT_EQ(test::EntryCount(Folder()), 4);
}

TEST_F(TransferTest, QuietPrintsNothing) {
  WriteTank();
  EXPECT_EQ(RunOn({"--import-csv", Folder(), "--quiet"}), kDone) << err_.str();
  EXPECT_EQ(RunOn({"--export-csv", Folder(), "--quiet"}), kDone) << err_.str();
  EXPECT_EQ(out_.str() + err_.str(), "");
}

TEST_F(TransferTest, AnExportWarnsOfRowsThatItLeftOut) {
  test::AddMixture(test_.client(), 5, 1);
  EXPECT_EQ(Export(), kDone);
  EXPECT_EQ(err_.str(), "orvex-report: warning: rows that belong to no tank were left out: 1\n");
}

TEST_F(TransferTest, AnImportWarnsOfComponentsWithoutAMixture) {
  WriteTank();
  Write("tanks.csv", "ID,USER ID,TANK_TYPE\n1,T-1,Horizontal Tank\n");
  Write("components.csv", "USER ID,ID,MIX ID,COMP ID\nT-1,1,2,1\n");
  EXPECT_EQ(Import(), kDone);
  EXPECT_EQ(err_.str(),
            "orvex-report: warning: components whose mixture is not there, as deleting one leaves them: 1\n");
}

TEST_F(TransferTest, FaultsAreAllListedALineEach) {
  WriteTank();
  Write("tanks.csv", "USER ID,TANK_TYPE,DIAMETER\nT-1,Horizontal Tank,x\nT-2,Horizontal Tank,\x1B[2J\n");
  EXPECT_EQ(Import(), kDataFaults);
  EXPECT_EQ(err_.str(),
            "orvex-report: nothing was imported:\n"
            "tanks.csv, line 2, DIAMETER: 'x' is not a number.\n"
            "tanks.csv, line 3, DIAMETER: ' [2J' is not a number.\n"
            "tanks.csv, line 3: the tank has no mixture in mixtures.csv.\n");
  EXPECT_EQ(out_.str(), "");
  EXPECT_TRUE(test_.client().OpenTable("tank").AtEnd());
}

TEST_F(TransferTest, AMissingFileOrFolderIsNamed) {
  WriteTank();
  std::filesystem::remove(std::filesystem::path(Folder()) / "components.csv");
  EXPECT_EQ(Import(), kCannotOpen);
  EXPECT_EQ(err_.str(), "orvex-report: --import-csv: The file '" + Folder() + "/components.csv' is not there.\n");
  err_.str("");
  EXPECT_EQ(Run({"--client", Client(), "--export-csv", Client()}), kCannotOpen);
  EXPECT_TRUE(Told("--export-csv: The folder '" + Client() + "' cannot be made: ")) << err_.str();
}

TEST_F(TransferTest, WhileAnotherProgramEditsNothingIsImported) {
  WriteTank();
  const auto editing = shell::BeginEditing(test_.session, shell::DatabaseKind::kClient);
  EXPECT_EQ(Import(), kCannotOpen);
  EXPECT_TRUE(Told("is being edited by another program. Nothing was changed.")) << err_.str();
  EXPECT_TRUE(test_.client().OpenTable("tank").AtEnd());
}

TEST_F(TransferTest, AnImportThatIsStoppedLeavesTheDatabaseAsItWas) {
  WriteTank();
  stop_requested_ = [] { return true; };
  EXPECT_EQ(Import(), kInterrupted);
  EXPECT_TRUE(Told("Stopped; the client database '" + Client() + "' is unchanged")) << err_.str();
  EXPECT_TRUE(test_.client().OpenTable("tank").AtEnd());
}

TEST_F(TransferTest, AMissingReferenceDatabaseStopsAnImport) {
  WriteTank();
  EXPECT_EQ(Run({"--client", Client(), "--import-csv", Folder()}), kCannotOpen);
  EXPECT_TRUE(Told("Use --reference FILE.")) << err_.str();
}

TEST_F(TransferTest, ATankFilledIntoATemplateIsReported) {
  // The template of a new database, with its columns moved and cut down as a person does in a spreadsheet.
  ASSERT_EQ(Export(), kDone);
  const auto columns = FileContent(std::filesystem::path(Folder()) / "tanks.csv");
  for (const auto* column : {"USER ID", "MET CTYST", "Q_NET", "SHL COLSHD"})
    EXPECT_NE(columns.find(column), std::string::npos) << column;
  Write("tanks.csv",
        "\xEF\xBB\xBFUSER ID,TANK_TYPE,MET CTYST,DIAMETER,HEIGHT S,VOLUME,TURNOVER,Q_NET,SHL "
        "COLSHD,PT_COND,VENT_P,VENT_V,"
        "HEATED,UNDER\r\n"
        "By hand,Horizontal Tank,\"Sampleton, Ohio\",10,20,10800,10,108000,White/White,Good,0.03,-0.03,No,No\r\n");
  Write(
      "mixtures.csv",
      "USER ID,MIX NAME,C_CATEGORY,COMPONENT,JANUARY,FEBRUARY,MARCH,APRIL,MAY,JUNE,JULY,AUGUST,SEPTEMBER,OCTOBER,"
      "NOVEMBER,DECEMBER,JAN_THRU,FEB_THRU,MAR_THRU,APR_THRU,MAY_THRU,JUN_THRU,JUL_THRU,AUG_THRU,SEP_THRU,OCT_THRU,"
      "NOV_THRU,DEC_THRU\r\n"
      "By hand,Benzene,Organic Liquids,Single,Yes,Yes,Yes,Yes,Yes,Yes,Yes,Yes,Yes,Yes,Yes,Yes,9000,9000,9000,9000,9000,"
      "9000,9000,9000,9000,9000,9000,9000\r\n");
  ASSERT_EQ(Import(), kDone) << err_.str();
  out_.str("");
  ASSERT_EQ(RunOn({"--annual", "--kind", "brief"}), kDone) << err_.str();
  const auto by_hand = out_.str();
  EXPECT_NE(by_hand.find("\nBy hand  HFRT "), std::string::npos) << by_hand;

  // The same tank as the window leaves it has the same losses.
  for (const auto* table : {"tank", "mixtures", "emission"})
    test_.client().Execute(std::string("DELETE * FROM ") + table);
  test::AddHorizontalTank(test_, {{"USER ID", "By hand"}});
  out_.str("");
  ASSERT_EQ(RunOn({"--annual", "--kind", "brief"}), kDone) << err_.str();
  EXPECT_EQ(out_.str(), by_hand);
}

}  // namespace
}  // namespace orvex::report_app
