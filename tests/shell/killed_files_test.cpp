#include <algorithm>
#include <chrono>
#include <random>
#include <thread>
#include <vector>

#include "shell/add_cas_field.h"
#include "shell/backup.h"
#include "shell/compact.h"
#include "shell/database_files_fixture.h"
#include "shell/older_client.h"
#include "shell/restore.h"
#include "support/child_process.h"

/// The program is killed while it replaces or rebuilds a file.
namespace orvex::shell {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;
using Rows = std::vector<std::vector<store::Value>>;

constexpr int kTanks = 4000;
constexpr int kEmissions = 3000;
constexpr int kKills = 50;
/// The last of them come when the work may be done.
constexpr double kLatest = 1.15;

class KilledFilesTest : public test::DatabaseFilesFixture {
 protected:
  KilledFilesTest() {
    test::MakeOlderClient(start_);
    const auto client = store::Database::Open(start_);
    store::Transaction transaction(*client);
    for (int i = 0; i < kTanks; ++i)
      test::AddRow(*client, "tank", {{"USER ID", "T" + std::to_string(i)}, {"DESC", std::string(200, 'd')}});
    (void)client->Execute("DELETE * FROM tank WHERE ID > 3000");
    for (int i = 0; i < kEmissions; ++i)
      test::AddRow(*client, "emission", {{"ID", i}, {"NAME", "Benzene"}, {"MONTH", "Annual"}, {"S_LOSS", 0.5 * i}});
    transaction.Commit();
  }

  /// The work in a process of its own, from the file as it was at the start.
  template <typename Work>
  test::ChildProcess Start(Work work) {
    // What a killed program leaves beside its files may stay for the next start, but a journal belongs to its file.
    fs::remove(client_ + "-journal");
    fs::copy_file(start_, client_, fs::copy_options::overwrite_existing);
    return test::ChildProcess([this, work] {
      test::ScriptedHost host;
      Session session(host);
      session.ClientPath = client_;
      work(session, host);
      return 0;
    });
  }

  /// Kills the work at moments spread over the time that an undisturbed one takes, and checks what it left.
  template <typename Work, typename Check>
  void KillAtAllTimes(Work work, Check check) {
    Seconds whole = Seconds::max();
    // The first one may find its files on the disk only.
    for (int i = 0; i < 2; ++i) {
      auto process = Start(work);
      const auto start = Clock::now();
      ASSERT_EQ(process.Wait(), 0);
      whole = std::min<Seconds>(whole, Clock::now() - start);
      check();
    }
    std::mt19937 random(20240229);
    std::uniform_real_distribution<double> within(0, 1);
    int killed = 0;
    for (int i = 0; i < kKills && !HasFailure(); ++i) {
      SCOPED_TRACE(i);
      auto process = Start(work);
      std::this_thread::sleep_for((i + within(random)) / kKills * kLatest * whole);
      if (process.Kill()) ++killed;
      check();
    }
    RecordProperty("killed", killed);
    // A process that was quicker than the undisturbed one may have ended before it was killed.
    EXPECT_GT(killed, 0);  // how many depends on what else the computer does
    // The next one goes through, whatever is left beside the files.
    EXPECT_EQ(Start(work).Wait(), 0);
  }

  static Rows Read(store::Database& client, std::string_view table) { return client.OpenTable(table).GetRows(1000000); }

  std::string start_ = File("start.old");
};

TEST_F(KilledFilesTest, CompactionLeavesTheOldOrTheNewFileWhole) {
  const auto tanks = Read(*store::Database::Open(start_), "tank");
  const auto emissions = Read(*store::Database::Open(start_), "emission");
  const auto old_size = fs::file_size(start_);
  int finished = 0;
  int torn = 0;
  KillAtAllTimes([](Session& session, test::ScriptedHost&) { Compact(session, session.ClientPath); },
                 [&] {
                   if (fs::file_size(client_) < old_size) ++finished;
                   if (fs::exists(File("Client1.mdN"))) ++torn;
                   const auto client = OpenGoodDatabase(DatabaseKind::kClient, client_);
                   EXPECT_TRUE(client->IntegrityCheck());
                   EXPECT_EQ(Read(*client, "tank"), tanks);
                   EXPECT_EQ(Read(*client, "emission"), emissions);
                 });
  RecordProperty("finished", finished);
  RecordProperty("killed_while_writing", torn);
  EXPECT_LT(fs::file_size(client_), old_size);
  EXPECT_FALSE(fs::exists(File("Client1.mdN")));
  EXPECT_FALSE(fs::exists(File("Client1.mdN.compacting")));
}

TEST_F(KilledFilesTest, ABackupLeavesTheOldOrTheNewOneWhole) {
  const auto backup = File("backup.mdb");
  const auto tanks = Read(*store::Database::Open(start_), "tank");
  const auto emissions = Read(*store::Database::Open(start_), "emission");
  int finished = 0;
  const auto make_older = [&] {
    fs::remove(backup);
    test::AddRow(*store::Database::Create(backup, store::ClientTables()), "tank", {{"USER ID", "older"}});
  };
  make_older();
  KillAtAllTimes(
      [&](Session& session, test::ScriptedHost& host) {
        OpenClientDatabase(session, client_);
        host.ChooseFile(backup);
        host.ExpectMessage(client_ + " was copied to " + backup + ".");
        BackupClient(session);
      },
      [&] {
        const auto copy = OpenGoodDatabase(DatabaseKind::kClient, backup);
        EXPECT_TRUE(copy->IntegrityCheck());
        auto stored = copy->OpenTable("tank");
        if (stored.Text("USER ID") == "older") {
          EXPECT_EQ(stored.RecordCount(), 1);
        } else {
          EXPECT_EQ(Read(*copy, "tank"), tanks);
          EXPECT_EQ(Read(*copy, "emission"), emissions);
          ++finished;
          make_older();
        }
        // The database in use was only read.
        EXPECT_EQ(Read(*store::Database::Open(client_), "tank"), tanks);
      });
  RecordProperty("finished", finished);
}

TEST_F(KilledFilesTest, ARestoreLeavesTheOldOrTheNewFileWhole) {
  const auto backup = File("backup.mdb");
  const auto old_tanks = Read(*store::Database::Open(start_), "tank");
  {
    const auto client = store::Database::Create(backup, store::ClientTables());
    store::Transaction transaction(*client);
    for (int i = 0; i < kTanks; ++i)
      test::AddRow(*client, "tank", {{"USER ID", "B" + std::to_string(i)}, {"DESC", std::string(150, 'b')}});
    transaction.Commit();
  }
  const auto new_tanks = Read(*store::Database::Open(backup), "tank");
  const auto backup_content = test::FileContent(backup);
  int finished = 0;
  KillAtAllTimes(
      [&](Session& session, test::ScriptedHost& host) {
        OpenClientDatabase(session, client_);
        host.ChooseFile(backup);
        host.ExpectMessage(client_ + " was restored from " + backup + ".");
        RestoreClient(session);
      },
      [&] {
        const auto client = OpenGoodDatabase(DatabaseKind::kClient, client_);
        EXPECT_TRUE(client->IntegrityCheck());
        const auto tanks = Read(*client, "tank");
        if (tanks == new_tanks) {
          ++finished;
        } else {
          EXPECT_EQ(tanks, old_tanks);
        }
        EXPECT_EQ(test::FileContent(backup), backup_content);
      });
  RecordProperty("finished", finished);
  // The last one cleared away what the killed ones had left.
  EXPECT_EQ(test::EntryCount(folder_.Path()), 4) << "the tank database, the client before and after, and the backup";
}

TEST_F(KilledFilesTest, TheNewFieldIsThereWholeOrNotAtAll) {
  const auto rows = [](store::Database& client) {
    std::vector<std::pair<double, std::string>> read;
    for (auto set = client.OpenTable("emission"); !set.AtEnd(); set.MoveNext())
      read.emplace_back(set.Double("S_LOSS"), set.Text("NAME"));
    return read;
  };
  const auto before = rows(*store::Database::Open(start_));
  const auto old_fields = store::Database::Open(start_)->Fields("emission").size();
  int finished = 0;
  int torn = 0;
  KillAtAllTimes(
      [&](Session& session, test::ScriptedHost&) {
        OpenClientDatabase(session, client_);
        AddCASField(session);
      },
      [&] {
        if (fs::exists(client_ + "-journal")) ++torn;
        const auto client = OpenGoodDatabase(DatabaseKind::kClient, client_);
        EXPECT_TRUE(client->IntegrityCheck());
        EXPECT_EQ(client->TableNames().size(), store::ClientTables().size());
        EXPECT_EQ(rows(*client), before);
        const auto fields = client->Fields("emission");
        if (fields.size() == old_fields) {
          EXPECT_NE(fields[5].name, "CAS");
        } else {
          EXPECT_EQ(fields.size(), old_fields + 1);
          EXPECT_EQ(fields[5].name, "CAS");
          ++finished;
        }
        EXPECT_EQ(client->Indexes("emission").size(), 2U);
      });
  RecordProperty("finished", finished);
  RecordProperty("killed_while_writing", torn);
}

}  // namespace
}  // namespace orvex::shell
