#include "support/test_databases.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace orvex::test {

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "orvex-test-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder: " + pattern);
  path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void AddRow(store::Database& database, std::string_view table, FieldValues fields) {
  auto rows = database.OpenTable(table);
  rows.AddNew();
  for (const auto& [name, value] : fields) rows.Set(name, value);
  rows.Update();
}

void ChangeRow(store::Database& database, std::string_view table, std::string_view index,
               std::initializer_list<store::Value> key, FieldValues fields) {
  auto rows = database.OpenTable(table);
  rows.SetIndex(index);
  rows.Seek(key);
  rows.Edit();
  for (const auto& [name, value] : fields) rows.Set(name, value);
  rows.Update();
}

TestSession::TestSession() {
  session.ClientDb = store::Database::Create(folder.Path() / "client1.mdb", store::ClientTables());
  session.ReferenceDb = store::Database::Create(folder.Path() / "tankdata.mdb", store::ReferenceTables());
  session.application_folder = folder.Path();
}

}  // namespace orvex::test
