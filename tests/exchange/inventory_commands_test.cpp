#include <fmt/format.h>
#include <gtest/gtest.h>

#include "exchange/inventory_folder.h"
#include "shell/editing.h"

/// The commands of the menu.
namespace orvex::exchange {
namespace {

using shell::Buttons;
using shell::Icon;

class InventoryCommands : public test::InventoryFolder {
 protected:
  void ExpectTold(const std::string& text, Icon icon) { test_.host.ExpectMessage(text, "ORVEX", Buttons::kOk, icon); }
};

TEST_F(InventoryCommands, AnImportAsksForTheFolderAndTellsWhatWasAdded) {
  test_.host.ChooseFile(Folder().string());
  ExpectTold("1 tank, 1 mixture, 0 components and 0 fittings were imported from " + Folder().string() + ".",
             Icon::kInformation);
  ImportCsv(test_.session);
  ASSERT_EQ(test_.host.file_requests.size(), 1U);
  EXPECT_EQ(test_.host.file_requests[0].title, "Import Tanks from CSV Files");
  EXPECT_EQ(test_.host.file_requests[0].folder, test_.folder.Path().string());
  EXPECT_EQ(Stored("tank", "USER ID"), store::Value("T-1"));
  EXPECT_EQ(test_.host.status, (std::vector<std::string>{"Processing, please wait...", "Ready"}));
}

TEST_F(InventoryCommands, AnImportTellsOfComponentsWithoutAMixture) {
  Write("components.csv", "USER ID,ID,MIX ID,COMP ID\nT-1,1,2,1\n");
  Write("tanks.csv", "ID,USER ID,TANK_TYPE\n1,T-1,Horizontal Tank\n");
  test_.host.ChooseFile(Folder().string());
  ExpectTold("1 tank, 1 mixture, 1 component and 0 fittings were imported from " + Folder().string() +
                 ".\r\n\r\nComponents whose mixture is not there, as deleting one leaves them: 1.",
             Icon::kInformation);
  ImportCsv(test_.session);
}

TEST_F(InventoryCommands, AnImportThatIsRefusedTellsTheFaults) {
  Write("tanks.csv", "USER ID,TANK_TYPE,DIAMETER\nT-1,Horizontal Tank,x\n");
  test_.host.ChooseFile(Folder().string());
  ExpectTold(
      "Nothing was imported. Please correct these faults and try again:\r\n\r\n"
      "tanks.csv, line 2, DIAMETER: 'x' is not a number.\r\n",
      Icon::kExclamation);
  ImportCsv(test_.session);
  EXPECT_TRUE(test_.client().OpenTable("tank").AtEnd());
}

TEST_F(InventoryCommands, OfManyFaultsTwentyAreTold) {
  std::string tanks = "USER ID,TANK_TYPE,DIAMETER\n", mixtures = "USER ID,MIX NAME\n";
  std::string told = "Nothing was imported. Please correct these faults and try again:\r\n\r\n";
  for (int i = 0; i < 23; ++i) {
    tanks += fmt::format("T-{},Horizontal Tank,x\n", i);
    mixtures += fmt::format("T-{},Benzene\n", i);
    if (i < 20) told += fmt::format("tanks.csv, line {}, DIAMETER: 'x' is not a number.\r\n", i + 2);
  }
  Write("tanks.csv", tanks);
  Write("mixtures.csv", mixtures);
  test_.host.ChooseFile(Folder().string());
  ExpectTold(told + "and 3 more.\r\n", Icon::kExclamation);
  ImportCsv(test_.session);
}

TEST_F(InventoryCommands, AFolderWithoutTheFilesIsAnErrorReport) {
  test_.host.ChooseFile(test_.folder.Path().string());
  test_.host.ExpectError(3024, "mDatabase.ImportCsv");
  ImportCsv(test_.session);
}

TEST_F(InventoryCommands, WithoutAFolderNothingHappens) {
  test_.host.ChooseFile("");
  ImportCsv(test_.session);
  test_.host.ChooseFile("");
  ExportCsv(test_.session);
  EXPECT_TRUE(test_.client().OpenTable("tank").AtEnd());
}

TEST_F(InventoryCommands, WhileAnotherProgramEditsNothingIsImported) {
  test::ScriptedHost other_host;
  shell::Session other(other_host);
  other.ClientDb = store::Database::Open(test_.client().Path());
  const auto editing = shell::BeginEditing(other, shell::DatabaseKind::kClient);
  test_.host.ExpectMessage("The client database " + test_.client().Path().string() +
                           " is being edited by another program. Nothing was changed. Close the tank there, then try "
                           "again.");
  ImportCsv(test_.session);
  EXPECT_TRUE(test_.client().OpenTable("tank").AtEnd());
}

TEST_F(InventoryCommands, AnExportTellsWhatWasWritten) {
  test::AddHorizontalTank(test_);
  const auto folder = (test_.folder.Path() / "new").string();
  test_.host.ChooseFile(folder);
  ExpectTold("1 tank, 1 mixture, 0 components and 0 fittings were exported to " + folder + ".", Icon::kInformation);
  ExportCsv(test_.session);
  EXPECT_EQ(test_.host.file_requests[0].title, "Export Tanks to CSV Files");
  EXPECT_EQ(test::EntryCount(folder), 4);
}

TEST_F(InventoryCommands, AnExportAsksBeforeItReplacesFiles) {
  const auto before = Content("tanks.csv");
  std::filesystem::remove(Folder() / "components.csv");
  const auto expect_question = [&](shell::Answer answer) {
    test_.host.ChooseFile(Folder().string());
    test_.host.ExpectMessage("The folder " + Folder().string() +
                                 " holds files of these names already: tanks.csv, mixtures.csv, fittings.csv. Do you "
                                 "want to replace them?",
                             "Replace?", Buttons::kYesNo, Icon::kQuestion, answer);
  };
  expect_question(shell::Answer::kNo);
  ExportCsv(test_.session);
  EXPECT_EQ(Content("tanks.csv"), before);
  expect_question(shell::Answer::kYes);
  ExpectTold("0 tanks, 0 mixtures, 0 components and 0 fittings were exported to " + Folder().string() + ".",
             Icon::kInformation);
  ExportCsv(test_.session);
  EXPECT_NE(Content("tanks.csv"), before);
}

TEST_F(InventoryCommands, AnExportTellsWhatItLeftOut) {
  test::AddHorizontalTank(test_);
  test::AddComponent(test_.client(), 2, 1, 1);
  const auto folder = (test_.folder.Path() / "new").string();
  test_.host.ChooseFile(folder);
  ExpectTold("1 tank, 1 mixture, 0 components and 0 fittings were exported to " + folder +
                 ".\r\n\r\nRows that belong to no tank were left out: 1.",
             Icon::kInformation);
  ExportCsv(test_.session);
}

}  // namespace
}  // namespace orvex::exchange
