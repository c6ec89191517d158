#pragma once

#include <string>
#include <string_view>

#include "store/database.h"

namespace orvex::exchange {

/// The tables of reference data, each with the index by which a tank's texts are looked up.
class ReferenceLookups {
 public:
  explicit ReferenceLookups(store::Database& reference);

  // Each leaves the row found as the current one of its table.
  bool FindCity(std::string_view city, std::string_view state);
  bool FindRimSeal(std::string_view primary, std::string_view secondary);
  bool FindChemical(std::string_view name) { return Find(chemicals, {name}); }
  bool FindDeckSeam(std::string_view name) { return Find(deck_seams, {name}); }
  /// A status that is blank finds a row without one, be it null or an empty text.
  bool FindFitting(std::string_view type, const store::Value& status);

  store::RecordSet chemicals, cities, rim_seals, fittings, deck_seams;

 private:
  static bool Find(store::RecordSet& rows, std::initializer_list<store::Value> key);
};

}  // namespace orvex::exchange
