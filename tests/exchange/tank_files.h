#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>
#include <vector>

#include "store/database.h"
#include "support/dbase_writer.h"

/// The previous version's files of tanks, as it wrote them but for wider texts.
namespace orvex::test {

std::vector<DbaseColumn> TankColumns();
std::vector<DbaseColumn> TankMixtureColumns();
std::vector<DbaseColumn> TankFittingColumns();
std::vector<DbaseColumn> TankComponentColumns();

/// Writes the rows of a table of reference data as the previous version's file.
void WriteReferenceFile(const std::filesystem::path& path, store::Database& reference, const char* table);

/// What the four files hold.
struct TankFiles {
  using Changes = std::initializer_list<DbaseRow::value_type>;

  /// A vertical tank and its mixture, all-year benzene, both good for import; `changes` replace fields of the tank.
  void AddTank(const std::string& idx_id, const std::string& ID, Changes changes = {});
  void AddMixture(const std::string& idx_id, const std::string& mix_id, Changes changes = {});
  void AddFitting(const std::string& idx_id, Changes changes = {});
  void AddComponent(const std::string& idx_id, const std::string& mix_id, Changes changes = {});
  /// A tank of a client database with all that belongs to it, as the previous version would have held it.
  void AddStoredTank(store::Database& client, std::int32_t ID);

  /// Under their usual names.
  void Write(const std::filesystem::path& folder) const;
  /// The same with nothing but fields of texts: "  20.5" for a number, "Y" or "N" for a flag.
  void WriteAsTexts(const std::filesystem::path& folder) const;

  std::vector<DbaseRow> tanks, mixtures, fittings, components;
};

}  // namespace orvex::test
