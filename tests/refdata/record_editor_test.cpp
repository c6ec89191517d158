#include "refdata/record_editor.h"

#include <algorithm>

#include "refdata/chemical_fixture.h"
#include "refdata/frmmet.h"

/// What the reference editors share, looked at in the chemicals'.
namespace orvex::refdata {
namespace {

using shell::Buttons;
using shell::Icon;
using test::Rows;

class RecordEditorTest : public test::ChemicalTest {
 protected:
  void Reopen(store::OpenMode mode = store::OpenMode::kReadWrite) {
    form_ = {};
    session_.ReferenceDb = store::Database::Open(session_.TankPath, mode);
    Open(OpenFrmchemical);
  }
  std::int64_t Count() { return session_.ReferenceDb->OpenTable("chemical").RecordCount(); }
  /// As another program would do.
  void DeleteBehindTheBack() {
    store::Database::Open(session_.TankPath)->DeleteMatching("chemical", "Counter", {form_.Counter});
  }
  void AddRow(test::FieldValues fields) { test::AddRow(*session_.ReferenceDb, "chemical", fields); }
};

// Two programs --------------------------------------------------------------------------------------------------------

TEST_F(RecordEditorTest, ASecondProgramIsToldAndGetsNoWindow) {
  Add();
  test::ScriptedHost other_host;
  shell::Session other(other_host);
  other.ReferenceDb = store::Database::Open(session_.TankPath);
  for (auto* open : {OpenFrmchemical, OpenFrmMet}) {
    other_host.ExpectMessage("The tank database " + session_.TankPath +
                                 " is being edited by another program. Nothing was changed. Close the window there, "
                                 "then try again.",
                             "ORVEX", Buttons::kOk, Icon::kExclamation);
    EXPECT_TRUE(open(other).window.closed);
  }
  EXPECT_EQ(Own(), Rows{"-"}) << "the empty record is at work";
  form_ = {};
  EXPECT_FALSE(OpenFrmchemical(other).window.closed);
}

// Records that were never saved ---------------------------------------------------------------------------------------

TEST_F(RecordEditorTest, OpeningRemovesEmptyRecordsOfThePersonsOwn) {
  AddRow({{"USER_DEF", true}});
  AddRow({{"USER_DEF", true}, {"REID", 0.0}});
  AddRow({{"USER_DEF", true}, {"NAME", "Half"}});
  AddRow({{"USER_DEF", false}});
  AddRow({{"USER_DEF", true}});
  const auto before = Count();
  Reopen();
  EXPECT_EQ(Own(), (Rows{"-", "Half"}));
  EXPECT_EQ(Count(), before - 2);
}

// A database that cannot be written -----------------------------------------------------------------------------------

TEST_F(RecordEditorTest, AReadOnlyDatabaseIsShownButNotChanged) {
  AddSaved("Mine");
  AddRow({{"USER_DEF", true}});
  Reopen(store::OpenMode::kReadOnly);
  const auto before = Count();
  Pick("dbcboChemName", "Mine");
  EXPECT_EQ(Shown("txtMOLWT"), "72.15");
  Type("txtMOLWT", "99");
  host_.ExpectError(3027, "frmChemical.");
  Save();
  EXPECT_EQ(Shown("txtMOLWT"), "99");
  host_.ExpectMessage("Are you sure you want to delete this record?");
  host_.ExpectError(3027, "frmChemical.");
  ClickDelete(session_, form_);
  host_.ExpectError(3027, "frmChemical.");
  Add();
  Type("txtMOLWT", "72.15");
  Pick("dbcboChemName", "Benzene");
  host_.ExpectError(3027, "frmChemical.");
  Add();
  EXPECT_EQ(Shown("dbcboChemName"), "Benzene");
  EXPECT_TRUE(form_.cmdAddNew.enabled);
  EXPECT_EQ(Count(), before);
  ClickClose(session_, form_);
  EXPECT_TRUE(form_.window.closed);
}

// A table without records ---------------------------------------------------------------------------------------------

TEST_F(RecordEditorTest, ATableWithoutRecordsShowsEmptyEntries) {
  session_.ReferenceDb->Execute("DELETE * FROM chemical");
  Reopen();
  EXPECT_EQ(Shown("dbcboChemName"), "");
  EXPECT_EQ(Shown("cboCategory"), "");
  EXPECT_TRUE(Items("dbcboChemName").empty());
  EXPECT_FALSE(form_.panel.enabled);
  Save();
  ExpectTold("Record is not user defined.  It cannot be deleted.");
  ClickDelete(session_, form_);
  Pick("dbcboChemName", "Benzene");
  EXPECT_EQ(Shown("dbcboChemName"), "");
  AddSaved("Benzene");
  EXPECT_EQ(Items("dbcboChemName"), Rows{"Benzene"});
  Delete();
  EXPECT_EQ(Shown("dbcboChemName"), "");
  EXPECT_EQ(Count(), 0);
  ClickClose(session_, form_);
  EXPECT_TRUE(form_.window.closed);
}

// Texts that the table cannot hold ------------------------------------------------------------------------------------

TEST_F(RecordEditorTest, ATextThatIsTooLongOrHoldsControlCharactersIsRefusedWhereItStands) {
  struct Unstorable {
    std::string_view control;
    std::string text;
    std::string reason;
  };
  const Unstorable cases[] = {
      {"dbcboChemName", std::string(51, 'x'), "Please enter no more than 50 characters."},
      {"dbcboCAS", "1234567-89-0", "Please enter no more than 10 characters."},
      {"dbcboChemName", "two\nlines", "Please enter a text without control characters."},
      {"dbcboCAS", std::string("1\0002", 3), "Please enter a text without control characters."},
      {"dbcboCAS", "1\t2", "Please enter a text without control characters."},
  };
  Add();
  Fill("Mine");
  for (const auto& [control, text, reason] : cases) {
    const auto before = Shown(std::string(control));
    Type(std::string(control), text);
    host_.ExpectMessage(reason, "ORVEX", Buttons::kOk, Icon::kExclamation);
    Save();
    EXPECT_EQ(form_.window.focus, control);
    EXPECT_EQ(Own(), Rows{"-"});
    Type(std::string(control), before);
  }
  std::string wide;
  for (int i = 0; i < 50; ++i) wide += "é";
  Type("dbcboChemName", wide);
  SaveAdded();
  EXPECT_EQ(Own(), Rows{wide});
}

TEST_F(RecordEditorTest, ANumberThatWasNotLeftIsRefusedWhenItIsSaved) {
  AddSaved("Mine");
  for (const auto* text : {"1,5", "", "nan", "1e999"}) {
    At(form_, "txtMOLWT").box.text = text;
    TypeText(session_, form_, "txtMOLWT");
    host_.ExpectMessage("Please enter a number.", "ORVEX", Buttons::kOk, Icon::kExclamation);
    Save();
    EXPECT_EQ(form_.window.focus, "txtMOLWT");
    EXPECT_EQ(Query("SELECT * FROM chemical WHERE NAME = 'Mine'", {"MOLWT"}), Rows{"72.15"});
  }
}

TEST_F(RecordEditorTest, ANumberIsStoredToTheLastDigit) {
  AddSaved("Mine");
  for (const auto* text : {"0.1", "123456789.12345678", "1e-300", "-2.5e+300"}) {
    Type("txtREID", text);
    Save();
    EXPECT_EQ(HeldNumber(form_, "REID"), store::Value(text).AsDouble());
    EXPECT_EQ(session_.ReferenceDb->OpenAt("chemical", "Counter", {form_.Counter}).Double("REID"),
              HeldNumber(form_, "REID"));
  }
}

TEST_F(RecordEditorTest, NamesOfAllKindsAreKeptAndFound) {
  const Rows names = {"O'Neill's \"best\"", "Äthanol 漢字", " blanks  ", "100% [pure] *?#", "a;b--c", "-1", "''"};
  for (const auto& name : names) AddSaved(name);
  EXPECT_EQ(Own(), names);
  for (const auto& name : names) {
    Pick("dbcboChemName", "Benzene");
    Pick("dbcboChemName", name);
    EXPECT_EQ(Shown("dbcboChemName"), name);
    EXPECT_TRUE(form_.user_defined);
    Fill(name);
    Save();
    Type("txtMOLWT", "5");
    Save();
    ExpectDuplicate();
    Type("dbcboChemName", name == names[0] ? names[1] : names[0]);
    Save();
    Type("dbcboChemName", name);
  }
  EXPECT_EQ(Own(), names);
}

// A record that somebody else has deleted -----------------------------------------------------------------------------

TEST_F(RecordEditorTest, SavingARecordThatIsGoneIsToldAndLeadsToTheFirst) {
  AddSaved("Mine");
  Type("txtMOLWT", "99");
  DeleteBehindTheBack();
  host_.ExpectError(3167, "frmChemical.");
  Save();
  EXPECT_EQ(Shown("dbcboChemName"), "Acetal");
  EXPECT_EQ(std::ranges::count(Items("dbcboChemName"), "Mine"), 0);
  EXPECT_FALSE(form_.panel.enabled);
}

TEST_F(RecordEditorTest, AnAddedRecordThatIsGoneDoesNotKeepTheWindowOpen) {
  Add();
  Fill("Mine");
  DeleteBehindTheBack();
  host_.ExpectError(3167, "frmChemical.");
  ClickClose(session_, form_);
  EXPECT_TRUE(form_.cmdAddNew.enabled);
  ClickClose(session_, form_);
  EXPECT_TRUE(form_.window.closed);
  AddSaved("Later");
  Type("txtMOLWT", "99");
  DeleteBehindTheBack();
  host_.ExpectError(3167, "frmChemical.");
  Pick("dbcboChemName", "Benzene");
  EXPECT_EQ(Shown("dbcboChemName"), "Acetal");
  test::AddRow(*session_.ReferenceDb, "chemical", {{"NAME", "Given"}, {"USER_DEF", true}});
  Pick("dbcboChemName", "Given");
  Fill("Given");
  Save();
}

TEST_F(RecordEditorTest, DeletingARecordThatIsGoneSaysNothing) {
  AddSaved("Mine");
  DeleteBehindTheBack();
  Delete();
  EXPECT_EQ(Shown("dbcboChemName"), "Acetal");
}

TEST_F(RecordEditorTest, PickingARecordThatIsGoneChangesNothing) {
  AddSaved("Mine");
  DeleteBehindTheBack();
  Pick("dbcboChemName", "Benzene");
  EXPECT_EQ(Shown("dbcboChemName"), "Benzene");
  Pick("dbcboChemName", "Mine");
  EXPECT_EQ(Shown("dbcboChemName"), "Benzene");
}

}  // namespace
}  // namespace orvex::refdata
