#include "orvex-report/databases.h"

#include <fmt/format.h>

#include <string>
#include <string_view>
#include <system_error>

#include "orvex-report/failure.h"
#include "orvex-report/terminal_text.h"
#include "store/run_time_error.h"

namespace orvex::report_app {
namespace {

/// The tables whose presence makes a file a database of its kind, in the order in which they are tried.
constexpr std::string_view kClientTables[] = {"components", "emission", "fittings", "mixtures", "tank", "error"};
constexpr std::string_view kReferenceTables[] = {"chemical",      "deckseam",           "fitting", "met",
                                                 "profile names", "profile components", "rimseal"};

/// Where the delivered reference database stands, as seen from the program's folder: when installed, and where it was
/// built.
constexpr const char* kDelivered[] = {"../share/orvex/tankdata.mdb", "../../data/tankdata.mdb"};

template <typename Tables>
std::unique_ptr<store::Database> OpenTested(const std::filesystem::path& path, std::string_view kind,
                                            const Tables& tables, store::OpenMode mode) {
  try {
    auto database = store::Database::Open(path, mode);
    for (const auto table : tables) database->OpenTable(table);
    return database;
  } catch (const store::RunTimeError& error) {
    throw Failure{kCannotOpen, fmt::format("cannot open '{}' as a {} database: {}", TerminalText(path.string()), kind,
                                           TerminalText(error.Description()))};
  }
}

std::filesystem::path FindDelivered(const std::filesystem::path& program) {
  std::string tried;
  for (const auto* place : kDelivered) {
    auto path = (program.parent_path() / place).lexically_normal();
    std::error_code ignored;
    if (std::filesystem::exists(path, ignored)) return path;
    tried += (tried.empty() ? "'" : " or '") + TerminalText(path.string()) + "'";
  }
  throw Failure{kCannotOpen, "the delivered reference database is not there: no " + tried + "; use --reference FILE"};
}

}  // namespace

std::unique_ptr<store::Database> OpenClient(const std::filesystem::path& path, bool to_write) {
  auto client =
      OpenTested(path, "client", kClientTables, to_write ? store::OpenMode::kReadWrite : store::OpenMode::kReadOnly);
  if (to_write && client->ReadOnly())
    throw Failure{kCannotOpen,
                  fmt::format("cannot open '{}' for writing: it may only be read", TerminalText(path.string()))};
  return client;
}

std::unique_ptr<store::Database> OpenReference(const std::filesystem::path& path,
                                               const std::filesystem::path& program) {
  return OpenTested(path.empty() ? FindDelivered(program) : path, "reference", kReferenceTables,
                    store::OpenMode::kReadOnly);
}

}  // namespace orvex::report_app
