#include "windows/desktop_host.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSettings>
#include <algorithm>
#include <iterator>

#include "shell/status.h"
#include "store/run_time_error.h"
#include "windows/browser.h"
#include "windows/display_text.h"
#include "windows/help_window.h"
#include "windows/input_gate.h"
#include "windows/main_window.h"
#include "windows/printer_setting.h"
#include "windows/window_table.h"

namespace orvex::windows {
namespace {

using shell::Answer;

/// A shorter command shows no progress.
constexpr int kProgressAfterMs = 500;
/// Between two looks at the screen and the keyboard.
constexpr int kDrawEveryMs = 40;

struct ButtonsOf {
  shell::Buttons buttons;
  QMessageBox::StandardButtons shown;
};
constexpr ButtonsOf kButtons[] = {
    {shell::Buttons::kOk, QMessageBox::Ok},
    {shell::Buttons::kOkCancel, QMessageBox::Ok | QMessageBox::Cancel},
    {shell::Buttons::kYesNo, QMessageBox::Yes | QMessageBox::No},
    {shell::Buttons::kYesNoCancel, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel},
};

struct IconOf {
  shell::Icon icon;
  QMessageBox::Icon shown;
};
constexpr IconOf kIcons[] = {
    {shell::Icon::kNone, QMessageBox::NoIcon},       {shell::Icon::kInformation, QMessageBox::Information},
    {shell::Icon::kQuestion, QMessageBox::Question}, {shell::Icon::kExclamation, QMessageBox::Warning},
    {shell::Icon::kCritical, QMessageBox::Critical},
};

struct AnswerOf {
  int pressed;
  Answer answer;
};
constexpr AnswerOf kAnswers[] = {
    {QMessageBox::Ok, Answer::kOk},
    {QMessageBox::Cancel, Answer::kCancel},
    {QMessageBox::Yes, Answer::kYes},
    {QMessageBox::No, Answer::kNo},
};

/// The usual pointer for the length of a question, in the middle of a busy command.
class UsualPointer {
 public:
  UsualPointer() : was_busy_(QApplication::overrideCursor() != nullptr) {
    if (was_busy_) QApplication::restoreOverrideCursor();
  }
  UsualPointer(const UsualPointer&) = delete;
  UsualPointer& operator=(const UsualPointer&) = delete;
  ~UsualPointer() {
    if (was_busy_) QApplication::setOverrideCursor(Qt::WaitCursor);
  }

 private:
  bool was_busy_;
};

/// "name (*.x)|*.x|..." as the toolkit writes filters: "name (*.x);;...".
QString Filters(const std::string& filter) {
  const auto parts = Shown(filter).split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const auto name = parts[i].trimmed();
    if (name.isEmpty()) continue;
    filters += name.contains(QLatin1Char('(')) ? name : QStringLiteral("%1 (%2)").arg(name, parts[i + 1]);
  }
  filters += QObject::tr("All files (*)");
  return filters.join(QStringLiteral(";;"));
}

bool IsPattern(const std::string& file_name) { return file_name.find_first_of("*?") != std::string::npos; }

/// The folder asked for may be one of another computer, or gone. Then the dialog opens where the last one chose.
void OpenIn(QFileDialog& dialog, const shell::FileRequest& request) {
  const auto folder = Shown(request.folder);
  if (QFileInfo(folder).isDir()) dialog.setDirectory(folder);
}

/// Path chosen, whose folder the toolkit is told for the next dialog.
std::string Chosen(QFileDialog& dialog) {
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    throw store::RunTimeError(store::ErrorNumber::kDialogCancelled, "The dialog was cancelled.");
  const auto path = dialog.selectedFiles().front();
  dialog.setDirectory(QFileInfo(path).absolutePath());
  return Bytes(path);
}

std::string AskForFile(QWidget* parent, const shell::FileRequest& request, QFileDialog::AcceptMode mode) {
  const UsualPointer pointer;
  QFileDialog dialog(parent, Shown(request.title), QString(), Filters(request.filter));
  dialog.setObjectName(QStringLiteral("file_dialog"));
  OpenIn(dialog, request);
  dialog.setAcceptMode(mode);
  dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  // The commands tell themselves what becomes of a file that is there.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setLabelText(QFileDialog::Accept,
                      mode == QFileDialog::AcceptOpen ? QObject::tr("&Open") : QObject::tr("&Save"));
  const auto extension = Shown(request.default_extension);
  dialog.setDefaultSuffix(extension.startsWith(QLatin1String("*.")) ? extension.mid(2) : extension);
  // A pattern names no file: the filter says it already.
  if (!request.file_name.empty() && !IsPattern(request.file_name)) dialog.selectFile(Shown(request.file_name));
  return Chosen(dialog);
}

std::string AskForFolder(QWidget* parent, const shell::FileRequest& request) {
  const UsualPointer pointer;
  QFileDialog dialog(parent, Shown(request.title));
  dialog.setObjectName(QStringLiteral("file_dialog"));
  OpenIn(dialog, request);
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  return Chosen(dialog);
}

}  // namespace

DesktopHost::DesktopHost(QSettings* settings) : settings_(settings) {}

DesktopHost::~DesktopHost() = default;

void DesktopHost::Attach(shell::Session& session) {
  session_ = &session;
  main_window_ = std::make_unique<MainWindow>(session, settings_);
  shell::SetStatus(*this, "", false);
}

QWidget* DesktopHost::Top() const {
  const auto top =
      std::find_if(open_.rbegin(), open_.rend(), [](const ModelDialog* window) { return !window->IsUnloaded(); });
  return top == open_.rend() ? static_cast<QWidget*>(main_window_.get()) : *top;
}

Answer DesktopHost::ShowMessage(const std::string& text, const std::string& title, shell::Buttons buttons,
                                shell::Icon icon) {
  const UsualPointer pointer;
  QMessageBox box(Top());
  box.setObjectName(QStringLiteral("message"));
  box.setWindowModality(Qt::WindowModal);
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse);
  box.setWindowTitle(Shown(title));
  box.setText(ShownLines(text));
  box.setIcon(std::ranges::find(kIcons, icon, &IconOf::icon)->shown);
  box.setStandardButtons(std::ranges::find(kButtons, buttons, &ButtonsOf::buttons)->shown);
  const int pressed = box.exec();
  const auto* answer = std::ranges::find(kAnswers, pressed, &AnswerOf::pressed);
  return answer == std::end(kAnswers) ? Answer::kCancel : answer->answer;
}

void DesktopHost::DrawWindow() {
  if (const auto* window = qobject_cast<ModelDialog*>(Top()); window != nullptr) window->DrawControls();
}

std::string DesktopHost::OpenFile(const shell::FileRequest& request) {
  return AskForFile(Top(), request, QFileDialog::AcceptOpen);
}

std::string DesktopHost::SaveFile(const shell::FileRequest& request) {
  return AskForFile(Top(), request, QFileDialog::AcceptSave);
}

std::string DesktopHost::ChooseFolder(const shell::FileRequest& request) { return AskForFolder(Top(), request); }

void DesktopHost::SetStatusText(const std::string& text) {
  if (main_window_ == nullptr) return;
  main_window_->SetStatusText(Shown(text));
  // A command that takes long may not come to draw it otherwise.
  if (busy_) main_window_->repaint();
}

void DesktopHost::SetPointer(shell::Pointer pointer) {
  const bool busy = pointer == shell::Pointer::kBusy;
  if (busy == busy_) return;
  busy_ = busy;
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    run_time_.start();
    last_drawn_.start();
  } else {
    QApplication::restoreOverrideCursor();
    run_time_.invalidate();
    if (main_window_ != nullptr) main_window_->HideProgress();
  }
}

void DesktopHost::SetPathPanel(shell::PathPanel panel, const std::string& text) {
  if (main_window_ != nullptr) main_window_->SetPathPanel(panel, Shown(text));
}

void DesktopHost::Beep() { QApplication::beep(); }

void DesktopHost::Navigate(const std::string& path) { OpenBrowser(path, settings_); }

void DesktopHost::ShowHelp(const std::string& topic) { ShowHelpWindow(session_->help_file, Shown(topic)); }

void DesktopHost::ShowPrinterSetup() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  ChooseSetUpPrinter(printer, settings_);
  QPrintDialog dialog(&printer, Top());
  dialog.setObjectName(QStringLiteral("printer_setup"));
  dialog.setWindowTitle(QObject::tr("Printer Setup"));
  // Nothing is printed from here.
  if (auto* buttons = dialog.findChild<QDialogButtonBox*>();
      buttons != nullptr && buttons->button(QDialogButtonBox::Ok))
    buttons->button(QDialogButtonBox::Ok)->setText(QObject::tr("&OK"));
  if (dialog.exec() == QDialog::Accepted) RememberPrinter(printer, settings_);
}

void DesktopHost::ShowWindow(std::string_view name) {
  // A window may close itself by the command that opens this one.
  for (auto* window : open_)
    if (window->IsClosedByModel() && !window->IsUnloaded()) window->Unload();
  const auto window = FindWindow(name).make({*session_, Top(), settings_});
  window->Prepare();
  if (window->IsUnloaded()) return;
  open_.push_back(window.get());
  window->exec();
  std::erase(open_, window.get());
}

void DesktopHost::ShowMainWindow() { main_window_->show(); }

void DesktopHost::CloseMainWindow() { main_window_->CloseAtOnce(); }

void DesktopHost::CloseOtherWindows(std::string_view kept) {
  for (auto* window : std::vector(open_.rbegin(), open_.rend()))
    if (window->Text().name != kept) window->Unload();
}

void DesktopHost::CloseAll() {
  CloseOtherWindows({});
  CloseMainWindow();
  QApplication::closeAllWindows();
}

void DesktopHost::Progress(std::int64_t done, std::int64_t total) {
  if (!run_time_.isValid()) run_time_.start();
  if (last_drawn_.isValid() && last_drawn_.elapsed() < kDrawEveryMs) return;
  if (run_time_.elapsed() >= kProgressAfterMs && main_window_ != nullptr) main_window_->ShowProgress(done, total);
  const bool stopped = InputGate().PassEvents();
  last_drawn_.start();
  if (stopped) throw shell::Interrupted();
}

}  // namespace orvex::windows
