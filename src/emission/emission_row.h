#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "shell/session.h"

/// Writing rows of `emission`.
namespace orvex::emission {

/// The row of this key, open for editing, or a new one where there is none; its key fields are set.
store::RecordSet OpenEmissionRow(shell::Session& session, std::int32_t ID, std::int32_t MixID, std::string_view name,
                                 std::string_view Month, bool primary);

using FieldNames = std::span<const std::string_view>;

/// Copy fields that both rows know under the same name; null is written as an empty text, 0 or false.
void CopyTexts(store::RecordSet& from, store::RecordSet& row, FieldNames fields);
void CopyNumbers(store::RecordSet& from, store::RecordSet& row, FieldNames fields);
void CopyFlags(store::RecordSet& from, store::RecordSet& row, FieldNames fields);
void SetZero(store::RecordSet& row, FieldNames fields);

/// Writes the CAS number without the blanks around it; an empty text leaves the field as it is.
void SetCas(store::RecordSet& row, std::string_view text);

/// What identifies the tank in every row.
inline constexpr std::array<std::string_view, 7> kTankIdentity = {"TANK_TYPE", "USER ID", "CITY",     "STATE",
                                                                  "COMPANY",   "DESC",    "MET CTYST"};
/// What a row of a whole mixture does not have: the shares of a component.
inline constexpr std::array<std::string_view, 5> kComponentShares = {"MOLES", "L_WT_FRACT", "V_WT_FRACT", "L_MO_FRACT",
                                                                     "V_MO_FRACT"};

}  // namespace orvex::emission
