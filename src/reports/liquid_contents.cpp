#include "reports/liquid_contents.h"

#include <fmt/format.h>

#include <string>

#include "emission/liquid_temperature.h"
#include "reports/chem_opt.h"
#include "reports/report_document.h"
#include "reports/report_text.h"
#include "shell/number_format.h"
#include "shell/tank_types.h"
#include "shell/trap.h"
#include "store/record_set.h"

namespace orvex::reports {
namespace {

using store::RecordSet;

constexpr std::string_view kLabel = "frmPreview.DetailReportPage2";
constexpr int kComponentIndent = 2;
constexpr std::size_t kMonthLetters = 3;

/// How a cell shows its field; what is said of mixtures holds for a mixture's own row, all else for components, too.
enum class Cell : std::uint8_t {
  kTemperature,        ///< of mixtures {deg F}, from {deg R}
  kPressure,           ///< blank when it is 0
  kFixedRoofPressure,  ///< likewise, and "N/A" under a floating roof
  kFraction,           ///< of components
  kVaporWeight,        ///< four decimals
  kLiquidWeight,       ///< two decimals
};

struct ContentsElement {
  const char* name;
  std::string_view field;  ///< of the table `emission`
  Cell cell;
};

constexpr ContentsElement kElements[] = {
    {"AveDailyTemp", "ALS_TEMP", Cell::kTemperature},
    {"MinDailyTemp", "MLS_TEMP", Cell::kTemperature},
    {"MaxDailyTemp", "XLS_TEMP", Cell::kTemperature},
    {"BulkTemp", "BULK_T", Cell::kTemperature},
    {"AvePressure", "A_VP", Cell::kPressure},
    {"MinPressure", "M_VP", Cell::kFixedRoofPressure},
    {"MaxPressure", "X_VP", Cell::kFixedRoofPressure},
    {"VapMolWeight", "VP_MOLWT", Cell::kVaporWeight},
    {"LiquidMassFraction", "L_WT_FRACT", Cell::kFraction},
    {"VaporMassFraction", "V_WT_FRACT", Cell::kFraction},
    {"MolWeight", "MOLWT", Cell::kLiquidWeight},
};

std::string RowsQuery(const DetailTank& tank) {
  return fmt::format("SELECT * FROM Emission WHERE ID = {} ORDER BY {}[MIX ID], PRIMARY, NAME", tank.id,
                     tank.Monthly() ? "cvdate(Month & ' 01, 1999'), " : "");
}

std::string PressureText(double psia) { return psia == 0 ? NoBreakSpaces(1) : shell::FormatFourDecimals(psia); }

std::string CellText(const ContentsElement& element, RecordSet& row, bool primary) {
  switch (element.cell) {
    case Cell::kTemperature:
      return primary ? shell::FormatTwoDecimals(emission::RankineToFahrenheit(row.Double(element.field)))
                     : NoBreakSpaces(1);
    case Cell::kPressure:
      return PressureText(row.Double(element.field));
    case Cell::kFixedRoofPressure:
      return shell::IsFixedRoof(row.TextOrEmpty("TANK_TYPE")) ? PressureText(row.Double(element.field)) : "N/A";
    case Cell::kFraction:
      return primary ? NoBreakSpaces(1) : shell::FormatFourDecimals(row.Double(element.field));
    case Cell::kVaporWeight:
      return shell::FormatFourDecimals(row.Double(element.field));
    case Cell::kLiquidWeight:
      break;
  }
  return shell::FormatTwoDecimals(row.Double(element.field));
}

std::string MonthText(RecordSet& row, bool primary) {
  if (!primary) return NoBreakSpaces(1);
  const auto month = row.Text("MONTH");
  return month == shell::kAnnual ? "All" : month.substr(0, kMonthLetters);
}

void AddRow(shell::Session& session, pugi::xml_node tank_element, RecordSet& row) {
  const bool primary = row.Bool("PRIMARY");
  const auto name = row.Text("NAME");
  auto contents = AddElement(tank_element, "LiquidContents");
  AddElement(contents, "MixtureComponent", primary ? name : NoBreakSpaces(kComponentIndent) + name);
  AddElement(contents, "Month", MonthText(row, primary));
  for (const auto& element : kElements) AddElement(contents, element.name, CellText(element, row, primary));
  AddElement(contents, "Basis", ChemOpt(session, name, emission::RankineToFahrenheit(row.Double("ALS_TEMP"))));
}

}  // namespace

void DetailReportPage2(shell::Session& session, const DetailTank& tank, pugi::xml_node tank_element) {
  shell::Trapped(session, kLabel, [&] {
    for (auto rows = session.ClientDb->OpenQuery(RowsQuery(tank)); !rows.AtEnd(); rows.MoveNext())
      AddRow(session, tank_element, rows);
  });
}

}  // namespace orvex::reports
