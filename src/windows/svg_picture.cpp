#include "windows/svg_picture.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <utility>

#include "windows/display_text.h"

namespace orvex::windows {
namespace {

constexpr int kEdge = 1;

}  // namespace

void SvgPicture::Show(const std::string& svg, const std::string& words) {
  setAccessibleDescription(Shown(words));
  auto bytes = QByteArray::fromStdString(svg);
  if (bytes == svg_) return;
  svg_ = std::move(bytes);
  QBuffer buffer(&svg_);
  const auto sheet = QImageReader(&buffer, "svg").size();
  if (std::exchange(sheet_, sheet) != sheet) updateGeometry();
  update();
}

QSize SvgPicture::sizeHint() const { return sheet_ + QSize(2 * kEdge, 2 * kEdge); }
QSize SvgPicture::minimumSizeHint() const { return sizeHint(); }

void SvgPicture::paintEvent(QPaintEvent*) {
  QBuffer buffer(&svg_);
  QImageReader reader(&buffer, "svg");
  const auto room = rect().marginsRemoved(QMargins(kEdge, kEdge, kEdge, kEdge));
  const auto size = reader.size().scaled(room.size(), Qt::KeepAspectRatio);
  if (size.isEmpty()) return;
  QRect place(QPoint(), size);
  place.moveCenter(room.center());
  place.moveTop(room.top());

  QPainter painter(this);
  reader.setScaledSize(size * devicePixelRatio());
  painter.drawImage(place, reader.read());
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(place.marginsAdded(QMargins(kEdge, kEdge, 0, 0)));
}

SvgPicture* MakePlotOf(QWidget* window) {
  auto* plot = new SvgPicture(window);
  plot->setObjectName(QStringLiteral("plot"));
  plot->setAccessibleName(SvgPicture::tr("Plot of the record"));
  plot->setToolTip(SvgPicture::tr("The record as it stands in the entries"));
  return plot;
}

}  // namespace orvex::windows
