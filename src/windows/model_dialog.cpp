#include "windows/model_dialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QSettings>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

#include "windows/display_text.h"
#include "windows/entry_line.h"
#include "windows/guarded.h"

namespace orvex::windows {
namespace {

/// What a screen's window manager takes for itself around a window.
constexpr QSize kDecoration(16, 48);

QString Name(std::string_view name) { return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size())); }

template <typename Record>
void DrawState(QWidget* widget, const Record& record) {
  widget->setEnabled(record.enabled);
  widget->setVisible(record.visible);
}

}  // namespace

ModelDialog::ModelDialog(const ViewPlace& place, const shell::WindowText& text, shell::WindowState& state)
    : QDialog(place.parent),
      session_(place.session),
      text_(text),
      state_(state),
      settings_(place.settings),
      refusal_(new RefusalNote(this)) {
  setObjectName(Name(text.name));
  setWindowTitle(Shown(text.title));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  // Not application modal: the report windows stay at hand.
  setWindowModality(Qt::WindowModal);
  auto* help = new QShortcut(QKeySequence(Qt::Key_F1), this);
  connect(help, &QShortcut::activated, this,
          [this] { Guarded(session_, [this] { session_.host.ShowHelp(HelpTopic()); }); });
}

ModelDialog::~ModelDialog() {
  // A widget that goes loses the focus: nobody is to be told any more.
  disconnect(qApp, nullptr, this, nullptr);
  for (auto* widget : findChildren<QWidget*>()) widget->disconnect(this);
}

const shell::ControlText& ModelDialog::TextOf(std::string_view name) const {
  const auto found = std::ranges::find(text_.controls, name, &shell::ControlText::name);
  if (found == text_.controls.end())
    throw std::logic_error(std::string(text_.name) + " has no text for " + std::string(name));
  return *found;
}

std::string ModelDialog::TopicAtFocus() const {
  std::string topic(text_.topic);
  const auto* control = focusWidget();
  if (control != nullptr && !control->objectName().isEmpty()) topic += '#' + Bytes(control->objectName().toLower());
  return topic;
}

void ModelDialog::Dress(QWidget* widget, std::string_view name) {
  const auto& text = TextOf(name);
  const auto spoken = SpokenCaption(text.caption);
  widget->setObjectName(Name(name));
  widget->setToolTip(PlainToolTip(Shown(text.tip)));
  widget->setAccessibleName(spoken.isEmpty() ? Shown(text.tip) : spoken);
  widget->setAccessibleDescription(Shown(text.tip));
}

QPushButton* ModelDialog::MakeButton(std::string_view name, const shell::Button& record, Action clicked) {
  auto* button = new QPushButton(Shown(TextOf(name).caption), this);
  Dress(button, name);
  connect(button, &QPushButton::clicked, this, [this, button, clicked = std::move(clicked)] {
    TakeFocus(button);
    Act(clicked);
  });
  AlsoDraw([button, &record] { DrawState(button, record); });
  return button;
}

QCheckBox* ModelDialog::MakeCheckBox(std::string_view name, shell::CheckBox& record, Action changed) {
  auto* box = new QCheckBox(Shown(TextOf(name).caption), this);
  Dress(box, name);
  connect(box, &QCheckBox::toggled, this, [this, &record, changed = std::move(changed)](bool checked) {
    Act([&record, changed, checked] {
      record.checked = checked;
      if (changed) changed();
    });
  });
  AlsoDraw([box, &record] {
    const QSignalBlocker quiet(box);
    box->setChecked(record.checked);
    DrawState(box, record);
  });
  return box;
}

QRadioButton* ModelDialog::MakeOption(std::string_view name, shell::OptionButton& record, Action chosen) {
  auto* option = new QRadioButton(Shown(TextOf(name).caption).trimmed(), this);
  Dress(option, name);
  connect(option, &QRadioButton::toggled, this, [this, &record, chosen = std::move(chosen)](bool is_chosen) {
    record.chosen = is_chosen;
    // The one that is given up has told so before.
    if (is_chosen) Act(chosen);
  });
  AlsoDraw([option, &record] {
    const QSignalBlocker quiet(option);
    option->setChecked(record.chosen);
    DrawState(option, record);
  });
  return option;
}

QLineEdit* ModelDialog::MakeTextBox(std::string_view name, shell::TextBox& record, Action edited) {
  auto* line = new QLineEdit(this);
  BindLine(line, name, {record.text, record.enabled, record.visible, record.read_only}, std::move(edited));
  return line;
}

QLineEdit* ModelDialog::MakeLine(std::string_view name, LineRecord record, Action edited, Action activated) {
  auto* line = new EntryLine(this);
  BindLine(line, name, record, std::move(edited));
  connect(line, &EntryLine::Activated, this, [this, activated = std::move(activated)] { Act(activated); });
  return line;
}

void ModelDialog::BindLine(QLineEdit* line, std::string_view name, LineRecord record, Action edited) {
  Dress(line, name);
  line->installEventFilter(this);
  // A text that the person leaves alone is never written back: a path need not be text that the toolkit can hold.
  connect(line, &QLineEdit::textEdited, this, [this, record, edited = std::move(edited)](const QString& text) {
    record.text = Bytes(text);
    Act(edited);
  });
  AlsoDraw([line, record] {
    const QSignalBlocker quiet(line);
    // Setting the same text anew would move the cursor.
    if (const auto text = Shown(record.text); line->text() != text) {
      // A number that is proposed as the line is come to is there to be written over, too.
      const bool marked = line->hasSelectedText() && line->selectedText() == line->text();
      line->setText(text);
      if (marked) line->selectAll();
      // Of a text that is too long, its beginning.
      if (!line->hasFocus()) line->setCursorPosition(0);
    }
    line->setReadOnly(record.read_only);
    DrawState(line, record);
  });
}

QComboBox* ModelDialog::MakeComboBox(std::string_view name, shell::ComboBox& record, Action chosen) {
  auto* box = new QComboBox(this);
  Dress(box, name);
  connect(box, &QComboBox::currentIndexChanged, this, [this, &record, chosen = std::move(chosen)](int at) {
    record.text = at < 0 ? std::string() : record.items[static_cast<std::size_t>(at)];
    Act(chosen);
  });
  AlsoDraw([box, &record, drawn = std::vector<std::string>()]() mutable {
    const QSignalBlocker quiet(box);
    if (drawn != record.items) {
      drawn = record.items;
      box->clear();
      for (const auto& item : drawn) box->addItem(Shown(item));
    }
    const auto at = std::ranges::find(record.items, record.text);
    box->setCurrentIndex(at == record.items.end() ? -1 : static_cast<int>(at - record.items.begin()));
    DrawState(box, record);
  });
  return box;
}

ChoiceBox* ModelDialog::MakeChoice(std::string_view name, shell::ComboBox& record, ChoiceBox::Typing typing,
                                   ChoiceActions actions) {
  auto* box = new ChoiceBox(typing, this);
  Dress(box, name);
  connect(box, &ChoiceBox::Chosen, this, [this, &record, chosen = std::move(actions.chosen)](int item) {
    Act([&record, chosen, text = record.items[static_cast<std::size_t>(item)]] {
      record.text = text;
      if (chosen) chosen();
    });
  });
  connect(box, &ChoiceBox::Typed, this, [this, &record, typed = std::move(actions.typed)](const QString& text) {
    record.text = Bytes(text);
    Act(typed);
  });
  connect(box, &ChoiceBox::Opening, this, [this, box, opening = std::move(actions.opening)] {
    Act(opening);
    Act([box] { box->Opened(); });
  });
  connect(box, &ChoiceBox::Activated, this, [this, activated = std::move(actions.activated)] { Act(activated); });
  AlsoDraw([box, &record] {
    box->Draw(record);
    DrawState(box, record);
  });
  return box;
}

TextList* ModelDialog::MakeList(std::string_view name, shell::ListBox& record, TextList::Choice choice,
                                TextList::Find find, ItemAction picked, ItemAction double_clicked, Action emptied) {
  auto* list = new TextList(Name(name), choice, find, this);
  Dress(list->View(), name);
  if (auto* line = list->FindLine(); line != nullptr) {
    const auto tip = tr("Show only the names in \"%1\" that hold this text").arg(list->View()->accessibleName());
    line->setToolTip(PlainToolTip(tip));
    line->setAccessibleName(tip);
  }
  connect(list, &TextList::SelectionChanged, this, [this, list, &record, emptied = std::move(emptied)] {
    record.selected = list->Selected();
    Act(record.selected.empty() ? emptied : Action());
  });
  const auto bind = [this](ItemAction action) {
    return [this, action = std::move(action)](std::size_t item) {
      if (action) Act([&] { action(item); });
    };
  };
  connect(list, &TextList::Picked, this, bind(std::move(picked)));
  connect(list, &TextList::DoubleClicked, this, bind(std::move(double_clicked)));
  AlsoDraw([list, &record] { list->Draw(record); });
  return list;
}

QGroupBox* ModelDialog::MakeFrame(std::string_view name, const shell::Frame& record) {
  auto* frame = new QGroupBox(Shown(TextOf(name).caption), this);
  Dress(frame, name);
  AlsoDraw([frame, &record] { DrawState(frame, record); });
  return frame;
}

QLabel* ModelDialog::MakeCaption(std::string_view name, QWidget* control) {
  auto* caption = new QLabel(Shown(TextOf(name).caption), this);
  caption->setObjectName(Name(name) + QStringLiteral("Caption"));
  caption->setTextFormat(Qt::PlainText);
  caption->setBuddy(control);
  return caption;
}

QLabel* ModelDialog::MakeParagraph(std::string_view name) {
  auto* paragraph = new QLabel(Shown(TextOf(name).caption), this);
  paragraph->setObjectName(Name(name));
  paragraph->setAccessibleName(paragraph->text());
  paragraph->setTextFormat(Qt::PlainText);
  paragraph->setWordWrap(true);
  return paragraph;
}

void ModelDialog::Act(Action action) {
  if (watched_.empty()) return Run(action);
  deeds_.Add([this, action = std::move(action)] { Run(action); });
}

void ModelDialog::Run(const Action& action) {
  refusal_->Clear();
  if (action) Guarded(session_, action);
  Draw();
}

void ModelDialog::ActOnFocus(Action action) {
  deeds_.Add([this, action = std::move(action)] {
    refusal_->Clear();
    if (action) Guarded(session_, action);
    if (!state_.focus.empty()) {
      deeds_.Drop();
      // It goes back to where the person was: that is no entering.
      entered_ = WatchedOf(findChild<QWidget*>(Name(state_.focus)));
    }
    Draw();
  });
}

void ModelDialog::WatchFocus(QWidget* control, Action entered, Action left) {
  if (watched_.empty())
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { FollowFocus(now); });
  watched_.insert({control, {std::move(entered), std::move(left)}});
}

QWidget* ModelDialog::WatchedOf(QWidget* widget) const {
  while (widget != nullptr && widget != this && !watched_.contains(widget)) widget = widget->parentWidget();
  return widget == this ? nullptr : widget;
}

void ModelDialog::FollowFocus(QWidget* now) {
  // Other windows, lists that drop down among them, have it for a while only.
  if (now == nullptr || now->window() != this) return;
  auto* next = WatchedOf(now);
  if (next == entered_) return;
  auto* before = std::exchange(entered_, next);
  if (before != nullptr) ActOnFocus(watched_.at(before).left);
  if (next != nullptr) ActOnFocus(watched_.at(next).entered);
}

void ModelDialog::TakeFocus(QWidget* button) {
  // An access key alone leaves the focus where it was.
  if (!watched_.empty() && !button->hasFocus()) button->setFocus(Qt::ShortcutFocusReason);
}

void ModelDialog::DrawControls() const {
  for (const auto& draw : drawings_) draw();
}

void ModelDialog::Draw() {
  DrawControls();
  if (state_.closed || session_.ended) return Unload();
  if (!state_.focus.empty()) MoveFocus();
}

void ModelDialog::MoveFocus() {
  auto* next = findChild<QWidget*>(Name(state_.focus));
  const auto refusal = std::exchange(state_.refusal, {});
  state_.focus = {};
  if (next == nullptr) return;
  if (!refusal.empty()) refusal_->ShowAt(*next, Shown(refusal));
  if (deeds_.IsRunning()) return next->setFocus(Qt::OtherFocusReason);
  // Not now: the event that is being handled may itself move the focus.
  QTimer::singleShot(0, next, [next] { next->setFocus(Qt::OtherFocusReason); });
}

void ModelDialog::Prepare() {
  Draw();
  const auto room = screen()->availableSize() - kDecoration;
  const auto wanted = sizeHint();
  const auto bars = ScrollWhereTooLarge(room);
  const auto remembered = settings_ == nullptr ? QSize() : settings_->value(SizeKey()).toSize();
  resize((wanted + bars).expandedTo(remembered).boundedTo(room));
}

QSize ModelDialog::ScrollWhereTooLarge(QSize room) {
  layout()->activate();
  const auto least = minimumSizeHint();
  if (least.width() <= room.width() && least.height() <= room.height()) return {0, 0};
  // The layout has set it to what the screen has no room for.
  setMinimumSize(0, 0);
  auto* body = new QWidget;
  body->setLayout(layout());
  auto* area = new QScrollArea(this);
  area->setFrameShape(QFrame::NoFrame);
  // It follows the focus by itself; the Tab key would stop at it with nothing to be seen.
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidgetResizable(true);
  area->setWidget(body);
  auto* around = new QVBoxLayout(this);
  around->setContentsMargins(0, 0, 0, 0);
  around->addWidget(area);
  // Without room for it the bar of one direction would make one of the other necessary.
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, area);
  return {least.height() > room.height() ? bar : 0, least.width() > room.width() ? bar : 0};
}

QString ModelDialog::SizeKey() const { return objectName() + QStringLiteral("/size"); }

void ModelDialog::Unload() { done(Accepted); }

void ModelDialog::done(int result) {
  if (settings_ != nullptr && isVisible()) settings_->setValue(SizeKey(), size());
  unloaded_ = true;
  deeds_.Drop();
  QDialog::done(result);
}

void ModelDialog::reject() {
  if (close_button_ == nullptr) return QDialog::reject();
  if (close_button_->isEnabled()) close_button_->click();
}

bool ModelDialog::eventFilter(QObject* watched, QEvent* event) {
  // A text that is come to is there to be written over.
  if (event->type() == QEvent::FocusIn) {
    auto* line = qobject_cast<QLineEdit*>(watched);
    const bool editable = line != nullptr && !line->isReadOnly();
    if (editable) line->selectAll();
    // The press that follows sets the cursor.
    const bool by_mouse = static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason;
    if (editable && by_mouse) QTimer::singleShot(0, line, &QLineEdit::selectAll);
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace orvex::windows
