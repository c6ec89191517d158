#include "refdata/editor_story.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <stdexcept>
#include <vector>

#include "store/database.h"
#include "store/letter_case.h"
#include "support/scripted_host.h"
#include "support/test_databases.h"

namespace orvex::test {
namespace {

using refdata::Entry;
using refdata::EntryKind;
using refdata::FindsRecords;
using refdata::IsNumber;
using Texts = std::vector<std::string>;

/// What the person does next, drawn from numbers so that a story can be shortened.
struct Step {
  int deed;
  std::size_t which;  ///< of the entries or items that there are
  std::size_t text;
  bool yes;  ///< how questions are answered
};

std::ostream& operator<<(std::ostream& out, const Step& step) {
  return out << step.deed << '/' << step.which << '/' << step.text << '/' << step.yes;
}

const Texts kTexts = {"",
                      "A",
                      "Benzene",
                      "benzene",
                      "O'Neill & Söhne",
                      " A",
                      "Birmingham",
                      "Foam",
                      "foam",
                      "ÖL",
                      "öl",
                      "None",
                      "Welded",
                      "Mechanical Shoe",
                      "[x]*?#%",
                      "01",
                      "two\nlines",
                      "a\tb",
                      "Stub Drain (1-in. Diameter)",
                      "'; DROP TABLE fitting; --",
                      std::string(300, 'x')};
const Texts kNumbers = {"0",   "1",   "5", "7.5", "1,200", "-2.50", "0.125", " 12 ", "1e2", "5.5",  "12.50",
                        "7.3", "nan", "",  "1,5", "x",     "1e999", "\x02",  "0x10", "6",   "1e300"};
/// Sizes of a record that is filled in whole; few, so that some names come twice.
const Texts kSizes = {"2.5", "5", "7"};
/// What a shipped record, or another one of the person's, may be named, too.
const Texts kNames = {"Benzene",
                      "benzene",
                      "Birmingham",
                      "Foam",
                      "foam",
                      "Mechanical Shoe",
                      "O'Neill & Söhne",
                      "A",
                      "Stub Drain (1-in. Diameter)",
                      ""};

constexpr std::string_view kKnownMessages[] = {
    "Please enter a number.",
    "Please enter a text without control characters.",
    "Add Another Record?",
    "Record is not user defined.  It cannot be deleted.",
    "Are you sure you want to delete this record?",
    "Save Changes?",
};

/// Answers each question as the step says, and knows all messages that may come.
class Person : public ScriptedHost {
 public:
  explicit Person(const refdata::RecordEditor& form) : form_(form) {}

  shell::Answer ShowMessage(const std::string& text, const std::string&, shell::Buttons buttons, shell::Icon) override {
    Require(Knows(text), "Nobody should read: " + text);
    messages.push_back(text);
    if (buttons == shell::Buttons::kYesNo) return yes ? shell::Answer::kYes : shell::Answer::kNo;
    return buttons == shell::Buttons::kOkCancel && !yes ? shell::Answer::kCancel : shell::Answer::kOk;
  }
  bool yes = false;

 private:
  [[nodiscard]] bool Knows(const std::string& text) const {
    if (std::ranges::find(kKnownMessages, text) != std::end(kKnownMessages)) return true;
    if (form_.info == nullptr) return false;
    return text == form_.info->incomplete || text == form_.info->duplicate ||
           text.starts_with("Please enter no more than ") ||
           // A deck of panels as large as 1e300 by 1e300 feet has no factor.
           text == fmt::format(
                       "The following Error occurred:\r\n\r\nOverflow: a number is too large.\r\nNumber: 6\r\n in {}.",
                       form_.info->window.name);
  }
  const refdata::RecordEditor& form_;
};

const std::string& OneOf(const Texts& texts, std::size_t index) { return texts[index % texts.size()]; }
std::string Name(const Entry& entry) { return std::string(entry.info->text.name); }

/// One of a list that says nothing about other entries.
bool IsChosen(const Entry& entry) {
  const auto kind = entry.info->kind;
  return kind == EntryKind::kChoice || kind == EntryKind::kTypedChoice || kind == EntryKind::kYesNo;
}

/// A person's day in one of the editors.
class Day {
 public:
  Day(const StoryEditor& editor, const std::filesystem::path& reference) : editor_(editor) {
    session_.ReferenceDb = store::Database::Open(reference);
    session_.TankPath = reference.string();
    session_.ReferenceDb->Execute(
        fmt::format("DELETE * FROM [{}] WHERE [{}] = True", editor.table, editor.user_defined_field));
    shipped_ = Shipped();
    form_ = editor_.open(session_);
    Check();
  }

  void GoThrough(const std::vector<Step>& steps) {
    for (const auto& step : steps) {
      host_.yes = step.yes;
      Do(step);
      Check();
    }
  }
  [[nodiscard]] const std::string& Story() const { return story_; }

 private:
  template <typename... Words>
  void Note(fmt::format_string<Words...> words, Words&&... said) {
    story_ += fmt::format(words, std::forward<Words>(said)...) + "\n";
  }

  void Do(const Step& step) {
    switch (step.deed) {
      case 0:
        return Pick(step);
      case 1:
      case 2: {
        auto& entry = form_.entries[step.which % form_.entries.size()];
        return Type(entry, OneOf(IsNumber(*entry.info) ? kNumbers : kTexts, step.text), step.deed == 1);
      }
      case 3:
        return Choose(step);
      case 4:
        return FillIn(step);
      case 5:
        if (!form_.cmdAddNew.enabled) return;
        Note("add");
        return ClickAddNew(session_, form_);
      case 6:
        return Save();
      case 7:
        Note("delete, {}", step.yes);
        return ClickDelete(session_, form_);
      default:
        return Close(step);
    }
  }

  void Pick(const Step& step) {
    std::vector<Entry*> lists;
    for (auto& entry : form_.entries)
      if (FindsRecords(*entry.info)) lists.push_back(&entry);
    PickItem(*lists[step.which % lists.size()], step.text);
  }
  void PickItem(Entry& list, std::size_t item) {
    if (list.box.items.empty()) return;
    const auto picked = OneOf(list.box.items, item);
    const bool unchanged = !form_.just_added && std::ranges::none_of(form_.entries, refdata::IsChanged);
    const auto told = host_.messages.size();
    list.box.text = picked;
    Note("pick {} {}", Name(list), picked);
    PickRecord(session_, form_, Name(list));
    if (!unchanged) return;
    const bool shown = editor_.lists_repeat ? store::EqualNoCase(list.held, picked) : list.held == picked;
    Require(host_.messages.size() == told && shown, "What was picked is on show.");
  }

  void Type(Entry& entry, const std::string& text, bool leave) {
    const auto kind = entry.info->kind;
    if (!entry.box.enabled || !entry.box.visible || kind == EntryKind::kChoice || kind == EntryKind::kYesNo) return;
    Note("type {} {}{}", Name(entry), text, leave ? ", leave" : "");
    entry.box.text = text;
    TypeText(session_, form_, Name(entry));
    if (leave) LeaveEntry(session_, form_, Name(entry));
  }

  void Choose(const Step& step) {
    std::vector<Entry*> lists;
    for (auto& entry : form_.entries)
      if (IsChosen(entry)) lists.push_back(&entry);
    if (!lists.empty()) ChooseItem(*lists[step.which % lists.size()], step.text);
  }
  void ChooseItem(Entry& list, std::size_t item) {
    if (!list.box.enabled || list.box.items.empty()) return;
    list.box.text = OneOf(list.box.items, item);
    Note("choose {} {}", Name(list), list.box.text);
    refdata::ChooseItem(session_, form_, Name(list));
  }

  /// All that a record needs, so that stories get beyond their first save.
  void FillIn(const Step& step) {
    if (!form_.user_defined) return;
    for (auto& entry : form_.entries) {
      if (IsNumber(*entry.info)) {
        Type(entry, OneOf(kSizes, step.which), true);
      } else if (IsChosen(entry)) {
        ChooseItem(entry, step.text);
      } else if (entry.info->field.empty()) {
        PickItem(entry, step.which);
      } else if (entry.info->field == editor_.named_by) {
        Type(entry, OneOf(kNames, step.text), true);
      }
    }
  }

  void Save() {
    Note("save");
    const auto told = host_.messages.size();
    const bool own = form_.user_defined;
    ClickSave(session_, form_);
    const bool refused = host_.messages.size() > told && host_.messages.back() != "Add Another Record?";
    if (own && !refused)
      Require(std::ranges::none_of(form_.entries, refdata::IsChanged), "What was saved is unchanged.");
  }

  void Close(const Step& step) {
    Note("close, {}", step.yes);
    const bool shipped = !form_.user_defined;
    ClickClose(session_, form_);
    Require(form_.window.closed || !shipped, "A shipped record closes at once.");
    if (!form_.window.closed) return;
    CheckRows(false);
    form_ = {};
    form_ = editor_.open(session_);
  }

  Texts Shipped() {
    Texts rows;
    auto set = session_.ReferenceDb->OpenTable(editor_.table);
    for (; !set.AtEnd(); set.MoveNext()) {
      if (set.BoolOrFalse(editor_.user_defined_field)) continue;
      std::string row;
      for (int i = 0; i < set.FieldCount(); ++i) row += set.Get(i).TextOrEmpty() + "|";
      rows.push_back(std::move(row));
    }
    return rows;
  }

  [[nodiscard]] bool IsEmpty(store::RecordSet& row) const {
    return std::ranges::all_of(form_.entries, [&](const Entry& entry) {
      return entry.info->field.empty() || entry.info->kind == EntryKind::kYesNo || row.IsNull(entry.info->field);
    });
  }

  void CheckRows(bool may_be_empty) {
    std::set<std::string> names;
    for (auto row = session_.ReferenceDb->OpenTable(editor_.table); !row.AtEnd(); row.MoveNext()) {
      const bool own = row.BoolOrFalse(editor_.user_defined_field);
      if (own && IsEmpty(row)) {
        Require(may_be_empty && form_.just_added && form_.Counter == row.Long("Counter"),
                "An empty row is there only while it is on show.");
        continue;
      }
      if (own) editor_.require_row(row);
      const auto name = editor_.name_of(row);
      Require(names.insert(editor_.minds_case ? name : store::LowerCase(name)).second, "A name is there once: " + name);
    }
  }

  void CheckEntries() {
    auto row = session_.ReferenceDb->OpenAt(editor_.table, "Counter", {form_.Counter});
    Require(!row.NoMatch(), "The record on show is in the table.");
    Require(row.BoolOrFalse(editor_.user_defined_field) == form_.user_defined, "It is known whose it is.");
    for (const auto& entry : form_.entries) {
      const auto name = Name(entry);
      if (!entry.info->field.empty())
        Require(entry.loaded == row.TextOrEmpty(entry.info->field), name + " knows what the table holds.");
      Require(form_.user_defined || entry.held == entry.loaded, name + " of a shipped record is unchanged.");
      Entry shown{.info = entry.info, .box = {}, .held = {}, .loaded = {}};
      Hold(shown, entry.held);
      // A number is shown as it was typed until it is left.
      const bool typed = IsNumber(*entry.info) && entry.box.text == entry.held;
      Require(typed || entry.box.text == shown.box.text, name + " shows what is held.");
      Require(entry.box.enabled == (form_.user_defined || FindsRecords(*entry.info)), name + " is rightly enabled.");
    }
    if (editor_.require_entries != nullptr) editor_.require_entries(session_, form_);
  }

  void CheckList() {
    const auto& name = At(form_, form_.info->name);
    Texts stored, listed = name.box.items;
    for (auto row = session_.ReferenceDb->OpenTable(editor_.table); !row.AtEnd(); row.MoveNext())
      if (!row.IsNull(name.info->field)) stored.push_back(row.Text(name.info->field));
    if (editor_.lists_repeat) {
      for (auto* texts : {&stored, &listed}) std::ranges::transform(*texts, texts->begin(), store::LowerCase);
      std::ranges::sort(stored);
      stored.erase(std::unique(stored.begin(), stored.end()), stored.end());
    }
    Require(std::ranges::is_permutation(stored, listed), "The list holds every name.");
  }

  void Check() {
    Require(Shipped() == shipped_, "Shipped rows never change.");
    CheckRows(true);
    CheckEntries();
    CheckList();
    Require(form_.panel.enabled == form_.user_defined, "The panel is enabled for the person's own.");
    Require(form_.cmdAddNew.enabled != form_.just_added, "A new record is added one at a time.");
    Require(host_.status.back() == "Ready", "The status is restored.");
  }

  const StoryEditor& editor_;
  refdata::RecordEditor form_;
  Person host_{form_};
  shell::Session session_{host_};
  Texts shipped_;
  std::string story_;
};

rc::Gen<std::vector<Step>> AnySteps() {
  const auto number = [] { return rc::gen::resize(rc::kNominalSize, rc::gen::inRange<std::size_t>(0, 10'000)); };
  // Saving and filling in come often: they lead to what the other deeds are worth trying on.
  const auto deed = rc::gen::element(0, 0, 0, 1, 1, 1, 1, 2, 2, 3, 4, 4, 4, 5, 5, 5, 5, 6, 6, 6, 6, 7, 8);
  const auto step = rc::gen::build<Step>(rc::gen::set(&Step::deed, deed), rc::gen::set(&Step::which, number()),
                                         rc::gen::set(&Step::text, number()), rc::gen::set(&Step::yes));
  return rc::gen::container<std::vector<Step>>(step);
}

}  // namespace

void Require(bool holds, const std::string& rule) {
  if (!holds) throw std::runtime_error(rule);
}

void TellStories(const StoryEditor& editor) {
  const TemporaryFolder folder;
  const auto reference = folder.Path() / "tankdata.mdb";
  std::filesystem::copy_file(ORVEX_REFERENCE_DATABASE, reference);
  if (!editor.left_out.empty())
    store::Database::Open(reference)->Execute(fmt::format("DELETE * FROM {} WHERE {}", editor.table, editor.left_out));
  EXPECT_TRUE(rc::check([&] {
    const auto steps = *AnySteps();
    Day day(editor, reference);
    try {
      day.GoThrough(steps);
    } catch (const std::exception& fault) {
      RC_FAIL(fault.what() + std::string("\nafter\n") + day.Story());
    }
  }));
}

}  // namespace orvex::test
