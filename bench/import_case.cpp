#include "import_case.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "exchange/frmimport.h"
#include "inventory.h"
#include "memory.h"
#include "silent_host.h"
#include "store/database.h"
#include "store/table_sink.h"

namespace orvex::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kTanks = 5'000;

/// A field of the client's tables and its name in the previous version's files.
using Names = std::vector<std::pair<const char*, const char*>>;

/// How a table becomes a file.
struct File {
  const char* table;
  const char* file;
  Names renamed;
};

const std::vector<File>& Files() {
  static const std::vector<File> kFiles = {
      {"tank",
       "tank.dbf",
       {{"ID", "IDX_ID"},
        {"USER ID", "ID"},
        {"CITY", "TCITY"},
        {"STATE", "TSTATE"},
        {"HEIGHT S", "HEIGHT_S"},
        {"HEIGHT ML", "HEIGHT_L"},
        {"HEIGHT AL", "HEIGHT_AL"},
        {"SHL_COND", "S_COND"},
        {"RF_HEIGHT", "HEIGHT_R"},
        {"DECK_SEAM_LENGTH", "DECK_SEAM"},
        {"TANK_CONSTRUCT", "CONSTRUCT"}}},
      {"mixtures", "mixture.dbf", {{"ID", "IDX_ID"}, {"MIX ID", "MIX_ID"}, {"MIX NAME", "NAME"}}},
      {"fittings", "fittings.dbf", {{"ID", "IDX_ID"}, {"FIT ID", "FIT_ID"}}},
      {"components", "storage.dbf", {{"ID", "IDX_ID"}, {"MIX ID", "MIX_ID"}, {"COMP ID", "COMP_ID"}}},
  };
  return kFiles;
}

/// Fields that the previous version held in two parts.
struct Parts {
  std::string_view joined, first, separator, second;
};
constexpr Parts kParts[] = {{"MET CTYST", "CITY", ", ", "STATE"},
                            {"SHL COLSHD", "TCOLOR", "/", "SHADE"},
                            {"RF_COLSHD", "RF_COLOR", "/", "RF_SHADE"}};
/// What it did not hold.
constexpr std::string_view kLater[] = {"DECK_CONSTRUCT", "DECK_SEAM", "SD"};

/// The value of a record in a field of the file.
struct Source {
  store::StoredField field;
  std::string from;
  store::Value (*made)(const store::Value& value);
};

store::Value AsItIs(const store::Value& value) { return value; }
store::Value OldType(const store::Value& value) {
  const auto text = value.AsText();
  return text.substr(0, text.size() - std::string_view(" Tank").size());
}
template <std::size_t kPart, bool kFirst>
store::Value Part(const store::Value& value) {
  const auto text = value.TextOrEmpty();
  const auto separator = text.find(kParts[kPart].separator);
  if (separator == std::string::npos) return {};
  return kFirst ? text.substr(0, separator) : text.substr(separator + kParts[kPart].separator.size());
}
constexpr store::Value (*kPartMakers[][2])(const store::Value&) = {
    {Part<0, true>, Part<0, false>}, {Part<1, true>, Part<1, false>}, {Part<2, true>, Part<2, false>}};

std::vector<Source> SourcesOf(store::Database& client, const File& file) {
  std::vector<Source> sources;
  for (auto field : client.Fields(file.table)) {
    if (std::ranges::find(kLater, field.name) != std::end(kLater)) continue;
    const auto name = field.name;
    if (field.type == store::FieldType::kCounter || field.type == store::FieldType::kLong)
      field.type = store::FieldType::kText;
    const auto* const parts = std::ranges::find(kParts, name, &Parts::joined);
    if (parts != std::end(kParts)) {
      const auto& makers = kPartMakers[parts - std::begin(kParts)];
      for (const auto& [part, made] : {std::pair(parts->first, makers[0]), std::pair(parts->second, makers[1])}) {
        field.name = part;
        sources.push_back({field, name, made});
      }
      continue;
    }
    for (const auto& [ours, theirs] : file.renamed)
      if (name == ours) field.name = theirs;
    sources.push_back({field, name, name == "TANK_TYPE" ? OldType : AsItIs});
  }
  return sources;
}

void WriteFile(store::Database& client, const File& file, const fs::path& folder) {
  const auto sources = SourcesOf(client, file);
  std::vector<store::StoredField> fields;
  for (const auto& source : sources) fields.push_back(source.field);
  const auto sink =
      store::MakeDbaseSink(store::DbaseVersion::kDbaseIv, folder / file.file, fields, store::Existing::kReplace);
  std::vector<store::Value> row(fields.size());
  for (auto rows = client.OpenTable(file.table); !rows.AtEnd(); rows.MoveNext()) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      const auto value = sources[i].made(rows.Get(sources[i].from));
      const bool text = fields[i].type == store::FieldType::kText && !value.IsNull();
      row[i] = text ? store::Value(value.AsText()) : value;
    }
    sink->Add(row);
  }
  sink->Commit();
}

/// Copies files whose bytes then are on the disk.
void Copy(const std::vector<fs::path>& files, const fs::path& folder) {
  for (const auto& file : files) {
    const auto copy = folder / file.filename();
    fs::copy_file(file, copy, fs::copy_options::overwrite_existing);
    const int opened = open(copy.c_str(), O_RDONLY);
    if (opened < 0 || fsync(opened) != 0) throw std::runtime_error("The copy was not flushed.");
    close(opened);
  }
}

/// Imports into a new client database; seconds.
double Import(const fs::path& folder, const fs::path& client, const fs::path& reference) {
  SilentHost host;
  shell::Session session(host);
  fs::remove(client);
  session.ClientDb = store::Database::Create(client, store::ClientTables());
  session.ReferenceDb = store::Database::Open(reference);
  auto form = exchange::OpenFrmImport(session);
  for (std::size_t i = 0; i < Files().size(); ++i)
    exchange::TypePath(session, form, i, (folder / exchange::kImportFiles[i].file).string());
  const double seconds = Time([&] { exchange::ClickOK(session, form); });
  if (session.ClientDb->OpenTable("tank").RecordCount() != kTanks)
    throw std::runtime_error("Not all tanks were imported.");
  return seconds;
}

}  // namespace

Measurement MeasureImport(const Settings& settings) {
  const auto folder = settings.folder / "bench_import";
  const auto copies = folder / "copies";
  fs::create_directories(copies);
  const auto reference = folder / "tankdata.mdb", inventory = folder / "inventory.mdb", client = folder / "client1.mdb";
  fs::copy_file(settings.reference, reference, fs::copy_options::overwrite_existing);
  fs::permissions(reference, fs::perms::owner_write, fs::perm_options::add);
  fs::remove(inventory);
  MakeInventory(inventory, reference, TankKind::kExternal, kTanks);
  std::vector<fs::path> moved = {client};
  {
    const auto tanks = store::Database::Open(inventory);
    for (const auto& file : Files()) {
      WriteFile(*tanks, file, folder);
      moved.push_back(folder / file.file);
    }
  }
  Measurement measured{.key = std::string(kImportCaseKey),
                       .description = "Import of 5,000 dBASE tanks, against copying the bytes",
                       .tanks = kTanks};
  for (int i = 0; i < settings.repetitions; ++i) {
    if (i == 0) ResetPeakMemory();
    KeepBest(measured.seconds, Import(folder, client, reference));
    if (i == 0) measured.peak_bytes = PeakMemory();
    if (settings.with_floor) KeepBest(measured.floor_seconds, Time([&] { Copy(moved, copies); }));
  }
  fs::remove_all(folder);
  return measured;
}

}  // namespace orvex::bench
