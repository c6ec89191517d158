#include "windows/record_editor_view.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "refdata/frmchemical.h"
#include "refdata/frmdeckseam.h"
#include "refdata/frmfitting.h"
#include "refdata/frmmet.h"
#include "refdata/frmrimseal.h"
#include "windows/display_text.h"
#include "windows/placing.h"
#include "windows/record_label.h"
#include "windows/shipped_record.h"
#include "windows/svg_picture.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

using refdata::Entry;
using refdata::EntryKind;
using refdata::RecordEditor;

constexpr int kNameLetters = 44;
constexpr int kTextLetters = 24;
constexpr int kNumberLetters = 12;
/// In a number that stands beside others, and in one of the months.
constexpr int kShortLetters = 13, kMonthLetters = 15;

/// In a name of a person's own record a text is typed, else one is looked for.
ChoiceBox::Typing TypingOf(const RecordEditor& form, const refdata::EntryInfo& info) {
  switch (info.kind) {
    case EntryKind::kName:
      return form.user_defined ? ChoiceBox::Typing::kNames : ChoiceBox::Typing::kFinds;
    case EntryKind::kFinder:
      return info.items.empty() ? ChoiceBox::Typing::kFinds : ChoiceBox::Typing::kNothing;
    case EntryKind::kTypedChoice:
      return ChoiceBox::Typing::kTakes;
    default:
      return ChoiceBox::Typing::kNothing;
  }
}

/// Brings the entries of several boxes into one line.
void AlignCaptions(const std::vector<QGridLayout*>& forms) {
  int widest = 0;
  for (const auto* form : forms)
    for (int row = 0; row < form->rowCount(); ++row)
      if (const auto* caption = form->itemAtPosition(row, 0)) widest = qMax(widest, caption->sizeHint().width());
  for (auto* form : forms) form->setColumnMinimumWidth(0, widest);
}

bool IsLine(const refdata::EntryInfo& info) { return info.kind == EntryKind::kText || refdata::IsNumber(info); }

}  // namespace

RecordEditorView::RecordEditorView(const ViewPlace& place, RecordEditor&& model)
    : ModelView(place, model.info->window, std::move(model)) {
  auto* column = new QVBoxLayout(this);
  column->addLayout(MakeFinders());
  auto* middle = new QHBoxLayout;
  middle->addWidget(MakePanel());
  if (model_.info->plot != nullptr) middle->addWidget(MakePlot(), 1);
  column->addLayout(middle, 1);
  column->addLayout(MakeFoot());
  NoDefaultButton(*this);
}

void RecordEditorView::keyPressEvent(QKeyEvent* event) {
  if (!PressFocusedButton(*this, *event)) ModelView::keyPressEvent(event);
}

ModelDialog::Action RecordEditorView::DoAt(EntryCommand command, const Entry& entry) {
  return [this, command, control = entry.info->text.name] { command(session_, model_, control); };
}

std::vector<RecordEditorView::Group> RecordEditorView::Groups() {
  std::vector<Group> groups;
  for (auto& entry : model_.entries) {
    if (refdata::FindsRecords(*entry.info)) continue;
    auto group = std::ranges::find(groups, entry.info->group, &Group::heading);
    if (group == groups.end()) group = groups.insert(groups.end(), {entry.info->group, {}});
    group->entries.push_back(&entry);
  }
  return groups;
}

QGridLayout* RecordEditorView::MakeFinders() {
  auto* grid = new QGridLayout;
  for (auto& entry : model_.entries)
    if (refdata::FindsRecords(*entry.info)) PlaceBelow(*grid, entry);
  grid->setColumnStretch(1, 1);
  return grid;
}

QGroupBox* RecordEditorView::MakePanel() {
  auto* panel = MakeFrame(model_.info->panel, model_.panel);
  panel->setPalette(ReadablePalette(palette()));
  const auto groups = Groups();
  // The panel itself is the box of its only group.
  if (groups.size() == 1) {
    panel->setTitle(Shown(groups.front().heading));
    FillBox(panel, groups.front());
    return panel;
  }
  auto* column = new QVBoxLayout(panel);
  QGridLayout* months = nullptr;
  std::vector<QGridLayout*> forms;
  for (const auto& group : groups) {
    const auto layout = LayoutOf(group.heading);
    if (layout.begins_panel_caption) {
      auto* caption = new QLabel(panel->title(), panel);
      DressRecordLabel(*caption);
      column->addWidget(caption);
      panel->setTitle({});
    }
    if (layout.shape != GroupShape::kMonths) {
      auto* box = new QGroupBox(Shown(group.heading), panel);
      auto* grid = FillBox(box, group);
      if (layout.shape == GroupShape::kColumn) forms.push_back(grid);
      column->addWidget(box);
      continue;
    }
    if (months == nullptr) column->addLayout(months = new QGridLayout);
    PlaceMonths(*months, group);
  }
  AlignCaptions(forms);
  column->addStretch(1);
  return panel;
}

QGridLayout* RecordEditorView::FillBox(QGroupBox* box, const Group& group) {
  auto* grid = new QGridLayout(box);
  const bool line = LayoutOf(group.heading).shape == GroupShape::kLine;
  for (auto* entry : group.entries) {
    if (line) {
      PlaceBeside(*grid, *entry);
    } else {
      PlaceBelow(*grid, *entry);
    }
  }
  // Fields beside each other keep their width.
  grid->setColumnStretch(line ? grid->columnCount() : 1, 1);
  grid->setRowStretch(grid->rowCount(), 1);
  return grid;
}

void RecordEditorView::PlaceBelow(QGridLayout& grid, Entry& entry) {
  const int row = grid.rowCount();
  const bool number = refdata::IsNumber(*entry.info);
  const int letters = refdata::FindsRecords(*entry.info) ? kNameLetters : (number ? kNumberLetters : kTextLetters);
  auto* field = MakeEntry(entry, letters);
  grid.addWidget(MakeCaptionOf(entry, field), row, 0);
  grid.addWidget(field, row, 1);
}

void RecordEditorView::PlaceBeside(QGridLayout& grid, Entry& entry) {
  const int column = grid.count() / 2;
  auto* field = MakeEntry(entry, kShortLetters);
  grid.addWidget(MakeCaptionOf(entry, field), 0, column);
  grid.addWidget(field, 1, column);
  grid.setColumnMinimumWidth(column, field->minimumWidth());
}

void RecordEditorView::PlaceMonths(QGridLayout& grid, const Group& group) {
  const int column = grid.count() == 0 ? 1 : grid.columnCount();
  auto* heading = new QLabel(Shown(group.heading), this);
  heading->setTextFormat(Qt::PlainText);
  heading->setWordWrap(true);
  heading->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
  grid.addWidget(heading, 0, column);
  grid.setColumnStretch(column, 1);
  for (std::size_t month = 0; month < group.entries.size(); ++month) {
    auto& entry = *group.entries[month];
    const int row = static_cast<int>(month) + 1;
    auto* field = MakeEntry(entry, kMonthLetters);
    field->setAccessibleName(heading->text() + QLatin1Char(' ') + field->accessibleName());
    if (column == 1) grid.addWidget(MakeCaptionOf(entry, field), row, 0);
    grid.addWidget(field, row, column);
  }
}

QLabel* RecordEditorView::MakeCaptionOf(const Entry& entry, QWidget* field) {
  auto* caption = MakeCaption(entry.info->text.name, field);
  AlsoDraw([caption, &entry] { caption->setVisible(entry.box.visible); });
  return caption;
}

QWidget* RecordEditorView::MakeEntry(Entry& entry, int letters) {
  auto* field = IsLine(*entry.info) ? MakeLineOf(entry, letters) : MakeChoiceOf(entry, letters);
  WatchFocus(field, {}, DoAt(refdata::LeaveEntry, entry));
  return field;
}

QWidget* RecordEditorView::MakeLineOf(Entry& entry, int letters) {
  static constexpr bool kOpen = false;
  auto* line = MakeLine(entry.info->text.name, {entry.box.text, entry.box.enabled, entry.box.visible, kOpen},
                        DoAt(refdata::TypeText, entry), {});
  // It needs no more, and takes what there is.
  line->setMinimumWidth(fontMetrics().averageCharWidth() * letters);
  line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  return line;
}

QWidget* RecordEditorView::MakeChoiceOf(Entry& entry, int letters) {
  const bool finds = refdata::FindsRecords(*entry.info);
  auto* box = MakeChoice(entry.info->text.name, entry.box, TypingOf(model_, *entry.info),
                         {.chosen = DoAt(finds ? refdata::PickRecord : refdata::ChooseItem, entry),
                          .typed = DoAt(refdata::TypeText, entry),
                          .opening = {},
                          .activated = {}});
  if (entry.info->kind == EntryKind::kName)
    AlsoDraw([this, box, info = entry.info] { box->SetTyping(TypingOf(model_, *info)); });
  box->setMinimumContentsLength(letters);
  return box;
}

QWidget* RecordEditorView::MakePlot() {
  auto* plot = MakePlotOf(this);
  AlsoDraw([this, plot] { plot->Show(model_.info->plot(model_), model_.info->plot_in_words(model_)); });
  return plot;
}

QHBoxLayout* RecordEditorView::MakeFoot() {
  auto* help = MakeButton("cmdHelp", model_.cmdHelp, Do(refdata::ClickHelp));
  auto* add = MakeButton("cmdAddNew", model_.cmdAddNew, Do(refdata::ClickAddNew));
  auto* remove = MakeButton("cmdDelete", model_.cmdDelete, Do(refdata::ClickDelete));
  auto* save = MakeButton("cmdSave", model_.cmdSave, Do(refdata::ClickSave));
  auto* close = MakeButton("cmdClose", model_.cmdClose, Do(refdata::ClickClose));
  SetCloseButton(close);
  return PlaceFoot({help, add, remove}, {save, close});
}

std::unique_ptr<ModelDialog> MakeFrmchemical(const ViewPlace& place) {
  return std::make_unique<RecordEditorView>(place, refdata::OpenFrmchemical(place.session));
}
std::unique_ptr<ModelDialog> MakeFrmMet(const ViewPlace& place) {
  return std::make_unique<RecordEditorView>(place, refdata::OpenFrmMet(place.session));
}
std::unique_ptr<ModelDialog> MakeFrmFitting(const ViewPlace& place) {
  return std::make_unique<RecordEditorView>(place, refdata::OpenFrmFitting(place.session));
}
std::unique_ptr<ModelDialog> MakeFrmRimSeal(const ViewPlace& place) {
  return std::make_unique<RecordEditorView>(place, refdata::OpenFrmRimSeal(place.session));
}
std::unique_ptr<ModelDialog> MakeFrmDeckSeam(const ViewPlace& place) {
  return std::make_unique<RecordEditorView>(place, refdata::OpenFrmDeckSeam(place.session));
}

}  // namespace orvex::windows
