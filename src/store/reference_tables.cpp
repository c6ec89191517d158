#include "store/field_makers.h"

namespace orvex::store {
namespace {

using namespace fields;

constexpr std::string_view kByCounter[] = {"Counter"};
constexpr std::string_view kByName[] = {"NAME"};
constexpr std::string_view kByCas[] = {"CAS"};
constexpr std::string_view kByCity[] = {"CTYST"};
constexpr std::string_view kByFittingStatus[] = {"FIT_TYPE", "COVR_TYPE"};
constexpr std::string_view kByFittingType[] = {"FIT_TYPE"};
constexpr std::string_view kByPrimary[] = {"PRIM_SEAL"};
constexpr std::string_view kBySeals[] = {"PRIM_SEAL", "SECND_SEAL"};
constexpr std::string_view kBySealsAndShell[] = {"PRIM_SEAL", "SECND_SEAL", "WELDED", "RIVETED"};
constexpr std::string_view kByProfile[] = {"SPEC ID"};
constexpr std::string_view kByProfileName[] = {"Profile Name"};
constexpr std::string_view kByProfileType[] = {"TYPE"};

constexpr FieldInfo kChemicalFields[] = {
    Counter("Counter", "Row number"),
    Text("NAME", 50, "Chemical name"),
    Text("CAS", 10, "CAS number"),
    Text("CATEGORY", kWord, "Category"),
    Double("MOLWT", "lb/lb-mole", "Liquid molecular weight"),
    Double("VP_MOLWT", "lb/lb-mole", "Vapor molecular weight"),
    Double("L_DENS", "lb/gal", "Liquid density"),
    Double("VP_40", "psia", "Vapor pressure at 40 deg F"),
    Double("VP_50", "psia", "Vapor pressure at 50 deg F"),
    Double("VP_60", "psia", "Vapor pressure at 60 deg F"),
    Double("VP_70", "psia", "Vapor pressure at 70 deg F"),
    Double("VP_80", "psia", "Vapor pressure at 80 deg F"),
    Double("VP_90", "psia", "Vapor pressure at 90 deg F"),
    Double("VP_100", "psia", "Vapor pressure at 100 deg F"),
    Double("VP_COEF_A", "", "Antoine coefficient A (deg C)"),
    Double("VP_COEF_B", "", "Antoine coefficient B (deg C)"),
    Double("VP_COEF_C", "", "Antoine coefficient C (deg C)"),
    Double("VP_2_A", "", "Coefficient A (deg K)"),
    Double("VP_2_B", "", "Coefficient B (deg K)"),
    Double("REID", "psi", "Reid vapor pressure"),
    Double("ASTM_SLOPE", "", "ASTM distillation slope"),
    Boolean("USER_DEF", "User-defined"),
};
constexpr IndexInfo kChemicalIndexes[] = {
    {"chemname", kByName, false}, {"zCAS", kByCas, false}, {"Counter", kByCounter, false}};

constexpr FieldInfo kDeckSeamFields[] = {
    Counter("Counter", "Row number"),
    Text("NAME", kFree, "Name"),
    Text("CONSTRUC", kWord, "Deck construction"),
    Double("SWIDTH", "ft", "Sheet width"),
    Double("PWIDTH", "ft", "Panel width"),
    Double("PLENGTH", "ft", "Panel length"),
    Double("SD", "ft/sq ft", "Deck seam length factor"),
    Double("KD", "lb-mole/ft-yr", "Deck seam loss per unit length factor"),
    Text("APICERT", 50, "Certification note"),
    Boolean("USER_DEF", "User-defined"),
};
constexpr IndexInfo kDeckSeamIndexes[] = {{"name", kByName, false}, {"Counter", kByCounter, false}};

constexpr FieldInfo kFittingFields[] = {
    Counter("Counter", "Row number"),
    Text("FIT_TYPE", 50, "Fitting type"),
    Text("COVR_TYPE", 50, "Fitting status"),
    Double("K_FA", "lb-mole/yr", "Loss factor KFa"),
    Double("K_FB", "lb-mole/(yr mph^m)", "Loss factor KFb"),
    Double("K_M", "", "Loss factor m"),
    Double("QUANTITY", "", "Default quantity"),
    Text("API_CERT", kFree, "Certification note"),
    Boolean("TYP_IFLT", "Typical of internal floating roofs"),
    Boolean("WELD_DECK", "For a welded deck"),
    Boolean("SELF_SUP", "For a self-supporting roof"),
    Boolean("TYP_EFLT", "Typical of external floating roofs"),
    Boolean("D_ROOF", "For a double deck roof"),
    Boolean("P_SEAL", "For the given primary seal"),
    Boolean("USER_DEF", "User-defined"),
};
constexpr IndexInfo kFittingIndexes[] = {
    {"TYPE", kByFittingStatus, false}, {"FIT_TYPE", kByFittingType, false}, {"Counter", kByCounter, false}};

// One value a month, then that of the year.
#define ORVEX_MONTHS_AND_YEAR(prefix, unit, label)                                                      \
  Double(prefix "_JAN", unit, label ", January"), Double(prefix "_FEB", unit, label ", February"),      \
      Double(prefix "_MAR", unit, label ", March"), Double(prefix "_APR", unit, label ", April"),       \
      Double(prefix "_MAY", unit, label ", May"), Double(prefix "_JUN", unit, label ", June"),          \
      Double(prefix "_JUL", unit, label ", July"), Double(prefix "_AUG", unit, label ", August"),       \
      Double(prefix "_SEP", unit, label ", September"), Double(prefix "_OCT", unit, label ", October"), \
      Double(prefix "_NOV", unit, label ", November"), Double(prefix "_DEC", unit, label ", December"), \
      Double(prefix "_ANN", unit, label ", year")

constexpr FieldInfo kMetFields[] = {
    Counter("Counter", "Row number"),
    Text("CTYST", kCityKey, "City and state"),
    Text("CITY", 50, "City"),
    Text("STATE", kState, "State"),
    Double("A_TEMP_DAA", "deg F", "Average daily ambient temperature of the year"),
    ORVEX_MONTHS_AND_YEAR("TAX", "deg F", "Daily maximum ambient temperature"),
    ORVEX_MONTHS_AND_YEAR("TAN", "deg F", "Daily minimum ambient temperature"),
    ORVEX_MONTHS_AND_YEAR("INSOL", "Btu/sq ft day", "Daily total solar insulation factor"),
    ORVEX_MONTHS_AND_YEAR("WIND", "mph", "Average wind speed"),
    Double("ATMOS_PRS", "psia", "Atmospheric pressure"),
    Boolean("USER DEF", "User-defined"),
};
#undef ORVEX_MONTHS_AND_YEAR
constexpr IndexInfo kMetIndexes[] = {{"CTYST", kByCity, false}, {"Counter", kByCounter, false}};

constexpr FieldInfo kProfileNameFields[] = {
    Counter("SPEC ID", "Profile number"),
    Text("Profile Name", 50, "Profile name"),
    Text("TYPE", kWord, "Profile type"),
    Boolean("User", "User-defined"),
};
constexpr IndexInfo kProfileNameIndexes[] = {
    {"spec id", kByProfile, false}, {"Profile Name", kByProfileName, false}, {"type", kByProfileType, false}};

constexpr FieldInfo kProfileComponentFields[] = {
    Long("SPEC ID", "Profile number"),
    Text("NAME", 50, "Chemical name"),
    Text("CAS", 10, "CAS number"),
    Double("WT_FRACT", "percent", "Liquid weight percent"),
    Double("VP_FRACT", "percent", "Vapor weight percent"),
    Double("WEIGHT", "lb", "Relative weight"),
    Double("MOLWT", "lb/lb-mole", "Liquid molecular weight"),
    Double("VP_MOLWT", "lb/lb-mole", "Vapor molecular weight"),
};
constexpr IndexInfo kProfileComponentIndexes[] = {{"Spec ID", kByProfile, false}};

constexpr FieldInfo kRimSealFields[] = {
    Counter("Counter", "Row number"),
    Text("PRIM_SEAL", kFree, "Primary seal"),
    Text("SECND_SEAL", kFree, "Secondary seal"),
    Boolean("WELDED", "For welded shells"),
    Boolean("RIVETED", "For riveted shells"),
    Double("K_RA", "lb-mole/ft-yr", "Seal factor A"),
    Double("K_RB", "lb-mole/ft-yr (mph)^n", "Seal factor B"),
    Double("N_FACTOR", "", "Seal-related wind speed exponent"),
    Boolean("EFLT", "Offered for external floating roofs"),
    Boolean("DEFT", "Offered for domed external floating roofs"),
    Boolean("IFLT", "Offered for internal floating roofs"),
    Text("API_CERT", 50, "Certification note"),
    Boolean("USER_DEF", "User-defined"),
};
constexpr IndexInfo kRimSealIndexes[] = {{"prim", kByPrimary, false},
                                         {"primsec", kBySeals, false},
                                         {"rimid", kBySealsAndShell, false},
                                         {"Counter", kByCounter, false}};

constexpr FieldInfo kImportErrorFields[] = {
    Text("IDX_ID", kFree, "Key"),
    Text("ID", 100, "Record"),
    Text("Error", kFree, "Message"),
};

constexpr TableInfo kTables[] = {
    {"chemical", kChemicalFields, kChemicalIndexes},
    {"deckseam", kDeckSeamFields, kDeckSeamIndexes},
    {"fitting", kFittingFields, kFittingIndexes},
    {"met", kMetFields, kMetIndexes},
    {"profile names", kProfileNameFields, kProfileNameIndexes},
    {"profile components", kProfileComponentFields, kProfileComponentIndexes},
    {"rimseal", kRimSealFields, kRimSealIndexes},
    {"import errors", kImportErrorFields, {}},
};

}  // namespace

std::span<const TableInfo> ReferenceTables() { return kTables; }

std::span<const TableInfo> TestedReferenceTables() { return ReferenceTables().first(std::size(kTables) - 1); }

}  // namespace orvex::store
