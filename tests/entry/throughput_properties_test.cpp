#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "entry/answering_host.h"

namespace orvex::entry {
namespace {

struct TypeAndEnding {
  std::string_view tank_type;
  std::string ending;
  /// The prompts that volume, turnovers and throughput may bring on this type.
  std::set<std::string> prompts;
};

constexpr const char* kMonths = "Update monthly throughput information?";
constexpr const char* kManyTurnovers = "This is an unusually large number of turnovers.  Please check.";

const TypeAndEnding kTypes[] = {
    {shell::kVerticalFixedRoof, "VT", {kMonths, kManyTurnovers}},
    {shell::kHorizontal, "HT", {kMonths, kManyTurnovers}},
    {shell::kInternalFloatingRoof, "IT", {kMonths}},
    {shell::kExternalFloatingRoof, "ET", {kMonths}},
    {shell::kDomedExternalFloatingRoof, "ET", {kMonths}},
};

class QuantitiesTypedAnyhow : public test::AnsweredPageTest, public testing::WithParamInterface<TypeAndEnding> {
 protected:
  /// One of the three, and what is typed into it.
  using Step = std::pair<std::size_t, int>;

  void TypeStep(const Step& step) {
    static constexpr const char* kNames[] = {"txtVolume", "txtTurnover", "txtThroughput"};
    // Up to 200,000 gal, 2000 a year and 20,000,000 gal/yr; 0 is a quantity not given.
    static constexpr int kUnits[] = {100, 1, 10000};
    Type(kNames[step.first] + GetParam().ending, std::to_string(step.second * kUnits[step.first]));
  }

  double Of(std::string_view field) { return Number(Physical(Editor(answered_), field)); }

  void RequireAgreement() {
    const auto volume_gal = Of("VOLUME"), turnovers = Of("TURNOVER"), throughput_gal = Of("Q_NET");
    if (volume_gal == 0 || turnovers == 0 || throughput_gal == 0) return;
    // Within ten percent in one direction or the other; numbers of six decimals.
    const auto ratio = turnovers * volume_gal / throughput_gal;
    RC_ASSERT(ratio > 0.9 - 0.001);
    RC_ASSERT(ratio < 1 / 0.9 + 0.001);
  }

  void RequireStored() {
    for (const auto* field : {"VOLUME", "TURNOVER", "Q_NET"})
      RC_ASSERT(shell::FormatTwoToSixDecimals(Stored(field).DoubleOrZero()) ==
                Physical(Editor(answered_), field).box.text);
  }
};

TEST_P(QuantitiesTypedAnyhow, AgreeOrOneIsMissingAndNothingElseIsAsked) {
  OpenTank(GetParam().tank_type);
  EXPECT_TRUE(rc::check([this] {
    const auto number = rc::gen::weightedOneOf<int>({{1, rc::gen::just(0)}, {4, rc::gen::inRange(1, 2001)}});
    const auto length = *rc::gen::inRange<std::size_t>(1, 9);
    const auto steps =
        *rc::gen::container<std::vector<Step>>(length, rc::gen::pair(rc::gen::inRange<std::size_t>(0, 3), number));
    Given({{"txtVolume" + GetParam().ending, "0"},
           {"txtTurnover" + GetParam().ending, "0"},
           {"txtThroughput" + GetParam().ending, "0"}});
    Editor(answered_).last_field.clear();
    person_.messages.clear();
    for (const auto& step : steps) TypeStep(step);
    LeavePage();
    RequireAgreement();
    RequireStored();
    for (const auto& message : person_.messages) RC_ASSERT(GetParam().prompts.contains(message));
  }));
}

INSTANTIATE_TEST_SUITE_P(Tanks, QuantitiesTypedAnyhow, testing::ValuesIn(kTypes), [](const auto& type) {
  std::string name(type.param.tank_type);
  std::erase(name, ' ');
  return name;
});

}  // namespace
}  // namespace orvex::entry
