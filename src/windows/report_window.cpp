#include "windows/report_window.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPrintDialog>
#include <QSettings>
#include <QStackedWidget>
#include <QStandardPaths>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWebEngineFindTextResult>
#include <QWebEngineView>
#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "store/file_replacement.h"
#include "store/run_time_error.h"
#include "windows/find_bar.h"
#include "windows/landscape.h"
#include "windows/printer_setting.h"

namespace orvex::windows {
namespace {

constexpr QSize kFirstSize(1120, 800);
constexpr double kZoomSteps[] = {0.25, 0.33, 0.5, 0.67, 0.75, 0.8, 0.9, 1, 1.1, 1.25, 1.5, 1.75, 2, 2.5, 3, 4, 5};
constexpr int kPrintDpi = 600;  ///< sheets are printed as pictures: more takes long and shows no more
constexpr double kStepTolerance = 0.001;
constexpr QMargins kBarMargins(4, 3, 4, 3);

const QString kGeometryKey = QStringLiteral("report_window/geometry");
const QString kPaperKey = QStringLiteral("report_window/paper");

struct PaperName {
  Paper paper;
  const char* name;
  const char* text;
};
constexpr PaperName kPapers[] = {{Paper::kLetter, "letter", "&Letter"}, {Paper::kA4, "a4", "&A4"}};

/// A file name for a report of this title.
QString SuggestedName(const QString& title) {
  QString name = title.simplified();
  for (auto& letter : name)
    if (QStringLiteral("/\\:*?\"<>|").contains(letter)) letter = QLatin1Char('-');
  return name + QStringLiteral(".pdf");
}

/// Where a person keeps such files: not every home has a folder for documents.
QString SuggestedFolder() {
  const auto documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

/// Replaces a file; gives a sentence when it can't be written.
QString WriteFile(const QString& path, const QByteArray& content) {
  try {
    store::FileReplacement file(path.toStdString());
    file.Write(std::string_view(content.constData(), static_cast<std::size_t>(content.size())));
    file.Commit();
    return {};
  } catch (const store::RunTimeError& error) {
    return QString::fromStdString(error.Description());
  }
}

/// A table for spreadsheets and for text programs.
std::unique_ptr<QMimeData> ClipboardContent(const PageTable& table) {
  auto content = std::make_unique<QMimeData>();
  content->setText(table.text);
  // Programs that take HTML from the clipboard guess at its letters unless it names them.
  if (!table.html.isEmpty()) content->setHtml(QStringLiteral("<meta charset=\"utf-8\">") + table.html);
  return content;
}

}  // namespace

/// A command of the window, on its menus and, where it says so, on its tool bar.
struct ReportWindow::Command {
  const char* menu;
  const char* name;
  const char* text;
  const char* tip;
  const char* keys;  ///< the first one is shown
  void (ReportWindow::*run)();
  bool needs_report;  ///< can't be used before the page shows one
  bool on_tool_bar;
};

constexpr ReportWindow::Command ReportWindow::kCommands[] = {
    {"&File", "print", "&Print...", "Print the report in landscape", "Ctrl+P", &ReportWindow::Print, true, true},
    {"&File", "save_pdf", "Save as P&DF...", "Save the report as a landscape PDF file", "Ctrl+S",
     &ReportWindow::SavePdf, true, true},
    {"&Edit", "copy", "&Copy", "Copy the selected text", "Ctrl+C", &ReportWindow::CopySelection, false, false},
    {"&Edit", "copy_table", "Copy &Table", "Copy the table last clicked, for a spreadsheet or a letter", "Ctrl+Shift+C",
     &ReportWindow::CopyTable, true, true},
    {"&Edit", "find", "&Find...", "Find a text in the report", "Ctrl+F", &ReportWindow::Find, false, true},
    {"&Edit", "find_next", "Find &Next", "Go to the next match", "F3; Ctrl+G", &ReportWindow::FindNext, false, false},
    {"&Edit", "find_previous", "Find Pre&vious", "Go to the previous match", "Shift+F3; Ctrl+Shift+G",
     &ReportWindow::FindPrevious, false, false},
    {"&View", "zoom_out", "Zoom &Out", "Show the report smaller", "Ctrl+-", &ReportWindow::ZoomOut, false, true},
    {"&View", "zoom_in", "Zoom &In", "Show the report larger", "Ctrl++; Ctrl+=", &ReportWindow::ZoomIn, false, true},
    {"&View", "zoom_reset", "&Actual Size", "Show the report at its own size", "Ctrl+0", &ReportWindow::ZoomReset,
     false, true},
};

ReportWindow::ReportWindow(const std::filesystem::path& page, QSettings* settings)
    : settings_(settings),
      page_(page),
      middle_(new QStackedWidget(this)),
      view_(new QWebEngineView(middle_)),
      fault_(new QLabel(middle_)),
      zoom_(new QLabel(this)),
      find_bar_(new FindBar(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setObjectName(QStringLiteral("report_window"));
  setWindowTitle(QString::fromStdString(page.filename().string()));
  view_->setObjectName(QStringLiteral("report_view"));
  view_->setAccessibleName(tr("Report"));
  view_->setContextMenuPolicy(Qt::ActionsContextMenu);
  view_->setPage(&page_.Page());
  fault_->setObjectName(QStringLiteral("report_fault"));
  fault_->setAlignment(Qt::AlignCenter);
  fault_->setWordWrap(true);
  fault_->setTextFormat(Qt::PlainText);
  middle_->addWidget(view_);
  middle_->addWidget(fault_);

  auto* centre = new QWidget(this);
  auto* column = new QVBoxLayout(centre);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(middle_, 1);
  column->addWidget(find_bar_);
  setCentralWidget(centre);

  zoom_->setObjectName(QStringLiteral("zoom"));
  zoom_->setAccessibleName(tr("Zoom"));
  statusBar()->setObjectName(QStringLiteral("status"));
  statusBar()->addPermanentWidget(zoom_);
  MakeActions();
  ConnectPage();
  SetZoom(1);
  resize(kFirstSize);
  if (settings_ != nullptr) {
    restoreGeometry(settings_->value(kGeometryKey).toByteArray());
    const auto remembered = settings_->value(kPaperKey).toString();
    for (const auto& [paper, name, text] : kPapers)
      if (remembered == QLatin1String(name))
        findChild<QAction*>(QLatin1String("paper_") + QLatin1String(name))->trigger();
  }
  view_->setFocus();
  statusBar()->showMessage(tr("Opening the report..."));
  page_.Open();
}

ReportWindow::~ReportWindow() {
  // The view goes before the page that it shows.
  delete view_;
}

void ReportWindow::MakeActions() {
  auto* bar = addToolBar(tr("Report"));
  bar->setObjectName(QStringLiteral("report_tool_bar"));
  bar->setMovable(false);
  bar->setContentsMargins(kBarMargins);
  bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
  std::string_view last_menu;
  QMenu* menu = nullptr;
  QMenu* file_menu = nullptr;
  for (const auto& command : kCommands) {
    if (last_menu != command.menu) {
      menu = menuBar()->addMenu(tr(command.menu));
      if (file_menu == nullptr) file_menu = menu;
      if (!last_menu.empty()) bar->addSeparator();
      last_menu = command.menu;
    }
    auto* action = menu->addAction(tr(command.text));
    action->setObjectName(QLatin1String(command.name));
    action->setShortcuts(QKeySequence::listFromString(QLatin1String(command.keys)));
    const auto keys = action->shortcut().toString(QKeySequence::NativeText);
    action->setStatusTip(tr(command.tip));
    action->setToolTip(QStringLiteral("%1 (%2)").arg(tr(command.tip), keys));
    action->setProperty("needs_report", command.needs_report);
    connect(action, &QAction::triggered, this, command.run);
    if (command.on_tool_bar) {
      bar->addAction(action);
      action->setIconText(tr(command.text).remove(QLatin1Char('&')).remove(QStringLiteral("...")));
    }
    if (command.menu == std::string_view("&Edit")) view_->addAction(action);
  }
  MakePaperMenu(*file_menu);
  auto* close = file_menu->addAction(tr("&Close"));
  close->setObjectName(QStringLiteral("close"));
  close->setShortcut(Qt::CTRL | Qt::Key_W);
  close->setStatusTip(tr("Close this report"));
  connect(close, &QAction::triggered, this, &QWidget::close);
  SetReportIsThere(false);
}

void ReportWindow::MakePaperMenu(QMenu& menu) {
  auto* papers = menu.addMenu(tr("P&aper"));
  auto* group = new QActionGroup(this);
  for (const auto& [paper, name, text] : kPapers) {
    auto* action = papers->addAction(tr(text));
    action->setObjectName(QLatin1String("paper_") + QLatin1String(name));
    action->setCheckable(true);
    action->setChecked(paper == paper_);
    group->addAction(action);
    connect(action, &QAction::triggered, this, [this, chosen = paper] { SetPaper(chosen); });
  }
  menu.addSeparator();
}

void ReportWindow::ConnectPage() {
  connect(&page_.Page(), &QWebEnginePage::titleChanged, this, [this](const QString& title) {
    if (!title.isEmpty()) setWindowTitle(title);
  });
  connect(&page_, &ReportPage::Ready, this, [this] {
    SetReportIsThere(true);
    statusBar()->clearMessage();
  });
  connect(&page_, &ReportPage::Waiting, this, [this](const QString& sentence) { statusBar()->showMessage(sentence); });
  connect(&page_, &ReportPage::Failed, this, [this](const QString& sentence) {
    if (!page_.IsShown()) {
      fault_->setText(sentence);
      middle_->setCurrentWidget(fault_);
    }
    // What is being printed has left the page already.
    if (busy_ && sheets_ == nullptr) return End({}, sentence);
    SetReportIsThere(false);
    statusBar()->showMessage(sentence);
  });
  connect(find_bar_, &FindBar::Wanted, this, [this](const QString& text, bool backward) {
    view_->findText(text, backward ? QWebEnginePage::FindBackward : QWebEnginePage::FindFlags());
  });
  connect(&page_.Page(), &QWebEnginePage::findTextFinished, this, [this](const QWebEngineFindTextResult& result) {
    find_bar_->ShowCount(result.activeMatch(), result.numberOfMatches());
  });
  connect(find_bar_, &FindBar::Closed, this, [this] {
    view_->findText(QString());
    view_->setFocus();
  });
}

void ReportWindow::SetReportIsThere(bool there) {
  for (auto* action : findChildren<QAction*>())
    if (action->property("needs_report").toBool()) action->setEnabled(there);
}

void ReportWindow::Print() {
  auto printer = std::make_shared<std::unique_ptr<QPrinter>>(std::make_unique<QPrinter>(QPrinter::HighResolution));
  ChooseSetUpPrinter(**printer, settings_);
  (*printer)->setPageLayout(Landscape(paper_));
  (*printer)->setResolution(kPrintDpi);
  (*printer)->setDocName(windowTitle());
  auto* dialog = new QPrintDialog(printer->get(), this);
  dialog->setObjectName(QStringLiteral("print_dialog"));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  connect(dialog, &QDialog::accepted, this, [this, printer] { PrintOn(std::move(*printer)); });
  dialog->open();
}

void ReportWindow::PrintOn(std::unique_ptr<QPrinter> printer) {
  Start(tr("Printing the report..."));
  const auto paper = printer->pageLayout().pageSize().id() == QPageSize::A4 ? Paper::kA4 : Paper::kLetter;
  auto shared = std::make_shared<std::unique_ptr<QPrinter>>(std::move(printer));
  page_.MakePdf(paper, [this, shared](const QByteArray& pdf, const QString& fault) {
    if (!fault.isEmpty()) return End({}, fault);
    sheets_ = std::make_unique<SheetPrinter>(pdf, std::move(*shared));
    connect(sheets_.get(), &SheetPrinter::Done, this, [this](const QString& sheets_fault) {
      sheets_.release()->deleteLater();
      End(tr("The report was sent to the printer."), sheets_fault);
    });
    sheets_->Start();
  });
}

void ReportWindow::SavePdf() {
  auto* dialog = new QFileDialog(this, tr("Save as PDF"), SuggestedFolder(), tr("PDF files (*.pdf)"));
  dialog->setObjectName(QStringLiteral("save_pdf_dialog"));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setDefaultSuffix(QStringLiteral("pdf"));
  dialog->selectFile(SuggestedName(windowTitle()));
  connect(dialog, &QFileDialog::fileSelected, this, &ReportWindow::SavePdfAs);
  dialog->open();
}

void ReportWindow::SavePdfAs(const QString& file) {
  Start(tr("Saving the report..."));
  page_.MakePdf(paper_, [this, file](const QByteArray& pdf, const QString& fault) {
    End(tr("The report was saved as '%1'.").arg(file), fault.isEmpty() ? WriteFile(file, pdf) : fault);
  });
}

void ReportWindow::CopySelection() { view_->triggerPageAction(QWebEnginePage::Copy); }

void ReportWindow::CopyTable() {
  page_.ReadTable([this](const PageTable& table) {
    if (table.text.isEmpty()) {
      statusBar()->showMessage(tr("No table was copied: the report has none."));
    } else {
      // Not left to the page: a menu's command is no key pressed in it, and only that lets it reach the clipboard.
      QApplication::clipboard()->setMimeData(ClipboardContent(table).release());
      statusBar()->showMessage(tr("The table was copied: %1 rows.").arg(table.text.count(QLatin1Char('\n')) + 1));
    }
    Q_EMIT Done({});
  });
}

void ReportWindow::Find() { find_bar_->Start(); }
void ReportWindow::FindNext() { find_bar_->Next(); }
void ReportWindow::FindPrevious() { find_bar_->Previous(); }

void ReportWindow::ZoomIn() {
  const auto* step = std::ranges::find_if(
      kZoomSteps, [now = view_->zoomFactor()](double candidate) { return candidate > now + kStepTolerance; });
  if (step != std::end(kZoomSteps)) SetZoom(*step);
}

void ReportWindow::ZoomOut() {
  const auto* step = std::ranges::find_if(
      kZoomSteps, [now = view_->zoomFactor()](double candidate) { return candidate >= now - kStepTolerance; });
  if (step != std::begin(kZoomSteps)) SetZoom(*std::prev(step));
}

void ReportWindow::ZoomReset() { SetZoom(1); }

void ReportWindow::SetZoom(double factor) {
  view_->setZoomFactor(factor);
  zoom_->setText(tr("%1 %").arg(qRound(factor * 100)));
}

void ReportWindow::SetPaper(Paper paper) {
  paper_ = paper;
  if (settings_ == nullptr) return;
  for (const auto& known : kPapers)
    if (known.paper == paper) settings_->setValue(kPaperKey, QLatin1String(known.name));
}

void ReportWindow::Start(const QString& status) {
  busy_ = true;
  SetReportIsThere(false);
  statusBar()->showMessage(status);
}

void ReportWindow::End(const QString& status, const QString& fault) {
  if (!std::exchange(busy_, false)) return;  // the page ended and was told of; the engine's own answer comes after
  SetReportIsThere(page_.IsShown());
  Q_EMIT Done(fault);
  if (fault.isEmpty()) {
    statusBar()->showMessage(status);
    if (closing_) deleteLater();
    return;
  }
  statusBar()->clearMessage();
  closing_ = false;
  show();
  Tell(fault);
}

void ReportWindow::Tell(const QString& fault) {
  auto* box = new QMessageBox(QMessageBox::Warning, windowTitle(), fault, QMessageBox::Ok, this);
  box->setObjectName(QStringLiteral("fault"));
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setTextFormat(Qt::PlainText);
  box->open();
}

void ReportWindow::closeEvent(QCloseEvent* event) {
  if (settings_ != nullptr) settings_->setValue(kGeometryKey, saveGeometry());
  if (!busy_) return event->accept();
  closing_ = true;
  hide();
  event->ignore();
}

}  // namespace orvex::windows
