#pragma once

#include <cstdint>
#include <string_view>

#include "store/database.h"

namespace orvex::entry {

/// Whether another tank than this one has the identification, whatever the case of its letters: by it tanks are looked
/// up in lists and reports.
[[nodiscard]] bool HasOtherTank(store::Database& client, std::string_view user_id, std::int32_t ID);

}  // namespace orvex::entry
