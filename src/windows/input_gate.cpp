#include "windows/input_gate.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <algorithm>
#include <iterator>

namespace orvex::windows {
namespace {

constexpr QEvent::Type kHeldBack[] = {
    QEvent::KeyPress,
    QEvent::KeyRelease,
    QEvent::Shortcut,
    QEvent::ShortcutOverride,
    QEvent::MouseButtonPress,
    QEvent::MouseButtonRelease,
    QEvent::MouseButtonDblClick,
    QEvent::NonClientAreaMouseButtonPress,
    QEvent::Wheel,
    QEvent::ContextMenu,
    QEvent::TabletPress,
    QEvent::TabletRelease,
    QEvent::TouchBegin,
    QEvent::TouchUpdate,
    QEvent::TouchEnd,
    QEvent::InputMethod,
    QEvent::DragEnter,
    QEvent::Drop,
    QEvent::Close,
};

}  // namespace

InputGate::InputGate() { QCoreApplication::instance()->installEventFilter(this); }

InputGate::~InputGate() { QCoreApplication::instance()->removeEventFilter(this); }

bool InputGate::PassEvents() {
  QCoreApplication::processEvents();
  return escape_;
}

bool InputGate::eventFilter(QObject*, QEvent* event) {
  const auto type = event->type();
  if (std::find(std::begin(kHeldBack), std::end(kHeldBack), type) == std::end(kHeldBack)) return false;
  if (type == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) escape_ = true;
  if (type == QEvent::Close) event->ignore();
  return true;
}

}  // namespace orvex::windows
