#pragma once

#include <QByteArray>
#include <QWidget>
#include <string>

namespace orvex::windows {

/// Shows the drawing of a tank, as large as there is room and never smaller than it is made for.
class TankPicture : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  /// @param svg the drawing as an SVG text
  void Show(const std::string& svg);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QByteArray svg_;
};

}  // namespace orvex::windows
