#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>

#include "emission/run_report.h"
#include "reports/brief_report.h"
#include "reports/detail_report.h"
#include "reports/schema_check.h"
#include "shell/tank_types.h"
#include "support/file_content.h"
#include "support/sample_tanks.h"

namespace orvex::reports {
namespace {

enum Kind { kBrief, kSummary, kAnnualDetail, kMonthlyDetail };

/// A report with one thing changed that a reader would stumble over.
struct Mutation {
  Kind kind;
  const char* from;  ///< the first place in the file with this text
  const char* to;
};

// What the grammar refuses.
constexpr Mutation kAgainstTheGrammar[] = {
    // Elements misspelled, missing, added, in another order.
    {kBrief, "<TYPE>Brief</TYPE>", "<TYPE>Short</TYPE>"},
    {kBrief, "WithdrawlLoss>", "WithdrawalLoss>"},
    {kBrief, "<BreathingLoss>", "<WorkingLoss>0.00</WorkingLoss><BreathingLoss>"},
    {kBrief, "<NAME>Benzene</NAME>", ""},
    {kBrief, "<TankType>", "<Type/><TankType>"},
    {kBrief, "<Value>Annual</Value>", "<Value>Yearly</Value>"},
    {kBrief, "<Total>", "<Total>0.00</Total><Total>"},
    {kBrief, "<Summary", "<!-- no roll-up --><Tank/><Summary"},
    {kSummary, "<EmissionTotals>", "<Detail/><EmissionTotals>"},
    {kSummary, "<TYPE>Summary</TYPE>", "<TYPE>Detail</TYPE>"},
    {kAnnualDetail, "<TYPE>Detail</TYPE>", "<TYPE>Summary</TYPE>"},
    {kAnnualDetail, "<Company/>", ""},
    {kAnnualDetail, "<Size>", "<Slope>0.06</Slope><Size>"},
    {kAnnualDetail, "<Type>Cone</Type>", "<Type>Flat</Type>"},
    {kAnnualDetail, "<Type>Bolted</Type>", "<Type>Welded</Type>"},
    {kAnnualDetail, "<Heated>", "<Underground>N</Underground><Heated>"},
    {kAnnualDetail, "<NumCols>6.00</NumCols>", ""},
    {kAnnualDetail, "<MaxDailyTemp>", "<Range/><MaxDailyTemp>"},
    // Attributes missing or misspelled.
    {kBrief, " Type=\"Vertical Fixed Roof Tank\"", ""},
    {kBrief, " company=\"\"", ""},
    {kBrief, " loss=", " losses="},
    {kAnnualDetail, "<Dimensions Type=\"Vertical Fixed Roof Tank\">", "<Dimensions>"},
    {kAnnualDetail, "<Identification>", "<Identification Type=\"Vertical Fixed Roof Tank\">"},
    {kAnnualDetail, " CoverType=\"Bolted Cover, Gasketed\"", ""},
    {kAnnualDetail, " KFb=", " KFB="},
    {kAnnualDetail, " Unit=\"Annual\"", ""},
    // Formats.
    {kBrief, ".", ","},
    {kAnnualDetail, "<Volume>42,000.00<", "<Volume>42000.00<"},
    {kAnnualDetail, "<Volume>42,000.00<", "<Volume>42,000.0<"},
    {kAnnualDetail, "<Volume>42,000.00<", "<Volume>42,000<"},
    {kAnnualDetail, "<Volume>42,000.00<", "<Volume>042,000.00<"},
    {kAnnualDetail, "<Volume>42,000.00<", "<Volume/>"},
    {kAnnualDetail, "<Height>0.00<", "<Height>-0.00<"},
    {kAnnualDetail, "<Heated>N<", "<Heated>No<"},
    {kAnnualDetail, "<VapMolWeight>78.1100<", "<VapMolWeight>78.11<"},
    {kAnnualDetail, "<MolWeight>78.11<", "<MolWeight>78.1100<"},
    {kAnnualDetail, "<MinPressure>N/A<", "<MinPressure>1.0000<"},
    {kAnnualDetail, "<Month>All<", "<Month>Jan<"},
    {kMonthlyDetail, "<Month>Feb<", "<Month>All<"},
    {kMonthlyDetail, "<Month>Feb<", "<Month>February<"},
    {kMonthlyDetail, "February, April<", "April, February<"},
    {kAnnualDetail, "<Basis>Option 2: A=", "<Basis>Option 2: A = "},
    {kAnnualDetail, " = 14 psia)<", " = 14.00 psia)<"},
    {kAnnualDetail, " quantity=\"1\"", " quantity=\"1.00\""},
    // Blanks and indentation: a plain blank, one no-break space too few, none.
    {kAnnualDetail, "<LiquidMassFraction>\u00A0<", "<LiquidMassFraction> <"},
    {kAnnualDetail, "<LiquidMassFraction>\u00A0<", "<LiquidMassFraction/>"},
    {kAnnualDetail, "<MixtureComponent>\u00A0\u00A0Benzene", "<MixtureComponent>\u00A0Benzene"},
    {kAnnualDetail, "<NAME>\u00A0\u00A0\u00A0\u00A0\u00A0\u00A0\u00A0\u00A0Benzene",
     "<NAME>\u00A0\u00A0\u00A0\u00A0\u00A0\u00A0Benzene"},
    {kBrief, "<NAME>\u00A0\u00A0\u00A0\u00A0\u00A0\u00A0Benzene", "<NAME>\u00A0\u00A0\u00A0\u00A0\u00A0Benzene"},
    // Lines of the calculation.
    {kAnnualDetail, "\u00A0\u00A0\u00A0Daily Total Solar Insulation", "\u00A0\u00A0\u00A0Daily Total Solar Insolation"},
    {kAnnualDetail, "\u00A0\u00A0\u00A0Turnover Factor:", "Turnover Factor:"},
    {kAnnualDetail, "<Value label=\"\u00A0\" month_0=\"\u00A0\"/>\r\n", ""},
    {kAnnualDetail, "label=\"Roof Outage (Cone Roof)\"", "label=\"Roof Outage (Dome Roof)\""},
    {kAnnualDetail, "label=\"Roof Fitting Losses (lb):\"", "label=\"Deck Fitting Losses (lb):\""},
    {kAnnualDetail, "Annual Net Throughput (gal/yr.):", "Net Throughput (gal/mo.):"},
    {kMonthlyDetail, "Net Throughput (gal/mo.):", "Annual Net Throughput (gal/yr.):"},
    {kAnnualDetail, " month_0=\"10.731\"", " month_0=\"10.7310\""},
    {kAnnualDetail, " month_0=", " month_1="},
    {kMonthlyDetail, " month_1=", " month_0="},
    {kMonthlyDetail, " month_3=", " month_5="},
    {kMonthlyDetail, " Unit=\"Monthly\"", " Unit=\"Annual\""},
};

// What the grammar has no words for.
constexpr Mutation kAgainstTheRules[] = {
    {kBrief, "\r\n<TankType>", "\n<TankType>"},
    {kBrief, "\r\n<TankType>", "<TankType>"},
    {kBrief, "<REPORT>\r\n", "<REPORT>"},
    {kBrief, "<Tank><TankName>", "<Tank>\r\n<TankName>"},
    {kBrief, "version=\"1.0\"", "version=\"1.0\" encoding=\"UTF-8\""},
    {kBrief, "<TankSum id=\"Tank 1\" company=\"\"", "<TankSum company=\"\" id=\"Tank 1\""},
    {kBrief, "<TankSum id=\"Tank 1\"", "<TankSum id=\"Tank 2\""},
    {kBrief, "<Summary months=\"Annual\"", "<Summary months=\"May\""},
    {kBrief, "<WorkingLoss>", "<WorkingLoss>-"},
    {kBrief, " loss=\"", " loss=\"-"},
    {kBrief, "<Total>", "<Total>-"},
    {kBrief, "<COMPONENT Type=\"Vertical Fixed Roof Tank\">", "<COMPONENT Type=\"Horizontal Tank\">"},
    {kSummary, "<UserID>Tank 1<", "<UserID>Tank 2<"},
    {kSummary, "<Location/>", "<Location>Springfield, Ohio</Location>"},
    {kSummary, "<MixtureComponent>Benzene<", "<MixtureComponent>Toluene<"},
    {kMonthlyDetail, "<Month>Feb<", "<Month>May<"},
    {kMonthlyDetail, "<Month>Feb<", "<Month>Mar<"},
    {kMonthlyDetail, "10.731||10.731|", "10.731|10.731|"},
    {kMonthlyDetail, " month_1=\"\u00A0\" month_2=", " month_2=\"\u00A0\" month_1="},
    {kAnnualDetail, "<Value label=\"Total Losses (lb):\" month_0=\"",
     "<Value label=\"Total Losses (lb):\" month_0=\"-"},
    {kAnnualDetail, " losses=\"", " losses=\"-"},
    {kAnnualDetail, "<Type>Cone</Type>", "<Type>Dome</Type>"},
    {kAnnualDetail, "<Underground>N<", "<Underground>Y<"},
    {kAnnualDetail, "label=\"Access Hatch (24-in. Diam.)/Bolted Cover, Gasketed\"", "label=\"Ladder/\""},
};

/// One report of each kind on one tank of each type, the horizontal one with a speciated mixture.
class ReportMutations : public ::testing::Test {
 protected:
  void SetUp() override {
    AddTanks();
    auto& session = test_.session;
    session.ReportTime = "Annual";
    Run();
    reports_[kBrief] = Written("Brief");
    reports_[kSummary] = Written("Summary");
    reports_[kAnnualDetail] = Written("Detail");
    session.ReportTime = "Monthly";
    session.MonthSelected[1] = session.MonthSelected[3] = true;
    Run();
    reports_[kMonthlyDetail] = Written("Detail");
  }

  /// Writes the report with the mutation under a name of its own; an empty path when the report has no such place.
  std::filesystem::path Write(const Mutation& mutation) {
    std::string text = reports_.at(mutation.kind);
    const std::string from = mutation.from;
    const auto at = text.find(from);
    if (at == std::string::npos) return {};
    text.replace(at, from.size(), mutation.to);
    auto path = test_.folder.Path() / ("mutant-" + std::to_string(++mutants_) + ".xml");
    test::WriteFile(path, text);
    return path;
  }

  static const char* SchemaOf(Kind kind) { return kind == kBrief ? "briefdata.rng" : "summarydata.rng"; }

  std::map<Kind, std::string> reports_;

 private:
  void AddTanks() {
    test::AddVerticalTank(test_);
    const auto mixed = test::AddHorizontalTank(test_);
    test::ChangeMixture(test_.client(), mixed, 1,
                        {{"MIX NAME", "Cut"}, {"COMPONENT", shell::kMultiple}, {"SPEC_OPT", shell::kFullSpeciation}});
    test::AddComponent(test_.client(), mixed, 1, 1, {{"WT_FRACT", 60.0}});
    test::AddComponent(test_.client(), mixed, 1, 2, {{"NAME", "Toluene"}, {"WT_FRACT", 40.0}});
    test::AddInternalTank(test_);
    test::AddExternalTank(test_);
    test::AddDomedTank(test_);
    for (auto tanks = test_.client().OpenTable("tank"); !tanks.AtEnd(); tanks.MoveNext())
      test_.session.TankList.push_back(tanks.Text("USER ID"));
  }

  void Run() {
    emission::RunReport(test_.session);
    ASSERT_EQ(test_.session.PrintMode, "Report");
  }

  std::string Written(const char* type) {
    test_.session.ReportType = type;
    const bool brief = test_.session.ReportType == "Brief";
    (brief ? BriefReport : DetailReport)(test_.session);
    return test::FileContent(test_.folder.Path() / (brief ? kBriefData : kSummaryData));
  }

  test::TestSession test_;
  int mutants_ = 0;
};

TEST_F(ReportMutations, NothingIsWrongWithTheReportsThemselves) {
  for (const auto& [kind, text] : reports_) {
    const auto path = Write({kind, "", ""});
    EXPECT_EQ(test::GrammarFaults(SchemaOf(kind), {path}), "");
    EXPECT_EQ(test::RuleFaults(path), std::vector<std::string>());
  }
}

TEST_F(ReportMutations, TheGrammarRefusesEach) {
  for (const auto& mutation : kAgainstTheGrammar) {
    const auto path = Write(mutation);
    ASSERT_NE(path, "") << mutation.from;
    EXPECT_NE(test::GrammarFaults(SchemaOf(mutation.kind), {path}), "") << mutation.from << " -> " << mutation.to;
  }
}

TEST_F(ReportMutations, TheRulesRefuseWhatTheGrammarTakes) {
  for (const auto& mutation : kAgainstTheRules) {
    const auto path = Write(mutation);
    ASSERT_NE(path, "") << mutation.from;
    EXPECT_EQ(test::GrammarFaults(SchemaOf(mutation.kind), {path}), "") << mutation.from << " -> " << mutation.to;
    EXPECT_NE(test::RuleFaults(path), std::vector<std::string>()) << mutation.from << " -> " << mutation.to;
  }
}

}  // namespace
}  // namespace orvex::reports
