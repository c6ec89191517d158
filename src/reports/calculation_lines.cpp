#include "reports/calculation_lines.h"

#include <span>

#include "reports/report_text.h"
#include "store/blanks.h"
#include "store/letter_case.h"

namespace orvex::reports {
namespace {

/// On which tanks a line or block stands.
enum class On : std::uint8_t { kAll, kCone, kNoCone, kVertical, kAboveGround, kUnderground, kAnnual, kMonthly };

struct Line {
  int indent;
  std::string_view label;
  std::string_view field;
  On on = On::kAll;
};

struct Block {
  std::span<const Line> lines;
  On on = On::kAll;
};

/// Where a label names the roof's type.
constexpr std::string_view kRoofTypePlace = "{}";

constexpr Line kBlank = {0, "", kBlankLine};
constexpr Line kBlanks[] = {kBlank};

// Fixed roofs ---------------------------------------------------------------------------------------------------------
constexpr Line kStandingLosses[] = {
    {0, "Standing Losses (lb):", "S_LOSS"},        {3, "Vapor Space Volume (cu ft):", "VS_VOL"},
    {3, "Vapor Density (lb/cu ft):", "V_DENS"},    {3, "Vapor Space Expansion Factor:", "K_E"},
    {3, "Vented Vapor Saturation Factor:", "K_S"}, kBlank,
};

constexpr Line kVerticalVaporSpace[] = {
    {0, "Tank Vapor Space Volume:", kHeading},  {3, "Vapor Space Volume (cu ft):", "VS_VOL"},
    {3, "Tank Diameter (ft):", "DIAMETER"},     {3, "Vapor Space Outage (ft):", "VS_OUT"},
    {3, "Tank Shell Height (ft):", "HEIGHT_S"}, {3, "Average Liquid Height (ft):", "HEIGHT_AL"},
    {3, "Roof Outage (ft):", "RF_OUT"},         kBlank,
};

constexpr Line kHorizontalVaporSpace[] = {
    {0, "Tank Vapor Space Volume:", kHeading},
    {3, "Vapor Space Volume (cu ft):", "VS_VOL"},
    {3, "Tank Diameter (ft):", "DIAMETER"},
    {3, "Effective Diameter (ft):", "EFF_DIAM"},
    {3, "Vapor Space Outage (ft):", "VS_OUT"},
    {3, "Tank Shell Length (ft):", "HEIGHT_S"},
    kBlank,
};

constexpr Line kRoofOutage[] = {
    {0, "Roof Outage ({} Roof)", kHeading},
    {3, "Roof Outage (ft):", "RF_OUT"},
    {3, "Roof Height (ft):", "HEIGHT_R", On::kCone},
    {3, "Roof Slope (ft/ft):", "C_SLOPE", On::kCone},
    {3, "Dome Radius (ft):", "D_RADIUS", On::kNoCone},
    {3, "Shell Radius (ft):", kRadius},
    kBlank,
};

constexpr Line kVaporDensity[] = {
    {0, "Vapor Density", kHeading},
    {3, "Vapor Density (lb/cu ft):", "V_DENS"},
    {3, "Vapor Molecular Weight (lb/lb-mole):", "VP_MOLWT"},
    {3, "Vapor Pressure at Daily Average Liquid", kHeading},
    {7, "Surface Temperature (psia):", "A_VP"},
    {3, "Daily Avg. Liquid Surface Temp. (deg. R):", "ALS_TEMP"},
    {3, "Daily Average Ambient Temp. (deg. F):", "AMB_T"},
    {3, "Ideal Gas Constant R", kHeading},
    {7, "(psia cuft / (lb-mol-deg R)):", "|_10.731"},
    {3, "Liquid Bulk Temperature (deg. R):", "BULK_T"},
    {3, "Tank Paint Solar Absorptance (Shell):", "ALPHA"},
    {3, "Tank Paint Solar Absorptance (Roof):", "ALPHA_2", On::kVertical},
    {3, "Daily Total Solar Insulation", kHeading},
    {7, "Factor (Btu/sqft day):", "INSOL"},
    kBlank,
};

constexpr Line kExpansionFactor[] = {
    {0, "Vapor Space Expansion Factor", kHeading},
    {3, "Vapor Space Expansion Factor:", "K_E"},
    {3, "Daily Vapor Temperature Range (deg. R):", "VT_RANGE"},
    {3, "Daily Vapor Pressure Range (psia):", "VP_RANGE"},
    {3, "Breather Vent Press. Setting Range(psia):", "BV_RANGE"},
    {3, "Vapor Pressure at Daily Average Liquid", kHeading},
    {7, "Surface Temperature (psia):", "A_VP"},
    {3, "Vapor Pressure at Daily Minimum Liquid", kHeading},
    {7, "Surface Temperature (psia):", "M_VP"},
    {3, "Vapor Pressure at Daily Maximum Liquid", kHeading},
    {7, "Surface Temperature (psia):", "X_VP"},
    {3, "Daily Avg. Liquid Surface Temp. (deg R):", "ALS_TEMP"},
    {3, "Daily Min. Liquid Surface Temp. (deg R):", "MLS_TEMP"},
    {3, "Daily Max. Liquid Surface Temp. (deg R):", "XLS_TEMP"},
    {3, "Daily Ambient Temp. Range (deg. R):", "T_RANGE"},
    kBlank,
};

constexpr Line kSaturationFactor[] = {
    {0, "Vented Vapor Saturation Factor", kHeading},
    {3, "Vented Vapor Saturation Factor:", "K_S"},
    {3, "Vapor Pressure at Daily Average Liquid:", kHeading},
    {7, "Surface Temperature (psia):", "A_VP"},
    {3, "Vapor Space Outage (ft):", "VS_OUT"},
    kBlank,
};

constexpr Line kWorkingLosses[] = {
    {0, "Working Losses (lb):", "W_LOSS"},
    {3, "Vapor Molecular Weight (lb/lb-mole):", "VP_MOLWT"},
    {3, "Vapor Pressure at Daily Average Liquid", kHeading},
    {7, "Surface Temperature (psia):", "A_VP"},
    {3, "Annual Net Throughput (gal/yr.):", "Q_NET", On::kAnnual},
    {3, "Net Throughput (gal/mo.):", "Q_NET", On::kMonthly},
    {3, "Annual Turnovers:", "TURNOVER"},
    {3, "Turnover Factor:", "K_N"},
    {3, "Maximum Liquid Volume (gal):", "VOLUME", On::kVertical},
    {3, "Maximum Liquid Height (ft):", "HEIGHT_L", On::kVertical},
    {3, "Tank Diameter (ft):", "DIAMETER"},
    {3, "Working Loss Product Factor:", "K_P"},
    kBlank,
    kBlank,
    {0, "Total Losses (lb):", kFixedTotal},
};

constexpr Line kNoStandingLosses[] = {{0, "No Standing Losses:  Underground Tank", kHeading}};

// Floating roofs ------------------------------------------------------------------------------------------------------
constexpr Line kExternalRimSeal[] = {
    {0, "Rim Seal Losses (lb):", "RIM_LOSS"},
    {3, "Seal Factor A (lb-mole/ft-yr):", "M_KRA"},
    {3, "Seal Factor B (lb-mole/ft-yr (mph)^n):", "M_KRB"},
    {3, "Average Wind Speed (mph):", "M_V"},
    {3, "Seal-related Wind Speed Exponent:", "N_FACT"},
    {3, "Value of Vapor Pressure Function:", "M_P"},
    {3, "Vapor Pressure at Daily Average Liquid", kHeading},
    {7, "Surface Temperature (psia):", "A_VP"},
    {3, "Tank Diameter (ft):", "DIAMETER"},
    {3, "Vapor Molecular Weight (lb/lb-mole):", "VP_MOLWT"},
    {3, "Product Factor:", "M_KC"},
    kBlank,
};

constexpr Line kExternalWithdrawal[] = {
    {0, "Withdrawal Losses (lb):", "WD_LOSS"},
    {3, "Annual Net Throughput (gal/yr.):", "Q_NET", On::kAnnual},
    {3, "Net Throughput (gal/mo.):", "Q_NET", On::kMonthly},
    {3, "Shell Clingage Factor (bbl/1000 sqft):", "M_C"},
    {3, "Average Organic Liquid Density (lb/gal):", "L_DENS"},
    {3, "Tank Diameter (ft):", "DIAMETER"},
    kBlank,
};

constexpr Line kRoofFittings[] = {
    {0, "Roof Fitting Losses (lb):", "DECKF_LOSS"},           {3, "Value of Vapor Pressure Function:", "M_P"},
    {3, "Vapor Molecular Weight (lb/lb-mole):", "VP_MOLWT"},  {3, "Product Factor:", "M_KC"},
    {3, "Tot. Roof Fitting Loss Fact.(lb-mole/yr):", "M_FF"}, {3, "Average Wind Speed (mph):", "M_V"},
};

constexpr Line kInternalRimSeal[] = {
    {0, "Rim Seal Losses (lb):", "RIM_LOSS"},
    {3, "Seal Factor A (lb-mole/ft-yr):", "M_KRA"},
    {3, "Seal Factor B (lb-mole/ft-yr (mph)^n):", "M_KRB"},
    {3, "Value of Vapor Pressure Function:", "M_P"},
    {3, "Vapor Pressure at Daily Average Liquid", kHeading},
    {7, "Surface Temperature (psia):", "A_VP"},
    {3, "Tank Diameter (ft):", "DIAMETER"},
    {3, "Vapor Molecular Weight (lb/lb-mole):", "VP_MOLWT"},
    {3, "Product Factor:", "M_KC"},
    kBlank,
};

constexpr Line kInternalWithdrawal[] = {
    {0, "Withdrawal Losses (lb):", "WD_LOSS"},
    {3, "Number of Columns:", "NC"},
    {3, "Effective Column Diameter (ft):", "COL_DIAM"},
    {3, "Annual Net Throughput (gal/yr.):", "Q_NET", On::kAnnual},
    {3, "Net Throughput (gal/mo.):", "Q_NET", On::kMonthly},
    {3, "Shell Clingage Factor (bbl/1000 sqft):", "M_C"},
    {3, "Average Organic Liquid Density (lb/gal):", "L_DENS"},
    {3, "Tank Diameter (ft):", "DIAMETER"},
    kBlank,
};

constexpr Line kDeckFittings[] = {
    {0, "Deck Fitting Losses (lb):", "DECKF_LOSS"},           {3, "Value of Vapor Pressure Function:", "M_P"},
    {3, "Vapor Molecular Weight (lb/lb-mole):", "VP_MOLWT"},  {3, "Product Factor:", "M_KC"},
    {3, "Tot. Roof Fitting Loss Fact.(lb-mole/yr):", "M_FF"}, kBlank,
};

constexpr Line kDeckSeams[] = {
    {0, "Deck Seam Losses (lb):", "DECKS_LOSS"},
    {3, "Deck Seam Length (ft):", "DECK_SEAM_LENGTH"},
    {3, "Deck Seam Loss per Unit Length", kHeading},
    {7, "Factor (lb-mole/ft-yr):", "KD"},
    {3, "Deck Seam Length Factor(ft/sqft):", "SD"},
    {3, "Tank Diameter (ft):", "DIAMETER"},
    {3, "Vapor Molecular Weight (lb/lb-mole):", "VP_MOLWT"},
    {3, "Product Factor:", "M_KC"},
};

constexpr Line kFloatingTotals[] = {
    kBlank,
    kBlank,
    {0, "Total Losses (lb):", kFloatingTotal},
};

// The lists -----------------------------------------------------------------------------------------------------------
constexpr Block kVertical[] = {
    {kStandingLosses},  {kVerticalVaporSpace}, {kRoofOutage},    {kVaporDensity},
    {kExpansionFactor}, {kSaturationFactor},   {kWorkingLosses},
};

constexpr Block kHorizontal[] = {
    {kNoStandingLosses, On::kUnderground},
    {kStandingLosses, On::kAboveGround},
    {kHorizontalVaporSpace, On::kAboveGround},
    {kVaporDensity, On::kAboveGround},
    {kExpansionFactor, On::kAboveGround},
    {kSaturationFactor, On::kAboveGround},
    {kBlanks},
    {kWorkingLosses},
};

constexpr Block kExternal[] = {{kExternalRimSeal}, {kExternalWithdrawal}, {kRoofFittings}, {kFloatingTotals}};

constexpr Block kInternal[] = {
    {kInternalRimSeal}, {kInternalWithdrawal}, {kDeckFittings}, {kDeckSeams}, {kFloatingTotals}};

/// A list and the word in the name of the tank types that take it.
struct LineList {
  std::string_view word;
  std::span<const Block> blocks;
  bool vertical;
  bool deck;
};

/// In the order in which they are tried.
constexpr LineList kLists[] = {
    {"vertical", kVertical, true, false},
    {"horizontal", kHorizontal, false, false},
    {"external", kExternal, false, true},
    {"internal", kInternal, false, true},
};

const LineList* FindList(std::string_view tank_type) {
  const auto lower = store::LowerCase(tank_type);
  for (const auto& list : kLists)
    if (lower.find(list.word) != std::string::npos) return &list;
  return nullptr;
}

bool Stands(On on, const LineList& list, const LineFacts& facts) {
  const bool cone = store::EqualNoCase(store::WithoutBlanks(facts.roof_type), "CONE");
  switch (on) {
    case On::kCone:
      return cone;
    case On::kNoCone:
      return !cone;
    case On::kVertical:
      return list.vertical;
    case On::kAboveGround:
      return !facts.underground;
    case On::kUnderground:
      return facts.underground;
    case On::kAnnual:
      return !facts.monthly;
    case On::kMonthly:
      return facts.monthly;
    case On::kAll:
      break;
  }
  return true;
}

std::string Label(const Line& line, const LineFacts& facts) {
  if (line.field == kBlankLine) return NoBreakSpaces(1);
  auto label = NoBreakSpaces(line.indent) + std::string(line.label);
  if (const auto at = label.find(kRoofTypePlace); at != std::string::npos)
    label.replace(at, kRoofTypePlace.size(), facts.roof_type);
  return label;
}

}  // namespace

std::vector<CalculationLine> CalculationLines(const LineFacts& facts) {
  std::vector<CalculationLine> lines;
  const auto* list = FindList(facts.tank_type);
  if (list == nullptr) return lines;
  for (const auto& block : list->blocks) {
    if (!Stands(block.on, *list, facts)) continue;
    for (const auto& line : block.lines)
      if (Stands(line.on, *list, facts)) lines.push_back({Label(line, facts), std::string(line.field)});
  }
  return lines;
}

bool HasDeck(std::string_view tank_type) {
  const auto* list = FindList(tank_type);
  return list != nullptr && list->deck;
}

}  // namespace orvex::reports
