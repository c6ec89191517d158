#include "shell/start_up.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "shell/frmclientdata.h"
#include "shell/frmqmenu.h"
#include "shell/frmtankdata.h"
#include "shell/path_text.h"
#include "shell/shell_commands.h"
#include "support/file_content.h"
#include "support/locked_file.h"
#include "support/query_rows.h"
#include "support/test_databases.h"

namespace orvex::shell {
namespace {

namespace fs = std::filesystem;
using Steps = std::vector<std::string>;
using Texts = std::vector<std::string>;

/// A program that is about to start, with both databases beside it and a folder for its settings.
class Start : public testing::Test {
 protected:
  Start() {
    session_.application_folder = folder_.Path();
    session_.settings = Settings(config_);
    session_.commands.assign(std::begin(kShellCommands), std::end(kShellCommands));
    MakeTankDatabase(tank_);
    MakeClientDatabase(client_);
  }

  static void MakeTankDatabase(const fs::path& path) { store::Database::Create(path, store::ReferenceTables()); }
  static void MakeClientDatabase(const fs::path& path) { store::Database::Create(path, store::ClientTables()); }

  fs::path Moved(const fs::path& from, const char* name) {
    const auto to = folder_.Path() / name;
    fs::rename(from, to);
    return to;
  }

  std::string Kept(std::string_view key) const {
    return Settings(config_).GetSetting(kSettingsApplication, kStartupSection, key, "(none)");
  }
  void Keep(std::string_view key, const std::string& path) {
    Settings(config_).SaveSetting(kSettingsApplication, kStartupSection, key, path);
  }

  void ChooseTankDatabase(const fs::path& path) {
    host_.WhenShown("Frmtankdata", [this, path] {
      auto window = OpenFrmtankdata(session_);
      window.txtTankPath.text = path;
      ClickOK(session_, window);
      EXPECT_TRUE(window.window.closed);
    });
  }
  void ChooseClientDatabase(const fs::path& path) {
    host_.WhenShown("Frmclientdata", [this, path] {
      auto window = OpenFrmclientdata(session_);
      window.txtClientPath.text = path;
      ClickOK(session_, window);
      EXPECT_TRUE(window.window.closed);
    });
  }

  void ExpectToStart() {
    EXPECT_TRUE(StartUp(session_));
    EXPECT_EQ(host_.windows.back(), "frmqmenu");
    EXPECT_NE(session_.ReferenceDb, nullptr);
    EXPECT_NE(session_.ClientDb, nullptr);
  }

  /// The tank database fails in a way that leads to its window; a good one is chosen there.
  void ExpectToLocateTankDatabase() {
    const auto good = folder_.Path() / "good.mdb";
    MakeTankDatabase(good);
    ChooseTankDatabase(good);
    ExpectToStart();
    EXPECT_EQ(host_.windows, (Texts{"MDIForm1", "frmstart", "frmNotice", "Frmtankdata", "frmqmenu"}));
    EXPECT_EQ(session_.TankPath, good);
    EXPECT_EQ(session_.ReferenceDb->Path(), good);
    EXPECT_EQ(Kept("tankdata"), good);
    EXPECT_EQ(Kept("client"), client_);
  }
  void ExpectToLocateClientDatabase() {
    const auto good = folder_.Path() / "good.mdb";
    MakeClientDatabase(good);
    ChooseClientDatabase(good);
    ExpectToStart();
    EXPECT_EQ(host_.windows, (Texts{"MDIForm1", "frmstart", "frmNotice", "Frmclientdata", "frmqmenu"}));
    EXPECT_EQ(session_.ClientPath, good);
    EXPECT_EQ(session_.ClientDb->Path(), good);
    EXPECT_EQ(Kept("client"), good);
    EXPECT_EQ(Kept("tankdata"), tank_);
  }

  test::TemporaryFolder folder_;
  fs::path config_ = folder_.Path() / "config";
  fs::path tank_ = folder_.Path() / "tankdata.mdb";
  fs::path client_ = folder_.Path() / "client1.mdb";
  test::ScriptedHost host_;
  Session session_{host_};
};

TEST_F(Start, ShowsEachStepInItsOrder) {
  ExpectToStart();
  EXPECT_EQ(host_.steps,
            (Steps{"show MDIForm1", "show frmstart", "show frmNotice", "tank panel " + PathPanelText(tank_.string()),
                   "client panel " + PathPanelText(client_.string()), "show frmqmenu"}));
}

TEST_F(Start, ForTheFirstTimeFindsBothFilesBesideTheProgramAndKeepsTheirPaths) {
  EXPECT_EQ(Kept("tankdata"), "(none)");
  ExpectToStart();
  EXPECT_EQ(Kept("tankdata"), tank_);
  EXPECT_EQ(Kept("client"), client_);
  EXPECT_EQ(session_.TankPath, tank_);
  EXPECT_EQ(session_.ClientPath, client_);
  EXPECT_EQ(session_.help_file, folder_.Path() / "ORVEX40.hlp");
}

TEST_F(Start, OpensWhatTheSettingsSay) {
  const auto tank = Moved(tank_, "Other Tanks.mdb");
  const auto client = Moved(client_, "Other Client.mdb");
  Keep("tankdata", tank);
  Keep("client", client);
  ExpectToStart();
  EXPECT_EQ(session_.ReferenceDb->Path(), tank);
  EXPECT_EQ(session_.ClientDb->Path(), client);
}

TEST_F(Start, ShowsPathsInLowerCaseAndKeepsThemAsTheyAre) {
  const auto client = Moved(client_, "CLIENT Of Ann.MDB");
  Keep("client", client);
  ExpectToStart();
  EXPECT_EQ(host_.panels.back(),
            std::pair(PathPanel::kClient, PathPanelText((folder_.Path() / "client of ann.mdb").string())));
  EXPECT_EQ(Kept("client"), client);
}

TEST_F(Start, ClosesDatabasesThatWereLeftOpen) {
  session_.ClientDb = store::Database::Open(client_);
  session_.ReferenceDb = store::Database::Open(tank_);
  host_.WhenShown("frmNotice", [&] { EXPECT_NE(session_.ClientDb, nullptr); });
  host_.WhenShown("Frmtankdata", [&] {
    EXPECT_EQ(session_.ReferenceDb, nullptr);
    EXPECT_EQ(session_.ClientDb, nullptr);
    session_.ended = true;
  });
  Moved(tank_, "away.mdb");
  EXPECT_FALSE(StartUp(session_));
}

TEST_F(Start, ForgetsThatTankDataWasCopied) {
  session_.CopyDataPending = true;
  host_.WhenShown("frmqmenu", [&] { EXPECT_TRUE(session_.CopyDataPending); });
  ExpectToStart();
  EXPECT_FALSE(session_.CopyDataPending);
}

TEST_F(Start, AddsTheFieldOfAnOlderClientDatabase) {
  session_.ClientDb = store::Database::Open(client_);
  auto fields = session_.ClientDb->Fields("emission");
  std::erase_if(fields, [](const auto& field) { return field.name == "CAS"; });
  session_.ClientDb->DeleteTable("emission");
  session_.ClientDb->CreateTable("emission", fields, {});
  session_.ClientDb.reset();
  host_.WhenShown("frmqmenu", [&] {
    const auto upgraded = session_.ClientDb->Fields("emission");
    EXPECT_EQ(std::count_if(upgraded.begin(), upgraded.end(), [](const auto& f) { return f.name == "CAS"; }), 1);
  });
  ExpectToStart();
}

// The tank database cannot be opened ----------------------------------------------------------------------------------

TEST_F(Start, OffersATankThatWasNeverSavedBeforeTheQuickMenu) {
  session_.offerUnsavedTank = [](Session& session) {
    EXPECT_NE(session.ClientDb, nullptr);
    session.host.ShowWindow("(offer)");
  };
  ExpectToStart();
  ASSERT_GE(host_.windows.size(), 2U);
  EXPECT_EQ(host_.windows[host_.windows.size() - 2], "(offer)");
}

TEST_F(Start, WithTheTankDatabaseMovedAwayAsksWhereItIsAndKeepsTheAnswer) {
  Moved(tank_, "away.mdb");  // 3024
  ExpectToLocateTankDatabase();
}

TEST_F(Start, WithTheFolderOfTheTankDatabaseGoneAsksWhereItIs) {
  Keep("tankdata", folder_.Path() / "gone" / "tankdata.mdb");  // 3044
  ExpectToLocateTankDatabase();
}

TEST_F(Start, WithATableOfTheTankDatabaseMissingAsksForAnotherOne) {
  store::Database::Open(tank_)->DeleteTable("rimseal");  // 3011
  ExpectToLocateTankDatabase();
  EXPECT_TRUE(store::Database::Open(tank_)->HasTable("chemical")) << "the file stays as it was";
}

TEST_F(Start, WithATextFileAsTankDatabaseAsksForAnotherOne) {
  test::WriteFile(tank_, "A letter that was saved under the wrong name.");
  ExpectToLocateTankDatabase();
  EXPECT_EQ(test::FileContent(tank_), "A letter that was saved under the wrong name.");
}

TEST_F(Start, WithAnEmptyFileAsTankDatabaseAsksForAnotherOne) {
  test::WriteFile(tank_, "");
  ExpectToLocateTankDatabase();
}

TEST_F(Start, EndsWithoutQuickMenuWhenTheTankDatabaseIsInUse) {
  const test::LockedFile lock(tank_);
  host_.ExpectError(3260, "MDIForm1.");
  EXPECT_FALSE(StartUp(session_));
  EXPECT_EQ(host_.windows, (Texts{"MDIForm1", "frmstart", "frmNotice"}));
  EXPECT_EQ(session_.ClientDb, nullptr);
  EXPECT_EQ(Kept("tankdata"), "(none)");
  EXPECT_FALSE(session_.ended);

  RunCommand(session_, "mnuChangeDBLOc");
  EXPECT_EQ(host_.windows.back(), "FrmChange") << "the way on";
}

TEST_F(Start, EndsAtOnceWhenThePersonDoesSoInsteadOfLocatingTheTankDatabase) {
  Moved(tank_, "away.mdb");
  host_.WhenShown("Frmtankdata", [&] {
    auto window = OpenFrmtankdata(session_);
    ClickExit(session_, window);
  });
  EXPECT_FALSE(StartUp(session_));
  EXPECT_TRUE(session_.ended);
  EXPECT_EQ(host_.steps.back(), "show Frmtankdata");
  Close(session_);
  EXPECT_TRUE(host_.messages.empty()) << "nothing is asked any more";
}

// The client database cannot be opened --------------------------------------------------------------------------------

TEST_F(Start, WithTheClientDatabaseMovedAwayAsksWhereItIsAndKeepsTheAnswer) {
  Moved(client_, "away.mdb");
  ExpectToLocateClientDatabase();
}

TEST_F(Start, WithTheFolderOfTheClientDatabaseGoneAsksWhereItIs) {
  Keep("client", folder_.Path() / "gone" / "client1.mdb");
  ExpectToLocateClientDatabase();
}

TEST_F(Start, WithATableOfTheClientDatabaseMissingAsksForAnotherOne) {
  store::Database::Open(client_)->DeleteTable("error");
  ExpectToLocateClientDatabase();
}

TEST_F(Start, WithATextFileAsClientDatabaseAsksForAnotherOne) {
  test::WriteFile(client_, "A letter that was saved under the wrong name.");
  ExpectToLocateClientDatabase();
  EXPECT_EQ(test::FileContent(client_), "A letter that was saved under the wrong name.");
}

TEST_F(Start, WithTheClientDatabaseInUseAsksForAnotherOne) {
  const test::LockedFile lock(client_);
  ExpectToLocateClientDatabase();
}

TEST_F(Start, AsksAgainUntilAGoodClientDatabaseIsThere) {
  Moved(client_, "away.mdb");
  host_.WhenShown("Frmclientdata", [] {});  // closed without a choice
  ChooseClientDatabase(folder_.Path() / "away.mdb");
  ExpectToStart();
  EXPECT_EQ(host_.windows, (Texts{"MDIForm1", "frmstart", "frmNotice", "Frmclientdata", "Frmclientdata", "frmqmenu"}));
}

TEST_F(Start, EndsAtOnceWhenThePersonDoesSoInsteadOfLocatingTheClientDatabase) {
  Moved(client_, "away.mdb");
  host_.WhenShown("Frmclientdata", [&] {
    auto window = OpenFrmclientdata(session_);
    ClickExit(session_, window);
  });
  EXPECT_FALSE(StartUp(session_));
  EXPECT_TRUE(session_.ended);
  EXPECT_EQ(host_.steps.back(), "show Frmclientdata");
}

TEST_F(Start, WithBothFilesMovedAwayAsksForOneAfterTheOther) {
  const auto tank = Moved(tank_, "tank.mdb");
  const auto client = Moved(client_, "client.mdb");
  ChooseTankDatabase(tank);
  ChooseClientDatabase(client);
  ExpectToStart();
  EXPECT_EQ(host_.windows, (Texts{"MDIForm1", "frmstart", "frmNotice", "Frmtankdata", "Frmclientdata", "frmqmenu"}));
  EXPECT_EQ(Kept("tankdata"), tank);
  EXPECT_EQ(Kept("client"), client);
}

// Faults that hold nobody up ------------------------------------------------------------------------------------------

TEST_F(Start, GoesOnWhenAPathCannotBeKept) {
  test::WriteFile(config_, "a file where the folder should be");
  host_.ExpectError(3043, "MDIForm1.");
  host_.ExpectError(3043, "MDIForm1.");
  ExpectToStart();
}

TEST_F(Start, AfterCancelInTheQuickMenuTheMenusWork) {
  host_.WhenShown("frmqmenu", [&] {
    auto window = OpenFrmqmenu(session_);
    ClickCancel(session_, window);
    EXPECT_TRUE(window.window.closed);
  });
  ExpectToStart();
  RunCommand(session_, "mnuAbout");
  EXPECT_EQ(host_.windows.back(), "frmoverview");
  RunCommand(session_, {"mnuAnnBrief", [](Session& session) { session.host.ShowWindow("Frmtankrep"); }});
  EXPECT_EQ(host_.windows.back(), "Frmtankrep");
}

// Closing -------------------------------------------------------------------------------------------------------------

class End : public Start {
 protected:
  End() {
    ExpectToStart();
    host_.steps.clear();
  }

  void ExpectQuestion(Answer answer) {
    host_.ExpectMessage("Do you want to backup your data now?", "Backup?", Buttons::kYesNo, Icon::kNone, answer);
  }
};

TEST_F(End, WithoutBackupClosesTheWindowsAndCompactsBothFiles) {
  ExpectQuestion(Answer::kNo);
  Close(session_);
  EXPECT_EQ(host_.steps,
            (Steps{"message Do you want to backup your data now?", "close windows but ",
                   "status Compacting " + tank_.string() + ", please wait...", "status Ready",
                   "status Compacting " + client_.string() + ", please wait...", "status Ready", "close MDIForm1"}));
  EXPECT_TRUE(session_.ended);
  EXPECT_EQ(session_.ReferenceDb, nullptr);
  EXPECT_EQ(session_.ClientDb, nullptr);
}

TEST_F(End, WithBackupCopiesTheTankDatabaseAndThenTheClientDatabase) {
  test::AddRow(*session_.ClientDb, "tank", {{"USER ID", "T-1"}});
  const auto tank_copy = folder_.Path() / "tank copy.mdb";
  const auto client_copy = folder_.Path() / "client copy.mdb";
  ExpectQuestion(Answer::kYes);
  host_.ChooseFile(tank_copy);
  host_.ExpectMessage(tank_.string() + " was Copied to " + tank_copy.string() + ".");
  host_.ChooseFile(client_copy);
  host_.ExpectMessage(client_.string() + " was copied to " + client_copy.string() + ".");
  Close(session_);
  EXPECT_EQ(host_.steps.back(), "close MDIForm1");
  EXPECT_EQ(test::QueryRows(*store::Database::Open(client_copy), "SELECT [USER ID] FROM tank", {"USER ID"}),
            test::Rows{"T-1"});
  EXPECT_EQ(test::QueryRows(*store::Database::Open(client_), "SELECT [USER ID] FROM tank", {"USER ID"}),
            test::Rows{"T-1"});
}

TEST_F(End, GoesOnWhenTheBackupsAreCancelled) {
  ExpectQuestion(Answer::kYes);
  host_.ChooseFile("");
  host_.ChooseFile("");
  Close(session_);
  EXPECT_EQ(host_.file_requests.size(), 2U);
  EXPECT_TRUE(session_.ended);
}

TEST_F(End, GoesOnWhenAFileCannotBeCompacted) {
  const test::LockedFile lock(tank_);
  ExpectQuestion(Answer::kNo);
  host_.ExpectError(3260, "mDatabase.Compact");
  Close(session_);
  EXPECT_EQ(host_.steps.back(), "close MDIForm1");
  EXPECT_TRUE(session_.ended);
}

TEST_F(End, LeavesFilesAloneThatWereNotOpen) {
  session_.ReferenceDb.reset();
  test::WriteFile(tank_, "no database");
  ExpectQuestion(Answer::kNo);
  Close(session_);
  EXPECT_EQ(test::FileContent(tank_), "no database");
}

TEST_F(End, ComesOnce) {
  ExpectQuestion(Answer::kNo);
  Close(session_);
  Close(session_);
}

TEST_F(End, AndTheNextStartFindsEverything) {
  test::AddRow(*session_.ClientDb, "tank", {{"USER ID", "T-1"}});
  ExpectQuestion(Answer::kNo);
  Close(session_);

  test::ScriptedHost host;
  Session next{host};
  next.application_folder = folder_.Path();
  next.settings = Settings(config_);
  EXPECT_TRUE(StartUp(next));
  EXPECT_EQ(next.ClientDb->OpenTable("tank").RecordCount(), 1);
}

}  // namespace
}  // namespace orvex::shell
