#pragma once

#include <QByteArray>
#include <QWidget>
#include <string>

namespace orvex::windows {

/// Shows a picture that is made anew while the person works, as large as there is room and never smaller than it is
/// made for.
class SvgPicture : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  /// @param svg the picture as an SVG text, made to be shown one unit a pixel or larger
  /// @param words what is to be seen in it, for those who cannot see it
  void Show(const std::string& svg, const std::string& words = {});

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QByteArray svg_;
  QSize sheet_;  ///< what the picture is made for
};

/// For the plot of a reference record.
SvgPicture* MakePlotOf(QWidget* window);

}  // namespace orvex::windows
