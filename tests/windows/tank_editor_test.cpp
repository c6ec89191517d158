#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTabBar>
#include <QTest>
#include <QTextBrowser>
#include <QUrl>
#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <tuple>

#include "entry/entry_events.h"
#include "entry/frmtank_text.h"
#include "shell/tank_types.h"
#include "windows/desktop_fixture.h"
#include "windows/display_text.h"
#include "windows/open_tank.h"
#include "windows/person.h"
#include "windows/window_checks.h"
#include "windows/window_table.h"

namespace orvex::test {
namespace {

constexpr QSize kSmallScreen(1024 - 16, 768 - 48);
constexpr std::string_view kTypes[] = {shell::kVerticalFixedRoof, shell::kHorizontal, shell::kInternalFloatingRoof,
                                       shell::kExternalFloatingRoof, shell::kDomedExternalFloatingRoof};

class TankWindow : public DesktopTest {
 protected:
  windows::ModelDialog& Open(std::string_view tank_type) {
    form_ = &OpenTank(session_, tank_type);
    window_ = windows::FindWindow("frmTank").make({session_, &host_.Main(), nullptr});
    window_->Prepare();
    window_->show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    QCoreApplication::processEvents();
    return *window_;
  }

  void GoToPage(entry::Page page) {
    Find<QTabBar>(*window_, QStringLiteral("tabPages")).setCurrentIndex(static_cast<int>(page));
    QCoreApplication::processEvents();
    EXPECT_EQ(form_->page, page);
  }

  /// All months in use, so that all of their entries are shown.
  void UseAllMonths() {
    for (auto& month : form_->months) {
      month.chk.checked = true;
      month.txtThru.enabled = true;
      month.cboMix.visible = true;
    }
  }

  entry::FrmTank* form_ = nullptr;
  std::unique_ptr<windows::ModelDialog> window_;
};

/// A type of tank, a page, and the form of the liquid page.
using Sight = std::tuple<std::string_view, entry::Page, std::optional<entry::Section>>;

class TankPages : public TankWindow, public testing::WithParamInterface<Sight> {
 protected:
  windows::ModelDialog& OpenPage() {
    const auto [type, page, form] = GetParam();
    auto& window = Open(type);
    form_->form = form;
    UseAllMonths();
    GoToPage(page);
    return window;
  }
};

TEST_P(TankPages, EveryControlHasANameToBeReadAloudAndATip) { ExpectNamesAndTips(OpenPage()); }
TEST_P(TankPages, NoTwoControlsShareAnAccessKey) { ExpectNoTwoAccessKeys(OpenPage()); }
TEST_P(TankPages, EveryControlIsReachedByTheTabKey) { ExpectReachedByTab(OpenPage()); }
TEST_P(TankPages, NothingIsCutOff) { ExpectWhole(OpenPage()); }

TEST_P(TankPages, FitsASmallScreenWithoutScrolling) {
  auto& window = OpenPage();
  // The screen of the tests is smaller still.
  const auto* area = window.findChild<QScrollArea*>();
  const auto least = area == nullptr ? window.minimumSizeHint() : area->widget()->minimumSizeHint();
  EXPECT_LE(least.width(), kSmallScreen.width());
  EXPECT_LE(least.height(), kSmallScreen.height());
}

std::vector<Sight> Sights() {
  std::vector<Sight> sights;
  for (const auto type : kTypes) {
    for (const auto page : {entry::Page::kIdentification, entry::Page::kPhysical, entry::Page::kSite,
                            entry::Page::kLiquid, entry::Page::kMonthly})
      sights.emplace_back(type, page, std::nullopt);
    for (const auto form : {entry::Section::kSingle, entry::Section::kPartial, entry::Section::kFull})
      sights.emplace_back(type, entry::Page::kLiquid, form);
  }
  return sights;
}

INSTANTIATE_TEST_SUITE_P(, TankPages, testing::ValuesIn(Sights()));

TEST_F(TankWindow, ControlsOfAllTypesTogetherAreThoseOfTheProgram) {
  std::set<std::string> there;
  for (const auto type : kTypes)
    for (const auto* widget : Open(type).findChildren<QWidget*>()) there.insert(widget->objectName().toStdString());
  for (const auto& control : entry::kFrmTankText.controls)
    EXPECT_TRUE(there.contains(std::string(control.name))) << control.name;
}

TEST_F(TankWindow, TitleIsTheTypeOfTheTank) {
  EXPECT_EQ(Open(shell::kHorizontal).windowTitle().toStdString(), shell::kHorizontal);
}

TEST_F(TankWindow, FirstEntryOfThePageGetsTheFocus) {
  EXPECT_EQ(Open(shell::kHorizontal).focusWidget()->objectName(), QStringLiteral("txtUserID"));
  GoToPage(entry::Page::kPhysical);
  EXPECT_EQ(window_->focusWidget()->objectName(), QStringLiteral("txtLengthHT"));
}

TEST_F(TankWindow, PageIsReachedByItsAccessKey) {
  QTest::keyClick(&Open(shell::kHorizontal), Qt::Key_Y, Qt::AltModifier);
  QCoreApplication::processEvents();
  EXPECT_EQ(form_->page, entry::Page::kPhysical);
}

TEST_F(TankWindow, RefusedTextIsToldBesideItsEntryUntilItChanges) {
  auto& window = Open(shell::kHorizontal);
  GoToPage(entry::Page::kSite);
  const QString told = QStringLiteral("Please enter a number.");
  Person person;
  person.Answer(told, QStringLiteral("OK"));
  auto& pressure = Find<QLineEdit>(window, QStringLiteral("txtAtmosPrs"));
  Write(window, QStringLiteral("txtAtmosPrs"), QStringLiteral("much"));
  QTest::keyClick(&pressure, Qt::Key_Tab);
  EXPECT_TRUE(QTest::qWaitFor([&] { return person.IsDone(); }));
  QCoreApplication::processEvents();
  const auto& reason = Find<QLabel>(window, QStringLiteral("txtAtmosPrsRefusal"));
  EXPECT_EQ(window.focusWidget(), &pressure);
  EXPECT_TRUE(reason.isVisible());
  EXPECT_EQ(reason.text(), told);
  EXPECT_TRUE(pressure.accessibleDescription().startsWith(told));
  Write(window, QStringLiteral("txtAtmosPrs"), QStringLiteral("14.7"));
  QCoreApplication::processEvents();
  EXPECT_FALSE(reason.isVisible());
  EXPECT_FALSE(pressure.accessibleDescription().contains(told));
}

TEST_F(TankWindow, EntryRefusedFromAnotherPageIsBroughtIntoSight) {
  Open(shell::kHorizontal);
  GoToPage(entry::Page::kSite);
  Person person;
  person.Answer(QStringLiteral("Please enter a number."), QStringLiteral("OK"));
  Write(*window_, QStringLiteral("txtAtmosPrs"), QStringLiteral("much"));
  Find<QTabBar>(*window_, QStringLiteral("tabPages")).setCurrentIndex(0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return person.IsDone(); }));
  QCoreApplication::processEvents();
  EXPECT_EQ(form_->page, entry::Page::kSite);
  EXPECT_EQ(Find<QTabBar>(*window_, QStringLiteral("tabPages")).currentIndex(), static_cast<int>(form_->page));
  EXPECT_EQ(window_->focusWidget()->objectName(), QStringLiteral("txtAtmosPrs"));
}

/// Whether a window of this name is on the screen.
bool IsOpen(const QString& name) {
  const auto windows = QApplication::topLevelWidgets();
  return std::ranges::any_of(
      windows, [&](const QWidget* window) { return window->objectName() == name && window->isVisible(); });
}

/// The page of the help that is shown, and the place in it.
QString HelpPlace() {
  for (auto* window : QApplication::topLevelWidgets())
    if (window->objectName() == QStringLiteral("help_window") && window->isVisible()) {
      const auto page = window->findChild<QTextBrowser*>()->source();
      return page.fileName() + QLatin1Char('#') + page.fragment();
    }
  return {};
}

TEST_F(TankWindow, F1InAnEntryOpensTheHelpOfItsPageAtTheEntry) {
  session_.help_file = ORVEX_HELP_FILE;
  Open(shell::kHorizontal);
  GoToPage(entry::Page::kPhysical);
  Find<QLineEdit>(*window_, QStringLiteral("txtDiameterHT")).setFocus();
  QCoreApplication::processEvents();
  QTest::keyClick(window_.get(), Qt::Key_F1);
  ASSERT_TRUE(IsOpen(QStringLiteral("help_window")));
  EXPECT_EQ(HelpPlace().toStdString(), "tank_physical.html#txtdiameterht");
}

TEST_F(TankWindow, QuickMenuIsGoneBeforeTheEditorOpens) {
  Person person;
  person.Press(QStringLiteral("frmqmenu"), QStringLiteral("cmdOK"));
  person.In(QStringLiteral("frmTank"), [](QWidget& editor) {
    EXPECT_FALSE(IsOpen(QStringLiteral("frmqmenu")));
    Click(Find<QPushButton>(editor, QStringLiteral("cmdClose")));
  });
  person.Answer(QStringLiteral("Save Changes?"), QStringLiteral("No"));
  host_.ShowWindow("frmqmenu");
  EXPECT_TRUE(person.IsDone());
}

}  // namespace
}  // namespace orvex::test
