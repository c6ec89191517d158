#include "reports/figures_check.h"

#include <map>
#include <set>
#include <string>
#include <vector>

#include "reports/calculation_check.h"
#include "shell/periods.h"

namespace orvex::test {
namespace {

/// What a tank's lines add up to, components left out because they are in their mixtures.
struct Shown {
  double total = 0;
  std::size_t lines = 0;
};

/// The losses of each line against its total, and of all lines together.
Shown CheckLines(const pugi::xml_node& lines, Faults& faults) {
  Shown shown;
  for (const auto& line : lines.children("COMPONENT")) {
    const auto total = line.child("TotalEmissions");
    const double figure = Figure(total.child_value()).value_or(0);
    double sum = 0;
    std::size_t parts = 0;
    for (auto loss = line.child("NAME").next_sibling(); loss && loss != total; loss = loss.next_sibling()) {
      if (loss.type() != pugi::node_element) continue;
      sum += Figure(loss.child_value()).value_or(0);
      ++parts;
    }
    faults.ExpectSum(line.path() + " " + line.child_value("NAME"), figure, sum, parts, 2);
    if (IsIndented(line.child_value("NAME"))) continue;
    shown.total += figure;
    ++shown.lines;
  }
  return shown;
}

void CheckTypes(const pugi::xml_node& element, std::string_view type, Faults& faults) {
  for (const auto& child : element.children()) {
    if (const auto attribute = child.attribute("Type")) faults.ExpectEqual(child.path(), attribute.value(), type);
    CheckTypes(child, type, faults);
  }
}

/// The roll-up against the tanks above it: in their order, one entry each but for a tank without lines.
void CheckSummary(const pugi::xml_node& report, const std::vector<std::pair<std::string, Shown>>& tanks,
                  Faults& faults) {
  const auto summary = report.child("Summary");
  if (!summary) return;
  auto entry = summary.child("TankSum");
  double total = 0;
  std::size_t entries = 0;
  for (const auto& [name, shown] : tanks) {
    const std::string entry_name =
        Trimmed(entry.attribute("id").value()) + "   -   " + Trimmed(entry.attribute("type").value());
    if (shown.lines == 0 && entry_name != name) continue;
    faults.ExpectEqual("roll-up", entry_name, name);
    const double loss = Figure(entry.attribute("loss").value()).value_or(0);
    faults.ExpectSum("roll-up of " + name, loss, shown.total, shown.lines, 2);
    total += loss;
    ++entries;
    entry = entry.next_sibling("TankSum");
  }
  faults.Expect(!entry, "roll-up: a tank that is not above");
  faults.ExpectSum("roll-up: total", Figure(summary.child_value("Total")).value_or(0), total, entries, 2);
}

/// The months of a Brief report are elements, in the roll-up they are one text.
void CheckPeriods(const pugi::xml_node& report, Faults& faults) {
  std::string joined;
  std::size_t last = 0;
  for (const auto& period : report.children("TimePeriod")) {
    const std::string_view value = period.child_value("Value");
    joined.append(joined.empty() ? "" : ", ").append(value);
    const std::size_t month = shell::MonthIndex(value).value_or(0) + 1;
    faults.Expect(month > last || value == shell::kAnnual, "months out of order: " + joined);
    last = month;
  }
  if (const auto summary = report.child("Summary"))
    faults.ExpectEqual("months of the roll-up", summary.attribute("months").value(), joined);
}

void CheckBrief(const pugi::xml_node& report, Faults& faults) {
  CheckPeriods(report, faults);
  std::vector<std::pair<std::string, Shown>> tanks;
  for (const auto& tank : report.children("Tank")) {
    const std::string_view name = tank.child_value("TankName"), type = tank.child_value("TankType");
    faults.Expect(name.ends_with("   -   " + Trimmed(type)), "type of " + std::string(name));
    CheckTypes(tank, type, faults);
    tanks.emplace_back(name, CheckLines(tank, faults));
  }
  CheckSummary(report, tanks, faults);
}

void CheckIdentification(const pugi::xml_node& tank, Faults& faults) {
  const auto identification = tank.child("PhysicalChar").child("Identification");
  const std::string type = tank.child_value("TankType");
  faults.ExpectEqual("type", identification.child_value("TankType"), type);
  faults.ExpectEqual("name", tank.child_value("TankName"),
                     Trimmed(identification.child_value("UserID")) + "   -   " + Trimmed(type));
  const std::string city = identification.child_value("City"), state = identification.child_value("State");
  const std::string_view location = tank.child_value("Location");
  const bool known = !city.empty() && !state.empty();
  faults.Expect(location == city + ", " + state || (location.empty() && !known), "location " + std::string(location));
}

std::size_t MonthOfRow(std::string_view abbreviation) {
  for (std::size_t i = 0; i < shell::kMonths.size(); ++i)
    if (shell::kMonths[i].name.substr(0, 3) == abbreviation) return i + 1;
  return 0;
}

/// Rows in calendar order and of the report's months only, and the same names as among the lines of the emissions.
void CheckContents(const pugi::xml_node& tank, Faults& faults) {
  const std::string name = tank.child_value("TankName"), period = tank.child_value("TimePeriod");
  std::size_t last = 0;
  std::set<std::string> contents, emissions;
  for (const auto& row : tank.children("LiquidContents")) {
    const std::string_view mixture = row.child_value("MixtureComponent");
    contents.insert((IsIndented(mixture) ? "- " : "") + WithoutIndent(mixture));
    if (IsIndented(mixture)) continue;
    const std::size_t month = MonthOfRow(row.child_value("Month"));
    faults.Expect(month >= last, name + ": rows out of calendar order");
    last = month;
    faults.Expect(
        period == shell::kAnnual || month == 0 ||
            (", " + period + ",").find(" " + std::string(shell::kMonths[month - 1].name) + ",") != std::string::npos,
        name + ": a row of a month that was not chosen");
  }
  for (const auto& line : tank.child("EmissionTotals").children("COMPONENT")) {
    const std::string_view mixture = line.child_value("NAME");
    emissions.insert((IsIndented(mixture) ? "- " : "") + WithoutIndent(mixture));
  }
  faults.Expect(contents == emissions, name + ": other names in the contents than in the emissions");
}

void CheckSummaryAndDetail(const pugi::xml_node& report, Faults& faults) {
  std::vector<std::pair<std::string, Shown>> tanks;
  for (const auto& tank : report.children("Tank")) {
    faults.ExpectEqual("months", tank.child_value("TimePeriod"), report.child("Tank").child_value("TimePeriod"));
    CheckIdentification(tank, faults);
    CheckTypes(tank, tank.child_value("TankType"), faults);
    CheckContents(tank, faults);
    if (tank.child("Detail")) CheckCalculation(tank, faults);
    tanks.emplace_back(tank.child_value("TankName"), CheckLines(tank.child("EmissionTotals"), faults));
  }
  if (const auto summary = report.child("Summary"))
    faults.ExpectEqual("months of the roll-up", summary.attribute("months").value(),
                       report.child("Tank").child_value("TimePeriod"));
  CheckSummary(report, tanks, faults);
}

}  // namespace

void CheckFigures(const pugi::xml_node& report, Faults& faults) {
  if (std::string_view(report.child_value("TYPE")) == "Brief") {
    CheckBrief(report, faults);
  } else {
    CheckSummaryAndDetail(report, faults);
  }
}

}  // namespace orvex::test
