#include "store/table.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

#include "store/letter_case.h"
#include "store/number_text.h"
#include "store/run_time_error.h"
#include "store/utf8.h"

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

[[noreturn]] void ThrowDeleted() { throw RunTimeError(ErrorNumber::kRecordDeleted, "Record is deleted."); }

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

Table::Table(std::shared_ptr<Connection> connection, std::string_view name)
    : connection_(std::move(connection)), rows_(kRowSlots) {
  Statement find(*connection_, "SELECT name FROM sqlite_master WHERE type = 'table' AND name = ?1 COLLATE NOCASE");
  const Value wanted(name);
  find.Bind(1, wanted);
  if (!find.Step()) {
    throw RunTimeError(ErrorNumber::kObjectNotFound,
                       fmt::format("The table '{}' was not found in {}.", name, connection_->Path().string()));
  }
  name_ = find.Text(0);
  ReadDefinition();
}

void Table::ReadDefinition() {
  Statement fields(*connection_, "PRAGMA table_info(" + Quoted(name_) + ")");
  while (fields.Step()) {
    int width = 0;
    const FieldType type = TypeOf(fields.Text(2), fields.Integer(5) != 0, width);
    if (type == FieldType::kCounter) counter_ = fields_.size();
    positions_.Add(fields.Text(1));
    fields_.push_back({fields.Text(1), type, width});
  }
  indexed_.resize(fields_.size());
  followers_.resize(fields_.size() + 1);
  std::iota(followers_.begin(), followers_.end(), 0);
  Statement indexes(*connection_, "PRAGMA index_list(" + Quoted(name_) + ")");
  const std::string prefix = LowerCase(name_) + ".";
  while (indexes.Step()) {
    const std::string full_name = indexes.Text(1);
    if (!LowerCase(full_name).starts_with(prefix)) continue;  // not one of the table's own
    StoredIndex index{full_name.substr(prefix.size()), {}, indexes.Integer(2) != 0};
    std::vector<std::size_t> positions;
    Statement columns(*connection_, "PRAGMA index_info(" + Quoted(full_name) + ")");
    while (columns.Step()) {
      const auto position = positions_.Find(columns.Text(2));
      if (!position) break;  // an expression or a hidden column: the fields before it serve
      positions.push_back(*position);
      index.fields.push_back(fields_[*position].name);
      indexed_[*position] = true;
    }
    if (positions.empty()) continue;
    indexes_.push_back(std::move(index));
    index_fields_.push_back(std::move(positions));
  }
}

std::string Table::FieldList() const {
  std::string list;
  for (const auto& field : fields_) list += (list.empty() ? "" : ", ") + Quoted(field.name);
  return list;
}

std::string Table::NameError(std::string_view what, std::string_view name) const {
  return fmt::format("The {} '{}' was not found in the table '{}' of {}.", what, name, name_,
                     connection_->Path().string());
}

std::size_t Table::FindField(std::string_view name, std::size_t& hint) {
  const auto found = positions_.Find(name);
  if (!found) throw RunTimeError(ErrorNumber::kItemNotFound, NameError("field", name));
  followers_[hint] = *found;
  hint = *found + 1;
  return *found;
}

std::size_t Table::IndexNumber(std::string_view name) const {
  for (std::size_t i = 0; i < indexes_.size(); ++i) {
    if (EqualNoCase(indexes_[i].name, name)) return i;
  }
  throw RunTimeError(ErrorNumber::kItemNotFound, NameError("index", name));
}

// Keys ----------------------------------------------------------------------------------------------------------------

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

std::int64_t Table::Count() {
  auto& statement = IndexStatement('c', indexes_.size(), 0, [&] { return "SELECT COUNT(*) FROM " + Quoted(name_); });
  return FirstRow(statement, {}).value_or(0);
}

// Rows ----------------------------------------------------------------------------------------------------------------

bool Table::Holds(const CachedRow& slot, RowId row) const {
  return slot.version == version_ && slot.row == row && slot.epoch == connection_->Epoch();
}

bool Table::Load(CachedRow& slot, RowId row) {
  if (!read_) {
    read_ = std::make_unique<Statement>(*connection_,
                                        "SELECT " + FieldList() + " FROM " + Quoted(name_) + " WHERE rowid = ?1");
  }
  const Execution execution(*read_);
  read_->Bind(1, row);
  slot.version = 0;
  if (!read_->Step()) return false;
  slot.values.resize(fields_.size());
  for (std::size_t i = 0; i < fields_.size(); ++i) read_->Read(static_cast<int>(i), slot.values[i]);
  slot.row = row;
  slot.version = version_;
  slot.epoch = connection_->Epoch();
  return true;
}

const RowValues& Table::Row(RowId row) {
  auto& slot = Slot(row);
  if (!Holds(slot, row) && !Load(slot, row)) ThrowDeleted();
  return slot.values;
}

bool Table::Refresh(RowId row) {
  auto& slot = Slot(row);
  return (connection_->InTransaction() && Holds(slot, row)) || Load(slot, row);
}

void Table::RequireWritable() const {
  if (connection_->ReadOnly()) connection_->Fail(SQLITE_READONLY);
  connection_->RequireTransactionAlive();
}

void Table::RequireWritten(RowId row) {
  if (sqlite3_changes64(connection_->Handle()) > 0) return;
  Slot(row).version = 0;  // another program deleted it
  ThrowDeleted();
}

bool Table::Covers(const CachedKey* slot, const RowValues& values) const {
  if (slot == nullptr || !Holds(*slot, slot->index, slot->key)) return false;
  const auto& positions = index_fields_[slot->index];
  return std::equal(slot->key.begin(), slot->key.end(), positions.begin(),
                    [&](const Value& key, std::size_t position) { return EqualAsKey(key, values[position]); });
}

RowId Table::Insert(RowValues& values) {
  RequireWritable();
  if (!insert_) {
    std::string marks;
    for (std::size_t i = 0; i < fields_.size(); ++i) marks += fmt::format("{}?{}", i == 0 ? "" : ", ", i + 1);
    insert_ = std::make_unique<Statement>(
        *connection_, fmt::format("INSERT INTO {} ({}) VALUES ({})", Quoted(name_), FieldList(), marks));
  }
  {
    const Execution execution(*insert_);
    insert_->Bind(values);
    insert_->Step();
  }
  const RowId row = sqlite3_last_insert_rowid(connection_->Handle());
  if (counter_) values[*counter_].SetInteger(row);
  // Whoever looks for a row and adds it when there is none mostly looks for it again, or for its like.
  CachedKey* const missed = std::exchange(missed_, nullptr);
  const bool is_missed = Covers(missed, values);
  const bool is_listed = Covers(matched_, values) && (matched_->matching->empty() || matched_->matching->back() < row);
  ++key_version_;
  if (is_missed) {
    missed->first = row;
    missed->key_version = key_version_;
  }
  if (is_listed) {
    if (matched_->matching.use_count() > 1)
      matched_->matching = std::make_shared<std::vector<RowId>>(*matched_->matching);
    matched_->matching->push_back(row);
    matched_->key_version = key_version_;
  }
  auto& slot = Slot(row);
  slot.values.swap(values);
  slot.row = row;
  slot.version = version_;
  slot.epoch = connection_->Epoch();
  return row;
}

void Table::Update(RowId row, RowValues& values) {
  RequireWritable();
  const RowValues& stored = Row(row);
  if (counter_ && !(stored[*counter_] == values[*counter_])) {
    throw RunTimeError(ErrorNumber::kOperationNotSupported,
                       fmt::format("The field '{}' of the table '{}' is a counter and cannot be changed.",
                                   fields_[*counter_].name, name_));
  }
  std::string changed(fields_.size(), '.');
  bool any = false;
  bool key_changed = false;
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    if (stored[i] == values[i]) continue;
    changed[i] = 'x';
    any = true;
    key_changed = key_changed || indexed_[i];
  }
  if (!any) return;
  auto& statement = update_statements_[changed];
  if (!statement) {
    std::string assignments;
    int parameter = 1;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      if (changed[i] != 'x') continue;
      assignments += fmt::format("{}{} = ?{}", parameter == 1 ? "" : ", ", Quoted(fields_[i].name), parameter);
      ++parameter;
    }
    statement = std::make_unique<Statement>(
        *connection_, fmt::format("UPDATE {} SET {} WHERE rowid = ?{}", Quoted(name_), assignments, parameter));
  }
  {
    const Execution execution(*statement);
    int parameter = 1;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      if (changed[i] == 'x') statement->Bind(parameter++, values[i]);
    }
    statement->Bind(parameter, row);
    statement->Step();
  }
  RequireWritten(row);
  if (key_changed) ++key_version_;
  Slot(row).values.swap(values);
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

void Table::Delete(RowId row) {
  RequireWritable();
  if (!delete_) {
    delete_ = std::make_unique<Statement>(*connection_, "DELETE FROM " + Quoted(name_) + " WHERE rowid = ?1");
  }
  {
    const Execution execution(*delete_);
    delete_->Bind(1, row);
    delete_->Step();
  }
  RequireWritten(row);
  ++key_version_;
  Slot(row).version = 0;
}

// Conversion ----------------------------------------------------------------------------------------------------------

void Table::Convert(std::size_t field, double value, Value& stored) const {
  const auto& definition = fields_[field];
  const auto overflow = [&](std::string_view what) {
    throw RunTimeError(
        ErrorNumber::kOverflow,
        fmt::format("Overflow: the value for the field '{}' of the table '{}' {}.", definition.name, name_, what));
  };
  if (!std::isfinite(value)) overflow("is not a finite number");
  switch (definition.type) {
    case FieldType::kDouble:
      stored.SetReal(value);
      return;
    case FieldType::kBoolean:
      stored.SetInteger(value != 0 ? -1 : 0);
      return;
    case FieldType::kLong:
    case FieldType::kCounter: {
      const double whole = std::nearbyint(value);  // halves to the even neighbour
      if (whole < std::numeric_limits<std::int32_t>::min() || whole > std::numeric_limits<std::int32_t>::max()) {
        overflow("is outside the range of a whole number");
      }
      stored.SetInteger(static_cast<std::int64_t>(whole));
      return;
    }
    case FieldType::kText:
      Convert(field, std::string_view(Value(value).AsText()), stored);
      return;
  }
}

void Table::Convert(std::size_t field, std::string_view value, Value& stored) const {
  const auto& definition = fields_[field];
  if (definition.type == FieldType::kText) {
    const auto width = static_cast<std::size_t>(definition.width);
    if (width > 0 && value.size() > width && CharacterCount(value) > width) {
      throw RunTimeError(
          ErrorNumber::kTextTooLong,
          fmt::format("The text is too long for the field '{}' of the table '{}', which holds {} characters.",
                      definition.name, name_, width));
    }
    stored.SetText(value);
    return;
  }
  const auto number = ParseNumber(value);
  if (!number) {
    throw RunTimeError(
        ErrorNumber::kDataConversion,
        fmt::format("The field '{}' of the table '{}' holds numbers, not \"{}\".", definition.name, name_, value));
  }
  Convert(field, *number, stored);
}

void Table::Convert(std::size_t field, const Value& value, Value& stored) const {
  switch (value.GetKind()) {
    case Value::Kind::kNull:
      stored.SetNull();
      return;
    case Value::Kind::kText:
      Convert(field, std::string_view(value.RawText()), stored);
      return;
    case Value::Kind::kInteger:
    case Value::Kind::kReal:
      if (fields_[field].type == FieldType::kText) {
        Convert(field, std::string_view(value.AsText()), stored);
      } else {
        Convert(field,
                value.GetKind() == Value::Kind::kReal ? value.RawReal() : static_cast<double>(value.RawInteger()),
                stored);
      }
      return;
  }
}

RowValues Table::TakeBuffer() {
  if (spare_buffers_.empty()) return RowValues(fields_.size());
  RowValues buffer = std::move(spare_buffers_.back());
  spare_buffers_.pop_back();
  buffer.resize(fields_.size());
  return buffer;
}

}  // namespace orvex::store
