#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "entry/entry_events.h"
#include "entry/physical_rules.h"
#include "entry/tank_drawing.h"
#include "windows/display_text.h"
#include "windows/frmtank_view.h"
#include "windows/refusal_note.h"
#include "windows/svg_picture.h"

namespace orvex::windows {
namespace {

using entry::Entry;
using entry::EntryKind;
using entry::Section;

constexpr int kNumberLetters = 12;
constexpr int kTextLetters = 34;
constexpr int kChoiceLetters = 12;
/// Rows of a page that stand in one column without effort.
constexpr std::size_t kRowsOfOneColumn = 8;

bool IsLine(EntryKind kind) {
  return kind == EntryKind::kText || kind == EntryKind::kNumber || kind == EntryKind::kShown;
}

ChoiceBox::Typing TypingOf(const entry::EntryInfo& info) {
  if (info.kind == EntryKind::kTypedChoice) return ChoiceBox::Typing::kTakes;
  return info.items.empty() ? ChoiceBox::Typing::kFinds : ChoiceBox::Typing::kNothing;
}

/// Brings the entries of a column's groups into one line.
void EndColumn(QVBoxLayout* column, const std::vector<QGroupBox*>& boxes) {
  if (column == nullptr) return;
  int widest = 0;
  for (const auto* box : boxes)
    for (const auto* caption : box->findChildren<QLabel*>()) widest = qMax(widest, caption->sizeHint().width());
  for (const auto* box : boxes) qobject_cast<QGridLayout*>(box->layout())->setColumnMinimumWidth(0, widest);
  column->addStretch(1);
}

}  // namespace

std::vector<FrmTankView::Group> FrmTankView::GroupsOf(Section section) {
  std::vector<Group> groups;
  for (auto& entry : entry::EntriesOf(form_, section)) {
    // Hidden in every tank of this type.
    if (entry.info->roofs != entry::Roofs::kAll && !entry.box.visible) continue;
    auto group = std::ranges::find(groups, entry.info->group, &Group::heading);
    if (group == groups.end()) group = groups.insert(groups.end(), {entry.info->group, {}});
    group->entries.push_back(&entry);
  }
  return groups;
}

QWidget* FrmTankView::MakeLineOf(Entry& entry) {
  static constexpr bool kReadOnly = true, kOpen = false;
  const bool shown = entry.info->kind == EntryKind::kShown;
  auto* line =
      MakeLine(entry.info->text.name, {entry.box.text, entry.box.enabled, entry.box.visible, shown ? kReadOnly : kOpen},
               Do(entry::TypeText, entry), Do(entry::ActivateEntry, entry));
  const int letters = entry.info->kind == EntryKind::kText ? kTextLetters : kNumberLetters;
  line->setMinimumWidth(fontMetrics().averageCharWidth() * letters);
  return line;
}

QWidget* FrmTankView::MakeChoiceOf(Entry& entry) {
  auto* box = MakeChoice(entry.info->text.name, entry.box, TypingOf(*entry.info),
                         {.chosen = Do(entry::ChooseItem, entry),
                          .typed = Do(entry::TypeText, entry),
                          .opening = Do(entry::OpenList, entry),
                          .activated = Do(entry::ActivateEntry, entry)});
  box->setMinimumContentsLength(kChoiceLetters);
  return box;
}

QWidget* FrmTankView::MakeEntry(Entry& entry) {
  auto* field = IsLine(entry.info->kind) ? MakeLineOf(entry) : MakeChoiceOf(entry);
  if (entry.info->kind != EntryKind::kShown)
    WatchFocus(field, Do(entry::EnterEntry, entry), Do(entry::LeaveEntry, entry));
  return field;
}

QWidget* FrmTankView::MakePlace(Entry& entry) {
  auto* field = MakeEntry(entry);
  auto* place = new QWidget(this);
  auto* reason = new QLabel(place);
  reason->setObjectName(field->objectName() + QStringLiteral("Refusal"));
  reason->setTextFormat(Qt::PlainText);
  auto* column = new QVBoxLayout(place);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(1);
  column->addWidget(field);
  column->addWidget(reason);
  AlsoDraw([this, field, reason, &entry] { DrawRefusal(field, reason, entry); });
  return place;
}

void FrmTankView::DrawRefusal(QWidget* field, QLabel* reason, const Entry& entry) {
  const bool refused = !entry.refusal.empty() && entry.box.visible;
  const auto text = Shown(entry.refusal);
  if (reason->text() == text && reason->isHidden() != refused) return;
  reason->setText(text);
  reason->setVisible(refused);
  auto colors = palette();
  colors.setColor(QPalette::WindowText, FaultText(colors));
  reason->setPalette(colors);
  auto marked = palette();
  if (refused) marked.setColor(QPalette::Base, FaultGround(marked));
  field->setPalette(marked);
  const auto tip = Shown(entry.info->text.tip);
  field->setAccessibleDescription(refused ? text + QLatin1Char(' ') + tip : tip);
}

QGroupBox* FrmTankView::MakeGroup(const Group& group) {
  auto* box = new QGroupBox(Shown(group.heading), this);
  auto* grid = new QGridLayout(box);
  for (auto* entry : group.entries) {
    const int row = grid->rowCount();
    auto* place = MakePlace(*entry);
    auto* field = findChild<QWidget*>(Shown(entry->info->text.name));
    auto* caption = MakeCaption(entry->info->text.name, field);
    AlsoDraw([caption, entry] {
      caption->setEnabled(entry->box.enabled);
      caption->setVisible(entry->box.visible);
    });
    grid->addWidget(caption, row, 0);
    grid->addWidget(place, row, 1);
  }
  grid->setColumnStretch(1, 1);
  AlsoDraw([box, entries = group.entries] {
    box->setVisible(std::ranges::any_of(entries, [](const Entry* entry) { return entry->box.visible; }));
  });
  return box;
}

QHBoxLayout* FrmTankView::MakeSection(Section section) {
  const auto groups = GroupsOf(section);
  std::size_t rows = 0;
  for (const auto& group : groups) rows += group.entries.size() + 1;
  auto* columns = new QHBoxLayout;
  std::vector<QGroupBox*> boxes;  // of the column that is being filled
  QVBoxLayout* column = nullptr;
  std::size_t placed = 0;
  for (const auto& group : groups) {
    const bool is_full = rows > kRowsOfOneColumn && columns->count() == 1 && 2 * placed + group.entries.size() > rows;
    if (column == nullptr || is_full) {
      EndColumn(column, boxes);
      boxes.clear();
      column = new QVBoxLayout;
      columns->addLayout(column, 1);
    }
    boxes.push_back(MakeGroup(group));
    column->addWidget(boxes.back());
    placed += group.entries.size() + 1;
  }
  EndColumn(column, boxes);
  return columns;
}

QGroupBox* FrmTankView::GroupBoxOf(std::string_view control) const {
  auto* widget = findChild<QWidget*>(Shown(control));
  while (qobject_cast<QGroupBox*>(widget) == nullptr) widget = widget->parentWidget();
  return qobject_cast<QGroupBox*>(widget);
}

QWidget* FrmTankView::MakeIdentificationPage() {
  auto* page = new QWidget(this);
  page->setLayout(MakeSection(Section::kIdentification));
  return page;
}

QWidget* FrmTankView::MakePhysicalPage() {
  auto* page = new QWidget(this);
  const auto section = entry::PhysicalSection(form_);
  auto* columns = MakeSection(section);
  if (section == Section::kInternal || section == Section::kExternal) {
    const bool internal = section == Section::kInternal;
    auto* fittings = MakeCommand(internal ? "cmdSpecFitIT" : "cmdSpecFitET",
                                 internal ? form_.cmdSpecFitIT : form_.cmdSpecFitET, entry::ClickSpecFit);
    auto* grid = qobject_cast<QGridLayout*>(GroupBoxOf(internal ? "cboFittingIT" : "cboFittingET")->layout());
    grid->addWidget(fittings, grid->rowCount(), 1);
  }
  auto* picture = new SvgPicture(page);
  picture->setObjectName(QStringLiteral("tankDrawing"));
  picture->setAccessibleName(tr("Drawing of the tank"));
  picture->setToolTip(tr("The tank with its dimensions as they stand in the entries"));
  AlsoDraw([this, picture] { picture->Show(entry::TankDrawing(form_)); });
  // A window that grows is for a larger drawing: the entries are long enough.
  for (int column = 0; column < columns->count(); ++column) columns->setStretch(column, 0);
  columns->addWidget(picture, 1);
  columns->setContentsMargins(0, columns->contentsMargins().top(), 0, 0);
  page->setLayout(columns);
  return page;
}

QWidget* FrmTankView::MakeSitePage() {
  auto* page = new QWidget(this);
  page->setLayout(MakeSection(Section::kSite));
  return page;
}

}  // namespace orvex::windows
