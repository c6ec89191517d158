#include "windows/choice_box.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <string>
#include <vector>

namespace orvex::test {
namespace {

using windows::ChoiceBox;
using Log = std::vector<std::string>;

/// A box of names beside a line, drawn anew with each thing that it tells, as its window does.
class NameBox : public testing::Test {
 protected:
  NameBox() {
    auto* column = new QVBoxLayout(&window_);
    column->addWidget(box_);
    column->addWidget(line_);
    QObject::connect(box_, &ChoiceBox::Chosen, [this](int item) {
      record_.text = record_.items[static_cast<std::size_t>(item)];
      Note("chosen " + record_.text);
    });
    QObject::connect(box_, &ChoiceBox::Typed, [this](const QString& text) {
      record_.text = text.toStdString();
      Note("typed " + record_.text);
    });
    QObject::connect(box_, &ChoiceBox::Opening, box_, &ChoiceBox::Opened);
    box_->Draw(record_);
    window_.show();
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
  }

  void Type(const QString& text) {
    QTest::keyClicks(box_, text);
    QCoreApplication::processEvents();
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
    auto* popup = QApplication::activePopupWidget();
    QTest::keyClick(popup == nullptr ? static_cast<QWidget*>(box_) : popup, key, with);
    QCoreApplication::processEvents();
  }
  [[nodiscard]] QAbstractItemView& Matches() const { return *box_->completer()->popup(); }
  [[nodiscard]] std::string Text() const { return box_->currentText().toStdString(); }
  /// What was told, but letter by letter.
  [[nodiscard]] Log Told() const {
    Log told;
    for (const auto& line : log_)
      if (!line.starts_with("typed ")) told.push_back(line);
    return told;
  }

  shell::ComboBox record_{.items = {"Acetone", "Benzene", "Ethylbenzene", "Toluene"}, .text = "Toluene"};
  Log log_;
  QWidget window_;
  ChoiceBox* box_ = new ChoiceBox(ChoiceBox::Typing::kNames, &window_);
  QLineEdit* line_ = new QLineEdit(&window_);

 private:
  void Note(const std::string& line) {
    log_.push_back(line);
    box_->Draw(record_);
  }
};

TEST_F(NameBox, TypedNameOfAnotherItemStandsForItself) {
  Type(QStringLiteral("benzene"));
  Press(Qt::Key_Tab);
  EXPECT_TRUE(line_->hasFocus());
  EXPECT_EQ(record_.text, "benzene");
  EXPECT_EQ(Text(), "benzene");
  EXPECT_EQ(Told(), Log());
}

TEST_F(NameBox, TypedNameThatIsAnItemLetterForLetterStandsForItself) {
  Type(QStringLiteral("Benzene"));
  Press(Qt::Key_Tab);
  EXPECT_EQ(record_.text, "Benzene");
  EXPECT_EQ(Told(), Log());
}

TEST_F(NameBox, EnterBehindATypedNameChoosesNothing) {
  Type(QStringLiteral("Benzene"));
  Press(Qt::Key_Return);
  EXPECT_EQ(record_.text, "Benzene");
  EXPECT_EQ(Told(), Log());
}

TEST_F(NameBox, OfferedNameIsPickedByArrowAndEnter) {
  Type(QStringLiteral("enz"));
  ASSERT_TRUE(Matches().isVisible());
  for (const auto key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) Press(key);
  EXPECT_EQ(Told(), Log{"chosen Ethylbenzene"});
  EXPECT_EQ(Text(), "Ethylbenzene");
}

TEST_F(NameBox, OfferedNameIsPickedByTheMouse) {
  Type(QStringLiteral("enz"));
  ASSERT_TRUE(Matches().isVisible());
  const auto row = Matches().visualRect(Matches().model()->index(0, 0));
  QTest::mouseClick(Matches().viewport(), Qt::LeftButton, {}, row.center());
  QCoreApplication::processEvents();
  EXPECT_EQ(Told(), Log{"chosen Benzene"});
}

TEST_F(NameBox, NameIsPickedFromTheListThatDropsDown) {
  Press(Qt::Key_Down, Qt::AltModifier);
  ASSERT_TRUE(box_->view()->isVisible());
  QTest::keyClick(box_->view(), Qt::Key_Up);
  QTest::keyClick(box_->view(), Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(log_, Log{"chosen Ethylbenzene"});
}

TEST_F(NameBox, WhatWasTypedToComeToAnotherNameIsTakenBackBeforeThatIsPicked) {
  Type(QStringLiteral("enz"));
  for (const auto key : {Qt::Key_Down, Qt::Key_Return}) Press(key);
  EXPECT_EQ(log_, (Log{"typed e", "typed en", "typed enz", "typed Toluene", "chosen Benzene"}));
}

TEST_F(NameBox, NameThatWasTypedAndLeftStaysWhenAnotherOneIsPicked) {
  Type(QStringLiteral("Solvent"));
  Press(Qt::Key_Tab);
  box_->setFocus(Qt::TabFocusReason);
  Type(QStringLiteral("enz"));
  for (const auto key : {Qt::Key_Down, Qt::Key_Return}) Press(key);
  ASSERT_GE(log_.size(), 2U);
  EXPECT_EQ((Log{log_.end() - 2, log_.end()}), (Log{"typed Solvent", "chosen Benzene"}));
}

TEST_F(NameBox, OfferedNameThatWasOnlyPassedGivesWayToTheTypedOne) {
  Type(QStringLiteral("enz"));
  Press(Qt::Key_Down);
  EXPECT_EQ(Text(), "Benzene");
  Press(Qt::Key_Tab);
  EXPECT_EQ(record_.text, "enz");
  EXPECT_EQ(Text(), "enz");
  EXPECT_EQ(Told(), Log());
}

TEST_F(NameBox, EscapeAmongTheOfferedNamesGoesBackToTheTypedOne) {
  Type(QStringLiteral("enz"));
  Press(Qt::Key_Down);
  Press(Qt::Key_Escape);
  EXPECT_FALSE(Matches().isVisible());
  EXPECT_EQ(Text(), "enz");
  EXPECT_EQ(Told(), Log());
}

TEST_F(NameBox, NextNameIsLookedForRightBehindTheOneThatWasPicked) {
  box_->SetTyping(ChoiceBox::Typing::kFinds);
  for (const auto* part : {"ethyl", "acet"}) {
    Type(QLatin1String(part));
    Press(Qt::Key_Return);
  }
  EXPECT_EQ(log_, (Log{"chosen Ethylbenzene", "chosen Acetone"}));
}

TEST_F(NameBox, WindowThatOpensOnTheBoxHasItsTextReadyToBeTypedOver) {
  EXPECT_TRUE(box_->hasFocus());
  EXPECT_EQ(box_->lineEdit()->selectedText().toStdString(), "Toluene");
}

TEST_F(NameBox, SameLettersFindWhereTheRecordIsNotOnesOwn) {
  box_->SetTyping(ChoiceBox::Typing::kFinds);
  Type(QStringLiteral("benz"));
  Press(Qt::Key_Return);
  EXPECT_EQ(log_, Log{"chosen Benzene"});
}

TEST_F(NameBox, NameTypedInFullIsFoundThoughOthersThatHoldItStandBeforeIt) {
  record_.items = {"Chlorotoluene", "TOLUENE", "Toluene"};
  record_.text = "Chlorotoluene";
  box_->Draw(record_);
  box_->SetTyping(ChoiceBox::Typing::kFinds);
  for (const auto* name : {"Toluene", "toluene"}) {
    box_->lineEdit()->selectAll();
    Type(QLatin1String(name));
    ASSERT_TRUE(Matches().isVisible());
    Press(Qt::Key_Return);
  }
  EXPECT_EQ(log_, (Log{"chosen Toluene", "chosen TOLUENE"}));
  box_->lineEdit()->selectAll();
  Type(QStringLiteral("Toluene"));
  Matches().hide();
  Press(Qt::Key_Tab);
  EXPECT_EQ(log_.back(), "chosen Toluene");
}

TEST_F(NameBox, WhatWasLookedForIsGivenUpWhereTheRecordBecomesOnesOwn) {
  box_->SetTyping(ChoiceBox::Typing::kFinds);
  Type(QStringLiteral("no such name"));
  box_->SetTyping(ChoiceBox::Typing::kNames);
  EXPECT_EQ(Text(), "Toluene");
  Press(Qt::Key_Tab);
  EXPECT_EQ(record_.text, "Toluene");
  EXPECT_EQ(log_, Log());
}

}  // namespace
}  // namespace orvex::test
