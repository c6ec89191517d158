#include "reports/calculation_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/tank_types.h"

namespace orvex::reports {
namespace {

using Lines = std::vector<std::string>;

/// The lines as "label | field word"; a no-break space shows as a tilde.
Lines Shown(const LineFacts& facts) {
  Lines shown;
  for (const auto& line : CalculationLines(facts)) {
    std::string label = line.label;
    for (auto at = label.find("\u00A0"); at != std::string::npos; at = label.find("\u00A0")) label.replace(at, 2, "~");
    shown.push_back(label + " | " + line.field);
  }
  return shown;
}

const Lines kStanding = {
    "Standing Losses (lb): | S_LOSS",           "~~~Vapor Space Volume (cu ft): | VS_VOL",
    "~~~Vapor Density (lb/cu ft): | V_DENS",    "~~~Vapor Space Expansion Factor: | K_E",
    "~~~Vented Vapor Saturation Factor: | K_S", "~ | linebreak",
};
const Lines kVerticalSpace = {
    "Tank Vapor Space Volume: | ",           "~~~Vapor Space Volume (cu ft): | VS_VOL",
    "~~~Tank Diameter (ft): | DIAMETER",     "~~~Vapor Space Outage (ft): | VS_OUT",
    "~~~Tank Shell Height (ft): | HEIGHT_S", "~~~Average Liquid Height (ft): | HEIGHT_AL",
    "~~~Roof Outage (ft): | RF_OUT",         "~ | linebreak",
};
const Lines kHorizontalSpace = {
    "Tank Vapor Space Volume: | ",
    "~~~Vapor Space Volume (cu ft): | VS_VOL",
    "~~~Tank Diameter (ft): | DIAMETER",
    "~~~Effective Diameter (ft): | EFF_DIAM",
    "~~~Vapor Space Outage (ft): | VS_OUT",
    "~~~Tank Shell Length (ft): | HEIGHT_S",
    "~ | linebreak",
};
const Lines kConeRoof = {
    "Roof Outage (Cone Roof) | ",       "~~~Roof Outage (ft): | RF_OUT",  "~~~Roof Height (ft): | HEIGHT_R",
    "~~~Roof Slope (ft/ft): | C_SLOPE", "~~~Shell Radius (ft): | RADIUS", "~ | linebreak",
};
const Lines kDomeRoof = {
    "Roof Outage (Dome Roof) | ",
    "~~~Roof Outage (ft): | RF_OUT",
    "~~~Dome Radius (ft): | D_RADIUS",
    "~~~Shell Radius (ft): | RADIUS",
    "~ | linebreak",
};
const Lines kDensityHead = {
    "Vapor Density | ",
    "~~~Vapor Density (lb/cu ft): | V_DENS",
    "~~~Vapor Molecular Weight (lb/lb-mole): | VP_MOLWT",
    "~~~Vapor Pressure at Daily Average Liquid | ",
    "~~~~~~~Surface Temperature (psia): | A_VP",
    "~~~Daily Avg. Liquid Surface Temp. (deg. R): | ALS_TEMP",
    "~~~Daily Average Ambient Temp. (deg. F): | AMB_T",
    "~~~Ideal Gas Constant R | ",
    "~~~~~~~(psia cuft / (lb-mol-deg R)): | |_10.731",
    "~~~Liquid Bulk Temperature (deg. R): | BULK_T",
    "~~~Tank Paint Solar Absorptance (Shell): | ALPHA",
};
const Lines kRoofPaint = {"~~~Tank Paint Solar Absorptance (Roof): | ALPHA_2"};
const Lines kDensityTail = {
    "~~~Daily Total Solar Insulation | ",
    "~~~~~~~Factor (Btu/sqft day): | INSOL",
    "~ | linebreak",
};
const Lines kExpansionAndSaturation = {
    "Vapor Space Expansion Factor | ",
    "~~~Vapor Space Expansion Factor: | K_E",
    "~~~Daily Vapor Temperature Range (deg. R): | VT_RANGE",
    "~~~Daily Vapor Pressure Range (psia): | VP_RANGE",
    "~~~Breather Vent Press. Setting Range(psia): | BV_RANGE",
    "~~~Vapor Pressure at Daily Average Liquid | ",
    "~~~~~~~Surface Temperature (psia): | A_VP",
    "~~~Vapor Pressure at Daily Minimum Liquid | ",
    "~~~~~~~Surface Temperature (psia): | M_VP",
    "~~~Vapor Pressure at Daily Maximum Liquid | ",
    "~~~~~~~Surface Temperature (psia): | X_VP",
    "~~~Daily Avg. Liquid Surface Temp. (deg R): | ALS_TEMP",
    "~~~Daily Min. Liquid Surface Temp. (deg R): | MLS_TEMP",
    "~~~Daily Max. Liquid Surface Temp. (deg R): | XLS_TEMP",
    "~~~Daily Ambient Temp. Range (deg. R): | T_RANGE",
    "~ | linebreak",
    "Vented Vapor Saturation Factor | ",
    "~~~Vented Vapor Saturation Factor: | K_S",
    "~~~Vapor Pressure at Daily Average Liquid: | ",
    "~~~~~~~Surface Temperature (psia): | A_VP",
    "~~~Vapor Space Outage (ft): | VS_OUT",
    "~ | linebreak",
};
const Lines kWorkingHead = {
    "Working Losses (lb): | W_LOSS",
    "~~~Vapor Molecular Weight (lb/lb-mole): | VP_MOLWT",
    "~~~Vapor Pressure at Daily Average Liquid | ",
    "~~~~~~~Surface Temperature (psia): | A_VP",
};
const Lines kYear = {"~~~Annual Net Throughput (gal/yr.): | Q_NET"};
const Lines kMonth = {"~~~Net Throughput (gal/mo.): | Q_NET"};
const Lines kTurnovers = {"~~~Annual Turnovers: | TURNOVER", "~~~Turnover Factor: | K_N"};
const Lines kMaximum = {"~~~Maximum Liquid Volume (gal): | VOLUME", "~~~Maximum Liquid Height (ft): | HEIGHT_L"};
const Lines kWorkingTail = {
    "~~~Tank Diameter (ft): | DIAMETER", "~~~Working Loss Product Factor: | K_P", "~ | linebreak", "~ | linebreak",
    "Total Losses (lb): | TOTAL_LOSS",
};
const Lines kBlank = {"~ | linebreak"};

Lines Joined(std::initializer_list<Lines> parts) {
  Lines all;
  for (const auto& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

Lines External(const Lines& throughput) {
  return Joined(
      {{"Rim Seal Losses (lb): | RIM_LOSS", "~~~Seal Factor A (lb-mole/ft-yr): | M_KRA",
        "~~~Seal Factor B (lb-mole/ft-yr (mph)^n): | M_KRB", "~~~Average Wind Speed (mph): | M_V",
        "~~~Seal-related Wind Speed Exponent: | N_FACT", "~~~Value of Vapor Pressure Function: | M_P",
        "~~~Vapor Pressure at Daily Average Liquid | ", "~~~~~~~Surface Temperature (psia): | A_VP",
        "~~~Tank Diameter (ft): | DIAMETER", "~~~Vapor Molecular Weight (lb/lb-mole): | VP_MOLWT",
        "~~~Product Factor: | M_KC", "~ | linebreak", "Withdrawal Losses (lb): | WD_LOSS"},
       throughput,
       {"~~~Shell Clingage Factor (bbl/1000 sqft): | M_C", "~~~Average Organic Liquid Density (lb/gal): | L_DENS",
        "~~~Tank Diameter (ft): | DIAMETER", "~ | linebreak", "Roof Fitting Losses (lb): | DECKF_LOSS",
        "~~~Value of Vapor Pressure Function: | M_P", "~~~Vapor Molecular Weight (lb/lb-mole): | VP_MOLWT",
        "~~~Product Factor: | M_KC", "~~~Tot. Roof Fitting Loss Fact.(lb-mole/yr): | M_FF",
        "~~~Average Wind Speed (mph): | M_V", "~ | linebreak", "~ | linebreak", "Total Losses (lb): | TOTAL_LOSS2"}});
}

Lines Internal(const Lines& throughput) {
  return Joined({{"Rim Seal Losses (lb): | RIM_LOSS", "~~~Seal Factor A (lb-mole/ft-yr): | M_KRA",
                  "~~~Seal Factor B (lb-mole/ft-yr (mph)^n): | M_KRB", "~~~Value of Vapor Pressure Function: | M_P",
                  "~~~Vapor Pressure at Daily Average Liquid | ", "~~~~~~~Surface Temperature (psia): | A_VP",
                  "~~~Tank Diameter (ft): | DIAMETER", "~~~Vapor Molecular Weight (lb/lb-mole): | VP_MOLWT",
                  "~~~Product Factor: | M_KC", "~ | linebreak", "Withdrawal Losses (lb): | WD_LOSS",
                  "~~~Number of Columns: | NC", "~~~Effective Column Diameter (ft): | COL_DIAM"},
                 throughput,
                 {"~~~Shell Clingage Factor (bbl/1000 sqft): | M_C",
                  "~~~Average Organic Liquid Density (lb/gal): | L_DENS",
                  "~~~Tank Diameter (ft): | DIAMETER",
                  "~ | linebreak",
                  "Deck Fitting Losses (lb): | DECKF_LOSS",
                  "~~~Value of Vapor Pressure Function: | M_P",
                  "~~~Vapor Molecular Weight (lb/lb-mole): | VP_MOLWT",
                  "~~~Product Factor: | M_KC",
                  "~~~Tot. Roof Fitting Loss Fact.(lb-mole/yr): | M_FF",
                  "~ | linebreak",
                  "Deck Seam Losses (lb): | DECKS_LOSS",
                  "~~~Deck Seam Length (ft): | DECK_SEAM_LENGTH",
                  "~~~Deck Seam Loss per Unit Length | ",
                  "~~~~~~~Factor (lb-mole/ft-yr): | KD",
                  "~~~Deck Seam Length Factor(ft/sqft): | SD",
                  "~~~Tank Diameter (ft): | DIAMETER",
                  "~~~Vapor Molecular Weight (lb/lb-mole): | VP_MOLWT",
                  "~~~Product Factor: | M_KC",
                  "~ | linebreak",
                  "~ | linebreak",
                  "Total Losses (lb): | TOTAL_LOSS2"}});
}

TEST(CalculationLines, OfAVerticalTankUnderACone) {
  EXPECT_EQ(Shown({.tank_type = shell::kVerticalFixedRoof, .roof_type = "Cone"}),
            Joined({kStanding, kVerticalSpace, kConeRoof, kDensityHead, kRoofPaint, kDensityTail,
                    kExpansionAndSaturation, kWorkingHead, kYear, kTurnovers, kMaximum, kWorkingTail}));
}

TEST(CalculationLines, ADomeHasTwoLinesOfGeometryInPlaceOfThree) {
  EXPECT_EQ(Shown({.tank_type = shell::kVerticalFixedRoof, .roof_type = "Dome"}),
            Joined({kStanding, kVerticalSpace, kDomeRoof, kDensityHead, kRoofPaint, kDensityTail,
                    kExpansionAndSaturation, kWorkingHead, kYear, kTurnovers, kMaximum, kWorkingTail}));
}

TEST(CalculationLines, AnyOtherRoofHasTheLinesOfADome) {
  for (const auto* type : {"Flat", "", "Conelike"}) {
    const auto lines = Shown({.tank_type = shell::kVerticalFixedRoof, .roof_type = type});
    ASSERT_EQ(lines.size(), 70U) << type;
    EXPECT_EQ(Lines(lines.begin() + 14, lines.begin() + 19),
              Joined({{std::string("Roof Outage (") + type + " Roof) | "}, {kDomeRoof.begin() + 1, kDomeRoof.end()}}));
  }
}

TEST(CalculationLines, ARoofTypeIsAConeWhateverItsCaseAndBlanks) {
  const auto lines = Shown({.tank_type = shell::kVerticalFixedRoof, .roof_type = " cONE "});
  EXPECT_EQ(lines[14], "Roof Outage ( cONE  Roof) | ");
  EXPECT_EQ(lines[17], "~~~Roof Slope (ft/ft): | C_SLOPE");
}

TEST(CalculationLines, OfAHorizontalTank) {
  EXPECT_EQ(Shown({.tank_type = shell::kHorizontal, .roof_type = ""}),
            Joined({kStanding, kHorizontalSpace, kDensityHead, kDensityTail, kExpansionAndSaturation, kBlank,
                    kWorkingHead, kYear, kTurnovers, kWorkingTail}));
}

TEST(CalculationLines, AnUndergroundTankHasNoStandingBlockAndNoVaporSpace) {
  EXPECT_EQ(
      Shown({.tank_type = shell::kHorizontal, .roof_type = "", .underground = true}),
      Joined({{"No Standing Losses:  Underground Tank | "}, kBlank, kWorkingHead, kYear, kTurnovers, kWorkingTail}));
}

TEST(CalculationLines, OfAnExternalTankAndOfOneUnderADome) {
  EXPECT_EQ(Shown({.tank_type = shell::kExternalFloatingRoof, .roof_type = "Pontoon"}), External(kYear));
  EXPECT_EQ(Shown({.tank_type = shell::kDomedExternalFloatingRoof, .roof_type = "Pontoon"}), External(kYear));
}

TEST(CalculationLines, OfAnInternalTank) {
  EXPECT_EQ(Shown({.tank_type = shell::kInternalFloatingRoof, .roof_type = ""}), Internal(kYear));
}

TEST(CalculationLines, AMonthHasItsOwnThroughputButAnnualTurnovers) {
  EXPECT_EQ(Shown({.tank_type = shell::kVerticalFixedRoof, .roof_type = "Cone", .underground = false, .monthly = true}),
            Joined({kStanding, kVerticalSpace, kConeRoof, kDensityHead, kRoofPaint, kDensityTail,
                    kExpansionAndSaturation, kWorkingHead, kMonth, kTurnovers, kMaximum, kWorkingTail}));
  EXPECT_EQ(
      Shown({.tank_type = shell::kHorizontal, .roof_type = "", .underground = true, .monthly = true}),
      Joined({{"No Standing Losses:  Underground Tank | "}, kBlank, kWorkingHead, kMonth, kTurnovers, kWorkingTail}));
  EXPECT_EQ(Shown({.tank_type = shell::kExternalFloatingRoof, .roof_type = "", .underground = false, .monthly = true}),
            External(kMonth));
  EXPECT_EQ(Shown({.tank_type = shell::kInternalFloatingRoof, .roof_type = "", .underground = false, .monthly = true}),
            Internal(kMonth));
}

TEST(CalculationLines, AnUnknownTypeHasNone) {
  EXPECT_TRUE(Shown({.tank_type = "Sphere", .roof_type = ""}).empty());
  EXPECT_FALSE(HasDeck("Sphere"));
}

TEST(CalculationLines, FloatingRoofsHaveADeck) {
  EXPECT_FALSE(HasDeck(shell::kVerticalFixedRoof));
  EXPECT_FALSE(HasDeck(shell::kHorizontal));
  EXPECT_TRUE(HasDeck(shell::kInternalFloatingRoof));
  EXPECT_TRUE(HasDeck(shell::kExternalFloatingRoof));
  EXPECT_TRUE(HasDeck("domed EXTERNAL floating roof tank"));
}

}  // namespace
}  // namespace orvex::reports
