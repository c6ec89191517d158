#include "windows/help_window.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QHelpSearchQueryWidget>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextBlock>
#include <QTextBrowser>
#include <QWindow>
#include <fstream>

#include "support/file_content.h"
#include "windows/pages.h"

namespace orvex::windows {
namespace {

const std::filesystem::path kHelpFile = ORVEX_HELP_FILE;

class HelpWindowTest : public test::PageTest {
 protected:
  ~HelpWindowTest() override {
    for (auto* window : Windows()) delete window;
  }

  static QList<HelpWindow*> Windows() {
    QList<HelpWindow*> found;
    for (auto* widget : QApplication::topLevelWidgets())
      if (auto* window = qobject_cast<HelpWindow*>(widget)) found.append(window);
    return found;
  }

  static HelpWindow& Show(const QString& topic, const std::filesystem::path& file = kHelpFile) {
    ShowHelpWindow(file, topic);
    EXPECT_EQ(Windows().size(), 1);
    return *Windows().front();
  }

  template <typename Widget>
  static Widget& Find(HelpWindow& window, const char* name) {
    auto* found = window.findChild<Widget*>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return *found;
  }

  static QTextBrowser& Page(HelpWindow& window) { return Find<QTextBrowser>(window, "help_page"); }
  static std::string Heading(HelpWindow& window) {
    return Page(window).toPlainText().section(QLatin1Char('\n'), 0, 0).toStdString();
  }
  static std::string Fault(HelpWindow& window) {
    const auto& label = Find<QLabel>(window, "help_fault");
    return label.isHidden() ? "" : label.text().toStdString();
  }
  static std::string Count(HelpWindow& window) { return Find<QLabel>(window, "find_count").text().toStdString(); }
  static int Pane(HelpWindow& window) { return Find<QTabWidget>(window, "help_panes").currentIndex(); }
  static void Do(HelpWindow& window, const char* command) { Find<QAction>(window, command).trigger(); }

  static void Press(QWidget& widget, int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &press);
  }
};

TEST_F(HelpWindowTest, OpensTheContentsAtTheFirstPage) {
  auto& window = Show({});
  EXPECT_EQ(Heading(window), "Welcome to ORVEX");
  EXPECT_EQ(window.windowTitle().toStdString(), "Welcome to ORVEX - ORVEX Help");
  EXPECT_EQ(Pane(window), 0);
  EXPECT_EQ(Fault(window), "");
}

TEST_F(HelpWindowTest, OpensATopicAndListsItInTheContents) {
  auto& window = Show(QStringLiteral("choose_tanks"));
  EXPECT_EQ(Heading(window), "Choose Tank(s) For Report");
  auto& contents = Find<QHelpContentWidget>(window, "help_contents");
  ASSERT_TRUE(WaitFor([&] { return contents.currentIndex().isValid(); }));
  EXPECT_EQ(contents.currentIndex().data().toString().toStdString(), "Choose Tank(s) For Report");
}

TEST_F(HelpWindowTest, OpensATopicAtOneOfItsControls) {
  auto& window = Show(QStringLiteral("tank_physical#txtdeckseamlengthit"));
  EXPECT_EQ(Heading(window), "Tank entry: Physical Characteristics");
  EXPECT_EQ(Fault(window), "");
  auto& page = Page(window);
  ASSERT_TRUE(WaitFor([&] { return page.verticalScrollBar()->value() > 0; }));
  const auto row = page.cursorForPosition({page.viewport()->width() / 4, 5});
  EXPECT_EQ(row.block().text().toStdString(), "Deck Seam Length (ft)");
}

TEST_F(HelpWindowTest, OpensATopicAtItsTopForAControlThatItDoesNotTell) {
  auto& window = Show(QStringLiteral("tank_site#cmdsave"));
  EXPECT_EQ(Heading(window), "Tank entry: Site");
  EXPECT_EQ(Fault(window), "");
  EXPECT_EQ(Page(window).verticalScrollBar()->value(), 0);
}

TEST_F(HelpWindowTest, IsTheSameWindowForEveryTopic) {
  QPointer<HelpWindow> first = &Show(QStringLiteral("backup"));
  auto& second = Show(QStringLiteral("errors"));
  EXPECT_EQ(first, &second);
  EXPECT_EQ(Heading(second), "Messages");
}

TEST_F(HelpWindowTest, OpensTheSearchWithTheCursorInIt) {
  auto& window = Show(QStringLiteral("search:"));
  EXPECT_EQ(Pane(window), 2);
  EXPECT_EQ(Heading(window), "Welcome to ORVEX");
  auto& query = Find<QHelpSearchQueryWidget>(window, "help_query");
  auto* focus = window.focusWidget();
  ASSERT_NE(focus, nullptr);
  EXPECT_TRUE(&query == focus || query.isAncestorOf(focus));
}

TEST_F(HelpWindowTest, KeepsThePageWhenTheSearchIsAskedFor) {
  Show(QStringLiteral("weather"));
  auto& window = Show(QStringLiteral("search:"));
  EXPECT_EQ(Heading(window), "Weather");
  EXPECT_EQ(Pane(window), 2);
}

TEST_F(HelpWindowTest, FindsPagesByTheirWords) {
  auto& window = Show(QStringLiteral("search:"));
  auto& query = Find<QHelpSearchQueryWidget>(window, "help_query");
  auto& results = Find<QWidget>(window, "help_results");
  auto* list = results.findChild<QTextBrowser*>();
  ASSERT_NE(list, nullptr);
  // The pages are read for the search in the background.
  const bool found = WaitFor([&] {
    query.setSearchInput(QStringLiteral("clingage"));
    Q_EMIT query.search();
    QApplication::processEvents();
    return list->toPlainText().contains(QStringLiteral("Losses of floating roof tanks"));
  });
  EXPECT_TRUE(found) << list->toPlainText().toStdString();
}

TEST_F(HelpWindowTest, LeadsFromAWordOfTheIndexToItsHeading) {
  auto& window = Show({});
  auto& index = Find<QHelpIndexWidget>(window, "help_index");
  ASSERT_TRUE(WaitFor([&] { return index.model()->rowCount() > 50; }));
  auto& look_for = Find<QLineEdit>(window, "help_look_for");
  look_for.setText(QStringLiteral("Turnover factor"));
  Press(look_for, Qt::Key_Return);
  ASSERT_TRUE(WaitFor([&] { return Heading(window) == "Losses of fixed roof tanks"; }));
  EXPECT_EQ(Page(window).source().fragment().toStdString(), "working-loss");
  EXPECT_GT(Page(window).verticalScrollBar()->value(), 0);
}

TEST_F(HelpWindowTest, GoesBackAndForward) {
  Show(QStringLiteral("weather"));
  auto& window = Show(QStringLiteral("chemicals"));
  EXPECT_FALSE(Find<QAction>(window, "forward").isEnabled());
  Do(window, "back");
  EXPECT_EQ(Heading(window), "Weather");
  Do(window, "forward");
  EXPECT_EQ(Heading(window), "Chemicals");
  Do(window, "first_page");
  EXPECT_EQ(Heading(window), "Welcome to ORVEX");
}

TEST_F(HelpWindowTest, FindsTextOnThePageRoundAndRound) {
  auto& window = Show(QStringLiteral("fittings"));
  Do(window, "find");
  Find<QLineEdit>(window, "find_text").setText(QStringLiteral("stub drain"));
  EXPECT_EQ(Count(window), "1 of 1");
  EXPECT_EQ(Page(window).textCursor().selectedText().toStdString(), "Stub drain");
  Find<QLineEdit>(window, "find_text").setText(QStringLiteral("vacuum breakers"));
  EXPECT_EQ(Count(window), "1 of 2");
  Do(window, "find_next");
  EXPECT_EQ(Count(window), "2 of 2");
  Do(window, "find_next");
  EXPECT_EQ(Count(window), "1 of 2");
  Do(window, "find_previous");
  EXPECT_EQ(Count(window), "2 of 2");
  Do(window, "find_previous");
  EXPECT_EQ(Count(window), "1 of 2");
  Find<QLineEdit>(window, "find_text").setText(QStringLiteral("no such words"));
  EXPECT_EQ(Count(window), "Not found");
}

TEST_F(HelpWindowTest, ZoomsThePage) {
  auto& window = Show({});
  const double size = Page(window).font().pointSizeF();
  Do(window, "zoom_in");
  EXPECT_DOUBLE_EQ(Page(window).font().pointSizeF(), size * 1.1);
  Do(window, "zoom_reset");
  Do(window, "zoom_out");
  EXPECT_DOUBLE_EQ(Page(window).font().pointSizeF(), size * 0.9);
  for (int i = 0; i < 20; ++i) Do(window, "zoom_out");
  EXPECT_DOUBLE_EQ(Page(window).font().pointSizeF(), size * 0.5);
}

TEST_F(HelpWindowTest, ShowsThePicturesOfThePage) {
  auto& window = Show(QStringLiteral("first_report"));
  const auto picture =
      Page(window).loadResource(QTextDocument::ImageResource, QUrl(QStringLiteral("pictures/brief_report.png")));
  ASSERT_TRUE(picture.canConvert<QImage>());
  EXPECT_GT(picture.value<QImage>().width(), 300);
  EXPECT_LT(picture.value<QImage>().width(), Page(window).viewport()->width());
}

TEST_F(HelpWindowTest, LeadsNowhereOutsideTheHelp) {
  auto& window = Show({});
  Page(window).setSource(QUrl::fromLocalFile(QStringLiteral("/etc/hostname")));
  EXPECT_EQ(Heading(window), "Welcome to ORVEX");
  EXPECT_TRUE(Page(window)
                  .loadResource(QTextDocument::ImageResource, QUrl::fromLocalFile(QStringLiteral("/etc/hostname")))
                  .toByteArray()
                  .isEmpty());
}

TEST_F(HelpWindowTest, TellsOfATopicThatItDoesNotHave) {
  auto& window = Show(QStringLiteral("no_such_topic"));
  EXPECT_EQ(Fault(window), "The help has no page on 'no_such_topic'.");
  EXPECT_EQ(Heading(window), "Welcome to ORVEX");
  Show(QStringLiteral("errors"));
  EXPECT_EQ(Fault(window), "");
}

TEST_F(HelpWindowTest, TellsOfAFileThatIsNotThere) {
  const auto file = folder_.Path() / "ORVEX40.hlp";
  auto& window = Show(QStringLiteral("backup"), file);
  EXPECT_EQ(Fault(window), "The help file '" + file.string() + "' is not there.");
  EXPECT_FALSE(Find<QAction>(window, "find").isEnabled());
  EXPECT_TRUE(Find<QAction>(window, "close").isEnabled());
  // A menu that is disabled would take its commands and their keys with it.
  EXPECT_TRUE(window.menuBar()->actions().front()->isEnabled());
}

TEST_F(HelpWindowTest, TellsOfAFileThatIsNoHelp) {
  const auto file = folder_.Path() / "ORVEX40.hlp";
  std::ofstream(file) << "This is no help.";
  auto& window = Show({}, file);
  EXPECT_EQ(Fault(window), "'" + file.string() + "' is not a help file, or is damaged.");
}

TEST_F(HelpWindowTest, ShowsANewFileThatTookThePlaceOfADamagedOne) {
  const auto file = folder_.Path() / "ORVEX40.hlp";
  std::ofstream(file) << "This is no help.";
  Show({}, file).close();
  ASSERT_TRUE(WaitFor([] { return Windows().isEmpty(); }));
  std::filesystem::copy_file(kHelpFile, file, std::filesystem::copy_options::overwrite_existing);
  EXPECT_EQ(Heading(Show(QStringLiteral("weather"), file)), "Weather");
}

TEST_F(HelpWindowTest, ClosesWithEscapeOnceTheFindBarIsClosed) {
  QPointer<HelpWindow> window = &Show({});
  Do(*window, "find");
  auto& text = Find<QLineEdit>(*window, "find_text");
  Press(text, Qt::Key_Escape);
  EXPECT_FALSE(text.isVisible());
  EXPECT_TRUE(window->isVisible());
  Press(Page(*window), Qt::Key_Escape);
  EXPECT_TRUE(WaitFor([&] { return window.isNull(); }));
}

TEST_F(HelpWindowTest, CanBeUsedWhileADialogWaitsForAnAnswer) {
  for (const auto modality : {Qt::WindowModal, Qt::ApplicationModal}) {
    QDialog dialog;
    dialog.setWindowModality(modality);
    dialog.show();
    auto& window = Show(QStringLiteral("weather"));
    ASSERT_TRUE(WaitFor([&] { return window.isVisible(); }));
    auto* button = window.findChild<QTabWidget*>()->findChild<QTabBar*>();
    ASSERT_NE(button, nullptr);
    // Through the window system's door: it is there that a blocked window is told apart.
    const auto place = button->mapTo(&window, button->tabRect(1).center());
    const auto global = window.windowHandle()->mapToGlobal(place);
    QMouseEvent press(QEvent::MouseButtonPress, place, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.windowHandle(), &press);
    QMouseEvent release(QEvent::MouseButtonRelease, place, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(window.windowHandle(), &release);
    EXPECT_EQ(Pane(window), 1) << "modality " << modality;
    dialog.close();
    EXPECT_TRUE(window.isVisible());
    delete &window;
  }
}

TEST_F(HelpWindowTest, NamesEveryPartForThoseWhoCannotSeeIt) {
  auto& window = Show({});
  for (const char* name : {"help_page", "help_contents", "help_index", "help_look_for", "help_results", "help_panes"})
    EXPECT_FALSE(Find<QWidget>(window, name).accessibleName().isEmpty()) << name;
}

TEST_F(HelpWindowTest, LeavesNoTemporaryFilesBehind) {
  const QByteArray before = qgetenv("TMPDIR");
  qputenv("TMPDIR", folder_.Path().c_str());
  QPointer<HelpWindow> window = &Show({});
  if (before.isNull())
    qunsetenv("TMPDIR");
  else
    qputenv("TMPDIR", before);
  EXPECT_EQ(test::EntryCount(folder_.Path()), 1);
  window->close();
  EXPECT_TRUE(WaitFor([&] { return window.isNull(); }));
  EXPECT_EQ(test::EntryCount(folder_.Path()), 0);
}

}  // namespace
}  // namespace orvex::windows
