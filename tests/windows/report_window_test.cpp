#include "windows/report_window.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QPrintDialog>
#include <QPushButton>
#include <QSettings>
#include <QStatusBar>
#include <QTimer>
#include <QWebEngineView>
#include <csignal>

#include "support/file_content.h"
#include "windows/browser.h"
#include "windows/landscape.h"
#include "windows/pages.h"

namespace orvex::windows {
namespace {

class ReportWindowTest : public test::PageTest {
 protected:
  ~ReportWindowTest() override {
    for (auto* window : Windows()) delete window;
  }

  static QList<ReportWindow*> Windows() {
    QList<ReportWindow*> found;
    for (auto* widget : QApplication::topLevelWidgets())
      if (auto* window = qobject_cast<ReportWindow*>(widget)) found.append(window);
    return found;
  }

  /// Opens a window and waits until it shows its report.
  QPointer<ReportWindow> Open(const std::filesystem::path& page, QSettings* settings = nullptr) {
    QPointer<ReportWindow> window = new ReportWindow(page, settings);
    window->show();
    EXPECT_TRUE(WaitFor([&] { return Action(*window, "save_pdf").isEnabled(); }));
    return window;
  }

  static QAction& Action(ReportWindow& window, const char* name) {
    auto* action = window.findChild<QAction*>(QLatin1String(name));
    EXPECT_NE(action, nullptr) << name;
    return *action;
  }

  static std::string Count(ReportWindow& window) {
    return window.findChild<QLabel*>(QStringLiteral("find_count"))->text().toStdString();
  }

  static double Zoom(ReportWindow& window) { return window.findChild<QWebEngineView*>()->zoomFactor(); }

  static std::string Status(ReportWindow& window) { return window.statusBar()->currentMessage().toStdString(); }

  /// The fault that the window tells in a box of its own, which is then closed.
  std::string Told(ReportWindow& window) {
    QMessageBox* box = nullptr;
    EXPECT_TRUE(WaitFor([&] { return (box = window.findChild<QMessageBox*>(QStringLiteral("fault"))) != nullptr; }));
    const auto text = box->text().toStdString();
    box->close();
    return text;
  }

  /// Waits for the end of a command that takes its time; its fault.
  std::string Ended(ReportWindow& window, const std::function<void()>& start) {
    bool done = false;
    std::string fault;
    const auto connection = QObject::connect(&window, &ReportWindow::Done, [&](const QString& text) {
      fault = text.toStdString();
      done = true;
    });
    start();
    EXPECT_TRUE(WaitFor([&] { return done; }));
    QObject::disconnect(connection);
    return fault;
  }
};

TEST_F(ReportWindowTest, ShowsThePageUnderItsTitle) {
  auto window = Open(WriteReport());
  EXPECT_EQ(window->windowTitle().toStdString(), "Tiny report");
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(Status(*window), "");
}

TEST_F(ReportWindowTest, CommandsOfAReportWaitForOne) {
  auto* window = new ReportWindow(WritePage("p.htm", "loading", "Slow", "not yet"));
  window->show();
  for (const auto* name : {"print", "save_pdf", "copy_table"}) EXPECT_FALSE(Action(*window, name).isEnabled()) << name;
  for (const auto* name : {"find", "zoom_in", "close"}) EXPECT_TRUE(Action(*window, name).isEnabled()) << name;
  EXPECT_EQ(Status(*window), "Opening the report...");
}

TEST_F(ReportWindowTest, AMissingPageIsToldInTheWindow) {
  const auto file = folder_.Path() / "none.htm";
  auto* window = new ReportWindow(file);
  window->show();
  auto* fault = window->findChild<QLabel*>(QStringLiteral("report_fault"));
  EXPECT_TRUE(WaitFor([&] { return fault->isVisible(); }));
  EXPECT_EQ(fault->text().toStdString(), "The page '" + file.string() + "' is not there.");
}

TEST_F(ReportWindowTest, ThePagesOwnFailureIsOnTheStatusLineToo) {
  auto* window = new ReportWindow(WritePage("p.htm", "failed", "Report", "<p role=\"alert\">It is cut off.</p>"));
  window->show();
  EXPECT_TRUE(WaitFor([&] { return Status(*window) == "It is cut off."; }));
  EXPECT_FALSE(Action(*window, "print").isEnabled());
  EXPECT_TRUE(window->findChild<QWebEngineView*>()->isVisible());
}

TEST_F(ReportWindowTest, APageThatAsksForItsFileIsReadyOnceItHasIt) {
  auto* window = new ReportWindow(WritePage("p.htm", "failed", "Report", "<p role=\"alert\">Choose another file.</p>"));
  window->show();
  EXPECT_TRUE(WaitFor([&] { return Status(*window) == "Choose another file."; }));
  EXPECT_FALSE(Action(*window, "print").isEnabled());
  window->findChild<QWebEngineView*>()->page()->runJavaScript(
      QStringLiteral("document.documentElement.dataset.state = 'ready'; undefined"));
  EXPECT_TRUE(WaitFor([&] { return Action(*window, "print").isEnabled(); }));
  EXPECT_EQ(Status(*window), "");
}

TEST_F(ReportWindowTest, APageThatEndsUnexpectedlyIsToldInTheWindow) {
  const auto page = WriteReport();
  auto window = Open(page);
  kill(static_cast<pid_t>(window->findChild<QWebEngineView*>()->page()->renderProcessPid()), SIGKILL);
  auto* fault = window->findChild<QLabel*>(QStringLiteral("report_fault"));
  EXPECT_TRUE(WaitFor([&] { return fault->isVisible(); }));
  EXPECT_EQ(fault->text().toStdString(), "The page '" + page.string() + "' ended unexpectedly.");
  EXPECT_FALSE(Action(*window, "print").isEnabled());
}

TEST_F(ReportWindowTest, APageThatEndsWhileItIsSavedLeavesTheOldFile) {
  auto window =
      Open(WritePage("p.htm", "ready", "Report", "<script>window.orvex = {preparePrint() { for (;;); }}</script>"));
  const auto file = folder_.Path() / "saved.pdf";
  test::WriteFile(file, "old");
  const auto fault = Ended(*window, [&] {
    window->SavePdfAs(QString::fromStdString(file.string()));
    kill(static_cast<pid_t>(window->findChild<QWebEngineView*>()->page()->renderProcessPid()), SIGKILL);
  });
  EXPECT_TRUE(fault.ends_with("ended unexpectedly.")) << fault;
  EXPECT_EQ(Told(*window), fault);
  EXPECT_EQ(test::FileContent(file), "old");
}

// "tank" stands twice in the text and once as a column heading.
TEST_F(ReportWindowTest, FindCountsMatchesAndGoesRound) {
  auto window = Open(WriteReport());
  Action(*window, "find").trigger();
  auto* text = window->findChild<QLineEdit*>(QStringLiteral("find_text"));
  EXPECT_TRUE(text->isVisible());
  text->setText(QStringLiteral("tank"));
  EXPECT_TRUE(WaitFor([&] { return Count(*window) == "1 of 3"; })) << Count(*window);
  Action(*window, "find_next").trigger();
  EXPECT_TRUE(WaitFor([&] { return Count(*window) == "2 of 3"; })) << Count(*window);
  Action(*window, "find_previous").trigger();
  EXPECT_TRUE(WaitFor([&] { return Count(*window) == "1 of 3"; })) << Count(*window);
  Action(*window, "find_previous").trigger();
  EXPECT_TRUE(WaitFor([&] { return Count(*window) == "3 of 3"; })) << Count(*window);
  text->setText(QStringLiteral("zebra"));
  EXPECT_TRUE(WaitFor([&] { return Count(*window) == "Not found"; })) << Count(*window);
  text->clear();
  EXPECT_TRUE(WaitFor([&] { return Count(*window).empty(); })) << Count(*window);
}

TEST_F(ReportWindowTest, EscapeClosesTheFindBarAndF3OpensItAgain) {
  auto window = Open(WriteReport());
  Action(*window, "find").trigger();
  auto* text = window->findChild<QLineEdit*>(QStringLiteral("find_text"));
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QApplication::sendEvent(text, &escape);
  EXPECT_FALSE(text->isVisible());
  Action(*window, "find_next").trigger();
  EXPECT_TRUE(text->isVisible());
}

TEST_F(ReportWindowTest, ZoomsInStepsAndBack) {
  auto window = Open(WriteReport());
  auto* label = window->findChild<QLabel*>(QStringLiteral("zoom"));
  Action(*window, "zoom_in").trigger();
  EXPECT_NEAR(Zoom(*window), 1.1, 1e-6);
  EXPECT_EQ(label->text().toStdString(), "110 %");
  Action(*window, "zoom_in").trigger();
  EXPECT_NEAR(Zoom(*window), 1.25, 1e-6);
  Action(*window, "zoom_out").trigger();
  EXPECT_NEAR(Zoom(*window), 1.1, 1e-6);
  Action(*window, "zoom_reset").trigger();
  EXPECT_NEAR(Zoom(*window), 1, 1e-6);
  for (int step = 0; step < 20; ++step) Action(*window, "zoom_in").trigger();
  EXPECT_NEAR(Zoom(*window), 5, 1e-6);
  for (int step = 0; step < 30; ++step) Action(*window, "zoom_out").trigger();
  EXPECT_NEAR(Zoom(*window), 0.25, 1e-6);
}

TEST_F(ReportWindowTest, CopiesATableAsTabbedTextAndAsHtml) {
  auto window = Open(WriteReport());
  QApplication::clipboard()->clear();
  EXPECT_EQ(Ended(*window, [&] { Action(*window, "copy_table").trigger(); }), "");
  const auto* copied = QApplication::clipboard()->mimeData();
  EXPECT_EQ(copied->text().toStdString(), "Tank\tLoss\nT-1\t8,068.35");
  EXPECT_TRUE(copied->html().startsWith(QStringLiteral("<meta charset=\"utf-8\"><table")))
      << copied->html().toStdString();
  EXPECT_TRUE(copied->html().contains(QStringLiteral("<td>T-1</td>")));
  EXPECT_EQ(Status(*window), "The table was copied: 2 rows.");
}

TEST_F(ReportWindowTest, ATableThatThePageGivesAsTextAloneIsCopiedAsText) {
  auto window = Open(WritePage("p.htm", "ready", "Report",
                               "<script>window.orvex = {tableContent: () => ({text: 'Tank\\nÅ-1'})}</script>"));
  EXPECT_EQ(Ended(*window, [&] { Action(*window, "copy_table").trigger(); }), "");
  const auto* copied = QApplication::clipboard()->mimeData();
  EXPECT_EQ(copied->text().toStdString(), "Tank\nÅ-1");
  EXPECT_FALSE(copied->hasHtml());
}

TEST_F(ReportWindowTest, WithoutATableTheClipboardKeepsWhatItHolds) {
  for (const auto* script : {"", "<script>window.orvex = {tableContent: () => null}</script>"}) {
    auto window = Open(WritePage("p.htm", "ready", "Report", script));
    QApplication::clipboard()->setText(QStringLiteral("earlier"));
    EXPECT_EQ(Ended(*window, [&] { Action(*window, "copy_table").trigger(); }), "");
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "earlier");
    EXPECT_EQ(Status(*window), "No table was copied: the report has none.");
  }
}

// A script may fill the clipboard while the person presses something in the page, and at no other time.
TEST_F(ReportWindowTest, ThePageAloneLeavesTheClipboardAlone) {
  auto window = Open(DeliverBriefReport());
  QApplication::clipboard()->setText(QStringLiteral("earlier"));
  bool answered = false;
  window->findChild<QWebEngineView*>()->page()->runJavaScript(QStringLiteral("orvex.copyTable()"),
                                                              [&](const QVariant& text) {
                                                                EXPECT_FALSE(text.toString().isEmpty());
                                                                answered = true;
                                                              });
  ASSERT_TRUE(WaitFor([&] { return answered; }));
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "earlier");
}

TEST_F(ReportWindowTest, TheCopyButtonOfATableFillsTheClipboard) {
  auto window = Open(DeliverBriefReport());
  QApplication::clipboard()->setText(QStringLiteral("earlier"));
  auto* view = window->findChild<QWebEngineView*>();
  QRectF button;
  view->page()->runJavaScript(
      QStringLiteral("(() => { const box = document.querySelector('button.copy').getBoundingClientRect();"
                     " return [box.x, box.y, box.width, box.height]; })()"),
      [&](const QVariant& box) {
        const auto sides = box.toList();
        button = {sides[0].toDouble(), sides[1].toDouble(), sides[2].toDouble(), sides[3].toDouble()};
      });
  ASSERT_TRUE(WaitFor([&] { return !button.isEmpty(); }));
  for (const auto kind : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(kind, button.center(), view->mapToGlobal(button.center()), Qt::LeftButton,
                      kind == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(view->focusProxy(), &event);
  }
  EXPECT_TRUE(WaitFor([&] { return QApplication::clipboard()->text().contains(QLatin1Char('\t')); }));
}

TEST_F(ReportWindowTest, SavesALandscapePdfWhereTheDialogSays) {
  auto window = Open(WriteReport());
  Action(*window, "paper_letter").trigger();
  const auto file = folder_.Path() / "saved.pdf";
  const auto fault = Ended(*window, [&] {
    Action(*window, "save_pdf").trigger();
    auto* dialog = window->findChild<QFileDialog*>(QStringLiteral("save_pdf_dialog"));
    ASSERT_NE(dialog, nullptr);
    dialog->selectFile(QString::fromStdString(file.string()));
    dialog->findChild<QLineEdit*>()->setText(QString::fromStdString(file.string()));
    QMetaObject::invokeMethod(dialog, "accept");
  });
  EXPECT_EQ(fault, "");
  EXPECT_EQ(Status(*window), "The report was saved as '" + file.string() + "'.");
  const auto pdf = test::ReadPdf(file);
  EXPECT_EQ(pdf.pages, 3);
  EXPECT_NEAR(pdf.width_pt, 792, 0.5);
  EXPECT_NEAR(pdf.height_pt, 612, 0.5);
}

TEST_F(ReportWindowTest, SuggestsAFileNamedAfterTheReportInAFolderThatIsThere) {
  auto window = Open(WriteReport("p.htm", "Losses: 1/2"));
  Action(*window, "save_pdf").trigger();
  auto* dialog = window->findChild<QFileDialog*>(QStringLiteral("save_pdf_dialog"));
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->findChild<QLineEdit*>()->text().toStdString(), "Losses- 1-2.pdf");
  EXPECT_TRUE(dialog->directory().exists());
  dialog->reject();
}

TEST_F(ReportWindowTest, APdfThatCannotBeWrittenIsToldAndTheReportStays) {
  auto window = Open(WriteReport());
  const auto file = (folder_.Path() / "none" / "saved.pdf").string();
  const auto fault = Ended(*window, [&] { window->SavePdfAs(QString::fromStdString(file)); });
  EXPECT_EQ(fault, "'" + file + "' is not a valid path: its folder is not there.");
  EXPECT_EQ(Told(*window), fault);
  EXPECT_TRUE(Action(*window, "save_pdf").isEnabled());
}

TEST_F(ReportWindowTest, PrintsInLandscape) {
  auto window = Open(WriteReport());
  const auto file = folder_.Path() / "printed.pdf";
  const auto fault = Ended(*window, [&] {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(QString::fromStdString(file.string()));
    printer->setPageLayout(Landscape(Paper::kLetter));
    printer->setResolution(150);
    window->PrintOn(std::move(printer));
  });
  EXPECT_EQ(fault, "");
  const auto pdf = test::ReadPdf(file);
  EXPECT_EQ(pdf.pages, 3);
  EXPECT_NEAR(pdf.width_pt, 792, 1);
  EXPECT_NEAR(pdf.height_pt, 612, 1);
}

TEST_F(ReportWindowTest, ThePrintDialogStandsAtLandscapeAndCancellingItDoesNothing) {
  auto window = Open(WriteReport());
  Action(*window, "print").trigger();
  auto* dialog = window->findChild<QPrintDialog*>(QStringLiteral("print_dialog"));
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->printer()->pageLayout().orientation(), QPageLayout::Landscape);
  QPointer<QPrintDialog> open = dialog;
  dialog->reject();
  EXPECT_TRUE(WaitFor([&] { return open.isNull(); }));
  EXPECT_TRUE(Action(*window, "print").isEnabled());
}

TEST_F(ReportWindowTest, EachReportOpensAWindowOfItsOwn) {
  OpenBrowser(WriteReport("one.htm", "One"));
  OpenBrowser(WriteReport("two.htm", "Two"));
  ASSERT_EQ(Windows().size(), 2);
  EXPECT_TRUE(WaitFor([&] {
    return Windows()[0]->windowTitle() != Windows()[1]->windowTitle() && Action(*Windows()[0], "print").isEnabled() &&
           Action(*Windows()[1], "print").isEnabled();
  }));
  Action(*Windows()[0], "zoom_in").trigger();
  EXPECT_NE(Zoom(*Windows()[0]), Zoom(*Windows()[1]));
  const auto stays = Windows()[1]->windowTitle();
  Action(*Windows()[0], "close").trigger();
  EXPECT_TRUE(WaitFor([&] { return Windows().size() == 1; }));
  EXPECT_EQ(Windows()[0]->windowTitle(), stays);
  EXPECT_TRUE(Windows()[0]->isVisible());
}

TEST_F(ReportWindowTest, ClosingDeletesIt) {
  auto window = Open(WriteReport());
  window->close();
  EXPECT_TRUE(WaitFor([&] { return window.isNull(); }));
}

TEST_F(ReportWindowTest, ClosedWhileItSavesItSavesFirst) {
  auto window = Open(WriteReport());
  const auto file = folder_.Path() / "saved.pdf";
  window->SavePdfAs(QString::fromStdString(file.string()));
  window->close();
  EXPECT_FALSE(window->isVisible());
  EXPECT_TRUE(WaitFor([&] { return window.isNull(); }));
  EXPECT_EQ(test::ReadPdf(file).pages, 3);
}

TEST_F(ReportWindowTest, ClosedAsTheLastOneWhileItSavesItEndsTheProgramWhenItHasSaved) {
  auto window = Open(WriteReport());
  const auto file = folder_.Path() / "saved.pdf";
  window->SavePdfAs(QString::fromStdString(file.string()));
  window->close();
  ASSERT_FALSE(window->isVisible());
  QTimer::singleShot(test::kPatienceMs / 4, window, [] { QApplication::exit(1); });
  EXPECT_EQ(QApplication::exec(), 0);
  EXPECT_TRUE(window.isNull());
  EXPECT_EQ(test::ReadPdf(file).pages, 3);
}

TEST_F(ReportWindowTest, RemembersItsSizeAndPaperWhereItIsGivenAPlace) {
  QSettings settings(QString::fromStdString((folder_.Path() / "settings.ini").string()), QSettings::IniFormat);
  const auto page = WriteReport();
  auto first = Open(page, &settings);
  Action(*first, "paper_a4").trigger();
  first->resize(640, 480);
  first->close();
  ASSERT_TRUE(WaitFor([&] { return first.isNull(); }));
  auto second = Open(page, &settings);
  EXPECT_EQ(second->size(), QSize(640, 480));
  EXPECT_TRUE(Action(*second, "paper_a4").isChecked());
  second->close();
  ASSERT_TRUE(WaitFor([&] { return second.isNull(); }));
}

TEST_F(ReportWindowTest, EveryCommandHasATipAndItsKeys) {
  auto window = Open(WriteReport());
  for (const auto* name : {"print", "save_pdf", "copy", "copy_table", "find", "find_next", "find_previous", "zoom_in",
                           "zoom_out", "zoom_reset", "close"}) {
    const auto& action = Action(*window, name);
    EXPECT_FALSE(action.statusTip().isEmpty()) << name;
    EXPECT_FALSE(action.shortcut().isEmpty()) << name;
  }
  EXPECT_EQ(Action(*window, "find").shortcut(), QKeySequence(Qt::CTRL | Qt::Key_F));
  EXPECT_TRUE(Action(*window, "find_next").shortcuts().contains(QKeySequence(Qt::Key_F3)));
  EXPECT_EQ(window->findChild<QLineEdit*>(QStringLiteral("find_text"))->accessibleName().toStdString(), "Text to find");
}

TEST_F(ReportWindowTest, TheDeliveredPageIsFoundInCopiedAndSaved) {
  auto window = Open(DeliverBriefReport());
  Action(*window, "find").trigger();
  window->findChild<QLineEdit*>(QStringLiteral("find_text"))->setText(QStringLiteral("1,234.75"));
  EXPECT_TRUE(WaitFor([&] { return Count(*window).starts_with("1 of "); })) << Count(*window);
  QApplication::clipboard()->clear();
  EXPECT_EQ(Ended(*window, [&] { Action(*window, "copy_table").trigger(); }), "");
  const auto* copied = QApplication::clipboard()->mimeData();
  EXPECT_TRUE(copied->text().contains(QStringLiteral("T-1\tHorizontal Tank\t1,000.25")))
      << copied->text().toStdString();
  EXPECT_TRUE(copied->html().contains(QStringLiteral("1,000.25"))) << copied->html().toStdString();
  const auto file = folder_.Path() / "saved.pdf";
  EXPECT_EQ(Ended(*window, [&] { window->SavePdfAs(QString::fromStdString(file.string())); }), "");
  const auto pdf = test::ReadPdf(file);
  EXPECT_GT(pdf.width_pt, pdf.height_pt);
  for (const auto* figure : {"1,000.25", "234.50", "1,234.75", "5.00"})
    EXPECT_NE(pdf.text.find(figure), std::string::npos) << figure;
}

}  // namespace
}  // namespace orvex::windows
