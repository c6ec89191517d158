#include "floor.h"

#include <fmt/format.h>

#include <stdexcept>
#include <string_view>

namespace orvex::bench {
namespace {

constexpr std::string_view kMixtureColumns =
    "MOLWT, VP_MOLWT, L_DENS, ALS_TEMP, MLS_TEMP, XLS_TEMP, BULK_TEMP, VP, VP_MAX, VP_MIN";
constexpr std::string_view kComponentColumns = "CAS, MOLWT, L_DENS, VP_MOLWT, ALS_TEMP, VP";

// Positions of the columns that lead from one row to the next.
enum TankColumn { kTankId = 0, kTankCity = 7, kRimPrimary = 27, kRimSecondary = 28, kConstruction = 40 };
enum MixtureColumn { kMixtureRow = 0, kMixtureName = 3 };
enum ComponentColumn { kComponentRow = 0, kComponentName = 4 };

std::string UpdateText(std::string_view table, std::string_view columns) {
  std::string assignments(columns);
  for (std::size_t at = 0; (at = assignments.find(',', at)) != std::string::npos; at += 6) {
    assignments.replace(at, 1, " = ?, ");
  }
  return fmt::format("UPDATE {} SET {} = ? WHERE rowid = ?", table, assignments);
}

std::string InsertText(int columns) {
  std::string marks = "?";
  for (int i = 1; i < columns; ++i) marks += ", ?";
  return "INSERT INTO emission VALUES (" + marks + ")";
}

/// A text column of a row that is read; valid until the statement moves on.
struct TextView {
  const char* data;
  int size;
};

class Floor {
 public:
  Floor(const std::filesystem::path& client, const std::filesystem::path& reference, TankKind kind,
        const RunResult& result)
      : kind_(kind), result_(result), client_(client), reference_(reference, SQLITE_OPEN_READONLY) {}

  void Run(const std::vector<std::string>& user_ids) {
    client_.Execute("BEGIN IMMEDIATE");
    reference_.Execute("BEGIN");
    client_.Execute("DELETE FROM error");
    for (const auto& user_id : user_ids) RunTank(user_id);
    if (next_emission_ != result_.emission.Size()) throw std::runtime_error("The floor has rows left over.");
    reference_.Execute("COMMIT");
    client_.Execute("COMMIT");
  }

  /// Keeps the reads from being optimised away.
  [[nodiscard]] double Checksum() const { return checksum_; }

 private:
  void RunTank(const std::string& user_id) {
    Bind(tank_, 1, {user_id.data(), static_cast<int>(user_id.size())});
    if (!tank_.Step()) throw std::runtime_error("A tank is missing.");
    Fetch(tank_);
    const auto id = sqlite3_column_int64(tank_.Handle(), kTankId);
    ReadByText(city_, Text(tank_, kTankCity));
    if (kind_ == TankKind::kExternal) {
      ReadSeals();
      ReadById(fittings_, id, [] {});
    }
    ReadById(mixtures_, id, [&] {
      ReadByText(chemical_, Text(mixtures_, kMixtureName));
      Update(update_mixture_, result_.mixtures, sqlite3_column_int64(mixtures_.Handle(), kMixtureRow));
    });
    ReadById(components_, id, [&] {
      ReadByText(chemical_, Text(components_, kComponentName));
      Update(update_component_, result_.components, sqlite3_column_int64(components_.Handle(), kComponentRow));
    });
    tank_.Reset();
    ReadById(delete_, id, [] {});
    for (; next_emission_ < result_.emission.Size() && result_.emission.Integer(next_emission_, 0) == id;
         ++next_emission_) {
      result_.emission.Bind(next_emission_, 0, insert_);
      insert_.Step();
      insert_.Reset();
    }
  }

  static TextView Text(SqliteStatement& row, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row.Handle(), column));
    return {text, sqlite3_column_bytes(row.Handle(), column)};
  }

  static void Bind(SqliteStatement& statement, int parameter, TextView text) {
    sqlite3_bind_text(statement.Handle(), parameter, text.data, text.size, SQLITE_STATIC);
  }

  /// Takes every column of the current row.
  void Fetch(SqliteStatement& row) {
    sqlite3_stmt* const handle = row.Handle();
    const int columns = sqlite3_column_count(handle);
    for (int i = 0; i < columns; ++i) {
      switch (sqlite3_column_type(handle, i)) {
        case SQLITE_INTEGER:
          checksum_ += static_cast<double>(sqlite3_column_int64(handle, i));
          break;
        case SQLITE_FLOAT:
          checksum_ += sqlite3_column_double(handle, i);
          break;
        case SQLITE_TEXT:
          checksum_ += sqlite3_column_text(handle, i)[0];
          break;
        default:
          break;
      }
    }
  }

  template <typename Visit>
  void ReadById(SqliteStatement& rows, std::int64_t id, Visit visit) {
    sqlite3_bind_int64(rows.Handle(), 1, id);
    while (rows.Step()) {
      Fetch(rows);
      visit();
    }
    rows.Reset();
  }

  void ReadByText(SqliteStatement& row, TextView key) {
    Bind(row, 1, key);
    if (row.Step()) Fetch(row);
    row.Reset();
  }

  void ReadSeals() {
    const bool welded = std::string_view(Text(tank_, kConstruction).data) == "Welded";
    Bind(seals_, 1, Text(tank_, kRimPrimary));
    Bind(seals_, 2, Text(tank_, kRimSecondary));
    sqlite3_bind_int(seals_.Handle(), 3, welded ? -1 : 0);
    sqlite3_bind_int(seals_.Handle(), 4, welded ? 0 : -1);
    if (seals_.Step()) Fetch(seals_);
    seals_.Reset();
  }

  static void Update(SqliteStatement& update, const RowMemory& rows, std::int64_t row) {
    rows.Bind(static_cast<std::size_t>(row - 1), 0, update);
    update.Step();
    update.Reset();
  }

  TankKind kind_;
  const RunResult& result_;
  SqliteFile client_, reference_;
  SqliteStatement tank_{client_, "SELECT * FROM tank WHERE \"USER ID\" = ?1"};
  SqliteStatement mixtures_{client_, "SELECT rowid, * FROM mixtures WHERE ID = ?1"};
  SqliteStatement components_{client_, "SELECT rowid, * FROM components WHERE ID = ?1"};
  SqliteStatement fittings_{client_, "SELECT * FROM fittings WHERE ID = ?1"};
  SqliteStatement delete_{client_, "DELETE FROM emission WHERE ID = ?1"};
  SqliteStatement insert_{client_, InsertText(result_.emission.Columns())};
  SqliteStatement update_mixture_{client_, UpdateText("mixtures", kMixtureColumns)};
  SqliteStatement update_component_{client_, UpdateText("components", kComponentColumns)};
  SqliteStatement city_{reference_, "SELECT * FROM met WHERE CTYST = ?1"};
  SqliteStatement chemical_{reference_, "SELECT * FROM chemical WHERE NAME = ?1"};
  SqliteStatement seals_{
      reference_, "SELECT * FROM rimseal WHERE PRIM_SEAL = ?1 AND SECND_SEAL = ?2 AND WELDED = ?3 AND RIVETED = ?4"};
  std::size_t next_emission_ = 0;
  double checksum_ = 0;
};

}  // namespace

RunResult::RunResult(const std::filesystem::path& client)
    : file(client, SQLITE_OPEN_READONLY),
      mixtures(file, fmt::format("SELECT {}, rowid FROM mixtures ORDER BY rowid", kMixtureColumns)),
      components(file, fmt::format("SELECT {}, rowid FROM components ORDER BY rowid", kComponentColumns)),
      emission(file, "SELECT * FROM emission ORDER BY rowid") {}

void RunFloor(const std::filesystem::path& client, const std::filesystem::path& reference, TankKind kind,
              const std::vector<std::string>& user_ids, const RunResult& result) {
  Floor floor(client, reference, kind, result);
  floor.Run(user_ids);
  [[maybe_unused]] volatile const double used = floor.Checksum();
}

}  // namespace orvex::bench
