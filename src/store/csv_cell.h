#pragma once

#include "store/csv.h"
#include "store/value.h"

namespace orvex::store {

/// A field's content as a CSV file holds it. A null is no cell, numbers are the shortest text that reads back as the
/// same number, Booleans are -1 and 0, and a text is never changed.
CsvCell ToCell(const Value& value);

}  // namespace orvex::store
