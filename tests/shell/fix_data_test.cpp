#include "shell/fix_data.h"

#include <gtest/gtest.h>

#include "shell/editing.h"
#include "support/query_rows.h"
#include "support/scripted_host.h"
#include "support/test_databases.h"

namespace orvex::shell {
namespace {

constexpr const char* kDone =
    "The update was successful.  If you have used the 'Jet Kerosene' speciation profile in any of your tanks you "
    "should change the liquid weight percents for Hexane (n) and Benzene to 0.005 and 0.004, respectively.";

class FixDataTest : public testing::Test {
 protected:
  void Component(std::int32_t spec_id, const char* name, double percent) {
    test::AddRow(test_.reference(), "profile components",
                 {{"SPEC ID", spec_id}, {"NAME", name}, {"WT_FRACT", percent}});
  }
  void Fix() {
    test_.host.ExpectMessage(kDone, "ORVEX", Buttons::kOk, Icon::kNone);
    FixData(test_.session);
  }
  [[nodiscard]] test::Rows Components() {
    return test::QueryRows(test_.reference(), "SELECT * FROM [profile components]", {"SPEC ID", "NAME", "WT_FRACT"});
  }
  test::TestSession test_;
};

TEST_F(FixDataTest, SetsTwoSharesOfTheDeliveredProfileAndNoOthers) {
  Component(5, "Benzene", 1.8);
  Component(6, "Hexane (-n)", 0.5);
  Component(6, "Benzene", 0.4);
  Component(6, "Toluene", 0.1);
  Fix();
  const test::Rows fixed = {"5|Benzene|1.8", "6|Hexane (-n)|0.005", "6|Benzene|0.004", "6|Toluene|0.1"};
  EXPECT_EQ(Components(), fixed);
  Fix();
  EXPECT_EQ(Components(), fixed);
}

TEST_F(FixDataTest, IsSuccessfulForAProfileThatLacksOneOfTheTwo) {
  Component(6, "Benzene", 0.4);
  Fix();
  EXPECT_EQ(Components(), test::Rows{"6|Benzene|0.004"});
}

TEST_F(FixDataTest, IsSuccessfulWithoutTheProfile) {
  Fix();
  EXPECT_TRUE(Components().empty());
}

TEST_F(FixDataTest, WaitsWhileAnotherProgramEditsTheDatabase) {
  Component(6, "Benzene", 0.4);
  const auto other = store::LockFile::Take(EditingPath(test_.reference().Path()));
  test_.host.ExpectMessage("The tank database " + test_.reference().Path().string() +
                           " is being edited by another program. Nothing was changed. Close the window there, then try "
                           "again.");
  FixData(test_.session);
  EXPECT_EQ(Components(), test::Rows{"6|Benzene|0.4"});
}

}  // namespace
}  // namespace orvex::shell
