#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "store/table_sink.h"

/// Targets of SELECT ... INTO that are tables of a database. A table is made under another name and takes the place of
/// one that is there at the end, in one transaction, so that even its own rows can be the ones written.
namespace orvex::store {

/// A table of a database that is open elsewhere; it must outlive the sink. Errors: 3010 (see `Existing`), 3027, 3125 no
/// table can have the name, 3260.
std::unique_ptr<TableSink> MakeTableSink(Database& database, const std::string& name,
                                         const std::vector<StoredField>& fields, Existing existing);

/// A table of a database that was opened for this.
std::unique_ptr<TableSink> MakeTableSink(std::unique_ptr<Database> database, const std::string& name,
                                         const std::vector<StoredField>& fields, Existing existing);

/// The only table of a database that is made for it.
std::unique_ptr<TableSink> MakeNewDatabaseSink(const std::filesystem::path& path, const std::string& name,
                                               const std::vector<StoredField>& fields);

}  // namespace orvex::store
