#include "inventory.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "emission/calc_prop.h"
#include "emission/vapor_pressure.h"
#include "shell/periods.h"
#include "shell/tank_types.h"
#include "silent_host.h"

namespace orvex::bench {
namespace {

using std::string_view;
using store::RecordSet;
using Row = std::vector<store::Value>;

constexpr auto kColours = std::to_array<string_view>(
    {"White/White", "Aluminum/Specular", "Aluminum/Diffuse", "Gray/Light", "Gray/Medium", "Red/Primer"});
constexpr auto kConditions = std::to_array<string_view>({"Good", "Poor"});
constexpr auto kShellConditions = std::to_array<string_view>({"Light Rust", "Dense Rust", "Gunite Lining"});
constexpr auto kRoofTypes = std::to_array<string_view>({"Pontoon", "Double Deck"});

// Stored temperatures may not be negative, and the year's properties are the ones stored.
constexpr double kColdestYearF = 32;
// A chemical is taken where it neither boils in the hottest month nor has no vapor pressure in the coldest.
constexpr double kHottestR = 459.67 + 140;
constexpr double kColdestR = 459.67;
constexpr double kHighestPsia = 9;
constexpr double kLowestPsia = 1e-5;

constexpr double kGallonsPerCubicFoot = 1 / 0.13368;
constexpr double kPi = 3.14159;
constexpr double kStale = 0.99;

/// Goes through a list so that neighbours differ, whatever the length of the other lists.
template <typename List>
const auto& Pick(const List& list, int number) {
  return list[static_cast<std::size_t>(number) % list.size()];
}

/// What the reference database offers to the tanks.
struct Catalogue {
  std::vector<Row> cities;     ///< CTYST, ATMOS_PRS
  std::vector<Row> chemicals;  ///< NAME, CATEGORY, CAS
  std::vector<Row> liquids;    ///< organic liquids: NAME, MOLWT, VP_MOLWT, L_DENS
  std::vector<Row> fittings;   ///< FIT_TYPE, COVR_TYPE, K_FA, K_FB, K_M
  std::vector<Row> seals;      ///< PRIM_SEAL, SECND_SEAL, WELDED
};

template <typename Accept>
std::vector<Row> ReadRows(store::Database& database, string_view table, std::initializer_list<string_view> fields,
                          Accept accept) {
  std::vector<Row> rows;
  for (auto set = database.OpenTable(table); !set.AtEnd(); set.MoveNext()) {
    if (!accept(set)) continue;
    Row row;
    for (const auto field : fields) row.push_back(set.Get(field));
    rows.push_back(std::move(row));
  }
  if (rows.empty()) throw std::runtime_error(fmt::format("No row of '{}' is fit for a tank.", table));
  return rows;
}

Catalogue ReadCatalogue(shell::Session& session) {
  auto& reference = *session.ReferenceDb;
  const auto any = [](RecordSet&) { return true; };
  const auto evaporates = [&](RecordSet& chemical) {
    const auto name = chemical.Text("NAME");
    return emission::PVA(session, name, kHottestR) < kHighestPsia &&
           emission::PVA(session, name, kColdestR) > kLowestPsia;
  };
  const auto is_liquid = [&](RecordSet& chemical) {
    return chemical.Text("CATEGORY") == shell::kOrganicLiquids && evaporates(chemical);
  };
  return {.cities = ReadRows(reference, "met", {"CTYST", "ATMOS_PRS"},
                             [](RecordSet& city) { return city.Double("TAN_ANN") > kColdestYearF; }),
          .chemicals = ReadRows(reference, "chemical", {"NAME", "CATEGORY", "CAS"}, evaporates),
          .liquids = ReadRows(reference, "chemical", {"NAME", "MOLWT", "VP_MOLWT", "L_DENS"}, is_liquid),
          .fittings = ReadRows(reference, "fitting", {"FIT_TYPE", "COVR_TYPE", "K_FA", "K_FB", "K_M"}, any),
          .seals = ReadRows(reference, "rimseal", {"PRIM_SEAL", "SECND_SEAL", "WELDED"},
                            [](RecordSet& seal) { return seal.Bool("EFLT"); })};
}

/// Adds tanks to a client database, one by one.
class Builder {
 public:
  Builder(store::Database& client, const Catalogue& catalogue)
      : catalogue_(catalogue),
        tanks_(client.OpenTable("tank")),
        mixtures_(client.OpenTable("mixtures")),
        components_(client.OpenTable("components")),
        fittings_(client.OpenTable("fittings")) {}

  /// The `USER ID` of tank `number`, which counts from 1 and is its `ID` too.
  std::string Add(TankKind kind, int number) {
    auto user_id = fmt::format("TK-{:06}", number);
    AddTank(kind, number, user_id);
    AddMixture(kind, number);
    if (kind == TankKind::kSpeciation) AddComponents(number);
    if (kind == TankKind::kExternal) AddFittings(number);
    return user_id;
  }

 private:
  void AddTank(TankKind kind, int number, const std::string& user_id) {
    const Row& city = Pick(catalogue_.cities, number);
    const double diameter = 20 + number % 97;
    const double liquid_height = 16 + number % 31;
    const double volume = kPi * (diameter / 2) * (diameter / 2) * liquid_height * kGallonsPerCubicFoot;
    const double turnovers = 4 + number % 53;
    tanks_.AddNew();
    tanks_.Set("USER ID", user_id);
    tanks_.Set("CITY", fmt::format("Site {}", number % 211));
    tanks_.Set("STATE", "Ohio");
    tanks_.Set("COMPANY", fmt::format("Tank Farms {} Inc.", number % 17));
    tanks_.Set("DESC", fmt::format("Storage tank number {} of the farm", number));
    tanks_.Set("MET CTYST", city[0]);
    tanks_.Set("ATMOS_PRS", city[1]);
    tanks_.Set("DIAMETER", diameter);
    tanks_.Set("VOLUME", volume);
    tanks_.Set("TURNOVER", turnovers);
    tanks_.Set("Q_NET", volume * turnovers);
    tanks_.Set("SHL COLSHD", Pick(kColours, number));
    tanks_.Set("PT_COND", Pick(kConditions, number));
    if (kind == TankKind::kExternal) {
      const Row& seal = Pick(catalogue_.seals, number);
      tanks_.Set("TANK_TYPE", shell::kExternalFloatingRoof);
      tanks_.Set("SHL_COND", Pick(kShellConditions, number));
      tanks_.Set("RF_TYPE", Pick(kRoofTypes, number));
      tanks_.Set("RIM_PRIM", seal[0]);
      tanks_.Set("RIM_SEC", seal[1]);
      tanks_.Set("TANK_CONSTRUCT", seal[2].AsBool() ? "Welded" : "Riveted");
      tanks_.Set("FITTING", "Detail");
    } else {
      tanks_.Set("TANK_TYPE", shell::kVerticalFixedRoof);
      tanks_.Set("HEIGHT S", liquid_height + 2);
      tanks_.Set("HEIGHT ML", liquid_height);
      tanks_.Set("HEIGHT AL", liquid_height / 2);
      tanks_.Set("RF_COLSHD", Pick(kColours, number / 2));
      tanks_.Set("RF_COND", Pick(kConditions, number / 2));
      tanks_.Set("RF_TYPE", "Cone");
      tanks_.Set("C_SLOPE", 0.0625);
      tanks_.Set("VENT_P", 0.03);
      tanks_.Set("VENT_V", -0.03);
    }
    tanks_.Update();
    throughput_ = volume * turnovers;
  }

  void AddMixture(TankKind kind, int number) {
    mixtures_.AddNew();
    mixtures_.Set("ID", number);
    mixtures_.Set("MIX ID", 1);
    if (kind == TankKind::kSpeciation) {
      mixtures_.Set("MIX NAME", fmt::format("Blend {}", number));
      mixtures_.Set("C_CATEGORY", shell::kOrganicLiquids);
      mixtures_.Set("COMPONENT", shell::kMultiple);
      mixtures_.Set("SPEC_OPT", shell::kFullSpeciation);
    } else {
      const Row& chemical = Pick(catalogue_.chemicals, number);
      mixtures_.Set("MIX NAME", chemical[0]);
      mixtures_.Set("C_CATEGORY", chemical[1]);
      mixtures_.Set("CAS", chemical[2]);
      mixtures_.Set("COMPONENT", shell::kSingle);
    }
    for (const auto& month : shell::kMonths) {
      mixtures_.Set(month.name, true);
      mixtures_.Set(month.throughput, throughput_ / 12);
    }
    mixtures_.Update();
  }

  void AddComponents(int number) {
    for (int i = 0; i < kComponents; ++i) {
      const Row& liquid = Pick(catalogue_.liquids, number * 3 + i);
      components_.AddNew();
      components_.Set("ID", number);
      components_.Set("MIX ID", 1);
      components_.Set("COMP ID", i + 1);
      components_.Set("NAME", liquid[0]);
      components_.Set("MOLWT", liquid[1]);
      components_.Set("VP_MOLWT", liquid[2]);
      components_.Set("L_DENS", liquid[3]);
      components_.Set("WT_FRACT", 100.0 / kComponents);
      components_.Update();
    }
  }

  void AddFittings(int number) {
    for (int i = 0; i < kFittingLines; ++i) {
      const Row& fitting = Pick(catalogue_.fittings, number + i);
      fittings_.AddNew();
      fittings_.Set("ID", number);
      fittings_.Set("FIT ID", i + 1);
      fittings_.Set("FIT_TYPE", fitting[0]);
      fittings_.Set("COVR_TYPE", fitting[1]);
      fittings_.Set("K_FA", fitting[2]);
      fittings_.Set("K_FB", fitting[3]);
      fittings_.Set("K_M", fitting[4]);
      fittings_.Set("QUANTITY", 1.0 + i);
      fittings_.Update();
    }
  }

  const Catalogue& catalogue_;
  RecordSet tanks_, mixtures_, components_, fittings_;
  double throughput_ = 0;
};

void MakeStale(RecordSet& row, std::initializer_list<string_view> fields) {
  for (const auto field : fields) row.Set(field, row.Double(field) * kStale);
}

/// Stores the properties of a tank's mixture and components, out of date.
void StoreStaleProperties(shell::Session& session, std::int32_t ID) {
  emission::CalcProp(session, ID);
  auto mixture = session.ClientDb->OpenMatching("mixtures", "IDMIX", {ID});
  mixture.Edit();
  MakeStale(mixture, {"MOLWT", "VP_MOLWT", "L_DENS", "ALS_TEMP", "MLS_TEMP", "XLS_TEMP", "BULK_TEMP", "VP"});
  // The run itself gives a mixture of components no range of vapor pressures.
  mixture.Set("VP_MIN", mixture.Double("VP") * 0.9);
  mixture.Set("VP_MAX", mixture.Double("VP") * 1.1);
  mixture.Update();
  for (auto components = session.ClientDb->OpenMatching("components", "IDMIX", {ID}); !components.AtEnd();
       components.MoveNext()) {
    components.Edit();
    components.Set("CAS", store::Value());
    MakeStale(components, {"MOLWT", "L_DENS", "VP_MOLWT", "ALS_TEMP", "VP"});
    components.Update();
  }
}

}  // namespace

std::vector<std::string> MakeInventory(const std::filesystem::path& client, const std::filesystem::path& reference,
                                       TankKind kind, int tanks) {
  std::filesystem::remove(client);
  SilentHost host;
  shell::Session session(host);
  session.ReferenceDb = store::Database::Open(reference, store::OpenMode::kReadOnly);
  session.ClientDb = store::Database::Create(client, store::ClientTables());
  const Catalogue catalogue = ReadCatalogue(session);
  store::Transaction transaction(*session.ClientDb);
  const store::Transaction reading(*session.ReferenceDb, store::Transaction::Purpose::kRead);
  Builder builder(*session.ClientDb, catalogue);
  std::vector<std::string> user_ids;
  for (int number = 1; number <= tanks; ++number) {
    user_ids.push_back(builder.Add(kind, number));
    StoreStaleProperties(session, number);
  }
  transaction.Commit();
  return user_ids;
}

}  // namespace orvex::bench
