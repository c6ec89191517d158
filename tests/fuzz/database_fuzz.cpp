#include <cmath>

#include "fuzz/fuzz.h"
#include "fuzz/scratch_file.h"
#include "store/database.h"
#include "store/run_time_error.h"

namespace orvex::fuzz {
namespace {

/// A damaged file may lead in a circle.
constexpr int kMostRows = 50;
constexpr std::size_t kMostTables = 8;

template <typename Use>
void Try(Use use) {
  try {
    use();
  } catch (const store::RunTimeError& error) {
    Require(!error.Description().empty());
  }
}

void ReadRecord(store::RecordSet& set) {
  for (int i = 0; i < set.FieldCount(); ++i) Try([&] { Require(std::isfinite(set.Get(i).DoubleOrZero())); });
}

void ReadTable(store::Database& database, const std::string& name) {
  Try([&] { static_cast<void>(database.Fields(name)); });
  Try([&] {
    auto set = database.OpenTable(name);
    for (int rows = 0; !set.AtEnd() && rows < kMostRows; ++rows, set.MoveNext()) ReadRecord(set);
  });
  Try([&] {
    for (const auto& index : database.Indexes(name)) {
      auto set = database.OpenTable(name);
      set.SetIndex(index.name);
      set.Seek({1});
      set.Seek({"a"});
    }
  });
}

void WriteTank(store::Database& database) {
  const store::Transaction transaction(database);
  auto set = database.OpenTable("tank");
  set.AddNew();
  set.Set("USER ID", "a tank");
  set.Update();
  set.Edit();
  set.Set("DIAMETER", 1.5);
  set.Update();
  set.Delete();
}

}  // namespace

void FuzzDatabase(std::string_view bytes) {
  static ScratchFile file("t.mdb");
  Try([&] {
    const auto database = store::Database::Open(file.Fill(bytes));
    auto names = database->TableNames();
    if (names.size() > kMostTables) names.resize(kMostTables);
    names.emplace_back("chemical");
    for (const auto& name : names) ReadTable(*database, name);
    Try([&] { static_cast<void>(database->OpenQuery("SELECT * FROM tank WHERE [USER ID] Like 'a*' ORDER BY ID")); });
    Try([&] { WriteTank(*database); });
    Try([&] { static_cast<void>(database->Execute("DELETE * FROM tank WHERE ID > 1")); });
    Try([&] { static_cast<void>(database->IntegrityCheck()); });
  });
}

}  // namespace orvex::fuzz
