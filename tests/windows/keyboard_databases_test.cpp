#include <gtest/gtest.h>

#include <QAction>
#include <filesystem>
#include <string>

#include "shell/settings.h"
#include "store/database.h"
#include "windows/display_text.h"
#include "windows/editor_walk.h"
#include "windows/elided_label.h"

namespace orvex::test {
namespace {

namespace fs = std::filesystem;

const QString kMain = "MDIForm1";

QString Text(const fs::path& path) { return windows::Shown(path.string()); }

int CountOf(const fs::path& database, const std::string& table) {
  const auto opened = store::Database::Open(database, store::OpenMode::kReadOnly);
  return static_cast<int>(opened->OpenTable(table).RecordCount());
}

/// The commands on whole database files in the whole program, worked by the keyboard alone over the sample inventory.
class KeyboardDatabases : public EditorWalk {
 protected:
  KeyboardDatabases() { fs::copy_file(ORVEX_SAMPLE_DATABASE, Client()); }

  [[nodiscard]] fs::path Tank() const { return ApplicationFolder() / "tankdata.mdb"; }

  /// From the main window: a command by its keys, and the file that it asks for.
  void ChooseFile(const QStringList& keys, const QString& title, const fs::path& file) {
    typist_.At(kMain);
    typist_.Keys(keys);
    typist_.NameFile(title, Text(file));
  }
  void DeleteTank(const QString& tank) {
    typist_.At(kMain);
    typist_.Keys({"Alt+D", "T", "D"});
    typist_.At("frmrecdelete");
    typist_.Row("lstTanks", tank);
    typist_.Keys({"Alt+S", "Alt+D"});
    typist_.Reply("Are you sure you want to delete these tanks?", "Return");
    typist_.Keys({"Esc"});
    typist_.At(kMain);
  }
  /// Looks for a tank among those that can be opened.
  void ExpectTank(const QString& tank, const QString& type) {
    typist_.At(kMain);
    typist_.Keys({"Alt+D", "T", "E"});
    typist_.At("frmeditrec");
    typist_.Row("lstTanks", tank);
    typist_.Read("txtTankType", type);
    typist_.Keys({"Esc"});
    typist_.At(kMain);
  }
  void ExpectPanel(const QString& panel, const fs::path& path) {
    typist_.In(kMain, [panel, path](QWidget& window) {
      EXPECT_EQ(Find<windows::ElidedLabel>(window, panel).Text(), Text(path).toLower());
    });
  }
};

TEST_F(KeyboardDatabases, ClientDatabaseIsRestoredAfterAChange) {
  const auto backup = folder_.Path() / "monday.mdb";
  const int tanks = CountOf(ORVEX_SAMPLE_DATABASE, "tank");
  ComeToMenus();
  ChooseFile({"Alt+B", "C"}, "Backup Client Database To", backup);
  typist_.Reply(Text(Client()) + " was copied to " + Text(backup) + ".", "Return");
  DeleteTank("HT-204");
  typist_.In(kMain, [this, tanks](QWidget&) { EXPECT_EQ(CountOf(Client(), "tank"), tanks - 1); });
  ChooseFile({"Alt+B", "L"}, "Restore Client Database From", backup);
  typist_.Reply(Text(Client()) + " was restored from " + Text(backup) + ".", "Return");
  ExpectTank("HT-204", "Horizontal Tank");
  ExpectPanel("staMainClient", Client());
  RunToTheEnd();
  EXPECT_EQ(CountOf(Client(), "tank"), tanks);
  EXPECT_EQ(CountOf(backup, "tank"), tanks);
}

TEST_F(KeyboardDatabases, TankDatabaseIsRestoredAfterAChange) {
  const auto backup = folder_.Path() / "reference.bak";
  ComeToMenus();
  ChooseFile({"Alt+B", "T"}, "Backup Tank Database To", backup);
  typist_.Reply(Text(Tank()) + " was Copied to " + Text(backup) + ".", "Return");
  OpenEditorAgain("F", "frmFitting");
  AddRecord("frmFitting", "dbcboFitType");
  typist_.Type("Lakeside Port (6-in. Diam.)");
  SaveAdded();
  typist_.Find("dbcboFitType", "access hatch", "Access Hatch (24-in. Diam.)");
  CloseOnShipped();
  ChooseFile({"Alt+B", "A"}, "Restore Tank Database From", backup);
  typist_.Reply(Text(Tank()) + " was restored from " + Text(backup) + ".", "Return");
  OpenEditorAgain("F", "frmFitting");
  typist_.Find("dbcboFitType", "access hatch", "Access Hatch (24-in. Diam.)");
  CloseOnShipped();
  RunToTheEnd();
  EXPECT_EQ(Rows("fitting", "USER_DEF = True"), 0);
}

TEST_F(KeyboardDatabases, WrongFilesAreNotRestoredAndTheDatabaseStays) {
  ComeToMenus();
  ChooseFile({"Alt+B", "L"}, "Restore Client Database From", Client());
  typist_.Reply("Restore path is the same as the current database!", "Return");
  ChooseFile({"Alt+B", "L"}, "Restore Client Database From", Tank());
  typist_.Reply("The database you specified does not have the appropriate structure.", "Return");
  ExpectTank("HT-204", "Horizontal Tank");
  RunToTheEnd();
  EXPECT_EQ(CountOf(Client(), "tank"), CountOf(ORVEX_SAMPLE_DATABASE, "tank"));
}

TEST_F(KeyboardDatabases, NewClientDatabaseIsUsedUntilTheEndAndTheOldOneStays) {
  const auto fresh = folder_.Path() / "Second Site.mdb";
  ComeToMenus();
  ChooseFile({"Alt+F", "N"}, "New Client Database", fresh);
  typist_.Reply(Text(fresh) + " was created.", "Return");
  typist_.At(kMain);
  ExpectPanel("staMainClient", fresh);
  ExpectPanel("staMainTank", Tank());
  typist_.Keys({"Alt+D", "T", "N", "H"});
  typist_.At("frmTank");
  Identify("NEW-1", "Mobile", "Alabama");
  ChooseKind("Organic Liquids", "");
  typist_.Find("dbcboChemName", "benzene", "Benzene");
  CloseEditor("Return");
  RunToTheEnd();
  EXPECT_EQ(CountOf(fresh, "tank"), 1);
  EXPECT_EQ(CountOf(Client(), "tank"), CountOf(ORVEX_SAMPLE_DATABASE, "tank"));
  EXPECT_EQ(shell::Settings(folder_.Path() / "settings")
                .GetSetting(shell::kSettingsApplication, shell::kStartupSection, shell::kClientKey, ""),
            Client().string());
}

}  // namespace
}  // namespace orvex::test
