#include "windows/elided_label.h"

#include <QPainter>

#include "windows/display_text.h"

namespace orvex::windows {
namespace {

constexpr int kLeastLetters = 12;
constexpr int kMargin = 4;

}  // namespace

ElidedLabel::ElidedLabel(const QString& name, const QString& title, QWidget* parent) : QFrame(parent), title_(title) {
  setObjectName(name);
  setAccessibleName(title);
}

void ElidedLabel::SetText(const QString& text) {
  if (text == text_) return;
  text_ = text;
  setToolTip(text.isEmpty() ? QString() : PlainToolTip(title_ + QStringLiteral(": ") + text));
  setAccessibleName(title_ + QStringLiteral(": ") + text);
  updateGeometry();
  update();
}

QSize ElidedLabel::sizeHint() const {
  const auto least = minimumSizeHint();
  return {qMax(least.width(), fontMetrics().horizontalAdvance(text_) + 2 * kMargin + 2), least.height()};
}

QSize ElidedLabel::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * kLeastLetters, fontMetrics().height() + kMargin};
}

void ElidedLabel::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  QPainter painter(this);
  // Margins of the content are the frame's: the toolkit sets them anew with it.
  const auto room = contentsRect().adjusted(kMargin, 0, -kMargin, 0);
  painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   fontMetrics().elidedText(text_, Qt::ElideMiddle, room.width()));
}

}  // namespace orvex::windows
