#pragma once

#include <string>

namespace orvex::store {

/// The globals of a new workbook without the records of sheets and the end: code page 1252, one plain look for all
/// cells.
std::string NewBiffGlobals();

}  // namespace orvex::store
