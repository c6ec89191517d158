#include "orvex-report/databases.h"

#include <fmt/format.h>

#include <span>
#include <string_view>

#include "orvex-report/failure.h"
#include "orvex-report/terminal_text.h"
#include "shell/delivered_files.h"
#include "store/field_table.h"
#include "store/run_time_error.h"

namespace orvex::report_app {
namespace {

std::unique_ptr<store::Database> OpenTested(const std::filesystem::path& path, std::string_view kind,
                                            std::span<const store::TableInfo> tables, store::OpenMode mode) {
  try {
    auto database = store::Database::Open(path, mode);
    for (const auto& table : tables) database->OpenTable(table.name);
    return database;
  } catch (const store::RunTimeError& error) {
    throw Failure{kCannotOpen, fmt::format("cannot open '{}' as a {} database: {}", TerminalText(path.string()), kind,
                                           TerminalText(error.Description()))};
  }
}

std::filesystem::path FindDeliveredReference(const std::filesystem::path& program) {
  try {
    return shell::FindDelivered(program, shell::kReferenceFile);
  } catch (const store::RunTimeError& error) {
    throw Failure{kCannotOpen, TerminalText(error.Description()) + " Use --reference FILE."};
  }
}

}  // namespace

std::unique_ptr<store::Database> OpenClient(const std::filesystem::path& path, bool to_write) {
  auto client = OpenTested(path, "client", store::ClientTables(),
                           to_write ? store::OpenMode::kReadWrite : store::OpenMode::kReadOnly);
  if (to_write && client->ReadOnly())
    throw Failure{kCannotOpen,
                  fmt::format("cannot open '{}' for writing: it may only be read", TerminalText(path.string()))};
  return client;
}

std::unique_ptr<store::Database> OpenReference(const std::filesystem::path& path,
                                               const std::filesystem::path& program) {
  return OpenTested(path.empty() ? FindDeliveredReference(program) : path, "reference", store::TestedReferenceTables(),
                    store::OpenMode::kReadOnly);
}

}  // namespace orvex::report_app
