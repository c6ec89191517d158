#include "refdata/profile_types.h"

#include "refdata/profile_fixture.h"

namespace orvex::refdata {
namespace {

using test::Rows;

constexpr const char* kOverHundred = "Sum of component percent is over 100%.";
constexpr const char* kNotHundred = "The sum of the component percents for a full profile must equal 100%.";

/// What a profile's type asks of its components' shares.
class ProfileTypesTest : public test::ProfileTest {
 protected:
  /// Every number of all components of a profile on show.
  struct Numbers {
    double wt_fract, vp_fract, weight;
    friend bool operator==(const Numbers&, const Numbers&) = default;
  };
  [[nodiscard]] std::vector<Numbers> Held() const {
    std::vector<Numbers> all;
    for (const auto& one : form_.profile.components)
      all.push_back({one.WT_FRACT.value_or(-1), one.VP_FRACT.value_or(-1), one.WEIGHT.value_or(-1)});
    return all;
  }

  /// A stored profile whose components have every number.
  void OpenFilled(const std::string& type) {
    test::AddRow(*session_.ReferenceDb, "profile names", {{"Profile Name", "Filled"}, {"TYPE", type}, {"User", true}});
    const auto spec_id = session_.ReferenceDb->OpenAt("profile names", "Profile Name", {"Filled"}).Long("SPEC ID");
    for (const auto* name : {"Toluene", "Benzene"})
      test::AddRow(*session_.ReferenceDb, "profile components",
                   {{"SPEC ID", spec_id}, {"NAME", name}, {"WT_FRACT", 1.0}, {"VP_FRACT", 2.0}, {"WEIGHT", 3.0}});
    Pick("Filled");
  }

  /// A stored full profile of the person's own with these shares.
  void OpenFull(std::initializer_list<std::pair<double, double>> liquid_and_weight) {
    test::AddRow(*session_.ReferenceDb, "profile names",
                 {{"Profile Name", "Filled"}, {"TYPE", "Full"}, {"User", true}});
    const auto spec_id = session_.ReferenceDb->OpenAt("profile names", "Profile Name", {"Filled"}).Long("SPEC ID");
    for (const auto& [liquid, weight] : liquid_and_weight)
      test::AddRow(*session_.ReferenceDb, "profile components",
                   {{"SPEC ID", spec_id}, {"NAME", "Toluene"}, {"WT_FRACT", liquid}, {"WEIGHT", weight}});
    Pick("Filled");
  }

  /// A new profile whose shares are these.
  void FillShares(const std::string& type, const Texts& shares) {
    Parts parts;
    for (const auto& share : shares) parts.emplace_back("Toluene", share);
    AddNew();
    FillNew("Mine", type, parts);
  }
  void ExpectSaved(const std::string& type, const Texts& shares) {
    FillShares(type, shares);
    SaveNew();
    EXPECT_EQ(Profiles(), Rows{"Mine|" + type});
  }
  void ExpectSumRefused(const std::string& type, const Texts& shares, const std::string& told) {
    FillShares(type, shares);
    ExpectTold(told);
    Save();
    EXPECT_EQ(Profiles(), Rows{});
    EXPECT_EQ(Counter(), fmt::format("Component 1 of {}", shares.size()));
  }
};

TEST_F(ProfileTypesTest, PartialClearsVaporAndRelativeSharesInAllComponents) {
  OpenFilled("Vapor");
  Choose("cboType", "Partial");
  EXPECT_EQ(Held(), (std::vector<Numbers>{{1, 0, 0}, {1, 0, 0}}));
}

TEST_F(ProfileTypesTest, FullClearsVaporAndRelativeSharesInAllComponents) {
  OpenFilled("Partial");
  Choose("cboType", "Full");
  EXPECT_EQ(Held(), (std::vector<Numbers>{{1, 0, 0}, {1, 0, 0}}));
  EXPECT_TRUE(form_.txtWT_FRACT.visible);
}

TEST_F(ProfileTypesTest, VaporClearsLiquidAndRelativeSharesInAllComponents) {
  OpenFilled("Full");
  Choose("cboType", "Vapor");
  EXPECT_EQ(Held(), (std::vector<Numbers>{{0, 2, 0}, {0, 2, 0}}));
  EXPECT_TRUE(form_.txtVP_FRACT.visible);
}

TEST_F(ProfileTypesTest, TheTypeThatItHasClearsNothing) {
  OpenFilled("Full");
  Choose("cboType", "Full");
  EXPECT_EQ(Held(), (std::vector<Numbers>{{1, 2, 3}, {1, 2, 3}}));
}

TEST_F(ProfileTypesTest, AnotherTypeIsAChangeThatIsSaved) {
  OpenFilled("Full");
  Choose("cboType", "Vapor");
  Pick("Gasoline");
  EXPECT_EQ(Stored("Filled"), (Rows{"Toluene|0|2|0", "Benzene|0|2|0"}));
  EXPECT_EQ(Profiles(), Rows{"Filled|Vapor"});
}

TEST_F(ProfileTypesTest, GoingOverToRelativeWeightsClearsThePercents) {
  OpenFilled("Full");
  Switch();
  EXPECT_EQ(Held(), (std::vector<Numbers>{{0, 2, 3}, {0, 2, 3}}));
  EXPECT_TRUE(form_.txtWEIGHT.visible);
  EXPECT_FALSE(form_.txtWT_FRACT.visible);
}

TEST_F(ProfileTypesTest, GoingBackToPercentsClearsTheRelativeWeights) {
  OpenFilled("Full");
  Switch();
  Switch();
  EXPECT_EQ(Held(), (std::vector<Numbers>{{0, 2, 0}, {0, 2, 0}}));
  EXPECT_TRUE(form_.txtWT_FRACT.visible);
}

TEST_F(ProfileTypesTest, OnlyAFullProfileHasRelativeWeights) {
  for (const auto* type : {"Partial", "Vapor"}) {
    AddNew();
    Choose("cboType", type);
    EXPECT_FALSE(form_.cmdRelLiq.visible || form_.cmdRelLiq.enabled);
    Switch();
    EXPECT_FALSE(form_.txtWEIGHT.visible);
    ExpectDeleteQuestion("Are you sure you want to delete this profile?", Answer::kOk);
    ClickDelete(session_, form_);
  }
  AddNew();
  Choose("cboType", "Full");
  EXPECT_TRUE(form_.cmdRelLiq.visible && form_.cmdRelLiq.enabled);
}

TEST_F(ProfileTypesTest, AnotherTypeEndsRelativeWeights) {
  AddNew();
  FillNew("Mine", "Full", {{"Toluene", "3"}}, true);
  Choose("cboType", "Partial");
  EXPECT_EQ(form_.txtWEIGHT.text, "0");
  Choose("cboType", "Full");
  EXPECT_TRUE(form_.txtWT_FRACT.visible);
}

TEST_F(ProfileTypesTest, AProfileThatHoldsWeightsAndNoPercentsOpensOnWeights) {
  OpenFull({{0, 0}, {0, 3}});
  EXPECT_TRUE(form_.txtWEIGHT.visible);
}

TEST_F(ProfileTypesTest, AProfileThatHoldsPercentsOpensOnThem) {
  OpenFull({{0, 3}, {100, 0}});
  EXPECT_TRUE(form_.txtWT_FRACT.visible);
}

TEST_F(ProfileTypesTest, AProfileThatHoldsNothingOpensOnPercents) {
  OpenFull({{0, 0}});
  EXPECT_TRUE(form_.txtWT_FRACT.visible);
}

TEST_F(ProfileTypesTest, RelativeWeightsAreSavedWhateverTheirSum) {
  AddSaved("Mine", "Full", {{"Toluene", "300"}, {"Benzene", "45.5"}}, true);
  EXPECT_EQ(Stored("Mine"), (Rows{"Toluene|0|0|300", "Benzene|0|0|45.5"}));
  AddSaved("Few", "Full", {{"Toluene", "0.5"}}, true);
  Pick("Mine");
  EXPECT_TRUE(form_.txtWEIGHT.visible);
  EXPECT_EQ(form_.txtWEIGHT.text, "300");
}

TEST_F(ProfileTypesTest, AFullProfileOf9995IsAccepted) { ExpectSaved("Full", {"50", "49.95"}); }

TEST_F(ProfileTypesTest, AFullProfileOf998IsRefused) { ExpectSumRefused("Full", {"50", "49.8"}, kNotHundred); }

TEST_F(ProfileTypesTest, AFullProfileOf1002IsRefused) { ExpectSumRefused("Full", {"50", "50.2"}, kNotHundred); }

TEST_F(ProfileTypesTest, APartialProfileOf30IsAccepted) { ExpectSaved("Partial", {"10", "20"}); }

TEST_F(ProfileTypesTest, APartialProfileOf1002IsRefused) { ExpectSumRefused("Partial", {"50", "50.2"}, kOverHundred); }

TEST_F(ProfileTypesTest, AVaporProfileOf1002IsRefused) { ExpectSumRefused("Vapor", {"50", "50.2"}, kOverHundred); }

TEST_F(ProfileTypesTest, SumsWithinTheToleranceAreAccepted) {
  ExpectSaved("Full", {"50.05", "50.05"});
  ExpectDeleteQuestion("Are you sure you want to delete this profile?", Answer::kOk);
  ClickDelete(session_, form_);
  ExpectSaved("Partial", {"50.05", "50.05"});
  ExpectDeleteQuestion("Are you sure you want to delete this profile?", Answer::kOk);
  ClickDelete(session_, form_);
  ExpectSaved("Vapor", {"50.05", "50.05"});
}

TEST_F(ProfileTypesTest, AVaporProfileIsTestedOnItsVaporSharesOnly) {
  OpenFilled("Vapor");
  Type("txtWT_FRACT", "500");
  Type("txtWEIGHT", "500");
  Save();
  EXPECT_EQ(Stored("Filled"), (Rows{"Toluene|500|2|500", "Benzene|1|2|3"}));
}

TEST_F(ProfileTypesTest, AVaporProfileNeedsNoLiquidShares) { ExpectSaved("Vapor", {"30"}); }

/// Sums at the very bounds, of decimal numbers that no binary number equals. Added up one by one as binary numbers,
/// 999 x 0.1 comes out as 99.89999999999859.
struct Addends {
  const char* type;
  int count;
  double share;
  bool accepted;
};

TEST(ProfileSums, TheBoundsHoldForTheDecimalSums) {
  for (const auto& [type, count, share, accepted] : {Addends{"Full", 999, 0.1, true},
                                                     {"Full", 1001, 0.1, true},
                                                     {"Full", 998, 0.1, false},
                                                     {"Full", 1002, 0.1, false},
                                                     {"Full", 333, 0.3, true},
                                                     {"Full", 143, 0.7, true},
                                                     {"Full", 9990, 0.01, true},
                                                     {"Full", 10010, 0.01, true},
                                                     {"Full", 10011, 0.01, false},
                                                     {"Full", 9989, 0.01, false},
                                                     {"Partial", 1001, 0.1, true},
                                                     {"Partial", 1002, 0.1, false},
                                                     {"Vapor", 143, 0.7, true},
                                                     {"Vapor", 10011, 0.01, false}}) {
    SCOPED_TRACE(fmt::format("{} {} x {}", type, count, share));
    ProfileRecord profile;
    profile.Type = type;
    ProfileComponent component;
    (profile.Type == "Vapor" ? component.VP_FRACT : component.WT_FRACT) = share;
    profile.components.assign(static_cast<std::size_t>(count), component);
    EXPECT_EQ(SumRefusal(profile).empty(), accepted);
  }
}

TEST(ProfileSums, TheLeastShareBeyondABoundIsRefused) {
  ProfileRecord profile;
  profile.Type = "Full";
  profile.components[0].WT_FRACT = 100.10001;
  EXPECT_EQ(SumRefusal(profile), kNotHundred);
  profile.components[0].WT_FRACT = 99.89999;
  EXPECT_EQ(SumRefusal(profile), kNotHundred);
}

}  // namespace
}  // namespace orvex::refdata
