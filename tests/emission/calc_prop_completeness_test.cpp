#include <string>

#include "emission/calc_prop_fixture.h"

namespace orvex::emission {
namespace {

using AddTank = std::int32_t (*)(test::TestSession&, test::FieldValues);

struct Completeness {
  const char* name;
  AddTank add;
  bool needs_shell, needs_roof;
};

class CalcPropCompletenessTest : public CalcPropTest, public ::testing::WithParamInterface<Completeness> {
 protected:
  CalcPropCompletenessTest() {
    ID = GetParam().add(test, {{"RF_COLSHD", "White/White"}, {"RF_COND", "Good"}});
    SetMixture({{"MIX NAME", "Light"}, {"VP", 5.0}});
  }
  bool Filled() {
    Calc();
    const bool filled = Mixture("VP") != 5;
    SetMixture({{"VP", 5.0}});
    return filled;
  }
  /// Whether the row is filled when the field is blank, in both ways of being blank.
  bool FilledWithout(std::string_view field, std::string_view restored) {
    ChangeTank(client, ID, {{field, ""}});
    const bool filled = Filled();
    ChangeTank(client, ID, {{field, kNull}});
    EXPECT_EQ(Filled(), filled) << field;
    ChangeTank(client, ID, {{field, restored}});
    return filled;
  }
};

TEST_P(CalcPropCompletenessTest, ACompleteTankIsFilled) { EXPECT_TRUE(Filled()); }

TEST_P(CalcPropCompletenessTest, WithoutACityNothingIsFilled) {
  EXPECT_FALSE(FilledWithout("MET CTYST", test::kSampleCity));
}

TEST_P(CalcPropCompletenessTest, ThePaintThatTheTypeNeedsMustBeThere) {
  EXPECT_EQ(FilledWithout("SHL COLSHD", "White/White"), !GetParam().needs_shell);
  EXPECT_EQ(FilledWithout("PT_COND", "Good"), !GetParam().needs_shell);
  EXPECT_EQ(FilledWithout("RF_COLSHD", "White/White"), !GetParam().needs_roof);
  EXPECT_EQ(FilledWithout("RF_COND", "Good"), !GetParam().needs_roof);
}

/// A type that none of the five rules names.
std::int32_t AddSphere(test::TestSession& test, test::FieldValues changes) {
  const auto ID = AddHorizontalTank(test, changes);
  ChangeTank(test.client(), ID, {{"TANK_TYPE", "Sphere"}});
  return ID;
}

INSTANTIATE_TEST_SUITE_P(Tank, CalcPropCompletenessTest,
                         ::testing::Values(Completeness{"Vertical", AddVerticalTank, true, true},
                                           Completeness{"Internal", AddInternalTank, true, true},
                                           Completeness{"Horizontal", AddHorizontalTank, true, false},
                                           Completeness{"External", AddExternalTank, true, false},
                                           Completeness{"Domed", AddDomedTank, true, false},
                                           Completeness{"Underground", AddUnderground, false, false},
                                           Completeness{"Sphere", AddSphere, false, false}),
                         [](const auto& tank) { return std::string(tank.param.name); });

TEST_F(CalcPropTest, AVerticalTankWithoutRoofColourKeepsItsLastValues) {
  AddLight(1, {{"WT_FRACT", 40.0}, {"VP", 77.0}});
  ChangeTank(client, ID, {{"RF_COLSHD", ""}});
  Calc();
  ExpectUntouched();
  EXPECT_EQ(Component("VP").AsDouble(), 77);
  EXPECT_EQ(client.OpenTable("error").RecordCount(), 0);
}

TEST_F(CalcPropTest, AnUnknownCityKeepsTheLastValues) {
  ChangeTank(client, ID, {{"MET CTYST", "Nowhere"}});
  Calc();
  ExpectUntouched();
  EXPECT_EQ(client.OpenTable("error").RecordCount(), 0);
}

TEST_F(CalcPropTest, ATankThatIsNotThereChangesNothing) {
  CalcProp(test.session, ID + 1);
  ExpectUntouched();
  // Its mixtures may have stayed behind.
  client.Execute("DELETE * FROM tank");
  Calc();
  ExpectUntouched();
}

TEST_F(CalcPropTest, AWeatherFigureThatIsMissingIsReported) {
  SetCity({{"INSOL_ANN", kNull}});
  test.host.ExpectError(94, "modEmission.CalcProp");
  Calc();
  ExpectUntouched();
}

}  // namespace
}  // namespace orvex::emission
