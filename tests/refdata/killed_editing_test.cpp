#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

#include "refdata/chemical_fixture.h"
#include "support/child_process.h"

/// The program is killed while chemicals are added, saved, changed and deleted.
namespace orvex::refdata {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;
using test::Rows;

/// More than a program can go through before it is killed.
constexpr int kChemicals = 5000;
constexpr int kKills = 30, kMostKills = 500;
constexpr double kLongestMilliseconds = 120;

class KilledReferenceEditing : public test::ChemicalTest {
 protected:
  void Work() {
    for (int number = 1; number <= kChemicals; ++number) {
      AddSaved(fmt::format("C{}", number));
      Type("txtREID", "4");
      Type("txtASTM_SLOPE", "3");
      Save();
      if (number % 3 == 0) Delete();
    }
  }
  void OpenDatabase() { session_.ReferenceDb = store::Database::Open(session_.TankPath); }
  void Close() {
    form_ = {};
    session_.ReferenceDb.reset();
  }
  test::ChildProcess Start() {
    std::filesystem::remove(session_.TankPath + "-journal");
    std::filesystem::copy_file(ORVEX_REFERENCE_DATABASE, session_.TankPath,
                               std::filesystem::copy_options::overwrite_existing);
    return test::ChildProcess([this] {
      OpenDatabase();
      Open(OpenFrmchemical);
      Work();
      return 0;
    });
  }
  Rows Shipped() {
    return Query("SELECT * FROM chemical WHERE USER_DEF = False", {"Counter", "NAME", "MOLWT", "VP_40", "VP_COEF_B"});
  }

  /// What a killed program left, and that the next opening settles it.
  void CheckAndSettle(const Rows& shipped) {
    OpenDatabase();
    EXPECT_TRUE(session_.ReferenceDb->IntegrityCheck());
    EXPECT_EQ(Shipped(), shipped);
    const auto rows = Query("SELECT * FROM chemical WHERE USER_DEF = True",
                            {"CATEGORY", "MOLWT", "VP_MOLWT", "L_DENS", "VP_2_A", "VP_2_B", "REID", "ASTM_SLOPE"});
    int empty = 0;
    for (const auto& row : rows) {
      const std::string saved = "Organic Liquids|72.15|72.15|5.23|28160|7.6|";
      if (row == "-|-|-|-|-|-|-|-") {
        ++empty;
      } else {
        EXPECT_TRUE(row == saved + "-|-" || row == saved + "4|3") << row;
      }
    }
    EXPECT_LE(empty, 1);
    empty_ += empty;
    saved_ += static_cast<int>(rows.size()) - empty;
    Open(OpenFrmchemical);
    EXPECT_EQ(std::ssize(Own()), std::ssize(rows) - empty);
    EXPECT_EQ(std::ranges::count(Own(), "-"), 0);
    Close();
  }

  int empty_ = 0, saved_ = 0;  ///< records of all that were killed
};

TEST_F(KilledReferenceEditing, LeavesWholeRecordsAndAtMostAnEmptyOneThatTheNextOpeningRemoves) {
  const auto shipped = Shipped();
  Close();
  std::mt19937 random(20261121);
  std::uniform_real_distribution<double> lasting(0, kLongestMilliseconds);
  // How far a program comes depends on the machine: it is killed until each state was met.
  for (int i = 0; i < kMostKills && (i < kKills || empty_ == 0 || saved_ == 0) && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    auto process = Start();
    std::this_thread::sleep_for(Milliseconds(lasting(random)));
    ASSERT_TRUE(process.Kill());
    CheckAndSettle(shipped);
  }
  EXPECT_GT(empty_, 0);
  EXPECT_GT(saved_, 0);
}

}  // namespace
}  // namespace orvex::refdata
