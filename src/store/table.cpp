#include "store/table.h"

#include <fmt/format.h>

#include <numeric>

#include "store/letter_case.h"
#include "store/run_time_error.h"

namespace orvex::store {

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
    fields_.push_back({fields.Text(1), type, width, fields.Text(4)});
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

}  // namespace orvex::store
