#include "store/csv_cell.h"

#include <string>

#include "store/number_text.h"

namespace orvex::store {
CsvCell ToCell(const Value& value) {
  switch (value.GetKind()) {
    case Value::Kind::kInteger:
      return std::to_string(value.RawInteger());
    case Value::Kind::kReal:
      return ShortestNumber(value.RawReal());
    case Value::Kind::kText:
      return value.RawText();
    default:
      return std::nullopt;
  }
}

}  // namespace orvex::store
