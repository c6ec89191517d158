#pragma once

class QPrinter;
class QSettings;

/// The printer that a person has set up. Reports are offered to it first.
namespace orvex::windows {

/// Leaves the system's own choice where none is remembered, or one that is not there any more.
void ChooseSetUpPrinter(QPrinter& printer, const QSettings* settings);
void RememberPrinter(const QPrinter& printer, QSettings* settings);

}  // namespace orvex::windows
