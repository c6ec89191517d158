#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

#include "refdata/profile_fixture.h"
#include "support/child_process.h"

namespace orvex::refdata {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;
using test::Rows;

constexpr int kComponents = 1500;
constexpr int kKills = 25, kMostKills = 500;
/// More than a program can do before it is killed.
constexpr int kSaves = 5000;
constexpr double kLongestMilliseconds = 120;

/// The program is killed while a profile of many components is saved.
class KilledProfileTest : public test::ProfileTest {
 protected:
  KilledProfileTest() {
    AddNew();
    Type("dbcboProfName", "Mine");
    Choose("cboType", "Vapor");
    SetComponents(1);
    SaveNew();
    SpecID_ = form_.SpecID;
    form_ = {};
    session_.ReferenceDb.reset();
    std::filesystem::copy_file(session_.TankPath, start_);
  }

  /// As if the person had entered them; the number of components and what they hold tell one version from another.
  void SetComponents(int version) {
    ProfileComponent component;
    component.VP_FRACT = 0.01;
    component.NAME = fmt::format("Version {}", version);
    form_.profile.components.assign(static_cast<std::size_t>(kComponents + version), component);
    form_.dbcboChemName.text = component.NAME;
    form_.txtVP_FRACT.text = "0.01";
  }

  test::ChildProcess Start() {
    std::filesystem::remove(session_.TankPath + "-journal");
    std::filesystem::copy_file(start_, session_.TankPath, std::filesystem::copy_options::overwrite_existing);
    return test::ChildProcess([this] {
      session_.ReferenceDb = store::Database::Open(session_.TankPath);
      Open();
      Pick("Mine");
      for (int version = 2; version < 2 + kSaves; ++version) {
        SetComponents(version);
        Save();
      }
      return 0;
    });
  }

  /// The version that is found, whole; 0 if it is none.
  int Version() {
    const auto reference = store::Database::Open(session_.TankPath);
    EXPECT_TRUE(reference->IntegrityCheck());
    EXPECT_EQ(reference->OpenTable("profile names").RecordCount(), 15);
    const auto rows = test::QueryRows(
        *reference, fmt::format("SELECT * FROM [profile components] WHERE [spec id] = {}", SpecID_), {"NAME"});
    const int version = static_cast<int>(rows.size()) - kComponents;
    const auto name = fmt::format("Version {}", version);
    return std::ranges::all_of(rows, [&](const auto& row) { return row == name; }) ? version : 0;
  }

  std::filesystem::path start_ = folder_.Path() / "start.mdb";
  std::int32_t SpecID_ = 0;
};

TEST_F(KilledProfileTest, LeavesTheOldProfileOrTheNewOneWhole) {
  std::mt19937 random(20261122);
  std::uniform_real_distribution<double> lasting(0, kLongestMilliseconds);
  // How far a program comes depends on the machine: it is killed until it had saved something.
  int changed = 0;
  for (int i = 0; i < kMostKills && (i < kKills || changed == 0) && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    auto process = Start();
    std::this_thread::sleep_for(Milliseconds(lasting(random)));
    ASSERT_TRUE(process.Kill());
    const int version = Version();
    EXPECT_GE(version, 1);
    EXPECT_LE(version, 1 + kSaves);
    changed += version > 1 ? 1 : 0;
  }
  EXPECT_GT(changed, 0);
}

}  // namespace
}  // namespace orvex::refdata
