#include "windows/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <string>

#include "shell/command.h"
#include "shell/start_up.h"
#include "windows/backdrop.h"
#include "windows/display_text.h"
#include "windows/elided_label.h"
#include "windows/guarded.h"
#include "windows/pictures.h"

namespace orvex::windows {
namespace {

const QString kGeometryKey = QStringLiteral("MDIForm1/geometry");
constexpr std::string_view kHelpTopic = "main_window";
constexpr double kIconLines = 1.9;  ///< height of the tool bar's icons in lines of text
/// A progress bar counts in `int`; a run's tanks times periods fit in here after scaling.
constexpr int kProgressSteps = 1000;
constexpr int kProgressLetters = 16;
/// What the status text is to have room for; longer ones hold a path.
const QString kLongStatus = QStringLiteral("Changing locations, please wait...");

QString Name(std::string_view name) { return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size())); }

/// Reports and help go with the main window. A report that is being printed ends that first, and keeps none of the
/// others, as it would where the toolkit closes all.
void CloseVisibleWindows() {
  for (auto* window : QApplication::topLevelWidgets())
    if (window->isVisible()) window->close();
}

}  // namespace

MainWindow::MainWindow(shell::Session& session, QSettings* settings)
    : session_(session),
      settings_(settings),
      tool_bar_(addToolBar(tr("Tanks"))),
      status_(new ElidedLabel(QStringLiteral("staMainStatus"), tr("Status"), this)),
      progress_(new QProgressBar(this)),
      tank_path_(new ElidedLabel(QStringLiteral("staMainTank"), tr("Tank database"), this)),
      client_path_(new ElidedLabel(QStringLiteral("staMainClient"), tr("Client database"), this)) {
  setObjectName(QStringLiteral("MDIForm1"));
  setWindowTitle(Shown(shell::kMainWindowTitle));
  setWindowIcon(ProgramIcon());
  for (const auto& entry : shell::kMainMenu) {
    auto* menu = menuBar()->addMenu(Shown(entry.text));
    menu->setObjectName(Name(entry.control));
    AddEntries(*menu, entry.entries);
  }
  MakeToolBar();
  MakeStatusLine();
  setCentralWidget(new Backdrop(this));
  auto* help = new QShortcut(QKeySequence(Qt::Key_F1), this);
  connect(help, &QShortcut::activated, this,
          [this] { Guarded(session_, [this] { session_.host.ShowHelp(std::string(kHelpTopic)); }); });
  DrawPictures();
  resize(sizeHint().boundedTo(screen()->availableSize()));
  if (settings_ != nullptr) restoreGeometry(settings_->value(kGeometryKey).toByteArray());
}

void MainWindow::AddEntries(QMenu& menu, std::span<const shell::MenuEntry> entries) {
  for (const auto& entry : entries) {
    if (entry.IsSeparator()) {
      menu.addSeparator();
    } else if (entry.IsMenu()) {
      auto* below = menu.addMenu(Shown(entry.text));
      below->setObjectName(Name(entry.control));
      AddEntries(*below, entry.entries);
    } else {
      auto* action = menu.addAction(Shown(entry.text));
      action->setObjectName(Name(entry.control));
      connect(action, &QAction::triggered, this, [this, control = entry.control] { Run(control); });
    }
  }
}

void MainWindow::MakeToolBar() {
  tool_bar_->setObjectName(QStringLiteral("Toolbar1"));
  tool_bar_->setMovable(false);
  tool_bar_->setContextMenuPolicy(Qt::PreventContextMenu);
  for (const auto& button : shell::kToolBar) {
    auto* action = tool_bar_->addAction(Shown(button.tip));
    action->setObjectName(Name(button.key));
    action->setToolTip(Shown(button.tip));
    connect(action, &QAction::triggered, this, [this, control = button.control] { Run(control); });
    auto* widget = tool_bar_->widgetForAction(action);
    widget->setObjectName(action->objectName());
    widget->setAccessibleName(Shown(button.tip));
    widget->setAccessibleDescription(Shown(button.tip));
    widget->setFocusPolicy(Qt::TabFocus);
  }
}

void MainWindow::MakeStatusLine() {
  progress_->setObjectName(QStringLiteral("staMainProgress"));
  progress_->setAccessibleName(tr("Progress"));
  progress_->setToolTip(tr("Escape stops the command"));
  progress_->setFormat(tr("%p% - Esc stops"));
  progress_->setRange(0, kProgressSteps);
  progress_->setFixedWidth(fontMetrics().averageCharWidth() * kProgressLetters * 2);
  progress_->hide();
  status_->SetText(kLongStatus);
  status_->setMinimumWidth(status_->sizeHint().width());
  auto* line = statusBar();
  line->setObjectName(QStringLiteral("staMain"));
  line->addWidget(status_, 2);
  line->addWidget(progress_);
  line->addWidget(tank_path_, 3);
  line->addWidget(client_path_, 3);
  for (auto* panel : {status_, tank_path_, client_path_}) panel->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
}

void MainWindow::DrawPictures() {
  const int size = static_cast<int>(fontMetrics().height() * kIconLines);
  tool_bar_->setIconSize({size, size});
  for (auto* action : tool_bar_->actions()) action->setIcon(PictureIcon(action->objectName(), palette()));
}

void MainWindow::Run(std::string_view control) {
  Guarded(session_, [&] { shell::RunCommand(session_, control); });
  if (session_.ended) CloseAtOnce();
}

void MainWindow::SetStatusText(const QString& text) { status_->SetText(text); }

void MainWindow::SetPathPanel(shell::PathPanel panel, const QString& path) {
  (panel == shell::PathPanel::kTank ? tank_path_ : client_path_)->SetText(path);
}

void MainWindow::ShowProgress(std::int64_t done, std::int64_t total) {
  progress_->setValue(total <= 0 ? 0 : static_cast<int>(done * kProgressSteps / total));
  progress_->show();
}

void MainWindow::HideProgress() { progress_->hide(); }

void MainWindow::CloseAtOnce() {
  if (close_at_once_) return;
  close_at_once_ = true;
  // The toolkit closes no window inside of its own closing, which comes to the same.
  if (!closing_) close();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!close_at_once_) {
    if (closing_) return event->ignore();
    closing_ = true;
    Guarded(session_, [this] { shell::Close(session_); });
    closing_ = false;
    // Where a failure broke the sequence off, the person's wish stands.
    close_at_once_ = true;
  }
  if (settings_ != nullptr) settings_->setValue(kGeometryKey, saveGeometry());
  event->accept();
  QTimer::singleShot(0, this, CloseVisibleWindows);
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) DrawPictures();
}

}  // namespace orvex::windows
