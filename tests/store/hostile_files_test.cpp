#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <random>
#include <string>

#include "store/database.h"
#include "store/run_time_error.h"
#include "support/file_content.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using test::AddRow;
using Random = std::mt19937;

constexpr std::size_t kPage = 4096;
constexpr int kFiles = 500;

/// A client database with a few hundred rows in all its tables.
void PopulatedFile(const std::filesystem::path& path) {
  const auto client = Database::Create(path, ClientTables());
  Transaction transaction(*client);
  for (int tank = 1; tank <= 40; ++tank) {
    AddRow(*client, "tank",
           {{"USER ID", "Tank " + std::to_string(tank)}, {"DIAMETER", tank * 1.5}, {"DESC", std::string(200, 'd')}});
    for (int i = 1; i <= 3; ++i) {
      AddRow(*client, "mixtures", {{"ID", tank}, {"MIX ID", i}, {"MIX NAME", "Mixture"}, {"JANUARY", true}});
      AddRow(*client, "components", {{"ID", tank}, {"MIX ID", 1}, {"COMP ID", i}, {"NAME", "Benzene"}});
      AddRow(*client, "fittings", {{"ID", tank}, {"FIT ID", i}, {"FIT_TYPE", "Access Hatch"}, {"QUANTITY", 1.0}});
      AddRow(*client, "emission",
             {{"ID", tank}, {"MIX ID", i}, {"NAME", "Benzene"}, {"MONTH", "Annual"}, {"PRIMARY", i == 1}});
    }
  }
  AddRow(*client, "error", {{"ID", 1}, {"USER ID", "Tank 1"}, {"error", std::string(400, 'e')}});
  client->CreateTable("scratch", {{"text", FieldType::kText, 0}}, {});
  AddRow(*client, "scratch", {{"text", std::string(20000, 's')}});  // over several pages
  transaction.Commit();
}

std::size_t Below(Random& random, std::size_t limit) { return random() % limit; }

void FlipBytes(std::string& content, Random& random, std::size_t first, std::size_t limit) {
  for (std::size_t i = 1 + Below(random, 40); i-- > 0;) {
    content[first + Below(random, limit)] = static_cast<char>(random() & 0xff);
  }
}

/// Damages a file in one of the ways in which files come to grief.
void Damage(std::string& content, int way, Random& random) {
  const std::size_t pages = content.size() / kPage;
  switch (way) {
    case 0:
      return FlipBytes(content, random, 0, content.size());
    case 1:  // the header and the schema
      return FlipBytes(content, random, 0, 2 * kPage);
    case 2:  // the beginnings of pages, where their kind and their cells stand
      for (std::size_t i = 0; i < 5; ++i) FlipBytes(content, random, Below(random, pages) * kPage, 12);
      return;
    case 3: {  // cut off, with a header that does not tell
      content.resize(kPage + Below(random, content.size() - kPage));
      content[24] = static_cast<char>(content[24] ^ 1);
      return;
    }
    case 4:  // pages in each other's place
      for (int i = 0; i < 3; ++i) {
        const auto one = static_cast<std::ptrdiff_t>((1 + Below(random, pages - 1)) * kPage);
        const auto other = static_cast<std::ptrdiff_t>((1 + Below(random, pages - 1)) * kPage);
        std::swap_ranges(content.begin() + one, content.begin() + one + (one == other ? 0 : kPage),
                         content.begin() + other);
      }
      return;
    case 5:  // a page of another age: zeros, or a copy of its neighbour
      std::fill_n(content.begin() + static_cast<std::ptrdiff_t>(Below(random, pages) * kPage), kPage,
                  static_cast<char>(random() & 1 ? 0 : random() & 0xff));
      return;
    default:  // a single bit
      content[Below(random, content.size())] ^= static_cast<char>(1U << Below(random, 8));
  }
}

/// Reads every field of a record in every way; wrong content is an error, never a number that is not one.
void ReadRecord(RecordSet& set) {
  for (int i = 0; i < set.FieldCount(); ++i) {
    try {
      const Value value = set.Get(i);
      (void)set.IsNull(set.FieldName(i));
      EXPECT_TRUE(std::isfinite(value.DoubleOrZero()));
    } catch (const RunTimeError&) {
    }
  }
}

/// Runs one use of a file. True when it worked, false when it was refused.
template <typename Use>
bool Worked(Use use) {
  try {
    use();
    return true;
  } catch (const RunTimeError& error) {
    EXPECT_FALSE(error.Description().empty());
    return false;
  }
}

/// All that routines do with a file; the number of uses that worked.
int UseFile(const std::filesystem::path& path) {
  std::unique_ptr<Database> database;
  if (!Worked([&] { database = Database::Open(path); })) return 0;
  int worked = 1;
  for (const auto& table : ClientTables()) {
    worked += Worked([&] {
      auto set = database->OpenTable(table.name);
      // A damaged file may lead in a circle.
      for (int rows = 0; !set.AtEnd() && rows < 300; ++rows) {
        ReadRecord(set);
        set.MoveNext();
      }
      set.MoveLast();
      (void)set.RecordCount();
    });
    for (const auto& index : table.indexes) {
      worked += Worked([&] {
        auto set = database->OpenTable(table.name);
        set.SetIndex(index.name);
        for (int rows = 0; !set.AtEnd() && rows < 50; ++rows) set.MoveNext();
        set.Seek({17});
        if (set.NoMatch()) set.Seek({"Tank 17"});
        set.MovePrevious();
      });
    }
    worked += Worked([&] {
      const Transaction transaction(*database);
      auto set = database->OpenTable(table.name);
      set.Edit();
      set.Set(table.fields.back().name, 1);
      set.Update();
      set.AddNew();
      set.Set(table.fields.back().name, 2);
      set.Update();
      set.Delete();
      (void)database->Execute("DELETE * FROM " + std::string(table.name) + " WHERE ID > 20");
    });
  }
  for (const char* sql : {"SELECT * FROM emission ORDER BY ID, [MIX ID], PRIMARY",
                          "SELECT ID, Sum(S_LOSS) AS s FROM emission GROUP BY ID",
                          "SELECT * FROM fittings WHERE FIT_TYPE Like '*Hatch*'", "SELECT text FROM scratch"}) {
    worked += Worked([&] {
      for (auto set = database->OpenQuery(sql); !set.AtEnd(); set.MoveNext()) (void)set.Get(0);
    });
  }
  worked += Worked([&] { (void)database->OpenMatching("components", "IDMIX", {17}).GetRows(100); });
  worked += Worked([&] { database->CreateTable("extra", {{"a", FieldType::kText, 5}}, {{"a", {"a"}, true}}); });
  worked += Worked([&] { (void)database->IntegrityCheck(); });
  return worked;
}

class HostileFiles : public testing::TestWithParam<int> {};

TEST_P(HostileFiles, ADamagedFileIsRefusedOrWorksAndNeverCrashes) {
  const test::TemporaryFolder folder;
  const auto path = folder.Path() / "client.mdb";
  PopulatedFile(path);
  const std::string whole = test::FileContent(path);
  const int uses_of_a_sound_file = UseFile(path);

  int refused = 0, partly = 0, sound = 0;
  for (int file = 0; file < kFiles; ++file) {
    if (file % 10 != GetParam()) continue;
    SCOPED_TRACE(file);
    Random random(static_cast<Random::result_type>(20240 + file));
    std::string content = whole;
    Damage(content, file % 7, random);
    test::WriteFile(path, content);
    std::filesystem::remove(path.string() + "-journal");
    const int worked = UseFile(path);
    ++(worked == 0 ? refused : worked < uses_of_a_sound_file ? partly : sound);
  }
  EXPECT_EQ(refused + partly + sound, kFiles / 10);
  EXPECT_GT(refused + partly, 0);
}

INSTANTIATE_TEST_SUITE_P(Tenths, HostileFiles, testing::Range(0, 10));

}  // namespace
}  // namespace orvex::store
