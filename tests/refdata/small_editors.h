#pragma once

#include <fmt/format.h>

#include <algorithm>
#include <ostream>
#include <span>
#include <string>
#include <string_view>

#include "refdata/editor_fixture.h"
#include "refdata/frmdeckseam.h"
#include "refdata/frmfitting.h"
#include "refdata/frmrimseal.h"

/// The three editors whose records have a handful of factors, as what a person does in them.
namespace orvex::test {

struct EntryStep {
  enum class How { kType, kChoose, kPick } how;
  const char* control;
  const char* text;  ///< "{}" stands for the number of the record
};

struct SmallEditor {
  const char* name;
  refdata::RecordEditor (*open)(shell::Session&);
  const char* table;
  std::span<const EntryStep> steps;  ///< what makes a complete record
  const char* name_field;
  const char* first_name;  ///< of the records that the editor opens on and that a person makes
  const char* own_name;    ///< "{}" stands for the number of the record
  const char* incomplete;
  const char* duplicate;
};

inline void PrintTo(const SmallEditor& editor, std::ostream* out) { *out << editor.name; }

inline constexpr EntryStep kFittingSteps[] = {{EntryStep::How::kType, "dbcboFitType", "Own fitting {}"}};
inline constexpr EntryStep kRimSealSteps[] = {{EntryStep::How::kType, "dbcboPrimSeal", "Own seal {}"},
                                              {EntryStep::How::kPick, "cboConstruct", "Riveted"}};
inline constexpr EntryStep kDeckSeamSteps[] = {{EntryStep::How::kChoose, "cboConstruct", "Sheet"},
                                               {EntryStep::How::kType, "txtSWIDTH", "10{}"}};

inline constexpr SmallEditor kFittingEditor = {
    "Fitting",
    refdata::OpenFrmFitting,
    "fitting",
    kFittingSteps,
    "FIT_TYPE",
    "Access Hatch (24-in. Diam.)",
    "Own fitting {}",
    "Record cannot be saved. The fitting type must be filled in.",
    "Duplicate fitting type/status combination.",
};
inline constexpr SmallEditor kRimSealEditor = {
    "RimSeal",
    refdata::OpenFrmRimSeal,
    "rimseal",
    kRimSealSteps,
    "PRIM_SEAL",
    "Mechanical Shoe",
    "Own seal {}",
    "Record cannot be saved. Primary seal must be filled in, and the construction must be either 'Welded' or "
    "'Riveted'.",
    "Duplicate rim seal.",
};
inline constexpr SmallEditor kDeckSeamEditor = {
    "DeckSeam",
    refdata::OpenFrmDeckSeam,
    "deckseam",
    kDeckSeamSteps,
    "NAME",
    "Sheet: 5 Ft Wide",
    "Sheet: 10{} ft Wide",
    "Record cannot be saved. Construction must be either 'Sheet' or 'Panel', and the applicable lengths and widths "
    "must be specified.",
    "Duplicate deck seam.",
};

/// One of them, open.
class SmallEditorTest : public EditorTest {
 protected:
  explicit SmallEditorTest(const SmallEditor& editor) : editor_(editor) { Open(editor.open); }

  /// Makes the record on show a complete one.
  void Fill(int number) {
    for (const auto& step : editor_.steps) {
      const auto text = fmt::format(fmt::runtime(step.text), number);
      if (step.how == EntryStep::How::kType) Type(step.control, text);
      if (step.how == EntryStep::How::kChoose) Choose(step.control, text);
      if (step.how == EntryStep::How::kPick) Pick(step.control, text);
    }
  }
  void MakeOwn(int number) {
    Add();
    Fill(number);
    SaveAdded();
  }

  [[nodiscard]] std::string OwnName(int number) const { return fmt::format(fmt::runtime(editor_.own_name), number); }
  /// The text of the list by which records are found first.
  [[nodiscard]] std::string ShownName() const { return form_.entries.front().box.text; }
  [[nodiscard]] std::string Finder() const { return std::string(form_.entries.front().info->text.name); }
  [[nodiscard]] Rows OwnNames() {
    return Query(fmt::format("SELECT * FROM {} WHERE USER_DEF = True", editor_.table), {editor_.name_field});
  }
  [[nodiscard]] Rows Numbers(const std::string& field) {
    return Query(fmt::format("SELECT * FROM {} WHERE USER_DEF = True", editor_.table), {field});
  }

  [[nodiscard]] bool IsListed(const std::string& control, const std::string& item) const {
    const auto& items = Items(control);
    return std::ranges::find(items, item) != items.end();
  }

  /// An entry is told to be wrong, and come back to.
  void ExpectRefused(const std::string& reason) {
    host_.ExpectMessage(reason, "ORVEX", shell::Buttons::kOk, shell::Icon::kExclamation);
  }
  void ExpectSaveQuestion(shell::Answer answer) {
    host_.ExpectMessage("Save Changes?", "Save?", shell::Buttons::kYesNo, shell::Icon::kNone, answer);
  }
  void Close() { refdata::ClickClose(session_, form_); }

  const SmallEditor& editor_;
};

}  // namespace orvex::test
