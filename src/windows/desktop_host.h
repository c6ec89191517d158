#pragma once

#include <QElapsedTimer>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "shell/host.h"
#include "shell/session.h"

class QSettings;
class QWidget;

namespace orvex::windows {

class MainWindow;
class ModelDialog;

/// The program on the screen: message boxes, file dialogs, pointer, status line, windows, reports and help. Needs a
/// running QApplication.
class DesktopHost : public shell::Host {
 public:
  /// @param settings where the windows remember their sizes and the printer; none: they do not
  explicit DesktopHost(QSettings* settings);
  ~DesktopHost() override;

  /// The main window is made for this session, whose commands are known by now. The session must outlive what is done
  /// in the windows.
  void Attach(shell::Session& session);
  /// Closes all windows, the reports', too, without asking anything.
  void CloseAll();

  [[nodiscard]] MainWindow& Main() { return *main_window_; }

  shell::Answer ShowMessage(const std::string& text, const std::string& title, shell::Buttons buttons,
                            shell::Icon icon) override;
  std::string OpenFile(const shell::FileRequest& request) override;
  std::string SaveFile(const shell::FileRequest& request) override;
  std::string ChooseFolder(const shell::FileRequest& request) override;
  void SetStatusText(const std::string& text) override;
  void SetPointer(shell::Pointer pointer) override;
  void SetPathPanel(shell::PathPanel panel, const std::string& text) override;
  void Beep() override;
  void Navigate(const std::string& path) override;
  void ShowHelp(const std::string& topic) override;
  void ShowPrinterSetup() override;
  void ShowWindow(std::string_view name) override;
  void DrawWindow() override;
  void ShowMainWindow() override;
  void CloseMainWindow() override;
  void CloseOtherWindows(std::string_view kept) override;
  void Progress(std::int64_t done, std::int64_t total) override;

 private:
  /// What a new window stands on: the one that was opened last and is not closed.
  [[nodiscard]] QWidget* Top() const;

  QSettings* settings_;
  shell::Session* session_ = nullptr;
  std::unique_ptr<MainWindow> main_window_;
  std::vector<ModelDialog*> open_;  ///< from the lowest to the top one
  bool busy_ = false;
  QElapsedTimer run_time_;    ///< of the command that is busy
  QElapsedTimer last_drawn_;  ///< since the windows were last given time
};

}  // namespace orvex::windows
