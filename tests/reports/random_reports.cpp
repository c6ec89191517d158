#include "reports/random_reports.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <string>

#include "emission/run_report.h"
#include "reports/brief_report.h"
#include "support/random_tanks.h"

namespace orvex::test {
namespace {

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
  void Write(const char* kind, std::vector<std::filesystem::path>& reports) {
    const store::Transaction of_client(test_.client()), of_reference(test_.reference());
    ChangeToRandomWeather(test_.reference());
    test_.session.ReportType = kind;
    test_.session.TankList.clear();
    for (int tanks = *rc::gen::inRange(1, 5); tanks > 0; --tanks) {
      const auto ID = AddRandomTank(test_, *rc::gen::element(Storage::kAnyMixtures, Storage::kOneAllYear));
      ids_.push_back(ID);
      test_.session.TankList.push_back(test_.client().OpenMatching("tank", "ID", {ID}).Text("USER ID"));
    }
    for (const auto* time : {"Annual", "Monthly"}) {
      test_.session.ReportTime = time;
      for (bool& chosen : test_.session.MonthSelected) chosen = *rc::gen::arbitrary<bool>();
      test_.session.MonthSelected.at(*rc::gen::inRange<std::size_t>(0, 12)) = true;
      emission::RunReport(test_.session);
      RC_ASSERT(test_.session.PrintMode == "Report");
      reports.push_back(Report(std::to_string(reports.size()) + "-" + kind + "-" + time + ".xml"));
    }
  }

 private:
  std::filesystem::path Report(const std::string& name) {
    reports::BriefReport(test_.session);
    std::filesystem::rename(test_.folder.Path() / reports::kBriefData, folder_ / name);
    return folder_ / name;
  }

  TestSession test_;
  std::filesystem::path folder_;
  std::vector<std::int32_t> ids_;
};

}  // namespace

std::vector<std::filesystem::path> WriteRandomReports(const std::filesystem::path& folder, const char* kind,
                                                      int count) {
  std::vector<std::filesystem::path> reports;
  Inventories inventories(folder);
  constexpr int kCases = 100;
  EXPECT_TRUE(rc::check("every run ends in a report", [&] {
    for (int i = 0; i < count / kCases; ++i) inventories.Write(kind, reports);
  }));
  return reports;
}

}  // namespace orvex::test
