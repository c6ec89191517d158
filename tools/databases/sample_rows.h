#pragma once

#include <filesystem>

#include "databases/reference_rows.h"
#include "databases/table_rows.h"

namespace orvex::databases {

/// The content of a sample client database.
struct SampleRows {
  TableRows tank;
  TableRows mixtures;
  TableRows components;
  TableRows fittings;
};

/// Reads tank.csv, mixtures.csv, components.csv and fittings.csv of a folder.
SampleRows ReadSampleRows(const std::filesystem::path& folder);

/// Throws error 3421, naming file, line and field, for the first row that points at a tank, mixture, city, chemical,
/// seal, deck seam or fitting that does not exist, is not numbered without gaps, or holds a word that the field doesn't
/// know.
void CheckSampleRows(const SampleRows& rows, const ReferenceRows& reference);

}  // namespace orvex::databases
