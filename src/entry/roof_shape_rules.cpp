#include "entry/roof_shape_rules.h"

#include <fmt/format.h>

#include "entry/tank_geometry.h"
#include "entry/update_tank.h"
#include "shell/number_format.h"
#include "shell/status.h"

namespace orvex::entry {
namespace {

using shell::Session;

constexpr std::string_view kCone = "Cone", kDome = "Dome";
constexpr double kUsualSlope = 0.0625;

/// What a cone roof's slope {ft/ft} hangs on, as it stands in the entries {ft}.
struct Cone {
  double diameter_ft, roof_height_ft, slope;
};

Cone ConeOf(FrmTank& form) {
  return {Number(Physical(form, "DIAMETER")), Number(Physical(form, "RF_HEIGHT")), Number(Physical(form, "C_SLOPE"))};
}

/// How a slope is proposed: the calculated one stands between words, the usual one in a sentence of its own.
struct SlopeQuestion {
  std::string_view title, calculated, ending, usual;
};

constexpr SlopeQuestion kOnLeavingDiameter = {"Cone Roof Slope", "The calculated cone roof slope value is ",
                                              "(ft/ft). Use This Value?",
                                              "The default cone roof slope value is 0.0625 (ft/ft). Use This Value?"};
constexpr SlopeQuestion kOnEnteringSlope = {"Recalculate?", "The calculated value is ", ". Use This Value?",
                                            "The default value is 0.0625. Use This Value?"};

/// Proposes the slope that the roof's height makes, or the usual one while height or diameter are not given.
void ProposeSlope(Session& session, FrmTank& form, const SlopeQuestion& words) {
  const auto cone = ConeOf(form);
  auto slope = kUsualSlope;
  std::string question(words.usual);
  if (cone.roof_height_ft != 0 && cone.diameter_ft != 0) {
    slope = ConeSlope(cone.roof_height_ft, cone.diameter_ft);
    question = fmt::format("{}{}{}", words.calculated, shell::FormatTwoToSixDecimals(slope), words.ending);
  }
  if (shell::Accepted(session.host, question, words.title)) ShowNumber(Physical(form, "C_SLOPE"), slope);
}

bool HasRoof(FrmTank& form, std::string_view roof_type) { return StoredText(Physical(form, "RF_TYPE")) == roof_type; }

}  // namespace

void FitConeSlope(Session& session, FrmTank& form, Entry& diameter) {
  if (!IsChanged(diameter) || !HasRoof(form, kCone)) return;
  const auto cone = ConeOf(form);
  if (cone.diameter_ft == 0 || cone.slope == 0) {
    ShowNumber(Physical(form, "C_SLOPE"), kUsualSlope);
  } else if (ConeSlope(cone.roof_height_ft, cone.diameter_ft) != cone.slope) {
    ProposeSlope(session, form, kOnLeavingDiameter);
  }
}

void FitDomeRadius(Session& session, FrmTank& form, Entry& diameter) {
  auto& radius = Physical(form, "D_RADIUS");
  if (!IsChanged(diameter) || !HasRoof(form, kDome)) return;
  if (radius.box.text == diameter.box.text || Number(radius) == 0) return;
  const auto question = fmt::format("The default dome roof radius value is {}(ft). Use This Value?", diameter.box.text);
  if (shell::Accepted(session.host, question, "Dome Roof Radius")) radius.box.text = diameter.box.text;
}

void ProposeConeSlope(Session& session, FrmTank& form, Entry&) {
  const auto cone = ConeOf(form);
  const bool differs =
      cone.slope == 0 || (cone.diameter_ft != 0 && ConeSlope(cone.roof_height_ft, cone.diameter_ft) != cone.slope);
  if (differs) ProposeSlope(session, form, kOnEnteringSlope);
  UpdateTank(session, form);
}

void ProposeDomeRadius(Session& session, FrmTank& form, Entry& radius) {
  const auto& diameter_text = Physical(form, "DIAMETER").box.text;
  if (Number(radius) != 0 && radius.box.text == diameter_text) return;
  const auto question = fmt::format("The default value is {}. Use This Value?", diameter_text);
  if (shell::Accepted(session.host, question, "Recalculate?")) radius.box.text = diameter_text;
}

void ShowRoofType(Session&, FrmTank& form, Entry&) {
  Physical(form, "C_SLOPE").box.visible = !HasRoof(form, kDome);
  Physical(form, "D_RADIUS").box.visible = !HasRoof(form, kCone);
}

}  // namespace orvex::entry
