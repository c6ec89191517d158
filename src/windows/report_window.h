#pragma once

#include <QEventLoopLocker>
#include <QMainWindow>
#include <QPrinter>
#include <filesystem>
#include <memory>

#include "windows/paper.h"
#include "windows/report_page.h"
#include "windows/sheet_printer.h"

class QLabel;
class QSettings;
class QStackedWidget;
class QWebEngineView;

namespace orvex::windows {

class FindBar;

/// A window on one display page: print, save as PDF, find, zoom, copy a table. It belongs to nobody and deletes itself
/// when it is closed; closed while it prints or saves, it ends that first.
class ReportWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// @param settings where size and paper are remembered; none: they are not. It must outlive the window.
  explicit ReportWindow(const std::filesystem::path& page, QSettings* settings = nullptr);
  ~ReportWindow() override;

  /// Writes the report to a PDF file and tells the person how it went.
  void SavePdfAs(const QString& file);
  /// Prints the report on a printer that has been chosen and set up.
  void PrintOn(std::unique_ptr<QPrinter> printer);

 Q_SIGNALS:
  /// A command that takes its time has ended; an empty fault when it went well.
  void Done(const QString& fault);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Command;
  static const Command kCommands[];

  void MakeActions();
  void MakePaperMenu(QMenu& menu);
  void ConnectPage();
  void SetReportIsThere(bool there);

  void Print();
  void SavePdf();
  void CopySelection();
  void CopyTable();
  void Find();
  void FindNext();
  void FindPrevious();
  void ZoomIn();
  void ZoomOut();
  void ZoomReset();

  void SetZoom(double factor);
  void SetPaper(Paper paper);
  void Start(const QString& status);
  void End(const QString& status, const QString& fault);
  void Tell(const QString& fault);

  QSettings* settings_;
  Paper paper_ = Paper::kLetter;
  bool busy_ = false;
  bool closing_ = false;
  /// A hidden window does not end the program when it goes. This does, if no other window is left.
  QEventLoopLocker program_goes_on_;
  std::unique_ptr<SheetPrinter> sheets_;  ///< while it prints
  ReportPage page_;
  QStackedWidget* middle_;
  QWebEngineView* view_;
  QLabel* fault_;
  QLabel* zoom_;
  FindBar* find_bar_;
};

}  // namespace orvex::windows
