#include "windows/typist.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPixmap>
#include <QTest>
#include <QToolButton>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace orvex::test {
namespace {

/// More than the longest way round a window, or down the list of the cities.
constexpr int kMostSteps = 400;

const QString kMessage = QStringLiteral("message");

/// Whether the keyboard belongs to the window on top, or to a list or menu that has dropped down. Where a report has
/// come to the front the person goes back to the window below, as the desktop lets one; that takes a moment.
bool HasKeyboard(QWidget& top) {
  if (QApplication::activePopupWidget() != nullptr || QApplication::activeWindow() == &top) return true;
  top.activateWindow();
  return false;
}

/// A button that is pressed by its access key stays down for a moment, and acts then. A tool button of a file dialog
/// stays down as long as the view that it stands for is shown.
bool IsPressing(const QWidget& window) {
  return std::ranges::any_of(window.findChildren<QAbstractButton*>(), [](const QAbstractButton* button) {
    return button->isDown() && qobject_cast<const QToolButton*>(button) == nullptr;
  });
}

QString TextOf(const QWidget& control) {
  if (const auto* line = qobject_cast<const QLineEdit*>(&control)) return line->text();
  if (const auto* label = qobject_cast<const QLabel*>(&control)) return label->text();
  if (const auto* list = qobject_cast<const QComboBox*>(&control)) return list->currentText();
  throw std::runtime_error("nothing to read in " + control.objectName().toStdString());
}

/// The rows of the list that has dropped down; null until it has.
QAbstractItemView* DroppedRows() {
  auto* popup = QApplication::activePopupWidget();
  if (popup == nullptr) return nullptr;
  auto* view = qobject_cast<QAbstractItemView*>(popup);
  return view != nullptr ? view : popup->findChild<QAbstractItemView*>();
}

int RowOf(const QAbstractItemView& view, const QString& item) {
  const auto& model = *view.model();
  for (int row = 0; row < model.rowCount(view.rootIndex()); ++row)
    if (model.index(row, 0, view.rootIndex()).data().toString() == item) return row;
  throw std::runtime_error("the list has no " + item.toStdString());
}

bool IsAt(const QAbstractItemView& view, const QString& item) {
  return view.selectionModel()->isSelected(view.currentIndex()) && view.currentIndex().data().toString() == item;
}

/// Presses an arrow key until the row is come to.
void ArrowToRow(QAbstractItemView& view, const QString& item) {
  const int wanted = RowOf(view, item);
  for (int step = 0; step < kMostSteps && !IsAt(view, item); ++step)
    PressKey(view.currentIndex().isValid() && view.currentIndex().row() > wanted ? QStringLiteral("Up")
                                                                                 : QStringLiteral("Down"));
  EXPECT_TRUE(IsAt(view, item)) << item.toStdString();
}

}  // namespace

QString FocusOf(const QWidget& window) {
  const auto* widget = window.focusWidget();
  while (widget != nullptr && widget != &window && widget->objectName().isEmpty()) widget = widget->parentWidget();
  return widget == nullptr || widget == &window ? QString() : widget->objectName();
}

void PressKey(const QString& key) {
  const auto pressed = QKeySequence(key)[0];
  QTest::keyClick(QGuiApplication::focusWindow(), pressed.key(), pressed.keyboardModifiers());
}

void Typist::Until(const QString& window, std::function<bool(QWidget& window)> deed) {
  Person::Until(window,
                [deed = std::move(deed)](QWidget& top) { return HasKeyboard(top) && !IsPressing(top) && deed(top); });
}

void Typist::Keys(const QStringList& keys) {
  for (const auto& key : keys) In(window_, [key](QWidget&) { PressKey(key); });
}

void Typist::Type(const QString& text) {
  In(window_, [text](QWidget& window) {
    if (FocusOf(window).isEmpty()) throw std::runtime_error("nothing has the focus for " + text.toStdString());
    for (const auto letter : text) QTest::keyClick(QGuiApplication::focusWindow(), letter.toLatin1());
  });
}

void Typist::TabTo(const QString& control) {
  Until(window_, [control, steps = 0](QWidget& window) mutable {
    const auto focus = FocusOf(window);
    if (focus == control) return true;
    if (focus.isEmpty() || !window.focusWidget()->isVisible() || !window.focusWidget()->isEnabled())
      throw std::runtime_error("behind '" + focus.toStdString() + "' the focus is lost, on the way to " +
                               control.toStdString());
    if (++steps > kMostSteps) throw std::runtime_error("the Tab key does not lead to " + control.toStdString());
    PressKey(QStringLiteral("Tab"));

    // What happens on entering it may put a question in front of the window.
    return FocusOf(window) == control;
  });
}

void Typist::Fill(const QString& entry, const QString& text) {
  TabTo(entry);
  Type(text);
}

void Typist::Arrow(const QString& list, const QString& item) {
  TabTo(list);
  Until(window_, [list, item, steps = 0](QWidget& window) mutable {
    auto& box = ::orvex::test::Find<QComboBox>(window, list);
    if (box.currentText() == item) return true;
    if (++steps > kMostSteps) throw std::runtime_error("the arrow keys do not lead to " + item.toStdString());
    const int wanted = box.findText(item);
    PressKey(wanted >= 0 && wanted < box.currentIndex() ? QStringLiteral("Up") : QStringLiteral("Down"));
    return box.currentText() == item;
  });
}

void Typist::Open(const QString& list, const QString& item) {
  TabTo(list);
  Keys({QStringLiteral("Alt+Down")});
  Until(window_, [list, steps = 0](QWidget&) mutable {
    if (++steps > kMostSteps) throw std::runtime_error("nothing drops down from " + list.toStdString());
    return DroppedRows() != nullptr;
  });
  In(window_, [item](QWidget&) {
    ArrowToRow(*DroppedRows(), item);
    PressKey(QStringLiteral("Return"));
  });
}

void Typist::Find(const QString& list, const QString& part, const QString& item) {
  Fill(list, part);
  Until(window_, [list, steps = 0](QWidget&) mutable {
    if (++steps > kMostSteps) throw std::runtime_error("nothing drops down from " + list.toStdString());
    return DroppedRows() != nullptr;
  });
  In(window_, [item](QWidget&) {
    ArrowToRow(*DroppedRows(), item);
    PressKey(QStringLiteral("Return"));
  });
  Read(list, item);
}

void Typist::Tick(const QString& box) {
  TabTo(box);
  Keys({QStringLiteral("Space")});
}

void Typist::Row(const QString& list, const QString& row) {
  TabTo(list);
  In(window_, [list, row](QWidget& window) { ArrowToRow(::orvex::test::Find<QListView>(window, list), row); });
}

void Typist::Reply(const QString& text, const QString& key) {
  In(kMessage, [text, key](QWidget& window) {
    EXPECT_EQ(dynamic_cast<QMessageBox&>(window).text().toStdString(), text.toStdString());
    PressKey(key);
  });
}

void Typist::Read(const QString& control, const QString& text) {
  In(window_, [control, text](QWidget& window) {
    EXPECT_EQ(TextOf(::orvex::test::Find<QWidget>(window, control)).toStdString(), text.toStdString())
        << control.toStdString();
  });
}

void Typist::ExpectFocus(const QString& control) {
  In(window_, [control](QWidget& window) { EXPECT_EQ(FocusOf(window).toStdString(), control.toStdString()); });
}

void Typist::Look(const QString& name) {
  In(window_, [name](QWidget& window) {
    const auto folder = qEnvironmentVariable("ORVEX_PICTURES");
    if (!folder.isEmpty()) window.grab().save(QDir(folder).filePath(name + QStringLiteral(".png")));
  });
}

}  // namespace orvex::test
