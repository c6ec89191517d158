#include "exchange/frmimport.h"

#include <fmt/format.h>

#include "exchange/previous_version_files.h"
#include "exchange/tank_import_fixture.h"
#include "shell/editing.h"
#include "support/file_content.h"

namespace orvex::exchange {
namespace {

using shell::Buttons;
using shell::Icon;
using test::kImportedMessage;
using test::kSetUpMessage;
using test::Rows;

class FrmImportTest : public test::TankImportTest {
 protected:
  void ExpectExclamation(const std::string& text) {
    test_.host.ExpectMessage(text, "ORVEX", Buttons::kOk, Icon::kExclamation, shell::Answer::kOk);
  }
  void ExpectReady() {
    EXPECT_EQ(test_.host.status.back(), "Ready");
    EXPECT_EQ(test_.host.pointers.back(), shell::Pointer::kDefault);
  }
};

TEST_F(FrmImportTest, OpensWithEmptyPaths) {
  for (const auto& path : form_.paths) EXPECT_EQ(path.text, "");
  EXPECT_FALSE(form_.window.closed);
}

TEST_F(FrmImportTest, BrowsingAsksForEachFileByItsNameAndTakesItsPath) {
  files_.AddTank("1", "T-1");
  files_.Write(test_.folder.Path());
  for (std::size_t i = 0; i < std::size(kImportFiles); ++i) {
    const auto path = File(i % 4).string();
    test_.host.ChooseFile(path);
    ClickBrowse(test_.session, form_, i);
    EXPECT_EQ(form_.paths[i].text, path);
    const auto& request = test_.host.file_requests.back();
    EXPECT_EQ(request.title, "Locate " + std::string(kImportFiles[i].file));
    EXPECT_EQ(request.file_name, kImportFiles[i].file);
    EXPECT_EQ(request.folder, "C:\\orvex31");
    EXPECT_EQ(request.filter, "dBASE (*.dbf) |*.dbf|");
  }
}

TEST_F(FrmImportTest, BrowsingForAFileThatIsNoTableTellsSoAndKeepsTheOldPath) {
  test::WriteFile(File(0), "no table at all");
  TypePath(test_.session, form_, 0, "as typed");
  test_.host.ChooseFile(File(0).string());
  test_.host.ExpectError(3274, "frmImport.");
  ClickBrowse(test_.session, form_, 0);
  EXPECT_EQ(form_.paths[0].text, "as typed");
}

TEST_F(FrmImportTest, ACancelledDialogChangesNothing) {
  TypePath(test_.session, form_, 2, "as typed");
  test_.host.ChooseFile("");
  ClickBrowse(test_.session, form_, 2);
  EXPECT_EQ(form_.paths[2].text, "as typed");
}

TEST_F(FrmImportTest, CancelClosesAndHelpShowsItsPage) {
  ClickHelp(test_.session, form_);
  EXPECT_EQ(test_.host.help, std::vector<std::string>{"import_tanks"});
  EXPECT_FALSE(form_.window.closed);
  ClickCancel(test_.session, form_);
  EXPECT_TRUE(form_.window.closed);
}

TEST_F(FrmImportTest, EachOfTheFourPathsIsNeeded) {
  files_.AddTank("1", "T-1");
  files_.Write(test_.folder.Path());
  test::AddRow(test_.reference(), "import errors", {{"Error", "of the last import"}});
  for (std::size_t missing = 0; missing < 4; ++missing) {
    TypePaths();
    TypePath(test_.session, form_, missing, "");
    ExpectExclamation("All paths must be specified.");
    ClickOK(test_.session, form_);
    EXPECT_EQ(form_.window.focus, kImportFiles[missing].field);
    EXPECT_FALSE(form_.window.closed);
    EXPECT_TRUE(test_.host.windows.empty());
    ExpectReady();
  }
  EXPECT_EQ(Told(), Rows{"of the last import"});
  EXPECT_EQ(Count("tank"), 0);
  // Nothing of a transaction lingers: others write, and the next press imports.
  const auto other = store::Database::Open(test_.client().Path());
  test::AddRow(*other, "tank", {{"USER ID", "Theirs"}});
  TypePaths();
  ClickOK(test_.session, form_);
  EXPECT_EQ(Told(), Rows{kImportedMessage});
  EXPECT_TRUE(form_.window.closed);
}

TEST_F(FrmImportTest, TheImportIsShownAsProcessingAndItsLogWhenItIsReady) {
  files_.AddTank("1", "T-1");
  test_.host.WhenShown("frmprintrep", [&] {
    ExpectReady();
    EXPECT_EQ(test_.session.PrintMode, "Import");
    EXPECT_FALSE(form_.window.closed) << "the window closes after the report";
    const auto other = store::Database::Open(test_.client().Path());
    EXPECT_EQ(other->OpenTable("tank").RecordCount(), 1) << "and the tanks are there for everybody";
    EXPECT_NE(shell::TryEditing(test_.session, shell::DatabaseKind::kClient), nullptr);
  });
  Import();
  EXPECT_TRUE(form_.window.closed);
  EXPECT_EQ(test_.host.status, (std::vector<std::string>{"Processing, please wait...", "Ready"}));
  EXPECT_EQ(test_.host.progress.back(), (std::pair<std::int64_t, std::int64_t>{1, 1}));
}

TEST_F(FrmImportTest, FilesWithoutTanksGiveAnEmptyLog) {
  test::AddRow(test_.reference(), "import errors", {{"Error", "of the last import"}});
  Import();
  EXPECT_EQ(Told(), Rows{});
  EXPECT_TRUE(form_.window.closed);
}

TEST_F(FrmImportTest, AncillaryFilesAreAddedFirstSoThatTheirTanksAreGood) {
  test::TestSession other;
  test::AddSampleReference(other.reference());
  for (const auto* table : {"chemical", "met", "rimseal", "deckseam"})
    test_.reference().Execute("DELETE * FROM " + std::string(table));
  test::AddRow(other.reference(), "fitting", {{"FIT_TYPE", "Cat Flap"}, {"COVR_TYPE", "Ajar"}, {"K_FA", 1.0}});
  constexpr const char* kTables[] = {"chemical", "met", "fitting", "rimseal"};
  files_.AddTank(
      "1", "T-1",
      {{"TANK_TYPE", "External Floating Roof"}, {"RIM_PRIM", "Mechanical Shoe"}, {"RIM_SEC", "Rim-mounted"}});
  files_.AddFitting("1", {{"FIT_TYPE", "Cat Flap"}, {"COVR_TYPE", "Ajar"}});
  files_.AddComponent("1", "1", {{"NAME", "Toluene"}});
  files_.Write(test_.folder.Path());
  TypePaths();
  for (std::size_t i = 0; i < 4; ++i) {
    test::WriteReferenceFile(File(4 + i), other.reference(), kTables[i]);
    TypePath(test_.session, form_, 4 + i, File(4 + i).string());
  }
  ClickOK(test_.session, form_);
  EXPECT_EQ(
      test::QueryRows(test_.reference(), "SELECT * FROM [import errors]", {"ID", "Error"}),
      (Rows{"Benzene|Record was successfully imported.", "Toluene|Record was successfully imported.",
            "Sampleton, Ohio|Record was successfully imported.", "Cat Flap/Ajar|Record was successfully imported.",
            "Mechanical Shoe/None/Welded|Record was successfully imported.",
            "Mechanical Shoe/Rim-mounted/Welded|Record was successfully imported.",
            "T-1|Record was successfully imported."}));
  EXPECT_EQ(test_.host.status.back(), "Ready");
}

TEST_F(FrmImportTest, ASecondImportOfAllEightFilesAddsNothing) {
  files_.AddTank("1", "T-1");
  files_.Write(test_.folder.Path());
  test::WriteDbase(File(4), test::ChemicalColumns(), {test::Chemical("Xylene")});
  test::WriteDbase(File(5), test::CityColumns(), {test::City("Denver", "Colorado")});
  test::WriteDbase(File(6), test::FittingColumns(), {test::Fitting("Open Vent", {})});
  test::WriteDbase(File(7), test::RimSealColumns(), {test::RimSeal("Vapor-mounted", {})});
  for (const Rows& told :
       {Rows(5, kImportedMessage), Rows{"Chemical name is duplicate.", "Duplicate city.", "Duplicate fitting.",
                                        "Duplicate rim seal.", "Duplicate tank (ID) in this client database."}}) {
    form_ = OpenFrmImport(test_.session);
    for (std::size_t i = 0; i < std::size(kImportFiles); ++i) TypePath(test_.session, form_, i, File(i).string());
    ClickOK(test_.session, form_);
    EXPECT_EQ(Told(), told);
    EXPECT_EQ(test::QueryRows(test_.reference(), "SELECT * FROM rimseal WHERE USER_DEF = True", {"SECND_SEAL"}),
              Rows{"None"});
  }
}

TEST_F(FrmImportTest, AnEditorOfEitherDatabaseElsewhereKeepsTheImportOut) {
  files_.AddTank("1", "T-1");
  for (auto* const database : {test_.session.ClientDb.get(), test_.session.ReferenceDb.get()}) {
    const auto held = store::LockFile::Take(shell::EditingPath(database->Path()));
    ASSERT_NE(held, nullptr);
    const bool client = database == test_.session.ClientDb.get();
    test_.host.ExpectMessage(
        fmt::format("The {} database {} is being edited by another program. Nothing was changed. Close the {} there, "
                    "then try again.",
                    client ? "client" : "tank", database->Path().string(), client ? "tank" : "window"));
    Import();
    EXPECT_FALSE(form_.window.closed);
    EXPECT_EQ(Count("tank"), 0);
  }
}

TEST_F(FrmImportTest, ADatabaseWithoutALogIsToldAsOfWrongStructure) {
  test_.reference().DeleteTable("import errors");
  files_.AddTank("1", "T-1");
  ExpectExclamation(kSetUpMessage);
  test_.host.ExpectError(3011, "frmImport.");
  Import();
  ExpectReady();
  EXPECT_EQ(Count("tank"), 0);
}

}  // namespace
}  // namespace orvex::exchange
