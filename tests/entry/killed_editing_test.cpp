#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

#include "entry/lifecycle_fixture.h"
#include "entry/unsaved_tank.h"
#include "support/child_process.h"

/// The program is killed while tanks are created, saved, abandoned, changed and closed.
namespace orvex::entry {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;
using shell::Answer;

constexpr int kTanks = 12;
constexpr int kKills = 30;

class KilledEditing : public test::LifecycleTest {
 protected:
  /// A tank with a fitting and a component, saved or abandoned. Its identification reaches the row together with the
  /// end of its first save, so a stored tank without one was never saved.
  void CreateOne(int number) {
    CreateTank(shell::kInternalFloatingRoof, [&](FrmTank& form) {
      test::AddRow(Client(), "fittings", {{"ID", form.ID}, {"FIT ID", 1}});
      test::AddRow(Client(), "components", {{"ID", form.ID}, {"MIX ID", 1}, {"COMP ID", 1}});
      if (number % 3 == 0) {
        Close(form, Answer::kNo);
        return;
      }
      NameMixture(form);
      At(form, "txtUserID").box.text = fmt::format("T{}", number);
      Close(form, Answer::kYes);
    });
  }
  void ChangeOne(int number) {
    auto tank = Client().OpenAt("tank", "USER ID", {fmt::format("T{}", number)});
    if (tank.NoMatch()) return;
    EditTank(tank.Long("ID"), shell::kInternalFloatingRoof, [&](FrmTank& form) {
      form.form = Section::kPartial;
      ShowMixtureRow(session_, form);
      Type("txtDiameterIT", "100");
      EnterEntry(session_, form, "txtVolumeIT");
      Close(form, number % 2 == 0 ? Answer::kNo : Answer::kYes);
    });
  }
  void WorkOnTanks() {
    for (int number = 1; number <= kTanks; ++number) {
      CreateOne(number);
      ChangeOne(number);
    }
  }

  void OpenDatabases() {
    session_.ReferenceDb = store::Database::Open(session_.TankPath, store::OpenMode::kReadOnly);
    session_.ClientDb = store::Database::Open(session_.ClientPath);
  }
  void CloseDatabases() {
    session_.ClientDb.reset();
    session_.ReferenceDb.reset();
  }

  test::ChildProcess Start() {
    std::filesystem::remove(session_.ClientPath);
    std::filesystem::remove(session_.ClientPath + "-journal");
    store::Database::Create(session_.ClientPath, store::ClientTables());
    return test::ChildProcess([this] {
      OpenDatabases();
      WorkOnTanks();
      return 0;
    });
  }

  std::vector<std::int32_t> NeverSaved() {
    std::vector<std::int32_t> numbers;
    for (auto tanks = Client().OpenTable("tank"); !tanks.AtEnd(); tanks.MoveNext())
      if (tanks.IsNull("USER ID")) numbers.push_back(tanks.Long("ID"));
    return numbers;
  }

  /// What a killed program left, and that the next start settles it.
  void CheckAndSettle(Answer answer) {
    OpenDatabases();
    EXPECT_TRUE(Client().IntegrityCheck());
    EXPECT_EQ(Orphans(), 0);
    for (auto tanks = Client().OpenTable("tank"); !tanks.AtEnd(); tanks.MoveNext())
      EXPECT_FALSE(Client().OpenAt("mixtures", "IDMIX", {tanks.Long("ID"), 1}).NoMatch());
    const auto never_saved = NeverSaved();
    ASSERT_LE(never_saved.size(), 1U);
    EXPECT_EQ(Client().Mark(), never_saved.empty() ? 0 : never_saved[0]);
    if (!never_saved.empty()) {
      ++offered_;
      host_.ExpectMessage(
          fmt::format(
              "A tank was being created when the program was ended, and has never been saved: Internal "
              "Floating Roof Tank. It has no identification yet. It will be kept as \"Unsaved tank {}\".\r\n\r\n"
              "Do you want to keep it? If you answer No, it will be removed.",
              never_saved[0]),
          "Unsaved Tank", shell::Buttons::kYesNo, shell::Icon::kQuestion, answer);
    }
    session_.offerUnsavedTank(session_);
    EXPECT_TRUE(NeverSaved().empty());
    EXPECT_EQ(Client().Mark(), 0);
    EXPECT_EQ(Orphans(), 0);
    CloseDatabases();
  }

  int offered_ = 0;
};

TEST_F(KilledEditing, LeavesSoundFilesAndOffersExactlyATankThatWasNeverSaved) {
  CloseDatabases();
  const auto start = Clock::now();
  ASSERT_EQ(Start().Wait(), 0);
  const Seconds whole = Clock::now() - start;
  CheckAndSettle(Answer::kYes);
  ASSERT_EQ(offered_, 0);
  std::mt19937 random(20261121);
  std::uniform_real_distribution<double> within(0, 1);
  int killed = 0;
  for (int i = 0; i < kKills && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    auto process = Start();
    std::this_thread::sleep_for((i + within(random)) / kKills * whole);
    if (process.Kill()) ++killed;
    CheckAndSettle(i % 2 == 0 ? Answer::kYes : Answer::kNo);
  }
  RecordProperty("killed", killed);
  RecordProperty("offered", offered_);
  EXPECT_GT(killed, 0);  // how many depends on what else the computer does
  EXPECT_GT(offered_, 0);
}

}  // namespace
}  // namespace orvex::entry
