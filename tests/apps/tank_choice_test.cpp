#include "orvex-report/tank_choice.h"

#include <gtest/gtest.h>

#include <sstream>

#include "orvex-report/failure.h"
#include "support/file_content.h"
#include "support/test_databases.h"

namespace orvex::report_app {
namespace {

using Names = std::vector<std::string>;

class TankChoiceTest : public testing::Test {
 protected:
  TankChoiceTest() {
    for (const char* name : {"T-2", "t-1", "T, \"north\"", "@odd", "all"}) AddTank(name);
    AddTank(store::Value());
  }

  void AddTank(const store::Value& user_id) {
    test::AddRow(test_.client(), "tank", {{"USER ID", user_id}, {"TANK_TYPE", "Horizontal Tank"}});
  }

  Names Choose(const std::vector<std::string>& requests) {
    Names names;
    for (const auto& tank : ChooseTanks(test_.client(), requests, warnings_)) names.push_back(tank.user_id);
    return names;
  }

  ExitStatus Refusal(const std::vector<std::string>& requests) {
    try {
      Choose(requests);
      return kDone;
    } catch (const Failure& failure) {
      description_ = failure.description;
      return failure.status;
    }
  }

  std::string ListFile(std::string_view content) {
    test::WriteFile(test_.folder.Path() / "list.txt", content);
    return "@" + (test_.folder.Path() / "list.txt").string();
  }

  test::TestSession test_;
  std::ostringstream warnings_;
  std::string description_;
};

TEST_F(TankChoiceTest, WithoutARequestAllNamedTanksComeInTableOrder) {
  const Names all = {"T-2", "t-1", "T, \"north\"", "@odd", "all"};
  EXPECT_EQ(Choose({}), all);
  EXPECT_EQ(Choose({"all"}), all);
}

TEST_F(TankChoiceTest, NamesMatchWithoutRegardToCaseAndGetTheStoredSpelling) {
  EXPECT_EQ(Choose({"T-1,t-2"}), (Names{"t-1", "T-2"}));
}

TEST_F(TankChoiceTest, ATankIsChosenOnce) { EXPECT_EQ(Choose({"T-1,T-2", "t-1", "all"}).size(), 5U); }

TEST_F(TankChoiceTest, OddNamesCanBeQuoted) {
  EXPECT_EQ(Choose({R"("T, ""north""")", R"("@odd","all")"}), (Names{"T, \"north\"", "@odd", "all"}));
}

TEST_F(TankChoiceTest, AListFileHasOneNameALine) {
  EXPECT_EQ(Choose({ListFile("\uFEFFt-2\r\n\r\nT, \"north\"\n@odd")}), (Names{"T-2", "T, \"north\"", "@odd"}));
}

TEST_F(TankChoiceTest, AnUnknownTankIsNamed) {
  EXPECT_EQ(Refusal({"T-1,T-9"}), kWrongUse);
  EXPECT_NE(description_.find("'T-9'"), std::string::npos) << description_;
}

TEST_F(TankChoiceTest, AListFileThatCannotBeReadIsNamed) {
  EXPECT_EQ(Refusal({"@/missing/list"}), kCannotOpen);
  EXPECT_NE(description_.find("'/missing/list'"), std::string::npos) << description_;
  EXPECT_EQ(Refusal({"@" + test_.folder.Path().string()}), kCannotOpen);
}

TEST_F(TankChoiceTest, AnEmptyRequestChoosesNothing) {
  EXPECT_EQ(Refusal({","}), kWrongUse);
  EXPECT_EQ(Refusal({ListFile("\n\n")}), kWrongUse);
}

TEST_F(TankChoiceTest, ASecondTankOfTheSameNameIsPassedOverWithAWarning) {
  AddTank("T-1");
  EXPECT_EQ(Choose({}).size(), 5U);
  EXPECT_NE(warnings_.str().find("'T-1' is passed over"), std::string::npos) << warnings_.str();
}

TEST(TankChoice, ADatabaseWithoutTanksIsNamed) {
  test::TestSession test;
  std::ostringstream warnings;
  try {
    ChooseTanks(test.client(), {}, warnings);
    FAIL() << "chose a tank of none";
  } catch (const Failure& failure) {
    EXPECT_NE(failure.description.find("client1.mdb"), std::string::npos) << failure.description;
  }
}

}  // namespace
}  // namespace orvex::report_app
