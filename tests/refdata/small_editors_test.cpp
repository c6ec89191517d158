#include "refdata/small_editors.h"

#include "shell/entry_number.h"

namespace orvex::refdata {
namespace {

using shell::Answer;

class SmallEditors : public test::SmallEditorTest, public testing::WithParamInterface<test::SmallEditor> {
 protected:
  SmallEditors() : SmallEditorTest(GetParam()) {}
};

TEST_P(SmallEditors, OpenOnTheFirstRecordWhichCanOnlyBeRead) {
  EXPECT_EQ(ShownName(), editor_.first_name);
  EXPECT_FALSE(form_.panel.enabled);
  EXPECT_TRUE(form_.cmdAddNew.enabled);
  for (const auto& entry : form_.entries) EXPECT_EQ(entry.box.enabled, FindsRecords(*entry.info));
  EXPECT_EQ(host_.status, (std::vector<std::string>{"Loading, please wait...", "Ready"}));
}

TEST_P(SmallEditors, NothingThatIsTypedChangesAShippedRecord) {
  for (const auto& entry : form_.entries) {
    const auto control = std::string(entry.info->text.name), shown = Shown(control);
    Type(control, "7.25");
    EXPECT_EQ(Shown(control), shown) << control;
  }
  Save();
  Close();
  EXPECT_TRUE(form_.window.closed);
  EXPECT_TRUE(host_.messages.empty());
}

TEST_P(SmallEditors, AShippedRecordCannotBeDeleted) {
  ExpectTold("Record is not user defined.  It cannot be deleted.");
  ClickDelete(session_, form_);
  EXPECT_EQ(ShownName(), editor_.first_name);
}

TEST_P(SmallEditors, AnAddedRecordIsEmptyAndThePersonsOwn) {
  Add();
  for (const auto& entry : form_.entries) {
    const auto* empty = IsNumber(*entry.info) ? "0" : entry.info->kind == EntryKind::kYesNo ? "No" : "";
    EXPECT_EQ(entry.box.text, empty) << entry.info->text.name;
    EXPECT_TRUE(entry.box.enabled);
  }
  EXPECT_EQ(ShownName(), "");
  EXPECT_TRUE(form_.panel.enabled);
  EXPECT_FALSE(form_.cmdAddNew.enabled);
  EXPECT_EQ(OwnNames(), test::Rows{"-"});
}

TEST_P(SmallEditors, AnEmptyRecordIsNotSaved) {
  Add();
  ExpectTold(editor_.incomplete);
  Save();
  EXPECT_EQ(OwnNames(), test::Rows{"-"});
  EXPECT_EQ(ShownName(), "");
  EXPECT_FALSE(form_.cmdAddNew.enabled);
}

TEST_P(SmallEditors, ACompleteRecordIsSavedAndFound) {
  MakeOwn(1);
  EXPECT_EQ(OwnNames(), test::Rows{OwnName(1)});
  EXPECT_TRUE(form_.cmdAddNew.enabled);
  EXPECT_EQ(ShownName(), OwnName(1));
  Pick(Finder(), editor_.first_name);
  EXPECT_FALSE(form_.panel.enabled);
  Pick(Finder(), OwnName(1));
  EXPECT_EQ(ShownName(), OwnName(1));
  EXPECT_TRUE(form_.panel.enabled);
}

TEST_P(SmallEditors, OnDemandAnotherRecordIsAddedAtOnce) {
  Add();
  Fill(1);
  SaveAdded(Answer::kYes);
  EXPECT_EQ(ShownName(), "");
  EXPECT_FALSE(form_.cmdAddNew.enabled);
  EXPECT_EQ(OwnNames(), (test::Rows{OwnName(1), "-"}));
}

TEST_P(SmallEditors, ASecondSaveAsksForNoOther) {
  MakeOwn(1);
  Save();
  EXPECT_EQ(OwnNames(), test::Rows{OwnName(1)});
}

TEST_P(SmallEditors, AddingSavesTheChangedRecordFirst) {
  MakeOwn(1);
  Fill(2);
  Add();
  EXPECT_EQ(OwnNames(), (test::Rows{OwnName(2), "-"}));
}

TEST_P(SmallEditors, ARefusedRecordStopsAdding) {
  Add();
  ExpectTold(editor_.incomplete);
  Add();
  EXPECT_EQ(OwnNames(), test::Rows{"-"});
}

TEST_P(SmallEditors, ARefusedRecordStaysWhenAnotherOneIsPicked) {
  Add();
  const auto before = form_.Counter;
  ExpectTold(editor_.incomplete);
  Pick(Finder(), editor_.first_name);
  EXPECT_EQ(form_.Counter, before);
  EXPECT_EQ(ShownName(), "");
}

TEST_P(SmallEditors, PickingAnotherRecordSavesTheChangedOne) {
  MakeOwn(1);
  Fill(2);
  Pick(Finder(), editor_.first_name);
  EXPECT_EQ(OwnNames(), test::Rows{OwnName(2)});
  EXPECT_EQ(ShownName(), editor_.first_name);
}

TEST_P(SmallEditors, TheSecondRecordOfANameIsRefused) {
  MakeOwn(1);
  Add();
  Fill(1);
  ExpectTold(editor_.duplicate);
  Save();
  EXPECT_EQ(OwnNames(), (test::Rows{OwnName(1), "-"}));
  EXPECT_FALSE(form_.cmdAddNew.enabled);
}

TEST_P(SmallEditors, DeletingAsksAndLeadsToTheFirstRecord) {
  MakeOwn(1);
  Delete(Answer::kCancel);
  EXPECT_EQ(ShownName(), OwnName(1));
  Delete();
  EXPECT_EQ(OwnNames(), test::Rows{});
  EXPECT_EQ(ShownName(), editor_.first_name);
  EXPECT_FALSE(form_.panel.enabled);
  EXPECT_EQ(std::ranges::count(Items(Finder()), OwnName(1)), 0);
}

TEST_P(SmallEditors, ARecordThatIsBeingAddedCanBeDeleted) {
  Add();
  Delete();
  EXPECT_EQ(OwnNames(), test::Rows{});
  EXPECT_TRUE(form_.cmdAddNew.enabled);
}

TEST_P(SmallEditors, ClosingSavesAnAddedRecordWithoutAQuestion) {
  Add();
  Fill(1);
  Close();
  EXPECT_TRUE(form_.window.closed);
  EXPECT_EQ(OwnNames(), test::Rows{OwnName(1)});
}

TEST_P(SmallEditors, AnIncompleteAddedRecordKeepsTheWindowOpen) {
  Add();
  ExpectTold(editor_.incomplete);
  Close();
  EXPECT_FALSE(form_.window.closed);
}

TEST_P(SmallEditors, ClosingAsksForAnyOtherOwnRecordEvenIfNothingChanged) {
  MakeOwn(1);
  ExpectSaveQuestion(Answer::kYes);
  Close();
  EXPECT_TRUE(form_.window.closed);
}

TEST_P(SmallEditors, ClosingSavesOnYesAndDiscardsOnNo) {
  for (const auto answer : {Answer::kNo, Answer::kYes}) {
    SCOPED_TRACE(answer == Answer::kYes ? "Yes" : "No");
    MakeOwn(1);
    Fill(2);
    ExpectSaveQuestion(answer);
    Close();
    EXPECT_TRUE(form_.window.closed);
    EXPECT_EQ(OwnNames(), test::Rows{OwnName(answer == Answer::kYes ? 2 : 1)});
    form_ = {};
    Open(editor_.open);
    Pick(Finder(), OwnName(answer == Answer::kYes ? 2 : 1));
    Delete();
  }
}

TEST_P(SmallEditors, ARefusedSaveKeepsTheWindowOpen) {
  MakeOwn(1);
  MakeOwn(2);
  Fill(1);
  ExpectSaveQuestion(Answer::kYes);
  ExpectTold(editor_.duplicate);
  Close();
  EXPECT_FALSE(form_.window.closed);
  EXPECT_EQ(OwnNames(), (test::Rows{OwnName(1), OwnName(2)}));
}

TEST_P(SmallEditors, WhatIsNoNumberIsRefusedAndBecomesZero) {
  MakeOwn(1);
  for (const auto& entry : form_.entries) {
    if (!IsNumber(*entry.info) || !entry.box.visible) continue;
    const auto control = std::string(entry.info->text.name);
    for (const auto* text : {"", " ", "ten", "1,5", "1e999", "nan", "0x10", "5 ft", "--3", "\x01"}) {
      SCOPED_TRACE(control + ": " + text);
      ExpectRefused("Please enter a number.");
      Type(control, text);
      EXPECT_EQ(At(form_, control).held, "0");
      EXPECT_EQ(form_.window.focus, control);
      form_.window.focus = {};
    }
  }
}

TEST_P(SmallEditors, NumbersAreTakenWithCommasBlanksAndExponentsAndStored) {
  MakeOwn(1);
  for (const auto& entry : form_.entries) {
    if (!IsNumber(*entry.info) || !entry.box.visible) continue;
    const auto control = std::string(entry.info->text.name), field = std::string(entry.info->field);
    for (const auto& [text, stored] :
         {std::pair{"1,234.5", "1234.5"}, {" 17 ", "17"}, {"2e2", "200"}, {"0.125", "0.125"}}) {
      Type(control, text);
      Save();
      EXPECT_EQ(Numbers(field), test::Rows{stored}) << control << ": " << text;
    }
  }
}

TEST_P(SmallEditors, NumbersThatNobodyTypedAreStoredAsZeroForTheCalculations) {
  MakeOwn(1);
  for (const auto& entry : form_.entries) {
    if (!IsNumber(*entry.info)) continue;
    EXPECT_NE(Numbers(std::string(entry.info->field)), test::Rows{"-"}) << entry.info->field;
  }
}

TEST_P(SmallEditors, TextsOfAllKindsAreKeptAsTheyAre) {
  MakeOwn(1);
  for (const auto& entry : form_.entries) {
    if (entry.info->kind != EntryKind::kText) continue;
    const auto control = std::string(entry.info->text.name), field = std::string(entry.info->field);
    for (const auto* text : {"O'Brien", "6\" pipe", "50% *?[a]", "'; DROP TABLE fitting; --", "Öl für Köln",
                             "<b>&amp;</b>", "-1", " blanks "}) {
      Type(control, text);
      Save();
      EXPECT_EQ(Numbers(field), test::Rows{text}) << control;
      EXPECT_EQ(Shown(control), text);
    }
  }
}

TEST_P(SmallEditors, TextsThatATableCannotHoldAreRefused) {
  MakeOwn(1);
  for (const auto& entry : form_.entries) {
    if (entry.info->kind != EntryKind::kText && entry.info->kind != EntryKind::kName) continue;
    const auto control = std::string(entry.info->text.name), before = Shown(control);
    const auto width = store::FindField(store::FindTable(editor_.table), entry.info->field).width;
    Type(control, std::string(static_cast<std::size_t>(width) + 1, 'x'));
    ExpectRefused(fmt::format("Please enter no more than {} characters.", width));
    Save();
    EXPECT_EQ(form_.window.focus, control);
    Type(control, "a\tb");
    ExpectRefused("Please enter a text without control characters.");
    Save();
    Type(control, before);
  }
  EXPECT_EQ(OwnNames(), test::Rows{OwnName(1)});
}

TEST_P(SmallEditors, WhatAKilledProgramLeftEmptyIsGoneAtTheNextOpening) {
  Add();
  form_ = {};
  Open(editor_.open);
  EXPECT_EQ(OwnNames(), test::Rows{});
}

TEST_P(SmallEditors, AnEmptyTableOpensWithEmptyEntries) {
  session_.ReferenceDb->Execute(fmt::format("DELETE * FROM {}", editor_.table));
  form_ = {};
  Open(editor_.open);
  EXPECT_EQ(ShownName(), "");
  EXPECT_FALSE(form_.panel.enabled);
  EXPECT_EQ(Items(Finder()), std::vector<std::string>());
  MakeOwn(1);
  Delete();
  EXPECT_EQ(ShownName(), "");
  Close();
  EXPECT_TRUE(form_.window.closed);
}

TEST_P(SmallEditors, HelpIsAtHand) {
  ClickHelp(session_, form_);
  EXPECT_EQ(host_.help, std::vector<std::string>{std::string(form_.info->window.topic)});
}

TEST_P(SmallEditors, AFailureIsReportedUnderTheEditorsName) {
  MakeOwn(1);
  Fill(2);
  session_.ReferenceDb->DeleteTable(editor_.table);
  host_.ExpectError(3011, std::string(form_.info->save_label));
  Save();
}

INSTANTIATE_TEST_SUITE_P(Each, SmallEditors,
                         testing::Values(test::kFittingEditor, test::kRimSealEditor, test::kDeckSeamEditor),
                         [](const auto& editor) { return std::string(editor.param.name); });

}  // namespace
}  // namespace orvex::refdata
