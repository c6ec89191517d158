#include "windows/choice_box.h"

#include <QAbstractItemView>
#include <QAbstractProxyModel>
#include <QApplication>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "windows/display_text.h"

namespace orvex::windows {
namespace {

constexpr int kRowsShown = 14;

/// The focus is lent, or comes back.
bool IsPassing(const QFocusEvent& event) {
  const auto reason = event.reason();
  return reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason || reason == Qt::MenuBarFocusReason;
}

/// A line with its cursor and what is selected, which setting its text anew loses.
struct LineState {
  explicit LineState(const QLineEdit* line) {
    if (line == nullptr) return;
    text = line->text();
    cursor = line->cursorPosition();
    selected_from = line->selectionStart();
    selected = line->selectionLength();
  }

  void Restore(QLineEdit& line) const {
    // What was there to be typed over is so still.
    if (selected > 0 && selected == text.size()) return line.selectAll();
    if (line.text() != text) return;
    if (selected_from >= 0 && line.selectionLength() != selected) line.setSelection(selected_from, selected);
    if (selected_from < 0 && line.cursorPosition() != cursor) line.setCursorPosition(cursor);
  }

  QString text;
  int cursor = 0;
  int selected_from = -1;
  int selected = 0;
};

}  // namespace

ChoiceBox::ChoiceBox(Typing typing, QWidget* parent) : QComboBox(parent), typing_(typing) {
  // Else a wheel that was to move the page changes what it passes.
  setFocusPolicy(Qt::StrongFocus);
  setMaxVisibleItems(kRowsShown);
  setInsertPolicy(QComboBox::NoInsert);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  if (typing_ != Typing::kNothing) MakeLine();
  // When it is left, a box that can be typed in chooses by itself; here that is said by `Settle`.
  connect(this, &QComboBox::activated, this, [this](int item) {
    if (!leaving_) Pick(item);
  });
}

void ChoiceBox::MakeLine() {
  setEditable(true);
  completer()->setCompletionMode(QCompleter::PopupCompletion);
  completer()->setFilterMode(Qt::MatchContains);
  completer()->setCaseSensitivity(Qt::CaseInsensitive);
  completer()->setMaxVisibleItems(kRowsShown);
  completer()->popup()->installEventFilter(this);
  connect(lineEdit(), &QLineEdit::textEdited, this, &ChoiceBox::NoteTyped);
}

bool ChoiceBox::eventFilter(QObject* watched, QEvent* event) {
  // Where a list that drops down becomes the active window, it would stay so when nothing is found any more, and no key
  // could leave the box.
  const bool ends = event->type() == QEvent::Hide && watched == QApplication::activeWindow();
  // The platform may tell so when the list is gone already.
  const bool comes_late = event->type() == QEvent::WindowActivate && !qobject_cast<QWidget*>(watched)->isVisible();
  if (ends || comes_late) window()->activateWindow();
  return QComboBox::eventFilter(watched, event);
}

void ChoiceBox::SetTyping(Typing typing) {
  if (typing == typing_) return;
  typing_ = typing;
  finding_ = naming_ = false;
  ShowText(told_);
}

void ChoiceBox::NoteTyped(const QString& text) {
  if (typing_ != Typing::kFinds) {
    if (!std::exchange(naming_, true)) before_ = told_;
    told_ = text;
    Q_EMIT Typed(text);
    return;
  }
  const bool begins = !finding_;
  finding_ = true;
  if (!begins) return;
  wanted_ = Wanted::kMatches;
  Q_EMIT Opening();
}

void ChoiceBox::Take(int item) {
  if (item < 0 || item >= static_cast<int>(items_.size())) return;
  finding_ = false;
  if (std::exchange(naming_, false) && typing_ == Typing::kNames) Q_EMIT Typed(before_);
  told_ = itemText(item);
  ShowText(told_);
  Q_EMIT Chosen(item);
}

void ChoiceBox::Pick(int item) {
  Take(item);
  // The next one may be looked for at once. The line itself, too, is told what was picked, and loses what is selected.
  if (lineEdit() != nullptr) QTimer::singleShot(0, lineEdit(), &QLineEdit::selectAll);
}

void ChoiceBox::Draw(const shell::ComboBox& record) {
  const QSignalBlocker quiet(this);
  const LineState line(lineEdit());
  const bool refill = items_ != record.items;
  if (refill) {
    items_ = record.items;
    clear();
    for (const auto& item : items_) addItem(Shown(item));
  }
  const auto at = std::ranges::find(items_, record.text);
  const int item = at == items_.end() ? -1 : static_cast<int>(at - items_.begin());
  if (refill || item != currentIndex()) setCurrentIndex(item);
  told_ = Shown(record.text);
  if (lineEdit() == nullptr) return;
  ShowText(finding_ ? line.text : told_);
  line.Restore(*lineEdit());
}

void ChoiceBox::ShowText(const QString& text) {
  if (lineEdit() == nullptr || lineEdit()->text() == text) return;
  lineEdit()->setText(text);
  // Of a name that is too long, its beginning.
  if (!hasFocus()) lineEdit()->setCursorPosition(0);
}

void ChoiceBox::showPopup() {
  if (wanted_ == Wanted::kList) return;
  wanted_ = Wanted::kList;
  Q_EMIT Opening();
}

void ChoiceBox::Opened() {
  const auto wanted = wanted_;
  wanted_ = Wanted::kNothing;
  if (!isVisible() || !isEnabled() || !hasFocus()) return;
  if (wanted == Wanted::kMatches && finding_) {
    completer()->setCompletionPrefix(lineEdit()->text());
    // A list without rows would only take the keyboard.
    if (completer()->completionCount() > 0) completer()->complete();
  } else if (wanted == Wanted::kList) {
    const int room = view()->verticalScrollBar()->sizeHint().width() + 2 * view()->frameWidth();
    view()->setMinimumWidth(qMin(view()->sizeHintForColumn(0) + room, screen()->availableSize().width() / 2));
    QComboBox::showPopup();
  }
}

QAbstractItemView* ChoiceBox::Matches() const {
  auto* popup = completer() == nullptr ? nullptr : completer()->popup();
  return popup != nullptr && popup->isVisible() ? popup : nullptr;
}

int ChoiceBox::ItemOf(const QString& text) const {
  const int same = findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive);
  return same >= 0 ? same : findText(text, Qt::MatchFixedString);
}

int ChoiceBox::Found() const {
  if (const int whole = ItemOf(lineEdit()->text()); whole >= 0) return whole;
  const auto* proxy = qobject_cast<const QAbstractProxyModel*>(completer()->completionModel());
  return proxy->mapToSource(proxy->index(0, 0)).row();
}

void ChoiceBox::PressEnter() {
  auto* matches = Matches();
  if (matches == nullptr) {
    if (finding_) Settle(lineEdit()->text());
    Q_EMIT Activated();
    return;
  }
  matches->hide();
  if (typing_ != Typing::kFinds || matches->model()->rowCount() == 0) return;
  const int item = Found();
  setCurrentIndex(item);
  Pick(item);
}

void ChoiceBox::GiveUpFinding() {
  if (auto* matches = Matches()) matches->hide();
  finding_ = false;
  ShowText(told_);
  lineEdit()->selectAll();
}

void ChoiceBox::keyPressEvent(QKeyEvent* event) {
  const auto* matches = Matches();
  const int key = event->key();
  const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
  // The list of what was found takes what is marked in it by itself.
  if (enter && matches != nullptr && matches->currentIndex().isValid()) return event->ignore();
  const bool opens = key == Qt::Key_Down || key == Qt::Key_Up;
  if (enter) {
    PressEnter();
  } else if (key == Qt::Key_Escape && (finding_ || (typing_ == Typing::kNames && matches != nullptr))) {
    GiveUpFinding();
  } else if (opens && matches == nullptr && isEditable()) {
    showPopup();
  } else {
    return QComboBox::keyPressEvent(event);
  }
  event->accept();
}

void ChoiceBox::focusInEvent(QFocusEvent* event) {
  QComboBox::focusInEvent(event);
  const bool comes_back = std::exchange(entered_, true) && IsPassing(*event);
  if (lineEdit() == nullptr || comes_back) return;
  lineEdit()->selectAll();
  // The press that follows sets the cursor.
  if (event->reason() == Qt::MouseFocusReason) QTimer::singleShot(0, lineEdit(), &QLineEdit::selectAll);
}

void ChoiceBox::focusOutEvent(QFocusEvent* event) {
  if (!IsPassing(*event)) entered_ = false;
  const auto text = lineEdit() == nullptr ? QString() : lineEdit()->text();
  leaving_ = true;
  QComboBox::focusOutEvent(event);
  leaving_ = false;
  if (lineEdit() != nullptr && !IsPassing(*event)) Settle(text);
}

void ChoiceBox::Settle(const QString& text) {
  const int item = ItemOf(text);
  finding_ = naming_ = false;
  // A name that was come to among those offered, and not picked, is not meant.
  const bool passed = typing_ == Typing::kNames && item >= 0;
  if (text == told_ || passed || (typing_ == Typing::kFinds && item < 0)) return ShowText(told_);
  if (item >= 0) return Take(item);
  told_ = text;
  Q_EMIT Typed(text);
}

void ChoiceBox::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) return QComboBox::wheelEvent(event);
  event->ignore();
}

}  // namespace orvex::windows
