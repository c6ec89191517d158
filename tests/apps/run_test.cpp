#include "orvex-report/run.h"

#include <gtest/gtest.h>

#include "apps/report_program.h"
#include "orvex-report/failure.h"
#include "support/file_content.h"
#include "support/sample_tanks.h"

namespace orvex::report_app {
namespace {

using test::FileContent;

class RunTest : public test::ReportProgram {};

TEST_F(RunTest, ListPrintsTheTanksAndWritesNothing) {
  test::AddVerticalTank(test_, {{"USER ID", "V"}});
  test::AddHorizontalTank(test_, {{"USER ID", "H"}});
  const auto before = FileContent(Client());
  EXPECT_EQ(Run({"--client", Client(), "--list"}), kDone);
  EXPECT_EQ(out_.str(),
            "USER ID  Type\n"
            "V        Vertical Fixed Roof Tank\n"
            "H        Horizontal Tank\n");
  EXPECT_EQ(err_.str(), "");
  EXPECT_EQ(FileContent(Client()), before);
}

TEST_F(RunTest, WrongUseNamesTheOption) {
  EXPECT_EQ(Run({"--client", Client(), "--anual"}), kWrongUse);
  EXPECT_TRUE(Told("--anual")) << err_.str();
  EXPECT_EQ(out_.str(), "");
}

TEST_F(RunTest, AnUnknownTankIsWrongUse) {
  test::AddVerticalTank(test_, {{"USER ID", "V"}});
  EXPECT_EQ(RunOn({"--annual", "--tanks", "V,W"}), kWrongUse);
  EXPECT_TRUE(Told("'W'")) << err_.str();
}

TEST_F(RunTest, AMissingClientDatabaseIsNamed) {
  const auto path = (test_.folder.Path() / "missing.mdb").string();
  EXPECT_EQ(Run({"--client", path, "--annual"}), kCannotOpen);
  EXPECT_TRUE(Told(path)) << err_.str();
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(RunTest, AFileThatIsNoDatabaseIsNamed) {
  const auto path = (test_.folder.Path() / "letter.mdb").string();
  test::WriteFile(path, "Dear Sir or Madam, this is a letter.");
  EXPECT_EQ(Run({"--client", path, "--list"}), kCannotOpen);
  EXPECT_TRUE(Told(path)) << err_.str();
}

TEST_F(RunTest, TheTwoDatabasesCannotBeSwapped) {
  EXPECT_EQ(Run({"--client", Reference(), "--reference", Client(), "--annual"}), kCannotOpen);
  EXPECT_TRUE(Told(Reference())) << err_.str();
  EXPECT_TRUE(Told("components")) << err_.str();
  err_.str("");
  EXPECT_EQ(Run({"--client", Client(), "--reference", Client(), "--annual"}), kCannotOpen);
  EXPECT_TRUE(Told("reference database")) << err_.str();
  EXPECT_TRUE(Told("chemical")) << err_.str();
}

TEST_F(RunTest, AMissingDeliveredDatabaseIsToldWithBothPlaces) {
  EXPECT_EQ(Run({"--client", Client(), "--annual"}), kCannotOpen);
  EXPECT_TRUE(Told("share/orvex/tankdata.mdb")) << err_.str();
  EXPECT_TRUE(Told("data/tankdata.mdb")) << err_.str();
  EXPECT_TRUE(Told("--reference")) << err_.str();
}

TEST_F(RunTest, TheDeliveredDatabaseIsFoundWhereTheProgramIsInstalled) {
  test::AddVerticalTank(test_, {{"USER ID", "V"}});
  const auto share = test_.folder.Path() / "share" / "orvex";
  std::filesystem::copy_file(Reference(), share / "tankdata.mdb");
  EXPECT_EQ(Run({"--client", Client(), "--annual", "--tanks", "none"}), kWrongUse);
  EXPECT_TRUE(Told("no tank 'none'")) << err_.str();
}

TEST_F(RunTest, AnOutputThatCannotBeOpenedIsToldBeforeTheRun) {
  test::AddVerticalTank(test_);
  const auto before = FileContent(Client());
  const auto taken = (test_.folder.Path() / "taken").string();
  test::WriteFile(taken, "a file");
  EXPECT_EQ(RunOn({"--annual", "--out", taken}), kCannotOpen);
  EXPECT_TRUE(Told("--out: cannot make the folder '" + taken + "'")) << err_.str();
  EXPECT_EQ(RunOn({"--annual", "--out", "/proc/orvex"}), kCannotOpen);
  EXPECT_TRUE(Told("--out: cannot make the folder '/proc/orvex'")) << err_.str();
  EXPECT_EQ(RunOn({"--annual", "--out", "/proc"}), kCannotOpen);
  EXPECT_TRUE(Told("--out: The file '/proc/briefdata.xml' cannot be written")) << err_.str();
  const auto csv = (test_.folder.Path() / "missing" / "rows.csv").string();
  EXPECT_EQ(RunOn({"--annual", "--csv", csv}), kCannotOpen);
  EXPECT_TRUE(Told("--csv: '" + csv + "'")) << err_.str();
  const auto folder = test_.folder.Path().string();
  EXPECT_EQ(RunOn({"--annual", "--csv", folder}), kCannotOpen);
  EXPECT_TRUE(Told("--csv: '" + folder + "' is a folder")) << err_.str();
  EXPECT_EQ(FileContent(Client()), before);
}

TEST_F(RunTest, TheReportAndTheRowsCannotBeOneFile) {
  test::AddVerticalTank(test_);
  const auto report = (Output() / "." / "briefdata.xml").string();
  EXPECT_EQ(RunOn({"--annual", "--csv", report}), kWrongUse);
  EXPECT_TRUE(Told("--csv: '" + report + "' is the report's own file")) << err_.str();
}

TEST_F(RunTest, ADatabaseInUseIsNotOverwritten) {
  test::AddVerticalTank(test_);
  const auto before = FileContent(Client());
  EXPECT_EQ(RunOn({"--annual", "--csv", Client()}), kWrongUse);
  EXPECT_EQ(RunOn({"--annual", "--csv", Reference()}), kWrongUse);
  EXPECT_TRUE(Told("overwritten")) << err_.str();
  EXPECT_EQ(FileContent(Client()), before);
}

TEST_F(RunTest, AnOutputStreamThatTakesNothingIsAFailure) {
  out_.setstate(std::ios::badbit);
  EXPECT_EQ(Run({"--version"}), kRunTimeFailure);
  EXPECT_TRUE(Told("standard output")) << err_.str();
}

}  // namespace
}  // namespace orvex::report_app
