#include "windows/model_dialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QTest>
#include <QVBoxLayout>

#include "windows/desktop_fixture.h"
#include "windows/pages.h"
#include "windows/person.h"
#include "windows/window_table.h"

namespace orvex::test {
namespace {

const QString kChange = QStringLiteral("FrmChange");

class ModelDialogTest : public DesktopTest {
 protected:
  std::unique_ptr<windows::ModelDialog> Open(std::string_view name, QSettings* settings = nullptr) {
    auto window = windows::FindWindow(name).make({session_, &host_.Main(), settings});
    window->Prepare();
    window->show();
    QCoreApplication::processEvents();
    return window;
  }

  Person person_;
};

TEST_F(ModelDialogTest, PathThatIsNoUtf8AndIsLeftAloneStaysAsItWas) {
  const auto path = (folder_.Path() / "tank\xff.mdb").string();
  session_.TankPath = path;
  person_.Press(kChange, QStringLiteral("cmdOK"));
  // A path that had come back as other bytes would be opened as a test, and fail it.
  person_.Answer(QStringLiteral("The database locations were changed."), QStringLiteral("OK"));
  host_.ShowWindow("FrmChange");
  EXPECT_TRUE(person_.IsDone());
  EXPECT_EQ(session_.TankPath, path);
}

TEST_F(ModelDialogTest, TextThatGetsTheFocusIsSelectedWhole) {
  const auto window = Open("FrmChange");
  window->activateWindow();
  auto& client = Find<QLineEdit>(*window, QStringLiteral("txtClientData"));
  client.setFocus(Qt::MouseFocusReason);
  QCoreApplication::processEvents();
  EXPECT_EQ(client.selectedText().toStdString(), session_.ClientPath);
}

TEST_F(ModelDialogTest, AccessKeyPressesItsButton) {
  person_.In(QStringLiteral("Frmmonth"), [](QWidget& window) {
    // An access key is one of the active window only.
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_A, Qt::AltModifier);
    // A button that is pressed by its key stays down for a moment.
    const auto& run = Find<QPushButton>(window, QStringLiteral("cmdRunReport"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return run.isEnabled(); }, kPatienceMs));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }, kPatienceMs));
  });
  host_.ShowWindow("Frmmonth");
  EXPECT_TRUE(person_.IsDone());
}

TEST_F(ModelDialogTest, F1OpensTheHelpOfTheWindow) {
  session_.help_file = ORVEX_HELP_FILE;
  person_.In(QStringLiteral("Frmmonth"), [](QWidget& window) {
    QTest::keyClick(&window, Qt::Key_F1);
    bool shown = false;
    for (const auto* other : QApplication::topLevelWidgets())
      shown = shown || (other->objectName() == QStringLiteral("help_window") && other->isVisible());
    EXPECT_TRUE(shown);
    Click(Find<QPushButton>(window, QStringLiteral("cmdClose")));
  });
  host_.ShowWindow("Frmmonth");
  EXPECT_TRUE(person_.IsDone());
}

TEST_F(ModelDialogTest, TankThatTheFindLineHidesIsNotOpened) {
  session_.editRecord = [](shell::Session&, std::int32_t, const std::string&) {};
  const auto window = Open("frmqmenu");
  Click(Find<QRadioButton>(*window, QStringLiteral("optOpen")));
  SelectRows(*window, QStringLiteral("dblstTanks"), {0});
  const auto& ok = Find<QPushButton>(*window, QStringLiteral("cmdOK"));
  EXPECT_TRUE(ok.isEnabled());
  Write(*window, QStringLiteral("dblstTanksFind"), QStringLiteral("no such tank"));
  EXPECT_FALSE(ok.isEnabled());
}

TEST_F(ModelDialogTest, EnterBehindAFoundTankRunsNoReport) {
  const auto window = Open("Frmtankrep");
  SelectRows(*window, QStringLiteral("lstTanks"), {0});
  Click(Find<QPushButton>(*window, QStringLiteral("cmdSelect")));
  EXPECT_TRUE(Find<QPushButton>(*window, QStringLiteral("cmdRunReport")).isEnabled());
  Write(*window, QStringLiteral("lstTanksFind"), QStringLiteral("HT-204"));
  QTest::keyClick(&Find<QLineEdit>(*window, QStringLiteral("lstTanksFind")), Qt::Key_Return);
  EXPECT_TRUE(session_.TankList.empty());
  EXPECT_EQ(Find<QLineEdit>(*window, QStringLiteral("txtID")).text(), QStringLiteral("HT-204"));
}

TEST_F(ModelDialogTest, WindowComesBackInTheSizeItWasLeftIn) {
  QSettings settings(QString::fromStdString((folder_.Path() / "windows.ini").string()), QSettings::IniFormat);
  const QSize wanted = Open("Frmtankrep", &settings)->sizeHint() + QSize(60, 40);
  {
    const auto window = Open("Frmtankrep", &settings);
    window->resize(wanted);
    window->reject();
  }
  EXPECT_EQ(Open("Frmtankrep", &settings)->size(), wanted);
}

TEST_F(ModelDialogTest, WindowLargerThanTheScreenScrolls) {
  const auto usual = QApplication::font();
  auto huge = usual;
  huge.setPointSizeF(usual.pointSizeF() * 4);
  QApplication::setFont(huge);
  {
    const auto window = Open("Frmtankrep");
    EXPECT_LE(window->width(), window->screen()->availableSize().width());
    EXPECT_LE(window->height(), window->screen()->availableSize().height());
    EXPECT_TRUE(Find<QPushButton>(*window, QStringLiteral("cmdRunReport")).isVisible());
  }
  QApplication::setFont(usual);
}

TEST_F(ModelDialogTest, WindowThatIsOnlyTooHighIsNotScrolledSideways) {
  const auto window = windows::FindWindow("frmRimSeal").make({session_, &host_.Main(), nullptr});
  dynamic_cast<QVBoxLayout&>(*window->layout()).addSpacing(window->screen()->availableSize().height());
  window->Prepare();
  window->show();
  QCoreApplication::processEvents();
  auto* area = window->findChild<QScrollArea*>();
  ASSERT_NE(area, nullptr);
  EXPECT_TRUE(area->verticalScrollBar()->isVisible());
  EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
}

}  // namespace
}  // namespace orvex::test
