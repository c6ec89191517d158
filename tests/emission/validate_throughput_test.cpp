#include "emission/validate_fixture.h"
#include "shell/periods.h"
#include "shell/tank_types.h"

namespace orvex::emission {
namespace {

using test::SetMonths;
using test::SetThroughput;

constexpr const char* kInconsistent = "The total throughput is inconsistent with the sum of the mixture thruputs.";
constexpr const char* kNotPositive = "The sum of the mixture throughputs must be greater than zero.";
constexpr const char* kNoMonth = "You have not selected a mixture for any of the months.";

class ValidateThroughput : public ValidateTest {};

TEST_F(ValidateThroughput, TankWithoutMixtureIsTold) {
  const auto ID = AddVerticalTank(test);
  DeleteRows("mixtures", ID);
  EXPECT_EQ(Validated(ID), Errors{"There is no mixture information for this tank!"});
}

TEST_F(ValidateThroughput, SingleMixtureWithoutThroughputIsCompletedInTheRecord) {
  const auto ID = AddVerticalTank(test);
  SetThroughput(client, ID, 1, 0);
  SetMonths(client, ID, 1, false);
  EXPECT_EQ(Validated(ID), Errors{});
  for (const shell::Month& month : shell::kMonths) {
    EXPECT_TRUE(MixtureField(ID, 1, month.name).AsBool()) << month.name;
    EXPECT_EQ(MixtureField(ID, 1, month.throughput), store::Value(35000.0)) << month.name;  // 420,000 / 12
  }
  // The second run finds it filled: another throughput of the tank no longer reaches the mixture.
  ChangeTank(client, ID, {{"Q_NET", 421000.0}});
  EXPECT_EQ(Validated(ID), Errors{});
  EXPECT_EQ(MixtureField(ID, 1, "JAN_THRU"), store::Value(35000.0));
}

TEST_F(ValidateThroughput, NullThroughputsOfASingleMixtureAreCompletedToo) {
  const auto ID = AddHorizontalTank(test);
  for (const shell::Month& month : shell::kMonths) ChangeMixture(client, ID, 1, {{month.throughput, kNull}});
  EXPECT_EQ(Validated(ID), Errors{});
  EXPECT_EQ(MixtureField(ID, 1, "DEC_THRU"), store::Value(9000.0));  // 108,000 / 12
}

TEST_F(ValidateThroughput, CompletionOfAMixtureStaysWhenTheTankFails) {
  const auto ID = AddVerticalTank(test, {{"RF_TYPE", ""}});
  SetThroughput(client, ID, 1, 0);
  EXPECT_EQ(Validated(ID), Errors{"Roof type must be specified."});
  EXPECT_EQ(MixtureField(ID, 1, "JAN_THRU"), store::Value(35000.0));
}

TEST_F(ValidateThroughput, OnlyMixtureWithAnotherNumberThanOneIsNotCompleted) {
  const auto ID = AddVerticalTank(test);
  DeleteRows("mixtures", ID);
  AddMixture(client, ID, 2);
  EXPECT_EQ(Validated(ID), Errors{});
  EXPECT_EQ(MixtureField(ID, 2, "JAN_THRU"), store::Value(0.0));
}

TEST_F(ValidateThroughput, TwoMixturesWithoutThroughputAndMonthsAreTold) {
  const auto ID = AddVerticalTank(test);
  AddMixture(client, ID, 2);
  SetThroughput(client, ID, 1, 0);
  SetMonths(client, ID, 1, false);
  SetMonths(client, ID, 2, false);
  EXPECT_EQ(Validated(ID), Errors{kNoMonth});
}

TEST_F(ValidateThroughput, TwoMixturesWithoutThroughputPassOnceAMonthIsSet) {
  const auto ID = AddVerticalTank(test);
  AddMixture(client, ID, 2);
  SetThroughput(client, ID, 1, 0);
  SetMonths(client, ID, 1, false);
  SetMonths(client, ID, 2, false);
  ChangeMixture(client, ID, 2, {{"DECEMBER", true}});
  EXPECT_EQ(Validated(ID), Errors{});
  EXPECT_EQ(MixtureField(ID, 1, "JAN_THRU"), store::Value(0.0));
}

TEST_F(ValidateThroughput, SingleMixtureNeedsNoMonth) {
  const auto ID = AddVerticalTank(test);
  SetMonths(client, ID, 1, false);
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateThroughput, NegativeThroughputOfTheTankIsTold) {
  const auto ID = AddDomedTank(test, {{"Q_NET", -12.0}, {"TURNOVER", 0.0}});
  SetThroughput(client, ID, 1, 1);
  EXPECT_EQ(Validated(ID), Errors{kNotPositive});
}

TEST_F(ValidateThroughput, NegativeSumOfTheMixturesIsTold) {
  const auto ID = AddVerticalTank(test);
  SetThroughput(client, ID, 1, -1);
  EXPECT_EQ(Validated(ID), Errors{kNotPositive});
}

TEST_F(ValidateThroughput, NegativeTankAndMixturesAreToldOneByOne) {
  const auto ID = AddDomedTank(test, {{"Q_NET", -12.0}, {"TURNOVER", 0.0}});
  SetThroughput(client, ID, 1, -1);
  EXPECT_EQ(Validated(ID), (Errors{kNotPositive, kNotPositive}));
}

TEST_F(ValidateThroughput, TankWithoutThroughputPassesWithoutMixtureThroughput) {
  const auto ID = AddDomedTank(test, {{"Q_NET", 0.0}, {"TURNOVER", 0.0}});
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateThroughput, MixtureThroughputInATankWithoutThroughputIsTold) {
  const auto ID = AddDomedTank(test, {{"TURNOVER", 0.0}});
  for (const store::Value& none : {store::Value(0.0), kNull}) {
    ChangeTank(client, ID, {{"Q_NET", none}});
    EXPECT_EQ(Validated(ID), Errors{kInconsistent});
  }
}

TEST_F(ValidateThroughput, SumsMayDifferByOnePercent) {
  const auto ID = AddDomedTank(test, {{"Q_NET", 1000.0}, {"TURNOVER", 0.0}});
  SetThroughput(client, ID, 1, 0);
  ChangeMixture(client, ID, 1, {{"JAN_THRU", 1000.0}, {"DEC_THRU", 5.0}});
  EXPECT_EQ(Validated(ID), Errors{});
  ChangeMixture(client, ID, 1, {{"DEC_THRU", 11.0}});
  EXPECT_EQ(Validated(ID), Errors{kInconsistent});
  ChangeMixture(client, ID, 1, {{"JAN_THRU", 978.0}});  // 989 gal
  EXPECT_EQ(Validated(ID), Errors{kInconsistent});
}

TEST_F(ValidateThroughput, AllMixturesCountTowardsTheSum) {
  const auto ID = AddVerticalTank(test);
  AddMixture(client, ID, 2);
  SetThroughput(client, ID, 1, 20000);
  SetThroughput(client, ID, 2, 15000);
  EXPECT_EQ(Validated(ID), Errors{});
  SetThroughput(client, ID, 2, 20000);
  EXPECT_EQ(Validated(ID), Errors{kInconsistent});
}

TEST_F(ValidateThroughput, MixturesOfOtherTanksDoNotCount) {
  AddVerticalTank(test);
  const auto ID = AddVerticalTank(test);
  AddVerticalTank(test);
  EXPECT_EQ(Validated(ID), Errors{});
}

// Mixtures that are no chemicals, in a monthly report
// ------------------------------------------------------------------

class ValidateMonthly : public ValidateTest {
 protected:
  ValidateMonthly() {
    test.session.ReportTime = "Monthly";
    test.session.MonthSelected.fill(true);
  }

  /// A tank with mixtures of its own recipe that are stored in one month each.
  std::int32_t AddTankOfRecipes(std::initializer_list<std::string_view> months) {
    const auto ID = AddVerticalTank(test);
    SetThroughput(client, ID, 1, 0);
    std::int32_t MixID = 0;
    for (const std::string_view month : months) {
      if (++MixID > 1) AddMixture(client, ID, MixID);
      ChangeMixture(client, ID, MixID,
                    {{"MIX NAME", "Recipe " + std::to_string(MixID)},
                     {"COMPONENT", shell::kMultiple},
                     {"SPEC_OPT", shell::kPartialSpeciation}});
      SetMonths(client, ID, MixID, false);
      ChangeMixture(client, ID, MixID, {{month, true}});
    }
    return ID;
  }

  static std::string MonthlyError(const std::string& mixture) {
    return "Mixture: " + mixture +
           " You may not run a monthly report for more than one month for a mixture not part of the chemical database."
           "  Add this chemical to the chemical database if you want to run monthly reports for this chemical.";
  }
};

TEST_F(ValidateMonthly, CountOfMonthsRunsOnFromMixtureToMixture) {
  const auto ID = AddTankOfRecipes({"JANUARY", "FEBRUARY"});
  EXPECT_EQ(Validated(ID), Errors{MonthlyError("Recipe 2")});
}

TEST_F(ValidateMonthly, MixtureInNoChosenMonthFailsUnlessTheCountStandsAtOne) {
  const auto ID = AddTankOfRecipes({"JANUARY", "FEBRUARY", "MARCH"});
  test.session.MonthSelected.fill(false);
  EXPECT_EQ(Validated(ID), (Errors{MonthlyError("Recipe 1"), MonthlyError("Recipe 2"), MonthlyError("Recipe 3")}));
  test.session.MonthSelected[1] = true;  // February
  EXPECT_EQ(Validated(ID), Errors{MonthlyError("Recipe 1")});
}

TEST_F(ValidateMonthly, AnnualReportAllowsAnyMixture) {
  test.session.ReportTime = "Annual";
  const auto ID = AddTankOfRecipes({"JANUARY", "FEBRUARY"});
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateMonthly, MixtureInTheChemicalTableNeverFails) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"COMPONENT", shell::kMultiple}, {"SPEC_OPT", shell::kPartialSpeciation}});
  EXPECT_EQ(Validated(ID), Errors{});
  test.session.MonthSelected.fill(false);
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateMonthly, SpeciationDecidesWhetherARecipeMayRunForSeveralMonths) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"MIX NAME", "Recipe"}, {"COMPONENT", shell::kMultiple}, {"SPEC_OPT", "None"}});
  EXPECT_EQ(Validated(ID), Errors{MonthlyError("Recipe")});
  ChangeMixture(client, ID, 1, {{"SPEC_OPT", kNull}});
  EXPECT_EQ(Validated(ID), Errors{});
}

TEST_F(ValidateMonthly, VaporWeightRecipeMustSumToAHundredPercent) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1,
                {{"MIX NAME", "Recipe"}, {"COMPONENT", shell::kMultiple}, {"SPEC_OPT", shell::kVaporWeightSpeciation}});
  EXPECT_EQ(Validated(ID), Errors{MonthlyError("Recipe")});  // no component: 0
  AddComponent(client, ID, 1, 1, {{"VP_FRACT", 60.0}});
  AddComponent(client, ID, 1, 2, {{"VP_FRACT", 39.5}});
  AddComponent(client, ID, 2, 1, {{"VP_FRACT", 0.5}});  // another mixture's
  EXPECT_EQ(Validated(ID), Errors{MonthlyError("Recipe")});
  test::ChangeRow(client, "components", "IDMIX", {ID, 1, 2}, {{"VP_FRACT", 40.0}});
  EXPECT_EQ(Validated(ID), Errors{});
  test::ChangeRow(client, "components", "IDMIX", {ID, 1, 2}, {{"VP_FRACT", 40.5}});
  EXPECT_EQ(Validated(ID), Errors{MonthlyError("Recipe")});
}

TEST_F(ValidateMonthly, RuleIsCheckedEvenWhereTheTankHasErrors) {
  const auto ID = AddTankOfRecipes({"JANUARY", "FEBRUARY"});
  ChangeTank(client, ID, {{"SHL COLSHD", ""}});
  EXPECT_EQ(Validated(ID), (Errors{"Shell color must be specified.", MonthlyError("Recipe 2"), kTankErrors}));
}

TEST_F(ValidateMonthly, LongestMixtureNameFitsIntoItsMessage) {
  const auto ID = AddVerticalTank(test);
  const std::string name(50, 'm');
  ChangeMixture(client, ID, 1, {{"MIX NAME", name}, {"COMPONENT", shell::kMultiple}, {"SPEC_OPT", "None"}});
  EXPECT_EQ(Validated(ID), Errors{MonthlyError(name)});
}

}  // namespace
}  // namespace orvex::emission
