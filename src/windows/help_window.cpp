#include "windows/help_window.h"

#include <QAction>
#include <QApplication>
#include <QDeadlineTimer>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QHelpSearchEngine>
#include <QHelpSearchQueryWidget>
#include <QHelpSearchResultWidget>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "windows/find_bar.h"
#include "windows/help_browser.h"
#include "windows/help_collection.h"

namespace orvex::windows {
namespace {

constexpr QSize kFirstSize(1080, 760);
constexpr int kPaneShare = 300;
constexpr int kZoomSteps[] = {50, 67, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300};

const QString kWindowName = QStringLiteral("help_window");
const QString kFirstPage = QStringLiteral("index");
constexpr int kSearchPatienceMs = 10'000;
constexpr int kSearchStepMs = 20;
const QString kSearchTopic = QStringLiteral("search:");

enum Pane : std::uint8_t { kContents, kIndex, kSearch };

/// A window that waits for an answer blocks all others but those that belong to it.
void PlaceInFrontOf(QWidget* modal, QWidget& window) {
  window.winId();
  const bool blocks = modal != nullptr && modal->windowModality() == Qt::ApplicationModal;
  auto* owner = blocks ? modal->windowHandle() : nullptr;
  if (window.windowHandle()->transientParent() == owner) return;
  window.hide();
  window.windowHandle()->setTransientParent(owner);
}

}  // namespace

/// A command of the window, on its menus and, where it says so, on its tool bar.
struct HelpWindow::Command {
  const char* menu;
  const char* name;
  const char* text;
  const char* tip;
  const char* keys;  ///< the first one is shown
  void (HelpWindow::*run)();
  bool on_tool_bar;
};

constexpr HelpWindow::Command HelpWindow::kCommands[] = {
    {"&Edit", "copy", "&Copy", "Copy the selected text", "Ctrl+C", &HelpWindow::CopySelection, false},
    {"&Edit", "find", "&Find...", "Find a text on this page", "Ctrl+F", &HelpWindow::Find, true},
    {"&Edit", "find_next", "Find &Next", "Go to the next match", "F3; Ctrl+G", &HelpWindow::FindNext, false},
    {"&Edit", "find_previous", "Find Pre&vious", "Go to the previous match", "Shift+F3; Ctrl+Shift+G",
     &HelpWindow::FindPrevious, false},
    {"&View", "show_contents", "&Contents", "Show the contents of the help", "Ctrl+1", &HelpWindow::ShowContents,
     false},
    {"&View", "show_index", "&Index", "Show the index of the help", "Ctrl+2", &HelpWindow::ShowIndex, false},
    {"&View", "show_search", "&Search", "Search all pages of the help", "Ctrl+3; Ctrl+Shift+F", &HelpWindow::ShowSearch,
     false},
    {"&View", "zoom_out", "Zoom &Out", "Show the page smaller", "Ctrl+-", &HelpWindow::ZoomOut, true},
    {"&View", "zoom_in", "Zoom I&n", "Show the page larger", "Ctrl++; Ctrl+=", &HelpWindow::ZoomIn, true},
    {"&View", "zoom_reset", "&Actual Size", "Show the page at its own size", "Ctrl+0", &HelpWindow::ZoomReset, true},
    {"&Go", "back", "&Back", "Go back to the page before", "Alt+Left", &HelpWindow::GoBack, true},
    {"&Go", "forward", "&Forward", "Go forward again", "Alt+Right", &HelpWindow::GoForward, true},
    {"&Go", "first_page", "First &Page", "Go to the first page of the help", "Alt+Home", &HelpWindow::GoToFirstPage,
     true},
};

HelpWindow::HelpWindow(const std::filesystem::path& help_file)
    : collection_(std::make_unique<HelpCollection>(help_file)),
      fault_(new QLabel(this)),
      panes_(new QTabWidget(this)),
      look_for_(new QLineEdit(this)),
      browser_(new HelpBrowser(collection_->Engine(), this)),
      find_bar_(new FindBar(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setObjectName(kWindowName);
  setWindowTitle(tr("ORVEX Help"));
  fault_->setObjectName(QStringLiteral("help_fault"));
  fault_->setAccessibleName(tr("What is wrong"));
  fault_->setTextFormat(Qt::PlainText);
  fault_->setWordWrap(true);
  fault_->setMargin(8);
  fault_->hide();
  MakeActions();
  MakePanes();

  auto* page = new QWidget(this);
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(fault_);
  column->addWidget(browser_, 1);
  column->addWidget(find_bar_);
  find_bar_->findChild<QLineEdit*>()->setPlaceholderText(tr("Find on this page"));

  auto* middle = new QSplitter(this);
  middle->setObjectName(QStringLiteral("help_splitter"));
  middle->addWidget(panes_);
  middle->addWidget(page);
  middle->setStretchFactor(1, 1);
  middle->setSizes({kPaneShare, kFirstSize.width() - kPaneShare});
  middle->setChildrenCollapsible(false);
  setCentralWidget(middle);
  statusBar()->setObjectName(QStringLiteral("status"));
  ConnectPage();
  SetZoom(zoom_percent_);
  resize(kFirstSize.boundedTo(screen()->availableSize()));
  // It must not outlive the application: its files go with it.
  connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { delete this; });
  Open();
}

HelpWindow::~HelpWindow() {
  // The library's thread goes on using what its search engine takes down first.
  const QDeadlineTimer patience(kSearchPatienceMs);
  search_wanted_ = false;
  while (searching_ && !patience.hasExpired())
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, kSearchStepMs);
  // The panes and the page go before the help that they show.
  delete takeCentralWidget();
}

void HelpWindow::MakeActions() {
  auto* file = menuBar()->addMenu(tr("&File"));
  auto* close = file->addAction(tr("&Close"));
  close->setObjectName(QStringLiteral("close"));
  close->setShortcut(Qt::CTRL | Qt::Key_W);
  close->setStatusTip(tr("Close the help"));
  connect(close, &QAction::triggered, this, &QWidget::close);

  auto* bar = addToolBar(tr("Help"));
  bar->setObjectName(QStringLiteral("help_tool_bar"));
  bar->setMovable(false);
  bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
  QMenu* menu = nullptr;
  std::string_view last_menu;
  for (const auto& command : kCommands) {
    if (last_menu != command.menu) menu = menuBar()->addMenu(tr(command.menu));
    last_menu = command.menu;
    auto* action = menu->addAction(tr(command.text));
    action->setObjectName(QLatin1String(command.name));
    action->setShortcuts(QKeySequence::listFromString(QLatin1String(command.keys)));
    action->setStatusTip(tr(command.tip));
    action->setToolTip(
        QStringLiteral("%1 (%2)").arg(tr(command.tip), action->shortcut().toString(QKeySequence::NativeText)));
    action->setIconText(tr(command.text).remove(QLatin1Char('&')).remove(QStringLiteral("...")));
    connect(action, &QAction::triggered, this, command.run);
  }
  // The ways through the pages come first.
  for (const bool of_go : {true, false}) {
    for (const auto& command : kCommands)
      if (command.on_tool_bar && (command.menu == std::string_view("&Go")) == of_go)
        bar->addAction(findChild<QAction*>(QLatin1String(command.name)));
    if (of_go) bar->addSeparator();
  }
}

QWidget* HelpWindow::MakeIndex() {
  auto* index = collection_->Engine().indexWidget();
  index->setObjectName(QStringLiteral("help_index"));
  index->setAccessibleName(tr("Index"));
  look_for_->setObjectName(QStringLiteral("help_look_for"));
  look_for_->setAccessibleName(tr("Look for in the index"));
  look_for_->setPlaceholderText(tr("Look for"));
  look_for_->setClearButtonEnabled(true);
  connect(look_for_, &QLineEdit::textChanged, index, [index](const QString& text) { index->filterIndices(text); });
  connect(look_for_, &QLineEdit::returnPressed, index, &QHelpIndexWidget::activateCurrentItem);
  connect(index, &QHelpIndexWidget::documentActivated, this,
          [this](const QHelpLink& document) { browser_->setSource(document.url); });

  auto* pane = new QWidget(panes_);
  auto* column = new QVBoxLayout(pane);
  column->addWidget(look_for_);
  column->addWidget(index, 1);
  return pane;
}

QWidget* HelpWindow::MakeSearch() {
  auto* search = collection_->Engine().searchEngine();
  auto* query = search->queryWidget();
  auto* result = search->resultWidget();
  query->setObjectName(QStringLiteral("help_query"));
  result->setObjectName(QStringLiteral("help_results"));
  result->setAccessibleName(tr("Pages found"));
  for (auto* text : query->findChildren<QLineEdit*>()) text->setAccessibleName(tr("Search for"));
  connect(query, &QHelpSearchQueryWidget::search, this, &HelpWindow::Search);
  connect(search, &QHelpSearchEngine::searchingFinished, this, [this] {
    searching_ = false;
    SearchIfWanted();
  });
  connect(result, &QHelpSearchResultWidget::requestShowLink, browser_,
          [this](const QUrl& url) { browser_->setSource(url); });
  connect(search, &QHelpSearchEngine::indexingStarted, this, [this] {
    reading_ = true;
    statusBar()->showMessage(tr("Preparing the search..."));
  });
  connect(search, &QHelpSearchEngine::indexingFinished, this, [this] {
    reading_ = false;
    statusBar()->clearMessage();
    SearchIfWanted();
  });

  auto* pane = new QWidget(panes_);
  auto* column = new QVBoxLayout(pane);
  column->addWidget(query);
  column->addWidget(result, 1);
  return pane;
}

void HelpWindow::MakePanes() {
  auto* contents = collection_->Engine().contentWidget();
  contents->setObjectName(QStringLiteral("help_contents"));
  contents->setAccessibleName(tr("Contents"));
  connect(contents, &QHelpContentWidget::linkActivated, browser_,
          [this](const QUrl& url) { browser_->setSource(url); });
  connect(collection_->Engine().contentModel(), &QHelpContentModel::contentsCreated, contents, [this, contents] {
    contents->expandToDepth(0);
    contents->setCurrentIndex(contents->indexOf(browser_->source().adjusted(QUrl::RemoveFragment)));
  });

  panes_->setObjectName(QStringLiteral("help_panes"));
  panes_->setAccessibleName(tr("Ways into the help"));
  panes_->setDocumentMode(true);
  panes_->addTab(contents, tr("Contents"));
  panes_->addTab(MakeIndex(), tr("Index"));
  panes_->addTab(MakeSearch(), tr("Search"));
}

void HelpWindow::ConnectPage() {
  auto* back = findChild<QAction*>(QStringLiteral("back"));
  auto* forward = findChild<QAction*>(QStringLiteral("forward"));
  back->setEnabled(false);
  forward->setEnabled(false);
  connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
  connect(browser_, &QTextBrowser::sourceChanged, this, [this](const QUrl& url) {
    Tell({});
    // Its count is that of the page before.
    find_bar_->hide();
    auto* contents = collection_->Engine().contentWidget();
    if (const auto entry = contents->indexOf(url.adjusted(QUrl::RemoveFragment)); entry.isValid())
      contents->setCurrentIndex(entry);
    const auto title = browser_->documentTitle();
    setWindowTitle(title.isEmpty() ? tr("ORVEX Help") : tr("%1 - ORVEX Help").arg(title));
  });
  connect(find_bar_, &FindBar::Wanted, this, [this](const QString& text, bool backward) {
    const auto matches = browser_->Find(text, backward);
    find_bar_->ShowCount(matches.active, matches.all);
  });
  connect(find_bar_, &FindBar::Closed, browser_, [this] { browser_->setFocus(); });
}

void HelpWindow::Open() {
  if (!collection_->Fault().isEmpty()) {
    panes_->setEnabled(false);
    for (const auto& command : kCommands) findChild<QAction*>(QLatin1String(command.name))->setEnabled(false);
    return Tell(collection_->Fault());
  }
  auto& engine = collection_->Engine();
  connect(
      &engine, &QHelpEngine::setupFinished, this, [&engine] { engine.searchEngine()->reindexDocumentation(); },
      Qt::QueuedConnection);
  engine.setupData();
}

void HelpWindow::ShowTopic(const QString& topic) {
  if (!collection_->Fault().isEmpty()) return Tell(collection_->Fault());
  const bool search = topic == kSearchTopic;
  if (search && !browser_->source().isEmpty()) return ShowSearch();
  const auto first_page = collection_->Page(kFirstPage);
  const auto page = topic.isEmpty() || search ? first_page : collection_->Page(topic);
  browser_->setSource(page.isValid() ? page : first_page);
  if (!page.isValid()) Tell(tr("The help has no page on '%1'.").arg(topic));
  if (search) return ShowSearch();
  panes_->setCurrentIndex(kContents);
  browser_->setFocus();
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QMainWindow::keyPressEvent(event);
}

void HelpWindow::GoBack() { browser_->backward(); }
void HelpWindow::GoForward() { browser_->forward(); }
void HelpWindow::GoToFirstPage() { ShowTopic({}); }
void HelpWindow::CopySelection() { browser_->copy(); }
void HelpWindow::Find() { find_bar_->Start(); }
void HelpWindow::FindNext() { find_bar_->Next(); }
void HelpWindow::FindPrevious() { find_bar_->Previous(); }

void HelpWindow::ShowContents() {
  panes_->setCurrentIndex(kContents);
  collection_->Engine().contentWidget()->setFocus();
}

void HelpWindow::ShowIndex() {
  panes_->setCurrentIndex(kIndex);
  look_for_->setFocus();
  look_for_->selectAll();
}

void HelpWindow::ShowSearch() {
  panes_->setCurrentIndex(kSearch);
  collection_->Engine().searchEngine()->queryWidget()->setFocus();
}

void HelpWindow::Search() {
  search_wanted_ = true;
  SearchIfWanted();
}

void HelpWindow::SearchIfWanted() {
  if (!search_wanted_ || reading_ || searching_) return;
  search_wanted_ = false;
  searching_ = true;
  auto* search = collection_->Engine().searchEngine();
  search->search(search->queryWidget()->searchInput());
}

void HelpWindow::ZoomIn() {
  const auto* step = std::ranges::upper_bound(kZoomSteps, zoom_percent_);
  if (step != std::end(kZoomSteps)) SetZoom(*step);
}

void HelpWindow::ZoomOut() {
  const auto* step = std::ranges::lower_bound(kZoomSteps, zoom_percent_);
  if (step != std::begin(kZoomSteps)) SetZoom(*std::prev(step));
}

void HelpWindow::ZoomReset() { SetZoom(100); }

void HelpWindow::SetZoom(int percent) {
  zoom_percent_ = percent;
  browser_->SetZoom(percent);
}

void HelpWindow::Tell(const QString& fault) {
  fault_->setText(fault);
  fault_->setVisible(!fault.isEmpty());
}

void ShowHelpWindow(const std::filesystem::path& help_file, const QString& topic) {
  HelpWindow* window = nullptr;
  for (auto* widget : QApplication::topLevelWidgets())
    if (widget->objectName() == kWindowName && !widget->isHidden()) window = qobject_cast<HelpWindow*>(widget);
  if (window == nullptr) window = new HelpWindow(help_file);
  PlaceInFrontOf(QApplication::activeModalWidget(), *window);
  window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
  window->show();
  window->raise();
  window->activateWindow();
  window->ShowTopic(topic);
}

}  // namespace orvex::windows
