#pragma once

#include <QObject>

namespace orvex::windows {

/// Lets a running command draw its windows without letting the person start another one: while a gate stands, keys and
/// mouse come to nothing and no window closes. Only Escape is noticed.
class InputGate : public QObject {
  Q_OBJECT

 public:
  InputGate();
  ~InputGate() override;

  /// Handles what is waiting. Returns whether Escape was among it.
  bool PassEvents();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool escape_ = false;
};

}  // namespace orvex::windows
