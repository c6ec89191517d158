#include "reports/calculation_page.h"

#include <fmt/format.h>

#include "reports/calculation_lines.h"
#include "reports/fitting_loss.h"
#include "reports/month_walk.h"
#include "reports/report_document.h"
#include "reports/report_text.h"
#include "shell/number_format.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::reports {
namespace {

using store::RecordSet;

constexpr std::string_view kLabel = "frmPreview.DetailReportPage3";

double Sum(RecordSet& row, std::initializer_list<std::string_view> fields) {
  double sum = 0;
  for (const auto field : fields) sum += row.Double(field);
  return sum;
}

double Radius(RecordSet& row) { return row.Double("DIAMETER") / 2; }
double FixedTotal(RecordSet& row) { return Sum(row, {"S_LOSS", "W_LOSS"}); }
double FloatingTotal(RecordSet& row) { return Sum(row, {"RIM_LOSS", "WD_LOSS", "DECKF_LOSS", "DECKS_LOSS"}); }

/// A field word that stands for a computed figure.
struct ComputedCell {
  std::string_view field;
  double (*figure)(RecordSet& row);
};

constexpr ComputedCell kComputed[] = {{kRadius, Radius}, {kFixedTotal, FixedTotal}, {kFloatingTotal, FloatingTotal}};

std::string CellText(std::string_view field, RecordSet& row) {
  if (field == kHeading) return NoBreakSpaces(1);
  if (field.starts_with(kConstantMark)) return std::string(field.substr(kConstantMark.size()));
  for (const auto& cell : kComputed)
    if (field == cell.field) return shell::FormatFourDecimals(cell.figure(row));
  return shell::FormatFourDecimals(row.Double(field));
}

RecordSet OpenPrimaryRows(shell::Session& session, const DetailTank& tank) {
  return session.ClientDb->OpenQuery(fmt::format("SELECT * FROM Emission WHERE ID = {} and PRIMARY ORDER BY {}",
                                                 tank.id, tank.Monthly() ? "cvdate(Month & ' 01, 1999')" : "[MIX ID]"));
}

/// What the table `tank` supplies; a tank that is not there has no lines.
struct StoredTank {
  std::string type, roof_type;
  bool underground = false;
};

StoredTank ReadTank(shell::Session& session, std::int32_t id) {
  auto row = session.ClientDb->OpenTable("tank");
  row.SetIndex("ID");
  row.Seek({id});
  StoredTank tank;
  shell::Statement([&] { tank.type = row.TextOrEmpty("TANK_TYPE"); });
  shell::Statement([&] { tank.roof_type = row.TextOrEmpty("RF_TYPE"); });
  shell::Statement([&] { tank.underground = row.BoolOrFalse("UNDER"); });
  return tank;
}

void AddRoofStatus(shell::Session& session, const DetailTank& tank, RecordSet& emission, pugi::xml_node detail) {
  auto status = AddElement(detail, "RoofStatus");
  for (auto rows =
           session.ClientDb->OpenQuery(fmt::format("SELECT * FROM Fittings WHERE ID = {} ORDER BY [FIT ID]", tank.id));
       !rows.AtEnd(); rows.MoveNext()) {
    auto value = AddElement(status, "Value");
    AddAttribute(value, "label", rows.TextOrEmpty("FIT_TYPE") + "/" + rows.TextOrEmpty("COVR_TYPE"));
    AddAttribute(value, "quantity", shell::FormatWhole(rows.Double("QUANTITY")));
    AddAttribute(value, "KFa", shell::FormatTwoDecimals(rows.Double("K_FA")));
    AddAttribute(value, "KFb", shell::FormatTwoDecimals(rows.Double("K_FB")));
    AddAttribute(value, "m", shell::FormatTwoDecimals(rows.Double("K_M")));
    AddAttribute(value, "losses", shell::FormatFourDecimals(OneFit(session, rows, emission, tank.Monthly())));
  }
}

void AddLine(shell::Session& session, const CalculationLine& line, RecordSet& emission, bool monthly,
             pugi::xml_node data) {
  auto value = AddElement(data, "Value");
  AddAttribute(value, "label", line.label);
  AddCells(session, line.field == kBlankLine ? kHeading : line.field, emission, monthly, value);
}

}  // namespace

std::string DetCalcHCLine(shell::Session& session, std::string_view value, RecordSet& emission, bool monthly) {
  if (!monthly) return std::string(value);
  return shell::Trapped(session, "frmPreview.DetCalcHCLine", std::string(), [&] {
    std::string text;
    WalkMonths(emission, [&](std::size_t, bool present) {
      if (present) text += value;
      text += '|';
    });
    return text;
  });
}

void AddCells(shell::Session& session, std::string_view field, RecordSet& emission, bool monthly,
              pugi::xml_node value) {
  try {
    if (emission.AtEnd()) return;
    if (!monthly) return AddAttribute(value, "month_0", CellText(field, emission));
    WalkMonths(emission, [&](std::size_t month, bool present) {
      AddAttribute(value, fmt::format("month_{}", month + 1).c_str(),
                   present ? CellText(field, emission) : NoBreakSpaces(1));
    });
  } catch (const store::RunTimeError& error) {
    session.host.NoteFailure(error);
    shell::Tell(session.host, "error: " + error.Description());
  }
}

void DetailReportPage3(shell::Session& session, const DetailTank& tank, pugi::xml_node tank_element) {
  shell::Trapped(session, kLabel, [&] {
    const shell::BusyScope busy(session, "Processing report");
    const auto stored = ReadTank(session, tank.id);
    auto emission = OpenPrimaryRows(session, tank);
    auto detail = AddElement(tank_element, "Detail");
    AddElement(detail, "ReportUnit", tank.unit);
    AddElement(detail, "TankName", tank.name);
    AddElement(detail, "TankLocation", tank.location);
    auto data = AddElement(detail, "Data");
    AddAttribute(data, "Type", stored.type);
    AddAttribute(data, "Unit", tank.unit);
    auto lines = CalculationLines({stored.type, stored.roof_type, stored.underground, tank.Monthly()});
    for (auto& line : lines) {
      if (line.field.starts_with(kConstantMark))
        line.field = std::string(kConstantMark) +
                     DetCalcHCLine(session, line.field.substr(kConstantMark.size()), emission, tank.Monthly());
    }
    if (HasDeck(stored.type)) AddRoofStatus(session, tank, emission, detail);
    for (const auto& line : lines) AddLine(session, line, emission, tank.Monthly(), data);
  });
}

}  // namespace orvex::reports
