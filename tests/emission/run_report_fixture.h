#pragma once

#include <string>
#include <utility>
#include <vector>

#include "emission/loss_fixture.h"
#include "emission/run_report.h"

namespace orvex::emission {

/// A run over sample tanks, annual unless months are chosen, and what it leaves.
class RunReportTest : public LossTest {
 protected:
  RunReportTest() { test.session.ReportTime = "Annual"; }

  void ChooseMonths(std::initializer_list<std::size_t> months) {
    test.session.ReportTime = "Monthly";
    test.session.MonthSelected = {};
    for (const std::size_t month : months) test.session.MonthSelected.at(month) = true;
  }
  void Run(std::vector<std::string> user_ids) {
    test.session.TankList = std::move(user_ids);
    RunReport(test.session);
  }

  /// The rows of `emission` in the order of the file, as "ID MIX ID MONTH NAME", a component's behind a dash.
  std::vector<std::string> Rows() {
    std::vector<std::string> keys;
    for (auto rows = client.OpenTable("emission"); !rows.AtEnd(); rows.MoveNext()) {
      keys.push_back((rows.Bool("PRIMARY") ? "" : "- ") + rows.Get("ID").AsText() + " " + rows.Get("MIX ID").AsText() +
                     " " + rows.Text("MONTH") + " " + rows.Text("NAME"));
    }
    return keys;
  }

  /// A table with everything in it, in the order of the file.
  std::vector<std::vector<store::Value>> Content(std::string_view table) {
    auto rows = client.OpenTable(table);
    return rows.GetRows(rows.RecordCount());
  }

  void AddOldRow(std::int32_t ID, std::string_view Month) {
    AddRow(client, "emission",
           {{"ID", ID}, {"MIX ID", 1}, {"NAME", "Old"}, {"MONTH", Month}, {"PRIMARY", true}, {"S_LOSS", 1.0}});
  }

  /// A chemical that boils at any temperature of the sample city; its tanks pass the checks by their stored pressures.
  void AddBoilingChemical() {
    AddRow(test.reference(), "chemical",
           {{"NAME", "Propane"},
            {"CATEGORY", shell::kOrganicLiquids},
            {"MOLWT", 44.1},
            {"VP_MOLWT", 44.1},
            {"L_DENS", 4.2},
            {"VP_COEF_A", 6.829},
            {"VP_COEF_B", 813.2},
            {"VP_COEF_C", 248.0}});
  }
};

}  // namespace orvex::emission
