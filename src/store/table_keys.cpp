#include <fmt/format.h>

#include <algorithm>
#include <functional>

#include "store/letter_case.h"
#include "store/table.h"

/// Looking for rows by an index, and walking along it.
namespace orvex::store {
namespace {

std::size_t HashOf(const Value& value) {
  switch (value.GetKind()) {
    case Value::Kind::kNull:
      return 0;
    case Value::Kind::kInteger:
      return std::hash<double>()(static_cast<double>(value.RawInteger()));
    case Value::Kind::kReal:
      return std::hash<double>()(value.RawReal());
    case Value::Kind::kText:
      return HashNoCase(value.RawText());
  }
  return 0;
}

/// Equal as an index sees it: texts without regard to case.
bool EqualAsKey(const Value& a, const Value& b) {
  if (a.GetKind() == Value::Kind::kText && b.GetKind() == Value::Kind::kText)
    return EqualNoCase(a.RawText(), b.RawText());
  return a == b;
}

/// The order of an index: null, then numbers, then texts without regard to case; below 0, 0 or above 0.
int CompareAsKey(const Value& a, const Value& b) {
  const auto rank = [](const Value& value) {
    return value.IsNull() ? 0 : value.GetKind() == Value::Kind::kText ? 2 : 1;
  };
  if (rank(a) != rank(b)) return rank(a) - rank(b);
  if (rank(a) == 2) {
    const std::string x = LowerCase(a.RawText());
    const std::string y = LowerCase(b.RawText());
    return x.compare(y);
  }
  if (rank(a) == 0) return 0;
  const auto number = [](const Value& value) {
    return value.GetKind() == Value::Kind::kReal ? value.RawReal() : static_cast<double>(value.RawInteger());
  };
  return number(a) < number(b) ? -1 : number(a) > number(b) ? 1 : 0;
}

}  // namespace

std::string Table::KeyCondition(std::size_t index, std::size_t depth) const {
  std::string condition;
  for (std::size_t i = 0; i < depth; ++i) {
    condition += fmt::format("{}{} IS ?{}", i == 0 ? "" : " AND ", Quoted(indexes_[index].fields[i]), i + 1);
  }
  return condition;
}

std::string Table::Order(std::optional<std::size_t> index, bool backward) const {
  const std::string_view direction = backward ? " DESC" : "";
  std::string order;
  if (index) {
    for (const auto& field : indexes_[*index].fields) order += Quoted(field) + std::string(direction) + ", ";
  }
  return fmt::format("{}rowid{}", order, direction);
}

template <typename Build>
Statement& Table::IndexStatement(char purpose, std::size_t index, std::size_t depth, Build build) {
  auto& statement = index_statements_[(static_cast<std::uint64_t>(purpose) << 32) | (index << 8) | depth];
  if (!statement) statement = std::make_unique<Statement>(*connection_, build());
  return *statement;
}

std::optional<RowId> Table::FirstRow(Statement& statement, std::span<const Value> key) {
  const Execution execution(statement);
  statement.Bind(key);
  if (!statement.Step()) return std::nullopt;
  return statement.Integer(0);
}

Table::CachedKey& Table::KeySlot(std::vector<CachedKey>& slots, std::size_t index, std::span<const Value> key) {
  if (slots.empty()) slots.resize(kKeySlots);
  std::size_t hash = index + 0x9E3779B97F4A7C15ULL * key.size();
  for (const auto& value : key) hash = hash * 31 + HashOf(value);
  return slots[(hash ^ (hash >> 17)) % kKeySlots];
}

bool Table::Holds(const CachedKey& slot, std::size_t index, std::span<const Value> key) const {
  return connection_->InTransaction() && slot.epoch == connection_->Epoch() && slot.key_version == key_version_ &&
         slot.index == index && std::equal(key.begin(), key.end(), slot.key.begin(), slot.key.end(), EqualAsKey);
}

void Table::Remember(CachedKey& slot, std::size_t index, std::span<const Value> key) const {
  slot.epoch = connection_->Epoch();
  slot.key_version = key_version_;
  slot.index = index;
  slot.key.assign(key.begin(), key.end());
}

bool Table::IsCounter(std::size_t index, std::span<const Value> key) const {
  return key.size() == 1 && index_fields_[index][0] == counter_ && key[0].GetKind() == Value::Kind::kInteger;
}

std::optional<RowId> Table::CounterRow(std::span<const Value> key) {
  const RowId row = key[0].RawInteger();
  return Refresh(row) ? std::optional(row) : std::nullopt;
}

std::optional<RowId> Table::Seek(std::size_t index, std::span<const Value> key) {
  const auto depth = std::min(key.size(), indexes_[index].fields.size());
  key = key.first(depth);
  if (IsCounter(index, key)) return CounterRow(key);
  auto& slot = KeySlot(seeks_, index, key);
  if (Holds(slot, index, key)) return slot.first;
  auto& statement = IndexStatement('s', index, depth, [&] {
    return fmt::format("SELECT rowid FROM {0} INDEXED BY {1}{2} ORDER BY {3} LIMIT 1", Quoted(name_),
                       Quoted(name_ + "." + indexes_[index].name),
                       depth == 0 ? "" : " WHERE " + KeyCondition(index, depth), Order(index, false));
  });
  const auto first = FirstRow(statement, key);
  Remember(slot, index, key);
  slot.first = first;
  missed_ = first ? nullptr : &slot;
  return first;
}

std::shared_ptr<const std::vector<RowId>> Table::Matching(std::size_t index, std::span<const Value> key) {
  const auto depth = std::min(key.size(), indexes_[index].fields.size());
  key = key.first(depth);
  if (IsCounter(index, key)) {
    const auto row = CounterRow(key);
    return std::make_shared<const std::vector<RowId>>(row ? 1 : 0, row.value_or(0));
  }
  auto& slot = KeySlot(matches_, index, key);
  matched_ = &slot;
  if (Holds(slot, index, key)) return slot.matching;
  auto& statement = IndexStatement('m', index, depth, [&] {
    return fmt::format("SELECT rowid FROM {0} INDEXED BY {1}{2}", Quoted(name_),
                       Quoted(name_ + "." + indexes_[index].name),
                       depth == 0 ? "" : " WHERE " + KeyCondition(index, depth));
  });
  auto rows = std::make_shared<std::vector<RowId>>();
  {
    const Execution execution(statement);
    statement.Bind(key);
    while (statement.Step()) rows->push_back(statement.Integer(0));
  }
  std::sort(rows->begin(), rows->end());
  Remember(slot, index, key);
  slot.matching = rows;
  return rows;
}

std::optional<RowId> Table::EndOf(std::optional<std::size_t> index, bool last) {
  auto& statement = IndexStatement(last ? 'l' : 'f', index.value_or(indexes_.size()), 0, [&] {
    // The order of the file comes from the table itself, whatever its indexes say.
    return fmt::format("SELECT rowid FROM {}{} ORDER BY {} LIMIT 1", Quoted(name_), index ? "" : " NOT INDEXED",
                       Order(index, last));
  });
  return FirstRow(statement, {});
}

void Table::CopyKey(std::size_t index, RowId row, std::vector<Value>& key) {
  const RowValues& values = Row(row);
  const auto& positions = index_fields_[index];
  if (key.empty() && !spare_keys_.empty()) {
    key = std::move(spare_keys_.back());
    spare_keys_.pop_back();
  }
  key.resize(positions.size());
  for (std::size_t i = 0; i < positions.size(); ++i) key[i] = values[positions[i]];
}

std::optional<RowId> Table::Neighbour(std::optional<std::size_t> index, RowId row, std::span<const Value> key,
                                      bool backward) {
  const std::string_view beyond = backward ? "<" : ">";
  const std::string_view direction = backward ? " DESC" : "";
  if (!index) {
    auto& statement = IndexStatement(backward ? 'p' : 'n', indexes_.size(), 0, [&] {
      return fmt::format("SELECT rowid FROM {} NOT INDEXED WHERE rowid {} ?1 ORDER BY rowid{} LIMIT 1", Quoted(name_),
                         beyond, direction);
    });
    const Execution execution(statement);
    statement.Bind(1, row);
    if (!statement.Step()) return std::nullopt;
    return RequireBeyond(statement.Integer(0), row, {}, {}, backward);
  }

  const auto& fields = indexes_[*index].fields;
  // First among the rows with the same key, then among those that share less and less of it.
  for (std::size_t shared = key.size() + 1; shared-- > 0;) {
    const bool same_key = shared == key.size();
    const bool null = !same_key && key[shared].IsNull();
    if (null && backward) continue;  // nothing comes before null
    const char purpose = static_cast<char>((backward ? 'A' : 'a') + (null ? 1 : 0));
    auto& statement = IndexStatement(purpose, *index, shared + 1, [&] {
      std::string step;
      if (same_key) {
        step = fmt::format("rowid {} ?{}", beyond, shared + 1);
      } else if (null) {
        step = fmt::format("{} IS NOT NULL", Quoted(fields[shared]));
      } else if (backward) {
        step = fmt::format("({0} < ?{1} OR {0} IS NULL)", Quoted(fields[shared]), shared + 1);
      } else {
        step = fmt::format("{} > ?{}", Quoted(fields[shared]), shared + 1);
      }
      return fmt::format("SELECT rowid FROM {} WHERE {}{}{} ORDER BY {} LIMIT 1", Quoted(name_),
                         KeyCondition(*index, shared), shared == 0 ? "" : " AND ", step, Order(index, backward));
    });
    const Execution execution(statement);
    statement.Bind(key.first(shared));
    if (same_key) {
      statement.Bind(static_cast<int>(shared + 1), row);
    } else if (!null) {
      statement.Bind(static_cast<int>(shared + 1), key[shared]);
    }
    if (statement.Step()) return RequireBeyond(statement.Integer(0), row, key, index_fields_[*index], backward);
  }
  return std::nullopt;
}

RowId Table::RequireBeyond(RowId found, RowId row, std::span<const Value> key, std::span<const std::size_t> positions,
                           bool backward) {
  int order = 0;
  if (!positions.empty()) {
    const RowValues& values = Row(found);
    for (std::size_t i = 0; i < positions.size() && order == 0; ++i) order = CompareAsKey(values[positions[i]], key[i]);
  }
  if (order == 0) order = found < row ? -1 : found > row ? 1 : 0;
  if ((backward ? order < 0 : order > 0)) return found;
  connection_->Fail(SQLITE_CORRUPT);
}

bool Table::Covers(const CachedKey* slot, const RowValues& values) const {
  if (slot == nullptr || !Holds(*slot, slot->index, slot->key)) return false;
  const auto& positions = index_fields_[slot->index];
  return std::equal(slot->key.begin(), slot->key.end(), positions.begin(),
                    [&](const Value& key, std::size_t position) { return EqualAsKey(key, values[position]); });
}

std::int64_t Table::Count() {
  auto& statement = IndexStatement('c', indexes_.size(), 0, [&] { return "SELECT COUNT(*) FROM " + Quoted(name_); });
  return FirstRow(statement, {}).value_or(0);
}

std::int64_t Table::DeleteMatching(std::size_t index, std::span<const Value> key) {
  RequireWritable();
  const auto depth = std::min(key.size(), indexes_[index].fields.size());
  auto& statement = IndexStatement('d', index, depth, [&] {
    return fmt::format("DELETE FROM {}{}", Quoted(name_), depth == 0 ? "" : " WHERE " + KeyCondition(index, depth));
  });
  const Execution execution(statement);
  statement.Bind(key.first(depth));
  statement.Step();
  const auto deleted = static_cast<std::int64_t>(sqlite3_changes64(connection_->Handle()));
  if (deleted > 0) Forget();
  return deleted;
}

}  // namespace orvex::store
