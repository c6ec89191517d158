#include "windows/entry_line.h"

#include <QKeyEvent>

namespace orvex::windows {

void EntryLine::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return QLineEdit::keyPressEvent(event);
  event->accept();
  Q_EMIT Activated();
}

void EntryLine::mouseDoubleClickEvent(QMouseEvent* event) {
  QLineEdit::mouseDoubleClickEvent(event);
  Q_EMIT Activated();
}

}  // namespace orvex::windows
