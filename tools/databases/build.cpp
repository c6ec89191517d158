#include "databases/build.h"

#include <functional>

#include "databases/reference_rows.h"
#include "databases/sample_rows.h"

namespace orvex::databases {
namespace {

void BuildDatabase(const std::filesystem::path& target, std::span<const store::TableInfo> tables,
                   const std::function<void(store::Database&)>& fill) {
  std::filesystem::path beside = target;
  beside += ".new";
  std::filesystem::remove(beside);
  if (target.has_parent_path()) std::filesystem::create_directories(target.parent_path());
  {
    const auto database = store::Database::Create(beside, tables);
    store::Transaction transaction(*database);
    fill(*database);
    transaction.Commit();
  }
  std::filesystem::rename(beside, target);
}

}  // namespace

void BuildReferenceDatabase(const std::filesystem::path& csv_folder, const std::filesystem::path& target) {
  const ReferenceRows rows = ReadReferenceRows(csv_folder);
  CheckReferenceRows(rows);
  BuildDatabase(target, store::ReferenceTables(), [&](store::Database& database) {
    for (const TableRows* table : {&rows.chemical, &rows.deckseam, &rows.fitting, &rows.met, &rows.profile_names,
                                   &rows.profile_components, &rows.rimseal}) {
      table->AddTo(database);
    }
  });
}

void BuildEmptyClientDatabase(const std::filesystem::path& target) {
  BuildDatabase(target, store::ClientTables(), [](store::Database&) {});
}

void BuildSampleDatabase(const std::filesystem::path& csv_folder, const std::filesystem::path& reference_csv_folder,
                         const std::filesystem::path& target) {
  const SampleRows rows = ReadSampleRows(csv_folder);
  CheckSampleRows(rows, ReadReferenceRows(reference_csv_folder));
  BuildDatabase(target, store::ClientTables(), [&](store::Database& database) {
    for (const TableRows* table : {&rows.tank, &rows.mixtures, &rows.components, &rows.fittings}) {
      table->AddTo(database);
    }
  });
}

}  // namespace orvex::databases
