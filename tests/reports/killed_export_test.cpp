#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

#include "reports/export_fixture.h"
#include "reports/export_target.h"
#include "support/child_process.h"

/// The program is killed while it exports over what is there, or beside it.
namespace orvex::reports {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr int kRows = 8000;
constexpr int kKills = 12;
/// The last of them come when the work may be done.
constexpr double kLatest = 1.1;

class KilledExport : public test::ExportTest, public testing::WithParamInterface<const char*> {
 protected:
  KilledExport() {
    AddChemicals({"older"});
    EXPECT_EQ(Start("chemical").Wait(), 0);
    fs::copy_file(Target(), start_);
    store::Transaction transaction(test_.reference());
    for (int i = 0; i < kRows; ++i) AddChemicals({"newer"});
    transaction.Commit();
    old_ = State();
  }

  [[nodiscard]] const ExportFormat& Format() const { return *FindExportFormat(GetParam()); }
  [[nodiscard]] std::string Target() const { return CompletePath(Format(), Path("target")); }
  [[nodiscard]] bool IsWorkbook() const { return Format().token == test::kExcelFormat; }

  /// The export in a process of its own, whose person lets it overwrite what is there.
  test::ChildProcess Start(const std::string& table) {
    return test::ChildProcess([this, table] {
      test::ScriptedHost host;
      shell::Session session(host);
      session.TankPath = session_.TankPath;
      session.ReferenceDb = store::Database::Open(session_.TankPath);
      session.PrintMode = "Chemical";
      host.WhenShown("Frmexformat", [&] { session.ExportFormat = Format().token; });
      host.WhenShown("frmexname", [&] { session.ExportTarget = Target(); });
      if (!Format().is_folder) host.WhenShown("frmexptbl", [&] { session.ExportTable = table; });
      if (fs::exists(Target()) && !IsWorkbook()) {
        const auto name = Format().is_folder ? TargetName(Format(), Target()) : table;
        host.ExpectMessage("'" + name + "' already exists - overwrite?");
      }
      host.ExpectMessage("Successfully Exported 'chemical'.");
      auto form = OpenFrmprintrep(session);
      ChooseFile(session, form);
      ClickOK(session, form);
      return 0;
    });
  }
  test::ChildProcess StartOver() {
    fs::remove(Target() + "-journal");
    fs::copy_file(start_, Target(), fs::copy_options::overwrite_existing);
    return Start(IsWorkbook() ? "second" : "chemical");
  }

  /// What a person finds in the target.
  [[nodiscard]] std::string State() const {
    if (Format().token == test::kDatabaseFormat) {
      const auto database = store::Database::Open(Target());
      EXPECT_TRUE(database->IntegrityCheck());
      EXPECT_EQ(database->TableNames(), Strings{"chemical"});
      return std::to_string(database->OpenTable("chemical").RecordCount());
    }
    auto content = test::FileContent(Target());
    // The date of a dBASE file.
    if (Format().extension == "*.dbf") content.replace(1, 3, "ymd");
    return content;
  }

  test::TemporaryFolder beside_;
  fs::path start_ = beside_.Path() / "start";
  std::string old_;
};

INSTANTIATE_TEST_SUITE_P(Formats, KilledExport,
                         testing::Values(test::kDatabaseFormat, test::kDbaseFormat, test::kFoxProFormat,
                                         test::kExcelFormat, test::kTextFormat),
                         [](const auto& token) { return std::string(token.param).substr(5); });

TEST_P(KilledExport, LeavesTheOldOrTheNewTargetWhole) {
  Seconds whole = Seconds::max();
  std::string complete;
  for (int i = 0; i < 2; ++i) {
    const auto start = Clock::now();
    ASSERT_EQ(StartOver().Wait(), 0);
    whole = std::min<Seconds>(whole, Clock::now() - start);
    complete = State();
    ASSERT_NE(complete, old_);
  }
  std::mt19937 random(20241122);
  std::uniform_real_distribution<double> within(0, 1);
  int killed = 0;
  for (int i = 0; i < kKills && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    auto process = StartOver();
    std::this_thread::sleep_for((i + within(random)) / kKills * kLatest * whole);
    if (process.Kill()) ++killed;
    const auto state = State();
    EXPECT_TRUE(state == old_ || state == complete);
  }
  RecordProperty("killed", killed);
  EXPECT_GT(killed, 0);
  EXPECT_EQ(StartOver().Wait(), 0);
  EXPECT_EQ(State(), complete);
  EXPECT_EQ(test::EntryCount(out_.Path()), 1) << "what was left beside it has gone with the next export";
}

}  // namespace
}  // namespace orvex::reports
