#pragma once

#include <filesystem>

#include "databases/table_rows.h"

namespace orvex::databases {

/// The content of the delivered reference database.
struct ReferenceRows {
  TableRows chemical;
  TableRows deckseam;
  TableRows fitting;
  TableRows met;
  TableRows profile_names;
  TableRows profile_components;
  TableRows rimseal;
};

/// Reads the seven CSV files of a folder (chemical.csv, ..., profile_names.csv, profile_components.csv, ...). The row
/// counters and the user-defined flags are not in the files.
ReferenceRows ReadReferenceRows(const std::filesystem::path& folder);

// What the program relies on in the delivered rows. Each function throws error 3421, naming file, line and field, for
// the first row that breaks a rule of its table.
void CheckChemicals(const TableRows& chemical);
void CheckDeckSeams(const TableRows& deckseam);
void CheckFittings(const TableRows& fitting);
void CheckCities(const TableRows& met);
void CheckProfiles(const TableRows& names, const TableRows& components, const TableRows& chemical);
void CheckRimSeals(const TableRows& rimseal);

/// All of these.
void CheckReferenceRows(const ReferenceRows& rows);

}  // namespace orvex::databases
