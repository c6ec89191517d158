#pragma once

#include "store/field_table.h"

/// Short ways to write the rows of a field table.
namespace orvex::store::fields {

// Widths. A text whose length the format settles stands in its table as a number; the others are as wide as a text
// field may be where a person types or imports freely, and comfortable for the longest word where the program chooses.
inline constexpr int kFree = 255;
inline constexpr int kWord = 60;
inline constexpr int kMessage = 500;  // the longest message with the longest mixture name has 369 characters
inline constexpr int kName = 50;
inline constexpr int kState = 50;
inline constexpr int kCityKey = kName + 2 + kState;  // city, comma, blank, state

constexpr FieldInfo Counter(std::string_view name, std::string_view label) {
  return {name, FieldType::kCounter, 0, "", label};
}

constexpr FieldInfo Long(std::string_view name, std::string_view label) {
  return {name, FieldType::kLong, 0, "", label};
}

constexpr FieldInfo Double(std::string_view name, std::string_view unit, std::string_view label) {
  return {name, FieldType::kDouble, 0, unit, label};
}

constexpr FieldInfo Boolean(std::string_view name, std::string_view label) {
  return {name, FieldType::kBoolean, 0, "", label};
}

constexpr FieldInfo Text(std::string_view name, int width, std::string_view label) {
  return {name, FieldType::kText, width, "", label};
}

}  // namespace orvex::store::fields
