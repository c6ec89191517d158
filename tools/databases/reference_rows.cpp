#include "databases/reference_rows.h"

#include <fmt/core.h>

#include <algorithm>

#include "databases/rules.h"
#include "shell/tank_types.h"

namespace orvex::databases {
namespace {

constexpr std::string_view kCounterAndFlag[] = {"Counter", "USER_DEF"};
constexpr std::string_view kCounterAndSpacedFlag[] = {"Counter", "USER DEF"};
constexpr std::string_view kUserFlag[] = {"User"};

TableRows ReadRows(const std::filesystem::path& folder, std::string_view file, std::string_view table,
                   std::span<const std::string_view> left_out) {
  return {store::CsvTable::Read(folder / file), table, left_out};
}

bool AllNonZero(const TableRows& rows, std::size_t row, Fields fields) {
  return std::ranges::all_of(fields, [&](std::string_view field) { return rows.Number(row, field) != 0; });
}

/// True when the row fills a vapor pressure option that is used for its category.
bool HasVaporPressure(const TableRows& chemical, std::size_t row) {
  const std::string category = chemical.Text(row, "CATEGORY");
  if (category == shell::kCrudeOils) return AllNonZero(chemical, row, {"REID"});
  if (category == shell::kPetroleumDistillates) return AllNonZero(chemical, row, {"REID", "ASTM_SLOPE"});
  return AllNonZero(chemical, row, {"VP_40", "VP_50", "VP_60", "VP_70", "VP_80", "VP_90", "VP_100"}) ||
         AllNonZero(chemical, row, {"VP_COEF_A", "VP_COEF_B", "VP_COEF_C"}) ||
         AllNonZero(chemical, row, {"VP_2_A", "VP_2_B"});
}

/// The sizes that a deck construction has.
struct DeckSize {
  std::string_view construction;
  std::string_view field;
};
constexpr DeckSize kDeckSizes[] = {{"Sheet", "SWIDTH"}, {"Panel", "PWIDTH"}, {"Panel", "PLENGTH"}};

/// A word that the typical fittings and the calculation look for in the texts of a field.
struct Wildcard {
  std::string_view field;
  std::string_view word;
};
constexpr Wildcard kWildcards[] = {
    {"FIT_TYPE", "Stub Drain"}, {"FIT_TYPE", "Column Well"}, {"FIT_TYPE", "Vacuum"},  {"FIT_TYPE", "Drain"},
    {"FIT_TYPE", "Roof Leg"},   {"COVR_TYPE", "Pontoon"},    {"COVR_TYPE", "Center"}, {"COVR_TYPE", "Double"},
};

}  // namespace

ReferenceRows ReadReferenceRows(const std::filesystem::path& folder) {
  return {
      .chemical = ReadRows(folder, "chemical.csv", "chemical", kCounterAndFlag),
      .deckseam = ReadRows(folder, "deckseam.csv", "deckseam", kCounterAndFlag),
      .fitting = ReadRows(folder, "fitting.csv", "fitting", kCounterAndFlag),
      .met = ReadRows(folder, "met.csv", "met", kCounterAndSpacedFlag),
      .profile_names = ReadRows(folder, "profile_names.csv", "profile names", kUserFlag),
      .profile_components = ReadRows(folder, "profile_components.csv", "profile components", {}),
      .rimseal = ReadRows(folder, "rimseal.csv", "rimseal", kCounterAndFlag),
  };
}

void CheckChemicals(const TableRows& chemical) {
  RequireFilled(chemical, {"NAME"});
  RequireUnique(chemical, {"NAME"});
  RequireWord(chemical, "CATEGORY", {shell::kOrganicLiquids, shell::kPetroleumDistillates, shell::kCrudeOils});
  RequirePositive(chemical, {"MOLWT", "VP_MOLWT", "L_DENS"});
  for (std::size_t row = 0; row < chemical.Count(); ++row) {
    if (!HasVaporPressure(chemical, row)) {
      chemical.Refuse(row, "NAME", "no vapor pressure option of the category is filled.");
    }
  }
}

void CheckDeckSeams(const TableRows& deckseam) {
  RequireFilled(deckseam, {"NAME"});
  RequireUnique(deckseam, {"NAME"});
  RequireWord(deckseam, "CONSTRUC", {"Sheet", "Panel"});
  RequirePositive(deckseam, {"SD", "KD"});
  for (std::size_t row = 0; row < deckseam.Count(); ++row) {
    for (const auto& [construction, size] : kDeckSizes) {
      if (deckseam.Text(row, "CONSTRUC") == construction && deckseam.Number(row, size) <= 0) {
        deckseam.Refuse(row, size, "the construction needs this size.");
      }
    }
  }
}

void CheckFittings(const TableRows& fitting) {
  RequireFilled(fitting, {"FIT_TYPE", "K_FA", "K_FB", "K_M"});
  RequirePositive(fitting, {"QUANTITY"});
  RequireUnique(fitting, {"FIT_TYPE", "COVR_TYPE"});
  for (const auto& [field, word] : kWildcards) {
    bool found = false;
    for (std::size_t row = 0; row < fitting.Count(); ++row) {
      found = found || fitting.Text(row, field).find(word) != std::string::npos;
    }
    if (!found) fitting.RefuseFile(fmt::format("no {} has the word '{}'.", field, word));
  }
}

void CheckCities(const TableRows& met) {
  RequireFilled(met, {"CITY", "STATE"});
  RequireUnique(met, {"CTYST"});
  for (std::size_t row = 0; row < met.Count(); ++row) {
    if (met.Text(row, "CTYST") != met.Text(row, "CITY") + ", " + met.Text(row, "STATE")) {
      met.Refuse(row, "CTYST", "the key is not the city, a comma, a blank and the state.");
    }
    // A zero reads as a missing value, as it does when cities are imported.
    for (const store::FieldInfo& field : met.Table().fields) {
      if (field.type == store::FieldType::kDouble && met.Number(row, field.name) == 0) {
        met.Refuse(row, field.name, "the value is missing.");
      }
    }
  }
}

void CheckProfiles(const TableRows& names, const TableRows& components, const TableRows& chemical) {
  RequireNumbered(names, "SPEC ID");
  RequireFilled(names, {"Profile Name"});
  RequireUnique(names, {"Profile Name"});
  RequireWord(names, "TYPE", {"Full", "Partial", "Vapor"});
  RequireFilled(components, {"SPEC ID", "NAME"});
  RequireKnown(components, {"SPEC ID"}, KeysOf(names, {"SPEC ID"}), "profile");
  RequireKnown(components, {"NAME"}, KeysOf(chemical, {"NAME"}), "chemical");
  RequireUnique(components, {"SPEC ID", "NAME"});
  RequirePositive(components, {"MOLWT", "VP_MOLWT"});
}

void CheckRimSeals(const TableRows& rimseal) {
  RequireFilled(rimseal, {"PRIM_SEAL", "SECND_SEAL", "K_RA", "K_RB", "N_FACTOR"});
  RequireUnique(rimseal, {"PRIM_SEAL", "SECND_SEAL", "WELDED", "RIVETED"});
  const auto pairs = KeysOf(rimseal, {"PRIM_SEAL", "SECND_SEAL"});
  for (std::size_t row = 0; row < rimseal.Count(); ++row) {
    if (rimseal.Flag(row, "WELDED") == rimseal.Flag(row, "RIVETED")) {
      rimseal.Refuse(row, "WELDED, RIVETED", "exactly one of the two must be set.");
    }
    if (!pairs.contains(KeyOf(rimseal, row, {"PRIM_SEAL"}) + "\nnone")) {
      rimseal.Refuse(row, "PRIM_SEAL", "the primary seal has no row without a secondary one (\"None\").");
    }
  }
}

void CheckReferenceRows(const ReferenceRows& rows) {
  CheckChemicals(rows.chemical);
  CheckDeckSeams(rows.deckseam);
  CheckFittings(rows.fitting);
  CheckCities(rows.met);
  CheckProfiles(rows.profile_names, rows.profile_components, rows.chemical);
  CheckRimSeals(rows.rimseal);
}

}  // namespace orvex::databases
