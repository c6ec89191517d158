#include "windows/backdrop.h"

#include <QEvent>
#include <QPainter>

#include "windows/pictures.h"

namespace orvex::windows {
namespace {

constexpr double kFaint = 0.22;
constexpr QSize kLargestLogo(560, 280);
constexpr double kShareOfRoom = 0.6;
constexpr int kSentenceLines = 3;
constexpr int kUsualLetters = 130;
constexpr int kUsualLines = 36;
constexpr int kLeastLetters = 40;
constexpr int kLeastLines = 8;

}  // namespace

Backdrop::Backdrop(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("backdrop"));
  setAccessibleName(
      tr("Choose a command from the menus: Report computes the losses of your tanks. F1 opens the help."));
}

QSize Backdrop::sizeHint() const {
  return {fontMetrics().averageCharWidth() * kUsualLetters, fontMetrics().lineSpacing() * kUsualLines};
}

QSize Backdrop::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * kLeastLetters, fontMetrics().lineSpacing() * kLeastLines};
}

const QPixmap& Backdrop::Logo(QSize size) {
  const auto shown = logo_.deviceIndependentSize().toSize();
  if (logo_.isNull() || (shown.width() != size.width() && shown.height() != size.height()))
    logo_ = Picture(QStringLiteral("logo"), size, devicePixelRatioF(), palette());
  return logo_;
}

void Backdrop::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const auto& logo = Logo((QSizeF(size()) * kShareOfRoom).toSize().boundedTo(kLargestLogo));
  const auto logo_size = logo.deviceIndependentSize().toSize();
  const int line = fontMetrics().lineSpacing();
  const int top = qMax(0, (height() - logo_size.height() - kSentenceLines * line) / 2);
  painter.setOpacity(kFaint);
  painter.drawPixmap((width() - logo_size.width()) / 2, top, logo);
  painter.setOpacity(1);
  painter.setPen(palette().color(QPalette::WindowText));
  const QRect below(line, top + logo_size.height() + line, width() - 2 * line, kSentenceLines * line);
  painter.drawText(below, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, accessibleName());
}

void Backdrop::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) logo_ = {};
  QWidget::changeEvent(event);
}

}  // namespace orvex::windows
