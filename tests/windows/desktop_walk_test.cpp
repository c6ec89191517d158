#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <optional>

#include "shell/settings.h"
#include "store/database.h"
#include "support/file_content.h"
#include "support/locked_file.h"
#include "support/test_databases.h"
#include "windows/desktop_program.h"
#include "windows/elided_label.h"
#include "windows/person.h"

namespace orvex::test {
namespace {

namespace fs = std::filesystem;

const QString kMain = QStringLiteral("MDIForm1");
const QString kStart = QStringLiteral("frmstart");
const QString kNotice = QStringLiteral("frmNotice");
const QString kQuickMenu = QStringLiteral("frmqmenu");
const QString kTanks = QStringLiteral("Frmtankrep");
const QString kPrint = QStringLiteral("frmprintrep");
const QString kOk = QStringLiteral("cmdOK");
const QString kClose = QStringLiteral("cmdClose");
const QString kBackupQuestion = QStringLiteral("Do you want to backup your data now?");
const QString kLandscape = QStringLiteral("Please set your Page Setup to Landscape before printing these reports.");

QString Text(const fs::path& path) { return QString::fromStdString(path.string()); }

/// The whole program over folders of its own, worked by a person.
class DesktopWalk : public testing::Test {
 protected:
  DesktopWalk() { fs::create_directories(Places().application_folder); }

  [[nodiscard]] windows::ProgramPlaces Places() const {
    return {folder_.Path() / "application", folder_.Path() / "settings", ORVEX_PROGRAM};
  }
  [[nodiscard]] fs::path Tank() const { return Places().application_folder / "tankdata.mdb"; }
  [[nodiscard]] fs::path Client() const { return Places().application_folder / "client1.mdb"; }
  [[nodiscard]] std::string Setting(std::string_view key) const {
    return shell::Settings(Places().settings_folder)
        .GetSetting(shell::kSettingsApplication, shell::kStartupSection, key, "");
  }
  /// The sample inventory in place of the empty client database.
  void BringSample() { fs::copy_file(ORVEX_SAMPLE_DATABASE, Client()); }

  void ComeToQuickMenu() {
    person_.In(kStart, [](QWidget& window) { Click(Find<QLabel>(window, QStringLiteral("imgLogo"))); });
    person_.Press(kNotice, kOk);
  }
  void ComeToMenus() {
    ComeToQuickMenu();
    person_.Press(kQuickMenu, QStringLiteral("cmdCancel"));
  }
  void Leave() {
    person_.In(kMain, [](QWidget& window) { window.close(); });
    person_.Answer(kBackupQuestion, QStringLiteral("No"));
  }
  void ChooseTwoTanksAndRun() {
    person_.In(kTanks, [](QWidget& window) {
      SelectRows(window, QStringLiteral("lstTanks"), {0, 2});
      Click(Find<QPushButton>(window, QStringLiteral("cmdSelect")));
      EXPECT_EQ(Find<QListView>(window, QStringLiteral("lstChosenTanks")).model()->rowCount(), 2);
      Click(Find<QPushButton>(window, QStringLiteral("cmdRunReport")));
    });
  }
  /// Shows what was computed, and closes the windows that stay open.
  void ShowReport() {
    person_.Press(kPrint, kOk);
    person_.Answer(kLandscape, QStringLiteral("OK"));
    person_.In(kPrint, [](QWidget& window) {
      bool shown = false;
      for (auto* other : QApplication::topLevelWidgets())
        shown = shown || (other->objectName() == QStringLiteral("report_window") && other->isVisible());
      EXPECT_TRUE(shown);
      Click(Find<QPushButton>(window, kClose));
    });
    person_.Press(kTanks, kClose);
  }
  void Run() {
    EXPECT_EQ(windows::RunDesktopProgram(Places()), 0);
    EXPECT_TRUE(person_.IsDone());
  }

  TemporaryFolder folder_;
  Person person_;
};

TEST_F(DesktopWalk, FirstStartFindsTheFilesBesideTheProgramAndKeepsTheirPaths) {
  ComeToQuickMenu();
  person_.In(kQuickMenu, [this](QWidget& window) {
    EXPECT_EQ(Setting(shell::kTankKey), Tank().string());
    EXPECT_EQ(Setting(shell::kClientKey), Client().string());
    Click(Find<QPushButton>(window, QStringLiteral("cmdCancel")));
  });
  person_.In(kMain, [this](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), QStringLiteral("ORVEX 4.0.9d"));
    EXPECT_EQ(Find<windows::ElidedLabel>(window, QStringLiteral("staMainStatus")).Text(), QStringLiteral("Ready"));
    EXPECT_EQ(Find<windows::ElidedLabel>(window, QStringLiteral("staMainTank")).Text(), Text(Tank()).toLower());
    EXPECT_EQ(Find<windows::ElidedLabel>(window, QStringLiteral("staMainClient")).Text(), Text(Client()).toLower());
  });
  Leave();
  Run();
  EXPECT_TRUE(fs::exists(Tank()));
  EXPECT_TRUE(fs::exists(Client()));
}

TEST_F(DesktopWalk, MovedTankDatabaseIsAskedForAndItsNewPlaceKept) {
  const auto elsewhere = folder_.Path() / "elsewhere.mdb";
  fs::copy_file(ORVEX_REFERENCE_DATABASE, elsewhere);
  shell::Settings(Places().settings_folder)
      .SaveSetting(shell::kSettingsApplication, shell::kStartupSection, shell::kTankKey,
                   (folder_.Path() / "gone.mdb").string());
  person_.In(kStart, [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); });
  person_.Press(kNotice, kOk);
  person_.In(QStringLiteral("Frmtankdata"), [&](QWidget& window) {
    Write(window, QStringLiteral("txtTankPath"), Text(elsewhere));
    Click(Find<QPushButton>(window, kOk));
  });
  person_.Press(kQuickMenu, QStringLiteral("cmdCancel"));
  Leave();
  Run();
  EXPECT_EQ(Setting(shell::kTankKey), elsewhere.string());
}

TEST_F(DesktopWalk, FileThatCannotBePutInPlaceIsToldAndTheStartGoesOn) {
  const auto page = Places().application_folder / "briefdisplay.htm";
  fs::create_directories(page / "in the way");
  person_.In(QStringLiteral("message"), [&](QWidget& window) {
    EXPECT_TRUE(dynamic_cast<QMessageBox&>(window).text().contains(Text(page)));
    window.close();
  });
  ComeToMenus();
  Leave();
  Run();
}

TEST_F(DesktopWalk, TankDatabaseThatIsInUseAtTheStartIsOpenedFromTheMenusLater) {
  fs::copy_file(ORVEX_REFERENCE_DATABASE, Tank());
  std::optional<LockedFile> other_program(Tank());
  ComeToQuickMenu();
  person_.AnswerEnding(QStringLiteral("\nNumber: 3260\n in MDIForm1."), QStringLiteral("OK"));
  person_.Choose(QStringLiteral("mnuAnnBrief"));
  person_.AnswerEnding(QStringLiteral("\nNumber: 3420\n in MDIForm1."), QStringLiteral("OK"));
  person_.Choose(QStringLiteral("mnuChangeDBLOc"));
  person_.In(QStringLiteral("FrmChange"), [&](QWidget& window) {
    other_program.reset();
    Click(Find<QPushButton>(window, kOk));
  });
  person_.Answer(QStringLiteral("The database locations were changed."), QStringLiteral("OK"));
  person_.Choose(QStringLiteral("mnuAnnBrief"));
  person_.Press(kTanks, kClose);
  Leave();
  Run();
  EXPECT_EQ(Setting(shell::kTankKey), Tank().string());
  EXPECT_EQ(Setting(shell::kClientKey), Client().string());
}

TEST_F(DesktopWalk, ExitInTheLocateWindowEndsTheProgramAtOnce) {
  WriteFile(Client(), "no database");
  ComeToQuickMenu();
  person_.Press(QStringLiteral("Frmclientdata"), QStringLiteral("cmdExit"));
  Run();
  EXPECT_EQ(FileContent(Client()), "no database");
}

TEST_F(DesktopWalk, FolderThatCannotBeFilledIsToldAndTheStartGoesOn) {
  const auto folder = Places().application_folder;
  fs::remove(folder);
  WriteFile(folder, "a file");
  person_.Answer(QStringLiteral("Not all files of the program could be put into their folder:\n\n'%1' is not a folder.")
                     .arg(Text(folder)),
                 QStringLiteral("OK"));
  ComeToQuickMenu();
  person_.Press(QStringLiteral("Frmtankdata"), QStringLiteral("cmdExit"));
  Run();
  EXPECT_EQ(FileContent(folder), "a file");
}

TEST_F(DesktopWalk, ClientDatabaseIsChangedByTheFileDialog) {
  const auto other = folder_.Path() / "other.mdb";
  fs::copy_file(ORVEX_SAMPLE_DATABASE, other);
  ComeToMenus();
  person_.Choose(QStringLiteral("mnuChangeDBLOc"));
  person_.Press(QStringLiteral("FrmChange"), QStringLiteral("cmdBrowseClient"));
  person_.NameFile(QStringLiteral("Locate Client Database"), Text(other));
  person_.In(QStringLiteral("FrmChange"), [&](QWidget& window) {
    EXPECT_EQ(Find<QLineEdit>(window, QStringLiteral("txtClientData")).text().toStdString(), other.string());
    Click(Find<QPushButton>(window, kOk));
  });
  person_.Answer(QStringLiteral("Do you want to backup the client database?"), QStringLiteral("No"));
  person_.Answer(QStringLiteral("The database locations were changed."), QStringLiteral("OK"));
  Leave();
  Run();
  EXPECT_EQ(Setting(shell::kClientKey), other.string());
}

TEST_F(DesktopWalk, AnnualBriefReportOfTwoTanksIsComputedAndShown) {
  BringSample();
  ComeToMenus();
  person_.Choose(QStringLiteral("mnuAnnBrief"));
  ChooseTwoTanksAndRun();
  ShowReport();
  Leave();
  Run();
  const auto report = FileContent(Places().application_folder / "briefdata.xml");
  EXPECT_NE(report.find("<TYPE>Brief</TYPE>"), std::string::npos);
  EXPECT_NE(report.find("<TankSum id="), std::string::npos);
}

TEST_F(DesktopWalk, MonthlyDetailReportGoesByWayOfTheMonths) {
  BringSample();
  ComeToMenus();
  person_.Choose(QStringLiteral("mnuDetail"));
  person_.In(QStringLiteral("Frmmonth"), [](QWidget& window) {
    auto& run = Find<QPushButton>(window, QStringLiteral("cmdRunReport"));
    EXPECT_FALSE(run.isEnabled());
    auto& january = Find<QCheckBox>(window, QStringLiteral("chkJAN"));
    january.setFocus();
    QTest::keyClick(&january, Qt::Key_Space);
    EXPECT_TRUE(run.isEnabled());
    Click(run);
  });
  ChooseTwoTanksAndRun();
  ShowReport();
  person_.Press(QStringLiteral("Frmmonth"), kClose);
  Leave();
  Run();
  const auto report = FileContent(Places().application_folder / "summarydata.xml");
  EXPECT_NE(report.find("<TYPE>Detail</TYPE>"), std::string::npos);
  EXPECT_NE(report.find("January"), std::string::npos);
  EXPECT_EQ(report.find("February"), std::string::npos);
}

TEST_F(DesktopWalk, FaultOfATankIsToldInsteadOfAReport) {
  BringSample();
  {
    const auto client = store::Database::Open(Client());
    auto tank = client->OpenAt("tank", "USER ID", {"VF-103"});
    tank.Edit();
    tank.Set("DIAMETER", 0.0);
    tank.Update();
  }
  ComeToMenus();
  person_.Choose(QStringLiteral("mnuAnnBrief"));
  ChooseTwoTanksAndRun();
  person_.Press(kPrint, kOk);
  person_.AnswerEnding(QStringLiteral("Tank diameter cannot be zero. Please correct and rerun the report."),
                       QStringLiteral("OK"));
  person_.Press(kPrint, kClose);
  person_.Press(kTanks, kClose);
  Leave();
  Run();
}

TEST_F(DesktopWalk, BothDatabasesAreBackedUpAtTheEnd) {
  BringSample();
  const auto tank_copy = folder_.Path() / "tank.bak";
  const auto client_copy = folder_.Path() / "client.bak";
  ComeToMenus();
  person_.Choose(QStringLiteral("mnuExit"));
  person_.Answer(kBackupQuestion, QStringLiteral("Yes"));
  person_.NameFile(QStringLiteral("Backup Tank Database To"), Text(tank_copy));
  person_.Answer(Text(Tank()) + QStringLiteral(" was Copied to ") + Text(tank_copy) + QStringLiteral("."),
                 QStringLiteral("OK"));
  person_.NameFile(QStringLiteral("Backup Client Database To"), Text(client_copy));
  person_.Answer(Text(Client()) + QStringLiteral(" was copied to ") + Text(client_copy) + QStringLiteral("."),
                 QStringLiteral("OK"));
  Run();
  EXPECT_TRUE(fs::exists(tank_copy));
  EXPECT_TRUE(fs::exists(client_copy));
}

}  // namespace
}  // namespace orvex::test
