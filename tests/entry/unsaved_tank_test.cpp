#include "entry/unsaved_tank.h"

#include "entry/lifecycle_fixture.h"
#include "shell/editing.h"
#include "store/compact_file.h"

namespace orvex::entry {
namespace {

using shell::Answer;
using TextRows = test::Rows;

class UnsavedTank : public test::LifecycleTest {
 protected:
  /// A tank as a program leaves it that is killed while the tank is being created.
  std::int32_t LeaveTank(std::string_view user_id = "") {
    std::int32_t ID = 0;
    CreateTank(shell::kHorizontal, [&](FrmTank& form) {
      ID = form.ID;
      At(form, "txtUserID").box.text = user_id;
      CommitTank(session_, form);
      test::AddRow(Client(), "components", {{"ID", ID}, {"MIX ID", 1}, {"COMP ID", 1}});
      test::AddRow(Client(), "fittings", {{"ID", ID}, {"FIT ID", 1}});
      test::AddRow(Client(), "emission", {{"ID", ID}, {"MIX ID", 1}});
    });
    return ID;
  }
  void ExpectOffer(const std::string& name, Answer answer) {
    host_.ExpectMessage(
        "A tank was being created when the program was ended, and has never been saved: Horizontal Tank. " + name +
            "\r\n\r\nDo you want to keep it? If you answer No, it will be removed.",
        "Unsaved Tank", shell::Buttons::kYesNo, shell::Icon::kQuestion, answer);
  }
  /// Nothing is asked a second time.
  void ExpectSettled() {
    EXPECT_EQ(Client().Mark(), 0);
    session_.offerUnsavedTank(session_);
    EXPECT_FALSE(std::filesystem::exists(shell::EditingPath(session_.ClientPath)));
  }
};

TEST_F(UnsavedTank, IsMarkedFromItsCreationToItsFirstSave) {
  CreateTank(shell::kHorizontal, [&](FrmTank& form) {
    EXPECT_TRUE(IsUnsaved(Client(), form.ID));
    At(form, "txtUserID").box.text = "T1";
    NameMixture(form);
    ClickSave(session_, form);
    EXPECT_FALSE(IsUnsaved(Client(), form.ID));
    EXPECT_EQ(Client().Mark(), 0);
  });
  ExpectSettled();
}

TEST_F(UnsavedTank, ThatIsKeptWithoutAnIdentificationGetsOne) {
  const auto ID = LeaveTank();
  ExpectOffer(fmt::format("It has no identification yet. It will be kept as \"Unsaved tank {}\".", ID), Answer::kYes);
  session_.offerUnsavedTank(session_);
  EXPECT_EQ(UserId(ID), fmt::format("Unsaved tank {}", ID));
  EXPECT_EQ(Count("mixtures"), 1);
  ExpectSettled();
}

TEST_F(UnsavedTank, ThatIsKeptKeepsItsIdentification) {
  const auto ID = LeaveTank("North 1");
  ExpectOffer("Its identification is \"North 1\".", Answer::kYes);
  session_.offerUnsavedTank(session_);
  EXPECT_EQ(UserId(ID), "North 1");
  ExpectSettled();
}

TEST_F(UnsavedTank, ThatHasTheIdentificationOfAnotherTankGetsOnesUntilItIsItsOwn) {
  StoreTank(shell::kHorizontal, "North");
  StoreTank(shell::kHorizontal, "north1");
  const auto ID = LeaveTank("North");
  ExpectOffer("Its identification is \"North\". It will be kept as \"North11\".", Answer::kYes);
  session_.offerUnsavedTank(session_);
  EXPECT_EQ(UserId(ID), "North11");
}

TEST_F(UnsavedTank, WhoseIdentificationHasNoRoomForAOneIsNamedAnew) {
  const std::string longest(255, 'x');
  StoreTank(shell::kHorizontal, longest);
  const auto ID = LeaveTank(longest);
  ExpectOffer(fmt::format("Its identification is \"{}\". It will be kept as \"Unsaved tank {}\".", longest, ID),
              Answer::kYes);
  session_.offerUnsavedTank(session_);
  EXPECT_EQ(UserId(ID), fmt::format("Unsaved tank {}", ID));
}

TEST_F(UnsavedTank, ThatIsNotKeptLosesAllItsRows) {
  const auto other = StoreTank(shell::kHorizontal, "T1");
  test::AddRow(Client(), "emission", {{"ID", other}, {"MIX ID", 1}});
  LeaveTank();
  ExpectOffer("It has no identification yet. It will be kept as \"Unsaved tank 2\".", Answer::kNo);
  session_.offerUnsavedTank(session_);
  EXPECT_EQ(Query("SELECT * FROM tank", {"USER ID"}), (TextRows{"T1"}));
  EXPECT_EQ(Count("mixtures"), 1);
  EXPECT_EQ(Count("components"), 0);
  EXPECT_EQ(Count("fittings"), 0);
  EXPECT_EQ(Count("emission"), 1);
  ExpectSettled();
}

TEST_F(UnsavedTank, ThatIsGoneIsNotAskedAbout) {
  const auto ID = LeaveTank();
  Client().DeleteMatching("tank", "ID", {ID});
  session_.offerUnsavedTank(session_);
  ExpectSettled();
}

TEST_F(UnsavedTank, OfAFileThatCannotBeWrittenIsLeftAlone) {
  LeaveTank();
  session_.ClientDb = store::Database::Open(session_.ClientPath, store::OpenMode::kReadOnly);
  session_.offerUnsavedTank(session_);
  EXPECT_NE(Client().Mark(), 0);
}

TEST_F(UnsavedTank, IsStillOfferedWhenTheFileWasCompacted) {
  const auto ID = LeaveTank("T1");
  session_.ClientDb.reset();
  store::CompactFile(session_.ClientPath);
  session_.ClientDb = store::Database::Open(session_.ClientPath);
  ExpectOffer("Its identification is \"T1\".", Answer::kYes);
  session_.offerUnsavedTank(session_);
  EXPECT_EQ(UserId(ID), "T1");
}

TEST_F(UnsavedTank, OfAnotherProgramThatIsAtWorkIsNotOffered) {
  LeaveTank();
  const auto other = store::LockFile::Take(shell::EditingPath(session_.ClientPath));
  session_.offerUnsavedTank(session_);
  EXPECT_NE(Client().Mark(), 0);
}

TEST_F(UnsavedTank, IsSettledBeforeTheNextOneIsCreated) {
  const auto ID = LeaveTank("T1");
  ExpectOffer("Its identification is \"T1\".", Answer::kYes);
  CreateTank(shell::kHorizontal, [&](FrmTank& form) {
    EXPECT_NE(form.ID, ID);
    ClickAbandon(session_, form);
  });
  EXPECT_EQ(Query("SELECT * FROM tank", {"USER ID"}), (TextRows{"T1"}));
}

TEST_F(UnsavedTank, IsNotForgottenWhenAnotherTankIsSaved) {
  const auto other = StoreTank(shell::kHorizontal, "T1");
  const auto ID = LeaveTank();
  EditTank(other, shell::kHorizontal, [&](FrmTank& form) {
    NameMixture(form);
    EXPECT_FALSE(form.cmdAbandon.enabled);
    ClickSave(session_, form);
  });
  EXPECT_EQ(Client().Mark(), ID);
}

TEST_F(UnsavedTank, WhoseRemovalFailsIsReportedAndOfferedAgain) {
  LeaveTank("T1");
  const auto other = store::Database::Open(session_.ClientPath);
  {
    const store::Transaction holding(*other);
    ExpectOffer("Its identification is \"T1\".", Answer::kNo);
    host_.ExpectError(3260, "mDatabase.OfferUnsavedTank");
    session_.offerUnsavedTank(session_);
  }
  EXPECT_EQ(Count("tank"), 1);
  ExpectOffer("Its identification is \"T1\".", Answer::kNo);
  session_.offerUnsavedTank(session_);
  EXPECT_EQ(Count("tank"), 0);
}

}  // namespace
}  // namespace orvex::entry
