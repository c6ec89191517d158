#pragma once

#include <string>
#include <vector>

#include "entry/frmrecfit.h"
#include "entry/physical_rules.h"
#include "entry/tank_entry_fixture.h"
#include "shell/tank_types.h"

namespace orvex::test {

inline constexpr std::string_view kIncomplete =
    "This fitting must have a type and status.  Delete this fitting if you do not wish to save it.";

// Delivered fittings: one with several statuses, one with none.
inline constexpr std::string_view kHatch = "Access Hatch (24-in. Diam.)";
inline constexpr std::string_view kHatchBolted = "Bolted Cover, Gasketed";
inline constexpr std::string_view kHatchGasketed = "Unbolted Cover, Gasketed";
inline constexpr std::string_view kStubDrain = "Stub Drain (1-in. Diameter)";
inline constexpr std::string_view kColumnWell = "Column Well (24-in. Diam.)";

/// The window of the fittings on an open tank.
class FittingsTest : public TankEntryTest {
 protected:
  /// A tank 100 ft wide of this category.
  entry::FrmTank& OpenFloating(std::string_view tank_type, std::string_view category) {
    auto& form = OpenTank(tank_type);
    ChangeRow(*session_.ClientDb, "tank", "ID", {form.ID}, {{"FITTING", category}, {"DIAMETER", 100.0}});
    entry::ShowTank(session_, form);
    return form;
  }

  void AddFitting(std::int32_t number, std::string_view type, std::string_view status, double quantity = 1) {
    AddRow(*session_.ClientDb, "fittings",
           {{"ID", entry::Editor(session_).ID},
            {"FIT ID", number},
            {"FIT_TYPE", type},
            {"COVR_TYPE", status.empty() ? store::Value() : store::Value(status)},
            {"QUANTITY", quantity}});
  }

  void ChooseType(entry::Frmrecfit& form, std::string_view type) {
    form.cboFitType.text = type;
    entry::ChooseFitType(session_, form);
  }
  void ChooseStatus(entry::Frmrecfit& form, std::string_view status) {
    form.cboStatus.text = status;
    entry::ChooseStatus(session_, form);
  }
  void TypeQuantity(entry::Frmrecfit& form, const std::string& text) {
    form.txtQuantity.text = text;
    entry::LeaveQuantity(session_, form);
  }

  /// The rows of the tank, "number: quantity type / status", by number.
  std::vector<std::string> Fittings() {
    std::vector<std::string> found;
    const auto ID = std::to_string(entry::Editor(session_).ID);
    auto rows = session_.ClientDb->OpenQuery("SELECT * FROM fittings WHERE ID = " + ID + " ORDER BY [FIT ID]");
    for (; !rows.AtEnd(); rows.MoveNext()) {
      const auto quantity = rows.Get("QUANTITY");
      found.push_back(rows.Text("FIT ID") + ": " + (quantity.IsNull() ? "-" : quantity.AsText()) + " " +
                      rows.TextOrEmpty("FIT_TYPE") + " / " + rows.TextOrEmpty("COVR_TYPE"));
    }
    return found;
  }
  store::RecordSet Row(std::int32_t number) {
    return session_.ClientDb->OpenAt("fittings", "fitid", {entry::Editor(session_).ID, number});
  }
  std::string Category() { return entry::StoredText(entry::Physical(entry::Editor(session_), "FITTING")); }
};

}  // namespace orvex::test
