#include <filesystem>
#include <string>

#include "store/database.h"
#include "store/dbase_file.h"
#include "support/file_content.h"
#include "windows/display_text.h"
#include "windows/editor_walk.h"

namespace orvex::test {
namespace {

namespace fs = std::filesystem;

const QString kMain = "MDIForm1";
const QString kPrint = "frmprintrep";

QString Text(const fs::path& path) { return windows::Shown(path.string()); }

/// Tables are exported, and tanks taken to CSV files and back, by the keyboard alone.
class KeyboardExport : public EditorWalk {
 protected:
  /// From the menus: two deck seams, to be put out as a file.
  void ChooseDeckSeams() {
    ComeToMenus();
    typist_.Keys({"Alt+D", "D", "P"});
    typist_.At("frmrepselect");
    for (const auto* seam : {"Sheet: 5 Ft Wide", "Panel: 5 x 12 Ft"}) {
      typist_.Row("lstItems", seam);
      typist_.Keys({"Alt+S"});
    }
    typist_.Keys({"Alt+P"});
    typist_.At(kPrint);
    typist_.Keys({"Alt+F"});
  }
  /// From Print Report: the format and the file.
  void ExportTo(const QString& format, const fs::path& file) {
    typist_.At(kPrint);
    typist_.Keys({"Alt+O"});
    typist_.At("Frmexformat");
    typist_.Row("lstFormats", format);
    typist_.Keys({"Return"});
    typist_.At("frmexname");
    typist_.ExpectFocus("txtExportFileName");
    typist_.Type(Text(file));
    typist_.Keys({"Return"});
  }
  /// The table's or sheet's name in the file.
  void NameTable(const QString& name) {
    typist_.At("frmexptbl");
    typist_.Read("lblTable", "Export deckseam to:");
    typist_.Fill("txtTable", name);
    typist_.Keys({"Return"});
  }
  void ExpectExported() { typist_.Reply("Successfully Exported 'deckseam'.", "Return"); }
  void End() {
    typist_.At(kPrint);
    typist_.Keys({"Esc"});
    RunToTheEnd();
  }
  [[nodiscard]] fs::path File(const char* name) const { return folder_.Path() / name; }
};

TEST_F(KeyboardExport, ChosenRowsAreWrittenInEachFormat) {
  ChooseDeckSeams();
  ExportTo("Access 2.0 (*.mdb)", File("seams.mdb"));
  NameTable("my seams");
  ExpectExported();
  ExportTo("dBASE IV (*.dbf)", File("seams4.dbf"));
  ExpectExported();
  ExportTo("FoxPro 2.6 (*.dbf)", File("seamsfox.dbf"));
  ExpectExported();
  ExportTo("Excel 5.0 (*.xls)", File("seams.xls"));
  NameTable("seams");
  ExpectExported();
  ExportTo("Text (*.txt)", File("seams.txt"));
  ExpectExported();
  End();
  const auto database = store::Database::Open(File("seams.mdb"), store::OpenMode::kReadOnly);
  EXPECT_EQ(database->OpenTable("my seams").RecordCount(), 2);
  for (const auto* name : {"seams4.dbf", "seamsfox.dbf"}) {
    store::DbaseTable table(File(name));
    EXPECT_EQ(table.TextOrEmpty("NAME"), "Sheet: 5 Ft Wide") << name;
    table.MoveNext();
    EXPECT_EQ(table.TextOrEmpty("NAME"), "Panel: 5 x 12 Ft") << name;
    table.MoveNext();
    EXPECT_TRUE(table.AtEnd()) << name;
  }
  EXPECT_GT(fs::file_size(File("seams.xls")), 0U);
  EXPECT_NE(FileContent(File("seams.txt")).find("\"Panel: 5 x 12 Ft\""), std::string::npos);
}

TEST_F(KeyboardExport, TargetThatIsThereIsAskedAboutAndASheetNamedAnew) {
  WriteFile(File("seams.txt"), "older");
  ChooseDeckSeams();
  ExportTo("Text (*.txt)", File("seams.txt"));
  typist_.Reply("'seams.txt' already exists - overwrite?", "Esc");
  typist_.In(kPrint, [this](QWidget&) { EXPECT_EQ(FileContent(File("seams.txt")), "older"); });
  ExportTo("Text (*.txt)", File("seams.txt"));
  typist_.Reply("'seams.txt' already exists - overwrite?", "Return");
  ExpectExported();
  ExportTo("Excel 5.0 (*.xls)", File("seams.xls"));
  NameTable("seams");
  ExpectExported();
  ExportTo("Excel 5.0 (*.xls)", File("seams.xls"));
  NameTable("seams");
  typist_.Reply("Please enter an alternate worksheet name.", "Return");
  NameTable("seams again");
  ExpectExported();
  End();
  EXPECT_NE(FileContent(File("seams.txt")).find("Panel"), std::string::npos);
}

TEST_F(KeyboardExport, ExportIsGivenUpInEachOfItsWindows) {
  ChooseDeckSeams();
  typist_.Keys({"Alt+O"});
  typist_.At("Frmexformat");
  typist_.Keys({"Esc"});
  ExportTo("Text (*.txt)", "");
  typist_.Reply("Please specify a path!", "Return");
  typist_.At("frmexname");
  typist_.Keys({"Alt+B"});
  typist_.NameFile("Export To:", Text(File("seams.txt")));
  typist_.Read("txtExportFileName", Text(File("seams.txt")));
  typist_.Look("frmexname");
  typist_.Keys({"Esc"});
  ExportTo("Access 2.0 (*.mdb)", File("seams.mdb"));
  typist_.At("frmexptbl");
  typist_.Look("frmexptbl");
  typist_.Keys({"Esc"});
  End();
  EXPECT_FALSE(fs::exists(File("seams.txt")));
  EXPECT_FALSE(fs::exists(File("seams.mdb")));
}

TEST_F(KeyboardExport, TanksGoToCsvFilesAndIntoANewInventory) {
  fs::copy_file(ORVEX_SAMPLE_DATABASE, Client());
  fs::create_directory(File("csv"));
  ComeToMenus();
  typist_.Keys({"Alt+D", "T", "X"});
  typist_.NameFile("Export Tanks to CSV Files", Text(File("csv")));
  typist_.AnswerEnding(" were exported to " + Text(File("csv")) + ".", "OK");
  typist_.At(kMain);
  typist_.Keys({"Alt+F", "N"});
  typist_.NameFile("New Client Database", Text(File("second.mdb")));
  typist_.Reply(Text(File("second.mdb")) + " was created.", "Return");
  typist_.Keys({"Alt+D", "T", "C"});
  typist_.NameFile("Import Tanks from CSV Files", Text(File("csv")));
  typist_.AnswerEnding(" were imported from " + Text(File("csv")) + ".", "OK");
  RunToTheEnd();
  const auto one = store::Database::Open(Client(), store::OpenMode::kReadOnly);
  const auto other = store::Database::Open(File("second.mdb"), store::OpenMode::kReadOnly);
  for (const auto* table : {"tank", "mixtures", "components", "fittings"})
    EXPECT_EQ(other->OpenTable(table).RecordCount(), one->OpenTable(table).RecordCount()) << table;
}

}  // namespace
}  // namespace orvex::test
