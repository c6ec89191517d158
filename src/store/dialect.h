#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/value.h"

/// The program's SQL dialect, translated in this one place. What differs from SQLite's SQL:
/// - `DISTINCTROW` (no duplicates of whole records: nothing to do where a query reads one table), `DELETE * FROM`;
/// - names in brackets (`[USER ID]`), names that are keywords elsewhere (`PRIMARY`, `MONTH`), `table!field`;
/// - texts in single or double quotes, `True` = -1 and `False` = 0, `&` joins texts and takes null as an empty one;
/// - `Like` with `*`, `?`, `#` and lists; `cvdate`;
/// - names in brackets may hold a closing one, doubled;
/// - `SELECT ... INTO`, with an optional `[;database=path].` or format in front of the target (store/select_into.h);
/// - GROUP BY gives its groups in order.
/// Numbers and texts become parameters, so that texts which differ in a key only share a prepared statement.
namespace orvex::store {

enum class QueryKind : std::uint8_t {
  kWholeRows,  ///< all fields of one table: `sql` selects the row ids
  kRows,       ///< anything else that gives rows
  kDelete,
  kSelectInto,  ///< `sql` selects what is written to `target_table`
};

struct Translation {
  QueryKind kind = QueryKind::kRows;
  std::string sql;
  std::vector<Value> parameters;
  std::string table;           ///< the table read (whole rows) or deleted from
  std::string target_connect;  ///< text in front of the target of SELECT ... INTO, without its brackets
  std::string target_table;
};

/// Error 3075 for anything the dialect does not allow, with the query's text.
Translation TranslateSql(std::string_view query);

}  // namespace orvex::store
