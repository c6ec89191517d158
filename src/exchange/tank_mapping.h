#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "shell/choices.h"
#include "shell/tank_types.h"

/// How the records of the previous version's files become rows of the client database.
namespace orvex::exchange {

/// What becomes of a blank, which tells what the field holds, too.
enum class Blank : std::uint8_t {
  kStays,    ///< a text
  kIsZero,   ///< a number
  kIsFalse,  ///< a flag
};

/// A field that is copied.
struct FieldCopy {
  std::string_view target, source;
  Blank blank = Blank::kStays;
};

inline constexpr FieldCopy kTankFields[] = {
    {"CITY", "TCITY"},
    {"STATE", "TSTATE"},
    {"COMPANY", "COMPANY"},
    {"DESC", "DESC"},
    {"ATMOS_PRS", "ATMOS_PRS", Blank::kIsZero},
    {"DIAMETER", "DIAMETER", Blank::kIsZero},
    {"HEIGHT S", "HEIGHT_S", Blank::kIsZero},
    {"HEIGHT ML", "HEIGHT_L", Blank::kIsZero},
    {"HEIGHT AL", "HEIGHT_AL", Blank::kIsZero},
    {"VOLUME", "VOLUME", Blank::kIsZero},
    {"VENT_P", "VENT_P", Blank::kIsZero},
    {"VENT_V", "VENT_V", Blank::kIsZero},
    {"SHL_COND", "S_COND"},
    {"PT_COND", "PT_COND"},
    {"RF_COND", "RF_COND"},
    {"RF_TYPE", "RF_TYPE"},
    {"RF_HEIGHT", "HEIGHT_R", Blank::kIsZero},
    {"D_RADIUS", "D_RADIUS", Blank::kIsZero},
    {"C_SLOPE", "C_SLOPE", Blank::kIsZero},
    {"TURNOVER", "TURNOVER", Blank::kIsZero},
    {"RIM_PRIM", "RIM_PRIM"},
    {"RIM_SEC", "RIM_SEC"},
    {"FITTING", "FITTING"},
    {"DECK_TYPE", "DECK_TYPE"},
    {"DECK_SEAM_LENGTH", "DECK_SEAM", Blank::kIsZero},
    {"COL_NO", "COL_NO", Blank::kIsZero},
    {"COL_DIAM", "COL_DIAM", Blank::kIsZero},
    {"HEATED", "HEATED", Blank::kIsFalse},
    {"SELF_SUP", "SELF_SUP", Blank::kIsFalse},
    {"UNDER", "UNDER", Blank::kIsFalse},
};
/// What else is read of a tank.
inline constexpr std::string_view kTankSources[] = {"IDX_ID", "ID",       "TANK_TYPE", "CITY",  "STATE",    "TCOLOR",
                                                    "SHADE",  "RF_COLOR", "RF_SHADE",  "Q_NET", "CONSTRUCT"};

/// A field that is made of two.
struct JoinedFields {
  std::string_view target, first, separator, second;
  bool needs_first;  ///< stays blank without the first of them
};
inline constexpr JoinedFields kJoinedTankFields[] = {
    {"MET CTYST", "CITY", ", ", "STATE", false},
    {"SHL COLSHD", "TCOLOR", "/", "SHADE", true},
    {"RF_COLSHD", "RF_COLOR", "/", "RF_SHADE", true},
};

/// What the previous version's `CONSTRUCT` of a tank tells of.
enum class Construct : std::uint8_t { kNothing, kDeck, kShell };

/// A tank type as both versions name it.
struct ImportedType {
  std::string_view source, target;
  bool has_throughput;  ///< otherwise it is the volume times the turnovers
  bool has_rim_seal;
  Construct construct;
};
inline constexpr ImportedType kImportedTypes[] = {
    {"Vertical Fixed Roof", shell::kVerticalFixedRoof, true, false, Construct::kNothing},
    {"Horizontal Fixed Roof", shell::kHorizontal, true, false, Construct::kNothing},
    {"Internal Floating Roof", shell::kInternalFloatingRoof, false, true, Construct::kDeck},
    {"External Floating Roof", shell::kExternalFloatingRoof, false, true, Construct::kShell},
    {"Domed External Floating Roof", shell::kDomedExternalFloatingRoof, false, true, Construct::kShell},
};

inline constexpr std::string_view kBolted = "Bolted";

/// A deck seam by a mark in the text of the deck's construction; the first whose mark is there counts.
struct ImportedSeam {
  std::string_view construct, mark, name;
};
inline constexpr ImportedSeam kImportedSeams[] = {
    {shell::kSheet, "5", "Sheet: 5 Ft Wide"},  {shell::kSheet, "6", "Sheet: 6 Ft Wide"},
    {shell::kSheet, "7", "Sheet: 7 Ft Wide"},  {shell::kPanel, "7.5", "Panel: 5 x 7.5 Ft"},
    {shell::kPanel, "12", "Panel: 5 x 12 Ft"},
};

inline constexpr FieldCopy kMixtureFields[] = {
    {"MIX NAME", "NAME"},
    {"CAS", "CAS"},
    {"C_CATEGORY", "C_CATEGORY"},
    {"COMPONENT", "COMPONENT"},
    {"SPEC_OPT", "SPEC_OPT"},
    {"ALS_TEMP", "ALS_TEMP", Blank::kIsZero},
    {"MLS_TEMP", "MLS_TEMP", Blank::kIsZero},
    {"XLS_TEMP", "XLS_TEMP", Blank::kIsZero},
    {"BULK_TEMP", "BULK_TEMP", Blank::kIsZero},
    {"VP", "VP", Blank::kIsZero},
    {"VP_MIN", "VP_MIN", Blank::kIsZero},
    {"VP_MAX", "VP_MAX", Blank::kIsZero},
    {"MOLWT", "MOLWT", Blank::kIsZero},
    {"VP_MOLWT", "VP_MOLWT", Blank::kIsZero},
    {"L_DENS", "L_DENS", Blank::kIsZero},
    {"JANUARY", "JANUARY", Blank::kIsFalse},
    {"FEBRUARY", "FEBRUARY", Blank::kIsFalse},
    {"MARCH", "MARCH", Blank::kIsFalse},
    {"APRIL", "APRIL", Blank::kIsFalse},
    {"MAY", "MAY", Blank::kIsFalse},
    {"JUNE", "JUNE", Blank::kIsFalse},
    {"JULY", "JULY", Blank::kIsFalse},
    {"AUGUST", "AUGUST", Blank::kIsFalse},
    {"SEPTEMBER", "SEPTEMBER", Blank::kIsFalse},
    {"OCTOBER", "OCTOBER", Blank::kIsFalse},
    {"NOVEMBER", "NOVEMBER", Blank::kIsFalse},
    {"DECEMBER", "DECEMBER", Blank::kIsFalse},
    {"JAN_THRU", "JAN_THRU", Blank::kIsZero},
    {"FEB_THRU", "FEB_THRU", Blank::kIsZero},
    {"MAR_THRU", "MAR_THRU", Blank::kIsZero},
    {"APR_THRU", "APR_THRU", Blank::kIsZero},
    {"MAY_THRU", "MAY_THRU", Blank::kIsZero},
    {"JUN_THRU", "JUN_THRU", Blank::kIsZero},
    {"JUL_THRU", "JUL_THRU", Blank::kIsZero},
    {"AUG_THRU", "AUG_THRU", Blank::kIsZero},
    {"SEP_THRU", "SEP_THRU", Blank::kIsZero},
    {"OCT_THRU", "OCT_THRU", Blank::kIsZero},
    {"NOV_THRU", "NOV_THRU", Blank::kIsZero},
    {"DEC_THRU", "DEC_THRU", Blank::kIsZero},
};
inline constexpr std::string_view kMixtureSources[] = {"IDX_ID", "MIX_ID"};

inline constexpr FieldCopy kFittingFields[] = {
    {"COVR_TYPE", "COVR_TYPE"},     {"K_FA", "K_FA", Blank::kIsZero},         {"K_FB", "K_FB", Blank::kIsZero},
    {"K_M", "K_M", Blank::kIsZero}, {"QUANTITY", "QUANTITY", Blank::kIsZero},
};
inline constexpr std::string_view kFittingSources[] = {"IDX_ID", "FIT_TYPE"};

/// A fitting type that was spelled otherwise.
struct RenamedFitting {
  std::string_view source, target;
};
inline constexpr RenamedFitting kRenamedFittings[] = {
    {"Ladder Well (36-in Diam.)", "Ladder Well (36-in. Diam.)"},
    {"Column Well (24-in. Diameter)", "Column Well (24-in. Diam.)"},
};

inline constexpr FieldCopy kComponentFields[] = {
    {"NAME", "NAME"},
    {"WT_FRACT", "WT_FRACT", Blank::kIsZero},
    {"VP_FRACT", "VP_FRACT", Blank::kIsZero},
    {"WEIGHT", "WEIGHT", Blank::kIsZero},
    {"ALS_TEMP", "ALS_TEMP", Blank::kIsZero},
    {"VP", "VP", Blank::kIsZero},
};
inline constexpr std::string_view kComponentSources[] = {"IDX_ID", "MIX_ID"};
/// What a component has from its row of the table `chemical`.
inline constexpr std::string_view kChemicalFields[] = {"CAS", "MOLWT", "L_DENS", "VP_MOLWT"};

/// The type of this name in the previous version; null for any other text.
constexpr const ImportedType* FindImportedType(std::string_view source) {
  for (const auto& type : kImportedTypes) {
    if (type.source == source) return &type;
  }
  return nullptr;
}

/// A fitting type as the table `fitting` spells it.
constexpr std::string_view FittingType(std::string_view source) {
  for (const auto& renamed : kRenamedFittings) {
    if (renamed.source == source) return renamed.target;
  }
  return source;
}

}  // namespace orvex::exchange
