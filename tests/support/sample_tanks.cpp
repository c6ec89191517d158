#include "support/sample_tanks.h"

#include <string>
#include <utility>
#include <vector>

#include "shell/periods.h"
#include "shell/tank_types.h"

namespace orvex::test {
namespace {

using Fields = std::vector<std::pair<std::string_view, store::Value>>;

const Fields kPaint = {{"SHL COLSHD", "White/White"}, {"PT_COND", "Good"}};
const Fields kRoofPaint = {{"RF_COLSHD", "White/White"}, {"RF_COND", "Good"}};
const Fields kSeals = {{"SHL_COND", "Light Rust"},
                       {"RIM_PRIM", "Mechanical Shoe"},
                       {"RIM_SEC", "None"},
                       {"FITTING", "Detail"},
                       {"TANK_CONSTRUCT", "Welded"}};
const Fields kFloatingSize = {{"DIAMETER", 100.0}, {"VOLUME", 1000000.0}, {"TURNOVER", 12.0}, {"Q_NET", 12000000.0}};
const Fields kBenzene = {{"MOLWT", 78.11}, {"VP_MOLWT", 78.11}, {"L_DENS", 7.365}};

template <typename Values>
void SetAll(store::RecordSet& rows, const Values& fields) {
  for (const auto& [name, value] : fields) rows.Set(name, value);
}

std::int32_t AddTank(TestSession& test, std::string_view type, std::initializer_list<Fields> groups,
                     FieldValues changes) {
  AddSampleReference(test.reference());
  auto tanks = test.client().OpenTable("tank");
  tanks.AddNew();
  tanks.Set("USER ID", "Tank " + std::to_string(tanks.RecordCount() + 1));
  tanks.Set("TANK_TYPE", type);
  tanks.Set("MET CTYST", kSampleCity);
  tanks.Set("ATMOS_PRS", 14.0);
  for (const Fields& group : groups) SetAll(tanks, group);
  SetAll(tanks, changes);
  tanks.Update();
  tanks.Move(tanks.LastModified());
  const std::int32_t ID = tanks.Long("ID");
  AddMixture(test.client(), ID, 1);
  SetThroughput(test.client(), ID, 1, tanks.DoubleOrZero("Q_NET") / 12);
  return ID;
}

template <typename FieldOf>
void SetEveryMonth(store::Database& client, std::int32_t ID, std::int32_t MixID, FieldOf field_of,
                   const store::Value& value) {
  auto mixtures = client.OpenTable("mixtures");
  mixtures.SetIndex("IDMIX");
  mixtures.Seek({ID, MixID});
  mixtures.Edit();
  for (const shell::Month& month : shell::kMonths) mixtures.Set(field_of(month), value);
  mixtures.Update();
}

bool HasRow(store::Database& database, std::string_view table, std::string_view index,
            std::initializer_list<store::Value> key) {
  auto rows = database.OpenTable(table);
  rows.SetIndex(index);
  rows.Seek(key);
  return !rows.NoMatch();
}

void AddSampleCity(store::Database& reference) {
  auto cities = reference.OpenTable("met");
  cities.AddNew();
  SetAll(
      cities,
      Fields{
          {"CTYST", kSampleCity}, {"CITY", "Sampleton"}, {"STATE", "Ohio"}, {"A_TEMP_DAA", 55.0}, {"ATMOS_PRS", 14.0}});
  const auto set_period = [&](std::string_view suffix, double coldest, double warmest, double insolation) {
    cities.Set("TAN_" + std::string(suffix), coldest);
    cities.Set("TAX_" + std::string(suffix), warmest);
    cities.Set("INSOL_" + std::string(suffix), insolation);
    cities.Set("WIND_" + std::string(suffix), 8.0);
  };
  set_period("ANN", 45, 65, 1400);
  // Six months below the year's mean, six above it, by the same steps.
  constexpr double kSteps[] = {-5, -4, -2, 0, 2, 4, 5, 4, 2, 0, -2, -4};
  for (std::size_t i = 0; i < shell::kMonths.size(); ++i)
    set_period(shell::kMonths[i].suffix, 45 + 4 * kSteps[i], 65 + 4 * kSteps[i], 1400 + 150 * kSteps[i]);
  cities.Update();
}

}  // namespace

void AddSampleReference(store::Database& reference) {
  if (!HasRow(reference, "met", "CTYST", {kSampleCity})) AddSampleCity(reference);
  if (!HasRow(reference, "chemical", "chemname", {"Benzene"})) {
    AddRow(reference, "chemical",
           {{"NAME", "Benzene"},
            {"CAS", "71-43-2"},
            {"CATEGORY", shell::kOrganicLiquids},
            {"MOLWT", 78.11},
            {"VP_MOLWT", 78.11},
            {"L_DENS", 7.365},
            {"VP_COEF_A", 6.905},
            {"VP_COEF_B", 1211.033},
            {"VP_COEF_C", 220.79}});
  }
  if (!HasRow(reference, "chemical", "chemname", {"Toluene"})) {
    AddRow(reference, "chemical",
           {{"NAME", "Toluene"},
            {"CAS", "108-88-3"},
            {"CATEGORY", shell::kOrganicLiquids},
            {"MOLWT", 92.13},
            {"VP_MOLWT", 92.13},
            {"L_DENS", 7.261},
            {"VP_COEF_A", 6.954},
            {"VP_COEF_B", 1344.8},
            {"VP_COEF_C", 219.48}});
  }
  if (!HasRow(reference, "rimseal", "primsec", {"Mechanical Shoe", "None"})) {
    AddRow(reference, "rimseal",
           {{"PRIM_SEAL", "Mechanical Shoe"},
            {"SECND_SEAL", "None"},
            {"WELDED", true},
            {"K_RA", 5.8},
            {"K_RB", 0.3},
            {"N_FACTOR", 2.1},
            {"EFLT", true},
            {"DEFT", true},
            {"IFLT", true}});
    AddRow(reference, "rimseal",
           {{"PRIM_SEAL", "Mechanical Shoe"},
            {"SECND_SEAL", "Rim-mounted"},
            {"WELDED", true},
            {"K_RA", 0.6},
            {"K_RB", 0.4},
            {"N_FACTOR", 1.0},
            {"EFLT", true},
            {"DEFT", true},
            {"IFLT", true}});
  }
  if (!HasRow(reference, "deckseam", "name", {"Sheet: 5 Ft Wide"})) {
    AddRow(reference, "deckseam",
           {{"NAME", "Sheet: 5 Ft Wide"}, {"CONSTRUC", "Sheet"}, {"SWIDTH", 5.0}, {"SD", 0.2}, {"KD", 0.14}});
  }
}

std::int32_t AddVerticalTank(TestSession& test, FieldValues changes) {
  return AddTank(test, shell::kVerticalFixedRoof,
                 {kPaint,
                  kRoofPaint,
                  {{"DIAMETER", 20.0},
                   {"HEIGHT S", 20.0},
                   {"HEIGHT ML", 18.0},
                   {"HEIGHT AL", 10.0},
                   {"VOLUME", 42000.0},
                   {"TURNOVER", 10.0},
                   {"Q_NET", 420000.0},
                   {"RF_TYPE", "Cone"},
                   {"RF_HEIGHT", 0.0},
                   {"C_SLOPE", 0.0625},
                   {"D_RADIUS", 0.0},
                   {"VENT_P", 0.03},
                   {"VENT_V", -0.03}}},
                 changes);
}

std::int32_t AddHorizontalTank(TestSession& test, FieldValues changes) {
  return AddTank(test, shell::kHorizontal,
                 {kPaint,
                  {{"DIAMETER", 10.0},
                   {"HEIGHT S", 20.0},
                   {"VOLUME", 10800.0},
                   {"TURNOVER", 10.0},
                   {"Q_NET", 108000.0},
                   {"UNDER", false},
                   {"VENT_P", 0.03},
                   {"VENT_V", -0.03}}},
                 changes);
}

std::int32_t AddInternalTank(TestSession& test, FieldValues changes) {
  const auto ID = AddTank(test, shell::kInternalFloatingRoof,
                          {kPaint,
                           kRoofPaint,
                           kSeals,
                           kFloatingSize,
                           {{"SELF_SUP", false},
                            {"COL_NO", 6.0},
                            {"COL_DIAM", 1.1},
                            {"DECK_TYPE", "Bolted"},
                            {"DECK_CONSTRUCT", "Sheet"},
                            {"DECK_SEAM", "Sheet: 5 Ft Wide"},
                            {"DECK_SEAM_LENGTH", 0.0},
                            {"SD", 0.2}}},
                          changes);
  AddFitting(test.client(), ID, 1);
  return ID;
}

std::int32_t AddExternalTank(TestSession& test, FieldValues changes) {
  const auto ID =
      AddTank(test, shell::kExternalFloatingRoof, {kPaint, kSeals, kFloatingSize, {{"RF_TYPE", "Pontoon"}}}, changes);
  AddFitting(test.client(), ID, 1);
  return ID;
}

std::int32_t AddDomedTank(TestSession& test, FieldValues changes) {
  const auto ID = AddTank(test, shell::kDomedExternalFloatingRoof,
                          {kPaint, kSeals, kFloatingSize, {{"RF_TYPE", "Pontoon"}}}, changes);
  AddFitting(test.client(), ID, 1);
  return ID;
}

void AddMixture(store::Database& client, std::int32_t ID, std::int32_t MixID, FieldValues changes) {
  auto mixtures = client.OpenTable("mixtures");
  mixtures.AddNew();
  SetAll(mixtures, Fields{{"ID", ID},
                          {"MIX ID", MixID},
                          {"MIX NAME", "Benzene"},
                          {"CAS", "71-43-2"},
                          {"C_CATEGORY", shell::kOrganicLiquids},
                          {"COMPONENT", shell::kSingle},
                          {"MLS_TEMP", 55.0},
                          {"ALS_TEMP", 60.0},
                          {"XLS_TEMP", 65.0},
                          {"BULK_TEMP", 58.0},
                          {"VP_MIN", 1.015},
                          {"VP", 1.1679},
                          {"VP_MAX", 1.3394}});
  SetAll(mixtures, kBenzene);
  for (const shell::Month& month : shell::kMonths) {
    mixtures.Set(month.name, true);
    mixtures.Set(month.throughput, 0.0);
  }
  SetAll(mixtures, changes);
  mixtures.Update();
}

void AddComponent(store::Database& client, std::int32_t ID, std::int32_t MixID, std::int32_t CompID,
                  FieldValues changes) {
  auto components = client.OpenTable("components");
  components.AddNew();
  SetAll(components, Fields{{"ID", ID},
                            {"MIX ID", MixID},
                            {"COMP ID", CompID},
                            {"NAME", "Benzene"},
                            {"WT_FRACT", 0.0},
                            {"WEIGHT", 0.0},
                            {"VP_FRACT", 0.0}});
  SetAll(components, kBenzene);
  SetAll(components, changes);
  components.Update();
}

void AddFitting(store::Database& client, std::int32_t ID, std::int32_t FitID, FieldValues changes) {
  auto fittings = client.OpenTable("fittings");
  fittings.AddNew();
  SetAll(fittings, Fields{{"ID", ID},
                          {"FIT ID", FitID},
                          {"FIT_TYPE", "Access Hatch (24-in. Diam.)"},
                          {"COVR_TYPE", "Bolted Cover, Gasketed"},
                          {"K_FA", 1.6},
                          {"K_FB", 0.0},
                          {"K_M", 0.0},
                          {"QUANTITY", 1.0}});
  SetAll(fittings, changes);
  fittings.Update();
}

void ChangeTank(store::Database& client, std::int32_t ID, FieldValues changes) {
  ChangeRow(client, "tank", "ID", {ID}, changes);
}

void ChangeMixture(store::Database& client, std::int32_t ID, std::int32_t MixID, FieldValues changes) {
  ChangeRow(client, "mixtures", "IDMIX", {ID, MixID}, changes);
}

void SetThroughput(store::Database& client, std::int32_t ID, std::int32_t MixID, double gallons_a_month) {
  SetEveryMonth(
      client, ID, MixID, [](const shell::Month& month) { return month.throughput; }, gallons_a_month);
}

void SetMonths(store::Database& client, std::int32_t ID, std::int32_t MixID, bool stored) {
  SetEveryMonth(
      client, ID, MixID, [](const shell::Month& month) { return month.name; }, stored);
}

}  // namespace orvex::test
