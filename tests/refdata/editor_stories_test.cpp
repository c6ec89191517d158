#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "refdata/deck_seam_sizes.h"
#include "refdata/editor_story.h"
#include "refdata/frmchemical.h"
#include "refdata/frmdeckseam.h"
#include "refdata/frmfitting.h"
#include "refdata/frmmet.h"
#include "refdata/frmrimseal.h"
#include "store/database.h"
#include "store/letter_case.h"

namespace orvex::refdata {
namespace {

using test::Require;
using Fields = std::vector<std::string>;

bool AreNot0(store::RecordSet& row, const Fields& fields) {
  return std::ranges::none_of(fields, [&](const std::string& field) { return row.DoubleOrZero(field) == 0; });
}

void RequireNumbers(store::RecordSet& row, const Fields& fields) {
  for (const auto& field : fields) Require(!row.IsNull(field), "A run can use " + field);
}

// Chemicals -----------------------------------------------------------------------------------------------------------

std::string NameOfChemical(store::RecordSet& row) { return row.TextOrEmpty("NAME"); }

void RequireChemical(store::RecordSet& row) {
  const auto category = row.TextOrEmpty("CATEGORY");
  const bool crude = category == "Crude Oils", distillate = category == "Petroleum Distillates";
  Require(!row.TextOrEmpty("NAME").empty(), "A chemical has a name.");
  Require(crude || distillate || category == "Organic Liquids", "A chemical is of one of the categories.");
  Require(AreNot0(row, {"L_DENS", "MOLWT", "VP_MOLWT"}), "A chemical has weights and density.");
  Require(AreNot0(row, {"VP_40", "VP_50", "VP_60", "VP_70", "VP_80", "VP_90", "VP_100"}) ||
              AreNot0(row, {"VP_COEF_A", "VP_COEF_B", "VP_COEF_C"}) || AreNot0(row, {"VP_2_A", "VP_2_B"}) ||
              (crude && AreNot0(row, {"REID"})) || (distillate && AreNot0(row, {"REID", "ASTM_SLOPE"})),
          "A chemical has one option filled in completely.");
}

// Cities --------------------------------------------------------------------------------------------------------------

std::string NameOfCity(store::RecordSet& row) { return row.TextOrEmpty("CTYST"); }

void RequireCity(store::RecordSet& row) {
  Fields numbers = {"A_TEMP_DAA", "ATMOS_PRS"};
  for (const auto* family : {"TAX_", "TAN_", "INSOL_", "WIND_"})
    for (const auto* month : {"JAN", "FEB", "MAR", "APR", "MAY", "JUN", "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"})
      numbers.push_back(std::string(family) + month);
  const auto city = row.TextOrEmpty("CITY"), state = row.TextOrEmpty("STATE");
  Require(!city.empty() && !state.empty() && AreNot0(row, numbers), "A city is complete.");
  // The proposals for duplicates stand at the end of the key.
  auto key = row.Text("CTYST");
  while (key.ends_with('1') && !state.ends_with('1')) key.pop_back();
  Require(key == city + ", " + state, "A city's key is its name and state.");
}

// Fittings ------------------------------------------------------------------------------------------------------------

std::string NameOfFitting(store::RecordSet& row) { return row.Text("FIT_TYPE") + "\n" + row.TextOrEmpty("COVR_TYPE"); }

void RequireFitting(store::RecordSet& row) {
  Require(!row.Text("FIT_TYPE").empty(), "A fitting has a type.");
  Require(row.IsNull("COVR_TYPE") || !row.Text("COVR_TYPE").empty(), "A fitting without status has none stored.");
  RequireNumbers(row, {"K_FA", "K_FB", "K_M", "QUANTITY"});
}

void RequireStatuses(shell::Session& session, const RecordEditor& form) {
  const auto& type = HeldText(form, "FIT_TYPE");
  Fields statuses;
  for (auto row = session.ReferenceDb->OpenTable("fitting"); !row.AtEnd(); row.MoveNext()) {
    if (store::EqualNoCase(row.TextOrEmpty("FIT_TYPE"), type) && !row.TextOrEmpty("COVR_TYPE").empty())
      statuses.push_back(row.Text("COVR_TYPE"));
  }
  Require(At(form, "cboStatus").box.items == statuses, "The statuses of the type are listed.");
}

// Rim seals -----------------------------------------------------------------------------------------------------------

std::string ConstructionOf(store::RecordSet& row) {
  return row.Bool("WELDED") ? "Welded" : row.Bool("RIVETED") ? "Riveted" : "";
}

std::string NameOfRimSeal(store::RecordSet& row) {
  return row.Text("PRIM_SEAL") + "\n" + row.Text("SECND_SEAL") + "\n" + ConstructionOf(row);
}

void RequireRimSeal(store::RecordSet& row) {
  Require(!row.Text("PRIM_SEAL").empty() && !row.Text("SECND_SEAL").empty(), "A rim seal has both its names.");
  Require(row.Bool("WELDED") != row.Bool("RIVETED"), "A rim seal is for one construction.");
  RequireNumbers(row, {"K_RA", "K_RB", "N_FACTOR"});
}

void RequireConstruction(shell::Session& session, const RecordEditor& form) {
  auto row = session.ReferenceDb->OpenAt("rimseal", "Counter", {form.Counter});
  const auto& construction = At(form, "cboConstruct");
  Require(construction.loaded == ConstructionOf(row), "The construction is known as the table holds it.");
  Require(construction.box.items.size() == 2 || !form.user_defined || form.narrowing,
          "An own seal may be of either construction.");
  Fields seals;
  for (auto seal = session.ReferenceDb->OpenTable("rimseal"); !seal.AtEnd(); seal.MoveNext()) {
    const auto secondary = seal.TextOrEmpty("SECND_SEAL");
    const auto is_listed = [&](const std::string& listed) { return store::EqualNoCase(listed, secondary); };
    if (store::EqualNoCase(seal.TextOrEmpty("PRIM_SEAL"), HeldText(form, "PRIM_SEAL")) && !secondary.empty() &&
        std::ranges::none_of(seals, is_listed))
      seals.push_back(secondary);
  }
  Require(std::ranges::is_permutation(At(form, "cboSecSeal").box.items, seals),
          "The secondary seals of the primary one are listed, each once.");
}

// Deck seams ----------------------------------------------------------------------------------------------------------

std::string NameOfDeckSeam(store::RecordSet& row) { return row.Text("NAME"); }

std::string Composed(const std::string& construction, double length, double width, double sheet_width,
                     const std::string& certificate) {
  if (construction == "Panel") return PanelSeamName(length, width, certificate);
  if (construction == "Sheet") return SheetSeamName(sheet_width, certificate);
  return {};
}

void RequireDeckSeam(store::RecordSet& row) {
  const auto construction = row.Text("CONSTRUC");
  Require(construction == "Panel" || construction == "Sheet", "A seam is of panels or sheets.");
  Require(AreNot0(row, construction == "Panel" ? Fields{"PLENGTH", "PWIDTH"} : Fields{"SWIDTH"}), "A seam is sized.");
  Require(row.Text("NAME") == Composed(construction, row.Double("PLENGTH"), row.Double("PWIDTH"), row.Double("SWIDTH"),
                                       row.TextOrEmpty("APICERT")),
          "A seam is named by its size.");
  RequireNumbers(row, {"SD", "KD"});
  Require(row.Double("SD") != 0, "A seam has a length per area.");
}

void RequireComposedName(shell::Session&, const RecordEditor& form) {
  if (!form.user_defined) return;
  const auto name = Composed(HeldText(form, "CONSTRUC"), HeldNumber(form, "PLENGTH"), HeldNumber(form, "PWIDTH"),
                             HeldNumber(form, "SWIDTH"), HeldText(form, "APICERT"));
  Require(HeldText(form, "NAME") == name && At(form, "dbcboName").box.text == name, "The name follows the entries.");
}

// ---------------------------------------------------------------------------------------------------------------------

constexpr test::StoryEditor kEditors[] = {
    {.name = "Chemicals",
     .open = OpenFrmchemical,
     .table = "chemical",
     .user_defined_field = "USER_DEF",
     .left_out = "NAME <> 'Acetal' AND NAME <> 'Benzene' AND NAME <> 'Toluene'",
     .named_by = "NAME",
     .lists_repeat = false,
     .minds_case = true,
     .name_of = NameOfChemical,
     .require_row = RequireChemical,
     .require_entries = nullptr},
    {.name = "Cities",
     .open = OpenFrmMet,
     .table = "met",
     .user_defined_field = "USER DEF",
     .left_out = "CITY <> 'Birmingham' AND CITY <> 'Springfield'",
     .named_by = "CITY",
     .lists_repeat = false,
     .minds_case = false,
     .name_of = NameOfCity,
     .require_row = RequireCity,
     .require_entries = nullptr},
    {.name = "Fittings",
     .open = OpenFrmFitting,
     .table = "fitting",
     .user_defined_field = "USER_DEF",
     .left_out = "FIT_TYPE Like '*Well*' OR FIT_TYPE Like '*Leg*' OR FIT_TYPE Like '*Vacuum*'",
     .named_by = "FIT_TYPE",
     .lists_repeat = true,
     .minds_case = false,
     .name_of = NameOfFitting,
     .require_row = RequireFitting,
     .require_entries = RequireStatuses},
    {.name = "RimSeals",
     .open = OpenFrmRimSeal,
     .table = "rimseal",
     .user_defined_field = "USER_DEF",
     .left_out = "",
     .named_by = "PRIM_SEAL",
     .lists_repeat = true,
     .minds_case = false,
     .name_of = NameOfRimSeal,
     .require_row = RequireRimSeal,
     .require_entries = RequireConstruction},
    {.name = "DeckSeams",
     .open = OpenFrmDeckSeam,
     .table = "deckseam",
     .user_defined_field = "USER_DEF",
     .left_out = "",
     .named_by = "",
     .lists_repeat = false,
     .minds_case = false,
     .name_of = NameOfDeckSeam,
     .require_row = RequireDeckSeam,
     .require_entries = RequireComposedName},
};

class EditorStories : public testing::TestWithParam<test::StoryEditor> {};

TEST_P(EditorStories, WhateverAPersonDoesTheTableAndTheWindowStaySound) { test::TellStories(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Each, EditorStories, testing::ValuesIn(kEditors),
                         [](const auto& editor) { return std::string(editor.param.name); });

}  // namespace
}  // namespace orvex::refdata
