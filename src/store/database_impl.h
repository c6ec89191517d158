#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "store/connection.h"
#include "store/database.h"
#include "store/dialect.h"
#include "store/letter_case.h"
#include "store/table.h"

namespace orvex::store {

struct Database::Impl {
  explicit Impl(std::shared_ptr<Connection> the_connection) : connection(std::move(the_connection)) {}

  /// The table, read from the file when it is first asked for; error 3011.
  std::shared_ptr<Table> GetTable(std::string_view name);
  /// Prepares a translated query; errors 3011, 3061, 3075 with the query's text.
  Statement& Prepare(const std::string& sqlite_sql, std::string_view query);

  std::shared_ptr<Connection> connection;
  std::unordered_map<std::string, std::shared_ptr<Table>, NameHash, NameEqual> tables;
  std::uint64_t undone = 0;  ///< transactions undone when they were looked over
};

/// A query of the dialect and what it means.
struct Query {
  std::string text;
  Translation translation;
};

/// What a keyed set or snapshot reads again on Requery.
struct RowSource {
  std::unique_ptr<const Query> query;  ///< or, without one,
  std::size_t index = 0;               ///< an index of the table
  std::vector<Value> key;              ///< and the beginning of its key
};

}  // namespace orvex::store
