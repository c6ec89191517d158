#pragma once

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include "shell/controls.h"
#include "windows/display_text.h"

/// What windows share that show one row of several at a time.
namespace orvex::windows {

/// "Component 1 of 3" stands out.
inline void DressRecordLabel(QLabel& label) {
  label.setTextFormat(Qt::PlainText);
  auto bold = label.font();
  bold.setBold(true);
  label.setFont(bold);
}

inline void ShowRecordLabel(QLabel& label, const shell::TextBox& record) {
  label.setText(Shown(record.text));
  label.setAccessibleName(label.text());
  label.setVisible(record.visible);
}

/// Enter presses the button that has the focus, and no other, in a window without a default one. Whether it did.
inline bool PressFocusedButton(const QWidget& window, const QKeyEvent& event) {
  auto* button = qobject_cast<QPushButton*>(window.focusWidget());
  const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
  if (!enter || button == nullptr) return false;
  button->click();
  return true;
}

/// Enter belongs to the entries of the window.
inline void NoDefaultButton(QWidget& window) {
  for (auto* button : window.findChildren<QPushButton*>()) button->setAutoDefault(false);
}

}  // namespace orvex::windows
