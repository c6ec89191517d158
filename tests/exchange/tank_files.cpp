#include "exchange/tank_files.h"

#include <algorithm>

#include "shell/periods.h"

namespace orvex::test {
namespace {

constexpr int kText = 100, kLongText = 254, kNumber = 19;

using Names = std::initializer_list<const char*>;

void AddTexts(std::vector<DbaseColumn>& columns, Names names) {
  for (const auto* name : names) columns.push_back(TextColumn(name, kText));
}
void AddNumbers(std::vector<DbaseColumn>& columns, Names names) {
  for (const auto* name : names) columns.push_back(NumberColumn(name));
}
void AddFlags(std::vector<DbaseColumn>& columns, Names names) {
  for (const auto* name : names) columns.push_back(LogicalColumn(name));
}

DbaseRow Joined(DbaseRow row, TankFiles::Changes changes) {
  row.insert(row.end(), changes.begin(), changes.end());
  return row;
}

void WriteFile(const std::filesystem::path& path, const std::vector<DbaseColumn>& columns,
               const std::vector<DbaseRow>& rows) {
  DbaseWriter file(path, columns);
  for (const auto& row : rows) file.Add(row);
}

void WriteFileOfTexts(const std::filesystem::path& path, const std::vector<DbaseColumn>& columns,
                      std::vector<DbaseRow> rows) {
  std::vector<DbaseColumn> texts;
  for (const auto& column : columns) texts.push_back(column.type == 'C' ? column : TextColumn(column.name, kNumber));
  for (auto& row : rows) {
    for (auto& [field, value] : row) {
      const auto column = std::ranges::find(columns, field, &DbaseColumn::name);
      if (value.IsNull() || column->type == 'C') continue;
      value = column->type == 'L' ? store::Value(value.AsBool() ? "Y" : "N") : store::Value("  " + value.AsText());
    }
  }
  WriteFile(path, texts, rows);
}

/// A field of ours and its name in the previous version's file.
struct Renamed {
  const char* field;
  const char* source;
};
constexpr Renamed kTankNames[] = {
    {"CITY", "TCITY"},        {"STATE", "TSTATE"},       {"HEIGHT S", "HEIGHT_S"},   {"HEIGHT ML", "HEIGHT_L"},
    {"SHL_COND", "S_COND"},   {"RF_HEIGHT", "HEIGHT_R"}, {"HEIGHT AL", "HEIGHT_AL"}, {"DECK_SEAM_LENGTH", "DECK_SEAM"},
    {"COMPANY", "COMPANY"},   {"DESC", "DESC"},          {"ATMOS_PRS", "ATMOS_PRS"}, {"DIAMETER", "DIAMETER"},
    {"VOLUME", "VOLUME"},     {"VENT_P", "VENT_P"},      {"VENT_V", "VENT_V"},       {"PT_COND", "PT_COND"},
    {"RF_COND", "RF_COND"},   {"RF_TYPE", "RF_TYPE"},    {"D_RADIUS", "D_RADIUS"},   {"C_SLOPE", "C_SLOPE"},
    {"Q_NET", "Q_NET"},       {"TURNOVER", "TURNOVER"},  {"RIM_PRIM", "RIM_PRIM"},   {"RIM_SEC", "RIM_SEC"},
    {"FITTING", "FITTING"},   {"COL_NO", "COL_NO"},      {"COL_DIAM", "COL_DIAM"},   {"HEATED", "HEATED"},
    {"SELF_SUP", "SELF_SUP"}, {"UNDER", "UNDER"},        {"DECK_TYPE", "DECK_TYPE"},
};

void AddParts(DbaseRow& row, const std::string& text, char separator, const char* first, const char* second) {
  const auto end = text.find(separator);
  if (end == std::string::npos) return;
  row.emplace_back(first, text.substr(0, end));
  row.emplace_back(second, text.substr(text.find_first_not_of(' ', end + 1)));
}

/// The previous version's types have other names.
std::string OldType(const std::string& type) {
  if (type == "Horizontal Tank") return "Horizontal Fixed Roof";
  return type.substr(0, type.size() - std::string(" Tank").size());
}

/// The rows of a table that belong to a tank, as records: all fields but the keys, under the names in the files.
std::vector<DbaseRow> RowsOf(store::Database& client, const char* table, const char* index, std::int32_t ID,
                             const std::string& idx_id, const std::vector<DbaseColumn>& columns) {
  std::vector<DbaseRow> rows;
  for (auto set = client.OpenMatching(table, index, {ID}); !set.AtEnd(); set.MoveNext()) {
    DbaseRow row = {{"IDX_ID", idx_id}};
    for (const auto& column : columns) {
      for (int i = 0; i < set.FieldCount(); ++i) {
        if (set.FieldName(i) == column.name) row.emplace_back(column.name, set.Get(i));
      }
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace

std::vector<DbaseColumn> TankColumns() {
  std::vector<DbaseColumn> columns;
  AddTexts(columns, {"IDX_ID",  "TANK_TYPE", "TCITY",   "TSTATE",  "CITY",      "STATE",    "COMPANY",
                     "TCOLOR",  "SHADE",     "S_COND",  "PT_COND", "RF_COLOR",  "RF_SHADE", "RF_COND",
                     "RF_TYPE", "RIM_PRIM",  "RIM_SEC", "FITTING", "DECK_TYPE", "CONSTRUCT"});
  columns.push_back(TextColumn("ID", kLongText));
  columns.push_back(TextColumn("DESC", kLongText));
  AddNumbers(columns, {"ATMOS_PRS", "DIAMETER", "HEIGHT_S", "HEIGHT_L", "HEIGHT_AL", "VOLUME", "VENT_P", "VENT_V",
                       "HEIGHT_R", "D_RADIUS", "C_SLOPE", "Q_NET", "TURNOVER", "DECK_SEAM", "COL_NO", "COL_DIAM"});
  AddFlags(columns, {"HEATED", "SELF_SUP", "UNDER"});
  return columns;
}

std::vector<DbaseColumn> TankMixtureColumns() {
  std::vector<DbaseColumn> columns;
  AddTexts(columns, {"IDX_ID", "MIX_ID", "NAME", "CAS", "C_CATEGORY", "COMPONENT", "SPEC_OPT"});
  AddNumbers(columns, {"ALS_TEMP", "MLS_TEMP", "XLS_TEMP", "BULK_TEMP", "VP", "VP_MIN", "VP_MAX", "MOLWT", "VP_MOLWT",
                       "L_DENS"});
  AddFlags(columns, {"JANUARY", "FEBRUARY", "MARCH", "APRIL", "MAY", "JUNE", "JULY", "AUGUST", "SEPTEMBER", "OCTOBER",
                     "NOVEMBER", "DECEMBER"});
  for (const auto& month : shell::kMonths) columns.push_back(NumberColumn(std::string(month.throughput)));
  return columns;
}

std::vector<DbaseColumn> TankFittingColumns() {
  std::vector<DbaseColumn> columns;
  AddTexts(columns, {"IDX_ID", "FIT_TYPE", "COVR_TYPE"});
  AddNumbers(columns, {"K_FA", "K_FB", "K_M", "QUANTITY"});
  return columns;
}

std::vector<DbaseColumn> TankComponentColumns() {
  std::vector<DbaseColumn> columns;
  AddTexts(columns, {"IDX_ID", "MIX_ID", "NAME"});
  AddNumbers(columns, {"WT_FRACT", "VP_FRACT", "WEIGHT", "ALS_TEMP", "VP"});
  return columns;
}

void WriteReferenceFile(const std::filesystem::path& path, store::Database& reference, const char* table) {
  std::vector<DbaseColumn> columns;
  for (const auto& field : reference.Fields(table)) {
    // What the previous version did not have has longer names or a blank in them.
    if (field.type == store::FieldType::kText) columns.push_back(TextColumn(field.name, kText));
    if (field.type == store::FieldType::kDouble) columns.push_back(NumberColumn(field.name));
    if (field.type == store::FieldType::kBoolean && field.name.find(' ') == std::string::npos)
      columns.push_back(LogicalColumn(field.name));
  }
  DbaseWriter file(path, columns);
  for (auto rows = reference.OpenTable(table); !rows.AtEnd(); rows.MoveNext()) {
    DbaseRow row;
    for (const auto& column : columns) row.emplace_back(column.name, rows.Get(column.name));
    file.Add(row);
  }
}

void TankFiles::AddTank(const std::string& idx_id, const std::string& ID, Changes changes) {
  tanks.push_back(Joined({{"IDX_ID", idx_id},
                          {"ID", ID},
                          {"TANK_TYPE", "Vertical Fixed Roof"},
                          {"CITY", "Sampleton"},
                          {"STATE", "Ohio"},
                          {"DIAMETER", 20}},
                         changes));
  AddMixture(idx_id, "1");
}

void TankFiles::AddMixture(const std::string& idx_id, const std::string& mix_id, Changes changes) {
  DbaseRow row = {{"IDX_ID", idx_id}, {"MIX_ID", mix_id}, {"NAME", "Benzene"}, {"COMPONENT", "Single"}};
  for (const auto& column : TankMixtureColumns()) {
    if (column.type == 'L') row.emplace_back(column.name, true);
  }
  mixtures.push_back(Joined(std::move(row), changes));
}

void TankFiles::AddFitting(const std::string& idx_id, Changes changes) {
  fittings.push_back(Joined({{"IDX_ID", idx_id},
                             {"FIT_TYPE", "Access Hatch (24-in. Diam.)"},
                             {"COVR_TYPE", "Bolted Cover, Gasketed"},
                             {"QUANTITY", 1}},
                            changes));
}

void TankFiles::AddComponent(const std::string& idx_id, const std::string& mix_id, Changes changes) {
  components.push_back(Joined({{"IDX_ID", idx_id}, {"MIX_ID", mix_id}, {"NAME", "Benzene"}}, changes));
}

void TankFiles::AddStoredTank(store::Database& client, std::int32_t ID) {
  auto tank = client.OpenAt("tank", "ID", {ID});
  const std::string idx_id = std::to_string(ID);
  DbaseRow row = {{"IDX_ID", idx_id}, {"ID", tank.Text("USER ID")}, {"TANK_TYPE", OldType(tank.Text("TANK_TYPE"))}};
  for (const auto& name : kTankNames) row.emplace_back(name.source, tank.Get(name.field));
  AddParts(row, tank.TextOrEmpty("MET CTYST"), ',', "CITY", "STATE");
  AddParts(row, tank.TextOrEmpty("SHL COLSHD"), '/', "TCOLOR", "SHADE");
  AddParts(row, tank.TextOrEmpty("RF_COLSHD"), '/', "RF_COLOR", "RF_SHADE");
  row.emplace_back("CONSTRUCT", tank.IsNull("DECK_SEAM") ? tank.Get("TANK_CONSTRUCT") : tank.Get("DECK_SEAM"));
  tanks.push_back(std::move(row));

  for (auto& mixture : RowsOf(client, "mixtures", "IDMIX", ID, idx_id, TankMixtureColumns()))
    mixtures.push_back(std::move(mixture));
  auto stored = client.OpenMatching("mixtures", "IDMIX", {ID});
  for (auto& mixture : mixtures) {
    if (mixture.front().second.AsText() != idx_id) continue;
    mixture.emplace_back("MIX_ID", stored.Text("MIX ID"));
    mixture.emplace_back("NAME", stored.Get("MIX NAME"));
    stored.MoveNext();
  }
  for (auto& fitting : RowsOf(client, "fittings", "fitid", ID, idx_id, TankFittingColumns()))
    fittings.push_back(std::move(fitting));
  auto parts = client.OpenMatching("components", "IDMIX", {ID});
  for (auto& component : RowsOf(client, "components", "IDMIX", ID, idx_id, TankComponentColumns())) {
    component.emplace_back("MIX_ID", parts.Text("MIX ID"));
    components.push_back(std::move(component));
    parts.MoveNext();
  }
}

void TankFiles::Write(const std::filesystem::path& folder) const {
  WriteFile(folder / "tank.dbf", TankColumns(), tanks);
  WriteFile(folder / "mixture.dbf", TankMixtureColumns(), mixtures);
  WriteFile(folder / "fittings.dbf", TankFittingColumns(), fittings);
  WriteFile(folder / "storage.dbf", TankComponentColumns(), components);
}

void TankFiles::WriteAsTexts(const std::filesystem::path& folder) const {
  WriteFileOfTexts(folder / "tank.dbf", TankColumns(), tanks);
  WriteFileOfTexts(folder / "mixture.dbf", TankMixtureColumns(), mixtures);
  WriteFileOfTexts(folder / "fittings.dbf", TankFittingColumns(), fittings);
  WriteFileOfTexts(folder / "storage.dbf", TankComponentColumns(), components);
}

}  // namespace orvex::test
