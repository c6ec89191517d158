#include <fmt/format.h>

#include <cmath>
#include <limits>

#include "store/number_text.h"
#include "store/run_time_error.h"
#include "store/table.h"
#include "store/utf8.h"

/// Values as the fields store them.
namespace orvex::store {

void Table::Convert(std::size_t field, double value, Value& stored) const {
  const auto& definition = fields_[field];
  const auto overflow = [&](std::string_view what) {
    throw RunTimeError(
        ErrorNumber::kOverflow,
        fmt::format("Overflow: the value for the field '{}' of the table '{}' {}.", definition.name, name_, what));
  };
  if (!std::isfinite(value)) overflow("is not a finite number");
  switch (definition.type) {
    case FieldType::kDouble:
      stored.SetReal(value);
      return;
    case FieldType::kBoolean:
      stored.SetInteger(value != 0 ? -1 : 0);
      return;
    case FieldType::kLong:
    case FieldType::kCounter: {
      const double whole = std::nearbyint(value);  // halves to the even neighbour
      if (whole < std::numeric_limits<std::int32_t>::min() || whole > std::numeric_limits<std::int32_t>::max()) {
        overflow("is outside the range of a whole number");
      }
      stored.SetInteger(static_cast<std::int64_t>(whole));
      return;
    }
    case FieldType::kText:
      Convert(field, std::string_view(Value(value).AsText()), stored);
      return;
  }
}

void Table::Convert(std::size_t field, std::string_view value, Value& stored) const {
  const auto& definition = fields_[field];
  if (definition.type == FieldType::kText) {
    const auto width = static_cast<std::size_t>(definition.width);
    if (width > 0 && value.size() > width && CharacterCount(value) > width) {
      throw RunTimeError(
          ErrorNumber::kTextTooLong,
          fmt::format("The text is too long for the field '{}' of the table '{}', which holds {} characters.",
                      definition.name, name_, width));
    }
    stored.SetText(value);
    return;
  }
  const auto number = ParseNumber(value);
  if (!number) {
    throw RunTimeError(
        ErrorNumber::kDataConversion,
        fmt::format("The field '{}' of the table '{}' holds numbers, not \"{}\".", definition.name, name_, value));
  }
  Convert(field, *number, stored);
}

void Table::Convert(std::size_t field, const Value& value, Value& stored) const {
  switch (value.GetKind()) {
    case Value::Kind::kNull:
      stored.SetNull();
      return;
    case Value::Kind::kText:
      Convert(field, std::string_view(value.RawText()), stored);
      return;
    case Value::Kind::kInteger:
    case Value::Kind::kReal:
      if (fields_[field].type == FieldType::kText) {
        Convert(field, std::string_view(value.AsText()), stored);
      } else {
        Convert(field,
                value.GetKind() == Value::Kind::kReal ? value.RawReal() : static_cast<double>(value.RawInteger()),
                stored);
      }
      return;
  }
}

}  // namespace orvex::store
