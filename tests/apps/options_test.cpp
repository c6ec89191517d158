#include "orvex-report/options.h"

#include <gtest/gtest.h>

#include "orvex-report/failure.h"

namespace orvex::report_app {
namespace {

using Arguments = std::vector<std::string>;

/// What the arguments are refused with; empty if they are taken.
std::string Refusal(const Arguments& arguments) {
  try {
    ParseOptions(arguments);
    return {};
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.status, kWrongUse);
    return failure.description;
  }
}

bool Mentions(const std::string& text, std::string_view part) { return text.find(part) != std::string::npos; }

TEST(Options, AnAnnualBriefReportOfAllTanksIsTheLeastThatCanBeAsked) {
  const auto options = ParseOptions({"--client", "c.mdb", "--annual"});
  EXPECT_EQ(options.client, "c.mdb");
  EXPECT_EQ(options.reference, "");
  EXPECT_EQ(options.kind, Kind::kBrief);
  EXPECT_EQ(options.out, ".");
  EXPECT_EQ(options.csv, "");
  EXPECT_EQ(options.pdf, "");
  EXPECT_EQ(options.paper, "letter");
  EXPECT_TRUE(options.tanks.empty());
  EXPECT_FALSE(options.monthly || options.list || options.quiet);
}

TEST(Options, EveryOptionIsTaken) {
  const auto options = ParseOptions({"--client",  "c d.mdb",      "--reference=r.mdb",
                                     "--tanks",   "A,B",          "--tanks=[x]",
                                     "--monthly", "jan,December", "--monthly",
                                     "MAY",       "--kind",       "Detail",
                                     "--out",     "o p",          "--csv",
                                     "e f.csv",   "--pdf",        "g h.pdf",
                                     "--paper",   "A4",           "--quiet"});
  EXPECT_EQ(options.client, "c d.mdb");
  EXPECT_EQ(options.reference, "r.mdb");
  EXPECT_EQ(options.tanks, (Arguments{"A,B", "[x]"}));
  EXPECT_TRUE(options.monthly);
  EXPECT_EQ(options.months,
            (std::array{true, false, false, false, true, false, false, false, false, false, false, true}));
  EXPECT_EQ(options.kind, Kind::kDetail);
  EXPECT_EQ(options.out, "o p");
  EXPECT_EQ(options.csv, "e f.csv");
  EXPECT_EQ(options.pdf, "g h.pdf");
  EXPECT_EQ(options.paper, "a4");
  EXPECT_TRUE(options.quiet);
}

TEST(Options, NamesThatBeginWithADashAreTaken) {
  const auto options = ParseOptions({"--client=-c.mdb", "--annual", "--out=-o", "--pdf=-p.pdf"});
  EXPECT_EQ(options.client, "-c.mdb");
  EXPECT_EQ(options.out, "-o");
  EXPECT_EQ(options.pdf, "-p.pdf");
  EXPECT_EQ(ParseOptions({"--client", "c", "--annual", "--pdf", "-x.pdf"}).pdf, "-x.pdf");
}

TEST(Options, TheHelpTellsWhatHappensToDisplayFiles) {
  const auto help = ParseOptions({"--help"}).text;
  EXPECT_TRUE(Mentions(help, "--pdf")) << help;
  EXPECT_TRUE(Mentions(help, "display")) << help;
}

TEST(Options, AListNeedsNoPeriod) { EXPECT_TRUE(ParseOptions({"--client", "c", "--list"}).list); }

TEST(Options, AFolderOfCsvFilesNeedsNoPeriodAndGoesWithNoOtherWork) {
  EXPECT_EQ(ParseOptions({"--client", "c", "--import-csv", "d e"}).import_csv, "d e");
  EXPECT_EQ(ParseOptions({"--client", "c", "--export-csv", "d", "--quiet"}).export_csv, "d");
  for (const std::string option : {"--import-csv", "--export-csv"}) {
    EXPECT_EQ(Refusal({"--client", "c", option, ""}), option + ": no folder is named");
    for (const Arguments& other :
         {Arguments{"--annual"}, {"--monthly", "Jan"}, {"--list"}, {"--csv", "x"}, {"--pdf", "x"}, {"--tanks", "A"}}) {
      Arguments arguments = {"--client", "c", option, "d"};
      arguments.insert(arguments.end(), other.begin(), other.end());
      EXPECT_TRUE(Mentions(Refusal(arguments), other.front())) << option << other.front();
    }
  }
  EXPECT_TRUE(Mentions(Refusal({"--client", "c", "--import-csv", "d", "--export-csv", "d"}), "--export-csv"));
}

TEST(Options, TheHelpTellsOfTheCsvFiles) {
  const auto help = ParseOptions({"--help"}).text;
  for (const auto* word : {"--import-csv DIR", "--export-csv DIR", "fittings.csv", "USER ID"})
    EXPECT_TRUE(Mentions(help, word)) << help;
}

TEST(Options, HelpAndVersionNeedNothingElse) {
  EXPECT_TRUE(Mentions(ParseOptions({"--help"}).text, "--monthly"));
  EXPECT_EQ(ParseOptions({"--version"}).text, "orvex-report 4.0.9d\n");
}

TEST(Options, RefusalsNameTheOptionOrValue) {
  EXPECT_TRUE(Mentions(Refusal({"--annual"}), "--client"));
  EXPECT_TRUE(Mentions(Refusal({"--client", "c"}), "--annual"));
  EXPECT_TRUE(Mentions(Refusal({"--client", "c", "--annual", "--frob"}), "--frob"));
  EXPECT_TRUE(Mentions(Refusal({"--client", "c", "--annual", "stray"}), "stray"));
  EXPECT_TRUE(Mentions(Refusal({"--client", "c", "--annual", "--monthly", "Jan"}), "--annual"));
  EXPECT_TRUE(Mentions(Refusal({"--client", "c", "--monthly", "Jan,Brumaire"}), "'Brumaire'"));
  EXPECT_TRUE(Mentions(Refusal({"--client", "c", "--monthly", "Ja"}), "'Ja'"));
  EXPECT_TRUE(Mentions(Refusal({"--client", "c", "--monthly", ","}), "no month"));
  EXPECT_TRUE(Mentions(Refusal({"--client", "c", "--annual", "--kind", "long"}), "'long'"));
  EXPECT_TRUE(Mentions(Refusal({"--client", "c", "--annual", "--pdf", "x", "--paper", "a3"}), "'a3'"));
  EXPECT_TRUE(Mentions(Refusal({"--client", "c", "--annual", "--paper", "a4"}), "--pdf"));
  EXPECT_TRUE(Mentions(Refusal({"--client", "c", "--list", "--pdf", "x"}), "--pdf"));
  EXPECT_TRUE(Mentions(Refusal({"--client"}), "--client"));
  EXPECT_TRUE(Mentions(Refusal({"--client", "c", "--list", "--csv", "x"}), "--csv"));
  for (const auto* option : {"--reference", "--csv", "--pdf"})
    EXPECT_EQ(Refusal({"--client", "c", "--annual", option, ""}), std::string(option) + ": no file is named");
  EXPECT_TRUE(Mentions(Refusal({"--client", "c", "--list", "--quiet"}), "--quiet"));
}

TEST(Options, RefusalsAreSafeToPrint) {
  EXPECT_FALSE(Mentions(Refusal({"--client", "c", "--annual", "--\x1B[2J"}), "\x1B"));
  EXPECT_FALSE(Mentions(Refusal({"--client", "c", "--monthly", "\x1B[2J"}), "\x1B"));
}

}  // namespace
}  // namespace orvex::report_app
