#include "windows/sheet_printer.h"

#include <QImage>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace orvex::windows {
namespace {

constexpr double kPointsPerInch = 72;

/// A page as a picture of this size {pixels} on white: printers know no transparent paper.
QImage Picture(QPdfDocument& document, int page, QSize size) {
  QImage picture(size, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter(&picture).drawImage(0, 0, document.render(page, size));
  return picture;
}

}  // namespace

SheetPrinter::SheetPrinter(const QByteArray& pdf, std::unique_ptr<QPrinter> printer) : printer_(std::move(printer)) {
  content_.setData(pdf);
  content_.open(QIODevice::ReadOnly);
  document_.load(&content_);
  // What a print dialog chose is counted from 1; without a choice it is all.
  const auto chosen = printer_->pageRanges();
  for (int sheet = 0; sheet < document_.pageCount(); ++sheet)
    if (chosen.isEmpty() || chosen.contains(sheet + 1)) left_.push_back(sheet);
  // The sheets bring their margins.
  printer_->setFullPage(true);
}

SheetPrinter::~SheetPrinter() {
  // Left in the middle, nothing half printed is to come out.
  if (painter_.isActive()) printer_->abort();
}

void SheetPrinter::Start() {
  if (left_.empty()) return End(tr("There are no such sheets."));
  if (!painter_.begin(printer_.get())) return End(Refusal());
  // Letters and lines on white: sharper so than as a photograph, and smaller.
  painter_.setRenderHint(QPainter::LosslessImageRendering);
  QTimer::singleShot(0, this, &SheetPrinter::PrintNext);
}

void SheetPrinter::PrintNext() {
  PrintSheet(left_.front());
  left_.pop_front();
  if (left_.empty()) return End(painter_.end() ? QString() : Refusal());
  if (!printer_->newPage()) return End(Refusal());
  QTimer::singleShot(0, this, &SheetPrinter::PrintNext);
}

// Told from the event loop, so that who started it hears of a fault in the same way as of the end.
void SheetPrinter::End(const QString& fault) {
  QTimer::singleShot(0, this, [this, fault] { Q_EMIT Done(fault); });
}

QString SheetPrinter::Refusal() const {
  const auto file = printer_->outputFileName();
  return tr("The report could not be printed on '%1'.").arg(file.isEmpty() ? printer_->printerName() : file);
}

void SheetPrinter::PrintSheet(int sheet) {
  const auto paper = printer_->paperRect(QPrinter::DevicePixel).size();
  const auto own_size = document_.pagePointSize(sheet) * (printer_->resolution() / kPointsPerInch);
  const double scale = std::min({1.0, paper.width() / own_size.width(), paper.height() / own_size.height()});
  const auto size = (own_size * scale).toSize();
  painter_.drawImage(QPointF((paper.width() - size.width()) / 2, (paper.height() - size.height()) / 2),
                     Picture(document_, sheet, size));
}

}  // namespace orvex::windows
