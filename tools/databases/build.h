#pragma once

#include <filesystem>

/// The database files that the system is delivered with. Each is written under another name beside its place and then
/// takes it, so that a failed build leaves the file of the build before. Errors name file, line and field of the CSV
/// row that cannot be taken.
namespace orvex::databases {

/// tankdata.mdb from the CSV files of a folder; every row is the system's own, that is, not user-defined.
void BuildReferenceDatabase(const std::filesystem::path& csv_folder, const std::filesystem::path& target);

/// An empty client database.
void BuildEmptyClientDatabase(const std::filesystem::path& target);

/// A client database with the tanks of a folder's CSV files, which use the delivered cities, chemicals, seals, deck
/// seams and fittings.
void BuildSampleDatabase(const std::filesystem::path& csv_folder, const std::filesystem::path& reference_csv_folder,
                         const std::filesystem::path& target);

}  // namespace orvex::databases
