#include "store/row_copy.h"

#include <fmt/format.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "store/database_impl.h"
#include "store/run_time_error.h"
#include "store/table.h"

namespace orvex::store {
namespace {

/// All records of a table in the order of the file.
std::string Scan(const Table& table) {
  std::string fields;
  for (const auto& field : table.Fields()) fields += (fields.empty() ? "" : ", ") + Quoted(field.name);
  return fmt::format("SELECT {} FROM {} ORDER BY rowid", fields, Quoted(table.Name()));
}

/// A record as `AddNew` begins it.
RowValues EmptyRow(const Table& table) {
  RowValues row(table.Fields().size());
  for (std::size_t i = 0; i < row.size(); ++i)
    if (table.Fields()[i].type == FieldType::kBoolean) row[i].SetInteger(0);
  return row;
}

}  // namespace

struct RowCopy::Impl {
  Impl(const Database::Impl& from, std::shared_ptr<Table> the_source, const Database::Impl& to,
       std::shared_ptr<Table> the_target)
      : source_connection(from.connection),
        target_connection(to.connection),
        source(std::move(the_source)),
        target(std::move(the_target)),
        empty(EmptyRow(*target)),
        read(*source_connection, Scan(*source)) {
    std::size_t hint = 0;
    for (const auto& field : source->Fields()) places.push_back(target->FieldPosition(field.name, hint));
  }

  /// The next record as the target stores it; false when there is none.
  bool Next() {
    if (at_end || !read.Step()) {
      at_end = true;
      return false;
    }
    row.resize(empty.size());
    if (places.size() != empty.size()) row = empty;
    for (std::size_t i = 0; i < places.size(); ++i) {
      read.Read(static_cast<int>(i), value);
      target->Convert(places[i], value, row[places[i]]);
    }
    return true;
  }

  [[noreturn]] void ThrowDifference() const {
    throw RunTimeError(ErrorNumber::kDamagedFile, fmt::format("The table '{}' was not written to {} as it should be.",
                                                              target->Name(), target_connection->Path().string()));
  }

  std::shared_ptr<Connection> source_connection, target_connection;
  std::shared_ptr<Table> source, target;
  RowValues empty;
  Statement read;
  std::unique_ptr<Statement> read_back;  ///< for comparing
  std::vector<std::size_t> places;       ///< of the source's fields in the target
  RowValues row;
  Value value;
  bool at_end = false;
};

RowCopy::RowCopy(Database& from, std::string_view source, Database& to, std::string_view target)
    : impl_(std::make_unique<Impl>(*from.impl_, from.impl_->GetTable(source), *to.impl_, to.impl_->GetTable(target))) {}
RowCopy::~RowCopy() = default;

bool RowCopy::Add(int count) {
  for (; count > 0; --count) {
    if (!impl_->Next()) return false;
    (void)impl_->target->Insert(impl_->row);
  }
  return true;
}

bool RowCopy::Compare(int count) {
  auto& copy = *impl_;
  if (!copy.read_back) copy.read_back = std::make_unique<Statement>(*copy.target_connection, Scan(*copy.target));
  for (; count > 0; --count) {
    const bool more = copy.Next();
    if (copy.read_back->Step() != more) copy.ThrowDifference();
    if (!more) return false;
    for (std::size_t i = 0; i < copy.row.size(); ++i) {
      copy.read_back->Read(static_cast<int>(i), copy.value);
      if (!(copy.value == copy.row[i])) copy.ThrowDifference();
    }
  }
  return true;
}

}  // namespace orvex::store
