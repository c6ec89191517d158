#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "refdata/editor_fixture.h"
#include "refdata/frmchemical.h"

namespace orvex::test {

/// The chemical editor.
class ChemicalTest : public EditorTest {
 protected:
  ChemicalTest() { Open(refdata::OpenFrmchemical); }

  /// Fills in what every chemical needs, but for its vapor pressure.
  void Describe(const std::string& name, const std::string& category = "Organic Liquids") {
    Type("dbcboChemName", name);
    Choose("cboCategory", category);
    Type("txtMOLWT", "72.15");
    Type("txtVP_MOLWT", "72.15");
    Type("txtL_DENS", "5.23");
  }
  void TypeAll(std::initializer_list<std::string_view> controls, const std::string& text) {
    for (const auto control : controls) Type(std::string(control), text);
  }
  /// A whole record by its option 3.
  void Fill(const std::string& name) {
    Describe(name);
    Type("txtVP_2_A", "28160");
    Type("txtVP_2_B", "7.6");
  }
  void AddSaved(const std::string& name) {
    Add();
    Fill(name);
    SaveAdded();
  }

  void ExpectIncomplete() {
    ExpectTold(
        "Record cannot be saved. The chemical name, category, molecular weights, and density must be filled in along "
        "with one of the 4 bottom sections.");
  }
  void ExpectDuplicate() { ExpectTold("Duplicate chemical name."); }

  /// Names of the person's own chemicals in the order of the file, "-" for one without.
  [[nodiscard]] Rows Own() { return Query("SELECT * FROM chemical WHERE USER_DEF = True", {"NAME"}); }
};

}  // namespace orvex::test
