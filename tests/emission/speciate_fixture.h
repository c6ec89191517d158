#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "emission/mixture_fixture.h"
#include "emission/speciate.h"

namespace orvex::emission {

/// What the tests look at in a component's row.
struct Shares {
  double moles, l_wt, v_wt, l_mo, v_mo;
};

/// A mixture "Blend" at 60 deg F, between 50 and 70, in a vertical tank that lost
/// S 100, W 200, RIM 10, WD 20, DECKF 30, DECKS 40 lb.
class SpeciateTest : public MixtureTest {
 protected:
  SpeciateTest() {
    test::AddMixture(client, ID, 1,
                     {{"MIX NAME", "Blend"}, {"COMPONENT", shell::kMultiple}, {"SPEC_OPT", shell::kFullSpeciation}});
  }

  void SetSpeciation(const store::Value& speciation) { test::ChangeMixture(client, ID, 1, {{"SPEC_OPT", speciation}}); }

  void AddPrimary(test::FieldValues fields = {}, std::string_view month = "Annual") {
    auto rows = client.OpenTable("emission");
    rows.AddNew();
    rows.Set("ID", ID);
    rows.Set("MIX ID", 1);
    rows.Set("NAME", "Blend");
    rows.Set("MONTH", month);
    rows.Set("PRIMARY", true);
    const std::pair<std::string_view, store::Value> usual[] = {{"TANK_TYPE", shell::kVerticalFixedRoof},
                                                               {"ALS_TEMP", k60F},
                                                               {"MLS_TEMP", k50F},
                                                               {"XLS_TEMP", k70F},
                                                               {"S_LOSS", 100.0},
                                                               {"W_LOSS", 200.0},
                                                               {"RIM_LOSS", 10.0},
                                                               {"WD_LOSS", 20.0},
                                                               {"DECKF_LOSS", 30.0},
                                                               {"DECKS_LOSS", 40.0}};
    for (const auto& [field, value] : usual) rows.Set(field, value);
    for (const auto& [field, value] : fields) rows.Set(field, value);
    rows.Update();
  }
  void ChangePrimary(test::FieldValues fields) {
    test::ChangeRow(client, "emission", "COMPID", {ID, 1, "Blend", "Annual", true}, fields);
  }

  void Split(std::string_view month = "Annual") { Speciate(test.session, ID, 1, std::string(month)); }

  store::Value Field(std::string_view name, std::string_view field, std::string_view month = "Annual") {
    auto rows = client.OpenTable("emission");
    rows.SetIndex("COMPID");
    rows.Seek({ID, 1, name, month, false});
    if (!rows.NoMatch()) return rows.Get(field);
    ADD_FAILURE() << "no row of " << name << " for " << month;
    return {};
  }
  double Number(std::string_view name, std::string_view field) { return Field(name, field).AsDouble(); }

  /// Names of the component rows of a period, in the order of the file.
  std::vector<std::string> Names(std::string_view month = "Annual") {
    std::vector<std::string> names;
    for (auto rows = client.OpenMatching("emission", "COMPID", {ID, 1}); !rows.AtEnd(); rows.MoveNext()) {
      if (!rows.Bool("PRIMARY") && rows.Text("MONTH") == month) names.push_back(rows.Text("NAME"));
    }
    return names;
  }

  void ExpectShares(std::string_view name, const Shares& shares) {
    EXPECT_NEAR(Number(name, "MOLES"), shares.moles, kTolerance) << name;
    EXPECT_NEAR(Number(name, "L_WT_FRACT"), shares.l_wt, kTolerance) << name;
    EXPECT_NEAR(Number(name, "V_WT_FRACT"), shares.v_wt, kTolerance) << name;
    EXPECT_NEAR(Number(name, "L_MO_FRACT"), shares.l_mo, kTolerance) << name;
    EXPECT_NEAR(Number(name, "V_MO_FRACT"), shares.v_mo, kTolerance) << name;
  }
  void ExpectWeights(std::string_view name, double liquid, double vapor) {
    EXPECT_NEAR(Number(name, "MOLWT"), liquid, 1e-9) << name;
    EXPECT_NEAR(Number(name, "VP_MOLWT"), vapor, 1e-9) << name;
  }
  void ExpectPressures(std::string_view name, double average, double minimum, double maximum) {
    EXPECT_NEAR(Number(name, "A_VP"), average, 1e-10) << name;
    EXPECT_NEAR(Number(name, "M_VP"), minimum, 1e-10) << name;
    EXPECT_NEAR(Number(name, "X_VP"), maximum, 1e-10) << name;
  }
  /// In the order S, W, RIM, WD, DECKF, DECKS.
  void ExpectLosses(std::string_view name, const std::vector<double>& losses) {
    constexpr std::string_view kFields[] = {"S_LOSS", "W_LOSS", "RIM_LOSS", "WD_LOSS", "DECKF_LOSS", "DECKS_LOSS"};
    ASSERT_EQ(losses.size(), std::size(kFields));
    for (std::size_t i = 0; i < losses.size(); ++i) {
      EXPECT_NEAR(Number(name, kFields[i]), losses[i], 1e-9) << name << ' ' << kFields[i];
    }
  }

  static constexpr double kTolerance = 1e-12;
  static constexpr const char* kRemainder = "Unidentified Components";
};

using Rows = std::vector<std::string>;

}  // namespace orvex::emission
