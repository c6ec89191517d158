#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "shell/session.h"

/// Copying tables from one database to another, record by record.
namespace orvex::shell {

/// A table of a database.
struct TableOf {
  store::Database& database;
  std::string table;
};

/// Makes the target as a table with the fields (names, types, widths, defaults) and indexes of the source. False when
/// it failed, which the person has been told then.
bool CopyStruct(Session& session, const TableOf& source, const TableOf& target);

/// Called with the number of records that are done.
using RecordsDone = std::function<void(std::int64_t)>;

/// Adds all records of the source to the target, whose fields have the same names. Written after each 1000 records; a
/// failure undoes the last of them. False when it failed, which the person has been told then.
bool CopyData(Session& session, const TableOf& source, const TableOf& target, const RecordsDone& written = {});

/// Error 3049 unless the records of the target are what `CopyData` makes of those of the source.
void RequireSameData(const TableOf& source, const TableOf& target, const RecordsDone& compared);

}  // namespace orvex::shell
