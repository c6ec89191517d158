#include "reports/losses.h"

#include "shell/tank_types.h"
#include "store/letter_case.h"

namespace orvex::reports {
namespace {

constexpr std::string_view kStoredQuery =
    "SELECT emission.* FROM emission ORDER BY emission.ID, emission.[MIX ID], emission.PRIMARY;";

constexpr std::string_view kSummedQuery =
    "SELECT DISTINCTROW emission.ID, emission.[MIX ID], emission.PRIMARY, emission.NAME, "
    "Sum(emission.S_LOSS) AS SumOfS_LOSS, Sum(emission.W_LOSS) AS SumOfW_LOSS, "
    "Sum(emission.RIM_LOSS) AS SumOfRIM_LOSS, Sum(emission.WD_LOSS) AS SumOfWD_LOSS, "
    "Sum(emission.DECKF_LOSS) AS SumOfDECKF_LOSS, Sum(emission.DECKS_LOSS) AS SumOfDECKS_LOSS "
    "From Emission GROUP BY emission.ID, emission.[MIX ID], emission.PRIMARY, emission.NAME;";

constexpr std::string_view kByTankQuery =
    "SELECT DISTINCTROW emission.ID, emission.[USER ID], emission.TANK_TYPE, emission.CITY, emission.STATE, "
    "emission.COMPANY, Sum(emission.S_LOSS) AS SumOfS_LOSS, Sum(emission.W_LOSS) AS SumOfW_LOSS, "
    "Sum(emission.RIM_LOSS) AS SumOfRIM_LOSS, Sum(emission.WD_LOSS) AS SumOfWD_LOSS, "
    "Sum(emission.DECKF_LOSS) AS SumOfDECKF_LOSS, Sum(emission.DECKS_LOSS) AS SumOfDECKS_LOSS "
    "From Emission Where ((Emission.Primary = True)) GROUP BY emission.ID, emission.[USER ID], emission.TANK_TYPE, "
    "emission.CITY, emission.STATE, emission.COMPANY;";

/// The names under which a query gives the losses.
struct LossFields {
  std::string_view standing, working, rim_seal, withdrawal, deck_fitting, deck_seam;
};

constexpr LossFields kStoredFields = {"S_LOSS", "W_LOSS", "RIM_LOSS", "WD_LOSS", "DECKF_LOSS", "DECKS_LOSS"};
constexpr LossFields kSummedFields = {"SumOfS_LOSS",  "SumOfW_LOSS",     "SumOfRIM_LOSS",
                                      "SumOfWD_LOSS", "SumOfDECKF_LOSS", "SumOfDECKS_LOSS"};

Losses ReadLosses(store::RecordSet& rows, const LossFields& fields) {
  return {rows.DoubleOrZero(fields.standing),     rows.DoubleOrZero(fields.working),
          rows.DoubleOrZero(fields.rim_seal),     rows.DoubleOrZero(fields.withdrawal),
          rows.DoubleOrZero(fields.deck_fitting), rows.DoubleOrZero(fields.deck_seam)};
}

EmissionLine ReadLine(store::RecordSet& rows, const LossFields& fields) {
  return {rows.BoolOrFalse("PRIMARY"), rows.TextOrEmpty("NAME"), ReadLosses(rows, fields)};
}

EmissionLines ReadLines(store::Database& client, std::string_view query, const LossFields& fields,
                        const std::unordered_set<std::int32_t>& tanks) {
  EmissionLines lines;
  if (tanks.empty()) return lines;
  auto rows = client.OpenQuery(query);
  for (; !rows.AtEnd(); rows.MoveNext()) {
    const auto id = rows.LongOrZero("ID");
    if (!tanks.contains(id)) continue;
    lines[id].push_back(ReadLine(rows, fields));
  }
  return lines;
}

}  // namespace

EmissionLines StoredLines(store::Database& client, const std::unordered_set<std::int32_t>& tanks) {
  return ReadLines(client, kStoredQuery, kStoredFields, tanks);
}

EmissionLines SummedLines(store::Database& client, const std::unordered_set<std::int32_t>& tanks) {
  return ReadLines(client, kSummedQuery, kSummedFields, tanks);
}

std::vector<EmissionLine> LinesInStoredOrder(store::Database& client, std::int32_t tank) {
  std::vector<EmissionLine> lines;
  for (auto rows = client.OpenMatching("emission", "COMPID", {tank}); !rows.AtEnd(); rows.MoveNext())
    lines.push_back(ReadLine(rows, kStoredFields));
  return lines;
}

std::vector<TankLosses> LossesByTank(store::Database& client) {
  std::vector<TankLosses> tanks;
  auto rows = client.OpenQuery(kByTankQuery);
  for (; !rows.AtEnd(); rows.MoveNext())
    tanks.push_back({rows.LongOrZero("ID"), rows.TextOrEmpty("USER ID"), rows.TextOrEmpty("TANK_TYPE"),
                     rows.Get("CITY"), rows.TextOrEmpty("STATE"), rows.TextOrEmpty("COMPANY"),
                     ReadLosses(rows, kSummedFields)});
  return tanks;
}

double RollUpLoss(std::string_view tank_type, const Losses& losses) {
  if (shell::IsFixedRoof(tank_type)) return losses.FixedRoofTotal();
  const bool floats = store::LowerCase(tank_type).find("float") != std::string::npos;
  return floats ? losses.FloatingRoofTotal() : 0;
}

}  // namespace orvex::reports
