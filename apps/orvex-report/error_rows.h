#pragma once

#include <iosfwd>
#include <string_view>

#include "store/database.h"

namespace orvex::report_app {

/// Prints each row of `error`, behind `head`, as "USER ID: text".
void PrintErrorRows(store::Database& client, std::string_view head, std::ostream& out);

}  // namespace orvex::report_app
