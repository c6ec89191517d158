#include "record_case.h"

#include <fmt/format.h>

#include <array>
#include <stdexcept>
#include <vector>

#include "memory.h"
#include "sqlite_file.h"
#include "store/database.h"

namespace orvex::bench {
namespace {

constexpr std::int32_t kRows = 200'000;
constexpr std::size_t kFields = 90;
constexpr std::string_view kText = "Vertical Fixed Roof";

/// The first fields of `emission`, without its indexes.
store::TableInfo RowTable() {
  auto table = store::FindTable("emission");
  table.fields = table.fields.first(kFields);
  table.indexes = {};
  return table;
}

double RealOf(std::int32_t row, std::size_t field) { return row * 0.5 + static_cast<double>(field) + 0.25; }

void WriteRecords(store::Database& client, const store::TableInfo& table) {
  store::Transaction transaction(client);
  auto rows = client.OpenTable(table.name);
  for (std::int32_t row = 0; row < kRows; ++row) {
    rows.AddNew();
    for (std::size_t i = 0; i < table.fields.size(); ++i) {
      const auto& field = table.fields[i];
      switch (field.type) {
        case store::FieldType::kText:
          rows.Set(field.name, kText.substr(0, static_cast<std::size_t>(field.width)));
          break;
        case store::FieldType::kDouble:
          rows.Set(field.name, RealOf(row, i));
          break;
        case store::FieldType::kBoolean:
          rows.Set(field.name, row % 2 == 0);
          break;
        case store::FieldType::kLong:
        case store::FieldType::kCounter:
          rows.Set(field.name, row);
          break;
      }
    }
    rows.Update();
  }
  transaction.Commit();
}

void InsertRows(const std::filesystem::path& path, const store::TableInfo& table) {
  SqliteFile file(path);
  file.Execute("BEGIN IMMEDIATE");
  std::string marks = "?";
  for (std::size_t i = 1; i < table.fields.size(); ++i) marks += ", ?";
  SqliteStatement insert(file, fmt::format("INSERT INTO {} VALUES ({})", table.name, marks));
  for (std::int32_t row = 0; row < kRows; ++row) {
    for (std::size_t i = 0; i < table.fields.size(); ++i) {
      const auto& field = table.fields[i];
      const int parameter = static_cast<int>(i + 1);
      switch (field.type) {
        case store::FieldType::kText:
          sqlite3_bind_text(insert.Handle(), parameter, kText.data(),
                            std::min(field.width, static_cast<int>(kText.size())), SQLITE_STATIC);
          break;
        case store::FieldType::kDouble:
          sqlite3_bind_double(insert.Handle(), parameter, RealOf(row, i));
          break;
        case store::FieldType::kBoolean:
          sqlite3_bind_int(insert.Handle(), parameter, row % 2 == 0 ? -1 : 0);
          break;
        case store::FieldType::kLong:
        case store::FieldType::kCounter:
          sqlite3_bind_int(insert.Handle(), parameter, row);
          break;
      }
    }
    insert.Step();
    insert.Reset();
  }
  file.Execute("COMMIT");
}

}  // namespace

Measurement MeasureRecords(const Settings& settings) {
  std::filesystem::create_directories(settings.folder);
  const auto ours = settings.folder / "bench_run.mdb";
  const auto floor = settings.folder / "bench_floor.mdb";
  const std::array tables = {RowTable()};
  Measurement measured{.key = std::string(kRecordCaseKey),
                       .description = fmt::format("the record layer alone, rows of {} fields", kFields),
                       .rows = kRows};
  for (int i = 0; i < settings.repetitions; ++i) {
    std::filesystem::remove(ours);
    auto client = store::Database::Create(ours, tables);
    if (i == 0) ResetPeakMemory();
    KeepBest(measured.seconds, Time([&] { WriteRecords(*client, tables[0]); }));
    if (i == 0) measured.peak_bytes = PeakMemory();
    client.reset();
    if (!settings.with_floor) continue;
    std::filesystem::remove(floor);
    store::Database::Create(floor, tables).reset();
    KeepBest(measured.floor_seconds, Time([&] { InsertRows(floor, tables[0]); }));
    if (ContentHash(floor) != ContentHash(ours)) throw std::runtime_error("The floor left other rows than the layer.");
  }
  std::filesystem::remove(ours);
  std::filesystem::remove(floor);
  return measured;
}

}  // namespace orvex::bench
