#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "emission/run_report.h"
#include "shell/periods.h"
#include "shell/tank_types.h"
#include "support/file_content.h"
#include "support/sample_tanks.h"

namespace orvex::emission {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr int kTanks = 500;
constexpr int kKillsWhileComputing = 30;
constexpr int kKillsWhileCommitting = 20;

/// All that a run writes.
struct Written {
  using Rows = std::vector<std::vector<store::Value>>;
  Rows emission, mixtures, components, errors;
  friend bool operator==(const Written&, const Written&) = default;
};

Written Read(store::Database& client) {
  const auto rows = [&](std::string_view table) { return client.OpenTable(table).GetRows(1000000); };
  return {rows("emission"), rows("mixtures"), rows("components"), rows("error")};
}

/// Tells through a pipe when the last tank is done and only the commit is left.
class TellingHost : public test::ScriptedHost {
 public:
  explicit TellingHost(int pipe) : pipe_(pipe) {}
  void Progress(std::int64_t done, std::int64_t total) override {
    if (done == total && write(pipe_, "c", 1) != 1) _exit(3);
  }

 private:
  int pipe_;
};

/// A process of its own that does the run.
class RunningProcess {
 public:
  explicit RunningProcess(const std::function<void(shell::Host&)>& run) {
    if (pipe(pipe_) != 0) throw std::runtime_error("no pipe");
    id_ = fork();
    if (id_ < 0) throw std::runtime_error("no process");
    if (id_ > 0) {
      close(pipe_[1]);
      return;
    }
    TellingHost host(pipe_[1]);
    run(host);
    // Nothing of the test itself may go on in here.
    _exit(testing::Test::HasFailure() ? 2 : 0);
  }
  RunningProcess(const RunningProcess&) = delete;
  RunningProcess& operator=(const RunningProcess&) = delete;
  ~RunningProcess() {
    if (id_ > 0) Kill();
    close(pipe_[0]);
  }

  /// Waits until the last tank is done; false if the process ended before.
  [[nodiscard]] bool WaitForCommit() const {
    char told = 0;
    return read(pipe_[0], &told, 1) == 1;
  }
  /// Waits for the end of its own; true if it was a good one.
  bool Wait() { return End() == 0; }
  /// True if the process was still there to be killed.
  bool Kill() {
    kill(id_, SIGKILL);
    const int status = End();
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  }

 private:
  int End() {
    int status = 0;
    waitpid(std::exchange(id_, 0), &status, 0);
    return status;
  }

  int pipe_[2]{};
  pid_t id_ = 0;
};

class KilledRunTest : public ::testing::Test {
 protected:
  KilledRunTest() {
    AddTanks();
    // What an earlier run left has to go in the new one.
    Select(test_.session, {.first = 5, .last = 5});
    RunReport(test_.session);
    EXPECT_EQ(test_.session.PrintMode, "Report");
    before_ = Read(test_.client());
    test_.session.ClientDb.reset();
    test_.session.ReferenceDb.reset();
    fs::copy_file(client_, folder_ / "start.mdb");
    reference_content_ = test::FileContent(reference_);
  }

  /// The first and last month of a report.
  struct Span {
    std::size_t first, last;
  };

  static void Select(shell::Session& session, Span months) {
    session.ReportTime = shell::kMonthly;
    session.MonthSelected = {};
    for (auto month = months.first; month <= months.last; ++month) session.MonthSelected[month] = true;
    session.TankList.clear();
    for (int i = 0; i < kTanks; ++i) session.TankList.push_back("T" + std::to_string(i));
  }

  void AddTanks() {
    store::Transaction client(test_.client());
    store::Transaction reference(test_.reference());
    for (int i = 0; i < kTanks; ++i) {
      const std::string name = "T" + std::to_string(i);
      const auto ID = i % 4 == 0 ? test::AddExternalTank(test_, {{"USER ID", name}, {"DIAMETER", 100 + 0.1 * i}})
                                 : test::AddVerticalTank(test_, {{"USER ID", name}, {"HEIGHT AL", 8 + 0.01 * i}});
      if (i % 2 == 0) AddBlend(ID);
    }
    client.Commit();
    reference.Commit();
  }

  /// A second mixture in the months from July on, with components.
  void AddBlend(std::int32_t ID) {
    auto& client = test_.client();
    test::AddMixture(client, ID, 2,
                     {{"MIX NAME", "Blend"}, {"COMPONENT", shell::kMultiple}, {"SPEC_OPT", shell::kFullSpeciation}});
    test::AddComponent(client, ID, 2, 1, {{"WT_FRACT", 40.0}});
    test::AddComponent(
        client, ID, 2, 2,
        {{"NAME", "Toluene"}, {"WT_FRACT", 60.0}, {"MOLWT", 92.13}, {"VP_MOLWT", 92.13}, {"L_DENS", 7.261}});
    const auto throughput = client.OpenMatching("mixtures", "IDMIX", {ID, 1}).Double("JAN_THRU");
    for (std::size_t month = 0; month < shell::kMonths.size(); ++month) {
      const bool blend = month >= 6;
      for (const std::int32_t mixture : {1, 2}) {
        const bool stored = (mixture == 2) == blend;
        test::ChangeMixture(
            client, ID, mixture,
            {{shell::kMonths[month].name, stored}, {shell::kMonths[month].throughput, stored ? throughput : 0.0}});
      }
    }
  }

  /// The run as the program does it, on the files as they stand.
  void Run(shell::Host& host) const {
    shell::Session session(host);
    session.ClientDb = store::Database::Open(client_);
    session.ReferenceDb = store::Database::Open(reference_);
    Select(session, {.first = 4, .last = 8});
    RunReport(session);
    EXPECT_EQ(session.PrintMode, "Report");
  }
  [[nodiscard]] RunningProcess Start() const {
    fs::remove(client_.string() + "-journal");
    fs::copy_file(folder_ / "start.mdb", client_, fs::copy_options::overwrite_existing);
    return RunningProcess([this](shell::Host& host) { Run(host); });
  }

  /// Times an undisturbed run and keeps what it writes.
  void RunUndisturbed() {
    const auto start = Clock::now();
    auto process = Start();
    ASSERT_TRUE(process.WaitForCommit());
    computing_ = Clock::now() - start;
    ASSERT_TRUE(process.Wait());
    committing_ = Clock::now() - start - computing_;
    after_ = Read(*store::Database::Open(client_));
    ASSERT_NE(after_, before_);
  }

  /// Checks the files that a killed run left, then runs again.
  void ExpectWholeAndRepeatable() {
    EXPECT_EQ(test::FileContent(reference_), reference_content_);
    EXPECT_TRUE(store::Database::Open(reference_)->IntegrityCheck());
    {
      const auto client = store::Database::Open(client_);
      EXPECT_TRUE(client->IntegrityCheck());
      // The run is there as a whole or not at all.
      const auto found = Read(*client);
      const bool whole = found == after_;
      EXPECT_TRUE(whole || found == before_);
      if (whole) ++finished_;
    }
    test::ScriptedHost host;
    Run(host);
    EXPECT_EQ(Read(*store::Database::Open(client_)), after_);
  }

  test::TestSession test_;
  fs::path folder_ = test_.folder.Path();
  fs::path client_ = folder_ / "client1.mdb";
  fs::path reference_ = folder_ / "tankdata.mdb";
  std::string reference_content_;
  Written before_, after_;
  Seconds computing_{}, committing_{};
  int finished_ = 0;
};

TEST_F(KilledRunTest, LeavesBothDatabasesWholeAndTheNextRunGivesTheSameRows) {
  ASSERT_NO_FATAL_FAILURE(RunUndisturbed());
  // The same moments in every run of the test, as parts of what the undisturbed run took.
  std::mt19937 random(20240229);
  std::uniform_real_distribution<double> within(0, 1);
  int killed = 0;
  int torn = 0;
  const auto kill_after = [&](RunningProcess& process, Seconds delay) {
    std::this_thread::sleep_for(delay);
    if (process.Kill()) ++killed;
    // A journal beside a client file that has begun to change: killed while the changes were being written.
    if (fs::exists(client_.string() + "-journal") &&
        test::FileContent(client_) != test::FileContent(folder_ / "start.mdb"))
      ++torn;
    ExpectWholeAndRepeatable();
  };
  for (int i = 0; i < kKillsWhileComputing; ++i) {
    auto process = Start();
    kill_after(process, (i + within(random)) / kKillsWhileComputing * computing_);
  }
  for (int i = 0; i < kKillsWhileCommitting; ++i) {
    auto process = Start();
    ASSERT_TRUE(process.WaitForCommit());
    kill_after(process, (i + within(random)) / kKillsWhileCommitting * committing_);
  }
  RecordProperty("killed", killed);
  RecordProperty("killed_while_writing", torn);
  RecordProperty("finished", finished_);
  // A process that was quicker than the undisturbed one may have ended before it was killed.
  EXPECT_GT(killed, 0);  // how many depends on what else the computer does
}

}  // namespace
}  // namespace orvex::emission
