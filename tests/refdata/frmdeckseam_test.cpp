#include "refdata/frmdeckseam.h"

#include "refdata/small_editors.h"

namespace orvex::refdata {
namespace {

using Texts = std::vector<std::string>;

class FrmDeckSeamTest : public test::SmallEditorTest {
 protected:
  FrmDeckSeamTest() : SmallEditorTest(test::kDeckSeamEditor) {}

  void EnterPanel(const std::string& length, const std::string& width, const std::string& certificate = "") {
    Choose("cboConstruct", "Panel");
    Type("txtPLENGTH", length);
    Type("txtPWIDTH", width);
    Type("txtAPICERT", certificate);
  }
  void EnterSheet(const std::string& width, const std::string& certificate = "") {
    Choose("cboConstruct", "Sheet");
    Type("txtSWIDTH", width);
    Type("txtAPICERT", certificate);
  }
  void ExpectIncomplete() {
    ExpectTold(editor_.incomplete);
    Save();
  }
  void ExpectDuplicate() {
    const auto name = Shown("dbcboName");
    ExpectTold(editor_.duplicate);
    Save();
    EXPECT_EQ(Shown("dbcboName"), name) << "the name goes by the size, so there is no other one to propose";
  }
  /// A row of another program.
  void Import(test::FieldValues fields) {
    form_ = {};
    test::AddRow(*session_.ReferenceDb, "deckseam", fields);
    Open(OpenFrmDeckSeam);
  }
  [[nodiscard]] Texts VisibleSizes() const {
    Texts visible;
    for (const auto* control : {"txtPLENGTH", "txtPWIDTH", "txtSWIDTH"})
      if (At(form_, control).box.visible) visible.emplace_back(control);
    return visible;
  }
  [[nodiscard]] test::Rows Own(std::initializer_list<std::string_view> fields) {
    return Query("SELECT * FROM deckseam WHERE USER_DEF = True", fields);
  }
};

TEST_F(FrmDeckSeamTest, ShowsADeliveredSeamWithItsFactors) {
  EXPECT_EQ(Shown("dbcboName"), "Sheet: 5 Ft Wide");
  EXPECT_EQ(Shown("cboConstruct"), "Sheet");
  EXPECT_EQ(Shown("txtSWIDTH"), "5");
  EXPECT_EQ(Shown("txtSD"), "0.20");
  EXPECT_EQ(Shown("txtKD"), "0.14");
  EXPECT_EQ(Shown("txtAPICERT"), "");
  EXPECT_EQ(Items("cboConstruct"), (Texts{"Panel", "Sheet"}));
}

TEST_F(FrmDeckSeamTest, ListsAllSeamsByName) {
  EXPECT_EQ(Items("dbcboName"), (Texts{"Panel: 5 x 12 Ft", "Panel: 5 x 7.5 Ft", "Sheet: 5 Ft Wide", "Sheet: 6 Ft Wide",
                                       "Sheet: 7 Ft Wide"}));
}

TEST_F(FrmDeckSeamTest, EveryDeliveredSeamIsReachedByItsName) {
  auto table = session_.ReferenceDb->OpenTable("deckseam");
  std::size_t reached = 0;
  for (; !table.AtEnd(); table.MoveNext(), ++reached) {
    ASSERT_TRUE(IsListed("dbcboName", table.Text("NAME")));
    Pick("dbcboName", table.Text("NAME"));
    EXPECT_EQ(form_.Counter, table.Long("Counter"));
    EXPECT_EQ(Shown("dbcboName"), table.Text("NAME")) << "a shipped name stays as it was delivered";
  }
  EXPECT_EQ(reached, 5U);
}

TEST_F(FrmDeckSeamTest, OffersTheSizesOfTheConstructionOnly) {
  EXPECT_EQ(VisibleSizes(), Texts{"txtSWIDTH"});
  Pick("dbcboName", "Panel: 5 x 12 Ft");
  EXPECT_EQ(VisibleSizes(), (Texts{"txtPLENGTH", "txtPWIDTH"}));
  Add();
  EXPECT_EQ(VisibleSizes(), Texts{});
  EXPECT_EQ(form_.window.focus, "cboConstruct");
  Choose("cboConstruct", "Sheet");
  EXPECT_EQ(VisibleSizes(), Texts{"txtSWIDTH"});
  Choose("cboConstruct", "Panel");
  EXPECT_EQ(VisibleSizes(), (Texts{"txtPLENGTH", "txtPWIDTH"}));
}

TEST_F(FrmDeckSeamTest, ASheetFiveFeetWideIsNamedAndHasAFifthOfAFootPerSquareFoot) {
  Add();
  EnterSheet("5");
  EXPECT_EQ(Shown("dbcboName"), "Sheet: 5 ft Wide");
  EXPECT_EQ(Shown("txtSD"), "0.20");
}

// 510 / (5 * 10) = 10.2: the texts 5 and 10 are read as one number.
TEST_F(FrmDeckSeamTest, APanelFiveByTenHasTheFactorOfTheJoinedText) {
  Add();
  EnterPanel("5", "10");
  EXPECT_EQ(Shown("dbcboName"), "Panel: 5 x 10 ft");
  EXPECT_EQ(Shown("txtSD"), "10.20");
  EXPECT_EQ(At(form_, "txtSD").held, "10.2");
  SaveAdded();
  EXPECT_EQ(Own({"NAME", "CONSTRUC", "PLENGTH", "PWIDTH", "SD", "SWIDTH", "KD"}),
            test::Rows{"Panel: 5 x 10 ft|Panel|5|10|10.2|0|0"});
}

TEST_F(FrmDeckSeamTest, TheNameFollowsEveryLetterAtOnce) {
  Add();
  EXPECT_EQ(Shown("dbcboName"), "");
  Choose("cboConstruct", "Panel");
  EXPECT_EQ(Shown("dbcboName"), "Panel: 0 x 0 ft");
  const auto type = [&](const std::string& control, const std::string& text) {
    At(form_, control).box.text = text;
    TypeText(session_, form_, control);
  };
  type("txtPLENGTH", "1");
  EXPECT_EQ(Shown("dbcboName"), "Panel: 1 x 0 ft");
  type("txtPLENGTH", "1,200");
  EXPECT_EQ(Shown("dbcboName"), "Panel: 1200 x 0 ft");
  type("txtPWIDTH", "2.50");
  EXPECT_EQ(Shown("dbcboName"), "Panel: 1200 x 2.5 ft");
  type("txtPWIDTH", "2.5x");
  EXPECT_EQ(Shown("dbcboName"), "Panel: 1200 x 0 ft");
  type("txtAPICERT", "A");
  EXPECT_EQ(Shown("dbcboName"), "Panel: 1200 x 0 ft (A)");
  Choose("cboConstruct", "Sheet");
  EXPECT_EQ(Shown("dbcboName"), "Sheet: 0 ft Wide (A)");
  type("txtSWIDTH", "8");
  EXPECT_EQ(Shown("dbcboName"), "Sheet: 8 ft Wide (A)");
  type("txtAPICERT", "");
  EXPECT_EQ(Shown("dbcboName"), "Sheet: 8 ft Wide");
}

TEST_F(FrmDeckSeamTest, TheNameCannotBeTyped) {
  MakeOwn(1);
  Type("dbcboName", "My seam");
  EXPECT_EQ(Shown("dbcboName"), OwnName(1));
  Save();
  EXPECT_EQ(OwnNames(), test::Rows{OwnName(1)});
}

TEST_F(FrmDeckSeamTest, ShippedNamesAreNotComposedAnew) {
  Choose("cboConstruct", "Panel");
  Type("txtSWIDTH", "9");
  EXPECT_EQ(Shown("dbcboName"), "Sheet: 5 Ft Wide");
  EXPECT_EQ(Shown("cboConstruct"), "Sheet");
  EXPECT_EQ(VisibleSizes(), Texts{"txtSWIDTH"});
}

TEST_F(FrmDeckSeamTest, TheFactorIsComputedWhenTheLastSizeIsLeft) {
  Add();
  Choose("cboConstruct", "Panel");
  Type("txtPLENGTH", "5");
  EXPECT_EQ(Shown("txtSD"), "0") << "a size is missing";
  Type("txtPWIDTH", "0");
  EXPECT_EQ(Shown("txtSD"), "0");
  At(form_, "txtPWIDTH").box.text = "10";
  TypeText(session_, form_, "txtPWIDTH");
  EXPECT_EQ(Shown("txtSD"), "0") << "the size is still being typed";
  LeaveEntry(session_, form_, "txtPWIDTH");
  EXPECT_EQ(Shown("txtSD"), "10.20");
}

TEST_F(FrmDeckSeamTest, LeavingASizeReplacesAFactorThatWasTyped) {
  MakeOwn(1);
  Type("txtSD", "0.5");
  EXPECT_EQ(Shown("txtSD"), "0.50");
  LeaveEntry(session_, form_, "txtSWIDTH");
  // The sheet is 101 ft wide: 1 / 101 = 0.00990...
  EXPECT_EQ(Shown("txtSD"), "0.01");
}

TEST_F(FrmDeckSeamTest, ASizeThatIsNoNumberChangesNoFactor) {
  MakeOwn(1);
  Type("txtSD", "0.5");
  ExpectRefused("Please enter a number.");
  Type("txtSWIDTH", "wide");
  EXPECT_EQ(Shown("txtSD"), "0.50");
  EXPECT_EQ(Shown("dbcboName"), "Sheet: 0 ft Wide");
}

TEST_F(FrmDeckSeamTest, AFactorIsShownWithTwoDecimalsAndHeldInFull) {
  Add();
  EnterSheet("7.3");
  EXPECT_EQ(Shown("txtSD"), "0.14");
  EXPECT_DOUBLE_EQ(HeldNumber(form_, "SD"), 1 / 7.3);
  LeaveEntry(session_, form_, "txtSD");
  SaveAdded();
  LeaveEntry(session_, form_, "txtSD");
  Save();
  EXPECT_EQ(session_.ReferenceDb->OpenAt("deckseam", "name", {"Sheet: 7.3 ft Wide"}).Double("SD"), 1 / 7.3);
  Type("txtSD", "1,234.567");
  EXPECT_EQ(Shown("txtSD"), "1234.57");
  Save();
  EXPECT_EQ(Own({"SD"}), test::Rows{"1234.567"});
}

// "5.5" and "10.5" are "5.510.5", which is a number as far as 5.51; 5.51 / (5.5 * 10.5) = 5.51 / 57.75 = 0.0954...
TEST_F(FrmDeckSeamTest, BrokenSizesAreJoinedAsFarAsTheyAreANumber) {
  Add();
  EnterPanel("5.5", "10.5");
  EXPECT_EQ(Shown("txtSD"), "0.10");
  EXPECT_DOUBLE_EQ(HeldNumber(form_, "SD"), 5.51 / 57.75);
}

// A person's thousands comma is no part of the text: 10005 / (1000 * 5) = 2.001.
TEST_F(FrmDeckSeamTest, CommasAreNotJoined) {
  Add();
  EnterPanel("1,000", "5");
  EXPECT_EQ(At(form_, "txtSD").held, "2.001");
  EXPECT_EQ(Shown("dbcboName"), "Panel: 1000 x 5 ft");
}

TEST_F(FrmDeckSeamTest, AFactorOfZeroIsFilledInWhenTheSeamIsSaved) {
  Add();
  EnterPanel("5", "10");
  Type("txtSD", "0");
  SaveAdded();
  EXPECT_EQ(Own({"SD"}), test::Rows{"10.2"});
  Choose("cboConstruct", "Sheet");
  Type("txtSWIDTH", "8");
  Type("txtSD", "0");
  Save();
  EXPECT_EQ(Own({"NAME", "SD"}), test::Rows{"Sheet: 8 ft Wide|0.125"});
  EXPECT_EQ(Shown("txtSD"), "0.13");
}

TEST_F(FrmDeckSeamTest, AFactorOfItsOwnIsKeptWhenTheSeamIsSaved) {
  Add();
  EnterSheet("8");
  Type("txtSD", "0.4");
  SaveAdded();
  EXPECT_EQ(Own({"SD"}), test::Rows{"0.4"});
}

TEST_F(FrmDeckSeamTest, AnImportedSeamWithoutFactorAndNameGetsBoth) {
  Import({{"NAME", "mine"}, {"CONSTRUC", "Sheet"}, {"SWIDTH", 8.0}, {"USER_DEF", true}});
  Pick("dbcboName", "mine");
  EXPECT_EQ(Shown("dbcboName"), "mine");
  EXPECT_EQ(Shown("txtSD"), "0");
  Save();
  EXPECT_EQ(Own({"NAME", "SD", "KD", "PLENGTH"}), test::Rows{"Sheet: 8 ft Wide|0.125|0|0"});
  EXPECT_TRUE(IsListed("dbcboName", "Sheet: 8 ft Wide"));
  EXPECT_FALSE(IsListed("dbcboName", "mine"));
}

TEST_F(FrmDeckSeamTest, ASeamNeedsItsConstruction) {
  Add();
  for (const auto* control : {"txtPLENGTH", "txtPWIDTH", "txtSWIDTH"}) Type(control, "5");
  ExpectIncomplete();
  Choose("cboConstruct", "Tile");
  ExpectIncomplete();
  EXPECT_EQ(Own({"NAME", "SD"}), test::Rows{"-|-"});
}

TEST_F(FrmDeckSeamTest, APanelNeedsLengthAndWidth) {
  Add();
  Choose("cboConstruct", "Panel");
  ExpectIncomplete();
  Type("txtPLENGTH", "5");
  ExpectIncomplete();
  Type("txtPLENGTH", "0");
  Type("txtPWIDTH", "12");
  ExpectIncomplete();
  Type("txtPWIDTH", "0");
  Type("txtSWIDTH", "5");
  ExpectIncomplete();
  Type("txtPLENGTH", "6");
  Type("txtPWIDTH", "12");
  SaveAdded();
}

TEST_F(FrmDeckSeamTest, ASheetNeedsItsWidth) {
  Add();
  Choose("cboConstruct", "Sheet");
  ExpectIncomplete();
  Type("txtPLENGTH", "5");
  Type("txtPWIDTH", "12");
  ExpectIncomplete();
  Type("txtSWIDTH", "9");
  SaveAdded();
}

TEST_F(FrmDeckSeamTest, NamesThatDifferInCaseOnlyAreDuplicates) {
  Add();
  EnterSheet("5");
  ASSERT_EQ(Shown("dbcboName"), "Sheet: 5 ft Wide");  // delivered is "Sheet: 5 Ft Wide"
  ExpectDuplicate();
  EnterPanel("5", "7.5");
  ExpectDuplicate();
  EnterPanel("5", "7.5", "A-1");
  SaveAdded();
  EXPECT_EQ(OwnNames(), test::Rows{"Panel: 5 x 7.5 ft (A-1)"});
}

TEST_F(FrmDeckSeamTest, NamesAreComparedInUpperCaseBeyondAToZ) {
  Add();
  EnterSheet("5", "öl");
  SaveAdded();
  Add();
  EnterSheet("5", "ÖL");
  ExpectDuplicate();
  EnterSheet("5", "ol");
  SaveAdded();
}

TEST_F(FrmDeckSeamTest, ADuplicateStaysOnShowWithItsEdits) {
  Add();
  const auto own = form_.Counter;
  EnterSheet("5");
  Type("txtKD", "0.2");
  ExpectDuplicate();
  EXPECT_EQ(form_.Counter, own);
  EXPECT_EQ(Shown("txtKD"), "0.2");
  EXPECT_EQ(Shown("txtSWIDTH"), "5");
  EXPECT_EQ(Own({"NAME", "KD"}), test::Rows{"-|-"});
}

TEST_F(FrmDeckSeamTest, TheNameOfASeamSavedBeforeIsNoDuplicateOfItself) {
  Add();
  EnterSheet("5", "A");
  SaveAdded();
  Type("txtAPICERT", "a");
  Save();
  EXPECT_EQ(OwnNames(), test::Rows{"Sheet: 5 ft Wide (a)"});
}

TEST_F(FrmDeckSeamTest, HostileCertificatesAreFoundAgain) {
  for (const auto* certificate : {"O'Brien", "50% *?[a]", "'; DROP TABLE deckseam; --", "Öl <b>&amp;</b>", " "}) {
    Add();
    EnterSheet("5", certificate);
    const auto name = Shown("dbcboName");
    SaveAdded();
    const auto own = form_.Counter;
    Pick("dbcboName", "Sheet: 6 Ft Wide");
    Pick("dbcboName", name);
    EXPECT_EQ(form_.Counter, own) << name;
  }
}

TEST_F(FrmDeckSeamTest, ACertificateWithAControlCharacterLeadsBackToIt) {
  Add();
  EnterSheet("5", "a\tb");
  ExpectRefused("Please enter a text without control characters.");
  Save();
  EXPECT_EQ(form_.window.focus, "txtAPICERT");
}

TEST_F(FrmDeckSeamTest, ANameThatIsTooLongIsRefused) {
  Add();
  EnterSheet("1e300");
  ExpectRefused("Please enter no more than 255 characters.");
  Save();
  EXPECT_EQ(OwnNames(), test::Rows{"-"});
}

TEST_F(FrmDeckSeamTest, AnImportedSizeThatMakesTheNameTooLongIsRefused) {
  Import({{"NAME", "mine"}, {"CONSTRUC", "Sheet"}, {"SWIDTH", 1e300}, {"USER_DEF", true}});
  Pick("dbcboName", "mine");
  ExpectRefused("Please enter no more than 255 characters.");
  Save();
  EXPECT_EQ(OwnNames(), test::Rows{"mine"});
}

TEST_F(FrmDeckSeamTest, AFactorBeyondAllNumbersIsReported) {
  Add();
  Choose("cboConstruct", "Panel");
  Type("txtPLENGTH", "1e200");
  host_.ExpectError(6, "frmDeckSeam.");
  Type("txtPWIDTH", "1e200");
  EXPECT_EQ(Shown("txtSD"), "0");
  Type("txtAPICERT", "");
  host_.ExpectError(6, "frmDeckSeam.SaveDeckSeam");
  Import({{"NAME", "mine"}, {"CONSTRUC", "Sheet"}, {"SWIDTH", 5e-324}, {"USER_DEF", true}});
  Pick("dbcboName", "mine");
  Save();
  EXPECT_EQ(OwnNames(), test::Rows{"mine"});
}

}  // namespace
}  // namespace orvex::refdata
