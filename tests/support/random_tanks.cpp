#include "support/random_tanks.h"

#include <rapidcheck.h>

#include <string>

#include "emission/calc_prop.h"
#include "shell/periods.h"
#include "shell/tank_types.h"
#include "support/sample_tanks.h"

namespace orvex::test {
namespace {

using std::int32_t;

constexpr double kPi = 3.14159;
constexpr double kCubicFeetPerGallon = 0.13368;
constexpr double kMonths = 12;

/// A number between two bounds, in thousandths of the way; all of them equally likely in every case of a property.
double Between(double low, double high) {
  return low + (high - low) * *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, 1001)) / 1000.0;
}
int WholeBetween(int low, int high) { return *rc::gen::inRange(low, high + 1); }
bool OneIn(int cases) { return WholeBetween(1, cases) == 1; }
const char* OneOf(std::initializer_list<const char*> texts) {
  return *(texts.begin() + WholeBetween(0, static_cast<int>(texts.size()) - 1));
}

store::Value OneOfOrNull(std::initializer_list<const char*> texts) {
  if (OneIn(4)) return {};
  return OneOf(texts);
}

struct Weather {
  double coldest_f, warmest_f, insolation, wind_mph;
};

void SetWeather(store::RecordSet& city, std::string_view suffix, const Weather& weather) {
  const auto set = [&](const char* prefix, double value) { city.Set(prefix + std::string(suffix), value); };
  set("TAN_", weather.coldest_f);
  set("TAX_", weather.warmest_f);
  set("INSOL_", weather.insolation);
  set("WIND_", weather.wind_mph);
}

/// Weather of the year as of its months, `of_month` giving that of each from the year's.
template <typename OfMonth>
void ChangeWeather(store::Database& reference, OfMonth of_month) {
  const double coldest = Between(40, 65);
  const Weather year = {coldest, coldest + Between(5, 30), Between(500, 2000), Between(0, 20)};
  auto city = reference.OpenTable("met");
  city.SetIndex("CTYST");
  city.Seek({kSampleCity});
  city.Edit();
  city.Set("ATMOS_PRS", Between(12, 14.9));
  city.Set("A_TEMP_DAA", (year.coldest_f + year.warmest_f) / 2);
  SetWeather(city, "ANN", year);
  for (const auto& month : shell::kMonths) SetWeather(city, month.suffix, of_month(year));
  city.Update();
}

constexpr const char* kColours[] = {"White/White", "Aluminum/Specular", "Aluminum/Diffuse",
                                    "Gray/Light",  "Gray/Medium",       "Red/Primer"};

/// Who a tank is: texts of all kinds, such as people write and such as take a careless writer of files by surprise.
void ChangeIdentification(store::Database& client, int32_t ID) {
  ChangeTank(client, ID,
             {{"CITY", OneOfOrNull({"Sampleton", "St. John's", "\u00D6lstadt", "<City> & \"Port\""})},
              {"STATE", OneOfOrNull({"Ohio", "New Jersey"})},
              {"COMPANY", OneOfOrNull({"Acme", "Smith & Sons <oil>", " two  blanks "})},
              {"DESC", OneOfOrNull({"North yard", "Two\r\nlines, and a\ttab", "100 % \u00B1 5"})}});
  auto tank = client.OpenMatching("tank", "ID", {ID});
  const std::string user_id = tank.Text("USER ID");
  ChangeTank(client, ID, {{"USER ID", OneOf({"", "  ", "<b>", "\u6CB9 & "}) + user_id}});
}

void ChangePaint(store::Database& client, int32_t ID) {
  for (const auto* field : {"SHL COLSHD", "RF_COLSHD"}) ChangeTank(client, ID, {{field, kColours[WholeBetween(0, 5)]}});
  for (const auto* field : {"PT_COND", "RF_COND"}) ChangeTank(client, ID, {{field, OneOf({"Good", "Poor"})}});
}

/// Sets volume, turnovers and throughput, which must agree.
void ChangeThroughput(store::Database& client, int32_t ID, double volume) {
  const double turnovers = Between(0.5, 80);
  ChangeTank(client, ID, {{"VOLUME", volume}, {"TURNOVER", turnovers}, {"Q_NET", volume * turnovers}});
}

double Cylinder(double diameter, double length) {
  return kPi * (diameter / 2) * (diameter / 2) * length / kCubicFeetPerGallon;
}

void ChangeVents(store::Database& client, int32_t ID) {
  ChangeTank(client, ID, {{"VENT_P", Between(0, 0.5)}, {"VENT_V", Between(-0.5, 0)}});
}

int32_t AddVertical(TestSession& test) {
  const int32_t ID = AddVerticalTank(test);
  const double diameter = Between(10, 120), liquid = Between(10, 40);
  ChangeTank(test.client(), ID,
             {{"DIAMETER", diameter},
              {"HEIGHT S", liquid + Between(0, 5)},
              {"HEIGHT ML", liquid},
              {"HEIGHT AL", liquid * Between(0.1, 1)},
              {"RF_TYPE", OneOf({"Cone", "Dome"})},
              {"RF_HEIGHT", OneIn(2) ? 0.0 : diameter * Between(0.02, 0.3)},
              {"D_RADIUS", OneIn(2) ? 0.0 : diameter * Between(0.8, 1.2)},
              {"C_SLOPE", Between(0.02, 0.2)},
              {"HEATED", OneIn(4)}});
  ChangeThroughput(test.client(), ID, Cylinder(diameter, liquid) * Between(0.92, 1.08));
  ChangeVents(test.client(), ID);
  return ID;
}

int32_t AddHorizontal(TestSession& test) {
  const int32_t ID = AddHorizontalTank(test);
  const double diameter = Between(4, 12), length = Between(8, 60);
  ChangeTank(test.client(), ID,
             {{"DIAMETER", diameter}, {"HEIGHT S", length}, {"UNDER", OneIn(3)}, {"HEATED", OneIn(4)}});
  ChangeThroughput(test.client(), ID, Cylinder(diameter, length) * Between(0.3, 1));
  ChangeVents(test.client(), ID);
  return ID;
}

int32_t AddFloating(TestSession& test, int32_t (*add)(TestSession&, FieldValues)) {
  const int32_t ID = add(test, {});
  auto& client = test.client();
  const double diameter = Between(20, 300);
  ChangeTank(client, ID,
             {{"DIAMETER", diameter},
              {"SHL_COND", OneOf({"Light Rust", "Dense Rust", "Gunite Lining"})},
              {"RIM_SEC", OneOf({"None", "Rim-mounted"})},
              {"TANK_CONSTRUCT", OneOf({"Welded", "Welded", "Riveted"})},
              {"SELF_SUP", OneIn(2)},
              {"COL_NO", static_cast<double>(WholeBetween(0, 20))},
              {"COL_DIAM", OneIn(3) ? 0.0 : Between(0.5, 2)},
              {"DECK_CONSTRUCT", OneOf({"Sheet", "Panel"})},
              {"DECK_SEAM", OneOf({"Sheet: 5 Ft Wide", "Home-made"})},
              {"DECK_SEAM_LENGTH", OneIn(2) ? 0.0 : diameter * Between(1, 40)}});
  if (OneIn(4)) ChangeTank(client, ID, {{"DECK_TYPE", "Welded"}, {"DECK_CONSTRUCT", "Welded"}});
  ChangeThroughput(client, ID, Cylinder(diameter, Between(10, 50)));
  ChangeRow(client, "fittings", "fitid", {ID, 1}, {{"COVR_TYPE", OneOfOrNull({"Bolted Cover, Gasketed"})}});
  const int fittings = WholeBetween(0, 4);
  for (int i = 0; i < fittings; ++i) {
    AddFitting(client, ID, i + 2,
               {{"FIT_TYPE", OneOf({"Access Hatch (24-in. Diam.)", "Roof Leg (3-in. Diameter)", "Vacuum Breaker"})},
                {"COVR_TYPE", OneOfOrNull({"Bolted Cover, Gasketed", "Unbolted Cover, Ungasketed", "Adjustable"})},
                {"K_FA", Between(0, 50)},
                {"K_FB", OneIn(2) ? 0.0 : Between(0, 150)},
                {"K_M", OneIn(2) ? 0.0 : Between(0.5, 2.2)},
                {"QUANTITY", static_cast<double>(WholeBetween(1, 40))}});
  }
  return ID;
}

struct Component {
  const char* name;
  double weight, vapor_weight;
};
constexpr Component kComponents[] = {
    {"Benzene", 78.11, 78.11}, {"Toluene", 92.13, 92.13}, {"Methanol", 32.04, 32.04}, {"Cyclohexane", 84.16, 84.16}};

/// Adds one to four components whose shares in a field are whole parts of a sum and make it up exactly.
void AddComponents(store::Database& client, int32_t ID, int32_t MixID, std::string_view field, int sum) {
  const int count = WholeBetween(1, 4);
  for (int i = 0, left = sum; i < count; ++i) {
    const int others = count - 1 - i;
    const int share = others == 0 ? left : WholeBetween(1, left - others);
    left -= share;
    const Component& component = kComponents[i];
    AddComponent(client, ID, MixID, i + 1,
                 {{"NAME", component.name},
                  {"MOLWT", component.weight},
                  {"VP_MOLWT", component.vapor_weight},
                  {field, static_cast<double>(share)}});
  }
}

void MakeSingle(store::Database& client, int32_t ID, int32_t MixID) {
  const char* name = OneOf({"Benzene", "Methanol", "Cyclohexane", "Gasoline", "Crude oil"});
  const std::string_view category = name == std::string_view("Gasoline")    ? shell::kPetroleumDistillates
                                    : name == std::string_view("Crude oil") ? shell::kCrudeOils
                                                                            : shell::kOrganicLiquids;
  ChangeMixture(client, ID, MixID, {{"MIX NAME", name}, {"C_CATEGORY", category}});
}

void MakeMultiple(store::Database& client, int32_t ID, int32_t MixID, bool fixed_roof) {
  const int kind = WholeBetween(0, fixed_roof ? 3 : 2);
  ChangeMixture(client, ID, MixID,
                {{"MIX NAME", kind == 0 || kind == 2 ? "Gasoline" : "Cut"}, {"COMPONENT", shell::kMultiple}});
  if (kind == 0) {
    ChangeMixture(client, ID, MixID, {{"SPEC_OPT", shell::kNoSpeciation}});
  } else if (kind == 1) {
    ChangeMixture(client, ID, MixID, {{"SPEC_OPT", shell::kFullSpeciation}});
    AddComponents(client, ID, MixID, OneOf({"WT_FRACT", "WEIGHT"}), 100);
  } else if (kind == 2) {
    ChangeMixture(client, ID, MixID, {{"SPEC_OPT", shell::kPartialSpeciation}});
    AddComponents(client, ID, MixID, "WT_FRACT", WholeBetween(4, 15));
  } else {
    ChangeMixture(client, ID, MixID, {{"SPEC_OPT", shell::kVaporWeightSpeciation}});
    AddComponents(client, ID, MixID, "VP_FRACT", 100);
  }
}

void FillMixture(store::Database& client, int32_t ID, int32_t MixID, bool fixed_roof) {
  if (OneIn(2)) {
    MakeSingle(client, ID, MixID);
  } else {
    MakeMultiple(client, ID, MixID, fixed_roof);
  }
  const double coldest = Between(60, 110);  // where the tank is heated
  ChangeMixture(client, ID, MixID,
                {{"MLS_TEMP", coldest},
                 {"ALS_TEMP", coldest + Between(0, 7)},
                 {"XLS_TEMP", coldest + Between(7, 15)},
                 {"BULK_TEMP", coldest + Between(0, 15)}});
}

/// The months are shared out to the mixtures, some to both; each has its part of the throughput.
void ShareOutMonths(store::Database& client, int32_t ID, int32_t mixtures, double throughput) {
  for (const auto& month : shell::kMonths) {
    for (int32_t MixID = 1; MixID <= mixtures; ++MixID) {
      ChangeMixture(client, ID, MixID,
                    {{month.name, OneIn(2)}, {month.throughput, throughput / kMonths / static_cast<double>(mixtures)}});
    }
  }
  ChangeMixture(client, ID, 1, {{"JANUARY", true}});
}

int32_t AddTankOfAnyType(TestSession& test) {
  switch (WholeBetween(1, 5)) {
    case 1:
      return AddVertical(test);
    case 2:
      return AddHorizontal(test);
    case 3:
      return AddFloating(test, AddInternalTank);
    case 4:
      return AddFloating(test, AddExternalTank);
    default:
      return AddFloating(test, AddDomedTank);
  }
}

}  // namespace

void AddRandomTankReference(store::Database& reference) {
  AddSampleReference(reference);
  auto chemicals = reference.OpenTable("chemical");
  chemicals.SetIndex("chemname");
  chemicals.Seek({"Gasoline"});
  if (!chemicals.NoMatch()) return;
  AddRow(reference, "chemical",
         {{"NAME", "Methanol"},
          {"CATEGORY", shell::kOrganicLiquids},
          {"MOLWT", 32.04},
          {"VP_MOLWT", 32.04},
          {"L_DENS", 6.61},
          {"VP_2_A", 38324.0},
          {"VP_2_B", 8.8017}});
  AddRow(reference, "chemical",
         {{"NAME", "Cyclohexane"},
          {"CATEGORY", shell::kOrganicLiquids},
          {"MOLWT", 84.16},
          {"VP_MOLWT", 84.16},
          {"L_DENS", 6.522},
          {"VP_40", 0.677},
          {"VP_50", 0.928},
          {"VP_60", 1.218},
          {"VP_70", 1.605},
          {"VP_80", 2.069},
          {"VP_90", 2.61},
          {"VP_100", 3.249}});
  AddRow(reference, "chemical",
         {{"NAME", "Gasoline"},
          {"CATEGORY", shell::kPetroleumDistillates},
          {"MOLWT", 92.0},
          {"VP_MOLWT", 68.0},
          {"L_DENS", 5.6},
          {"REID", 6.0},
          {"ASTM_SLOPE", 3.0}});
  AddRow(reference, "chemical",
         {{"NAME", "Crude oil"},
          {"CATEGORY", shell::kCrudeOils},
          {"MOLWT", 207.0},
          {"VP_MOLWT", 50.0},
          {"L_DENS", 7.1},
          {"REID", 5.0}});
}

void ChangeToRandomWeather(store::Database& reference) {
  ChangeWeather(reference, [](const Weather& year) {
    const double coldest = year.coldest_f + Between(-15, 15);
    return Weather{coldest, coldest + Between(5, 30), Between(300, 2500), Between(0, 20)};
  });
}

void ChangeToSteadyWeather(store::Database& reference) {
  ChangeWeather(reference, [](const Weather& year) { return year; });
}

int32_t AddRandomTank(TestSession& test, Storage storage) {
  auto& client = test.client();
  const int32_t ID = AddTankOfAnyType(test);
  ChangeIdentification(client, ID);
  ChangePaint(client, ID);
  auto tank = client.OpenMatching("tank", "ID", {ID});
  const bool fixed_roof = shell::IsFixedRoof(tank.Text("TANK_TYPE"));
  const double throughput = tank.Double("Q_NET");
  SetThroughput(client, ID, 1, throughput / kMonths);
  FillMixture(client, ID, 1, fixed_roof);
  if (storage == Storage::kAnyMixtures) {
    const int32_t mixtures = WholeBetween(1, 2);
    for (int32_t MixID = 2; MixID <= mixtures; ++MixID) {
      AddMixture(client, ID, MixID);
      FillMixture(client, ID, MixID, fixed_roof);
    }
    if (mixtures > 1 || OneIn(3)) ShareOutMonths(client, ID, mixtures, throughput);
  }
  emission::CalcProp(test.session, ID);
  return ID;
}

}  // namespace orvex::test
