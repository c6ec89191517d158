#include "reports/random_reports.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <string_view>

#include "emission/run_report.h"
#include "reports/brief_report.h"
#include "reports/detail_report.h"
#include "shell/periods.h"
#include "support/random_tanks.h"
#include "support/sample_tanks.h"

namespace orvex::test {
namespace {

/// Who writes a kind of report, and into which file.
struct Kind {
  std::string_view name;
  void (*write)(shell::Session&);
  const char* file;
};
constexpr Kind kKinds[] = {{"Brief", reports::BriefReport, reports::kBriefData},
                           {"Summary", reports::DetailReport, reports::kSummaryData},
                           {"Detail", reports::DetailReport, reports::kSummaryData}};

/// Fields of a tank that only the report reads, at random null: an inventory changes between a run and its report, too.
constexpr const char* kFields[] = {"HEIGHT ML",  "HEIGHT AL", "HEIGHT S",  "VOLUME",    "TURNOVER",       "Q_NET",
                                   "SHL COLSHD", "PT_COND",   "RF_COLSHD", "RF_COND",   "RF_TYPE",        "RF_HEIGHT",
                                   "C_SLOPE",    "D_RADIUS",  "VENT_V",    "VENT_P",    "COL_NO",         "COL_DIAM",
                                   "SHL_COND",   "RIM_PRIM",  "RIM_SEC",   "DECK_TYPE", "DECK_CONSTRUCT", "DECK_SEAM",
                                   "DIAMETER",   "CITY",      "MET CTYST", "STATE",     "TANK_CONSTRUCT", "COMPANY",
                                   "DESC"};

class Inventories {
 public:
  explicit Inventories(const std::filesystem::path& folder) : folder_(folder) {
    AddRandomTankReference(test_.reference());
  }

  /// Reports on one inventory, which then is gone again.
  void Write(std::vector<std::filesystem::path>& reports) {
    const store::Transaction of_client(test_.client()), of_reference(test_.reference());
    ChangeToRandomWeather(test_.reference());
    AddTanks();
    Run(shell::kAnnual);
    WriteAll(shell::kAnnual, reports);
    ChooseMonths();
    Run(shell::kMonthly);
    LoseFields();
    LoseRows();
    WriteAll(shell::kMonthly, reports);
  }

 private:
  void AddTanks() {
    ids_.clear();
    test_.session.TankList.clear();
    for (int tanks = *rc::gen::inRange(1, 5); tanks > 0; --tanks) {
      ids_.push_back(AddRandomTank(test_, *rc::gen::element(Storage::kAnyMixtures, Storage::kOneAllYear)));
      test_.session.TankList.push_back(test_.client().OpenMatching("tank", "ID", {ids_.back()}).Text("USER ID"));
    }
  }

  /// From a single month to all of them.
  void ChooseMonths() {
    const int scarcity = *rc::gen::inRange(1, 13);
    for (bool& chosen : test_.session.MonthSelected) chosen = *rc::gen::inRange(0, scarcity) == 0;
    test_.session.MonthSelected.at(*rc::gen::inRange<std::size_t>(0, 12)) = true;
  }

  void Run(std::string_view time) {
    test_.session.ReportTime = time;
    emission::RunReport(test_.session);
    RC_ASSERT(test_.session.PrintMode == "Report");
  }

  void LoseFields() {
    for (const auto ID : ids_) {
      for (const auto* field : kFields)
        if (*rc::gen::inRange(0, 8) == 0) ChangeTank(test_.client(), ID, {{field, store::Value()}});
      if (*rc::gen::inRange(0, 8) == 0) ChangeTank(test_.client(), ID, {{"RF_TYPE", "Flat"}});
    }
  }

  /// Of one tank in four, so that 200 inventories surely hold some: the computed losses.
  void LoseRows() {
    for (const auto ID : ids_)
      if (*rc::gen::inRange(0, 4) == 0) test_.client().Execute(fmt::format("DELETE * FROM emission WHERE ID = {}", ID));
  }

  void WriteAll(std::string_view time, std::vector<std::filesystem::path>& reports) {
    ++runs_;
    for (const Kind& kind : kKinds) {
      test_.session.ReportType = kind.name;
      kind.write(test_.session);
      reports.push_back(folder_ / fmt::format("{}-{}-{}.xml", kind.name, time, runs_));
      std::filesystem::rename(test_.folder.Path() / kind.file, reports.back());
    }
  }

  TestSession test_;
  std::filesystem::path folder_;
  std::vector<std::int32_t> ids_;
  int runs_ = 0;
};

}  // namespace

std::vector<std::filesystem::path> WriteRandomReports(const std::filesystem::path& folder, int inventories) {
  constexpr int kCases = 100;  // of a property
  std::vector<std::filesystem::path> reports;
  Inventories all(folder);
  EXPECT_TRUE(rc::check("every run ends in a report", [&] {
    for (int i = 0; i < inventories / kCases; ++i) all.Write(reports);
  }));
  return reports;
}

void RunOnTwoRandomTanks(TestSession& test) {
  ChangeToRandomWeather(test.reference());
  test.session.TankList.clear();
  for (int i = 0; i < 2; ++i) {
    const auto ID = AddRandomTank(test, Storage::kAnyMixtures);
    test.session.TankList.push_back(test.client().OpenMatching("tank", "ID", {ID}).Text("USER ID"));
  }
  test.session.ReportTime = *rc::gen::element("Annual", "Monthly");
  test.session.MonthSelected.fill(true);
  emission::RunReport(test.session);
  RC_ASSERT(test.session.PrintMode == "Report");
}

}  // namespace orvex::test
