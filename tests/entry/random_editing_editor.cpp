#include "entry/random_editing_editor.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <utility>

#include "entry/copy_command.h"
#include "entry/entry_events.h"
#include "entry/frmtank_text.h"
#include "entry/mixture_page.h"
#include "entry/month_page.h"
#include "entry/physical_rules.h"
#include "entry/random_editing_texts.h"
#include "entry/tank_lifecycle.h"

namespace orvex::test {
namespace {

using entry::EntryKind;
using entry::FrmTank;
using entry::Page;
using entry::Section;
using shell::Answer;

/// January is 0; 12 for what is no throughput.
std::size_t MonthOfThroughput(std::string_view control) {
  const auto found = std::ranges::find(entry::kMonthTexts, control, [](const auto& text) { return text.txtThru.name; });
  return static_cast<std::size_t>(found - entry::kMonthTexts.begin());
}

}  // namespace

void WorkInEditor(Life& life) { EditorVisit(life, entry::Editor(life.TheSession())).Work(); }

EditorVisit::EditorVisit(Life& life, FrmTank& form)
    : life_(life), session_(life.TheSession()), form_(form), saved_(!form.cmdAbandon.enabled) {}

const std::vector<EditorVisit::Deed>& EditorVisit::Deeds() {
  static const std::vector<Deed> kDeeds = {
      {30, &EditorVisit::TypeAnywhere},
      {26, &EditorVisit::ChooseAnywhere},
      {8, &EditorVisit::NameTank},
      {16, &EditorVisit::MakeMixture},
      {6, &EditorVisit::Tick},
      {4, &EditorVisit::TypeThroughput},
      {4, &EditorVisit::ChooseMixture},
      {2, &EditorVisit::Distribute},
      {3, &EditorVisit::FillNames},
      {3, &EditorVisit::Calculate},
      {6, &EditorVisit::AddMixture},
      {4, &EditorVisit::NextMixture},
      {3, &EditorVisit::PreviousMixture},
      {4, &EditorVisit::DeleteMixture},
      {4, &EditorVisit::Fittings},
      {4, &EditorVisit::Components},
      {3, &EditorVisit::Profiles},
      {4, &EditorVisit::Copy},
      {8, &EditorVisit::Save},
      {3, &EditorVisit::RunReport},
      {1, &EditorVisit::Abandon},
      {2, &EditorVisit::Close},
      {3, &EditorVisit::ChangePage},
      {1, &EditorVisit::Activate},
  };
  return kDeeds;
}

void EditorVisit::Work() {
  auto others = ReadAllRows(life_.Client());
  if (saved_) {
    Require(TheCopy().ID == form_.ID, "the copy for the undo is that of another tank");
    Require(SameRows(TheCopy(), others[form_.ID]), "the copy for the undo is not the tank as it was opened");
  }
  Enter("txtUserID");
  Look();
  while (!form_.window.closed && life_.Next()) {
    Act();
    life_.RequireIdle();
    if (!form_.window.closed) Look();
  }
  if (!form_.window.closed) Leave();
  auto after = ReadAllRows(life_.Client());
  others.erase(form_.ID);
  after.erase(form_.ID);
  Require(std::ranges::equal(
              others, after,
              [](const auto& a, const auto& b) { return a.first == b.first && SameRows(a.second, b.second); }),
          "rows of other tanks were changed");
}

void EditorVisit::Act() {
  const auto& deeds = Deeds();
  static const int kAll =
      std::accumulate(deeds.begin(), deeds.end(), 0, [](int sum, const Deed& deed) { return sum + deed.weight; });
  if (MendRefused()) return;
  int left = life_.Now().what % kAll;
  for (const auto& deed : deeds) {
    if (left < deed.weight) return (this->*deed.act)();
    left -= deed.weight;
  }
}

void EditorVisit::Leave() {
  // A text is refused as long as it stands, while a number that was refused is 0 by now.
  if (!LeaveEntered() && MonthOfThroughput(entered_) == form_.months.size()) {
    auto& entry = entry::At(form_, entered_);
    Type(entry, entry.info->kind == EntryKind::kNumber ? "1" : "X");
  }
  CloseWith(Answer::kNo);
  Require(form_.window.closed, "the editor cannot be left");
}

// Focus ---------------------------------------------------------------------------------------------------------------

bool EditorVisit::CanBeEntered(std::string_view control) {
  if (const auto month = MonthOfThroughput(control); month < form_.months.size())
    return form_.months[month].txtThru.enabled;
  const auto found =
      std::ranges::find(form_.entries, control, [](const Entry& entry) { return entry.info->text.name; });
  return found != form_.entries.end() && found->box.visible && found->box.enabled &&
         entry::IsShown(form_, found->info->section);
}

std::vector<EditorVisit::Entry*> EditorVisit::Enterable() {
  std::vector<Entry*> entries;
  for (auto& entry : form_.entries)
    if (entry.info->kind != EntryKind::kShown && CanBeEntered(entry.info->text.name)) entries.push_back(&entry);
  return entries;
}

/// A refusal brings the focus back: the person is there, without having entered anew.
bool EditorVisit::TurnBack() {
  const auto back = std::exchange(form_.window.focus, {});
  if (back.empty()) return false;
  entered_ = back;
  form_.page =
      MonthOfThroughput(back) < form_.months.size() ? Page::kMonthly : PageOf(entry::At(form_, back).info->section);
  return true;
}

bool EditorVisit::LeaveEntered() {
  const auto left = std::exchange(entered_, {});
  if (left.empty()) return true;
  if (const auto month = MonthOfThroughput(left); month < form_.months.size()) {
    entry::LeaveThroughput(session_, form_, month);
  } else {
    entry::LeaveEntry(session_, form_, left);
  }
  return !TurnBack();
}

bool EditorVisit::Enter(std::string_view control) {
  if (entered_ == control) return true;
  if (!LeaveEntered() || !CanBeEntered(control)) return false;
  entered_ = control;
  if (MonthOfThroughput(control) == form_.months.size()) entry::EnterEntry(session_, form_, control);
  return !TurnBack() || entered_ == control;
}

bool EditorVisit::TurnTo(Page page) {
  if (form_.page == page) return true;
  if (!LeaveEntered()) return false;
  life_.Say(fmt::format("go to page {}", entry::kPageCaptions[static_cast<std::size_t>(page)]));
  entry::ChangePage(session_, form_, page);
  if (TurnBack()) return false;
  for (const auto* entry : Enterable())
    if (PageOf(entry->info->section) == page) return Enter(entry->info->text.name);
  return true;
}

bool EditorVisit::ComeTo(const Entry& entry) {
  return TurnTo(PageOf(entry.info->section)) && Enter(entry.info->text.name);
}

bool EditorVisit::Click(const shell::Button& button, std::string_view name, Command command) {
  if (!button.enabled || !button.visible || !LeaveEntered()) return false;
  life_.Say(fmt::format("click {}", name));
  command(session_, form_);
  FollowFocus();
  return true;
}

void EditorVisit::FollowFocus() {
  const auto to = std::string(std::exchange(form_.window.focus, {}));
  if (to.empty() || form_.window.closed || !CanBeEntered(to)) return;
  if (MonthOfThroughput(to) == form_.months.size()) form_.page = PageOf(entry::At(form_, to).info->section);
  Enter(to);
}

// Entries -------------------------------------------------------------------------------------------------------------

void EditorVisit::Type(Entry& entry, const std::string& text) {
  if (!ComeTo(entry)) return;
  life_.Say(fmt::format("type \"{}\" into {}", text, entry.info->text.name));
  entry.box.text = text;
  entry::TypeText(session_, form_, entry.info->text.name);
  FollowFocus();
}

/// Nothing else can be done while the text that has the focus is refused.
bool EditorVisit::MendRefused() {
  if (entered_.empty() || MonthOfThroughput(entered_) < form_.months.size()) return false;
  auto& entry = entry::At(form_, entered_);
  if (entry.refusal.empty() || entry.info->kind == EntryKind::kNumber || life_.Now().how % 4 == 0) return false;
  Type(entry, fmt::format("{} {}", OrdinaryTexts()[life_.Now().how % OrdinaryTexts().size()], life_.Now().which % 4));
  return true;
}

void EditorVisit::TypeAnywhere() {
  auto entries = Enterable();
  std::erase_if(entries, [](const Entry* entry) {
    const auto kind = entry->info->kind;
    return kind != EntryKind::kText && kind != EntryKind::kNumber && kind != EntryKind::kTypedChoice;
  });
  auto& entry = *entries[Life::OneOf(life_.Now().which, entries.size())];
  Type(entry, entry::IsNumeric(*entry.info) ? NumberOf(life_, life_.Now().how) : TextOf(life_.Now().how));
}

void EditorVisit::Choose(Entry& entry, std::size_t item) {
  if (!ComeTo(entry)) return;
  entry::OpenList(session_, form_, entry.info->text.name);
  if (entry.box.items.empty()) return;
  entry.box.text = std::string(entry.box.items[item % entry.box.items.size()]);
  life_.Say(fmt::format("choose \"{}\" in {}", entry.box.text, entry.info->text.name));
  entry::ChooseItem(session_, form_, entry.info->text.name);
  FollowFocus();
}

void EditorVisit::ChooseAnywhere() {
  auto entries = Enterable();
  std::erase_if(entries, [](const Entry* entry) {
    return entry->info->kind == EntryKind::kText || entry->info->kind == EntryKind::kNumber;
  });
  Choose(*entries[Life::OneOf(life_.Now().which, entries.size())], life_.Now().how);
}

void EditorVisit::Activate() {
  const auto entries = Enterable();
  auto& entry = *entries[Life::OneOf(life_.Now().which, entries.size())];
  if (!ComeTo(entry)) return;
  life_.Say(fmt::format("double click {}", entry.info->text.name));
  entry::ActivateEntry(session_, form_, entry.info->text.name);
  FollowFocus();
}

void EditorVisit::ChangePage() { TurnTo(static_cast<Page>(Life::OneOf(life_.Now().which, 5))); }

void EditorVisit::NameTank() {
  static constexpr const char* kNames[] = {"Tank 1", "TANK 1", "Tank 2", "VF-101",
                                           "if-302", "Tank 3", "Tank 4", "Tank 5"};
  Type(entry::At(form_, "txtUserID"), kNames[life_.Now().how % std::size(kNames)]);
}

void EditorVisit::MakeMixture() {
  const auto now = life_.Now();
  Choose(entry::At(form_, "cboChemCat"), now.which);
  const bool single = now.how % 4 == 3;
  Choose(entry::At(form_, "cboSingleMultiple"), single ? 0 : 1);
  if (single) return Choose(entry::At(form_, "dbcboChemName"), now.which);
  Choose(entry::At(form_, "cboSpecOpt"), now.how);
  auto* name = entry::FindLiquid(form_, "MIX NAME");
  if (name != nullptr) Type(*name, fmt::format("Liquid {}", now.which % 3));
}

// Months --------------------------------------------------------------------------------------------------------------

void EditorVisit::Tick() {
  if (!TurnTo(Page::kMonthly) || !LeaveEntered()) return;
  const auto month = Life::OneOf(life_.Now().which, form_.months.size());
  auto& box = form_.months[month].chk;
  box.checked = !box.checked;
  life_.Say(fmt::format("{} {}", box.checked ? "tick" : "clear", entry::kMonthTexts[month].chk.name));
  entry::TickMonth(session_, form_, month, box.checked);
}

void EditorVisit::TypeThroughput() {
  if (!TurnTo(Page::kMonthly)) return;
  const auto month = Life::OneOf(life_.Now().which, form_.months.size());
  const auto name = entry::kMonthTexts[month].txtThru.name;
  if (!form_.months[month].txtThru.enabled || !Enter(name)) return;
  auto& text = form_.months[month].txtThru.text;
  text = NumberOf(life_, life_.Now().how);
  life_.Say(fmt::format("type \"{}\" into {}", text, name));
}

void EditorVisit::ChooseMixture() {
  if (!TurnTo(Page::kMonthly) || !LeaveEntered()) return;
  const auto month = Life::OneOf(life_.Now().which, form_.months.size());
  auto& list = form_.months[month].cboMix;
  if (!list.visible) return;
  entry::OpenMixtures(session_, form_, month);
  FollowFocus();
  if (list.items.empty()) return;
  list.text = std::string(list.items[Life::OneOf(life_.Now().how, list.items.size())]);
  life_.Say(fmt::format("choose \"{}\" in {}", list.text, entry::kMonthTexts[month].cboMix.name));
}

void EditorVisit::Distribute() {
  if (TurnTo(Page::kMonthly)) Click(form_.cmdDistribute, "cmdDistribute", entry::ClickDistribute);
}

void EditorVisit::FillNames() {
  if (TurnTo(Page::kMonthly)) Click(form_.cmdFillMixName, "cmdFillMixName", entry::ClickFillMixName);
}

// Mixtures ------------------------------------------------------------------------------------------------------------

void EditorVisit::Calculate() {
  if (TurnTo(Page::kLiquid)) Click(form_.cmdCalcProp, "cmdCalcProp", entry::ClickCalcProp);
}

void EditorVisit::AddMixture() {
  if (TurnTo(Page::kLiquid)) Click(form_.cmdAdd, "cmdAdd", entry::ClickAdd);
}

void EditorVisit::NextMixture() {
  if (TurnTo(Page::kLiquid)) Click(form_.cmdNextMix, "cmdNextMix", entry::ClickNextMix);
}

void EditorVisit::PreviousMixture() {
  if (TurnTo(Page::kLiquid)) Click(form_.cmdPrevMix, "cmdPrevMix", entry::ClickPrevMix);
}

void EditorVisit::DeleteMixture() {
  if (TurnTo(Page::kLiquid)) Click(form_.cmdDelete, "cmdDelete", entry::ClickDelete);
}

void EditorVisit::Components() {
  if (!TurnTo(Page::kLiquid) || !form_.form) return;
  if (form_.form == Section::kFull) Click(form_.cmdSpecCompFull, "cmdSpecCompFull", entry::ClickSpecComp);
  if (form_.form == Section::kPartial) Click(form_.cmdSpecCompPartial, "cmdSpecCompPartial", entry::ClickSpecComp);
}

void EditorVisit::Profiles() {
  if (!TurnTo(Page::kLiquid) || !form_.form) return;
  if (form_.form == Section::kFull) Click(form_.cmdCopySpecFull, "cmdCopySpecFull", entry::ClickCopySpec);
  if (form_.form == Section::kPartial) Click(form_.cmdCopySpecPartial, "cmdCopySpecPartial", entry::ClickCopySpec);
}

// The tank ------------------------------------------------------------------------------------------------------------

void EditorVisit::Fittings() {
  const auto section = entry::PhysicalSection(form_);
  if (section != Section::kInternal && section != Section::kExternal) return;
  if (!TurnTo(Page::kPhysical)) return;
  if (section == Section::kInternal) {
    Click(form_.cmdSpecFitIT, "cmdSpecFitIT", entry::ClickSpecFit);
  } else {
    Click(form_.cmdSpecFitET, "cmdSpecFitET", entry::ClickSpecFit);
  }
}

void EditorVisit::Copy() { Click(form_.cmdCopy, "cmdCopy", entry::ClickCopy); }

void EditorVisit::Save() {
  if (!LeaveEntered()) return;
  const auto screen = Seen();
  const auto told = life_.Told();
  if (!Click(form_.cmdSave, "cmdSave", entry::ClickSave) || life_.Told() != told) return;
  saved_ = true;
  RequireSaved(screen);
}

void EditorVisit::RunReport() {
  if (!LeaveEntered()) return;
  const auto reports = life_.Reports();
  Click(form_.cmdRunReport, "cmdRunReport", entry::ClickRunReport);
  if (life_.Reports() == reports) return;
  saved_ = true;
  Require(session_.TankList == std::vector<std::string>{TextOfEntry("txtUserID")}, "another tank is reported on");
}

void EditorVisit::Abandon() {
  if (!Click(form_.cmdAbandon, "cmdAbandon", entry::ClickAbandon)) return;
  Require(!saved_, "a saved tank was abandoned");
  Require(form_.window.closed, "an abandoned tank stays open");
  Require(SameRows(Rows(), {}), "rows of an abandoned tank are still there");
}

void EditorVisit::Close() {
  static constexpr Answer kAnswers[] = {Answer::kNo, Answer::kYes, Answer::kYes, Answer::kCancel};
  if (LeaveEntered()) CloseWith(kAnswers[life_.Now().how % std::size(kAnswers)]);
}

void EditorVisit::CloseWith(Answer answer) {
  if (!LeaveEntered()) return;
  const auto before = Rows();
  const auto copy = TheCopy();
  const auto screen = Seen();
  life_.AnswerNext(answer);
  Click(form_.cmdClose, "cmdClose", entry::ClickClose);
  if (answer == Answer::kNo) RequireUndone(copy, before);
  if (answer == Answer::kYes && form_.window.closed) RequireSaved(screen);
  if (answer == Answer::kCancel) {
    Require(!form_.window.closed, "the editor closed though that was cancelled");
    Require(SameRows(Rows(), before), "cancelling changed rows");
  }
}

}  // namespace orvex::test
