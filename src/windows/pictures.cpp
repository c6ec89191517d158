#include "windows/pictures.h"

#include <QBuffer>
#include <QColor>
#include <QFile>
#include <QImageReader>

// Outside of every namespace, as it is declared where the resources are made.
static void InitPictures() { Q_INIT_RESOURCE(windows); }

namespace orvex::windows {
namespace {

constexpr int kIconSizes[] = {16, 22, 24, 32, 48, 64, 96, 128};

QByteArray Drawing(const QString& name) {
  InitPictures();
  QFile file(QStringLiteral(":/windows/pictures/%1.svg").arg(name));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

QPixmap Picture(const QString& name, QSize size, double pixel_ratio, const QPalette& palette) {
  auto drawing = Drawing(name);
  drawing.replace("currentColor", palette.color(QPalette::WindowText).name().toLatin1());
  QBuffer buffer(&drawing);
  QImageReader reader(&buffer, "svg");
  reader.setScaledSize(reader.size().scaled(size * pixel_ratio, Qt::KeepAspectRatio));
  auto picture = QPixmap::fromImageReader(&reader);
  picture.setDevicePixelRatio(pixel_ratio);
  return picture;
}

QIcon PictureIcon(const QString& name, const QPalette& palette) {
  QIcon icon;
  for (const int size : kIconSizes) icon.addPixmap(Picture(name, {size, size}, 1, palette));
  return icon;
}

QIcon ProgramIcon() {
  InitPictures();
  return QIcon(QStringLiteral(":/windows/pictures/orvex.svg"));
}

}  // namespace orvex::windows
