#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "store/database.h"
#include "store/table_sink.h"

/// SELECT ... INTO in all its ways. A new table is made with the columns of the query, in the file of the query itself
/// or in what the text in front of the target tells:
///
///     [;database=PATH].          a table of another database
///     [dBase IV;database=DIR].   a file of that folder (.dbf), as for
///     [FoxPro 2.6;database=DIR].
///     [Excel 5.0;database=PATH]. a sheet of that workbook
///     [Text;database=DIR].       a file of that folder, whose whole name the target is
///
/// Whatever fails, and whenever the program is ended, the target is as it was or complete.
namespace orvex::store {

struct IntoOptions {
  Existing existing = Existing::kRefuse;
  /// A target database that is not there is made; otherwise it is error 3024.
  bool make_database = false;
  /// Other databases of the program that are open: a target in the file of one of them is written through it.
  std::span<Database* const> open = {};
  /// Told the number of rows written, from time to time; it may throw.
  std::function<void(std::int64_t rows)> progress = {};
};

struct IntoResult {
  std::int64_t rows = 0;
  std::vector<std::string> losses;  ///< what the format could not hold as it was, a sentence each
};

}  // namespace orvex::store
