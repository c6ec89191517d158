#include "exchange/tank_import.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <optional>

#include "exchange/import_log.h"
#include "exchange/reference_import.h"
#include "exchange/reference_lookups.h"
#include "exchange/tank_checks.h"
#include "exchange/tank_sources.h"
#include "exchange/tank_writer.h"
#include "store/database.h"

namespace orvex::exchange {
namespace {

using store::ErrorNumber;

constexpr std::string_view kCorrupted =
    "This record is corrupted and cannot be imported.  You may want to delete and reenter this record in ORVEX 3.1.";

/// The places of the files in `kImportFiles`.
enum File : std::size_t { kTanks, kMixtures, kFittings, kComponents, kChemicals, kCities, kFittingTypes, kRimSeals };

/// Files of reference data, in the order in which they are added.
struct Ancillary {
  File file;
  bool (*import)(shell::Session& session, const std::string& path);
};
constexpr Ancillary kAncillaries[] = {
    {kChemicals, IChemical}, {kCities, IMet}, {kFittingTypes, IFit}, {kRimSeals, IRim}};

/// Failures of a disk or database, after which no other tank could be imported either.
constexpr ErrorNumber kFailuresOfAll[] = {ErrorNumber::kDiskFailure, ErrorNumber::kTransactionLost,
                                          ErrorNumber::kFileLocked,  ErrorNumber::kReadOnly,
                                          ErrorNumber::kDamagedFile, ErrorNumber::kNotADatabase};

bool EndsImport(const store::RunTimeError& error) {
  return std::ranges::find(kFailuresOfAll, error.Number()) != std::end(kFailuresOfAll);
}

/// What the person sees of how far the import has come. Counting tanks alone would not let them stop it while a long
/// file of something else is read.
class TankProgress {
 public:
  explicit TankProgress(shell::Host& host) : host_(host) {}

  void SetTanks(std::int64_t tanks) { tanks_ = tanks; }
  void TankDone() { host_.Progress(++done_, tanks_); }
  void RecordRead() {
    constexpr std::int64_t kRecordsBetween = 1000;
    if (++records_ % kRecordsBetween == 0) host_.Progress(done_, tanks_);
  }

 private:
  shell::Host& host_;
  std::int64_t tanks_ = 0, done_ = 0, records_ = 0;
};

class TankImport {
 public:
  explicit TankImport(shell::Session& session)
      : session_(session),
        progress_(session.host),
        lookups_(*session.ReferenceDb),
        log_(*session.ReferenceDb),
        writer_(*session.ClientDb, lookups_) {}

  void SetUp(std::span<const std::string> paths) {
    sources_.emplace(TankPaths{paths[kTanks], paths[kMixtures], paths[kFittings], paths[kComponents]},
                     [this] { progress_.RecordRead(); });
    log_.Clear();
    for (const auto& ancillary : kAncillaries) {
      const auto& path = paths[ancillary.file];
      if (!path.empty() && !ancillary.import(session_, path)) throw store::RunTimeError(ErrorNumber::kNone, "");
    }
  }

  void Run() {
    auto& tanks = sources_->tanks;
    progress_.SetTanks(tanks.RecordCount());
    for (; !tanks.AtEnd(); tanks.MoveNext()) {
      ImportTank();
      progress_.TankDone();
    }
  }

 private:
  void ImportTank() {
    TankName name;
    name.logged = fmt::format("Record {}", sources_->tanks.Position());
    try {
      name = TankName::Read(sources_->tanks);
      if (!CheckTank(*sources_, name, {writer_.Tanks(), lookups_}, log_)) return;
      writer_.Write(*sources_, name);
      log_.Add(name.IDX_ID, name.logged, kImported);
    } catch (const store::RunTimeError& error) {
      if (EndsImport(error)) throw;
      log_.Add(name.IDX_ID, name.logged, kCorrupted);
      writer_.Undo();
    }
  }

  shell::Session& session_;
  TankProgress progress_;
  ReferenceLookups lookups_;
  ImportLog log_;
  TankWriter writer_;
  std::optional<TankSources> sources_;
};

void RequirePaths(std::span<const std::string> paths) {
  for (std::size_t i = 0; i < paths.size(); ++i) {
    if (kImportFiles[i].required && paths[i].empty()) throw PathMissing{i};
  }
}

}  // namespace

void ImportTankFiles(shell::Session& session, std::span<const std::string> paths) {
  store::Transaction client(*session.ClientDb), reference(*session.ReferenceDb);
  std::optional<TankImport> import;
  try {
    import.emplace(session);
    RequirePaths(paths);
    import->SetUp(paths);
  } catch (const store::RunTimeError& error) {
    throw SetUpFailure(error.Number(), error.Description());
  }
  import->Run();
  // A disk that is full or a reader that holds a file up is met here, while both can still be undone.
  reference.Flush();
  client.Flush();
  // A tank whose chemicals are not there would be worse than chemicals whose tanks are not: those come with the next
  // import of the same files.
  reference.Commit();
  client.Commit();
}

}  // namespace orvex::exchange
