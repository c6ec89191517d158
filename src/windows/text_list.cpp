#include "windows/text_list.h"

#include <QApplication>
#include <QItemSelection>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QVBoxLayout>
#include <algorithm>
#include <numeric>

#include "windows/display_text.h"

namespace orvex::windows {
namespace {

constexpr int kUsualRows = 10;
constexpr int kLeastRows = 3;
constexpr int kUsualLetters = 30;
constexpr int kLeastLetters = 16;

/// A key that writes a letter; a blank selects in a list.
bool WritesLetter(const QKeyEvent& key) {
  const auto text = key.text();
  const auto modifiers = key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
  return modifiers == Qt::NoModifier && !text.isEmpty() && text[0].isPrint() && !text[0].isSpace();
}

/// A key that goes on from the line to what it has found. Enter takes the one that is selected; where any number can
/// be, it takes none, and must not press the window's button.
bool LeadsToList(const QKeyEvent& key, QAbstractItemView::SelectionMode mode) {
  const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  return key.key() == Qt::Key_Down || (enter && mode == QAbstractItemView::ExtendedSelection);
}

}  // namespace

bool TextListModel::SetItems(const std::vector<std::string>& items) {
  if (items == items_) return false;
  beginResetModel();
  items_ = items;
  Filter();
  endResetModel();
  return true;
}

void TextListModel::SetFilter(const QString& text) {
  if (text == filter_) return;
  beginResetModel();
  filter_ = text;
  Filter();
  endResetModel();
}

void TextListModel::Filter() {
  shown_.resize(items_.size());
  std::iota(shown_.begin(), shown_.end(), std::size_t{0});
  if (filter_.isEmpty()) return;
  std::erase_if(shown_, [&](std::size_t item) { return !Shown(items_[item]).contains(filter_, Qt::CaseInsensitive); });
}

int TextListModel::RowOf(std::size_t item) const {
  const auto found = std::ranges::lower_bound(shown_, item);
  return found == shown_.end() || *found != item ? -1 : static_cast<int>(found - shown_.begin());
}

int TextListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

QVariant TextListModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || !index.isValid() || index.row() >= static_cast<int>(shown_.size())) return {};
  return Shown(items_[ItemOf(index.row())]);
}

TextList::TextList(const QString& name, Choice choice, Find find, QWidget* parent)
    : QWidget(parent), model_(new TextListModel(this)), view_(new QListView(this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  if (find == Find::kYes) {
    find_ = new QLineEdit(this);
    find_->setObjectName(name + QStringLiteral("Find"));
    find_->setPlaceholderText(tr("Find"));
    find_->setClearButtonEnabled(true);
    find_->installEventFilter(this);
    column->addWidget(find_);
    setTabOrder(find_, view_);
    connect(find_, &QLineEdit::textChanged, this, [this, choice](const QString& text) {
      const auto before = Selected();
      drawing_ = true;
      model_->SetFilter(text);
      Select(before);
      drawing_ = false;
      if (Selected() == before) return;
      // Where one is selected, it is one that can be seen: the first match takes the place of the one that is hidden.
      if (choice == Choice::kOne && model_->rowCount({}) > 0) return view_->setCurrentIndex(model_->index(0));
      Q_EMIT SelectionChanged();
    });
  }
  view_->setObjectName(name);
  view_->setModel(model_);
  view_->setUniformItemSizes(true);
  view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  view_->setSelectionMode(choice == Choice::kAny ? QAbstractItemView::ExtendedSelection
                                                 : QAbstractItemView::SingleSelection);
  view_->setTextElideMode(Qt::ElideMiddle);
  view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view_->installEventFilter(this);
  column->addWidget(view_, 1);
  setFocusProxy(view_);
  // The selection is told before the current item: of one that is both, the selection comes first.
  connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this, choice] {
    if (drawing_) return;
    // A click with Ctrl would leave a list without the one that is to be selected in it.
    if (choice == Choice::kOne && view_->currentIndex().isValid() && Selected().empty()) {
      drawing_ = true;
      view_->selectionModel()->select(view_->currentIndex(), QItemSelectionModel::ClearAndSelect);
      drawing_ = false;
      return;
    }
    Q_EMIT SelectionChanged();
    if (const auto selected = Selected(); choice == Choice::kOne && !selected.empty()) Q_EMIT Picked(selected.front());
  });
  if (choice == Choice::kAny) {
    connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& current) {
      if (!drawing_ && current.isValid()) Q_EMIT Picked(model_->ItemOf(current.row()));
    });
  }
  connect(view_, &QListView::doubleClicked, this,
          [this](const QModelIndex& index) { Q_EMIT DoubleClicked(model_->ItemOf(index.row())); });
}

void TextList::Draw(const shell::ListBox& record) {
  drawing_ = true;
  const bool has_others = model_->SetItems(record.items);
  if (has_others) updateGeometry();
  if (has_others || Selected() != record.selected) Select(record.selected);
  drawing_ = false;
  setEnabled(record.enabled);
  setVisible(record.visible);
}

std::vector<std::size_t> TextList::Selected() const {
  std::vector<std::size_t> items;
  for (const auto& range : view_->selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row) items.push_back(model_->ItemOf(row));
  std::ranges::sort(items);
  return items;
}

void TextList::Select(const std::vector<std::size_t>& items) {
  QItemSelection rows;
  for (auto item = items.begin(); item != items.end(); ++item) {
    const int first = model_->RowOf(*item);
    if (first < 0) continue;
    int last = first;
    while (item + 1 != items.end() && model_->RowOf(item[1]) == last + 1) ++last, ++item;
    rows.append(QItemSelectionRange(model_->index(first), model_->index(last)));
  }
  auto* selection = view_->selectionModel();
  selection->select(rows, QItemSelectionModel::ClearAndSelect);
  if (rows.isEmpty()) return;
  const auto current = rows.first().topLeft();
  if (!selection->isSelected(selection->currentIndex()))
    selection->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
  view_->scrollTo(selection->currentIndex());
}

QSize TextList::SizeOf(int letters, int rows) const {
  const auto font = fontMetrics();
  const int find = find_ == nullptr ? 0 : find_->sizeHint().height() + layout()->spacing();
  // A list without a line to find in is short, and shows its items whole.
  const int items = find_ != nullptr ? 0 : view_->sizeHintForColumn(0) + 2 * view_->frameWidth();
  return {qMax(font.averageCharWidth() * letters, items), font.lineSpacing() * rows + find};
}

QSize TextList::sizeHint() const { return SizeOf(kUsualLetters, kUsualRows); }

QSize TextList::minimumSizeHint() const { return SizeOf(kLeastLetters, kLeastRows); }

bool TextList::SelectsCurrent(const QKeyEvent& key) {
  const auto current = view_->currentIndex();
  const bool moves = key.key() == Qt::Key_Down || key.key() == Qt::Key_Up;
  if (!moves || key.modifiers() != Qt::NoModifier || !current.isValid() || !Selected().empty()) return false;
  view_->selectionModel()->select(current, QItemSelectionModel::ClearAndSelect);
  if (view_->selectionMode() == QAbstractItemView::ExtendedSelection) Q_EMIT Picked(model_->ItemOf(current.row()));
  return true;
}

bool TextList::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  auto& key = *static_cast<QKeyEvent*>(event);
  if (watched == view_ && SelectsCurrent(key)) return true;
  if (find_ == nullptr) return QWidget::eventFilter(watched, event);
  if (watched == view_ && WritesLetter(key)) {
    find_->setFocus(Qt::ShortcutFocusReason);
    find_->selectAll();
    QCoreApplication::sendEvent(find_, event);
    return true;
  }
  if (watched == find_ && LeadsToList(key, view_->selectionMode())) {
    if (model_->rowCount({}) == 0) return true;
    view_->setFocus(Qt::TabFocusReason);
    if (!view_->currentIndex().isValid()) view_->setCurrentIndex(model_->index(0));
    return true;
  }
  // Escape clears what was looked for before it closes the window.
  if (watched == find_ && key.key() == Qt::Key_Escape && !find_->text().isEmpty()) {
    find_->clear();
    view_->setFocus(Qt::OtherFocusReason);
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace orvex::windows
