#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "store/record_set.h"

/// What the first page of a Detail report tells of a tank: groups of elements, by tank type.
namespace orvex::reports {

/// How an element shows its field.
enum class Shown : std::uint8_t {
  kText,
  kTextOrEmpty,  ///< a null gives an empty element
  kNumber,       ///< "#,##0.00"; a field that holds a text stands unchanged
  kFlag,         ///< "Y" or "N"
  kLiteral,      ///< the word in place of the field name, whatever the tank holds
};

/// Whether a tank has an element; none means every tank.
using Condition = bool (*)(store::RecordSet& tank);

struct IdentificationElement {
  const char* name;
  std::string_view field;  ///< of the table `tank`
  Shown how;
  Condition condition = nullptr;
};

struct IdentificationGroup {
  const char* name;
  std::span<const IdentificationElement> elements;
};

/// The groups of one tank type.
struct IdentificationForm {
  std::string_view tank_type;
  std::span<const IdentificationGroup> groups;
  bool has_deck_fittings;
};

/// The elements of the group `Identification`, which all types have.
std::span<const IdentificationElement> IdentificationElements();

/// The form of a tank type, blanks at its ends and letter case aside; none for a type that is none of the five.
const IdentificationForm* FindIdentificationForm(std::string_view tank_type);

}  // namespace orvex::reports
