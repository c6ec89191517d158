#include "support/test_databases.h"

#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <system_error>

namespace orvex::test {

namespace {

/// Tests wait for the disk more than for anything else, as each transaction is flushed. So their folders lie in memory
/// where the system has room for them there, unless the person who runs the tests has named a place.
std::filesystem::path PlaceOfFolders() {
  static constexpr std::uintmax_t kRoom = 1U << 30U;
  const std::filesystem::path in_memory = "/dev/shm";
  std::error_code none;
  const auto space = std::filesystem::space(in_memory, none);
  const bool fits = !none && space.available >= kRoom && access(in_memory.c_str(), W_OK) == 0;
  return fits && std::getenv("TMPDIR") == nullptr ? in_memory : std::filesystem::temp_directory_path();
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (PlaceOfFolders() / "orvex-test-XXXXXX").string();
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
