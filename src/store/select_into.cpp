#include "store/select_into.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>

#include "store/database_impl.h"
#include "store/database_sink.h"
#include "store/letter_case.h"
#include "store/run_time_error.h"

namespace orvex::store {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kRowsBetweenProgress = 1000;
constexpr std::string_view kDatabaseConnect = ";database=";

/// Where the rows go.
struct Target {
  std::string_view place;   ///< what stands behind ";database="
  const std::string& name;  ///< of the table, sheet or file
  const std::vector<StoredField>& fields;
  Existing existing;
};
using Sink = std::unique_ptr<TableSink>;

/// The file of a table, however its name is written; a new one has the usual ending.
fs::path DbasePath(const Target& target) {
  const fs::path folder(target.place);
  const std::string name = target.name + ".dbf";
  std::error_code unread;
  // A folder that cannot be read to its end must not throw what no routine expects: the sink tells what is wrong.
  fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, unread);
  for (; !unread && entry != fs::directory_iterator(); entry.increment(unread)) {
    if (EqualNoCase(entry->path().filename().string(), name)) return entry->path();
  }
  return folder / name;
}

template <DbaseVersion kVersion>
Sink MakeDbase(const Target& target) {
  return MakeDbaseSink(kVersion, DbasePath(target), target.fields, target.existing);
}

Sink MakeSheet(const Target& target) {
  return MakeWorkbookSink(target.place, target.name, target.fields, target.existing);
}

Sink MakeText(const Target& target) {
  return MakeTextSink(fs::path(target.place) / target.name, target.fields, target.existing);
}

/// The formats of other programs, by the text in front of ";database=".
struct Format {
  std::string_view connect;
  Sink (*make)(const Target& target);
};
constexpr Format kFormats[] = {
    {"dbase iv", MakeDbase<DbaseVersion::kDbaseIv>},
    {"foxpro 2.6", MakeDbase<DbaseVersion::kFoxPro26>},
    {"excel 5.0", MakeSheet},
    {"text", MakeText},
};

/// The open database whose file this is, behind whatever link; null if none is.
Database* OpenDatabase(const fs::path& path, Database& source, const IntoOptions& options) {
  const auto is_there = [&](const Database* database) {
    std::error_code ignored;
    return fs::equivalent(path, database->Path(), ignored);
  };
  if (is_there(&source)) return &source;
  const auto found = std::ranges::find_if(options.open, is_there);
  return found == options.open.end() ? nullptr : *found;
}

Sink MakeDatabaseTarget(const Target& target, Database& source, const IntoOptions& options) {
  const fs::path path(target.place);
  if (auto* open = OpenDatabase(path, source, options); open != nullptr)
    return MakeTableSink(*open, target.name, target.fields, target.existing);
  try {
    return MakeTableSink(Database::Open(path), target.name, target.fields, target.existing);
  } catch (const RunTimeError& error) {
    if (error.Number() != ErrorNumber::kFileNotFound || !options.make_database) throw;
    return MakeNewDatabaseSink(path, target.name, target.fields);
  }
}

Sink MakeSink(const Translation& translation, const std::vector<StoredField>& fields, Database& source,
              const IntoOptions& options) {
  const std::string_view connect = translation.target_connect;
  if (connect.empty()) return MakeTableSink(source, translation.target_table, fields, options.existing);
  const std::string lower = LowerCase(connect);
  const auto place = lower.find(kDatabaseConnect);
  if (place != std::string::npos) {
    const Target target{connect.substr(place + kDatabaseConnect.size()), translation.target_table, fields,
                        options.existing};
    if (place == 0) return MakeDatabaseTarget(target, source, options);
    const auto* format = std::ranges::find(kFormats, std::string_view(lower).substr(0, place), &Format::connect);
    if (format != std::end(kFormats)) return format->make(target);
  }
  throw RunTimeError(ErrorNumber::kUnknownFormat, fmt::format("The file format of '[{}]' is not available.", connect));
}

/// The fields of a query's result, as a table can hold them.
std::vector<StoredField> ResultFields(const Statement& query) {
  std::vector<StoredField> fields;
  for (int i = 0; i < query.ColumnCount(); ++i) fields.push_back(query.ResultField(i));
  return fields;
}

}  // namespace

IntoResult Database::SelectInto(std::string_view sql, const IntoOptions& options) {
  const Translation translation = TranslateSql(sql);
  if (translation.kind != QueryKind::kSelectInto) {
    throw RunTimeError(ErrorNumber::kOperationNotSupported, fmt::format("The query '{}' names no target.", sql));
  }
  impl_->connection->RequireTransactionAlive();
  // Of its own: what is prepared may have to make room for the sink's statements.
  impl_->Prepare(translation.sql, sql);
  Statement select(*impl_->connection, translation.sql);
  select.Bind(translation.parameters);
  const auto fields = ResultFields(select);
  const auto sink = MakeSink(translation, fields, *this, options);
  IntoResult result;
  std::vector<Value> row(fields.size());
  while (select.Step()) {
    for (std::size_t i = 0; i < row.size(); ++i) select.Read(static_cast<int>(i), row[i]);
    sink->Add(row);
    if (++result.rows % kRowsBetweenProgress == 0 && options.progress) options.progress(result.rows);
  }
  select.Reset();
  sink->Commit();
  result.losses = sink->Losses();
  return result;
}

}  // namespace orvex::store
