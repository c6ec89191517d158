#include "reports/identification_elements.h"

#include "shell/tank_types.h"
#include "store/blanks.h"
#include "store/letter_case.h"

namespace orvex::reports {
namespace {

using enum Shown;
using Element = IdentificationElement;
using Group = IdentificationGroup;

bool HasConeRoof(store::RecordSet& tank) { return tank.TextOrEmpty("RF_TYPE") == "Cone"; }
bool HasDomeRoof(store::RecordSet& tank) { return tank.TextOrEmpty("RF_TYPE") == "Dome"; }
bool HasColumns(store::RecordSet& tank) { return tank.DoubleOrZero("COL_NO") > 0; }
bool HasNoColumns(store::RecordSet& tank) { return !HasColumns(tank); }
bool HasBoltedDeck(store::RecordSet& tank) { return store::EqualNoCase(tank.TextOrEmpty("DECK_TYPE"), "BOLTED"); }

constexpr Element kIdentification[] = {
    {"UserID", "USER ID", kText},         {"City", "CITY", kTextOrEmpty},   {"State", "STATE", kTextOrEmpty},
    {"Company", "COMPANY", kTextOrEmpty}, {"TankType", "TANK_TYPE", kText}, {"Description", "DESC", kTextOrEmpty},
};

// Vertical fixed roof.
constexpr Element kVerticalDimensions[] = {
    {"ShellHeight", "HEIGHT S", kNumber},   {"Diameter", "DIAMETER", kNumber},
    {"LiquidHeight", "HEIGHT ML", kNumber}, {"AveLiquidHeight", "HEIGHT AL", kNumber},
    {"Volume", "VOLUME", kNumber},          {"Turnovers", "TURNOVER", kNumber},
    {"NetThroughput", "Q_NET", kNumber},    {"Heated", "HEATED", kFlag},
};
constexpr Element kVerticalPaint[] = {
    {"ShellColor", "SHL COLSHD", kText},
    {"ShellCondition", "PT_COND", kText},
    {"RoofColor", "RF_COLSHD", kText},
    {"RoofCondition", "RF_COND", kText},
};
constexpr Element kVerticalRoof[] = {
    {"Type", "RF_TYPE", kText},
    {"Height", "RF_HEIGHT", kNumber},
    {"Size", "C_SLOPE", kNumber, HasConeRoof},
    {"Size", "D_RADIUS", kNumber, HasDomeRoof},
};
constexpr Element kBreatherVent[] = {
    {"Vacuum", "VENT_V", kNumber},
    {"Pressure", "VENT_P", kNumber},
};
constexpr Group kVerticalGroups[] = {
    {"Dimensions", kVerticalDimensions},
    {"PaintChar", kVerticalPaint},
    {"RoofChar", kVerticalRoof},
    {"BreatherVent", kBreatherVent},
};

// Horizontal.
constexpr Element kHorizontalDimensions[] = {
    {"ShellLength", "HEIGHT S", kNumber}, {"Diameter", "DIAMETER", kNumber},   {"Volume", "VOLUME", kNumber},
    {"Turnovers", "TURNOVER", kNumber},   {"NetThroughput", "Q_NET", kNumber}, {"Heated", "HEATED", kFlag},
    {"Underground", "UNDER", kFlag},
};
constexpr Element kHorizontalPaint[] = {
    {"ShellColor", "SHL COLSHD", kText},
    {"ShellCondition", "PT_COND", kText},
};
constexpr Group kHorizontalGroups[] = {
    {"Dimensions", kHorizontalDimensions},
    {"PaintChar", kHorizontalPaint},
    {"BreatherVent", kBreatherVent},
};

// Internal floating roof.
constexpr Element kInternalDimensions[] = {
    {"Diameter", "DIAMETER", kNumber},
    {"Volume", "VOLUME", kNumber},
    {"Turnovers", "TURNOVER", kNumber},
    {"SuppRoof", "SELF_SUP", kFlag},
    {"NumCols", "COL_NO", kNumber},
    {"ColDiam", "COL_DIAM", kNumber, HasColumns},
    {"ColDiam", "0.00", kLiteral, HasNoColumns},
};
constexpr Element kInternalPaint[] = {
    {"InternalCondition", "SHL_COND", kText}, {"ShellColor", "SHL COLSHD", kText}, {"ShellCondition", "PT_COND", kText},
    {"RoofColor", "RF_COLSHD", kText},        {"RoofCondition", "RF_COND", kText},
};
constexpr Element kInternalSeals[] = {
    {"Primary", "RIM_PRIM", kText},
    {"Secondary", "RIM_SEC", kText},
};
constexpr Element kInternalDeck[] = {
    {"Fitting", "FITTING", kText},
    {"Type", "DECK_TYPE", kText},
    {"Construction", "DECK_CONSTRUCT", kText, HasBoltedDeck},
    {"DeckSeam", "DECK_SEAM", kText, HasBoltedDeck},
    {"SeamLength", "DECK_SEAM_LENGTH", kNumber, HasBoltedDeck},
};
constexpr Group kInternalGroups[] = {
    {"Dimensions", kInternalDimensions},
    {"PaintChar", kInternalPaint},
    {"RimSeal", kInternalSeals},
    {"DeckChar", kInternalDeck},
};

// External floating roof, with a dome over it or not.
constexpr Element kExternalDimensions[] = {
    {"Diameter", "DIAMETER", kNumber},
    {"Volume", "VOLUME", kNumber},
    {"Turnovers", "TURNOVER", kNumber},
};
constexpr Element kExternalPaint[] = {
    {"InternalCondition", "SHL_COND", kText},
    {"ShellColor", "SHL COLSHD", kText},
    {"ShellCondition", "PT_COND", kText},
};
constexpr Element kExternalRoof[] = {
    {"Type", "RF_TYPE", kText},
    {"Category", "FITTING", kNumber},
};
constexpr Element kExternalSeals[] = {
    {"Construction", "TANK_CONSTRUCT", kText},
    {"Primary", "RIM_PRIM", kText},
    {"Secondary", "RIM_SEC", kText},
};
constexpr Group kExternalGroups[] = {
    {"Dimensions", kExternalDimensions},
    {"PaintChar", kExternalPaint},
    {"RoofChar", kExternalRoof},
    {"RimSeal", kExternalSeals},
};

constexpr IdentificationForm kForms[] = {
    {shell::kVerticalFixedRoof, kVerticalGroups, false},        {shell::kHorizontal, kHorizontalGroups, false},
    {shell::kInternalFloatingRoof, kInternalGroups, true},      {shell::kExternalFloatingRoof, kExternalGroups, true},
    {shell::kDomedExternalFloatingRoof, kExternalGroups, true},
};

}  // namespace

std::span<const IdentificationElement> IdentificationElements() { return kIdentification; }

const IdentificationForm* FindIdentificationForm(std::string_view tank_type) {
  for (const auto& form : kForms)
    if (store::EqualNoCase(store::WithoutBlanks(tank_type), form.tank_type)) return &form;
  return nullptr;
}

}  // namespace orvex::reports
