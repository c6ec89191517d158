#pragma once

#include <QMainWindow>
#include <cstdint>

#include "shell/host.h"
#include "shell/menu.h"
#include "shell/session.h"

class QMenu;
class QProgressBar;
class QSettings;
class QToolBar;

namespace orvex::windows {

class ElidedLabel;

/// `MDIForm1`: menus and tool bar made from the shell's tables, and the status line `staMain`. Closing it runs the
/// closing sequence.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// @param settings where its size is remembered; none: it is not
  MainWindow(shell::Session& session, QSettings* settings);

  void SetStatusText(const QString& text);
  void SetPathPanel(shell::PathPanel panel, const QString& path);
  void ShowProgress(std::int64_t done, std::int64_t total);
  void HideProgress();

  /// Closes the window without the closing sequence.
  void CloseAtOnce();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void AddEntries(QMenu& menu, std::span<const shell::MenuEntry> entries);
  void MakeToolBar();
  void MakeStatusLine();
  void DrawPictures();
  void Run(std::string_view control);

  shell::Session& session_;
  QSettings* settings_;
  bool closing_ = false;
  bool close_at_once_ = false;
  QToolBar* tool_bar_;
  ElidedLabel* status_;
  QProgressBar* progress_;
  ElidedLabel* tank_path_;
  ElidedLabel* client_path_;
};

}  // namespace orvex::windows
