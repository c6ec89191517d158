#include "windows/model_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
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
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <stdexcept>
#include <string>

#include "windows/display_text.h"
#include "windows/guarded.h"

namespace orvex::windows {
namespace {

/// What a screen's window manager takes for itself around a window.
constexpr QSize kDecoration(16, 48);

QString Name(std::string_view name) { return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size())); }

}  // namespace

ModelDialog::ModelDialog(const ViewPlace& place, const shell::WindowText& text, shell::WindowState& state)
    : QDialog(place.parent), session_(place.session), text_(text), state_(state), settings_(place.settings) {
  setObjectName(Name(text.name));
  setWindowTitle(Shown(text.title));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  // Not application modal: the report windows stay at hand.
  setWindowModality(Qt::WindowModal);
  auto* help = new QShortcut(QKeySequence(Qt::Key_F1), this);
  connect(help, &QShortcut::activated, this,
          [this] { Guarded(session_, [this] { session_.host.ShowHelp(std::string(text_.topic)); }); });
}

const shell::ControlText& ModelDialog::TextOf(std::string_view name) const {
  const auto found = std::ranges::find(text_.controls, name, &shell::ControlText::name);
  if (found == text_.controls.end())
    throw std::logic_error(std::string(text_.name) + " has no text for " + std::string(name));
  return *found;
}

void ModelDialog::Dress(QWidget* widget, std::string_view name) {
  const auto& text = TextOf(name);
  const auto spoken = SpokenCaption(text.caption);
  widget->setObjectName(Name(name));
  widget->setToolTip(PlainToolTip(Shown(text.tip)));
  widget->setAccessibleName(spoken.isEmpty() ? Shown(text.tip) : spoken);
  widget->setAccessibleDescription(Shown(text.tip));
}

template <typename Record>
void ModelDialog::DrawState(QWidget* widget, const Record& record) {
  widget->setEnabled(record.enabled);
  widget->setVisible(record.visible);
}

QPushButton* ModelDialog::MakeButton(std::string_view name, const shell::Button& record, Action clicked) {
  auto* button = new QPushButton(Shown(TextOf(name).caption), this);
  Dress(button, name);
  connect(button, &QPushButton::clicked, this, [this, clicked = std::move(clicked)] { Act(clicked); });
  AlsoDraw([this, button, &record] { DrawState(button, record); });
  return button;
}

QCheckBox* ModelDialog::MakeCheckBox(std::string_view name, shell::CheckBox& record, Action changed) {
  auto* box = new QCheckBox(Shown(TextOf(name).caption), this);
  Dress(box, name);
  connect(box, &QCheckBox::toggled, this, [this, &record, changed = std::move(changed)](bool checked) {
    record.checked = checked;
    Act(changed);
  });
  AlsoDraw([this, box, &record] {
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
  AlsoDraw([this, option, &record] {
    const QSignalBlocker quiet(option);
    option->setChecked(record.chosen);
    DrawState(option, record);
  });
  return option;
}

QLineEdit* ModelDialog::MakeTextBox(std::string_view name, shell::TextBox& record, Action edited) {
  auto* line = new QLineEdit(this);
  Dress(line, name);
  line->installEventFilter(this);
  // A text that the person leaves alone is never written back: a path need not be text that the toolkit can hold.
  connect(line, &QLineEdit::textEdited, this, [this, &record, edited = std::move(edited)](const QString& text) {
    record.text = Bytes(text);
    Act(edited);
  });
  AlsoDraw([this, line, &record] {
    const QSignalBlocker quiet(line);
    // Setting the same text anew would move the cursor.
    if (const auto text = Shown(record.text); line->text() != text) {
      line->setText(text);
      if (record.read_only) line->setCursorPosition(0);
    }
    line->setReadOnly(record.read_only);
    DrawState(line, record);
  });
  return line;
}

QComboBox* ModelDialog::MakeComboBox(std::string_view name, shell::ComboBox& record, Action chosen) {
  auto* box = new QComboBox(this);
  Dress(box, name);
  connect(box, &QComboBox::currentIndexChanged, this, [this, &record, chosen = std::move(chosen)](int at) {
    record.text = at < 0 ? std::string() : record.items[static_cast<std::size_t>(at)];
    Act(chosen);
  });
  AlsoDraw([this, box, &record, drawn = std::vector<std::string>()]() mutable {
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
  AlsoDraw([this, frame, &record] { DrawState(frame, record); });
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

void ModelDialog::Act(const Action& action) {
  if (action) Guarded(session_, action);
  Draw();
}

void ModelDialog::Draw() {
  for (const auto& draw : drawings_) draw();
  if (state_.closed || session_.ended) return Unload();
  if (state_.focus.empty()) return;
  auto* next = findChild<QWidget*>(Name(state_.focus));
  state_.focus = {};
  if (next == nullptr) return;
  // Not now: the event that is being handled may itself move the focus.
  QTimer::singleShot(0, next, [next] { next->setFocus(Qt::OtherFocusReason); });
}

void ModelDialog::Prepare() {
  Draw();
  const auto room = screen()->availableSize() - kDecoration;
  ScrollWhereTooLarge(room);
  const auto remembered = settings_ == nullptr ? QSize() : settings_->value(SizeKey()).toSize();
  resize(sizeHint().expandedTo(remembered).boundedTo(room));
}

void ModelDialog::ScrollWhereTooLarge(QSize room) {
  layout()->activate();
  const auto least = minimumSizeHint();
  if (least.width() <= room.width() && least.height() <= room.height()) return;
  // The layout has set it to what the screen has no room for.
  setMinimumSize(0, 0);
  auto* body = new QWidget;
  body->setLayout(layout());
  auto* area = new QScrollArea(this);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setWidget(body);
  auto* around = new QVBoxLayout(this);
  around->setContentsMargins(0, 0, 0, 0);
  around->addWidget(area);
}

QString ModelDialog::SizeKey() const { return objectName() + QStringLiteral("/size"); }

void ModelDialog::Unload() { done(Accepted); }

void ModelDialog::done(int result) {
  if (settings_ != nullptr && isVisible()) settings_->setValue(SizeKey(), size());
  unloaded_ = true;
  QDialog::done(result);
}

void ModelDialog::reject() {
  if (close_button_ == nullptr) return QDialog::reject();
  if (close_button_->isEnabled()) close_button_->click();
}

bool ModelDialog::eventFilter(QObject* watched, QEvent* event) {
  // A text that is come to is there to be written over, also by the mouse, whose press then sets the cursor.
  if (event->type() == QEvent::FocusIn) {
    auto* line = qobject_cast<QLineEdit*>(watched);
    if (line != nullptr && !line->isReadOnly()) QTimer::singleShot(0, line, &QLineEdit::selectAll);
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace orvex::windows
