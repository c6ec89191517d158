#include <filesystem>
#include <string>

#include "exchange/previous_version_files.h"
#include "exchange/tank_files.h"
#include "store/database.h"
#include "support/file_content.h"
#include "windows/display_text.h"
#include "windows/editor_walk.h"

namespace orvex::test {
namespace {

namespace fs = std::filesystem;

const QString kMain = "MDIForm1";
const QString kImport = "frmImport";

QString Text(const fs::path& path) { return windows::Shown(path.string()); }

/// Files of the previous version are imported into an empty inventory, by the keyboard alone.
class KeyboardImport : public EditorWalk {
 protected:
  KeyboardImport() { fs::create_directories(Old()); }

  [[nodiscard]] fs::path Old() const { return folder_.Path() / "orvex31"; }
  [[nodiscard]] QString OldFile(const char* name) const { return Text(Old() / name); }

  void OpenImport() {
    typist_.At(kMain);
    typist_.Keys({"Alt+D", "T", "I"});
    typist_.At(kImport);
  }
  /// From Print Report: the log as a text file, and back to where it came from.
  void SaveLog() {
    typist_.At("frmprintrep");
    typist_.Keys({"Alt+F", "Return"});
    typist_.At("Frmexformat");
    typist_.Row("lstFormats", "Text (*.txt)");
    typist_.Keys({"Return"});
    typist_.At("frmexname");
    typist_.Fill("txtExportFileName", Text(Log()));
    typist_.Keys({"Return"});
    typist_.Reply("Successfully Exported 'import errors'.", "Return");
    typist_.At("frmprintrep");
    typist_.Keys({"Esc"});
  }
  [[nodiscard]] fs::path Log() const { return folder_.Path() / "log.txt"; }
  void ExpectLogged(const std::string& text) const {
    EXPECT_NE(FileContent(Log()).find(text), std::string::npos) << FileContent(Log());
  }
  [[nodiscard]] int Tanks(const std::string& condition) const {
    const auto client = store::Database::Open(Client(), store::OpenMode::kReadOnly);
    int count = 0;
    for (auto rows = client->OpenQuery("SELECT * FROM tank WHERE " + condition); !rows.AtEnd(); rows.MoveNext())
      ++count;
    return count;
  }
};

TEST_F(KeyboardImport, TanksOfThePreviousVersionComeInWithTheirChemicalsAndTheLogIsKept) {
  TankFiles files;
  files.AddStoredTank(*store::Database::Open(ORVEX_SAMPLE_DATABASE, store::OpenMode::kReadOnly), 1);
  files.AddTank("90", "Lakeside 90", {{"CITY", "Mobile"}, {"STATE", "Alabama"}});
  files.mixtures.back().emplace_back("NAME", "Lakeside Solvent 7");
  files.AddTank("91", "Lakeside 91", {{"CITY", "Nowhere"}, {"STATE", "Alabama"}});
  files.Write(Old());
  WriteDbase(Old() / "chemical.dbf", ChemicalColumns(), {Chemical("Lakeside Solvent 7")});
  ComeToMenus();
  OpenImport();
  typist_.ExpectFocus("txtTankPath");
  typist_.Type(OldFile("tank.dbf"));
  typist_.Keys({"Return"});
  typist_.Reply("All paths must be specified.", "Return");
  typist_.ExpectFocus("txtMixturePath");
  typist_.Type(OldFile("mixture.dbf"));
  typist_.Fill("txtFittingsPath", OldFile("fittings.dbf"));
  typist_.TabTo("cmdBrowseStorage");
  typist_.Keys({"Space"});
  typist_.NameFile("Locate storage.dbf", OldFile("storage.dbf"));
  typist_.Read("txtStoragePath", OldFile("storage.dbf"));
  typist_.Keys({"Alt+C"});
  typist_.ExpectFocus("txtChemical");
  typist_.Type(OldFile("chemical.dbf"));
  typist_.Look(kImport);
  typist_.Keys({"Alt+O"});
  SaveLog();
  RunToTheEnd();
  EXPECT_EQ(Tanks("True"), 2);
  EXPECT_EQ(Tanks("[USER ID] = 'Lakeside 90'"), 1);
  EXPECT_EQ(Rows("chemical", "NAME = 'Lakeside Solvent 7'"), 1);
  ExpectLogged("\"Lakeside 90\",\"Record was successfully imported.\"");
  ExpectLogged(
      "\"Lakeside 91\",\"Nowhere, Alabamawas not found in the current tank database.  You must enter information for "
      "this city before you can import this record.\"");
}

TEST_F(KeyboardImport, FilesOfAnotherKindAreRefusedAndNothingIsImported) {
  TankFiles files;
  files.AddTank("1", "Lakeside 1", {{"CITY", "Mobile"}, {"STATE", "Alabama"}});
  files.Write(Old());
  WriteFile(Old() / "notes.dbf", "no table");
  ComeToMenus();
  OpenImport();
  typist_.TabTo("cmdBrowseTank");
  typist_.Keys({"Space"});
  typist_.NameFile("Locate tank.dbf", OldFile("notes.dbf"));
  typist_.AnswerEnding("\nNumber: 3274\n in frmImport.", "OK");
  typist_.Read("txtTankPath", "");
  typist_.Fill("txtTankPath", OldFile("tank.dbf"));
  typist_.Fill("txtMixturePath", OldFile("mixture.dbf"));
  typist_.Fill("txtFittingsPath", OldFile("fittings.dbf"));
  typist_.Fill("txtStoragePath", OldFile("notes.dbf"));
  typist_.Keys({"Return"});
  typist_.Reply("Please make sure the paths you have specified lead to the right file structure!", "Return");
  typist_.AnswerEnding("\nNumber: 3274\n in frmImport.", "OK");
  typist_.Keys({"Esc"});
  RunToTheEnd();
  EXPECT_EQ(Tanks("True"), 0);
}

TEST_F(KeyboardImport, RimSealsAreImportedAndTheReportTellsOfEach) {
  WriteDbase(Old() / "rim_seal.dbf", RimSealColumns(),
             {RimSeal("Lakeside Wiper", "Rim-mounted"), RimSeal("Lakeside Wiper", "Rim-mounted")});
  ComeToMenus();
  typist_.Keys({"Alt+D", "R", "I"});
  typist_.NameFile("Locate rim_seal.dbf", OldFile("rim_seal.dbf"));
  typist_.Reply("1 records were appended to the current tank database.", "Return");
  SaveLog();
  OpenEditorAgain("R", "frmRimSeal");
  typist_.Find("dbcboPrimSeal", "lakeside", "Lakeside Wiper");
  CloseWithQuestion("Alt+N");
  RunToTheEnd();
  EXPECT_EQ(Rows("rimseal", "PRIM_SEAL = 'Lakeside Wiper'"), 1);
  ExpectLogged("\"Record was successfully imported.\"");
  ExpectLogged("\"Duplicate rim seal.\"");
}

TEST_F(KeyboardImport, CancelledFileDialogImportsNothing) {
  ComeToMenus();
  typist_.Keys({"Alt+D", "M", "I"});
  typist_.At("file_dialog");
  typist_.Keys({"Esc"});
  RunToTheEnd();
  EXPECT_EQ(Rows("met", "[USER DEF] = True"), 0);
}

}  // namespace
}  // namespace orvex::test
