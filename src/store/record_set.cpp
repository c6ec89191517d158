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

RecordSet::Impl::~Impl() { StopEditing(); }

void RecordSet::Impl::Fill() {
  if (kind == Kind::kKeyed && source.query.empty()) {
    keys = table->Matching(source.index, source.key);
    return;
  }
  const Translation translation = TranslateSql(source.query);
  auto& statement = database->Prepare(translation.sql, source.query);
  const Execution execution(statement);
  for (std::size_t i = 0; i < translation.parameters.size(); ++i) {
    statement.Bind(static_cast<int>(i + 1), translation.parameters[i]);
  }
  if (kind == Kind::kKeyed) {
    auto rows = std::make_shared<std::vector<RowId>>();
    while (statement.Step()) rows->push_back(statement.Integer(0));
    keys = std::move(rows);
    return;
  }
  columns.clear();
  snapshot.clear();
  for (int i = 0; i < statement.ColumnCount(); ++i) columns.push_back(statement.ColumnName(i));
  while (statement.Step()) {
    auto& values = snapshot.emplace_back(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) statement.Read(static_cast<int>(i), values[i]);
  }
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
    table->Refresh(row);
  }
}

void RecordSet::Impl::GoToListed(std::int64_t target) {
  StopEditing();
  list_index = target;
  if (target < 0) {
    place = Place::kBefore;
    list_index = -1;
  } else if (target >= ListSize()) {
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
  return editing == Editing::kNo ? CurrentRow()[position] : buffer[position];
}

const Value& RecordSet::Impl::Filled(std::string_view field) {
  const Value& value = At(field);
  if (value.IsNull()) {
    throw RunTimeError(
        ErrorNumber::kInvalidUseOfNull,
        table ? fmt::format("Invalid use of Null: the field '{}' of the table '{}' is empty.", field, table->Name())
              : fmt::format("Invalid use of Null: the field '{}' is empty.", field));
  }
  return value;
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

void RecordSet::SetIndex(std::string_view name) {
  impl_->RequireTable("An index");
  impl_->StopEditing();
  impl_->index = name.empty() ? std::nullopt : std::optional(impl_->table->IndexNumber(name));
  impl_->place = Impl::Place::kUnread;
  impl_->no_match = false;
}

void RecordSet::Seek(std::span<const Value> key) {
  impl_->RequireTable("Seek");
  if (!impl_->index) ThrowNotSupported("Seek without a current index");
  const auto found = impl_->table->Seek(*impl_->index, key);
  impl_->no_match = !found;
  impl_->GoTo(found, Impl::Place::kNowhere);
}

bool RecordSet::NoMatch() const { return impl_->no_match; }

void RecordSet::MoveFirst() {
  impl_->place = Impl::Place::kUnread;
  impl_->Settle();
  if (impl_->place != Impl::Place::kAt) ThrowNoCurrentRecord();
}

void RecordSet::MoveLast() {
  if (impl_->kind == Impl::Kind::kTable) {
    impl_->GoTo(impl_->table->Last(impl_->index), Impl::Place::kBehind);
  } else {
    impl_->GoToListed(impl_->ListSize() - 1);
  }
  if (impl_->place != Impl::Place::kAt) ThrowNoCurrentRecord();
}

void RecordSet::MoveNext() {
  impl_->Settle();
  if (impl_->place == Impl::Place::kBehind || impl_->place == Impl::Place::kNowhere) ThrowNoCurrentRecord();
  if (impl_->place == Impl::Place::kBefore) {
    impl_->place = Impl::Place::kUnread;
    impl_->Settle();
  } else if (impl_->kind == Impl::Kind::kTable) {
    impl_->GoTo(impl_->table->Neighbour(impl_->index, impl_->row, false), Impl::Place::kBehind);
  } else {
    impl_->GoToListed(impl_->list_index + 1);
  }
}

void RecordSet::MovePrevious() {
  impl_->Settle();
  if (impl_->place == Impl::Place::kBefore || impl_->place == Impl::Place::kNowhere) ThrowNoCurrentRecord();
  if (impl_->place == Impl::Place::kBehind && impl_->kind == Impl::Kind::kTable) {
    impl_->GoTo(impl_->table->Last(impl_->index), Impl::Place::kBefore);
  } else if (impl_->kind == Impl::Kind::kTable) {
    impl_->GoTo(impl_->table->Neighbour(impl_->index, impl_->row, true), Impl::Place::kBefore);
  } else {
    impl_->GoToListed(impl_->list_index - 1);
  }
}

void RecordSet::Move(Bookmark bookmark) {
  if (impl_->kind == Impl::Kind::kTable) {
    if (!impl_->table->Refresh(bookmark)) throw RunTimeError(ErrorNumber::kRecordDeleted, "Record is deleted.");
    impl_->GoTo(bookmark, Impl::Place::kNowhere);
    return;
  }
  if (impl_->kind == Impl::Kind::kKeyed) {
    for (std::size_t i = 0; i < impl_->keys->size(); ++i) {
      if ((*impl_->keys)[i] == bookmark) return impl_->GoToListed(static_cast<std::int64_t>(i));
    }
  } else if (bookmark >= 0 && bookmark < impl_->ListSize()) {
    return impl_->GoToListed(bookmark);
  }
  ThrowNoCurrentRecord();
}

bool RecordSet::AtEnd() {
  impl_->Settle();
  return impl_->place == Impl::Place::kBehind;
}

bool RecordSet::AtStart() {
  impl_->Settle();
  if (impl_->place == Impl::Place::kBefore) return true;
  // An empty set is at its start and its end at once.
  if (impl_->place != Impl::Place::kBehind) return false;
  return impl_->kind == Impl::Kind::kTable ? !impl_->table->First(std::nullopt) : impl_->ListSize() == 0;
}

Bookmark RecordSet::CurrentBookmark() {
  impl_->RequireRecord();
  return impl_->kind == Impl::Kind::kSnapshot ? impl_->list_index : impl_->row;
}

Bookmark RecordSet::LastModified() const { return impl_->last_modified; }

std::int64_t RecordSet::RecordCount() {
  return impl_->kind == Impl::Kind::kTable ? impl_->table->Count() : impl_->ListSize();
}

std::int64_t RecordSet::AbsolutePosition() {
  if (impl_->kind == Impl::Kind::kTable) ThrowNotSupported("AbsolutePosition");
  impl_->Settle();
  return impl_->place == Impl::Place::kAt ? impl_->list_index : -1;
}

void RecordSet::Requery() {
  impl_->StopEditing();
  if (impl_->kind != Impl::Kind::kTable) impl_->Fill();
  impl_->place = Impl::Place::kUnread;
}

int RecordSet::FieldCount() const {
  return static_cast<int>(impl_->table ? impl_->table->Fields().size() : impl_->columns.size());
}

std::string RecordSet::FieldName(int position) const {
  if (position < 0 || position >= FieldCount()) {
    throw RunTimeError(ErrorNumber::kItemNotFound, fmt::format("There is no field at position {}.", position));
  }
  const auto i = static_cast<std::size_t>(position);
  return impl_->table ? impl_->table->Fields()[i].name : impl_->columns[i];
}

Value RecordSet::Get(std::string_view field) { return impl_->At(field); }

Value RecordSet::Get(int position) {
  (void)FieldName(position);  // the check of the range
  return impl_->At(static_cast<std::size_t>(position));
}

bool RecordSet::IsNull(std::string_view field) { return impl_->At(field).IsNull(); }
double RecordSet::Double(std::string_view field) { return impl_->Filled(field).AsDouble(); }
std::int32_t RecordSet::Long(std::string_view field) { return impl_->Filled(field).AsLong(); }
bool RecordSet::Bool(std::string_view field) { return impl_->Filled(field).AsBool(); }
std::string RecordSet::Text(std::string_view field) { return impl_->Filled(field).AsText(); }
double RecordSet::DoubleOrZero(std::string_view field) { return impl_->At(field).DoubleOrZero(); }
std::int32_t RecordSet::LongOrZero(std::string_view field) { return impl_->At(field).LongOrZero(); }
bool RecordSet::BoolOrFalse(std::string_view field) { return impl_->At(field).BoolOrFalse(); }
std::string RecordSet::TextOrEmpty(std::string_view field) { return impl_->At(field).TextOrEmpty(); }

std::vector<std::vector<Value>> RecordSet::GetRows(std::int64_t count) {
  std::vector<std::vector<Value>> rows;
  while (count-- > 0 && !AtEnd()) {
    rows.push_back(impl_->CurrentRow());
    MoveNext();
  }
  return rows;
}

// Edits ---------------------------------------------------------------------------------------------------------------

void RecordSet::AddNew() {
  impl_->RequireEditable();
  impl_->StopEditing();
  impl_->buffer = impl_->table->TakeBuffer();
  impl_->editing = Impl::Editing::kAdding;
  impl_->hint = 0;
  const auto& fields = impl_->table->Fields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (fields[i].type == FieldType::kBoolean) {
      impl_->buffer[i].SetInteger(0);
    } else {
      impl_->buffer[i].SetNull();
    }
  }
}

void RecordSet::Edit() {
  impl_->RequireEditable();
  impl_->StopEditing();
  const RowValues& row = impl_->CurrentRow();
  impl_->buffer = impl_->table->TakeBuffer();
  impl_->buffer = row;
  impl_->editing = Impl::Editing::kChanging;
  impl_->hint = 0;
}

void RecordSet::Update() {
  impl_->RequireEditable();
  if (impl_->editing == Impl::Editing::kNo) {
    throw RunTimeError(ErrorNumber::kNoEditPending, "Update or CancelUpdate without AddNew or Edit.");
  }
  if (impl_->editing == Impl::Editing::kAdding) {
    impl_->last_modified = impl_->table->Insert(impl_->buffer);
  } else {
    impl_->table->Update(impl_->row, impl_->buffer);
    impl_->last_modified = impl_->row;
  }
  impl_->StopEditing();
}

void RecordSet::CancelUpdate() { impl_->StopEditing(); }

void RecordSet::Delete() {
  impl_->RequireEditable();
  impl_->StopEditing();
  (void)impl_->CurrentRow();
  impl_->table->Delete(impl_->row);
}

void RecordSet::Set(std::string_view field, const Value& value) {
  std::size_t position = 0;
  Value& stored = impl_->Edited(field, position);
  impl_->table->Convert(position, value, stored);
}

void RecordSet::Set(std::string_view field, double value) {
  std::size_t position = 0;
  Value& stored = impl_->Edited(field, position);
  impl_->table->Convert(position, value, stored);
}

void RecordSet::Set(std::string_view field, std::string_view value) {
  std::size_t position = 0;
  Value& stored = impl_->Edited(field, position);
  impl_->table->Convert(position, value, stored);
}

void RecordSet::Set(std::string_view field, std::int32_t value) { Set(field, static_cast<double>(value)); }
void RecordSet::Set(std::string_view field, bool value) { Set(field, value ? -1.0 : 0.0); }

void RecordSet::Close() { impl_.reset(); }

}  // namespace orvex::store
