#pragma once

#include <cstdint>
#include <optional>

#include "exchange/reference_lookups.h"
#include "exchange/tank_mapping.h"
#include "exchange/tank_sources.h"
#include "store/database.h"

namespace orvex::exchange {

/// Writes checked tanks of the previous version into a client database.
class TankWriter {
 public:
  /// Error 3011 for a table that the database does not hold.
  TankWriter(store::Database& client, ReferenceLookups& reference);

  /// The client's tanks, by the index `USER ID`.
  [[nodiscard]] store::RecordSet& Tanks() { return tanks_; }

  /// The current tank of the sources with all that belongs to it.
  void Write(TankSources& sources, const TankName& name);
  /// Removes what the last `Write` has written, however far it came.
  void Undo();

 private:
  std::int32_t WriteTank(const store::DbaseTable& tank, const TankName& name);
  void SetDeck(const store::DbaseTable& tank);
  void WriteMixture(const store::DbaseTable& mixture, std::int32_t number);
  void WriteFitting(const store::DbaseTable& fitting, std::int32_t number);
  void WriteComponent(const store::DbaseTable& component, std::int32_t number);

  store::Database& client_;
  ReferenceLookups& reference_;
  store::RecordSet tanks_, mixtures_, fittings_, components_;
  std::optional<std::int32_t> ID_;  ///< of the tank last written
};

}  // namespace orvex::exchange
