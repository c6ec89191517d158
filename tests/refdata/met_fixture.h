#pragma once

#include <string>

#include "refdata/editor_fixture.h"
#include "refdata/frmmet.h"

namespace orvex::test {

/// The meteorological editor.
class MetTest : public EditorTest {
 protected:
  MetTest() { Open(refdata::OpenFrmMet); }

  void Name(const std::string& city, const std::string& state) {
    Type("txtCITY", city);
    Choose("dbcboState", state);
  }
  /// The 50 numbers that a record needs; those of the year stay blank.
  void TypeNumbers(const std::string& text) {
    for (const auto& entry : refdata::kMetEntries)
      if (refdata::IsNumber(entry) && !entry.field.ends_with("_ANN")) Type(std::string(entry.text.name), text);
  }
  void Fill(const std::string& city, const std::string& state) {
    Name(city, state);
    TypeNumbers("7.5");
  }
  void AddSaved(const std::string& city, const std::string& state) {
    Add();
    Fill(city, state);
    SaveAdded();
  }

  void ExpectIncomplete() {
    ExpectTold(
        "Record cannot be saved. All fields must be filled in. Delete this record if you do not wish to save it.");
  }
  void ExpectDuplicate() { ExpectTold("Duplicate City/State combination."); }

  /// The keys of the person's own cities in the order of the file, "-" for one without.
  [[nodiscard]] Rows Own() { return Query("SELECT * FROM met WHERE [USER DEF] = True", {"CTYST"}); }
};

}  // namespace orvex::test
