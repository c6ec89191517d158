#include "refdata/frmfitting.h"

#include "refdata/small_editors.h"

namespace orvex::refdata {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kStubDrain = "Stub Drain (1-in. Diameter)";
constexpr const char* kRoofDrain = "Roof Drain (3-in. Diameter)";
constexpr const char* kIncomplete = "Record cannot be saved. The fitting type must be filled in.";
constexpr const char* kDuplicate = "Duplicate fitting type/status combination.";

class FrmFittingTest : public test::SmallEditorTest {
 protected:
  FrmFittingTest() : SmallEditorTest(test::kFittingEditor) {}

  void AddFitting(const std::string& type, const std::string& status) {
    Add();
    Type("dbcboFitType", type);
    Type("cboStatus", status);
    SaveAdded();
  }
  void ExpectDuplicate(const std::string& type, const std::string& status) {
    Add();
    Type("dbcboFitType", type);
    Type("cboStatus", status);
    ExpectTold(kDuplicate);
    Save();
    EXPECT_EQ(Shown("dbcboFitType"), type + "1");
    EXPECT_EQ(Shown("cboStatus"), status);
  }
  [[nodiscard]] test::Rows Own() {
    return Query("SELECT * FROM fitting WHERE USER_DEF = True",
                 {"FIT_TYPE", "COVR_TYPE", "API_CERT", "K_FA", "K_FB", "K_M", "QUANTITY"});
  }
};

TEST_F(FrmFittingTest, ShowsADeliveredFittingWithAllItsFactors) {
  Pick("dbcboFitType", "Unslotted Guide-Pole Well");
  Pick("cboStatus", "Ungasketed Sliding Cover");
  EXPECT_EQ(Shown("dbcboFitType"), "Unslotted Guide-Pole Well");
  EXPECT_EQ(Shown("cboStatus"), "Ungasketed Sliding Cover");
  EXPECT_EQ(Shown("txtK_FA"), "31");
  EXPECT_EQ(Shown("txtK_FB"), "150");
  EXPECT_EQ(Shown("txtK_M"), "1.4");
  EXPECT_EQ(Shown("txtQUANTITY"), "1");
  EXPECT_EQ(Shown("txtAPI_CERT"), "");
  EXPECT_FALSE(form_.panel.enabled);
}

TEST_F(FrmFittingTest, ListsEachTypeOnce) {
  // The types of the 47 delivered rows, counted by hand.
  EXPECT_EQ(Items("dbcboFitType").size(), 14U);
  EXPECT_EQ(Items("dbcboFitType").front(), "Access Hatch (24-in. Diam.)");
  EXPECT_EQ(Items("dbcboFitType").back(), "Vacuum Breaker (10-in. Diam.)");
}

TEST_F(FrmFittingTest, ListsTheStatusesOfTheTypeOnShow) {
  EXPECT_EQ(Items("cboStatus"),
            (Texts{"Bolted Cover, Gasketed", "Unbolted Cover, Gasketed", "Unbolted Cover, Ungasketed"}));
  Pick("dbcboFitType", kRoofDrain);
  EXPECT_EQ(Shown("cboStatus"), "90% Closed");
  EXPECT_EQ(Items("cboStatus"), (Texts{"90% Closed", "Open"}));
}

TEST_F(FrmFittingTest, ATypeWithOneRowAndNoStatusHasAnEmptyListAndIsFound) {
  Pick("dbcboFitType", kStubDrain);
  EXPECT_EQ(Shown("dbcboFitType"), kStubDrain);
  EXPECT_EQ(Shown("cboStatus"), "");
  EXPECT_EQ(Items("cboStatus"), Texts{});
  EXPECT_EQ(Shown("txtK_FA"), "1.2");
}

TEST_F(FrmFittingTest, StatusesStandInTheOrderOfTheTableWithoutTheMissingOne) {
  AddFitting(kRoofDrain, "Zinc Grating");
  AddFitting(kRoofDrain, "");
  AddFitting(kRoofDrain, "Ajar");
  EXPECT_EQ(Items("cboStatus"), (Texts{"90% Closed", "Open", "Zinc Grating", "Ajar"}));
}

TEST_F(FrmFittingTest, ATypeAloneLeadsToItsRowWithoutAStatus) {
  AddFitting(kRoofDrain, "");
  const auto own = form_.Counter;
  Pick("cboStatus", "Open");
  EXPECT_NE(form_.Counter, own);
  Pick("dbcboFitType", kRoofDrain);
  EXPECT_EQ(form_.Counter, own);
  EXPECT_EQ(Shown("cboStatus"), "");
}

TEST_F(FrmFittingTest, EveryDeliveredFittingIsReachedByItsTypeAndStatus) {
  auto table = session_.ReferenceDb->OpenTable("fitting");
  std::size_t reached = 0;
  for (; !table.AtEnd(); table.MoveNext()) {
    const auto status = table.TextOrEmpty("COVR_TYPE");
    ASSERT_TRUE(IsListed("dbcboFitType", table.Text("FIT_TYPE")));
    Pick("dbcboFitType", table.Text("FIT_TYPE"));
    if (!status.empty()) {
      ASSERT_TRUE(IsListed("cboStatus", status)) << status;
      Pick("cboStatus", status);
    }
    EXPECT_EQ(form_.Counter, table.Long("Counter")) << table.Text("FIT_TYPE") << " / " << status;
    ++reached;
  }
  EXPECT_EQ(reached, 47U);
}

TEST_F(FrmFittingTest, AnItemThatNobodyHasAnyMoreLeavesTheRecordOnShow) {
  const auto before = form_.Counter;
  Pick("dbcboFitType", "Trap Door");
  EXPECT_EQ(Shown("dbcboFitType"), "Access Hatch (24-in. Diam.)");
  Pick("cboStatus", "Ajar");
  EXPECT_EQ(Shown("cboStatus"), "Bolted Cover, Gasketed");
  EXPECT_EQ(form_.Counter, before);
}

TEST_F(FrmFittingTest, AFittingMayStandWithoutAnyFactor) {
  AddFitting("Trap Door", "");
  EXPECT_EQ(Own(), test::Rows{"Trap Door|-|-|0|0|0|0"});
}

TEST_F(FrmFittingTest, AFittingIsStoredWithAllThatWasEntered) {
  Add();
  EXPECT_EQ(form_.window.focus, "dbcboFitType");
  Type("dbcboFitType", "Trap Door");
  Type("cboStatus", "Ajar");
  Type("txtAPI_CERT", "No. 7");
  Type("txtK_FA", "1.5");
  Type("txtK_FB", "2");
  Type("txtK_M", "0.9");
  Type("txtQUANTITY", "3");
  SaveAdded();
  EXPECT_EQ(Own(), test::Rows{"Trap Door|Ajar|No. 7|1.5|2|0.9|3"});
  EXPECT_TRUE(IsListed("dbcboFitType", "Trap Door"));
  EXPECT_EQ(Items("cboStatus"), Texts{"Ajar"});
}

TEST_F(FrmFittingTest, TheTypeMustBeFilledInWhateverElseIs) {
  Add();
  Type("cboStatus", "Ajar");
  for (const auto* control : {"txtK_FA", "txtK_FB", "txtK_M", "txtQUANTITY"}) Type(control, "1");
  ExpectTold(kIncomplete);
  Save();
  Type("dbcboFitType", "Trap Door");
  SaveAdded();
}

TEST_F(FrmFittingTest, ASavedFittingMayNotLoseItsType) {
  AddFitting("Trap Door", "Ajar");
  Type("dbcboFitType", "");
  ExpectTold(kIncomplete);
  Save();
  EXPECT_EQ(Own(), test::Rows{"Trap Door|Ajar|-|0|0|0|0"});
}

TEST_F(FrmFittingTest, TheSecondRowOfAPairIsRefusedAndGetsAnotherName) {
  AddFitting("Trap Door", "Ajar");
  ExpectDuplicate("Trap Door", "Ajar");
  SaveAdded();
  EXPECT_EQ(Own(), (test::Rows{"Trap Door|Ajar|-|0|0|0|0", "Trap Door1|Ajar|-|0|0|0|0"}));
}

TEST_F(FrmFittingTest, APairOfADeliveredFittingIsRefusedInAnyCase) {
  ExpectDuplicate("ROOF DRAIN (3-in. Diameter)", "open");
}

TEST_F(FrmFittingTest, ATypeWithoutStatusStandsOnlyOnce) {
  ExpectDuplicate(kStubDrain, "");
  Type("dbcboFitType", kStubDrain);
  Type("cboStatus", "Closed");
  SaveAdded();
}

TEST_F(FrmFittingTest, ADuplicateKeepsAllOtherEditsOnShow) {
  AddFitting("Trap Door", "Ajar");
  Add();
  Type("dbcboFitType", "Trap Door");
  Type("cboStatus", "Ajar");
  Type("txtK_FA", "7.5");
  Type("txtAPI_CERT", "No. 8");
  ExpectTold(kDuplicate);
  Save();
  EXPECT_EQ(Shown("txtK_FA"), "7.5");
  EXPECT_EQ(Shown("txtAPI_CERT"), "No. 8");
  EXPECT_EQ(Own().front(), "Trap Door|Ajar|-|0|0|0|0");
}

TEST_F(FrmFittingTest, TheProposedTypeListsNoStatusesOfTheOtherOne) {
  ExpectDuplicate(kRoofDrain, "Open");
  EXPECT_EQ(Items("cboStatus"), Texts{});
  Type("dbcboFitType", kRoofDrain);
  EXPECT_EQ(Items("cboStatus"), (Texts{"90% Closed", "Open"}));
}

TEST_F(FrmFittingTest, TheSameTypeWithAnotherStatusIsAnotherFitting) {
  AddFitting("Trap Door", "Ajar");
  AddFitting("Trap Door", "Shut");
  AddFitting("Trap Door", "");
  EXPECT_EQ(Own().size(), 3U);
  EXPECT_EQ(Items("cboStatus"), (Texts{"Ajar", "Shut"}));
}

TEST_F(FrmFittingTest, ATypedTypeNamesTheRecordAndItsStatusesAreListed) {
  AddFitting("Trap Door", "Ajar");
  const auto before = form_.Counter;
  Type("dbcboFitType", kRoofDrain);
  EXPECT_EQ(form_.Counter, before);
  EXPECT_EQ(Items("cboStatus"), (Texts{"90% Closed", "Open"}));
  EXPECT_EQ(Own(), test::Rows{"Trap Door|Ajar|-|0|0|0|0"});
}

TEST_F(FrmFittingTest, AStatusThatIsTypedNamesAndOneThatIsPickedFinds) {
  AddFitting(kRoofDrain, "Ajar");
  const auto own = form_.Counter;
  Type("cboStatus", "Half Open");
  EXPECT_EQ(form_.Counter, own);
  Pick("cboStatus", "Open");
  EXPECT_NE(form_.Counter, own);
  EXPECT_EQ(Shown("txtK_FA"), "1.5");
  EXPECT_EQ(Own(), test::Rows{std::string(kRoofDrain) + "|Half Open|-|0|0|0|0"});
}

TEST_F(FrmFittingTest, TheFlagsOfTheTypicalSetsAreLeftAlone) {
  test::AddRow(*session_.ReferenceDb, "fitting",
               {{"FIT_TYPE", "Imported"}, {"TYP_IFLT", true}, {"D_ROOF", true}, {"K_FA", 1.0}, {"USER_DEF", true}});
  form_ = {};
  Open(OpenFrmFitting);
  Pick("dbcboFitType", "Imported");
  Type("txtK_FB", "3");
  Save();
  EXPECT_EQ(
      Query("SELECT * FROM fitting WHERE FIT_TYPE = 'Imported'", {"TYP_IFLT", "D_ROOF", "P_SEAL", "K_FA", "K_FB"}),
      test::Rows{"-1|-1|0|1|3"});
}

TEST_F(FrmFittingTest, HostileNamesAreFoundAgain) {
  for (const auto* name :
       {"O'Brien's \"well\"", "50% *?[a]", "'; DROP TABLE fitting; --", "Öffnung <b>&amp;</b>", " "}) {
    AddFitting(name, name);
    const auto own = form_.Counter;
    Pick("dbcboFitType", kStubDrain);
    Pick("dbcboFitType", name);
    EXPECT_EQ(form_.Counter, own) << name;
    EXPECT_EQ(Items("cboStatus"), Texts{name});
  }
}

}  // namespace
}  // namespace orvex::refdata
