#pragma once

#include <QFrame>
#include <QString>

namespace orvex::windows {

/// One line of text that gives way where there is no room for it: its middle is left out, and the tool tip tells the
/// whole.
class ElidedLabel : public QFrame {
  Q_OBJECT

 public:
  /// @param title what the text is, read aloud before it
  ElidedLabel(const QString& name, const QString& title, QWidget* parent);

  [[nodiscard]] QString Text() const { return text_; }
  void SetText(const QString& text);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString title_;
  QString text_;
};

}  // namespace orvex::windows
