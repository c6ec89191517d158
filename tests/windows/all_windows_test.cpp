#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QTest>
#include <QToolButton>

#include "entry/frmtank_text.h"
#include "shell/command.h"
#include "shell/menu.h"
#include "shell/tank_types.h"
#include "windows/desktop_fixture.h"
#include "windows/display_text.h"
#include "windows/elided_label.h"
#include "windows/open_tank.h"
#include "windows/person.h"
#include "windows/window_checks.h"
#include "windows/window_table.h"

namespace orvex::test {
namespace {

/// Every window in turn, as it opens over the sample inventory.
class AllWindows : public DesktopTest, public testing::WithParamInterface<const windows::WindowEntry*> {
 protected:
  std::unique_ptr<windows::ModelDialog> Open() {
    if (GetParam()->needs_tank) OpenTank(session_, shell::kInternalFloatingRoof);
    if (GetParam()->text.name == "frmrepselect") session_.PrintMode = "Chemical";
    session_.ExportTable = "profile components";
    session_.ExportTarget = (folder_.Path() / "a folder of some length" / "reference tables.xls").string();
    auto window = GetParam()->make({session_, &host_.Main(), nullptr});
    window->Prepare();
    window->show();
    QCoreApplication::processEvents();
    return window;
  }
};

TEST_P(AllWindows, TitleAndControlsAreThoseOfTheProgram) {
  const auto window = Open();
  const auto& text = GetParam()->text;
  EXPECT_EQ(window->objectName().toStdString(), text.name);
  EXPECT_EQ(window->windowTitle().toStdString(), text.title);
  for (const auto& control : text.controls)
    EXPECT_NE(window->findChild<QWidget*>(windows::Shown(control.name)), nullptr) << control.name;
}

TEST_P(AllWindows, EveryControlHasANameToBeReadAloudAndATip) { ExpectNamesAndTips(*Open()); }

TEST_P(AllWindows, NoTwoControlsShareAnAccessKey) { ExpectNoTwoAccessKeys(*Open()); }

TEST_P(AllWindows, EveryControlIsReachedByTheTabKey) { ExpectReachedByTab(*Open()); }

TEST_P(AllWindows, NothingIsCutOff) { ExpectWhole(*Open()); }

/// Letters of twice the usual size, as long as it lives.
class LargeLetters {
 public:
  LargeLetters() {
    auto large = usual_;
    large.setPointSizeF(usual_.pointSizeF() * 2);
    QApplication::setFont(large);
  }
  LargeLetters(const LargeLetters&) = delete;
  LargeLetters& operator=(const LargeLetters&) = delete;
  ~LargeLetters() { QApplication::setFont(usual_); }

 private:
  QFont usual_ = QApplication::font();
};

void ExpectOnScreen(const QWidget& window) {
  const auto screen = window.screen()->availableSize();
  EXPECT_LE(window.width(), screen.width());
  EXPECT_LE(window.height(), screen.height());
}

TEST_P(AllWindows, NothingIsCutOffWithLettersOfTwiceTheSize) {
  const LargeLetters letters;
  const auto window = Open();
  ExpectWhole(*window);
  ExpectOnScreen(*window);
}

TEST_P(AllWindows, FitsASmallScreen) {
  const auto window = Open();
  EXPECT_LE(window->minimumSizeHint().width(), 1366);
  EXPECT_LE(window->minimumSizeHint().height(), 768 - 60);
}

/// What a window says that is not left before its first row is complete.
const char* RefusalOf(std::string_view window) {
  if (window == "frmrecfit")
    return "This fitting must have a type and status.  Delete this fitting if you do not wish to save it.";
  if (window == "Frmcomponent")
    return "This component must have a name, and a percent or weight.  Delete this component if you do not wish to "
           "save it.";
  return nullptr;
}

TEST_P(AllWindows, EscapePressesItsCloseButton) {
  const auto window = Open();
  Person person;
  const auto* refusal = RefusalOf(GetParam()->text.name);
  if (refusal != nullptr) person.Answer(QLatin1String(refusal), QStringLiteral("OK"));
  QTest::keyClick(window.get(), Qt::Key_Escape);
  EXPECT_TRUE(QTest::qWaitFor([&] { return person.IsDone(); }));
  QCoreApplication::processEvents();
  EXPECT_EQ(window->isVisible(), refusal != nullptr);
}

std::vector<const windows::WindowEntry*> Entries() {
  std::vector<const windows::WindowEntry*> entries;
  // The editor of tanks has pages and types, and tests of its own.
  for (const auto& entry : windows::WindowTable())
    if (entry.text.name != entry::kFrmTankText.name) entries.push_back(&entry);
  return entries;
}

INSTANTIATE_TEST_SUITE_P(, AllWindows, testing::ValuesIn(Entries()),
                         [](const auto& param) { return std::string(param.param->text.name); });

TEST_F(DesktopTest, MonthsThatAppearInTheReportTypeAreWhole) {
  const LargeLetters letters;
  const auto window = windows::FindWindow("Frmreptyp").make({session_, &host_.Main(), nullptr});
  window->Prepare();
  window->show();
  Find<QComboBox>(*window, QStringLiteral("cboRepTime")).setCurrentText(QStringLiteral("Monthly"));
  QCoreApplication::processEvents();
  EXPECT_TRUE(Find<QAbstractButton>(*window, QStringLiteral("chkDEC")).isVisible());
  ExpectWhole(*window);
  ExpectOnScreen(*window);
}

/// Texts, names, separators and menus below, all in their order.
void ExpectEntries(const QList<QAction*>& actions, std::span<const shell::MenuEntry> entries) {
  ASSERT_EQ(static_cast<std::size_t>(actions.size()), entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const auto& action = *actions[static_cast<qsizetype>(i)];
    const auto& entry = entries[i];
    EXPECT_EQ(action.isSeparator(), entry.IsSeparator());
    EXPECT_EQ(action.text().toStdString(), entry.text);
    ASSERT_EQ(action.menu() != nullptr, entry.IsMenu()) << entry.text;
    if (entry.IsMenu()) {
      ExpectEntries(action.menu()->actions(), entry.entries);
    } else {
      EXPECT_EQ(action.objectName().toStdString(), entry.control);
    }
  }
}

TEST_F(DesktopTest, MenusAndToolBarAreThoseOfTheTables) {
  const auto& window = host_.Main();
  ExpectEntries(window.menuBar()->actions(), shell::kMainMenu);
  for (const auto& button : shell::kToolBar) {
    auto* widget = window.findChild<QToolButton*>(windows::Shown(button.key));
    ASSERT_NE(widget, nullptr) << button.key;
    EXPECT_EQ(widget->accessibleName().toStdString(), button.tip);
    EXPECT_FALSE(widget->icon().isNull());
  }
}

/// Number of the commands in a menu and those below it.
int ExpectUsable(const QMainWindow& window, const shell::Session& session, std::span<const shell::MenuEntry> entries) {
  int commands = 0;
  for (const auto& entry : entries) {
    if (entry.IsSeparator()) continue;
    commands += ExpectUsable(window, session, entry.entries);
    if (entry.IsMenu()) continue;
    EXPECT_NE(shell::FindCommand(session, entry.control), nullptr) << entry.control;
    EXPECT_TRUE(window.findChild<QAction*>(windows::Shown(entry.control))->isEnabled()) << entry.control;
    ++commands;
  }
  return commands;
}

TEST_F(DesktopTest, EveryEntryOfTheMenusAndEveryToolCanBeUsed) {
  // Three of the menu File, ten of the tanks, sixteen of the reference tables, the update, six reports, four of the
  // menu Backup, three of the menu Help.
  EXPECT_EQ(ExpectUsable(host_.Main(), session_, shell::kMainMenu), 43);
  for (const auto& button : shell::kToolBar) {
    EXPECT_NE(shell::FindCommand(session_, button.control), nullptr) << button.control;
    EXPECT_TRUE(Find<QToolButton>(host_.Main(), windows::Shown(button.key)).isEnabled()) << button.control;
  }
}

TEST_F(DesktopTest, NoTwoEntriesOfAMenuShareAnAccessKey) {
  for (const auto* menu : host_.Main().findChildren<QMenu*>()) {
    QString keys;
    for (const auto* action : menu->actions()) {
      const auto key = windows::AccessKey(action->text());
      if (key.isNull()) continue;
      EXPECT_FALSE(keys.contains(key)) << action->text().toStdString();
      keys += key;
    }
  }
}

TEST_F(DesktopTest, MainWindowFitsASmallScreenAndCutsNothingOff) {
  EXPECT_LE(host_.Main().minimumSizeHint().width(), 1366 / 2);
  EXPECT_LE(host_.Main().minimumSizeHint().height(), (768 - 60) / 2);
}

TEST_F(DesktopTest, StatusTextIsReadWholeInTheSmallestWindow) {
  host_.Main().resize(host_.Main().minimumSizeHint());
  QCoreApplication::processEvents();
  const auto& status = Find<windows::ElidedLabel>(host_.Main(), QStringLiteral("staMainStatus"));
  EXPECT_EQ(status.Text(), QStringLiteral("Ready"));
  host_.SetStatusText("Changing locations, please wait...");
  EXPECT_GE(status.contentsRect().width(), status.fontMetrics().horizontalAdvance(status.Text()));
}

}  // namespace
}  // namespace orvex::test
