#include "entry/frmrecdelete.h"
#include "entry/lifecycle_fixture.h"
#include "shell/editing.h"
#include "shell/new_client.h"
#include "shell/restore.h"
#include "support/child_process.h"

namespace orvex::entry {
namespace {

/// Two programs on one client database.
class TwoPrograms : public test::LifecycleTest {
 protected:
  TwoPrograms() {
    second_.ClientPath = session_.ClientPath;
    second_.ReferenceDb = store::Database::Open(session_.TankPath);
    second_.ClientDb = store::Database::Open(session_.ClientPath);
    AddTankEntry(second_);
  }
  void ExpectToBeTold() {
    second_host_.ExpectMessage("The client database " + session_.ClientPath +
                               " is being edited by another program. Nothing was changed. Close the tank there, then "
                               "try again.");
  }
  /// The second program may edit.
  void ExpectFree() {
    second_host_.WhenShown("frmTank", [&] { ClickAbandon(second_, Editor(second_)); });
    NewHorizontal(second_);
  }

  test::ScriptedHost second_host_;
  shell::Session second_{second_host_};
};

TEST_F(TwoPrograms, TheSecondIsToldAndCreatesNothingWhileTheFirstEdits) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  EditTank(ID, shell::kHorizontal, [&](FrmTank&) {
    ExpectToBeTold();
    NewHorizontal(second_);
    EXPECT_EQ(Count("tank"), 1);
  });
  EXPECT_TRUE(second_host_.windows.empty());
  ExpectFree();
}

TEST_F(TwoPrograms, TheSecondOpensNoTankWhileTheFirstCreatesOne) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  CreateTank(shell::kHorizontal, [&](FrmTank& form) {
    ExpectToBeTold();
    editRecord(second_, ID, std::string(shell::kHorizontal));
    EXPECT_EQ(second_.tank_entry->frmTank, nullptr);
    // Nor is the first one's tank offered to it.
    second_.offerUnsavedTank(second_);
    ClickAbandon(session_, form);
  });
  ExpectFree();
}

TEST_F(TwoPrograms, TheSecondDeletesNothingWhileTheFirstEdits) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  EditTank(ID, shell::kHorizontal, [&](FrmTank&) {
    auto window = OpenFrmrecdelete(second_);
    ClickSelectAll(second_, window);
    ExpectToBeTold();
    ClickDelete(second_, window);
    EXPECT_EQ(Count("tank"), 1);
    EXPECT_EQ(second_host_.status.back(), "Ready");
  });
}

TEST_F(TwoPrograms, TheSecondRestoresNothingWhileTheFirstEdits) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  const auto backup = session_.ClientPath + ".backup";
  store::Database::Create(backup, store::ClientTables());
  EditTank(ID, shell::kHorizontal, [&](FrmTank&) {
    second_host_.ChooseFile(backup);
    ExpectToBeTold();
    shell::RestoreClient(second_);
    EXPECT_EQ(Count("tank"), 1);
  });
  // Nor while the first one merely has it open.
  second_host_.ChooseFile(backup);
  second_host_.ExpectError(3260, "MDIForm1.");
  shell::RestoreClient(second_);
  ExpectFree();
  EXPECT_EQ(Count("tank"), 1);
}

TEST_F(TwoPrograms, ATankThatIsOpenKeepsItsOwnProgramFromReplacingTheDatabase) {
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  EditTank(ID, shell::kHorizontal, [&](FrmTank&) {
    for (const auto command : {shell::RestoreClient, shell::NewClient}) {
      host_.ExpectMessage("The client database " + session_.ClientPath +
                          " is being edited. Nothing was changed. Close the tank first, then try again.");
      command(session_);
    }
    EXPECT_EQ(Count("tank"), 1);
  });
}

TEST_F(TwoPrograms, TheFileBesideTheDatabaseIsGoneAfterwards) {
  const auto path = shell::EditingPath(session_.ClientPath);
  const auto ID = StoreTank(shell::kHorizontal, "T1");
  EditTank(ID, shell::kHorizontal, [&](FrmTank&) { EXPECT_TRUE(std::filesystem::exists(path)); });
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_EQ(path.filename(), "client1.mdb.editing");
}

TEST_F(TwoPrograms, AKilledOneHoldsNobodyUp) {
  StoreTank(shell::kHorizontal, "T1");
  session_.ClientDb.reset();
  second_.ClientDb.reset();
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  test::ChildProcess child([&] {
    session_.ClientDb = store::Database::Open(session_.ClientPath);
    host_.WhenShown("frmTank", [&] {
      (void)!write(ready[1], "x", 1);
      pause();
    });
    editRecord(session_, 1, std::string(shell::kHorizontal));
    return 0;
  });
  char byte = 0;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  close(ready[0]);
  close(ready[1]);
  second_.ClientDb = store::Database::Open(session_.ClientPath);
  ExpectToBeTold();
  NewHorizontal(second_);
  EXPECT_TRUE(child.Kill());
  ExpectFree();
}

}  // namespace
}  // namespace orvex::entry
