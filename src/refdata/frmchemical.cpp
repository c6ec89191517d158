#include "refdata/frmchemical.h"

#include <algorithm>

#include "refdata/record_on_show.h"
#include "refdata/vapor_pressure_options.h"
#include "refdata/vapor_pressure_plot.h"
#include "store/database.h"

namespace orvex::refdata {
namespace {

constexpr std::string_view kName = "dbcboChemName", kCas = "dbcboCAS";

constexpr std::string_view kAlways[] = {"L_DENS", "MOLWT", "VP_MOLWT"};

bool IsComplete(const RecordEditor& form) {
  const auto& category = HeldText(form, "CATEGORY");
  return !HeldText(form, "NAME").empty() &&
         std::ranges::find(shell::kCategories, category) != std::end(shell::kCategories) && AreFilled(form, kAlways) &&
         std::ranges::any_of(kVaporPressureOptions,
                             [&](const VaporPressureOption& option) { return IsFilled(form, option); });
}

/// Names that differ in case or in blanks at their ends are different names.
bool IsNameTaken(shell::Session& session, const RecordEditor& form) {
  const auto& name = HeldText(form, "NAME");
  return AnyOther(form, session.ReferenceDb->OpenMatching("chemical", "chemname", {name}),
                  [&](store::RecordSet& row) { return row.TextOrEmpty("NAME") == name; });
}

void FillLists(shell::Session& session, RecordEditor& form) {
  At(form, kName).box.items = Names(session, "chemical", "NAME");
  At(form, kCas).box.items = DistinctNames(session, "chemical", "CAS");
}

std::optional<std::int32_t> FindChemical(shell::Session& session, RecordEditor&, std::string_view control,
                                         const std::string& picked) {
  const bool by_name = control == kName;
  return FindByName(session, "chemical", by_name ? "chemname" : "zCAS", by_name ? "NAME" : "CAS", picked);
}

constexpr EditorInfo kChemicalEditor = {
    .window = kFrmchemicalText,
    .panel = "picChem",
    .label = "frmChemical.",
    .save_label = "frmChemical.",
    .table = "chemical",
    .user_defined_field = "USER_DEF",
    .entries = kChemicalEntries,
    .name = kName,
    .incomplete =
        "Record cannot be saved. The chemical name, category, molecular weights, and density must be filled in along "
        "with one of the 4 bottom sections.",
    .duplicate = "Duplicate chemical name.",
    .is_complete = IsComplete,
    .finish = nullptr,
    .is_name_taken = IsNameTaken,
    .fill_lists = FillLists,
    .find = FindChemical,
    .shown = nullptr,
    .read = nullptr,
    .write = nullptr,
    .rules = {},
    .plot = VaporPressurePlot,
    .plot_in_words = VaporPressureSummary,
};

}  // namespace

RecordEditor OpenFrmchemical(shell::Session& session) { return OpenEditor(session, kChemicalEditor); }

}  // namespace orvex::refdata
