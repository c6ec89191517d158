#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/database.h"

namespace orvex::store {

class Connection;

/// The statement that makes a table. Texts compare without regard to case.
std::string TableDefinition(std::string_view name, const std::vector<StoredField>& fields);

/// The statement that makes an index; it is stored as "<table>.<index>", since names of indexes are per table here.
std::string IndexDefinition(std::string_view table, const StoredIndex& index);

/// Gives a table without indexes another name.
void RenameTable(Connection& connection, std::string_view from, std::string_view to);

}  // namespace orvex::store
