#include "entry/deck_rules.h"

#include <cmath>
#include <string>
#include <vector>

#include "entry/physical_rules.h"
#include "entry/record_copy.h"
#include "entry/tank_entry_fixture.h"
#include "shell/tank_types.h"

namespace orvex::entry {
namespace {

using shell::Answer;
using Texts = std::vector<std::string>;

class DeckRulesTest : public test::TankEntryTest {
 protected:
  FrmTank& OpenInternal(test::FieldValues fields = {}) {
    auto& form = OpenTank(shell::kInternalFloatingRoof);
    Store(fields);
    return form;
  }
  /// Writes to the tank's row, and loads the tank again.
  void Store(test::FieldValues fields) {
    auto& form = Editor(session_);
    test::ChangeRow(*session_.ClientDb, "tank", "ID", {form.ID}, fields);
    ShowTank(session_, form);
    ShowFloatingRoofEntries(session_, form);
  }
  void ExpectQuestion(const std::string& text, Answer answer) {
    host_.ExpectMessage(text, "Deck Seam Length", shell::Buttons::kYesNo, shell::Icon::kNone, answer);
  }
  void Leave(const std::string& control, const std::string& text) {
    Type(control, text);
    CheckLostFocus(session_, Editor(session_));
  }
  store::RecordSet Row() { return session_.ClientDb->OpenAt("tank", "ID", {Editor(session_).ID}); }
  Texts Seams() { return At(Editor(session_), "cboDeckSeamIT").box.items; }
  /// The row as it stands becomes the copy that an undo writes back, as at the opening of a tank.
  void TakeCopy() { GetRecordCopy(session_, Editor(session_).ID); }
};

TEST_F(DeckRulesTest, ABoltedDeckShowsItsSeamsAndAWeldedOneHidesThem) {
  auto& form = OpenInternal();
  const auto shown = [&] {
    return std::vector<bool>{At(form, "cboDeckConstructIT").box.visible, At(form, "cboDeckSeamIT").box.visible,
                             At(form, "txtDeckSeamLengthIT").box.visible};
  };
  Choose("cboDeckTypeIT", "Welded");
  EXPECT_EQ(shown(), (std::vector<bool>{false, false, false}));
  Choose("cboDeckTypeIT", "Bolted");
  EXPECT_EQ(shown(), (std::vector<bool>{true, true, true}));
}

TEST_F(DeckRulesTest, ALoadedTankShowsWhatItsDeckHasWithoutAQuestion) {
  auto& form = OpenInternal({{"DECK_TYPE", "Bolted"},
                             {"DECK_CONSTRUCT", "Panel"},
                             {"DECK_SEAM", "Panel: 5 x 12 Ft"},
                             {"FITTING", "Typical"},
                             {"DIAMETER", 100.0}});
  EXPECT_EQ(Seams(), (Texts{"Panel: 5 x 7.5 Ft", "Panel: 5 x 12 Ft"}));
  EXPECT_EQ(Shown("cboDeckSeamIT"), "Panel: 5 x 12 Ft");
  EXPECT_TRUE(At(form, "cboDeckSeamIT").box.visible);
  EXPECT_EQ(session_.ClientDb->OpenTable("fittings").RecordCount(), 0) << "nothing is built";
  Store({{"DECK_TYPE", "Welded"}});
  EXPECT_FALSE(At(form, "cboDeckSeamIT").box.visible);
}

TEST_F(DeckRulesTest, LoadingATankOfAnotherTypeNeedsNoDeck) {
  for (const auto type :
       {shell::kVerticalFixedRoof, shell::kHorizontal, shell::kExternalFloatingRoof, shell::kDomedExternalFloatingRoof})
    ShowFloatingRoofEntries(session_, OpenTank(type));
}

TEST_F(DeckRulesTest, TheConstructionIsStoredAndFillsTheSeams) {
  OpenInternal();
  Choose("cboDeckConstructIT", "Sheet");
  EXPECT_EQ(Seams(), (Texts{"Sheet: 5 Ft Wide", "Sheet: 6 Ft Wide", "Sheet: 7 Ft Wide"}));
  EXPECT_EQ(Row().Text("DECK_CONSTRUCT"), "Sheet");
  Choose("cboDeckConstructIT", "Panel");
  EXPECT_EQ(Seams(), (Texts{"Panel: 5 x 7.5 Ft", "Panel: 5 x 12 Ft"}));
  EXPECT_EQ(Row().Text("DECK_CONSTRUCT"), "Panel");
}

TEST_F(DeckRulesTest, AnotherConstructionClearsTheSeamAndTheSameOneDoesNot) {
  OpenInternal({{"DECK_CONSTRUCT", "Sheet"}, {"DECK_SEAM", "Sheet: 5 Ft Wide"}});
  Choose("cboDeckConstructIT", "Sheet");
  EXPECT_EQ(Shown("cboDeckSeamIT"), "Sheet: 5 Ft Wide");
  Choose("cboDeckConstructIT", "Panel");
  EXPECT_EQ(Shown("cboDeckSeamIT"), "");
  EXPECT_TRUE(Row().IsNull("DECK_SEAM"));
}

// 0.2 * 3.14159 * (1 / 4) * 100^2 = 1570.795: "1,570.80" with two decimals, "1,570.795" with two to six.
TEST_F(DeckRulesTest, ASeamGivesItsFactorAndProposesTheLengthWithTwoDecimals) {
  OpenInternal({{"DIAMETER", 100.0}, {"DECK_CONSTRUCT", "Sheet"}});
  ExpectQuestion("The suggested value is 1,570.80. Use This Value?", Answer::kYes);
  Choose("cboDeckSeamIT", "Sheet: 5 Ft Wide");
  EXPECT_EQ(Shown("txtSDIT"), "0.2");
  EXPECT_EQ(Shown("txtDeckSeamLengthIT"), "1,570.80");
  EXPECT_EQ(Row().Text("DECK_SEAM"), "Sheet: 5 Ft Wide");
  EXPECT_EQ(Row().Double("SD"), 0.2);
  EXPECT_EQ(Row().Double("DECK_SEAM_LENGTH"), 1570.8);
}

TEST_F(DeckRulesTest, TheAnswerNoLeavesTheLengthAlone) {
  OpenInternal({{"DIAMETER", 100.0}, {"DECK_CONSTRUCT", "Sheet"}, {"DECK_SEAM_LENGTH", 7.0}});
  ExpectQuestion("The suggested value is 1,570.80. Use This Value?", Answer::kNo);
  Choose("cboDeckSeamIT", "Sheet: 5 Ft Wide");
  EXPECT_EQ(Shown("txtDeckSeamLengthIT"), "7");
  EXPECT_EQ(Row().Double("SD"), 0.2);
}

TEST_F(DeckRulesTest, TheSameSeamAgainAsksNothing) {
  OpenInternal({{"DIAMETER", 100.0}, {"DECK_CONSTRUCT", "Sheet"}, {"DECK_SEAM", "Sheet: 5 Ft Wide"}});
  Choose("cboDeckSeamIT", "Sheet: 5 Ft Wide");
  EXPECT_EQ(Shown("txtSDIT"), "0.2");
}

TEST_F(DeckRulesTest, ASeamThatTheReferenceTableDoesNotHaveHasNoFactor) {
  OpenInternal({{"DIAMETER", 100.0}, {"SD", 0.2}});
  Choose("cboDeckSeamIT", "Sheet: 9 Ft Wide");
  EXPECT_EQ(Shown("txtSDIT"), "0");
}

TEST_F(DeckRulesTest, ComingToTheMissingLengthOfASeamJustChosenProposesItInFull) {
  OpenInternal({{"DIAMETER", 100.0}, {"DECK_CONSTRUCT", "Sheet"}});
  TakeCopy();
  ExpectQuestion("The suggested value is 1,570.80. Use This Value?", Answer::kNo);
  Choose("cboDeckSeamIT", "Sheet: 5 Ft Wide");
  ExpectQuestion("The suggested value is 1,570.795. Use This Value?", Answer::kYes);
  EnterEntry(session_, Editor(session_), "txtDeckSeamLengthIT");
  EXPECT_EQ(Shown("txtDeckSeamLengthIT"), "1,570.795");
}

TEST_F(DeckRulesTest, ComingToTheMissingLengthOfANewTankProposesItToo) {
  OpenInternal({{"DIAMETER", 100.0}, {"DECK_CONSTRUCT", "Sheet"}});
  const auto ID = Editor(session_).ID;
  OpenInternal({{"DECK_SEAM", "Sheet: 5 Ft Wide"}});
  TakeCopy();  // which is of another tank
  Editor(session_).ID = ID;
  ShowTank(session_, Editor(session_));
  ExpectQuestion("The suggested value is 1,570.80. Use This Value?", Answer::kNo);
  Choose("cboDeckSeamIT", "Sheet: 5 Ft Wide");
  ExpectQuestion("The suggested value is 1,570.795. Use This Value?", Answer::kNo);
  EnterEntry(session_, Editor(session_), "txtDeckSeamLengthIT");
  EXPECT_EQ(Shown("txtDeckSeamLengthIT"), "0");
}

TEST_F(DeckRulesTest, ComingToTheLengthAsksNothingWhileNothingIsMissing) {
  auto& form = OpenInternal({{"DIAMETER", 100.0}, {"DECK_SEAM", "Sheet: 5 Ft Wide"}, {"SD", 0.2}});
  TakeCopy();
  EnterEntry(session_, form, "txtDeckSeamLengthIT");  // the seam is not changed
  Store({{"DECK_SEAM", "Sheet: 6 Ft Wide"}, {"DECK_SEAM_LENGTH", 10.0}});
  EnterEntry(session_, form, "txtDeckSeamLengthIT");  // the length is given
  Store({{"DECK_SEAM_LENGTH", 0.0}, {"SD", 0.0}});
  EnterEntry(session_, form, "txtDeckSeamLengthIT");  // nothing to compute it from
  EXPECT_EQ(Shown("txtDeckSeamLengthIT"), "0");
}

// 0.2 * 3.14159 * (1 / 4) * 120^2 = 2261.9448
TEST_F(DeckRulesTest, AnotherDiameterProposesTheLengthThatFollows) {
  OpenInternal({{"DIAMETER", 100.0}, {"SD", 0.2}, {"DECK_SEAM_LENGTH", 1570.8}});
  ExpectQuestion("The suggested deck seam length is 2,261.9448(ft). Use This Value?", Answer::kNo);
  Leave("txtDiameterIT", "120");
  EXPECT_EQ(Shown("txtDeckSeamLengthIT"), "1570.8");
  CheckLostFocus(session_, Editor(session_));  // the diameter is the row's by now
  ExpectQuestion("The suggested deck seam length is 1,570.795(ft). Use This Value?", Answer::kYes);
  Leave("txtDiameterIT", "100");
  EXPECT_EQ(Shown("txtDeckSeamLengthIT"), "1,570.795");
  EXPECT_EQ(Row().Double("DECK_SEAM_LENGTH"), 1570.795);
}

TEST_F(DeckRulesTest, AnotherDiameterAsksNothingOfALengthThatFitsOrIsNotGiven) {
  OpenInternal({{"SD", 0.2}, {"DECK_SEAM_LENGTH", 1570.795}});
  Leave("txtDiameterIT", "100");
  Store({{"DECK_SEAM_LENGTH", 0.0}});
  Leave("txtDiameterIT", "120");
  Store({{"DECK_SEAM_LENGTH", 5.0}, {"SD", 0.0}});
  Leave("txtDiameterIT", "130");
  EXPECT_EQ(Shown("txtDeckSeamLengthIT"), "5");
}

// An entry shows a stored number with 15 significant digits, so that the next number above 1570.795 is shown as that.
TEST_F(DeckRulesTest, TheLengthIsComparedAsItIsShown) {
  OpenInternal({{"SD", 0.2}, {"DECK_SEAM_LENGTH", std::nextafter(1570.795, 2000)}});
  Leave("txtDiameterIT", "100");
  Store({{"DECK_SEAM_LENGTH", 1570.79500000001}, {"DIAMETER", 1.0}});
  ExpectQuestion("The suggested deck seam length is 1,570.795(ft). Use This Value?", Answer::kNo);
  Leave("txtDiameterIT", "100");
}

TEST_F(DeckRulesTest, ALengthBeyondAllNumbersIsReportedAndNotStored) {
  auto& form = OpenInternal({{"SD", 0.2}, {"DECK_SEAM_LENGTH", 5.0}});
  host_.ExpectError(6, "frmTank.CheckLostFocus");
  Leave("txtDiameterIT", "1e200");
  EXPECT_EQ(At(form, "txtDeckSeamLengthIT").box.text, "5");
}

}  // namespace
}  // namespace orvex::entry
