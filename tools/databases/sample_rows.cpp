#include "databases/sample_rows.h"

#include <algorithm>
#include <span>

#include "databases/rules.h"
#include "shell/tank_types.h"

namespace orvex::databases {
namespace {

struct WordList {
  std::string_view field;
  std::span<const std::string_view> words;
};

constexpr std::string_view kTankTypes[] = {shell::kVerticalFixedRoof, shell::kHorizontal, shell::kInternalFloatingRoof,
                                           shell::kExternalFloatingRoof, shell::kDomedExternalFloatingRoof};
constexpr std::string_view kColors[] = {"White/White", "Aluminum/Specular", "Aluminum/Diffuse",
                                        "Gray/Light",  "Gray/Medium",       "Red/Primer"};
constexpr std::string_view kPaintConditions[] = {"Good", "Poor"};
constexpr std::string_view kShellConditions[] = {"Light Rust", "Dense Rust", "Gunite Lining"};
constexpr std::string_view kRoofTypes[] = {"Cone", "Dome", "Pontoon", "Double Deck"};
constexpr std::string_view kFittingCategories[] = {"Typical", "Detail"};
constexpr std::string_view kDeckTypes[] = {"Bolted", "Welded"};
constexpr std::string_view kDeckConstructions[] = {"Sheet", "Panel"};
constexpr std::string_view kShellConstructions[] = {"Welded", "Riveted"};
constexpr WordList kTankWords[] = {
    {"TANK_TYPE", kTankTypes},
    {"SHL COLSHD", kColors},
    {"RF_COLSHD", kColors},
    {"PT_COND", kPaintConditions},
    {"RF_COND", kPaintConditions},
    {"SHL_COND", kShellConditions},
    {"RF_TYPE", kRoofTypes},
    {"FITTING", kFittingCategories},
    {"DECK_TYPE", kDeckTypes},
    {"DECK_CONSTRUCT", kDeckConstructions},
    {"TANK_CONSTRUCT", kShellConstructions},
};

constexpr std::string_view kCategories[] = {shell::kOrganicLiquids, shell::kPetroleumDistillates, shell::kCrudeOils};
constexpr std::string_view kComponentChoices[] = {shell::kSingle, shell::kMultiple};
constexpr std::string_view kSpeciations[] = {shell::kFullSpeciation, shell::kPartialSpeciation,
                                             shell::kVaporWeightSpeciation, shell::kNoSpeciation};
constexpr WordList kMixtureWords[] = {
    {"C_CATEGORY", kCategories},
    {"COMPONENT", kComponentChoices},
    {"SPEC_OPT", kSpeciations},
};

/// A field that a tank needs not have may be null; otherwise it holds one of its words.
void RequireWordsOrNull(const TableRows& rows, std::span<const WordList> lists) {
  for (const WordList& list : lists) {
    for (std::size_t row = 0; row < rows.Count(); ++row) {
      if (rows.IsNull(row, list.field)) continue;
      if (std::ranges::find(list.words, rows.Text(row, list.field)) == list.words.end()) {
        rows.Refuse(row, list.field, "the field does not know this word.");
      }
    }
  }
}

}  // namespace

SampleRows ReadSampleRows(const std::filesystem::path& folder) {
  const auto read = [&](std::string_view file, std::string_view table) {
    return TableRows(store::CsvTable::Read(folder / file), table);
  };
  return {
      .tank = read("tank.csv", "tank"),
      .mixtures = read("mixtures.csv", "mixtures"),
      .components = read("components.csv", "components"),
      .fittings = read("fittings.csv", "fittings"),
  };
}

void CheckSampleRows(const SampleRows& rows, const ReferenceRows& reference) {
  const auto& [tank, mixtures, components, fittings] = rows;

  RequireNumbered(tank, "ID");
  RequireFilled(tank, {"USER ID", "TANK_TYPE", "MET CTYST"});
  RequireUnique(tank, {"USER ID"});
  RequireWordsOrNull(tank, kTankWords);
  RequireKnown(tank, {"MET CTYST"}, KeysOf(reference.met, {"CTYST"}), "city");
  // The keys of the seal table have its own field names, and a key is made of the texts alone.
  RequireKnown(tank, {"RIM_PRIM", "RIM_SEC"}, KeysOf(reference.rimseal, {"PRIM_SEAL", "SECND_SEAL"}), "rim seal");
  RequireKnown(tank, {"DECK_SEAM"}, KeysOf(reference.deckseam, {"NAME"}), "deck seam");

  RequireFilled(mixtures, {"ID", "MIX NAME", "C_CATEGORY", "COMPONENT"});
  RequireKnown(mixtures, {"ID"}, KeysOf(tank, {"ID"}), "tank");
  RequireNumbered(mixtures, "MIX ID", {"ID"});
  RequireUnique(mixtures, {"ID", "MIX ID"});
  RequireWordsOrNull(mixtures, kMixtureWords);

  RequireFilled(components, {"ID", "MIX ID", "NAME"});
  RequireKnown(components, {"ID", "MIX ID"}, KeysOf(mixtures, {"ID", "MIX ID"}), "mixture");
  RequireNumbered(components, "COMP ID", {"ID", "MIX ID"});
  RequireUnique(components, {"ID", "MIX ID", "COMP ID"});
  RequireKnown(components, {"NAME"}, KeysOf(reference.chemical, {"NAME"}), "chemical");

  RequireFilled(fittings, {"ID", "FIT_TYPE"});
  RequireKnown(fittings, {"ID"}, KeysOf(tank, {"ID"}), "tank");
  RequireNumbered(fittings, "FIT ID", {"ID"});
  RequireUnique(fittings, {"ID", "FIT ID"});
  RequirePositive(fittings, {"QUANTITY"});
  RequireKnown(fittings, {"FIT_TYPE", "COVR_TYPE", "K_FA", "K_FB", "K_M"},
               KeysOf(reference.fitting, {"FIT_TYPE", "COVR_TYPE", "K_FA", "K_FB", "K_M"}), "fitting");
}

}  // namespace orvex::databases
