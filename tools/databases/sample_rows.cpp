#include "databases/sample_rows.h"

#include <algorithm>
#include <span>

#include "databases/rules.h"
#include "shell/choices.h"

namespace orvex::databases {
namespace {

struct WordList {
  std::string_view field;
  std::span<const std::string_view> words;
};

constexpr WordList kTankWords[] = {
    {"TANK_TYPE", shell::kTankTypes},
    {"SHL COLSHD", shell::kColors},
    {"RF_COLSHD", shell::kColors},
    {"PT_COND", shell::kPaintConditions},
    {"RF_COND", shell::kPaintConditions},
    {"SHL_COND", shell::kShellConditions},
    {"RF_TYPE", shell::kRoofTypes},
    {"FITTING", shell::kFittingCategories},
    {"DECK_TYPE", shell::kDeckTypes},
    {"DECK_CONSTRUCT", shell::kDeckConstructions},
    {"TANK_CONSTRUCT", shell::kConstructions},
};

constexpr WordList kMixtureWords[] = {
    {"C_CATEGORY", shell::kCategories},
    {"COMPONENT", shell::kComponentKinds},
    {"SPEC_OPT", shell::kSpeciations},
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
