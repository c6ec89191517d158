#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWebEnginePage>
#include <filesystem>
#include <functional>
#include <memory>
#include <utility>

#include "windows/folder_profile.h"
#include "windows/paper.h"

namespace orvex::windows {

/// A table of a page as other programs take it.
struct PageTable {
  QString text;  ///< tab-separated; empty if the page has no table
  QString html;  ///< empty if the page offers none
};

/// A display page of a folder, at work behind a window or the PDF program. Follows no link out of its folder, opens no
/// window and asks nothing.
class ReportPage : public QObject {
  Q_OBJECT

 public:
  explicit ReportPage(const std::filesystem::path& page, QObject* parent = nullptr);
  ~ReportPage() override;

  /// Reads the page's file; `Ready`, `Waiting` or `Failed` tells how it went.
  void Open();
  [[nodiscard]] QWebEnginePage& Page() { return *page_; }

  /// The page's file was read and stands behind the window, with or without a report.
  [[nodiscard]] bool IsShown() const;

  /// Calls back with the table that the person touched last, or else the first one.
  void ReadTable(std::function<void(const PageTable&)> done);

  /// Has the page lay itself out on sheets, makes a landscape PDF of them and puts the page back for the screen. Calls
  /// back with the bytes of the file, or with none and a sentence saying why.
  using PdfDone = std::function<void(const QByteArray& pdf, const QString& fault)>;
  void MakePdf(Paper paper, PdfDone done);

 Q_SIGNALS:
  /// The report is drawn.
  void Ready();
  /// The page asks the person for the report's file, in this sentence of its own.
  void Waiting(const QString& sentence);
  /// The page can't show the report; the sentence is the page's own where it has one.
  void Failed(const QString& sentence);

 private:
  void TakeLoading(const QWebEngineLoadingInfo& info);
  void AskState();
  void TakeState(const QString& state, const QString& sentence);
  void Fail(const QString& sentence);
  /// Has the page lay itself out on sheets and calls back, with a sentence when it can't. `FinishPrint` undoes it.
  void PreparePrint(std::function<void(const QString& fault)> done);
  void FinishPrint();

  /// The engine calls back what is still open when a page ends; such a call comes to nothing.
  template <typename Callback>
  auto WhileHere(Callback callback) {
    return [here = QPointer<QObject>(here_.get()), callback = std::move(callback)](const auto& answer) {
      if (!here.isNull()) callback(answer);
    };
  }

  QString path_;
  FolderProfile profile_;
  std::unique_ptr<QWebEnginePage> page_;
  QTimer ask_;
  QElapsedTimer asked_;  ///< valid while an answer is due
  QString state_;
  bool ended_ = false;
  std::unique_ptr<QObject> here_ = std::make_unique<QObject>();  ///< goes first
};

}  // namespace orvex::windows
