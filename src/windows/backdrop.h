#pragma once

#include <QPixmap>
#include <QWidget>

namespace orvex::windows {

/// What the main window shows while no other one is open: the logo, faintly, and a sentence on what to do.
class Backdrop : public QWidget {
  Q_OBJECT

 public:
  explicit Backdrop(QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  [[nodiscard]] const QPixmap& Logo(QSize size);

  QPixmap logo_;
};

}  // namespace orvex::windows
