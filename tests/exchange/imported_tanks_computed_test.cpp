#include "emission/run_report.h"
#include "exchange/tank_import_fixture.h"
#include "reports/brief_report.h"
#include "shell/periods.h"
#include "shell/tank_names.h"
#include "support/file_content.h"

namespace orvex::exchange {
namespace {

/// The Brief report on all tanks of a session, for a year or its months.
std::string BriefReportOf(test::TestSession& test, const std::string& time) {
  test.session.TankList = shell::TankNames(test.client());
  test.session.ReportType = "Brief";
  test.session.ReportTime = time;
  test.session.MonthSelected.fill(true);
  emission::RunReport(test.session);
  EXPECT_EQ(test::QueryRows(test.client(), "SELECT * FROM error", {"USER ID", "ERROR"}), test::Rows{});
  reports::BriefReport(test.session);
  return test::FileContent(test.folder.Path() / "briefdata.xml");
}

class ImportedTanksComputedTest : public test::TankImportTest {
 protected:
  /// A tank of each type, and one of two mixtures of which one has components, entered by their rows.
  void EnterTanks() {
    test::AddVerticalTank(entered_);
    test::AddHorizontalTank(entered_);
    test::AddInternalTank(entered_);
    test::AddExternalTank(entered_);
    test::AddDomedTank(entered_);
    constexpr double kMonthly = 35000;  // of 420,000 gal/yr
    const auto ID = test::AddVerticalTank(entered_, {{"RF_TYPE", "Dome"}, {"D_RADIUS", 20.0}});
    auto& client = entered_.client();
    test::AddMixture(
        client, ID, 2,
        {{"MIX NAME", "Blend"}, {"CAS", store::Value()}, {"COMPONENT", "Multiple"}, {"SPEC_OPT", "Full Speciation"}});
    // Benzene gives way to the blend for two months.
    for (std::size_t i = 0; i < shell::kMonths.size(); ++i) {
      const auto& month = shell::kMonths[i];
      const bool blend = i < 2;
      test::ChangeMixture(client, ID, 1, {{month.name, !blend}, {month.throughput, blend ? 0.0 : kMonthly}});
      test::ChangeMixture(client, ID, 2, {{month.name, blend}, {month.throughput, blend ? kMonthly : 0.0}});
    }
    test::AddComponent(client, ID, 2, 1, {{"WT_FRACT", 40.0}});
    test::AddComponent(client, ID, 2, 2,
                       {{"NAME", "Toluene"},
                        {"CAS", "108-88-3"},
                        {"MOLWT", 92.13},
                        {"VP_MOLWT", 92.13},
                        {"L_DENS", 7.261},
                        {"WT_FRACT", 60.0}});
  }

  test::TestSession entered_;
};

TEST_F(ImportedTanksComputedTest, GiveTheSameReportAsTheSameTanksEntered) {
  EnterTanks();
  constexpr std::int32_t kTanks = 6;
  for (std::int32_t ID = 1; ID <= kTanks; ++ID) files_.AddStoredTank(entered_.client(), ID);
  Import();
  EXPECT_EQ(Told(), test::Rows(kTanks, test::kImportedMessage));
  for (const auto* time : {"Annual", "Monthly"}) {
    SCOPED_TRACE(time);
    const auto report = BriefReportOf(test_, time);
    EXPECT_NE(report.find("<TankName>Tank 6"), std::string::npos);
    EXPECT_NE(report.find("Toluene"), std::string::npos);
    EXPECT_EQ(report, BriefReportOf(entered_, time));
  }
}

}  // namespace
}  // namespace orvex::exchange
