#include "exchange/reference_kinds.h"

#include <fmt/format.h>

#include <algorithm>

#include "shell/choices.h"
#include "store/field_table.h"

namespace orvex::exchange {
namespace {

using Row = ImportSource;

/// The text of a field of that name.
template <const std::string_view& kField>
std::string TextOf(const Row& row) {
  return row.Text(kField);
}

template <const std::string_view& kField>
bool IsFilled(const Row& row) {
  return !row.Text(kField).empty();
}

/// Null is no more than 0.
template <const std::string_view& kField>
bool IsNotZero(const Row& row) {
  return row.Number(kField) != 0;
}

bool AreNotZero(const Row& row, std::span<const std::string_view> fields) {
  return std::ranges::all_of(fields, [&](std::string_view field) { return row.Number(field) != 0; });
}

// Chemicals -----------------------------------------------------------------------------------------------------------

constexpr std::string_view kName = "NAME", kCategory = "CATEGORY";
constexpr std::string_view kLiquidDensity = "L_DENS", kMolwt = "MOLWT", kVaporMolwt = "VP_MOLWT";

constexpr std::string_view kTable[] = {"VP_40", "VP_50", "VP_60", "VP_70", "VP_80", "VP_90", "VP_100"};
constexpr std::string_view kAntoine[] = {"VP_COEF_A", "VP_COEF_B", "VP_COEF_C"};
constexpr std::string_view kKelvin[] = {"VP_2_A", "VP_2_B"};
constexpr std::string_view kReid[] = {"REID"};
constexpr std::string_view kReidAndSlope[] = {"REID", "ASTM_SLOPE"};

/// Fields that together tell the vapor pressure, of any chemical or of those of a category.
struct VaporPressureOption {
  std::span<const std::string_view> fields;
  std::string_view category;
};
constexpr VaporPressureOption kVaporPressureOptions[] = {
    {kTable, {}},
    {kAntoine, {}},
    {kKelvin, {}},
    {kReid, shell::kCrudeOils},
    {kReidAndSlope, shell::kPetroleumDistillates},
};

/// The engine knows the categories in this spelling alone.
bool HasCategory(const Row& row) { return std::ranges::count(shell::kCategories, row.Text(kCategory)) > 0; }

bool HasVaporPressure(const Row& row) {
  const auto category = row.Text(kCategory);
  return std::ranges::any_of(kVaporPressureOptions, [&](const auto& option) {
    return (option.category.empty() || option.category == category) && AreNotZero(row, option.fields);
  });
}

// Cities --------------------------------------------------------------------------------------------------------------

constexpr std::string_view kCity = "CITY", kState = "STATE", kCityTable = "met";

std::string CityAndState(const Row& row) { return fmt::format("{}, {}", row.Text(kCity), row.Text(kState)); }

bool HasCityAndState(const Row& row) { return IsFilled<kCity>(row) && IsFilled<kState>(row); }

/// All numbers of a city.
std::vector<std::string_view> WeatherFields() {
  std::vector<std::string_view> fields;
  for (const auto& field : store::FindTable(kCityTable).fields) {
    if (field.type == store::FieldType::kDouble) fields.push_back(field.name);
  }
  return fields;
}

/// The figures of the year may be missing.
bool HasWeather(const Row& row) {
  auto fields = WeatherFields();
  std::erase_if(fields, [](std::string_view field) { return field.ends_with("_ANN"); });
  return AreNotZero(row, fields);
}

std::vector<std::string_view> CityFields() {
  auto fields = WeatherFields();
  fields.insert(fields.begin(), {kCity, kState});
  return fields;
}

// Fittings ------------------------------------------------------------------------------------------------------------

constexpr std::string_view kFittingType = "FIT_TYPE", kCover = "COVR_TYPE";

/// The type alone names a fitting that has no cover.
std::string FittingAndCover(const Row& row) {
  const auto cover = row.Text(kCover);
  return cover.empty() ? row.Text(kFittingType) : fmt::format("{}/{}", row.Text(kFittingType), cover);
}

// Rim seals -----------------------------------------------------------------------------------------------------------

constexpr std::string_view kPrimary = "PRIM_SEAL", kSecondary = "SECND_SEAL";
constexpr std::string_view kWelded = "WELDED", kRiveted = "RIVETED";

std::string SealsAndShell(const Row& row) {
  return fmt::format("{}/{}{}{}", row.Text(kPrimary), row.Text(kSecondary), row.Flag(kWelded) ? "/Welded" : "",
                     row.Flag(kRiveted) ? "/Riveted" : "");
}

constexpr std::string_view kNoSecondary = "None";

/// The table knows no empty one, so that a tank's pair of seals is found.
std::string StoredSecondary(const Row& row) {
  return IsFilled<kSecondary>(row) ? row.Text(kSecondary) : std::string(kNoSecondary);
}

}  // namespace

const ReferenceKind& ChemicalKind() {
  static const ReferenceKind kKind = {
      .table = "chemical",
      .import_label = "mDatabase.ImportChemical",
      .step_label = "mDatabase.IChemical",
      .file = "chemical.dbf",
      .key = TextOf<kName>,
      .same = {{kName, TextOf<kName>}},
      .duplicate = "Chemical name is duplicate.",
      .checks = {{HasCategory, "Chemical category is not valid."},
                 {IsNotZero<kLiquidDensity>, "Liquid density must be specified."},
                 {IsNotZero<kMolwt>, "Liquid molecular weight must be specified."},
                 {IsNotZero<kVaporMolwt>, "Vapor molecular weight must be specified."},
                 {HasVaporPressure, "One of the vapor pressure options must be filled in."}},
      .copied = {kName,       "CAS",       kCategory,    kMolwt,  kVaporMolwt, kLiquidDensity, "VP_40",
                 "VP_50",     "VP_60",     "VP_70",      "VP_80", "VP_90",     "VP_100",       "VP_COEF_A",
                 "VP_COEF_B", "VP_COEF_C", "ASTM_SLOPE", "REID",  "VP_2_A",    "VP_2_B"},
      .made = {},
      .user_defined = "USER_DEF",
  };
  return kKind;
}

const ReferenceKind& CityKind() {
  static const ReferenceKind kKind = {
      .table = kCityTable,
      .import_label = "mDatabase.ImportMet",
      .step_label = "mDatabase.IMet",
      .file = "cities.dbf",
      .key = CityAndState,
      .same = {{"CTYST", CityAndState}},
      .duplicate = "Duplicate city.",
      .checks = {{HasCityAndState, "The city name and state name must be specified."},
                 {HasWeather,
                  "All temperatures, solar factors, wind speeds, and the atmospheric pressure must be specified."}},
      .copied = CityFields(),
      .made = {{"CTYST", CityAndState}},
      .user_defined = "USER DEF",
  };
  return kKind;
}

const ReferenceKind& FittingKind() {
  static const ReferenceKind kKind = {
      .table = "fitting",
      .import_label = "mDatabase.ImportFit",
      .step_label = "mDatabase.IFit",
      .file = "fit_tbl.dbf",
      .key = FittingAndCover,
      .same = {{kFittingType, TextOf<kFittingType>}, {kCover, TextOf<kCover>}},
      .duplicate = "Duplicate fitting.",
      .checks = {{IsFilled<kFittingType>, "Fitting type must be specified."}},
      .copied = {kFittingType, kCover, "K_FA", "K_FB", "K_M", "QUANTITY"},
      .made = {},
      .user_defined = "USER_DEF",
  };
  return kKind;
}

const ReferenceKind& RimSealKind() {
  static const ReferenceKind kKind = {
      .table = "rimseal",
      .import_label = "mDatabase.ImportRim",
      .step_label = "mDatabase.IRim",
      .file = "rim_seal.dbf",
      .key = SealsAndShell,
      // The shell has no part in it. A blank secondary seal is the word that is stored for it; otherwise every import
      // of the same file would add the seal once more.
      .same = {{kPrimary, TextOf<kPrimary>}, {kSecondary, TextOf<kSecondary>, kNoSecondary}},
      .duplicate = "Duplicate rim seal.",
      .checks = {{IsFilled<kPrimary>, "Primary rim seal must be specified."}},
      .copied = {kPrimary, "K_RA", "K_RB", "N_FACTOR", "EFLT", "DEFT", "IFLT", kWelded, kRiveted},
      .made = {{kSecondary, StoredSecondary}},
      .user_defined = "USER_DEF",
  };
  return kKind;
}

}  // namespace orvex::exchange
