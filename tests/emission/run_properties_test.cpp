#include <rapidcheck.h>

#include <array>
#include <map>
#include <tuple>

#include "emission/run_report_fixture.h"
#include "support/random_tanks.h"

namespace orvex::emission {
namespace {

constexpr std::array<std::string_view, 6> kLosses = {"S_LOSS",  "W_LOSS",     "RIM_LOSS",
                                                     "WD_LOSS", "DECKF_LOSS", "DECKS_LOSS"};
using Losses = std::array<double, kLosses.size()>;

Losses ReadLosses(store::RecordSet& row) {
  Losses losses{};
  for (std::size_t i = 0; i < losses.size(); ++i) losses[i] = row.Double(kLosses[i]);
  return losses;
}

void Add(const Losses& from, Losses& sums) {
  for (std::size_t i = 0; i < sums.size(); ++i) sums[i] += from[i];
}

/// Equal within what the rounding of a few additions can do to parts of a whole.
bool Agree(const Losses& sums, const Losses& whole) {
  for (std::size_t i = 0; i < sums.size(); ++i)
    if (std::abs(sums[i] - whole[i]) > 1e-9 * whole[i]) return false;
  return true;
}

class RunProperties : public RunReportTest {
 protected:
  RunProperties() { test::AddRandomTankReference(test.reference()); }

  /// Runs a property on the sample databases, which every case finds as they are: what it writes is undone.
  template <typename Property>
  bool Check(const char* description, Property property) {
    return rc::check(description, [&] {
      const store::Transaction of_client(client), of_reference(test.reference());
      property();
    });
  }

  void AddTanks(test::Storage storage) {
    test.session.TankList.clear();
    const int count = *rc::gen::inRange(1, 4);
    for (int i = 0; i < count; ++i) {
      const auto ID = test::AddRandomTank(test, storage);
      test.session.TankList.push_back(client.OpenMatching("tank", "ID", {ID}).Text("USER ID"));
    }
  }

  void ChooseAnyMonths() {
    test.session.ReportTime = *rc::gen::element("Annual", "Monthly");
    for (bool& chosen : test.session.MonthSelected) chosen = *rc::gen::arbitrary<bool>();
  }

  /// A run over plausible tanks ends in a report, without a word on the way.
  void RunToTheEnd() {
    RunReport(test.session);
    for (const auto& error : Errors()) RC_LOG(error);
    RC_ASSERT(test.session.PrintMode == "Report");
    RC_ASSERT(Errors().empty());
    RC_ASSERT(test.host.messages.empty());
  }

  /// Losses of all rows, added up over the periods.
  std::map<std::tuple<std::int32_t, std::int32_t, bool, std::string>, Losses> LossesOfTheYear() {
    std::map<std::tuple<std::int32_t, std::int32_t, bool, std::string>, Losses> year;
    for (auto rows = client.OpenTable("emission"); !rows.AtEnd(); rows.MoveNext())
      Add(ReadLosses(rows), year[{rows.Long("ID"), rows.Long("MIX ID"), rows.Bool("PRIMARY"), rows.Text("NAME")}]);
    return year;
  }
};

TEST_F(RunProperties, EveryFigureIsANumberAndNoLossOrExpansionIsNegative) {
  std::vector<std::string> numbers;
  for (const auto& field : client.Fields("emission"))
    if (field.type == store::FieldType::kDouble) numbers.push_back(field.name);
  ASSERT_FALSE(numbers.empty());
  EXPECT_TRUE(Check("figures are numbers, losses and K_E not negative", [&] {
    test::ChangeToRandomWeather(test.reference());
    AddTanks(test::Storage::kAnyMixtures);
    ChooseAnyMonths();
    RunToTheEnd();
    for (auto rows = client.OpenTable("emission"); !rows.AtEnd(); rows.MoveNext()) {
      for (const auto& field : numbers) RC_ASSERT(std::isfinite(rows.DoubleOrZero(field)));
      for (const double loss : ReadLosses(rows)) RC_ASSERT(loss >= 0);
      RC_ASSERT(rows.DoubleOrZero("K_E") >= 0);
      if (!rows.Bool("PRIMARY")) continue;
      RC_ASSERT(rows.Double("A_VP") > 0);
      const double losses =
          shell::IsFixedRoof(rows.Text("TANK_TYPE")) ? rows.Double("W_LOSS") : rows.Double("RIM_LOSS");
      // A riveted shell may bear a seal that nobody knows.
      RC_ASSERT(losses > 0 || rows.DoubleOrZero("M_KR") == 0);
    }
  }));
}

TEST_F(RunProperties, ComponentsLoseTogetherWhatTheirMixtureLoses) {
  int compared = 0;
  EXPECT_TRUE(Check("losses of components make up those of the mixture", [&] {
    test::ChangeToRandomWeather(test.reference());
    AddTanks(test::Storage::kAnyMixtures);
    ChooseAnyMonths();
    RunToTheEnd();
    std::map<std::tuple<std::int32_t, std::int32_t, std::string>, std::pair<Losses, Losses>> mixtures;
    for (auto rows = client.OpenTable("emission"); !rows.AtEnd(); rows.MoveNext()) {
      auto mixture = client.OpenMatching("mixtures", "IDMIX", {rows.Long("ID"), rows.Long("MIX ID")});
      if (mixture.TextOrEmpty("COMPONENT") != shell::kMultiple) continue;
      if (mixture.TextOrEmpty("SPEC_OPT") == shell::kNoSpeciation) continue;
      auto& [whole, parts] = mixtures[{rows.Long("ID"), rows.Long("MIX ID"), rows.Text("MONTH")}];
      Add(ReadLosses(rows), rows.Bool("PRIMARY") ? whole : parts);
    }
    for (const auto& [key, losses] : mixtures) {
      RC_ASSERT(Agree(losses.second, losses.first));
      ++compared;
    }
  }));
  EXPECT_GT(compared, 0);
}

TEST_F(RunProperties, SecondRunGivesTheSameRows) {
  EXPECT_TRUE(Check("a second run gives the same rows", [&] {
    test::ChangeToRandomWeather(test.reference());
    AddTanks(test::Storage::kAnyMixtures);
    ChooseAnyMonths();
    RunToTheEnd();
    const auto first = Content("emission");
    RunToTheEnd();
    RC_ASSERT(Content("emission") == first);
  }));
}

TEST_F(RunProperties, TwelveMonthsOfTheSameWeatherMakeUpTheYear) {
  EXPECT_TRUE(Check("twelve like months make up the year", [&] {
    test::ChangeToSteadyWeather(test.reference());
    AddTanks(test::Storage::kOneAllYear);
    test.session.ReportTime = "Annual";
    RunToTheEnd();
    const auto year = LossesOfTheYear();
    test.session.ReportTime = "Monthly";
    test.session.MonthSelected.fill(true);
    RunToTheEnd();
    const auto months = LossesOfTheYear();
    RC_ASSERT(months.size() == year.size());
    for (const auto& [key, losses] : year) RC_ASSERT(Agree(months.at(key), losses));
  }));
}

}  // namespace
}  // namespace orvex::emission
