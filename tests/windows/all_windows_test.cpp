#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QTest>
#include <QToolButton>

#include "windows/desktop_fixture.h"
#include "windows/display_text.h"
#include "windows/elided_label.h"
#include "windows/person.h"
#include "windows/window_table.h"

namespace orvex::test {
namespace {

/// Every window in turn, as it opens over the sample inventory.
class AllWindows : public DesktopTest, public testing::WithParamInterface<const windows::WindowEntry*> {
 protected:
  std::unique_ptr<windows::ModelDialog> Open() {
    auto window = GetParam()->make({session_, &host_.Main(), nullptr});
    window->Prepare();
    window->show();
    QCoreApplication::processEvents();
    return window;
  }
};

/// A widget of the window itself, not one that a toolkit's widget is made of.
bool IsControl(const QWidget& widget) {
  return !widget.objectName().isEmpty() && !widget.objectName().startsWith(QStringLiteral("qt_")) && widget.isVisible();
}

std::string NameOf(const QWidget& widget) { return widget.objectName().toStdString(); }

/// What a person reads on a widget that may carry an access key.
QString CaptionOf(const QWidget& widget) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
  if (const auto* label = qobject_cast<const QLabel*>(&widget))
    return label->buddy() == nullptr ? QString() : label->text();
  if (const auto* box = qobject_cast<const QGroupBox*>(&widget)) return box->title();
  return {};
}

TEST_P(AllWindows, TitleAndControlsAreThoseOfTheProgram) {
  const auto window = Open();
  const auto& text = GetParam()->text;
  EXPECT_EQ(window->objectName().toStdString(), text.name);
  EXPECT_EQ(window->windowTitle().toStdString(), text.title);
  for (const auto& control : text.controls)
    EXPECT_NE(window->findChild<QWidget*>(windows::Shown(control.name)), nullptr) << control.name;
}

TEST_P(AllWindows, EveryControlHasANameToBeReadAloudAndATip) {
  const auto window = Open();
  for (const auto* widget : window->findChildren<QWidget*>()) {
    if (!IsControl(*widget) || widget->focusPolicy() == Qt::NoFocus) continue;
    if (qobject_cast<const QLabel*>(widget) != nullptr) continue;
    EXPECT_FALSE(widget->accessibleName().isEmpty()) << NameOf(*widget);
    EXPECT_FALSE(widget->toolTip().isEmpty()) << NameOf(*widget);
  }
}

TEST_P(AllWindows, NoTwoControlsShareAnAccessKey) {
  const auto window = Open();
  QMap<QChar, QString> keys;
  for (const auto* widget : window->findChildren<QWidget*>()) {
    const auto key = windows::AccessKey(CaptionOf(*widget));
    // These two captions are the program's own; the key goes from the one to the other.
    const bool twice = key == QLatin1Char('r') && widget->objectName() == QStringLiteral("cmdRunReport") &&
                       keys.value(key) == QStringLiteral("cmdRemove");
    if (key.isNull() || twice) continue;
    EXPECT_FALSE(keys.contains(key)) << NameOf(*widget) << " and " << keys.value(key).toStdString();
    keys.insert(key, widget->objectName());
  }
}

TEST_P(AllWindows, EveryControlIsReachedByTheTabKey) {
  const auto window = Open();
  QStringList met;
  for (auto* next = window->nextInFocusChain(); next != window.get(); next = next->nextInFocusChain())
    met += next->objectName();
  for (const auto* widget : window->findChildren<QWidget*>()) {
    if (!IsControl(*widget) || (widget->focusPolicy() & Qt::TabFocus) == 0) continue;
    EXPECT_TRUE(met.contains(widget->objectName())) << NameOf(*widget);
  }
}

/// Nothing that a person reads is drawn in less room than it needs.
void ExpectWhole(const QWidget& window) {
  for (const auto* widget : window.findChildren<QWidget*>()) {
    if (!IsControl(*widget)) continue;
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label != nullptr && label->wordWrap()) {
      EXPECT_GE(label->height(), label->heightForWidth(label->width())) << NameOf(*widget);
    } else if (label != nullptr || qobject_cast<const QAbstractButton*>(widget) != nullptr ||
               qobject_cast<const QComboBox*>(widget) != nullptr) {
      EXPECT_GE(widget->width(), widget->sizeHint().width()) << NameOf(*widget);
      EXPECT_GE(widget->height(), widget->sizeHint().height()) << NameOf(*widget);
    } else if (qobject_cast<const QLineEdit*>(widget) != nullptr) {
      EXPECT_GE(widget->height(), widget->sizeHint().height()) << NameOf(*widget);
    } else if (qobject_cast<const QListView*>(widget) != nullptr) {
      EXPECT_GE(widget->height(), 2 * widget->fontMetrics().lineSpacing()) << NameOf(*widget);
    }
    const auto inner = widget->parentWidget()->rect();
    EXPECT_TRUE(inner.contains(widget->geometry())) << NameOf(*widget) << " sticks out";
  }
}

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

TEST_P(AllWindows, EscapeClosesIt) {
  const auto window = Open();
  QTest::keyClick(window.get(), Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
}

std::vector<const windows::WindowEntry*> Entries() {
  std::vector<const windows::WindowEntry*> entries;
  for (const auto& entry : windows::WindowTable()) entries.push_back(&entry);
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

TEST_F(DesktopTest, CommandOfALaterReleaseIsDisabledAndSaysSo) {
  auto& window = host_.Main();
  const auto* later = window.findChild<QAction*>(QStringLiteral("mnuNewClient"));
  EXPECT_FALSE(later->isEnabled());
  EXPECT_EQ(later->toolTip(), QStringLiteral("Comes with a later release of this program."));
  EXPECT_TRUE(window.findChild<QAction*>(QStringLiteral("mnuAnnBrief"))->isEnabled());
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
