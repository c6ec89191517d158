#include "reports/identification.h"

#include <fmt/format.h>

#include <string>

#include "reports/identification_elements.h"
#include "reports/report_document.h"
#include "reports/report_text.h"
#include "shell/number_format.h"
#include "shell/trap.h"

namespace orvex::reports {
namespace {

using store::RecordSet;

constexpr std::string_view kLabel = "frmPreview.DetailReportPage1";

/// One statement of this page: without a record, or on a null, it is skipped.
template <typename Body>
void Statement(Body&& body) {
  shell::Statement<store::ErrorNumber::kInvalidUseOfNull>(std::forward<Body>(body));
}

/// A text is no number to be formatted, and stands as it is.
std::string NumberText(const store::Value& value) {
  return value.GetKind() == store::Value::Kind::kText ? value.AsText() : shell::FormatTwoDecimals(value.AsDouble());
}

std::string ElementText(const IdentificationElement& element, RecordSet& tank) {
  switch (element.how) {
    case Shown::kText:
      return tank.Text(element.field);
    case Shown::kTextOrEmpty:
      return tank.TextOrEmpty(element.field);
    case Shown::kNumber:
      return NumberText(tank.Get(element.field));
    case Shown::kFlag:
      return tank.Bool(element.field) ? "Y" : "N";
    case Shown::kLiteral:
      break;
  }
  return std::string(element.field);
}

void AddElements(pugi::xml_node group, std::span<const IdentificationElement> elements, RecordSet& tank) {
  for (const auto& element : elements) {
    Statement([&] {
      if (element.condition == nullptr || element.condition(tank))
        AddElement(group, element.name, ElementText(element, tank));
    });
  }
}

void AddGroup(pugi::xml_node parent, const IdentificationGroup& group, RecordSet& tank) {
  auto element = AddElement(parent, group.name);
  Statement([&] { AddAttribute(element, "Type", tank.Text("TANK_TYPE")); });
  AddElements(element, group.elements, tank);
}

void AddDeckFittings(shell::Session& session, std::int32_t id, pugi::xml_node parent, RecordSet& tank) {
  auto deck = AddElement(parent, "DeckFitting");
  std::string cover_type;  // a null leaves that of the row before
  for (auto rows = session.ClientDb->OpenQuery(
           fmt::format("SELECT FIT_TYPE, COVR_TYPE, QUANTITY FROM Fittings WHERE ID = {} ORDER BY [FIT ID]", id));
       !rows.AtEnd(); rows.MoveNext()) {
    pugi::xml_node fitting;
    Statement([&] { fitting = AddElement(deck, "Fitting", tank.Text("FITTING")); });
    if (!fitting) continue;
    Statement([&] { AddAttribute(fitting, "FitType", rows.Text("FIT_TYPE")); });
    Statement([&] { cover_type = rows.Text("COVR_TYPE"); });
    AddAttribute(fitting, "CoverType", cover_type);
    Statement([&] { AddAttribute(fitting, "Quantity", shell::FormatTwoDecimals(rows.Double("QUANTITY"))); });
  }
}

void AddMeteorologicalData(shell::Session& session, pugi::xml_node parent, RecordSet& tank) {
  auto city = session.ReferenceDb->OpenTable("met");
  city.SetIndex("CTYST");
  Statement([&] {
    city.Seek({tank.Text("MET CTYST")});
    // Rounded to two decimals, but shown without zeros at its end.
    const double atmospheric_psia = shell::RoundTwoDecimals(city.Double("ATMOS_PRS"));
    AddElement(parent, "MeteorologicalData",
               fmt::format("{} (Avg Atmospheric Pressure = {} psia)", city.Text("CTYST"),
                           shell::PlainDecimal(atmospheric_psia)));
  });
}

}  // namespace

void DetailReportPage1(shell::Session& session, const DetailTank& reported, pugi::xml_node tank_element) {
  shell::Trapped(session, kLabel, [&] {
    auto tank = session.ClientDb->OpenTable("tank");
    tank.SetIndex("ID");
    tank.Seek({reported.id});
    Statement(
        [&] { AddElement(tank_element, "TankName", ReportTankName(tank.Text("USER ID"), tank.Text("TANK_TYPE"))); });
    std::string tank_type;
    Statement([&] { tank_type = tank.Text("TANK_TYPE"); });
    Statement([&] { AddElement(tank_element, "TankType", tank.Text("TANK_TYPE")); });
    auto physical = AddElement(tank_element, "PhysicalChar");
    AddElements(AddElement(physical, "Identification"), IdentificationElements(), tank);
    if (const auto* form = FindIdentificationForm(tank_type)) {
      for (const auto& group : form->groups) AddGroup(physical, group, tank);
      if (form->has_deck_fittings) AddDeckFittings(session, reported.id, physical, tank);
    }
    AddMeteorologicalData(session, physical, tank);
  });
}

}  // namespace orvex::reports
