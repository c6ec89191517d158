#include "windows/refusal_note.h"

#include <algorithm>

namespace orvex::windows {
namespace {

constexpr int kMargin = 4;
constexpr int kDark = 128;

bool IsDark(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < kDark; }

}  // namespace

QColor FaultText(const QPalette& palette) { return IsDark(palette) ? QColor(255, 138, 128) : QColor(176, 0, 32); }
QColor FaultGround(const QPalette& palette) { return IsDark(palette) ? QColor(92, 42, 42) : QColor(253, 228, 228); }

RefusalNote::RefusalNote(QWidget* window) : QLabel(window) {
  setObjectName(QStringLiteral("refusal"));
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  setMargin(kMargin);
  setAutoFillBackground(true);
  // What stands below it can still be clicked.
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

void RefusalNote::ShowAt(QWidget& control, const QString& reason) {
  Clear();
  control_ = &control;
  description_ = control.accessibleDescription();
  control.setAccessibleDescription(reason + QLatin1Char(' ') + description_);
  auto colors = parentWidget()->palette();
  colors.setColor(QPalette::WindowText, FaultText(colors));
  colors.setColor(QPalette::Window, FaultGround(colors));
  setPalette(colors);
  setText(reason);
  const auto below = control.mapTo(parentWidget(), QPoint(0, control.height()));
  const int line = fontMetrics().horizontalAdvance(reason) + 2 * kMargin + 1;
  const int width = std::min(line, parentWidget()->width() - below.x());
  resize(width, heightForWidth(width));
  move(below);
  show();
  raise();
}

void RefusalNote::Clear() {
  hide();
  if (control_) control_->setAccessibleDescription(description_);
  control_.clear();
}

}  // namespace orvex::windows
