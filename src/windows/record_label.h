#pragma once

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

/// Enter belongs to the entries of the window.
inline void NoDefaultButton(QWidget& window) {
  for (auto* button : window.findChildren<QPushButton*>()) button->setAutoDefault(false);
}

}  // namespace orvex::windows
