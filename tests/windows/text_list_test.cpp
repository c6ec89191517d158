#include "windows/text_list.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QListView>
#include <QSignalSpy>
#include <QTest>

namespace orvex::test {
namespace {

using windows::TextList;

class TextListTest : public testing::Test {
 protected:
  TextListTest() {
    record_.items = {"North 1", "South 1", "North 2", "South 2"};
    list_.Draw(record_);
    list_.show();
  }
  [[nodiscard]] QAbstractItemModel& Rows() const { return *list_.View()->model(); }
  [[nodiscard]] std::string RowText(int row) const { return Rows().index(row, 0).data().toString().toStdString(); }

  shell::ListBox record_;
  TextList list_{QStringLiteral("lstTanks"), TextList::Choice::kAny, TextList::Find::kYes, nullptr};
};

TEST_F(TextListTest, LineFindsInsideNamesInAnyLetterCase) {
  list_.FindLine()->setText(QStringLiteral("OUTH"));
  ASSERT_EQ(Rows().rowCount(), 2);
  EXPECT_EQ(RowText(0), "South 1");
  EXPECT_EQ(RowText(1), "South 2");
}

TEST_F(TextListTest, LettersTypedInTheListGoToTheLine) {
  list_.View()->setFocus();
  QTest::keyClick(list_.View(), Qt::Key_2, Qt::NoModifier);
  EXPECT_EQ(list_.FindLine()->text(), QStringLiteral("2"));
  EXPECT_EQ(Rows().rowCount(), 2);
}

TEST_F(TextListTest, SelectionIsToldInPositionsOfTheWholeList) {
  list_.FindLine()->setText(QStringLiteral("south"));
  list_.View()->selectAll();
  EXPECT_EQ(list_.Selected(), (std::vector<std::size_t>{1, 3}));
}

TEST_F(TextListTest, WhatTheLineHidesIsNoLongerSelected) {
  list_.View()->selectAll();
  const QSignalSpy told(&list_, &TextList::SelectionChanged);
  list_.FindLine()->setText(QStringLiteral("north"));
  EXPECT_EQ(list_.Selected(), (std::vector<std::size_t>{0, 2}));
  EXPECT_EQ(told.count(), 1);
}

TEST_F(TextListTest, FirstMatchIsSelectedWhereOneIsAlwaysSelected) {
  TextList list(QStringLiteral("dblstTanks"), TextList::Choice::kOne, TextList::Find::kYes, nullptr);
  record_.selected = {0};
  list.Draw(record_);
  const QSignalSpy picked(&list, &TextList::Picked);
  list.FindLine()->setText(QStringLiteral("south"));
  EXPECT_EQ(list.Selected(), (std::vector<std::size_t>{1}));
  EXPECT_EQ(picked.count(), 1);
}

TEST_F(TextListTest, NothingIsSelectedWhereNothingIsFound) {
  TextList list(QStringLiteral("dblstTanks"), TextList::Choice::kOne, TextList::Find::kYes, nullptr);
  record_.selected = {0};
  list.Draw(record_);
  const QSignalSpy told(&list, &TextList::SelectionChanged);
  list.FindLine()->setText(QStringLiteral("east"));
  EXPECT_TRUE(list.Selected().empty());
  EXPECT_EQ(told.count(), 1);
}

TEST_F(TextListTest, ClickWithCtrlLeavesOneSelectedWhereOneAlwaysIs) {
  TextList list(QStringLiteral("lstTankTypes"), TextList::Choice::kOne, TextList::Find::kNo, nullptr);
  record_.selected = {1};
  list.Draw(record_);
  list.show();
  const QSignalSpy told(&list, &TextList::SelectionChanged);
  const auto place = list.View()->visualRect(list.View()->model()->index(1, 0)).center();
  QTest::mouseClick(list.View()->viewport(), Qt::LeftButton, Qt::ControlModifier, place);
  EXPECT_EQ(list.Selected(), (std::vector<std::size_t>{1}));
  EXPECT_EQ(told.count(), 0);
}

TEST_F(TextListTest, DrawingTellsNothingAndKeepsTheSelectionOfTheRecord) {
  const QSignalSpy told(&list_, &TextList::SelectionChanged);
  record_.selected = {0, 1, 3};
  list_.Draw(record_);
  EXPECT_EQ(list_.Selected(), record_.selected);
  EXPECT_EQ(told.count(), 0);
}

TEST_F(TextListTest, ControlCharactersOfANameAreBlanks) {
  record_.items = {"one\ntwo\x01three"};
  list_.Draw(record_);
  EXPECT_EQ(RowText(0), "one two three");
}

TEST_F(TextListTest, TwentyThousandTanksAreSelectedAndFiltered) {
  record_.items.clear();
  for (int i = 0; i < 20000; ++i) record_.items.push_back("Tank " + std::to_string(i));
  list_.Draw(record_);
  list_.View()->selectAll();
  EXPECT_EQ(list_.Selected().size(), 20000U);
  list_.FindLine()->setText(QStringLiteral("k 1999"));
  // 1999 and 19990 to 19999.
  EXPECT_EQ(list_.Selected().size(), 11U);
}

}  // namespace
}  // namespace orvex::test
