#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <pugixml.hpp>
#include <string>

#include "reports/brief_report.h"
#include "reports/random_reports.h"
#include "reports/report_text.h"
#include "support/random_tanks.h"

namespace orvex::reports {
namespace {

/// A number as the report shows it: with commas, and two decimals.
double Shown(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), ','), text.end());
  double value = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
  RC_ASSERT(end.ec == std::errc() && end.ptr == text.data() + text.size());
  return value;
}

/// Whether a figure of two decimals can stand for a sum.
bool Shows(double shown, double sum) { return std::abs(shown - sum) <= 0.005 + 1e-9 * sum; }

/// What the rows of `emission` say a tank loses over all their periods; components are in their mixtures.
double StoredLosses(store::Database& client, const std::string& user_id) {
  double sum = 0;
  for (auto rows = client.OpenTable("emission"); !rows.AtEnd(); rows.MoveNext()) {
    if (!rows.Bool("PRIMARY") || rows.Text("USER ID") != user_id) continue;
    for (const auto* loss : {"S_LOSS", "W_LOSS", "RIM_LOSS", "WD_LOSS", "DECKF_LOSS", "DECKS_LOSS"})
      sum += rows.Double(loss);
  }
  return sum;
}

/// What the report's lines of a tank add up to; those of components are indented, and in their mixtures.
double ShownLosses(const pugi::xml_node& tank, int& lines) {
  double sum = 0;
  for (const auto& line : tank.children("COMPONENT")) {
    if (std::string(line.child_value("NAME")).starts_with("\u00A0")) continue;
    sum += Shown(line.child_value("TotalEmissions"));
    ++lines;
  }
  return sum;
}

TEST(BriefTotals, AreTheSumsOfTheRowsWhateverTheirPeriods) {
  test::TestSession test;
  test::AddRandomTankReference(test.reference());
  EXPECT_TRUE(rc::check("a Brief report's totals are the sums of its rows", [&] {
    const store::Transaction of_client(test.client()), of_reference(test.reference());
    test::RunOnTwoRandomTanks(test);
    BriefReport(test.session);

    pugi::xml_document document;
    RC_ASSERT(document.load_file((test.folder.Path() / kBriefData).c_str()));
    const auto report = document.child("REPORT");
    const auto summary = report.child("Summary");
    double total = 0;
    for (const auto& user_id : test.session.TankList) {
      const double stored = StoredLosses(test.client(), user_id);
      total += stored;
      RC_ASSERT(Shows(Shown(summary.find_child_by_attribute("id", user_id.c_str()).attribute("loss").value()), stored));
      const auto tank = report.find_child([&](const pugi::xml_node& node) {
        return std::string(node.child_value("TankName")).starts_with(ReportTankName(user_id, ""));
      });
      int lines = 0;
      const double shown = ShownLosses(tank, lines);
      RC_ASSERT(lines > 0);
      RC_ASSERT(std::abs(shown - stored) <= 0.005 * lines + 1e-9 * stored);
    }
    RC_ASSERT(Shows(Shown(summary.child_value("Total")), total));
  }));
}

}  // namespace
}  // namespace orvex::reports
