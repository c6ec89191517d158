#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "exchange/inventory_csv.h"
#include "exchange/inventory_files.h"
#include "shell/editing.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::exchange {
namespace {

namespace fs = std::filesystem;
using shell::Session;

/// More lines than this fit into no message box.
constexpr std::size_t kMostTold = 20;
constexpr std::string_view kLineEnd = "\r\n";

std::string Counted(std::int64_t count, std::string_view what) {
  return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

std::string FirstLines(const std::string& text) {
  const auto lines = FaultLines(text);
  std::string first;
  for (std::size_t i = 0; i < std::min(lines.size(), kMostTold); ++i) first += fmt::format("{}{}", lines[i], kLineEnd);
  if (lines.size() > kMostTold) first += fmt::format("and {} more.{}", lines.size() - kMostTold, kLineEnd);
  return first;
}

std::string AskForFolder(Session& session, std::string_view title) {
  shell::FileRequest request;
  request.title = title;
  request.folder = session.ClientDb->Path().parent_path().string();
  return session.host.ChooseFolder(request);
}

/// Whether a person's files may be written over.
bool MayReplace(Session& session, const fs::path& folder) {
  std::string there;
  for (const auto* file : InventoryFiles()) {
    std::error_code error;
    if (fs::exists(folder / file->name, error)) there += fmt::format("{}{}", there.empty() ? "" : ", ", file->name);
  }
  return there.empty() ||
         shell::Accepted(session.host,
                         fmt::format("The folder {} holds files of these names already: {}. Do you want to replace "
                                     "them?",
                                     folder.string(), there),
                         "Replace?", shell::Icon::kQuestion);
}

}  // namespace

std::string InventoryCounts::Text() const {
  return fmt::format("{}, {}, {} and {}", Counted(tanks, "tank"), Counted(mixtures, "mixture"),
                     Counted(components, "component"), Counted(fittings, "fitting"));
}

void ImportCsv(Session& session) {
  shell::Trapped(session, "mDatabase.ImportCsv", [&] {
    const auto editing = shell::BeginEditing(session, shell::DatabaseKind::kClient);
    if (!editing) return;
    const auto folder = AskForFolder(session, "Import Tanks from CSV Files");
    const shell::BusyScope busy(session, "Processing");
    try {
      const auto counts =
          ImportInventory(*session.ClientDb, *session.ReferenceDb, folder,
                          [&](std::int64_t done, std::int64_t total) { session.host.Progress(done, total); });
      auto text = fmt::format("{} were imported from {}.", counts.Text(), folder);
      if (counts.without_mixture > 0)
        text += fmt::format("{0}{0}Components whose mixture is not there, as deleting one leaves them: {1}.", kLineEnd,
                            counts.without_mixture);
      shell::Tell(session.host, text, shell::Icon::kInformation);
    } catch (const store::RunTimeError& error) {
      if (error.Number() != store::ErrorNumber::kDataConversion) throw;
      shell::Tell(session.host,
                  fmt::format("Nothing was imported. Please correct these faults and try again:{0}{0}{1}", kLineEnd,
                              FirstLines(error.Description())),
                  shell::Icon::kExclamation);
    }
  });
}

void ExportCsv(Session& session) {
  shell::Trapped(session, "mDatabase.ExportCsv", [&] {
    const auto folder = AskForFolder(session, "Export Tanks to CSV Files");
    if (!MayReplace(session, folder)) return;
    const shell::BusyScope busy(session, "Processing");
    const auto counts = ExportInventory(*session.ClientDb, folder);
    auto text = fmt::format("{} were exported to {}.", counts.Text(), folder);
    if (counts.left_out > 0)
      text += fmt::format("{0}{0}Rows that belong to no tank were left out: {1}.", kLineEnd, counts.left_out);
    shell::Tell(session.host, text, shell::Icon::kInformation);
  });
}

}  // namespace orvex::exchange
