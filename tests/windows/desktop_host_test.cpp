#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <array>
#include <stdexcept>

#include "support/expect_error.h"
#include "windows/desktop_fixture.h"
#include "windows/elided_label.h"
#include "windows/guarded.h"
#include "windows/input_gate.h"
#include "windows/person.h"

namespace orvex::test {
namespace {

using shell::Answer;
using shell::Buttons;
using shell::Icon;

class DesktopHostTest : public DesktopTest {
 protected:
  Person person_;
};

TEST_F(DesktopHostTest, MessageShowsMarkupAsItStands) {
  const std::string hostile = "Tank <b>one</b> & <img src=x>\nsecond line";
  person_.In(QStringLiteral("message"), [&](QWidget& window) {
    auto& box = dynamic_cast<QMessageBox&>(window);
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.text().toStdString(), hostile);
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Title"));
    EXPECT_EQ(box.icon(), QMessageBox::Question);
    Click(*box.button(QMessageBox::Yes));
  });
  EXPECT_EQ(host_.ShowMessage(hostile, "Title", Buttons::kYesNo, Icon::kQuestion), Answer::kYes);
}

TEST_F(DesktopHostTest, EachButtonIsItsAnswer) {
  const auto ask = [&](Buttons buttons, const char* press) {
    person_.Answer(QStringLiteral("?"), QString::fromLatin1(press));
    return host_.ShowMessage("?", "", buttons, Icon::kNone);
  };
  EXPECT_EQ(ask(Buttons::kOk, "OK"), Answer::kOk);
  EXPECT_EQ(ask(Buttons::kOkCancel, "Cancel"), Answer::kCancel);
  EXPECT_EQ(ask(Buttons::kYesNo, "No"), Answer::kNo);
  EXPECT_EQ(ask(Buttons::kYesNoCancel, "Yes"), Answer::kYes);
}

TEST_F(DesktopHostTest, PointerIsUsualWhileACommandAsksAndBusyAgainAfterwards) {
  person_.In(QStringLiteral("message"), [](QWidget& window) {
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    window.close();
  });
  host_.SetPointer(shell::Pointer::kBusy);
  host_.ShowMessage("?", "", Buttons::kOk, Icon::kNone);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  host_.SetPointer(shell::Pointer::kDefault);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DesktopHostTest, CancelledFileDialogIsError32755) {
  person_.In(QStringLiteral("file_dialog"), [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); });
  const shell::FileRequest request{"Locate", "tankdata.mdb", folder_.Path().string(), "", ""};
  EXPECT_RUN_TIME_ERROR(host_.OpenFile(request), store::ErrorNumber::kDialogCancelled);
}

TEST_F(DesktopHostTest, FileDialogOpensInTheFolderWithTitleFilterAndName) {
  const auto file = QString::fromStdString((folder_.Path() / "tankdata.mdb").string());
  person_.In(QStringLiteral("file_dialog"), [&](QWidget& window) {
    auto& dialog = dynamic_cast<QFileDialog&>(window);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Locate"));
    EXPECT_EQ(dialog.nameFilters().front(), QStringLiteral("Databases (*.mdb)"));
    EXPECT_EQ(dialog.directory().absolutePath().toStdString(), folder_.Path().string());
  });
  person_.NameFile(QStringLiteral("Locate"), file);
  EXPECT_EQ(host_.OpenFile({"Locate", "tankdata.mdb", folder_.Path().string(), "Databases (*.mdb) |*.mdb|", ""}),
            file.toStdString());
}

TEST_F(DesktopHostTest, FileDialogForAFolderThatIsNotThereOpensWhereTheLastOneDid) {
  const auto open_in = [&](const std::string& folder) {
    QString opened;
    person_.In(QStringLiteral("file_dialog"), [&](QWidget& window) {
      opened = dynamic_cast<QFileDialog&>(window).directory().absolutePath();
      QTest::keyClick(&window, Qt::Key_Escape);
    });
    EXPECT_RUN_TIME_ERROR(host_.OpenFile({"Locate", "tank.dbf", folder, "dBASE (*.dbf) |*.dbf|", ""}),
                          store::ErrorNumber::kDialogCancelled);
    return opened.toStdString();
  };
  EXPECT_EQ(open_in(folder_.Path().string()), folder_.Path().string());
  EXPECT_EQ(open_in(R"(C:\orvex31)"), folder_.Path().string());
}

TEST_F(DesktopHostTest, PrinterSetupPrintsNothing) {
  person_.In(QStringLiteral("printer_setup"), [](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Printer Setup"));
    for (const auto* button : window.findChildren<QPushButton*>())
      EXPECT_FALSE(button->text().contains(QStringLiteral("Print"))) << button->text().toStdString();
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  host_.ShowPrinterSetup();
  EXPECT_TRUE(person_.IsDone());
}

TEST_F(DesktopHostTest, UnexpectedFaultIsToldAndEndsItsCommandOnly) {
  host_.SetPointer(shell::Pointer::kBusy);
  person_.Answer(QStringLiteral("out of <b>order</b>"), QStringLiteral("OK"));
  windows::Guarded(session_, [] { throw std::runtime_error("out of <b>order</b>"); });
  EXPECT_TRUE(person_.IsDone());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DesktopHostTest, InterruptedCommandEndsReadyWithoutAWord) {
  host_.SetStatusText("Processing, please wait...");
  windows::Guarded(session_, [] { throw shell::Interrupted(); });
  EXPECT_EQ(Find<windows::ElidedLabel>(host_.Main(), QStringLiteral("staMainStatus")).Text(), QStringLiteral("Ready"));
}

TEST_F(DesktopHostTest, PathThatHoldsMarkupIsShownWholeInTheToolTip) {
  const std::string path = "/home/<b>somebody</b>/" + std::string(300, 'x') + "/client1.mdb";
  host_.SetPathPanel(shell::PathPanel::kClient, path);
  const auto& panel = Find<windows::ElidedLabel>(host_.Main(), QStringLiteral("staMainClient"));
  EXPECT_EQ(panel.Text().toStdString(), path);
  EXPECT_TRUE(panel.toolTip().contains(QStringLiteral("&lt;b&gt;somebody")));
  EXPECT_LE(panel.minimumSizeHint().width(), 300);
}

TEST_F(DesktopHostTest, ProgressShowsAfterHalfASecondAndGoesWithTheCommand) {
  const auto& bar = Find<QProgressBar>(host_.Main(), QStringLiteral("staMainProgress"));
  host_.SetPointer(shell::Pointer::kBusy);
  host_.Progress(0, 4);
  EXPECT_FALSE(bar.isVisible());
  QTest::qSleep(600);
  host_.Progress(3, 4);
  EXPECT_TRUE(bar.isVisible());
  EXPECT_EQ(bar.value(), bar.maximum() * 3 / 4);
  host_.SetPointer(shell::Pointer::kDefault);
  EXPECT_FALSE(bar.isVisible());
}

TEST_F(DesktopHostTest, EscapeInterruptsARunningCommand) {
  QTimer::singleShot(0, &host_.Main(), [&] { QTest::keyClick(&host_.Main(), Qt::Key_Escape); });
  const auto run = [&] {
    for (int i = 0; i < 100; ++i) {
      QTest::qSleep(20);
      host_.Progress(i, 100);
    }
  };
  EXPECT_THROW(run(), shell::Interrupted);
}

TEST_F(DesktopHostTest, NothingElseThanEscapeReachesTheWindowsDuringACommand) {
  QTimer::singleShot(0, &host_.Main(), [&] {
    QTest::keyClick(&host_.Main(), Qt::Key_F1);
    host_.Main().close();
  });
  QTest::qSleep(50);
  windows::InputGate gate;
  EXPECT_FALSE(gate.PassEvents());
  EXPECT_TRUE(host_.Main().isVisible());
}

TEST_F(DesktopHostTest, CloseOtherWindowsKeepsTheOneThatIsNamed) {
  person_.In(QStringLiteral("Frmmonth"), [&](QWidget& window) {
    host_.CloseOtherWindows("Frmmonth");
    EXPECT_TRUE(window.isVisible());
    host_.CloseOtherWindows("FrmChange");
    EXPECT_FALSE(window.isVisible());
  });
  host_.ShowWindow("Frmmonth");
  EXPECT_TRUE(person_.IsDone());
}

TEST_F(DesktopHostTest, ClosingTheMainWindowRunsTheClosingSequence) {
  person_.Answer(QStringLiteral("Do you want to backup your data now?"), QStringLiteral("No"));
  host_.Main().close();
  EXPECT_FALSE(host_.Main().isVisible());
  EXPECT_TRUE(session_.ended);
  EXPECT_EQ(session_.ClientDb, nullptr);
}

/// A report that is being printed.
class BusyWindow : public QWidget {
 protected:
  void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

TEST_F(DesktopHostTest, ReportThatIsBusyKeepsNoOtherWindowFromGoingWithTheMainOne) {
  BusyWindow busy;
  std::array<QWidget, 4> others;
  busy.show();
  for (auto& other : others) other.show();
  person_.Answer(QStringLiteral("Do you want to backup your data now?"), QStringLiteral("No"));
  host_.Main().close();
  QCoreApplication::processEvents();
  for (const auto& other : others) EXPECT_FALSE(other.isVisible());
  EXPECT_TRUE(busy.isVisible());
}

}  // namespace
}  // namespace orvex::test
