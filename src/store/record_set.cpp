#include "store/record_set.h"

#include <fmt/format.h>

#include <cmath>

#include "store/letter_case.h"
#include "store/record_set_impl.h"
#include "store/run_time_error.h"

namespace orvex::store {
namespace {

[[noreturn]] void ThrowNoCurrentRecord() { throw RunTimeError(ErrorNumber::kNoCurrentRecord, "No current record."); }

[[noreturn]] void ThrowNotSupported(std::string_view what) {
  throw RunTimeError(ErrorNumber::kOperationNotSupported,
                     fmt::format("{} is not supported for this type of record set.", what));
}

}  // namespace

// Rows ----------------------------------------------------------------------------------------------------------------

RecordSet::Impl::~Impl() {
  StopEditing();
  if (!row_key.empty()) table->ReturnKey(std::move(row_key));
}

void RecordSet::Impl::Fill() {
  if (!source.query) {
    keys = table->Matching(source.index, source.key);
    return;
  }
  const Translation& translation = source.query->translation;
  auto& statement = database->Prepare(translation.sql, source.query->text);
  const Execution execution(statement);
  statement.Bind(translation.parameters);
  if (kind == Kind::kKeyed) {
    auto rows = std::make_shared<std::vector<RowId>>();
    while (statement.Step()) rows->push_back(statement.Integer(0));
    keys = std::move(rows);
    return;
  }
  std::vector<RowValues> rows;
  std::vector<std::string> names;
  for (int i = 0; i < statement.ColumnCount(); ++i) names.push_back(statement.ColumnName(i));
  while (statement.Step()) {
    auto& values = rows.emplace_back(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) statement.Read(static_cast<int>(i), values[i]);
  }
  columns = std::move(names);
  snapshot = std::move(rows);
}

std::int64_t RecordSet::Impl::ListSize() const {
  return static_cast<std::int64_t>(kind == Kind::kKeyed ? keys->size() : snapshot.size());
}

// Position ------------------------------------------------------------------------------------------------------------

void RecordSet::Impl::StopEditing() {
  if (editing == Editing::kNo) return;
  editing = Editing::kNo;
  table->ReturnBuffer(std::move(buffer));
}

void RecordSet::Impl::Settle() {
  if (place != Place::kUnread) return;
  if (kind == Kind::kTable) {
    GoTo(table->First(index), Place::kBehind);
  } else {
    GoToListed(0);
  }
}

void RecordSet::Impl::GoTo(std::optional<RowId> target, Place otherwise) {
  StopEditing();
  place = target ? Place::kAt : otherwise;
  if (target) {
    row = *target;
    if (table->Refresh(row) && index) table->CopyKey(*index, row, row_key);
  }
}

void RecordSet::Impl::GoToNeighbour(bool backward) {
  if (index && table->Refresh(row)) table->CopyKey(*index, row, row_key);
  GoTo(table->Neighbour(index, row, row_key, backward), backward ? Place::kBefore : Place::kBehind);
}

void RecordSet::Impl::GoToListed(std::int64_t target) {
  StopEditing();
  list_index = target;
  if (target < 0 && ListSize() > 0) {
    place = Place::kBefore;
    list_index = -1;
  } else if (target >= ListSize() || target < 0) {
    place = Place::kBehind;
    list_index = ListSize();
  } else {
    place = Place::kAt;
    if (kind == Kind::kKeyed) {
      row = (*keys)[static_cast<std::size_t>(target)];
      table->Refresh(row);
    }
  }
}

void RecordSet::Impl::RequireRecord() {
  Settle();
  if (place != Place::kAt) ThrowNoCurrentRecord();
}

const RowValues& RecordSet::Impl::CurrentRow() {
  RequireRecord();
  if (kind == Kind::kSnapshot) return snapshot[static_cast<std::size_t>(list_index)];
  return table->Row(row);
}

void RecordSet::Impl::RequireTable(const char* operation) const {
  if (kind != Kind::kTable) ThrowNotSupported(operation);
}

void RecordSet::Impl::RequireEditable() const {
  if (kind == Kind::kSnapshot) ThrowNotSupported("Editing");
}

// Content -------------------------------------------------------------------------------------------------------------

std::size_t RecordSet::Impl::Position(std::string_view field) {
  if (kind != Kind::kSnapshot) return table->FieldPosition(field, hint);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (EqualNoCase(columns[i], field)) return i;
  }
  throw RunTimeError(ErrorNumber::kItemNotFound, fmt::format("The field '{}' was not found in the query.", field));
}

const Value& RecordSet::Impl::At(std::size_t position) {
  const Value& value = editing == Editing::kNo ? CurrentRow()[position] : buffer[position];
  if (value.GetKind() == Value::Kind::kReal && !std::isfinite(value.RawReal())) {
    throw RunTimeError(ErrorNumber::kOverflow,
                       fmt::format("Overflow: the number is not finite {}.", FieldText(FieldName(position))));
  }
  return value;
}

std::string RecordSet::Impl::FieldText(std::string_view field) const {
  return table ? fmt::format("in the field '{}' of the table '{}'", field, table->Name())
               : fmt::format("in the field '{}'", field);
}

template <typename Result>
Result RecordSet::Impl::Read(std::string_view field, Result (Value::*as)() const) {
  const Value& value = At(field);
  try {
    return (value.*as)();
  } catch (const RunTimeError& error) {
    std::string text = error.Description();
    if (text.ends_with('.')) text.pop_back();
    throw RunTimeError(error.Number(), fmt::format("{} {}.", text, FieldText(field)));
  }
}

Value& RecordSet::Impl::Edited(std::string_view field, std::size_t& position) {
  if (editing == Editing::kNo) {
    throw RunTimeError(ErrorNumber::kNoEditPending, "Update or CancelUpdate without AddNew or Edit.");
  }
  position = table->FieldPosition(field, hint);
  return buffer[position];
}

// RecordSet -----------------------------------------------------------------------------------------------------------

RecordSet::RecordSet(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
RecordSet::RecordSet(RecordSet&&) noexcept = default;
RecordSet& RecordSet::operator=(RecordSet&&) noexcept = default;
RecordSet::~RecordSet() = default;

RecordSet::Impl& RecordSet::Live() const {
  if (!impl_)
    throw RunTimeError(ErrorNumber::kObjectClosed, "Object invalid or no longer set: the record set is closed.");
  return *impl_;
}

void RecordSet::SetIndex(std::string_view name) {
  Impl& set = Live();
  set.RequireTable("An index");
  set.StopEditing();
  set.index = name.empty() ? std::nullopt : std::optional(set.table->IndexNumber(name));
  set.place = Impl::Place::kUnread;
  set.no_match = false;
}

void RecordSet::Seek(std::span<const Value> key) {
  Impl& set = Live();
  set.RequireTable("Seek");
  if (!set.index) ThrowNotSupported("Seek without a current index");
  const auto found = set.table->Seek(*set.index, key);
  set.no_match = !found;
  set.GoTo(found, Impl::Place::kNowhere);
}

bool RecordSet::NoMatch() const { return Live().no_match; }

void RecordSet::MoveFirst() {
  Impl& set = Live();
  set.place = Impl::Place::kUnread;
  set.Settle();
  if (set.place != Impl::Place::kAt) ThrowNoCurrentRecord();
}

void RecordSet::MoveLast() {
  Impl& set = Live();
  if (set.kind == Impl::Kind::kTable) {
    set.GoTo(set.table->Last(set.index), Impl::Place::kBehind);
  } else {
    set.GoToListed(set.ListSize() - 1);
  }
  if (set.place != Impl::Place::kAt) ThrowNoCurrentRecord();
}

void RecordSet::MoveNext() {
  Impl& set = Live();
  set.Settle();
  if (set.place == Impl::Place::kBehind || set.place == Impl::Place::kNowhere) ThrowNoCurrentRecord();
  if (set.place == Impl::Place::kBefore) {
    set.place = Impl::Place::kUnread;
    set.Settle();
  } else if (set.kind == Impl::Kind::kTable) {
    set.GoToNeighbour(false);
  } else {
    set.GoToListed(set.list_index + 1);
  }
}

void RecordSet::MovePrevious() {
  Impl& set = Live();
  if (AtStart() || set.place == Impl::Place::kNowhere) ThrowNoCurrentRecord();
  if (set.place == Impl::Place::kBehind && set.kind == Impl::Kind::kTable) {
    set.GoTo(set.table->Last(set.index), Impl::Place::kBefore);
  } else if (set.kind == Impl::Kind::kTable) {
    set.GoToNeighbour(true);
  } else {
    set.GoToListed(set.list_index - 1);
  }
}

void RecordSet::Move(Bookmark bookmark) {
  Impl& set = Live();
  if (set.kind == Impl::Kind::kTable) {
    if (!set.table->Refresh(bookmark)) throw RunTimeError(ErrorNumber::kRecordDeleted, "Record is deleted.");
    set.GoTo(bookmark, Impl::Place::kNowhere);
    return;
  }
  if (set.kind == Impl::Kind::kKeyed) {
    for (std::size_t i = 0; i < set.keys->size(); ++i) {
      if ((*set.keys)[i] == bookmark) return set.GoToListed(static_cast<std::int64_t>(i));
    }
  } else if (bookmark >= 0 && bookmark < set.ListSize()) {
    return set.GoToListed(bookmark);
  }
  ThrowNoCurrentRecord();
}

bool RecordSet::AtEnd() {
  Impl& set = Live();
  set.Settle();
  return set.place == Impl::Place::kBehind;
}

bool RecordSet::AtStart() {
  Impl& set = Live();
  set.Settle();
  if (set.place == Impl::Place::kBefore) return true;
  // An empty set is at its start and its end at once.
  if (set.place != Impl::Place::kBehind) return false;
  return set.kind == Impl::Kind::kTable ? !set.table->First(std::nullopt) : set.ListSize() == 0;
}

Bookmark RecordSet::CurrentBookmark() {
  Impl& set = Live();
  set.RequireRecord();
  return set.kind == Impl::Kind::kSnapshot ? set.list_index : set.row;
}

Bookmark RecordSet::LastModified() const { return Live().last_modified; }

std::int64_t RecordSet::RecordCount() {
  Impl& set = Live();
  return set.kind == Impl::Kind::kTable ? set.table->Count() : set.ListSize();
}

std::int64_t RecordSet::AbsolutePosition() {
  Impl& set = Live();
  if (set.kind == Impl::Kind::kTable) ThrowNotSupported("AbsolutePosition");
  set.Settle();
  return set.place == Impl::Place::kAt ? set.list_index : -1;
}

void RecordSet::Requery() {
  Impl& set = Live();
  set.StopEditing();
  set.place = Impl::Place::kUnread;
  if (set.kind != Impl::Kind::kTable) set.Fill();
}

int RecordSet::FieldCount() const {
  Impl& set = Live();
  return static_cast<int>(set.FieldCount());
}

std::string RecordSet::FieldName(int position) const {
  Impl& set = Live();
  if (position < 0 || position >= FieldCount()) {
    throw RunTimeError(ErrorNumber::kItemNotFound, fmt::format("There is no field at position {}.", position));
  }
  return set.FieldName(static_cast<std::size_t>(position));
}

Value RecordSet::Get(std::string_view field) { return Live().At(field); }

Value RecordSet::Get(int position) {
  (void)FieldName(position);  // the check of the range
  return Live().At(static_cast<std::size_t>(position));
}

bool RecordSet::IsNull(std::string_view field) { return Live().At(field).IsNull(); }
double RecordSet::Double(std::string_view field) { return Live().Read(field, &Value::AsDouble); }
std::int32_t RecordSet::Long(std::string_view field) { return Live().Read(field, &Value::AsLong); }
bool RecordSet::Bool(std::string_view field) { return Live().Read(field, &Value::AsBool); }
std::string RecordSet::Text(std::string_view field) { return Live().Read(field, &Value::AsText); }
double RecordSet::DoubleOrZero(std::string_view field) { return Live().Read(field, &Value::DoubleOrZero); }
std::int32_t RecordSet::LongOrZero(std::string_view field) { return Live().Read(field, &Value::LongOrZero); }
bool RecordSet::BoolOrFalse(std::string_view field) { return Live().Read(field, &Value::BoolOrFalse); }
std::string RecordSet::TextOrEmpty(std::string_view field) { return Live().Read(field, &Value::TextOrEmpty); }

std::vector<std::vector<Value>> RecordSet::GetRows(std::int64_t count) {
  Impl& set = Live();
  std::vector<std::vector<Value>> rows;
  while (count-- > 0 && !AtEnd()) {
    set.RequireRecord();
    auto& row = rows.emplace_back();
    for (std::size_t i = 0; i < set.FieldCount(); ++i) row.push_back(set.At(i));
    MoveNext();
  }
  return rows;
}

// Edits ---------------------------------------------------------------------------------------------------------------

void RecordSet::AddNew() {
  Impl& set = Live();
  set.RequireEditable();
  set.StopEditing();
  set.buffer = set.table->TakeBuffer();
  set.editing = Impl::Editing::kAdding;
  set.hint = 0;
  const auto& fields = set.table->Fields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (fields[i].type == FieldType::kBoolean) {
      set.buffer[i].SetInteger(0);
    } else {
      set.buffer[i].SetNull();
    }
  }
}

void RecordSet::Edit() {
  Impl& set = Live();
  set.RequireEditable();
  set.StopEditing();
  const RowValues& row = set.CurrentRow();
  set.buffer = set.table->TakeBuffer();
  set.buffer = row;
  set.editing = Impl::Editing::kChanging;
  set.hint = 0;
}

void RecordSet::Update() {
  Impl& set = Live();
  set.RequireEditable();
  if (set.editing == Impl::Editing::kNo) {
    throw RunTimeError(ErrorNumber::kNoEditPending, "Update or CancelUpdate without AddNew or Edit.");
  }
  if (set.editing == Impl::Editing::kAdding) {
    set.last_modified = set.table->Insert(set.buffer);
  } else {
    set.table->Update(set.row, set.buffer);
    set.last_modified = set.row;
  }
  set.StopEditing();
}

void RecordSet::CancelUpdate() { Live().StopEditing(); }

void RecordSet::Delete() {
  Impl& set = Live();
  set.RequireEditable();
  set.StopEditing();
  (void)set.CurrentRow();
  set.table->Delete(set.row);
}

void RecordSet::Set(std::string_view field, const Value& value) {
  Impl& set = Live();
  std::size_t position = 0;
  Value& stored = set.Edited(field, position);
  set.table->Convert(position, value, stored);
}

void RecordSet::Set(std::string_view field, double value) {
  Impl& set = Live();
  std::size_t position = 0;
  Value& stored = set.Edited(field, position);
  set.table->Convert(position, value, stored);
}

void RecordSet::Set(std::string_view field, std::string_view value) {
  Impl& set = Live();
  std::size_t position = 0;
  Value& stored = set.Edited(field, position);
  set.table->Convert(position, value, stored);
}

void RecordSet::Set(std::string_view field, std::int32_t value) { Set(field, static_cast<double>(value)); }
void RecordSet::Set(std::string_view field, bool value) { Set(field, value ? -1.0 : 0.0); }

void RecordSet::Close() { impl_.reset(); }

}  // namespace orvex::store
