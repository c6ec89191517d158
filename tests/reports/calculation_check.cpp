#include "reports/calculation_check.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "shell/periods.h"
#include "shell/tank_types.h"

namespace orvex::test {
namespace {

constexpr std::string_view kConstantLabel = "(psia cuft / (lb-mol-deg R)):";
constexpr std::string_view kConstant = "10.731";

constexpr const char* kUnderground = "No Standing Losses:  Underground Tank";
constexpr std::string_view kYes = "Y";

using Cells = std::vector<std::string>;

Cells CellsOf(const pugi::xml_node& line) {
  Cells cells;
  for (auto cell = line.attribute("label").next_attribute(); cell; cell = cell.next_attribute())
    cells.emplace_back(cell.value());
  return cells;
}

/// Which columns hold figures, told from the rows of the mixtures: each month in turn takes the row that is next if it
/// is that month's, and the columns end with the rows. So rows of two mixtures in a month leave all later months blank.
std::vector<bool> ExpectedColumns(const pugi::xml_node& tank) {
  std::vector<std::string> months;
  for (const auto& row : tank.children("LiquidContents"))
    if (!IsIndented(row.child_value("MixtureComponent"))) months.emplace_back(row.child_value("Month"));
  if (months.empty()) return {};
  if (tank.child("Detail").child_value("ReportUnit") == shell::kAnnual) return {true};
  std::vector<bool> columns;
  std::size_t row = 0;
  for (const auto& month : shell::kMonths) {
    columns.push_back(month.name.starts_with(months[row]));
    if (columns.back() && ++row == months.size()) break;
  }
  return columns;
}

std::string ExpectedConstants(const std::vector<bool>& columns, std::string_view unit) {
  if (unit == shell::kAnnual) return std::string(kConstant);
  std::string constants;
  for (const bool has_row : columns) constants.append(has_row ? kConstant : "").append("|");
  return constants;
}

void CheckColumns(const pugi::xml_node& tank, Faults& faults) {
  const auto detail = tank.child("Detail");
  const auto columns = ExpectedColumns(tank);
  const auto constants = ExpectedConstants(columns, detail.child_value("ReportUnit"));
  for (const auto& line : detail.child("Data").children("Value")) {
    const std::string label = WithoutIndent(line.attribute("label").value());
    const auto cells = CellsOf(line);
    if (cells.size() != columns.size()) {
      faults.Expect(false, tank.child_value("TankName") + (": columns of " + label));
      continue;
    }
    bool heading = true;
    for (const auto& cell : cells) heading = heading && cell == kNoBreakSpace;
    for (std::size_t i = 0; i < cells.size() && !heading; ++i) {
      if (!columns[i]) {
        faults.ExpectEqual(label, cells[i], kNoBreakSpace);
      } else if (label == kConstantLabel) {
        faults.ExpectEqual(label, cells[i], constants);
      } else {
        faults.Expect(Figure(cells[i]).has_value(), tank.child_value("TankName") + (": no figure in " + label));
      }
    }
  }
}

/// The figures of the line with this label; a blank counts as 0.
std::vector<double> FiguresOf(const pugi::xml_node& data, const std::string& label) {
  std::vector<double> figures;
  for (const auto& cell : CellsOf(data.find_child_by_attribute("Value", "label", label.c_str())))
    figures.push_back(Figure(cell).value_or(0));
  return figures;
}

double Sum(const std::vector<double>& figures) {
  double sum = 0;
  for (const double figure : figures) sum += figure;
  return sum;
}

bool HasLine(const pugi::xml_node& data, const std::string& label) {
  return !data.find_child_by_attribute("Value", "label", label.c_str()).empty();
}

void CheckTotals(const pugi::xml_node& tank, Faults& faults) {
  constexpr std::array kLosses = {
      "Standing Losses (lb):",     "Working Losses (lb):",      "Rim Seal Losses (lb):", "Withdrawal Losses (lb):",
      "Roof Fitting Losses (lb):", "Deck Fitting Losses (lb):", "Deck Seam Losses (lb):"};
  const auto data = tank.child("Detail").child("Data");
  const auto totals = FiguresOf(data, "Total Losses (lb):");
  std::vector<double> sums(totals.size());
  std::size_t parts = 0;
  for (const auto* loss : kLosses) {
    const auto figures = FiguresOf(data, loss);
    if (figures.size() != sums.size()) continue;
    ++parts;
    for (std::size_t i = 0; i < sums.size(); ++i) sums[i] += figures[i];
  }
  faults.Expect(parts > 0 || totals.empty(), tank.child_value("TankName") + std::string(": no line of a loss"));
  // A heated tank that is underground has standing losses, but no line of them.
  if (HasLine(data, kUnderground) && tank.child("PhysicalChar").child("Dimensions").child_value("Heated") == kYes)
    return;
  for (std::size_t i = 0; i < sums.size(); ++i)
    faults.ExpectSum(tank.child_value("TankName"), totals[i], sums[i], parts, 4);
}

/// Fittings against the lines of their losses. Gives the sum of these losses.
double CheckFittings(const pugi::xml_node& tank, Faults& faults) {
  const std::string name = tank.child_value("TankName");
  auto line = tank.child("Detail").child("RoofStatus").child("Value");
  std::string cover;
  double losses = 0;
  for (const auto& fitting : tank.child("PhysicalChar").child("DeckFitting").children("Fitting")) {
    if (!line) {
      faults.Expect(false, name + ": a fitting without a line of its losses");
      return losses;
    }
    const std::string label = line.attribute("label").value();
    const std::string type = std::string(fitting.attribute("FitType").value()) + "/";
    faults.Expect(label.starts_with(type), name + ": label " + label);
    // A fitting without a status shows that of the one before, and none in its label.
    if (label != type) cover = label.substr(std::min(type.size(), label.size()));
    faults.ExpectEqual(name + ": status of " + label, fitting.attribute("CoverType").value(), cover);
    faults.Expect(Figure(fitting.attribute("Quantity").value()) == Figure(line.attribute("quantity").value()),
                  name + ": quantity of " + label);
    losses += Figure(line.attribute("losses").value()).value_or(0);
    line = line.next_sibling("Value");
  }
  faults.Expect(!line, name + ": more lines of losses than fittings");
  return losses;
}

/// Over a year the fittings lose together what the tank's fittings lose. Not so over months, of which a fitting's loss
/// counts the days and the tank's loss the twelfth part of a year, nor where a roof keeps the wind off the fittings and
/// only the tank's loss counts it.
void CheckFittingLosses(const pugi::xml_node& tank, double losses, Faults& faults) {
  const auto detail = tank.child("Detail");
  if (detail.child_value("ReportUnit") != shell::kAnnual) return;
  std::size_t count = 0;
  bool counts_wind = false;
  for (const auto& line : detail.child("RoofStatus").children("Value")) {
    ++count;
    counts_wind = counts_wind || Figure(line.attribute("KFb").value()) != 0;
  }
  if (counts_wind && tank.child_value("TankType") != shell::kExternalFloatingRoof) return;
  auto shown = FiguresOf(detail.child("Data"), "Roof Fitting Losses (lb):");
  if (shown.empty()) shown = FiguresOf(detail.child("Data"), "Deck Fitting Losses (lb):");
  if (!shown.empty()) faults.ExpectSum(tank.child_value("TankName"), losses, Sum(shown), count, 4);
}

void CheckHeadings(const pugi::xml_node& tank, Faults& faults) {
  const auto physical = tank.child("PhysicalChar");
  const auto data = tank.child("Detail").child("Data");
  const std::string name = tank.child_value("TankName");
  const std::string_view type = tank.child_value("TankType");
  if (const auto roof = physical.child("RoofChar").child("Type"); roof && type == shell::kVerticalFixedRoof)
    faults.Expect(HasLine(data, "Roof Outage (" + std::string(roof.child_value()) + " Roof)"), name + ": roof heading");
  if (const auto under = physical.child("Dimensions").child("Underground"))
    faults.Expect(HasLine(data, kUnderground) == (under.child_value() == kYes), name + ": underground heading");
}

}  // namespace

void CheckCalculation(const pugi::xml_node& tank, Faults& faults) {
  const auto detail = tank.child("Detail");
  faults.ExpectEqual("name in the calculation", detail.child_value("TankName"), tank.child_value("TankName"));
  faults.ExpectEqual("location in the calculation", detail.child_value("TankLocation"), tank.child_value("Location"));
  CheckColumns(tank, faults);
  CheckTotals(tank, faults);
  CheckFittingLosses(tank, CheckFittings(tank, faults), faults);
  CheckHeadings(tank, faults);
}

}  // namespace orvex::test
