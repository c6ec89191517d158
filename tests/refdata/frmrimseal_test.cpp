#include "refdata/frmrimseal.h"

#include "refdata/small_editors.h"

namespace orvex::refdata {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kShoe = "Mechanical Shoe";

class FrmRimSealTest : public test::SmallEditorTest {
 protected:
  FrmRimSealTest() : SmallEditorTest(test::kRimSealEditor) {}

  void EnterSeal(const std::string& primary, const std::string& secondary, const std::string& construction) {
    Type("dbcboPrimSeal", primary);
    Type("cboSecSeal", secondary);
    Pick("cboConstruct", construction);
  }
  void AddSeal(const std::string& primary, const std::string& secondary, const std::string& construction) {
    Add();
    EnterSeal(primary, secondary, construction);
    SaveAdded();
  }
  void PickSeal(const std::string& primary, const std::string& secondary, const std::string& construction) {
    Pick("dbcboPrimSeal", primary);
    Pick("cboSecSeal", secondary);
    Pick("cboConstruct", construction);
  }
  void ExpectIncomplete() {
    ExpectTold(editor_.incomplete);
    Save();
  }
  void ExpectDuplicate() {
    const auto primary = Shown("dbcboPrimSeal");
    ExpectTold(editor_.duplicate);
    Save();
    EXPECT_EQ(Shown("dbcboPrimSeal"), primary + "1");
  }
  [[nodiscard]] Texts ShownSeal() const { return {Shown("dbcboPrimSeal"), Shown("cboSecSeal"), Shown("cboConstruct")}; }
  [[nodiscard]] test::Rows Own() {
    return Query("SELECT * FROM rimseal WHERE USER_DEF = True", {"PRIM_SEAL", "SECND_SEAL", "WELDED", "RIVETED"});
  }
};

TEST_F(FrmRimSealTest, ShowsADeliveredSealWithAllItsFactors) {
  PickSeal(kShoe, "Shoe-mounted", "Riveted");
  EXPECT_EQ(ShownSeal(), (Texts{kShoe, "Shoe-mounted", "Riveted"}));
  EXPECT_EQ(Shown("txtK_RA"), "9.2");
  EXPECT_EQ(Shown("txtK_RB"), "0.2");
  EXPECT_EQ(Shown("txtN_FACTOR"), "1.9");
  EXPECT_EQ(Shown("cboEFRT"), "Yes");
  EXPECT_EQ(Shown("cboDEFRT"), "Yes");
  EXPECT_EQ(Shown("cboIFRT"), "No");
  EXPECT_EQ(Shown("txtAPI_CERT"), "");
}

TEST_F(FrmRimSealTest, APrimarySealListsItsSecondaryOnesEachOnce) {
  EXPECT_EQ(Items("dbcboPrimSeal"), (Texts{"Liquid-mounted", kShoe, "Vapor-mounted"}));
  EXPECT_EQ(Items("cboSecSeal"), (Texts{"None", "Shoe-mounted", "Rim-mounted"}));
  Pick("dbcboPrimSeal", "Vapor-mounted");
  EXPECT_EQ(ShownSeal(), (Texts{"Vapor-mounted", "None", "Welded"}));
  EXPECT_EQ(Items("cboSecSeal"), (Texts{"None", "Weather Shield", "Rim-mounted"}));
}

TEST_F(FrmRimSealTest, APairListsTheConstructionsThatItHas) {
  EXPECT_EQ(Items("cboConstruct"), (Texts{"Welded", "Riveted"}));
  Pick("dbcboPrimSeal", "Liquid-mounted");
  EXPECT_EQ(Items("cboConstruct"), Texts{"Welded"});
  Pick("cboSecSeal", "Weather Shield");
  EXPECT_EQ(Items("cboConstruct"), Texts{"Welded"});
}

TEST_F(FrmRimSealTest, EveryDeliveredSealIsReachedByItsPicks) {
  auto table = session_.ReferenceDb->OpenTable("rimseal");
  std::size_t reached = 0;
  for (; !table.AtEnd(); table.MoveNext(), ++reached) {
    const std::string construction = table.Bool("WELDED") ? "Welded" : "Riveted";
    ASSERT_TRUE(IsListed("dbcboPrimSeal", table.Text("PRIM_SEAL")));
    Pick("dbcboPrimSeal", table.Text("PRIM_SEAL"));
    ASSERT_TRUE(IsListed("cboSecSeal", table.Text("SECND_SEAL")));
    Pick("cboSecSeal", table.Text("SECND_SEAL"));
    ASSERT_TRUE(IsListed("cboConstruct", construction));
    Pick("cboConstruct", construction);
    EXPECT_EQ(form_.Counter, table.Long("Counter"));
  }
  EXPECT_EQ(reached, 12U);
}

TEST_F(FrmRimSealTest, OnAShippedSealAConstructionFindsTheOtherOne) {
  ASSERT_EQ(ShownSeal(), (Texts{kShoe, "None", "Welded"}));
  Pick("cboConstruct", "Riveted");
  EXPECT_EQ(ShownSeal(), (Texts{kShoe, "None", "Riveted"}));
  EXPECT_EQ(Shown("txtK_RA"), "10.8");
  Pick("cboConstruct", "Welded");
  EXPECT_EQ(Shown("txtK_RA"), "5.8");
}

TEST_F(FrmRimSealTest, AConstructionThatThePairDoesNotHaveLeavesTheSealOnShow) {
  Pick("dbcboPrimSeal", "Liquid-mounted");
  Pick("cboConstruct", "Riveted");
  EXPECT_EQ(ShownSeal(), (Texts{"Liquid-mounted", "None", "Welded"}));
}

TEST_F(FrmRimSealTest, OnAnOwnSealAConstructionChangesIt) {
  AddSeal("Foam", "None", "Welded");
  const auto own = form_.Counter;
  EXPECT_EQ(Items("cboConstruct"), (Texts{"Welded", "Riveted"}));
  Pick("cboConstruct", "Riveted");
  EXPECT_EQ(form_.Counter, own);
  EXPECT_EQ(Shown("cboConstruct"), "Riveted");
  EXPECT_EQ(Own(), test::Rows{"Foam|None|-1|0"}) << "it is not saved by that";
  Save();
  EXPECT_EQ(Own(), test::Rows{"Foam|None|0|-1"});
}

TEST_F(FrmRimSealTest, RightAfterASealWasPickedAConstructionFinds) {
  AddSeal("Foam", "Brush", "Welded");
  const auto welded = form_.Counter;
  AddSeal("Foam", "Brush", "Riveted");
  const auto riveted = form_.Counter;
  Pick("dbcboPrimSeal", "Foam");
  EXPECT_EQ(form_.Counter, welded);
  EXPECT_EQ(Items("cboConstruct"), (Texts{"Welded", "Riveted"}));
  Pick("cboConstruct", "Riveted");
  EXPECT_EQ(form_.Counter, riveted);
  Pick("cboSecSeal", "Brush");
  EXPECT_EQ(form_.Counter, welded);
  Pick("cboConstruct", "Riveted");
  EXPECT_EQ(form_.Counter, riveted);
  // From here on it is the record's own again.
  Pick("cboConstruct", "Welded");
  EXPECT_EQ(form_.Counter, riveted);
  EXPECT_EQ(Shown("cboConstruct"), "Welded");
}

TEST_F(FrmRimSealTest, RightAfterASealWasPickedOnlyConstructionsThatExistAreListed) {
  AddSeal("Foam", "Brush", "Welded");
  Pick("dbcboPrimSeal", "Foam");
  EXPECT_EQ(Items("cboConstruct"), Texts{"Welded"});
  Type("txtK_RA", "2");
  EXPECT_EQ(Items("cboConstruct"), (Texts{"Welded", "Riveted"})) << "the person goes on with the record by now";
  Pick("cboConstruct", "Riveted");
  Save();
  EXPECT_EQ(Own(), test::Rows{"Foam|Brush|0|-1"});
}

TEST_F(FrmRimSealTest, AnAddedSealHasNoConstructionUntilOneIsChosen) {
  Add();
  EXPECT_EQ(form_.window.focus, "dbcboPrimSeal");
  EXPECT_EQ(ShownSeal(), (Texts{"", "", ""}));
  EXPECT_EQ(Items("cboSecSeal"), Texts{});
  EXPECT_EQ(Items("cboConstruct"), (Texts{"Welded", "Riveted"}));
  Pick("cboConstruct", "Welded");
  EXPECT_EQ(Shown("cboConstruct"), "Welded");
}

TEST_F(FrmRimSealTest, WhatIsTypedIntoTheConstructionIsTakenBack) {
  AddSeal("Foam", "None", "Welded");
  Type("cboConstruct", "Riv");
  EXPECT_EQ(Shown("cboConstruct"), "Welded");
}

TEST_F(FrmRimSealTest, ASealIsStoredWithAllThatWasEntered) {
  Add();
  EnterSeal("Foam", "Brush", "Riveted");
  Type("txtAPI_CERT", "No. 7");
  Type("txtK_RA", "1.5");
  Type("txtK_RB", "0.25");
  Type("txtN_FACTOR", "2");
  Choose("cboEFRT", "Yes");
  Choose("cboIFRT", "Yes");
  SaveAdded();
  EXPECT_EQ(
      Query("SELECT * FROM rimseal WHERE USER_DEF = True", {"PRIM_SEAL", "SECND_SEAL", "WELDED", "RIVETED", "API_CERT",
                                                            "K_RA", "K_RB", "N_FACTOR", "EFLT", "DEFT", "IFLT"}),
      test::Rows{"Foam|Brush|0|-1|No. 7|1.5|0.25|2|-1|0|-1"});
  Choose("cboEFRT", "No");
  Choose("cboDEFRT", "Yes");
  Save();
  EXPECT_EQ(Query("SELECT * FROM rimseal WHERE USER_DEF = True", {"EFLT", "DEFT", "IFLT"}), test::Rows{"0|-1|-1"});
  EXPECT_EQ(Shown("cboEFRT"), "No");
  EXPECT_EQ(Shown("cboDEFRT"), "Yes");
}

TEST_F(FrmRimSealTest, SealAndConstructionAreBothNeeded) {
  Add();
  ExpectIncomplete();
  Type("dbcboPrimSeal", "Foam");
  ExpectIncomplete();
  Type("dbcboPrimSeal", "");
  Pick("cboConstruct", "Welded");
  ExpectIncomplete();
  EXPECT_EQ(Shown("cboSecSeal"), "") << "an incomplete seal is left as it was";
  Type("dbcboPrimSeal", "Foam");
  SaveAdded();
}

TEST_F(FrmRimSealTest, NoOtherConstructionThanTheTwoIsAccepted) {
  Add();
  EnterSeal("Foam", "", "Bolted");
  ExpectIncomplete();
  EXPECT_EQ(Own(), test::Rows{"-|-|0|0"});
}

TEST_F(FrmRimSealTest, AnEmptySecondarySealIsStoredAndShownAsNone) {
  AddSeal("Foam", "", "Welded");
  EXPECT_EQ(Own(), test::Rows{"Foam|None|-1|0"});
  EXPECT_EQ(Shown("cboSecSeal"), "None");
  EXPECT_EQ(Items("cboSecSeal"), Texts{"None"});
}

TEST_F(FrmRimSealTest, OnePairMayBeWeldedAndRiveted) {
  AddSeal("Foam", "None", "Welded");
  AddSeal("Foam", "", "Riveted");
  EXPECT_EQ(Own(), (test::Rows{"Foam|None|-1|0", "Foam|None|0|-1"}));
  EXPECT_EQ(Items("cboSecSeal"), Texts{"None"});
}

TEST_F(FrmRimSealTest, TheSameSealOfTheSameConstructionIsRefused) {
  AddSeal("Foam", "Brush", "Welded");
  Add();
  EnterSeal("Foam", "Brush", "Welded");
  ExpectDuplicate();
  SaveAdded();
  EXPECT_EQ(Own(), (test::Rows{"Foam|Brush|-1|0", "Foam1|Brush|-1|0"}));
}

TEST_F(FrmRimSealTest, TheProposedPrimarySealListsNoSecondaryOnesOfTheOther) {
  Add();
  EnterSeal("Liquid-mounted", "None", "Welded");
  EXPECT_EQ(Items("cboSecSeal"), (Texts{"None", "Weather Shield", "Rim-mounted"}));
  ExpectDuplicate();
  EXPECT_EQ(Items("cboSecSeal"), Texts{});
}

TEST_F(FrmRimSealTest, ADeliveredSealIsRefusedInAnyCaseAndWithoutASecondaryOne) {
  Add();
  EnterSeal("mechanical shoe", "", "Welded");
  ExpectDuplicate();
  EXPECT_EQ(Shown("cboSecSeal"), "None");
  EXPECT_EQ(Shown("cboConstruct"), "Welded");
  Type("dbcboPrimSeal", "Vapor-mounted");
  Pick("cboConstruct", "Riveted");
  SaveAdded();
}

TEST_F(FrmRimSealTest, AnotherConstructionMayNotMakeADuplicate) {
  AddSeal("Foam", "Brush", "Welded");
  AddSeal("Foam", "Brush", "Riveted");
  Pick("cboConstruct", "Welded");
  ExpectDuplicate();
  EXPECT_EQ(Own(), (test::Rows{"Foam|Brush|-1|0", "Foam|Brush|0|-1"}));
}

// Rows that other programs have made.
TEST_F(FrmRimSealTest, ARowWithBothConstructionsOrNoneShowsSoAndIsSavedWithExactlyOne) {
  test::AddRow(*session_.ReferenceDb, "rimseal",
               {{"PRIM_SEAL", "Both"}, {"WELDED", true}, {"RIVETED", true}, {"USER_DEF", true}});
  test::AddRow(*session_.ReferenceDb, "rimseal", {{"PRIM_SEAL", "Neither"}, {"USER_DEF", true}});
  form_ = {};
  Open(OpenFrmRimSeal);
  Pick("dbcboPrimSeal", "Neither");
  EXPECT_EQ(ShownSeal(), (Texts{"Neither", "", ""}));
  ExpectIncomplete();
  Pick("dbcboPrimSeal", "Both");
  EXPECT_EQ(ShownSeal(), (Texts{"Both", "", "Welded"}));
  Save();
  EXPECT_EQ(Own(), (test::Rows{"Both|None|-1|0", "Neither|-|0|0"}));
}

TEST_F(FrmRimSealTest, ASealPickedSavesTheChangedConstructionFirst) {
  AddSeal("Foam", "Brush", "Welded");
  Pick("cboConstruct", "Riveted");
  Pick("dbcboPrimSeal", kShoe);
  EXPECT_EQ(Own(), test::Rows{"Foam|Brush|0|-1"});
  EXPECT_EQ(Shown("dbcboPrimSeal"), kShoe);
}

TEST_F(FrmRimSealTest, HostileNamesAreFoundAgain) {
  for (const auto* name : {"O'Brien's \"seal\"", "50% *?[a]", "'; DROP TABLE rimseal; --", "Öl <b>&amp;</b>", " "}) {
    AddSeal(name, name, "Riveted");
    const auto own = form_.Counter;
    PickSeal("Liquid-mounted", "None", "Welded");
    PickSeal(name, name, "Riveted");
    EXPECT_EQ(form_.Counter, own) << name;
  }
}

}  // namespace
}  // namespace orvex::refdata
