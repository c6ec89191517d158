#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/database.h"
#include "store/dialect.h"

namespace orvex::store {

class Statement;

/// The statement that makes a table. Texts compare without regard to case.
std::string TableDefinition(std::string_view name, const std::vector<StoredField>& fields);

/// The statement that makes an index; it is stored as "<table>.<index>", since names of indexes are per table here.
std::string IndexDefinition(std::string_view table, const StoredIndex& index);

/// Carries out SELECT ... INTO with its prepared and bound query: a new table with the columns of the query, in this
/// file or, with `;database=path` in front of the target, in another one. The number of rows; error 3010 if the target
/// exists, 3170 for another file format.
std::int64_t SelectInto(Statement& select, Database& database, const Translation& translation);

}  // namespace orvex::store
