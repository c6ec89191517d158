#pragma once

#include <QColor>
#include <QLabel>
#include <QPalette>
#include <QPointer>

namespace orvex::windows {

/// The colours of an entry that was refused, and of the reason: readable on light and dark grounds.
QColor FaultText(const QPalette& palette);
QColor FaultGround(const QPalette& palette);

/// Why a control was refused, below it, over what stands there.
class RefusalNote : public QLabel {
  Q_OBJECT

 public:
  explicit RefusalNote(QWidget* window);

  void ShowAt(QWidget& control, const QString& reason);
  void Clear();

 private:
  QPointer<QWidget> control_;
  QString description_;  ///< of the control, before the reason was put in front of it
};

}  // namespace orvex::windows
