#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

#include "exchange/tank_import_fixture.h"
#include "support/child_process.h"

namespace orvex::exchange {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int kTanks = 400, kChemicals = 2;
constexpr int kKills = 50, kMostKills = 500;

/// The program is killed while it imports tanks and chemicals.
class KilledImportTest : public test::TankImportTest {
 protected:
  KilledImportTest() {
    for (int i = 1; i <= kTanks; ++i) {
      const auto key = std::to_string(i);
      files_.AddTank(key, "T-" + key, {{"DESC", std::string(200, 'd')}});
      files_.AddFitting(key);
      files_.AddComponent(key, "1");
    }
    files_.Write(Folder());
    test::WriteReferenceFile(File(4), test_.reference(), "chemical");
    test_.reference().Execute("DELETE * FROM chemical");
    test::AddRow(test_.reference(), "import errors", {{"Error", "of the last import"}});
    test_.session.ClientDb.reset();
    test_.session.ReferenceDb.reset();
    for (const auto* file : kDatabases) std::filesystem::copy_file(Folder() / file, Start(file));
    TypePaths();
    TypePath(test_.session, form_, 4, File(4).string());
  }

  static constexpr const char* kDatabases[] = {"client1.mdb", "tankdata.mdb"};
  [[nodiscard]] const std::filesystem::path& Folder() const { return test_.folder.Path(); }
  [[nodiscard]] std::filesystem::path Start(const char* file) const {
    return Folder() / (std::string("start_") + file);
  }

  /// Both databases as they were before any import.
  void Reset() {
    for (const auto* file : kDatabases) {
      std::filesystem::remove(Folder() / (std::string(file) + "-journal"));
      std::filesystem::copy_file(Start(file), Folder() / file, std::filesystem::copy_options::overwrite_existing);
    }
  }

  void Open() {
    test_.session.ClientDb = store::Database::Open(Folder() / "client1.mdb");
    test_.session.ReferenceDb = store::Database::Open(Folder() / "tankdata.mdb");
  }

  test::ChildProcess Begin() {
    return test::ChildProcess([this] {
      Open();
      ClickOK(test_.session, form_);
      return form_.window.closed ? 0 : 1;
    });
  }

  /// True if the client database holds all of the import; otherwise it holds nothing of it. So does the reference
  /// database, which is first.
  bool IsDone() {
    Open();
    EXPECT_TRUE(test_.client().IntegrityCheck());
    EXPECT_TRUE(test_.reference().IntegrityCheck());
    const auto tanks = Count("tank");
    EXPECT_TRUE(tanks == 0 || tanks == kTanks) << tanks;
    for (const auto* table : {"mixtures", "fittings", "components"}) EXPECT_EQ(Count(table), tanks) << table;
    const auto chemicals = test_.reference().OpenTable("chemical").RecordCount();
    EXPECT_TRUE(chemicals == 0 || chemicals == kChemicals) << chemicals;
    EXPECT_EQ(Told().size(), chemicals == 0 ? 1U : static_cast<unsigned>(kChemicals + kTanks));
    const bool done = tanks == kTanks;
    EXPECT_TRUE(!done || chemicals == kChemicals);
    test_.session.ClientDb.reset();
    test_.session.ReferenceDb.reset();
    return done;
  }
};

TEST_F(KilledImportTest, LeavesAllTanksOrNoneAndTheNextImportMakesUpForIt) {
  const auto start = std::chrono::steady_clock::now();
  ASSERT_EQ(Begin().Wait(), 0);
  const Milliseconds whole = std::chrono::steady_clock::now() - start;
  ASSERT_TRUE(IsDone());

  std::mt19937 random(20261123);
  std::uniform_real_distribution<double> lasting(0, 1.3 * whole.count());
  int done = 0, undone = 0;
  for (int i = 0; i < kMostKills && (i < kKills || done == 0 || undone == 0) && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    Reset();
    auto process = Begin();
    std::this_thread::sleep_for(Milliseconds(lasting(random)));
    process.Kill();
    if (IsDone()) {
      ++done;
    } else if (++undone % 5 == 0) {
      ASSERT_EQ(Begin().Wait(), 0);
      EXPECT_TRUE(IsDone());
    }
  }
  EXPECT_GT(done, 0);
  EXPECT_GT(undone, 0);
}

}  // namespace
}  // namespace orvex::exchange
