#include "emission/typical_fittings.h"

#include <fmt/format.h>

#include <string>

#include "emission/fitting_counts.h"
#include "emission/routine.h"
#include "shell/trap.h"
#include "store/database.h"

namespace orvex::emission {
namespace {

/// "*part*" as the fitting names are told apart: anywhere in the text, with regard to case.
bool Has(std::string_view text, std::string_view part) { return text.find(part) != std::string_view::npos; }

double CountIFRT(shell::Session& session, store::RecordSet& fitting, std::string_view deck_construction,
                 double diameter_ft) {
  const std::string type = fitting.TextOrEmpty("FIT_TYPE");
  if (Has(type, "Column")) return Columns(diameter_ft);
  if (Has(type, "Stub Drain")) {
    return Routine(session, "modEmission.StubDrains", [&] { return StubDrains(diameter_ft, deck_construction); });
  }
  if (Has(type, "Roof Leg")) {
    return Routine(session, "modEmission.LegsIFRT", [&] { return LegsIFRT(diameter_ft); });
  }
  return fitting.DoubleOrZero("QUANTITY");
}

int RoofLegsEFRT(std::string_view cover, std::string_view deck_type, double diameter_ft) {
  if (Has(cover, "Pontoon")) return deck_type == "Pontoon" ? PontoonRoofLegs(diameter_ft) : 0;
  if (Has(cover, "Center")) return deck_type == "Pontoon" ? CenterRoofLegs(diameter_ft) : 0;
  if (Has(cover, "Double")) return DoubleDeckRoofLegs(diameter_ft);
  return 0;
}

double CountEFRT(store::RecordSet& fitting, std::string_view deck_type, double diameter_ft) {
  const std::string type = fitting.TextOrEmpty("FIT_TYPE");
  if (Has(type, "Vacuum")) return Breakers(diameter_ft, deck_type);
  if (Has(type, "Drain")) return RoofDrains(diameter_ft, deck_type);
  if (Has(type, "Roof Leg")) return RoofLegsEFRT(fitting.TextOrEmpty("COVR_TYPE"), deck_type, diameter_ft);
  return fitting.DoubleOrZero("QUANTITY");
}

/// Replaces the tank's fittings by those rows of `fitting` that `keeps` takes and `count` gives a number for. The old
/// ones stay where that fails.
template <typename Keeps, typename Count>
void Rebuild(shell::Session& session, std::int32_t ID, Keeps keeps, Count count) {
  store::Transaction transaction(*session.ClientDb);
  session.ClientDb->Execute(fmt::format("DELETE * FROM fittings WHERE ID = {}", ID));
  auto fittings = session.ClientDb->OpenTable("fittings");
  std::int32_t number = 0;
  for (auto fitting = session.ReferenceDb->OpenTable("fitting"); !fitting.AtEnd(); fitting.MoveNext()) {
    if (!keeps(fitting)) continue;
    const double quantity = count(fitting);
    if (quantity == 0) continue;
    fittings.AddNew();
    fittings.Set("ID", ID);
    fittings.Set("FIT ID", ++number);
    for (const std::string_view copied : {"FIT_TYPE", "COVR_TYPE", "K_FA", "K_FB", "K_M"})
      fittings.Set(copied, fitting.Get(copied));
    fittings.Set("QUANTITY", quantity);
    fittings.Update();
  }
  transaction.Commit();
}

}  // namespace

void TypicalFitIFRT(shell::Session& session, std::int32_t ID, std::string_view deck_construction, bool self_supporting,
                    double diameter_ft) {
  shell::Trapped(session, "modEmission.TypicalFitIFRT", [&] {
    Rebuild(
        session, ID,
        [&](store::RecordSet& fitting) {
          return fitting.BoolOrFalse("TYP_IFLT") &&
                 (deck_construction == "Bolted" || fitting.BoolOrFalse("WELD_DECK")) &&
                 (!self_supporting || fitting.BoolOrFalse("SELF_SUP"));
        },
        [&](store::RecordSet& fitting) { return CountIFRT(session, fitting, deck_construction, diameter_ft); });
  });
}

void TypicalFitEFRT(shell::Session& session, std::int32_t ID, std::string_view deck_type, std::string_view primary_seal,
                    double diameter_ft) {
  shell::Trapped(session, "modEmission.TypicalFitEFRT", [&] {
    Rebuild(
        session, ID,
        [&](store::RecordSet& fitting) {
          return fitting.BoolOrFalse("TYP_EFLT") && (deck_type == "Double Deck" || fitting.BoolOrFalse("D_ROOF")) &&
                 (primary_seal == "Mechanical Shoe" || fitting.BoolOrFalse("P_SEAL"));
        },
        [&](store::RecordSet& fitting) { return CountEFRT(fitting, deck_type, diameter_ft); });
  });
}

}  // namespace orvex::emission
