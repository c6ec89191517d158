#include <fmt/format.h>

#include <utility>

#include "store/run_time_error.h"
#include "store/table.h"

/// Reading and writing rows.
namespace orvex::store {
namespace {

[[noreturn]] void ThrowDeleted() { throw RunTimeError(ErrorNumber::kRecordDeleted, "Record is deleted."); }

}  // namespace

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

RowValues Table::TakeBuffer() {
  if (spare_buffers_.empty()) return RowValues(fields_.size());
  RowValues buffer = std::move(spare_buffers_.back());
  spare_buffers_.pop_back();
  buffer.resize(fields_.size());
  return buffer;
}

}  // namespace orvex::store
