#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QTest>
#include <memory>

#include "shell/status.h"
#include "windows/desktop_fixture.h"
#include "windows/pages.h"
#include "windows/person.h"
#include "windows/probe_dialog.h"

namespace orvex::test {
namespace {

using Log = std::vector<std::string>;

class EntryMechanism : public DesktopTest {
 protected:
  void Open() {
    window_ = std::make_unique<ProbeDialog>(windows::ViewPlace{session_, &host_.Main(), nullptr}, probe_);
    window_->Prepare();
    window_->show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    Widget("txtFirst").setFocus();
    QCoreApplication::processEvents();
    probe_.log.clear();
  }

  QWidget& Widget(const char* name) { return Find<QWidget>(*window_, QLatin1String(name)); }

  /// A key to what the keyboard belongs to: a list that is dropped down, or what has the focus.
  void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
    auto* popup = QApplication::activePopupWidget();
    QTest::keyClick(popup == nullptr ? window_->focusWidget() : popup, key, with);
    QCoreApplication::processEvents();
  }
  void TypeHere(const QString& text) {
    QTest::keyClicks(window_->focusWidget(), text);
    QCoreApplication::processEvents();
  }
  void PressAccessKey(Qt::Key key) {
    QTest::keyClick(window_.get(), key, Qt::AltModifier);
    // A button that is pressed by its key stays down for a moment.
    QTest::qWait(200);
  }

  /// The first line is refused whenever it is left.
  void RefuseFirst() {
    probe_.on_leaving_first = [this] {
      shell::Tell(host_, "Please enter a number.", shell::Icon::kExclamation);
      probe_.window.focus = "txtFirst";
    };
    person_.Answer(QStringLiteral("Please enter a number."), QStringLiteral("OK"));
  }

  /// Every city of the delivered weather.
  void FillCities() {
    auto cities = session_.ReferenceDb->OpenTable("met");
    for (; !cities.AtEnd(); cities.MoveNext()) probe_.cboCity.items.push_back(cities.TextOrEmpty("CTYST"));
    ASSERT_GT(probe_.cboCity.items.size(), 200U);
    probe_.cboCity.text = probe_.cboCity.items.front();
  }
  void GoToCity() {
    Widget("cboCity").setFocus(Qt::TabFocusReason);
    QCoreApplication::processEvents();
    probe_.log.clear();
  }

  Probe probe_;
  std::unique_ptr<ProbeDialog> window_;
  Person person_;
};

TEST_F(EntryMechanism, EntryIsLeftBeforeTheNextOneIsEntered) {
  Open();
  Press(Qt::Key_Tab);
  EXPECT_EQ(probe_.log, (Log{"leave first", "enter second"}));
}

TEST_F(EntryMechanism, TypedTextStandsInTheModelWhenItsRuleRuns) {
  std::string seen;
  probe_.on_typing_second = [&] { seen = probe_.txtSecond.text; };
  Open();
  Press(Qt::Key_Tab);
  TypeHere(QStringLiteral("12"));
  EXPECT_EQ(seen, "12");
}

TEST_F(EntryMechanism, RefusedEntryGetsTheFocusBackAndTheNextOneIsNotEntered) {
  RefuseFirst();
  Open();
  Press(Qt::Key_Tab);
  EXPECT_EQ(probe_.log, Log{"leave first"});
  EXPECT_EQ(window_->focusWidget(), &Widget("txtFirst"));
}

TEST_F(EntryMechanism, ClickOnAButtonLeavesTheEntryFirst) {
  Open();
  Click(Widget("cmdGo"));
  QCoreApplication::processEvents();
  EXPECT_EQ(probe_.log, (Log{"leave first", "go"}));
}

TEST_F(EntryMechanism, CommandBehindARefusedEntryIsNotRun) {
  RefuseFirst();
  Open();
  Click(Widget("cmdGo"));
  QCoreApplication::processEvents();
  EXPECT_EQ(probe_.log, Log{"leave first"});
  EXPECT_EQ(window_->focusWidget(), &Widget("txtFirst"));
}

TEST_F(EntryMechanism, AccessKeyOfAButtonLeavesTheEntryFirst) {
  Open();
  PressAccessKey(Qt::Key_G);
  EXPECT_EQ(probe_.log, (Log{"leave first", "go"}));
}

TEST_F(EntryMechanism, AccessKeyBehindARefusedEntryRunsNothing) {
  RefuseFirst();
  Open();
  PressAccessKey(Qt::Key_G);
  EXPECT_EQ(probe_.log, Log{"leave first"});
  EXPECT_EQ(window_->focusWidget(), &Widget("txtFirst"));
}

TEST_F(EntryMechanism, EscapeBehindARefusedEntryClosesNothing) {
  RefuseFirst();
  Open();
  Press(Qt::Key_Escape);
  EXPECT_TRUE(window_->isVisible());
}

TEST_F(EntryMechanism, RefusedEntryIsLeftOnceItsTextIsRight) {
  bool is_right = false;
  probe_.on_leaving_first = [&] {
    if (!is_right) probe_.window.focus = "txtFirst";
  };
  Open();
  Press(Qt::Key_Tab);
  is_right = true;
  TypeHere(QStringLiteral("1"));
  Press(Qt::Key_Tab);
  EXPECT_EQ(probe_.log, (Log{"leave first", "type first", "leave first", "enter second"}));
}

TEST_F(EntryMechanism, MessageBoxIsNoLeaving) {
  probe_.on_typing_second = [&] { shell::Tell(host_, "Typed.", shell::Icon::kInformation); };
  Open();
  Press(Qt::Key_Tab);
  probe_.log.clear();
  person_.Answer(QStringLiteral("Typed."), QStringLiteral("OK"));
  TypeHere(QStringLiteral("1"));
  QTest::qWait(50);
  EXPECT_EQ(probe_.log, Log{"type second"});
  EXPECT_EQ(window_->focusWidget(), &Widget("txtSecond"));
}

TEST_F(EntryMechanism, RulesThatAskNeverRunInsideEachOther) {
  int running = 0;
  probe_.on_typing_second = [&] {
    EXPECT_EQ(++running, 1);
    shell::Tell(host_, "Typed.", shell::Icon::kInformation);
    --running;
  };
  Open();
  Press(Qt::Key_Tab);
  person_.Answer(QStringLiteral("Typed."), QStringLiteral("OK"));
  person_.Answer(QStringLiteral("Typed."), QStringLiteral("OK"));
  TypeHere(QStringLiteral("12"));
  QTest::qWait(50);
  EXPECT_TRUE(person_.IsDone());
}

TEST_F(EntryMechanism, EnterAndDoubleClickActivateAnEntryAndPressNoButton) {
  Open();
  Press(Qt::Key_Return);
  QTest::mouseDClick(&Widget("txtFirst"), Qt::LeftButton);
  QCoreApplication::processEvents();
  EXPECT_EQ(probe_.log, (Log{"activate first", "activate first"}));
}

TEST_F(EntryMechanism, CityIsFoundByAPartOfItsName) {
  FillCities();
  Open();
  GoToCity();
  TypeHere(QStringLiteral("houst"));
  Press(Qt::Key_Return);
  EXPECT_EQ(probe_.cboCity.text, "Houston, Texas");
  EXPECT_EQ(probe_.log, (Log{"open city", "choose city"}));
}

TEST_F(EntryMechanism, CityIsChosenAmongThoseFound) {
  FillCities();
  Open();
  GoToCity();
  TypeHere(QStringLiteral("port"));
  auto* matches = Find<QComboBox>(*window_, QStringLiteral("cboCity")).completer()->popup();
  ASSERT_TRUE(matches->isVisible());
  const auto second = matches->model()->index(1, 0).data().toString().toStdString();
  for (const auto key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) Press(key);
  EXPECT_EQ(probe_.cboCity.text, second);
  EXPECT_EQ(probe_.log, (Log{"open city", "choose city"}));
}

TEST_F(EntryMechanism, WholeNameTypedIsChosenWhenTheBoxIsLeft) {
  FillCities();
  Open();
  GoToCity();
  TypeHere(QStringLiteral("houston, texas"));
  Press(Qt::Key_Tab);
  EXPECT_EQ(probe_.cboCity.text, "Houston, Texas");
  EXPECT_EQ(probe_.log, (Log{"open city", "choose city", "leave city", "enter name"}));
}

TEST_F(EntryMechanism, TextThatIsNoCityGivesWayToTheCityChosenBefore) {
  FillCities();
  Open();
  GoToCity();
  const auto before = probe_.cboCity.text;
  TypeHere(QStringLiteral("no such city"));
  EXPECT_EQ(probe_.cboCity.text, before);
  Press(Qt::Key_Tab);
  EXPECT_EQ(Find<QComboBox>(*window_, QStringLiteral("cboCity")).currentText().toStdString(), before);
  EXPECT_EQ(probe_.log, (Log{"open city", "leave city", "enter name"}));
}

TEST_F(EntryMechanism, BoxIsLeftAfterACityIsFound) {
  FillCities();
  Open();
  GoToCity();
  TypeHere(QStringLiteral("houst"));
  Press(Qt::Key_Return);
  Press(Qt::Key_Tab);
  EXPECT_EQ(probe_.log, (Log{"open city", "choose city", "leave city", "enter name"}));
}

TEST_F(EntryMechanism, EscapeGivesUpLookingForACityBeforeItClosesTheWindow) {
  FillCities();
  Open();
  GoToCity();
  const auto before = probe_.cboCity.text;
  TypeHere(QStringLiteral("houst"));
  Press(Qt::Key_Escape);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(Find<QComboBox>(*window_, QStringLiteral("cboCity")).currentText().toStdString(), before);
  Press(Qt::Key_Escape);
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(EntryMechanism, ListIsFilledBeforeItDropsDownAndThatIsNoLeaving) {
  probe_.on_opening_name = [&] { probe_.cboName.items = {"Benzene", "Toluene"}; };
  Open();
  Widget("cboName").setFocus(Qt::TabFocusReason);
  QCoreApplication::processEvents();
  probe_.log.clear();
  Press(Qt::Key_Down);
  auto& box = Find<QComboBox>(*window_, QStringLiteral("cboName"));
  ASSERT_TRUE(box.view()->isVisible());
  EXPECT_EQ(box.count(), 2);
  QTest::keyClick(box.view(), Qt::Key_Down);
  QTest::keyClick(box.view(), Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(probe_.log, (Log{"open name", "choose name"}));
  EXPECT_FALSE(probe_.cboName.text.empty());
}

TEST_F(EntryMechanism, NameOfOnesOwnIsTakenAsItIsTyped) {
  probe_.cboName.items = {"Benzene", "Toluene"};
  Open();
  Widget("cboName").setFocus(Qt::TabFocusReason);
  QCoreApplication::processEvents();
  probe_.log.clear();
  TypeHere(QStringLiteral("enz"));
  EXPECT_EQ(probe_.cboName.text, "enz");
  Press(Qt::Key_Return);
  Press(Qt::Key_Tab);
  EXPECT_EQ(probe_.cboName.text, "enz");
  EXPECT_EQ(probe_.log, (Log{"type name", "type name", "type name", "leave name"}));
}

TEST_F(EntryMechanism, ItemThatIsTypedWholeIsTypedAndNotChosen) {
  probe_.cboName.items = {"Benzene", "Toluene"};
  Open();
  Widget("cboName").setFocus(Qt::TabFocusReason);
  QCoreApplication::processEvents();
  TypeHere(QStringLiteral("benzene"));
  probe_.log.clear();
  Press(Qt::Key_Tab);
  EXPECT_EQ(probe_.cboName.text, "benzene");
  EXPECT_EQ(probe_.log, Log{"leave name"});
}

}  // namespace
}  // namespace orvex::test
