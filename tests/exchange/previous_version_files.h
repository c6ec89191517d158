#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "shell/periods.h"
#include "support/dbase_writer.h"

/// The previous version's files of reference data, as it wrote them but for wider texts, and a good record of each.
namespace orvex::test {

inline constexpr int kWideText = 120;

/// The record with other values in some of its fields.
inline DbaseRow With(DbaseRow row, std::initializer_list<DbaseRow::value_type> changes) {
  row.insert(row.end(), changes.begin(), changes.end());
  return row;
}

inline void WriteDbase(const std::filesystem::path& path, const std::vector<DbaseColumn>& columns,
                       const std::vector<DbaseRow>& rows) {
  DbaseWriter file(path, columns);
  for (const auto& row : rows) file.Add(row);
}

inline std::vector<DbaseColumn> NumberColumns(std::initializer_list<const char*> names) {
  std::vector<DbaseColumn> columns;
  for (const auto* name : names) columns.push_back(NumberColumn(name));
  return columns;
}

inline std::vector<DbaseColumn> ChemicalColumns() {
  auto columns =
      NumberColumns({"MOLWT", "VP_MOLWT", "L_DENS", "VP_40", "VP_50", "VP_60", "VP_70", "VP_80", "VP_90", "VP_100",
                     "VP_COEF_A", "VP_COEF_B", "VP_COEF_C", "ASTM_SLOPE", "REID", "VP_2_A", "VP_2_B"});
  columns.insert(columns.begin(), {TextColumn("NAME", kWideText), TextColumn("CAS", 20), TextColumn("CATEGORY", 30)});
  return columns;
}

/// An organic liquid whose vapor pressure is told by Antoine's equation alone.
inline DbaseRow Chemical(const std::string& name) {
  return {{"NAME", name},       {"CAS", "00071-43-2"},   {"CATEGORY", "Organic Liquids"},
          {"MOLWT", 78.11},     {"VP_MOLWT", 78.12},     {"L_DENS", 7.365},
          {"VP_COEF_A", 6.905}, {"VP_COEF_B", 1211.033}, {"VP_COEF_C", 220.79}};
}

/// The names of a city's figures of the months, and with `year` of the year, too.
inline std::vector<std::string> WeatherNames(bool year) {
  std::vector<std::string> names;
  for (const auto* family : {"TAX_", "TAN_", "INSOL_", "WIND_"}) {
    for (const auto& month : shell::kMonths) names.push_back(family + std::string(month.suffix));
    if (year) names.push_back(std::string(family) + "ANN");
  }
  return names;
}

inline std::vector<DbaseColumn> CityColumns() {
  std::vector<DbaseColumn> columns = {TextColumn("CITY", kWideText), TextColumn("STATE", kWideText),
                                      NumberColumn("A_TEMP_DAA")};
  for (const auto& name : WeatherNames(true)) columns.push_back(NumberColumn(name));
  columns.push_back(NumberColumn("ATMOS_PRS"));
  return columns;
}

/// A city whose figures all differ: 1.5, 2.5, ... in the order of their fields, those of the year among them.
inline DbaseRow City(const std::string& city, const std::string& state) {
  DbaseRow row = {{"CITY", city}, {"STATE", state}, {"A_TEMP_DAA", 58.25}, {"ATMOS_PRS", 14.7}};
  double figure = 0.5;
  for (const auto& name : WeatherNames(true)) row.emplace_back(name, figure += 1);
  return row;
}

inline std::vector<DbaseColumn> FittingColumns() {
  auto columns = NumberColumns({"K_FA", "K_FB", "K_M", "QUANTITY"});
  columns.insert(columns.begin(), {TextColumn("FIT_TYPE", kWideText), TextColumn("COVR_TYPE", kWideText)});
  return columns;
}

inline DbaseRow Fitting(const std::string& type, const store::Value& cover) {
  return {{"FIT_TYPE", type}, {"COVR_TYPE", cover}, {"K_FA", 1.6}, {"K_FB", 0.25}, {"K_M", 1.5}, {"QUANTITY", 3}};
}

inline std::vector<DbaseColumn> RimSealColumns() {
  auto columns = NumberColumns({"K_RA", "K_RB", "N_FACTOR"});
  columns.insert(columns.begin(), {TextColumn("PRIM_SEAL", kWideText), TextColumn("SECND_SEAL", kWideText)});
  for (const auto* flag : {"EFLT", "DEFT", "IFLT", "WELDED", "RIVETED"}) columns.push_back(LogicalColumn(flag));
  return columns;
}

/// A seal for welded shells of external floating roofs.
inline DbaseRow RimSeal(const std::string& primary, const store::Value& secondary) {
  return {{"PRIM_SEAL", primary}, {"SECND_SEAL", secondary}, {"K_RA", 5.8},   {"K_RB", 0.3},    {"N_FACTOR", 2.1},
          {"EFLT", true},         {"DEFT", false},           {"IFLT", false}, {"WELDED", true}, {"RIVETED", false}};
}

}  // namespace orvex::test
