#pragma once

#include <QBuffer>
#include <QPainter>
#include <QPdfDocument>
#include <QPrinter>
#include <deque>
#include <memory>

namespace orvex::windows {

/// Prints the pages of a PDF on a printer, one at a time, so that the windows stay alive meanwhile. Each is shown as
/// large as the paper allows, but no larger than it is, in the middle.
///
/// The web engine can print by itself, but shrinks landscape pages to the width of the upright paper. Only the sheets
/// that the printer was told to print are.
class SheetPrinter : public QObject {
  Q_OBJECT

 public:
  SheetPrinter(const QByteArray& pdf, std::unique_ptr<QPrinter> printer);
  ~SheetPrinter() override;

  /// Begins; `Done` tells the end.
  void Start();

 Q_SIGNALS:
  /// All sheets were handed to the printer, or a fault says why not.
  void Done(const QString& fault);

 private:
  void PrintNext();
  void PrintSheet(int sheet);
  void End(const QString& fault);
  [[nodiscard]] QString Refusal() const;

  QBuffer content_;
  QPdfDocument document_;
  std::unique_ptr<QPrinter> printer_;
  QPainter painter_;
  std::deque<int> left_;  ///< sheets to print, counted from 0
};

}  // namespace orvex::windows
