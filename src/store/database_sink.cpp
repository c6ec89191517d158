#include "store/database_sink.h"

#include <fmt/format.h>

#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "store/database_impl.h"
#include "store/database_replacement.h"
#include "store/letter_case.h"
#include "store/run_time_error.h"
#include "store/table_definition.h"

namespace orvex::store {
namespace {

constexpr std::string_view kNamesOfTheStore = "sqlite_";

/// Error 3125 for what a table cannot be called: nobody could pick one without a name.
const std::string& Checked(const std::string& name) {
  if (name.find_first_not_of(' ') == std::string::npos)
    throw RunTimeError(ErrorNumber::kInvalidName,
                       fmt::format("'{}' is not a valid name of a table: it is empty.", name));
  if (LowerCase(name).starts_with(kNamesOfTheStore))
    throw RunTimeError(ErrorNumber::kInvalidName,
                       fmt::format("'{}' is not a valid name of a table: names that begin with '{}' are reserved.",
                                   name, kNamesOfTheStore));
  return name;
}

}  // namespace

class DatabaseSink : public TableSink {
 public:
  DatabaseSink(Database& database, const std::string& name, std::vector<StoredField> fields, Existing existing)
      : database_(database),
        name_(Checked(name)),
        made_(name_),
        fields_(std::move(fields)),
        transaction_(std::in_place, database) {
    if (existing == Existing::kReplace) {
      while (database.HasTable(made_)) made_ += "+";
    }
    database.CreateTable(made_, fields_, {});
    rows_.emplace(database.OpenTable(made_));
  }

  void Add(std::span<const Value> row) override {
    rows_->AddNew();
    for (std::size_t i = 0; i < row.size(); ++i) rows_->Set(fields_[i].name, row[i]);
    rows_->Update();
  }

  void Commit() override {
    rows_.reset();
    if (made_ != name_) TakePlace();
    transaction_->Commit();
    transaction_.reset();
  }

 private:
  void TakePlace() {
    database_.DeleteTable(name_);
    RenameTable(*database_.impl_->connection, made_, name_);
    database_.impl_->tables.erase(database_.impl_->tables.find(made_));
  }

  Database& database_;
  std::string name_;
  std::string made_;  ///< what the table is called until it is complete
  std::vector<StoredField> fields_;
  std::optional<Transaction> transaction_;
  std::optional<RecordSet> rows_;
};

namespace {

/// A table of a database that this holds open.
class OpenedDatabaseSink : public TableSink {
 public:
  OpenedDatabaseSink(std::unique_ptr<Database> database, const std::string& name,
                     const std::vector<StoredField>& fields, Existing existing)
      : database_(std::move(database)), table_(*database_, name, fields, existing) {}

  void Add(std::span<const Value> row) override { table_.Add(row); }
  void Commit() override { table_.Commit(); }

 private:
  std::unique_ptr<Database> database_;
  DatabaseSink table_;
};

class NewDatabaseSink : public TableSink {
 public:
  NewDatabaseSink(const std::filesystem::path& path, const std::string& name, const std::vector<StoredField>& fields)
      : file_(path), table_(std::in_place, file_.New(), name, fields, Existing::kRefuse) {}

  void Add(std::span<const Value> row) override { table_->Add(row); }
  void Commit() override {
    table_->Commit();
    table_.reset();
    file_.Commit();
  }

 private:
  DatabaseReplacement file_;
  std::optional<DatabaseSink> table_;
};

}  // namespace

std::unique_ptr<TableSink> MakeTableSink(Database& database, const std::string& name,
                                         const std::vector<StoredField>& fields, Existing existing) {
  return std::make_unique<DatabaseSink>(database, name, fields, existing);
}

std::unique_ptr<TableSink> MakeTableSink(std::unique_ptr<Database> database, const std::string& name,
                                         const std::vector<StoredField>& fields, Existing existing) {
  return std::make_unique<OpenedDatabaseSink>(std::move(database), name, fields, existing);
}

std::unique_ptr<TableSink> MakeNewDatabaseSink(const std::filesystem::path& path, const std::string& name,
                                               const std::vector<StoredField>& fields) {
  return std::make_unique<NewDatabaseSink>(path, name, fields);
}

}  // namespace orvex::store
