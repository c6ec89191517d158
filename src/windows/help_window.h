#pragma once

#include <QMainWindow>
#include <QString>
#include <filesystem>
#include <memory>

class QLabel;
class QLineEdit;
class QTabWidget;

namespace orvex::windows {

class FindBar;
class HelpBrowser;
class HelpCollection;

/// The window on the manual: contents, index and search beside the page. It deletes itself when it is closed.
class HelpWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit HelpWindow(const std::filesystem::path& help_file);
  ~HelpWindow() override;

  /// "" is the first page, "search:" the search with the cursor in it, and all else the name of a page. What cannot be
  /// shown is told above the page.
  void ShowTopic(const QString& topic);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Command;
  static const Command kCommands[];

  void MakeActions();
  QWidget* MakeIndex();
  QWidget* MakeSearch();
  void MakePanes();
  void ConnectPage();
  void Open();

  void GoBack();
  void GoForward();
  void GoToFirstPage();
  void CopySelection();
  void Find();
  void FindNext();
  void FindPrevious();
  void ZoomIn();
  void ZoomOut();
  void ZoomReset();
  void ShowContents();
  void ShowIndex();
  void ShowSearch();
  void Search();
  void SearchIfWanted();

  void SetZoom(int percent);
  void Tell(const QString& fault);

  std::unique_ptr<HelpCollection> collection_;
  int zoom_percent_ = 100;
  // A search waits until the pages are read, or it would find some of them only, and until the one before it has ended.
  bool reading_ = true;
  bool searching_ = false;
  bool search_wanted_ = false;
  QLabel* fault_;
  QTabWidget* panes_;
  QLineEdit* look_for_;
  HelpBrowser* browser_;
  FindBar* find_bar_;
};

/// Shows a topic in the one help window, which is opened if need be. It can be used while a window waits for an answer.
void ShowHelpWindow(const std::filesystem::path& help_file, const QString& topic);

}  // namespace orvex::windows
