#include "exchange/reference_lookups.h"

#include <fmt/format.h>

#include "store/text_or_null.h"

namespace orvex::exchange {

ReferenceLookups::ReferenceLookups(store::Database& reference)
    : chemicals(reference.OpenTable("chemical")),
      cities(reference.OpenTable("met")),
      rim_seals(reference.OpenTable("rimseal")),
      fittings(reference.OpenTable("fitting")),
      deck_seams(reference.OpenTable("deckseam")) {
  chemicals.SetIndex("chemname");
  cities.SetIndex("CTYST");
  rim_seals.SetIndex("primsec");
  fittings.SetIndex("TYPE");
  deck_seams.SetIndex("name");
}

bool ReferenceLookups::FindCity(std::string_view city, std::string_view state) {
  return Find(cities, {fmt::format("{}, {}", city, state)});
}

bool ReferenceLookups::FindRimSeal(std::string_view primary, std::string_view secondary) {
  return Find(rim_seals, {primary, secondary});
}

bool ReferenceLookups::FindFitting(std::string_view type, const store::Value& status) {
  if (Find(fittings, {type, status})) return true;
  return status.IsNull() && Find(fittings, {type, ""});
}

bool ReferenceLookups::Find(store::RecordSet& rows, std::initializer_list<store::Value> key) {
  rows.Seek(key);
  return !rows.NoMatch();
}

}  // namespace orvex::exchange
