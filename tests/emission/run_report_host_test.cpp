#include "emission/run_report_fixture.h"

namespace orvex::emission {
namespace {

using Lines = std::vector<std::string>;

/// A host that keeps what the run does to the person's screen in one list, and that can stop the run.
class WatchingHost : public test::ScriptedHost {
 public:
  void SetStatusText(const std::string& text) override { events.push_back(text); }
  void SetPointer(shell::Pointer pointer) override {
    events.emplace_back(pointer == shell::Pointer::kBusy ? "busy pointer" : "default pointer");
  }
  void ShowWindow(std::string_view name) override { events.emplace_back(name); }
  void Progress(std::int64_t done, std::int64_t total) override {
    events.push_back(std::to_string(done) + " of " + std::to_string(total));
    if (done == stop_at) throw shell::Interrupted();
  }

  /// The events without those that repeat the one before of their kind.
  [[nodiscard]] Lines Changes() const {
    Lines changes;
    std::string last_pointer, last_status;
    for (const auto& event : events) {
      const bool is_pointer = event.ends_with("pointer");
      const bool is_status = event.ends_with("wait...") || event == "Ready";
      std::string& last = is_pointer ? last_pointer : last_status;
      if ((is_pointer || is_status) && std::exchange(last, event) == event) continue;
      changes.push_back(event);
    }
    return changes;
  }

  Lines events;
  std::int64_t stop_at = -1;
};

class RunReportHost : public RunReportTest {
 protected:
  RunReportHost() {
    session.ClientDb = std::move(test.session.ClientDb);
    session.ReferenceDb = std::move(test.session.ReferenceDb);
    session.ReportTime = "Annual";
    session.TankList = {"Tank 1", "Tank 2"};
  }
  // The sample tanks are put into the databases before the session takes them over.
  struct Tanks {
    explicit Tanks(test::TestSession& test) {
      AddVerticalTank(test);
      AddInternalTank(test);
      AddRow(test.client(), "error", {{"ID", 9}, {"USER ID", "Sold"}, {"error", "Old."}});
    }
  };
  Tanks tanks{test};
  WatchingHost host;
  shell::Session session{host};
};

TEST_F(RunReportHost, IsBusyUntilTheWindowOpens) {
  AddOldRow(1, "May");
  RunReport(session);
  EXPECT_EQ(host.Changes(), (Lines{"busy pointer", "Processing, please wait...", "1 of 4", "2 of 4", "3 of 4", "4 of 4",
                                   "default pointer", "Ready", "frmprintrep"}));
}

TEST_F(RunReportHost, IsBusyUntilTheErrorsAreShown) {
  ChangeTank(client, 2, {{"RIM_PRIM", ""}});
  RunReport(session);
  EXPECT_EQ(session.PrintMode, "Error");
  EXPECT_EQ(host.Changes(), (Lines{"busy pointer", "Processing, please wait...", "1 of 4", "2 of 4", "default pointer",
                                   "Ready", "frmprintrep"}));
}

TEST_F(RunReportHost, FinishedRunIsWrittenWhenTheWindowOpens) {
  RunReport(session);
  const auto other = store::Database::Open(client.Path());
  EXPECT_EQ(other->OpenTable("emission").RecordCount(), 2);
}

class InterruptedRun : public RunReportHost, public ::testing::WithParamInterface<std::int64_t> {};

TEST_P(InterruptedRun, LeavesTheFileAsItWas) {
  AddOldRow(1, "May");
  test::SetMonths(client, 1, 1, false);  // which the checks would complete
  test::SetThroughput(client, 1, 1, 0);
  std::vector<std::vector<std::vector<store::Value>>> before, after;
  const auto tables = client.TableNames();
  for (const auto& table : tables) before.push_back(Content(table));
  host.stop_at = GetParam();
  EXPECT_THROW(RunReport(session), shell::Interrupted);
  for (const auto& table : tables) after.push_back(Content(table));
  EXPECT_EQ(after, before);
  const Lines changes = host.Changes();
  ASSERT_GE(changes.size(), 2U);
  EXPECT_EQ(Lines(changes.end() - 2, changes.end()), (Lines{"default pointer", "Ready"}));
  // The next run starts from there.
  host.stop_at = -1;
  RunReport(session);
  EXPECT_EQ(session.PrintMode, "Report");
  EXPECT_EQ(RowCount(), 2);
}

INSTANTIATE_TEST_SUITE_P(AtAnyTank, InterruptedRun, ::testing::Values(1, 2, 3, 4));

TEST_F(RunReportTest, FileThatMayNotBeWrittenIsReported) {
  AddVerticalTank(test);
  AddOldRow(1, "May");
  const auto path = client.Path();
  test.session.ClientDb.reset();
  test.session.ClientDb = store::Database::Open(path, store::OpenMode::kReadOnly);
  test.host.ExpectError(3027, "mDatabase.RunReport");
  Run({"Tank 1"});
  EXPECT_EQ(test.host.windows, Lines{});
  EXPECT_EQ(test.host.pointers.back(), shell::Pointer::kDefault);
  EXPECT_EQ(test.host.status.back(), "Ready");
  EXPECT_EQ(test.session.ClientDb->OpenTable("emission").RecordCount(), 1);
}

TEST_F(RunReportTest, ReferenceFileThatMayNotBeWrittenIsEnough) {
  AddVerticalTank(test);
  const auto path = test.reference().Path();
  test.session.ReferenceDb.reset();
  test.session.ReferenceDb = store::Database::Open(path, store::OpenMode::kReadOnly);
  Run({"Tank 1"});
  EXPECT_EQ(Rows(), Lines{"1 1 Annual Benzene"});
}

TEST_F(RunReportTest, FailureOfTheRunItselfKeepsWhatWasWrittenAndShowsNoWindow) {
  AddVerticalTank(test);
  AddRow(client, "error", {{"ID", 9}, {"USER ID", "Sold"}, {"error", "Old."}});
  client.DeleteTable("emission");
  test.host.ExpectError(3011, "mDatabase.RunReport");
  Run({"Tank 1"});
  EXPECT_EQ(Errors(), Lines{});
  ExpectClose(client.OpenMatching("mixtures", "IDMIX", {1}).Double("VP"), 1.0707, "VP");
  EXPECT_EQ(test.host.windows, Lines{});
  EXPECT_EQ(test.host.pointers.back(), shell::Pointer::kDefault);
}

TEST_F(RunReportTest, FailureInAMixtureIsReportedAndTheNextTankIsStillComputed) {
  AddVerticalTank(test);
  AddVerticalTank(test);
  ChangeMixture(client, 1, 1, {{"MOLWT", kNull}, {"MIX NAME", kTypedName}});
  test.host.ExpectError(94, "modEmission.EmissFix");
  Run({"Tank 1", "Tank 2"});
  EXPECT_EQ(test.session.PrintMode, "Report");
  EXPECT_EQ(Rows(), Lines{"2 1 Annual Benzene"});
}

}  // namespace
}  // namespace orvex::emission
