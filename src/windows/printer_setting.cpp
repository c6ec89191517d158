#include "windows/printer_setting.h"

#include <QPrinter>
#include <QSettings>

namespace orvex::windows {
namespace {

const QString kPrinterKey = QStringLiteral("printer/name");

}  // namespace

void ChooseSetUpPrinter(QPrinter& printer, const QSettings* settings) {
  const auto name = settings == nullptr ? QString() : settings->value(kPrinterKey).toString();
  // An empty name would stand for a PDF file.
  if (!name.isEmpty()) printer.setPrinterName(name);
}

void RememberPrinter(const QPrinter& printer, QSettings* settings) {
  if (settings != nullptr) settings->setValue(kPrinterKey, printer.printerName());
}

}  // namespace orvex::windows
