#include "entry/fitting_estimate.h"

#include <optional>

#include "emission/fitting_counts.h"
#include "emission/routine.h"
#include "store/wildcards.h"

namespace orvex::entry {
namespace {

/// What the counts depend on.
struct Roof {
  double diameter_ft;
  std::string deck;  ///< deck type of an internal tank, roof type of the others
};

/// A pattern for the kind and one for the cover of fittings, with regard to case, and how many a roof has.
struct EstimateRule {
  bool internal;
  std::string_view type;
  std::string_view cover;
  std::string_view routine;
  int (*count)(const Roof&);
};

constexpr std::string_view kAny = "*";

// Of the rules that fit a row the last one counts.
constexpr EstimateRule kRules[] = {
    {false, "*Vacuum*", kAny, "modEmission.Breakers",
     [](const Roof& roof) { return emission::Breakers(roof.diameter_ft, roof.deck); }},
    {false, "*Drain*", kAny, "modEmission.RoofDrains",
     [](const Roof& roof) { return emission::RoofDrains(roof.diameter_ft, roof.deck); }},
    {false, "*Roof Leg*", "*Pontoon*", "modEmission.PontoonRoofLegs",
     [](const Roof& roof) { return emission::PontoonRoofLegs(roof.diameter_ft); }},
    {false, "*Roof Leg*", "*Center*", "modEmission.CenterRoofLegs",
     [](const Roof& roof) { return emission::CenterRoofLegs(roof.diameter_ft); }},
    {false, "*Roof Leg*", "*Double*", "modEmission.DoubleDeckRoofLegs",
     [](const Roof& roof) { return emission::DoubleDeckRoofLegs(roof.diameter_ft); }},
    {true, "*Column*", kAny, "modEmission.Columns",
     [](const Roof& roof) { return emission::Columns(roof.diameter_ft); }},
    {true, "*Stub Drain*", kAny, "modEmission.StubDrains",
     [](const Roof& roof) { return emission::StubDrains(roof.diameter_ft, roof.deck); }},
    {true, "*Roof Leg*", kAny, "modEmission.LegsIFRT",
     [](const Roof& roof) { return emission::LegsIFRT(roof.diameter_ft); }},
};

bool Fits(std::string_view text, std::string_view pattern) {
  return store::MatchesWildcards(text, pattern, store::CaseRule::kRegard);
}

}  // namespace

double EstimatedQuantity(shell::Session& session, FrmTank& tank, store::RecordSet& fitting) {
  const bool internal = PhysicalSection(tank) == Section::kInternal;
  const Roof roof{.diameter_ft = Number(Physical(tank, "DIAMETER")),
                  .deck = StoredText(Physical(tank, internal ? "DECK_TYPE" : "RF_TYPE"))};
  const auto type = fitting.TextOrEmpty("FIT_TYPE"), cover = fitting.TextOrEmpty("COVR_TYPE");
  std::optional<double> estimate;
  for (const auto& rule : kRules) {
    if (rule.internal == internal && Fits(type, rule.type) && Fits(cover, rule.cover))
      estimate = emission::Routine(session, rule.routine, [&] { return rule.count(roof); });
  }
  return estimate ? *estimate : fitting.DoubleOrZero("QUANTITY");
}

}  // namespace orvex::entry
