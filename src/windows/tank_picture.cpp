#include "windows/tank_picture.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include "entry/tank_drawing.h"

namespace orvex::windows {
namespace {

/// The drawing one unit a pixel, and the edge of its sheet.
constexpr QSize kSheet(entry::kDrawingWidth + 2, entry::kDrawingHeight + 2);
constexpr int kEdge = 1;

}  // namespace

void TankPicture::Show(const std::string& svg) {
  auto bytes = QByteArray::fromStdString(svg);
  if (bytes == svg_) return;
  svg_ = std::move(bytes);
  update();
}

QSize TankPicture::sizeHint() const { return kSheet; }
QSize TankPicture::minimumSizeHint() const { return kSheet; }

void TankPicture::paintEvent(QPaintEvent*) {
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

}  // namespace orvex::windows
