#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "store/database.h"

namespace orvex::test {

/// The rows of a query as texts: these fields parted by bars, "-" for null.
inline std::vector<std::string> QueryRows(store::Database& database, const std::string& sql,
                                          std::initializer_list<std::string_view> fields) {
  std::vector<std::string> rows;
  for (auto set = database.OpenQuery(sql); !set.AtEnd(); set.MoveNext()) {
    std::string row;
    for (const auto field : fields) row += (row.empty() ? "" : "|") + (set.IsNull(field) ? "-" : set.Text(field));
    rows.push_back(std::move(row));
  }
  return rows;
}

using Rows = std::vector<std::string>;

}  // namespace orvex::test
