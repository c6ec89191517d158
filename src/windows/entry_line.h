#pragma once

#include <QLineEdit>

namespace orvex::windows {

/// A line to type in. Enter and a double click are told, and go no further.
class EntryLine : public QLineEdit {
  Q_OBJECT

 public:
  using QLineEdit::QLineEdit;

 Q_SIGNALS:
  void Activated();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
};

}  // namespace orvex::windows
