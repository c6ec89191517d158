#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "entry/frmcopydata.h"
#include "entry/frmrecdelete.h"
#include "entry/tank_entry_fixture.h"
#include "shell/tank_types.h"
#include "support/child_process.h"

namespace orvex::entry {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr int kRows = 1500;
constexpr int kTanks = 300;
constexpr int kKills = 25;
constexpr std::string_view kTables[] = {"tank", "mixtures", "fittings", "components", "emission"};

/// The process is ended in the middle of a command that writes to all of a tank's tables.
class KilledTankCommandsTest : public testing::Test {
 protected:
  using Tables = std::vector<Rows>;

  static Tables Read(const fs::path& client) {
    const auto database = store::Database::Open(client);
    EXPECT_TRUE(database->IntegrityCheck());
    Tables tables;
    for (const auto table : kTables) tables.push_back(database->OpenTable(table).GetRows(1'000'000));
    return tables;
  }

  static void AddTank(store::Database& client, std::int32_t ID, int rows) {
    test::AddRow(client, "tank",
                 {{"USER ID", "T" + std::to_string(ID)}, {"TANK_TYPE", shell::kHorizontal}, {"DIAMETER", 1.0 * ID}});
    for (int i = 1; i <= rows; ++i) {
      test::AddRow(client, "mixtures", {{"ID", ID}, {"MIX ID", i}, {"VP", 1.0 * ID}});
      test::AddRow(client, "fittings", {{"ID", ID}, {"FIT ID", i}, {"K_FA", 1.0 * ID}});
      test::AddRow(client, "components", {{"ID", ID}, {"MIX ID", 1}, {"COMP ID", i}, {"VP", 1.0 * ID}});
      test::AddRow(client, "emission", {{"ID", ID}, {"MIX ID", i}, {"NAME", "Benzene"}, {"MONTH", "Annual"}});
    }
  }

  /// The files to start from, with so many tanks.
  void MakeFiles(int tanks, int rows) {
    const auto client = store::Database::Create(start_, store::ClientTables());
    store::Transaction transaction(*client);
    for (std::int32_t ID = 1; ID <= tanks; ++ID) AddTank(*client, ID, rows);
    transaction.Commit();
  }

  /// Runs a command on a fresh copy of the files in a process of its own.
  test::ChildProcess Start(const std::function<void(shell::Session&, test::ScriptedHost&)>& command) {
    fs::remove(client_.string() + "-journal");
    fs::copy_file(start_, client_, fs::copy_options::overwrite_existing);
    return test::ChildProcess([&] {
      test::ScriptedHost host;
      shell::Session session(host);
      session.ClientDb = store::Database::Open(client_);
      AddTankEntry(session);
      session.editRecord = [](shell::Session&, std::int32_t, const std::string&) {};
      command(session, host);
      return 0;
    });
  }

  /// Ends the command at moments spread over its whole length: all of it is there, or nothing.
  void ExpectAllOrNothing(const std::function<void(shell::Session&, test::ScriptedHost&)>& command) {
    const auto before = Read(start_);
    const auto begin = Clock::now();
    ASSERT_EQ(Start(command).Wait(), 0);
    const Seconds whole = Clock::now() - begin;
    const auto after = Read(client_);
    ASSERT_FALSE(after == before);
    std::mt19937 random(20240229);
    std::uniform_real_distribution<double> within(0, 1);
    int killed = 0;
    for (int i = 0; i < kKills; ++i) {
      auto process = Start(command);
      std::this_thread::sleep_for((i + within(random)) / kKills * whole);
      killed += process.Kill() ? 1 : 0;
      const auto found = Read(client_);
      EXPECT_TRUE(found == before || found == after) << "killed " << i;
    }
    RecordProperty("killed", killed);
    EXPECT_GT(killed, 0);  // how many depends on what else the computer does
  }

  test::TemporaryFolder folder_;
  fs::path start_ = folder_.Path() / "start.mdb";
  fs::path client_ = folder_.Path() / "client1.mdb";
};

TEST_F(KilledTankCommandsTest, ACopyIsThereAsAWholeOrNotAtAll) {
  MakeFiles(2, kRows);
  ExpectAllOrNothing([](shell::Session& session, test::ScriptedHost&) {
    session.tank_entry->frmTank = std::make_unique<FrmTank>(MakeFrmTank(shell::kHorizontal));
    Editor(session).ID = 2;
    auto window = OpenFrmCopyData(session);
    ChangeTankName(session, window, "T1");
    ChooseAll(session, window);
    ClickOK(session, window);
  });
}

TEST_F(KilledTankCommandsTest, TanksAreDeletedTogetherOrNotAtAll) {
  MakeFiles(kTanks, 10);
  ExpectAllOrNothing([](shell::Session& session, test::ScriptedHost& host) {
    auto window = OpenFrmrecdelete(session);
    ClickSelectAll(session, window);
    host.ExpectMessage("Are you sure you want to delete these tanks?", shell::Answer::kYes);
    ClickDelete(session, window);
  });
}

}  // namespace
}  // namespace orvex::entry
