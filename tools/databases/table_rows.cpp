#include "databases/table_rows.h"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "store/letter_case.h"
#include "store/number_text.h"
#include "store/run_time_error.h"
#include "store/utf8.h"

namespace orvex::databases {
namespace {

bool FitsALong(double number) {
  return number == std::trunc(number) && number >= std::numeric_limits<std::int32_t>::min() &&
         number <= std::numeric_limits<std::int32_t>::max();
}

}  // namespace

TableRows::TableRows(store::CsvTable file, std::string_view table, std::span<const std::string_view> left_out)
    : file_(std::move(file)), table_(&store::FindTable(table)) {
  for (const store::FieldInfo& field : table_->fields) {
    const bool in_file =
        std::ranges::none_of(left_out, [&](std::string_view name) { return store::EqualNoCase(name, field.name); });
    if (!in_file) continue;
    if (!file_.FindColumn(field.name)) RefuseFile(fmt::format("there is no column '{}'.", field.name));
    fields_.push_back(&field);
  }
  for (const std::string& column : file_.Columns()) {
    const bool known = std::ranges::any_of(
        fields_, [&](const store::FieldInfo* field) { return store::EqualNoCase(field->name, column); });
    if (!known) RefuseFile(fmt::format("the column '{}' is no field of '{}' that a file fills.", column, table));
  }
  for (std::size_t row = 0; row < file_.RowCount(); ++row) {
    auto& values = values_.emplace_back();
    for (const store::FieldInfo* field : fields_) values.push_back(ReadCell(row, *field));
  }
}

store::Value TableRows::ReadCell(std::size_t row, const store::FieldInfo& field) const {
  const store::CsvCell& cell = file_.Cell(row, field.name);
  if (field.type == store::FieldType::kBoolean) {
    if (cell == "-1") return true;
    if (cell == "0") return false;
    Refuse(row, field.name, fmt::format("'{}' is neither -1 nor 0.", cell.value_or("")));
  }
  if (!cell) return {};
  if (field.type == store::FieldType::kText) {
    if (const auto count = store::CharacterCount(*cell); count > static_cast<std::size_t>(field.width)) {
      Refuse(row, field.name, fmt::format("the text has {} characters, the field holds {}.", count, field.width));
    }
    return *cell;
  }
  const auto number = store::ParseNumber(*cell);
  if (!number) Refuse(row, field.name, fmt::format("'{}' is not a number.", *cell));
  if (field.type == store::FieldType::kDouble) return *number;
  if (!FitsALong(*number)) Refuse(row, field.name, fmt::format("'{}' is not a whole number of 32 bits.", *cell));
  return static_cast<std::int32_t>(*number);
}

const store::Value& TableRows::At(std::size_t row, std::string_view field) const {
  const auto found = std::ranges::find_if(
      fields_, [&](const store::FieldInfo* known) { return store::EqualNoCase(known->name, field); });
  if (found == fields_.end()) {
    throw store::RunTimeError(store::ErrorNumber::kItemNotFound,
                              fmt::format("{} has no field '{}'.", file_.Name(), field));
  }
  return values_[row][static_cast<std::size_t>(found - fields_.begin())];
}

void TableRows::RefuseFile(std::string_view reason) const {
  throw store::RunTimeError(store::ErrorNumber::kDataConversion, fmt::format("{}: {}", file_.Name(), reason));
}

void TableRows::AddTo(store::Database& database) const {
  store::RecordSet records = database.OpenTable(table_->name);
  for (const auto& values : values_) {
    records.AddNew();
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      if (fields_[i]->type != store::FieldType::kCounter) records.Set(fields_[i]->name, values[i]);
    }
    records.Update();
  }
}

}  // namespace orvex::databases
